// What operators and functions give for a valarray: an expression, whose elements are computed when an array is made of
// it or assigned from it. So a * b + c makes one pass and no array in between. It refers to the arrays that it was made
// from, and converts to valarray wherever one is asked for.
//
// Array and expression are operands. All operators are templates over operands, in the namespace of their base class.
#ifndef PLX_VALARRAY_EXPRESSION_H
#define PLX_VALARRAY_EXPRESSION_H

#include <plx/slice.h>
#include <plx/valarray_operations.h>
#include <plx/valarray_sources.h>

namespace std {

class gslice;
template <class T> class valarray;

}  // namespace std

namespace __zor {

struct valarray_access {
  template <class T> static const T *data(const std::valarray<T> &array) PLX_NOTHROW { return array.block_.data(); }
};

namespace valarrays {

template <class R, class Source> class expression;

// Where an operand's elements come from.
template <class Operand> struct source_of;
template <class T> struct source_of<std::valarray<T> > {
  typedef given_elements<T> type;
  static type get(const std::valarray<T> &array) PLX_NOTHROW { return type(valarray_access::data(array)); }
};
template <class R, class Source> struct source_of<expression<R, Source> > {
  typedef Source type;
  static const Source &get(const expression<R, Source> &e) PLX_NOTHROW { return e.source(); }
};

// The results of an operation on one operand, on two, on an operand and a value.
template <class R, class Operation, class A> struct of_one {
  typedef unary_elements<R, Operation, typename source_of<A>::type> source;
  typedef expression<R, source> type;
  static type make(const A &a) { return type(a.size(), source(source_of<A>::get(a))); }
};
template <class R, class Operation, class A, class B> struct of_two {
  typedef binary_elements<R, Operation, typename source_of<A>::type, typename source_of<B>::type> source;
  typedef expression<R, source> type;
  static type make(const A &a, const B &b) {
    return type(a.size(), source(source_of<A>::get(a), source_of<B>::get(b)));
  }
};
template <class R, class Operation, class T, class A> struct with_value {
  typedef binary_elements<R, Operation, typename source_of<A>::type, equal_elements<T> > source;
  typedef expression<R, source> type;
  static type make(const A &a, const T &b) {
    return type(a.size(), source(source_of<A>::get(a), equal_elements<T>(b)));
  }
};
template <class R, class Operation, class T, class A> struct of_value {
  typedef binary_elements<R, Operation, equal_elements<T>, typename source_of<A>::type> source;
  typedef expression<R, source> type;
  static type make(const T &a, const A &b) {
    return type(b.size(), source(equal_elements<T>(a), source_of<A>::get(b)));
  }
};

// The base class of valarray<T> and of expressions with elements of type T.
template <class T, class Self> class operand {
public:
  typedef T value_type;

  const Self &self() const PLX_NOTHROW { return static_cast<const Self &>(*this); }

  typename of_one<T, plus_operation, Self>::type operator+() const {
    return of_one<T, plus_operation, Self>::make(self());
  }
  typename of_one<T, minus_operation, Self>::type operator-() const {
    return of_one<T, minus_operation, Self>::make(self());
  }
  typename of_one<T, complement_operation, Self>::type operator~() const {
    return of_one<T, complement_operation, Self>::make(self());
  }
  typename of_one<bool, not_operation, Self>::type operator!() const {
    return of_one<bool, not_operation, Self>::make(self());
  }

  // Of operands with an element at least.

  T sum() const {
    const typename source_of<Self>::type source(source_of<Self>::get(self()));
    T result(source(0));
    for (size_t i = 1, n = self().size(); i < n; ++i) result += source(i);
    return result;
  }
  T(min)() const {
    const typename source_of<Self>::type source(source_of<Self>::get(self()));
    T least(source(0));
    for (size_t i = 1, n = self().size(); i < n; ++i) {
      const T &value = source(i);
      if (value < least) least = value;
    }
    return least;
  }
  T(max)() const {
    const typename source_of<Self>::type source(source_of<Self>::get(self()));
    T most(source(0));
    for (size_t i = 1, n = self().size(); i < n; ++i) {
      const T &value = source(i);
      if (most < value) most = value;
    }
    return most;
  }
};

// Has the const members of valarray.
template <class R, class Source> class expression : public operand<R, expression<R, Source> > {
  typedef std::valarray<R> array;

public:
  expression(size_t n, const Source &source) : size_(n), source_(source) {}

  size_t size() const PLX_NOTHROW { return size_; }
  const Source &source() const PLX_NOTHROW { return source_; }

  R operator[](size_t i) const { return source_(i); }
  array operator[](std::slice places) const { return made()[places]; }
  array operator[](const std::gslice &places) const { return made()[places]; }
  array operator[](const std::valarray<bool> &mask) const { return made()[mask]; }
  array operator[](const std::valarray<size_t> &places) const { return made()[places]; }

  array shift(int n) const { return made().shift(n); }
  array cshift(int n) const { return made().cshift(n); }
  array apply(R function(R)) const { return made().apply(function); }
  array apply(R function(const R &)) const { return made().apply(function); }

private:
  const array made() const { return array(*this); }

  size_t size_;
  Source source_;
};

}  // namespace valarrays
}  // namespace __zor

#endif

// Where the elements of a valarray come from: source(i) gives the value of element i. What holds a single value holds a
// copy of it, for it may be an element of the array that is about to change.
#ifndef PLX_VALARRAY_SOURCES_H
#define PLX_VALARRAY_SOURCES_H

#include <stddef.h>

#include <plx/config.h>

namespace __zor {

template <class T> struct default_elements {
  T operator()(size_t) const { return T(); }
};

template <class T> struct equal_elements {
  explicit equal_elements(const T &all) : value(all) {}
  const T &operator()(size_t) const { return value; }
  const T value;
};

template <class T> struct given_elements {
  explicit given_elements(const T *first) : data(first) {}
  const T &operator()(size_t i) const { return data[i]; }
  const T *data;
};

// Those at the places that an index names.
template <class T, class Index> struct chosen_elements {
  chosen_elements(const T *first, const Index &places) : data(first), index(places) {}
  const T &operator()(size_t i) const { return data[index[i]]; }
  const T *data;
  const Index &index;
};

// Results of an operation, on one source or on two.
template <class R, class Operation, class Source> struct unary_elements {
  explicit unary_elements(const Source &of) : source(of) {}
  R operator()(size_t i) const { return Operation::run(source(i)); }
  const Source source;
};
template <class R, class Operation, class Left, class Right> struct binary_elements {
  binary_elements(const Left &a, const Right &b) : left(a), right(b) {}
  R operator()(size_t i) const { return Operation::run(left(i), right(i)); }
  const Left left;
  const Right right;
};

// Results of a program's function.
template <class T, class Function> struct applied_elements {
  applied_elements(const T *first, Function f) : data(first), function(f) {}
  T operator()(size_t i) const { return function(data[i]); }
  const T *data;
  Function function;
};

// Element first + i where there is one, otherwise T().
template <class T> struct shifted_elements {
  shifted_elements(const T *elements, size_t n, size_t shift) : data(elements), size(n), first(shift) {}
  T operator()(size_t i) const { return first + i < size ? data[first + i] : T(); }
  const T *data;
  size_t size;
  size_t first;  // may stand for a negative number: then it is added modulo 2^32, and small i are not in the array
};

// Element first + i, counted around; first is less than size.
template <class T> struct rotated_elements {
  rotated_elements(const T *elements, size_t n, size_t shift) : data(elements), size(n), first(shift) {}
  const T &operator()(size_t i) const { return data[i < size - first ? first + i : i - (size - first)]; }
  const T *data;
  size_t size;
  size_t first;
};

}  // namespace __zor

#endif

// What operators and functions give for a valarray: an expression, whose elements are computed when an array is made of
// it or assigned from it. So a * b + c makes one pass and no array in between. It refers to the arrays that it was made
// from, and converts to valarray wherever one is asked for.
//
// Array and expression are operands. All operators are templates over operands, in the namespace of their base class.
#ifndef PLX_VALARRAY_EXPRESSION_H
#define PLX_VALARRAY_EXPRESSION_H

#include <plx/numerics/slice.h>
#include <plx/numerics/valarray_operations.h>
#include <plx/numerics/valarray_sources.h>

namespace std {

class gslice;
template <class _T> class valarray;

}  // namespace std

namespace __zor {

struct _valarray_access {
  template <class _T> static const _T *data(const std::valarray<_T> &_array) PLX_NOTHROW {
    return _array._block_.data();
  }
};

namespace _valarrays {

template <class _R, class _Source> class _expression;

// Where an operand's elements come from.
template <class _Operand> struct _source_of;
template <class _T> struct _source_of<std::valarray<_T> > {
  typedef _given_elements<_T> _type;
  static _type get(const std::valarray<_T> &_array) PLX_NOTHROW { return _type(_valarray_access::data(_array)); }
};
template <class _R, class _Source> struct _source_of<_expression<_R, _Source> > {
  typedef _Source _type;
  static const _Source &get(const _expression<_R, _Source> &_e) PLX_NOTHROW { return _e._source(); }
};

// The results of an operation on one operand, on two, on an operand and a value.
template <class _R, class _Operation, class _A> struct _of_one {
  typedef _unary_elements<_R, _Operation, typename _source_of<_A>::_type> _source;
  typedef _expression<_R, _source> _type;
  static _type _make(const _A &_a) { return _type(_a.size(), _source(_source_of<_A>::get(_a))); }
};
template <class _R, class _Operation, class _A, class _Bt> struct _of_two {
  typedef _binary_elements<_R, _Operation, typename _source_of<_A>::_type, typename _source_of<_Bt>::_type> _source;
  typedef _expression<_R, _source> _type;
  static _type _make(const _A &_a, const _Bt &_b) {
    return _type(_a.size(), _source(_source_of<_A>::get(_a), _source_of<_Bt>::get(_b)));
  }
};
template <class _R, class _Operation, class _T, class _A> struct _with_value {
  typedef _binary_elements<_R, _Operation, typename _source_of<_A>::_type, _equal_elements<_T> > _source;
  typedef _expression<_R, _source> _type;
  static _type _make(const _A &_a, const _T &_b) {
    return _type(_a.size(), _source(_source_of<_A>::get(_a), _equal_elements<_T>(_b)));
  }
};
template <class _R, class _Operation, class _T, class _A> struct _of_value {
  typedef _binary_elements<_R, _Operation, _equal_elements<_T>, typename _source_of<_A>::_type> _source;
  typedef _expression<_R, _source> _type;
  static _type _make(const _T &_a, const _A &_b) {
    return _type(_b.size(), _source(_equal_elements<_T>(_a), _source_of<_A>::get(_b)));
  }
};

// The base class of valarray<_T> and of expressions with elements of type _T.
template <class _T, class _Self> class _operand {
public:
  typedef _T value_type;

  const _Self &_self() const PLX_NOTHROW { return static_cast<const _Self &>(*this); }

  typename _of_one<_T, _plus_operation, _Self>::_type operator+() const {
    return _of_one<_T, _plus_operation, _Self>::_make(_self());
  }
  typename _of_one<_T, _minus_operation, _Self>::_type operator-() const {
    return _of_one<_T, _minus_operation, _Self>::_make(_self());
  }
  typename _of_one<_T, _complement_operation, _Self>::_type operator~() const {
    return _of_one<_T, _complement_operation, _Self>::_make(_self());
  }
  typename _of_one<bool, _not_operation, _Self>::_type operator!() const {
    return _of_one<bool, _not_operation, _Self>::_make(_self());
  }

  // Of operands with an element at least.

  _T sum() const {
    const typename _source_of<_Self>::_type _source(_source_of<_Self>::get(_self()));
    _T _result(_source(0));
    for (size_t _i = 1, _n = _self().size(); _i < _n; ++_i) _result += _source(_i);
    return _result;
  }
  _T(min)() const {
    const typename _source_of<_Self>::_type _source(_source_of<_Self>::get(_self()));
    _T _least(_source(0));
    for (size_t _i = 1, _n = _self().size(); _i < _n; ++_i) {
      const _T &_value = _source(_i);
      if (_value < _least) _least = _value;
    }
    return _least;
  }
  _T(max)() const {
    const typename _source_of<_Self>::_type _source(_source_of<_Self>::get(_self()));
    _T _most(_source(0));
    for (size_t _i = 1, _n = _self().size(); _i < _n; ++_i) {
      const _T &_value = _source(_i);
      if (_most < _value) _most = _value;
    }
    return _most;
  }
};

// Has the const members of valarray.
template <class _R, class _Source> class _expression : public _operand<_R, _expression<_R, _Source> > {
  typedef std::valarray<_R> _array;

public:
  _expression(size_t _n, const _Source &_source) : _size_(_n), _source_(_source) {}

  size_t size() const PLX_NOTHROW { return _size_; }
  const _Source &_source() const PLX_NOTHROW { return _source_; }

  _R operator[](size_t _i) const { return _source_(_i); }
  _array operator[](std::slice _places) const { return _made()[_places]; }
  _array operator[](const std::gslice &_places) const { return _made()[_places]; }
  _array operator[](const std::valarray<bool> &_mask) const { return _made()[_mask]; }
  _array operator[](const std::valarray<size_t> &_places) const { return _made()[_places]; }

  _array shift(int _n) const { return _made().shift(_n); }
  _array cshift(int _n) const { return _made().cshift(_n); }
  _array apply(_R _function_(_R)) const { return _made().apply(_function_); }
  _array apply(_R _function_(const _R &)) const { return _made().apply(_function_); }

private:
  const _array _made() const { return _array(*this); }

  size_t _size_;
  _Source _source_;
};

}  // namespace _valarrays
}  // namespace __zor

#endif

// Where the elements of a valarray come from: source(i) gives the value of element i. What holds a single value holds a
// copy of it, for it may be an element of the array that is about to change.
#ifndef PLX_VALARRAY_SOURCES_H
#define PLX_VALARRAY_SOURCES_H

#include <stddef.h>

#include <plx/base/config.h>

namespace __zor {

template <class _T> struct _default_elements {
  _T operator()(size_t) const { return _T(); }
};

template <class _T> struct _equal_elements {
  explicit _equal_elements(const _T &_all) : value(_all) {}
  const _T &operator()(size_t) const { return value; }
  const _T value;
};

template <class _T> struct _given_elements {
  explicit _given_elements(const _T *_first) : data(_first) {}
  const _T &operator()(size_t _i) const { return data[_i]; }
  const _T *data;
};

// Those at the places that an index names.
template <class _T, class _Index> struct _chosen_elements {
  _chosen_elements(const _T *_first, const _Index &_places) : data(_first), _index(_places) {}
  const _T &operator()(size_t _i) const { return data[_index[_i]]; }
  const _T *data;
  const _Index &_index;
};

// Results of an operation, on one source or on two.
template <class _R, class _Operation, class _Source> struct _unary_elements {
  explicit _unary_elements(const _Source &_of) : _source(_of) {}
  _R operator()(size_t _i) const { return _Operation::_run(_source(_i)); }
  const _Source _source;
};
template <class _R, class _Operation, class _Left, class _Right> struct _binary_elements {
  _binary_elements(const _Left &_a, const _Right &_b) : left(_a), right(_b) {}
  _R operator()(size_t _i) const { return _Operation::_run(left(_i), right(_i)); }
  const _Left left;
  const _Right right;
};

// Results of a program's function.
template <class _T, class _Function> struct _applied_elements {
  _applied_elements(const _T *_first, _Function _f) : data(_first), _function_(_f) {}
  _T operator()(size_t _i) const { return _function_(data[_i]); }
  const _T *data;
  _Function _function_;
};

// Element first + i where there is one, otherwise _T().
template <class _T> struct _shifted_elements {
  _shifted_elements(const _T *_elements, size_t _n, size_t _shift) : data(_elements), size(_n), first(_shift) {}
  _T operator()(size_t _i) const { return first + _i < size ? data[first + _i] : _T(); }
  const _T *data;
  size_t size;
  size_t first;  // may stand for a negative number: then it is added modulo 2^32, and small i are not in the array
};

// Element first + i, counted around; first is less than size.
template <class _T> struct _rotated_elements {
  _rotated_elements(const _T *_elements, size_t _n, size_t _shift) : data(_elements), size(_n), first(_shift) {}
  const _T &operator()(size_t _i) const { return data[_i < size - first ? first + _i : _i - (size - first)]; }
  const _T *data;
  size_t size;
  size_t first;
};

}  // namespace __zor

#endif

// The function objects that containers and algorithms take by default, and the rest of their kind (1998, 20.3.1 to
// 20.3.4): arithmetic, comparisons, logical operations. Adaptors stand in <functional>.
#ifndef PLX_FUNCTION_OBJECTS_H
#define PLX_FUNCTION_OBJECTS_H

#include <plx/base/config.h>

namespace std {

template <class _Argument, class _Result> struct unary_function {
  typedef _Argument argument_type;
  typedef _Result result_type;
};

template <class _First, class _Second, class _Result> struct binary_function {
  typedef _First first_argument_type;
  typedef _Second second_argument_type;
  typedef _Result result_type;
};

template <class _T> struct plus : public binary_function<_T, _T, _T> {
  _T operator()(const _T &_a, const _T &_b) const { return _a + _b; }
};
template <class _T> struct minus : public binary_function<_T, _T, _T> {
  _T operator()(const _T &_a, const _T &_b) const { return _a - _b; }
};
template <class _T> struct multiplies : public binary_function<_T, _T, _T> {
  _T operator()(const _T &_a, const _T &_b) const { return _a * _b; }
};
template <class _T> struct divides : public binary_function<_T, _T, _T> {
  _T operator()(const _T &_a, const _T &_b) const { return _a / _b; }
};
template <class _T> struct modulus : public binary_function<_T, _T, _T> {
  _T operator()(const _T &_a, const _T &_b) const { return _a % _b; }
};
template <class _T> struct negate : public unary_function<_T, _T> {
  _T operator()(const _T &_a) const { return -_a; }
};

template <class _T> struct equal_to : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a == _b; }
};
template <class _T> struct not_equal_to : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a != _b; }
};
template <class _T> struct greater : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a > _b; }
};
template <class _T> struct less : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a < _b; }
};
template <class _T> struct greater_equal : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a >= _b; }
};
template <class _T> struct less_equal : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a <= _b; }
};

// Pointers have a total order here, which the operators promise only within one array: an address is a number.
template <class _T> struct greater<_T *> : public binary_function<_T *, _T *, bool> {
  bool operator()(_T *const &_a, _T *const &_b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(_a) > reinterpret_cast<__UINTPTR_TYPE__>(_b);
  }
};
template <class _T> struct less<_T *> : public binary_function<_T *, _T *, bool> {
  bool operator()(_T *const &_a, _T *const &_b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(_a) < reinterpret_cast<__UINTPTR_TYPE__>(_b);
  }
};
template <class _T> struct greater_equal<_T *> : public binary_function<_T *, _T *, bool> {
  bool operator()(_T *const &_a, _T *const &_b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(_a) >= reinterpret_cast<__UINTPTR_TYPE__>(_b);
  }
};
template <class _T> struct less_equal<_T *> : public binary_function<_T *, _T *, bool> {
  bool operator()(_T *const &_a, _T *const &_b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(_a) <= reinterpret_cast<__UINTPTR_TYPE__>(_b);
  }
};

template <class _T> struct logical_and : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a && _b; }
};
template <class _T> struct logical_or : public binary_function<_T, _T, bool> {
  bool operator()(const _T &_a, const _T &_b) const { return _a || _b; }
};
template <class _T> struct logical_not : public unary_function<_T, bool> {
  bool operator()(const _T &_a) const { return !_a; }
};

}  // namespace std

#endif

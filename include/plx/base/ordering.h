// The operators == and < as function objects, for the forms of algorithms that take none, and which orders of which
// types are known well enough for methods that count no comparisons.
#ifndef PLX_ORDERING_H
#define PLX_ORDERING_H

#include <plx/base/function_objects.h>
#include <plx/base/functions.h>
#include <plx/base/type_properties.h>

namespace __zor {
namespace _functions {

struct _by_less {
  template <class _A, class _Bt> bool operator()(const _A &_a, const _Bt &_b) const { return _a < _b; }
};
struct _by_equal {
  template <class _A, class _Bt> bool operator()(const _A &_a, const _Bt &_b) const { return _a == _b; }
};

// Is Before the ascending (1) or descending (-1) order of the scalar type _T?
template <class _T, class _Before> struct _direction_of { static const int value = 0; };
template <class _T> struct _direction_of<_T, _by_less> {
  static const int value = _is_arithmetic<_T>::value || _is_pointer<_T>::value ? 1 : 0;
};
template <class _T> struct _direction_of<_T, std::less<_T> > : public _direction_of<_T, _by_less> {};
template <class _T> struct _direction_of<_T, std::greater<_T> > {
  static const int value = _is_arithmetic<_T>::value || _is_pointer<_T>::value ? -1 : 0;
};

// Pointers to scalars in such an order: comparing costs nothing, a branch on the result much.
template <class _Iterator, class _Before> struct _is_scalar_order { static const bool value = false; };
template <class _T, class _Before> struct _is_scalar_order<_T *, _Before> {
  static const bool value = _direction_of<typename _without_const<_T>::_type, _Before>::value != 0;
};

template <class _Distance> inline int _logarithm(_Distance _n) {
  int _bits = 0;
  for (; _n > 1; _n /= 2) ++_bits;
  return _bits;
}

}  // namespace _functions
}  // namespace __zor

#endif

// The operators == and < as function objects, for the forms of algorithms that take none, and which orders of which
// types are known well enough for methods that count no comparisons.
#ifndef PLX_ORDERING_H
#define PLX_ORDERING_H

#include <plx/function_objects.h>
#include <plx/functions.h>
#include <plx/type_properties.h>

namespace __zor {
namespace functions {

struct by_less {
  template <class A, class B> bool operator()(const A &a, const B &b) const { return a < b; }
};
struct by_equal {
  template <class A, class B> bool operator()(const A &a, const B &b) const { return a == b; }
};

// Is Before the ascending (1) or descending (-1) order of the scalar type T?
template <class T, class Before> struct direction_of { static const int value = 0; };
template <class T> struct direction_of<T, by_less> {
  static const int value = is_arithmetic<T>::value || is_pointer<T>::value ? 1 : 0;
};
template <class T> struct direction_of<T, std::less<T> > : public direction_of<T, by_less> {};
template <class T> struct direction_of<T, std::greater<T> > {
  static const int value = is_arithmetic<T>::value || is_pointer<T>::value ? -1 : 0;
};

// Pointers to scalars in such an order: comparing costs nothing, a branch on the result much.
template <class Iterator, class Before> struct is_scalar_order { static const bool value = false; };
template <class T, class Before> struct is_scalar_order<T *, Before> {
  static const bool value = direction_of<typename without_const<T>::type, Before>::value != 0;
};

template <class Distance> inline int logarithm(Distance n) {
  int bits = 0;
  for (; n > 1; n /= 2) ++bits;
  return bits;
}

}  // namespace functions
}  // namespace __zor

#endif

// What the compiler knows of a type, for choosing the fast road: plain types move as bytes, scalars are compared and
// kept in registers. A type of which nothing is known takes the road that the standard describes.
#ifndef PLX_TYPE_PROPERTIES_H
#define PLX_TYPE_PROPERTIES_H

#include <plx/config.h>
#include <plx/is_integer.h>

namespace __zor {

template <bool condition> struct truth { typedef no type; };
template <> struct truth<true> { typedef yes type; };

template <class A, class B> struct same_type { static const bool value = false; };
template <class A> struct same_type<A, A> { static const bool value = true; };

template <class T> struct is_volatile { static const bool value = false; };
template <class T> struct is_volatile<volatile T> { static const bool value = true; };
template <class T> struct is_volatile<const volatile T> { static const bool value = true; };

template <class T> struct without_const { typedef T type; };
template <class T> struct without_const<const T> { typedef T type; };

template <class T> struct is_pointer { static const bool value = false; };
template <class T> struct is_pointer<T *> { static const bool value = true; };

template <class T> struct is_floating { static const bool value = false; };
template <> struct is_floating<float> { static const bool value = true; };
template <> struct is_floating<double> { static const bool value = true; };
template <> struct is_floating<long double> { static const bool value = true; };

template <class T> struct is_integral { static const bool value = same_type<typename is_integer<T>::type, yes>::value; };

// Types whose copies neither throw nor are seen by anyone. Not volatile ones: each access of those counts.
template <class T> struct is_arithmetic { static const bool value = is_integral<T>::value || is_floating<T>::value; };
template <class T> struct is_scalar {
  static const bool value = is_arithmetic<T>::value || is_pointer<T>::value || (__is_enum(T) && !is_volatile<T>::value);
};

// Equal values are equal bytes, and the other way round. Not bool: its bytes may be anything in a program that errs.
template <class T> struct equal_as_bytes { static const bool value = is_integral<T>::value || is_pointer<T>::value; };
template <> struct equal_as_bytes<bool> { static const bool value = false; };

// Bytes whose order as the type is that of memcmp.
template <class T> struct ordered_as_bytes { static const bool value = same_type<T, unsigned char>::value; };

#if defined(__clang__)
#define PLX_TRIVIALLY_DESTRUCTIBLE(T) __is_trivially_destructible(T)
#else
#define PLX_TRIVIALLY_DESTRUCTIBLE(T) __has_trivial_destructor(T)
#endif

template <class T> struct is_trivially_destroyed { static const bool value = PLX_TRIVIALLY_DESTRUCTIBLE(T); };

// Is `object = source of type From` (a reference type), or T(source), no more than a copy of bytes?
template <class T, class From> struct is_assigned_as_bytes { static const bool value = false; };
template <class T> struct is_assigned_as_bytes<T, T &> {
  static const bool value = __is_trivially_copyable(T) && __is_trivially_assignable(T &, T &) && !is_volatile<T>::value;
};
template <class T> struct is_assigned_as_bytes<T, const T &> {
  static const bool value =
      __is_trivially_copyable(T) && __is_trivially_assignable(T &, const T &) && !is_volatile<T>::value;
};

template <class T, class From> struct is_made_as_bytes { static const bool value = false; };
template <class T> struct is_made_as_bytes<T, T &> {
  static const bool value =
      __is_trivially_copyable(T) && __is_trivially_constructible(T, T &) && !is_volatile<T>::value;
};
template <class T> struct is_made_as_bytes<T, const T &> {
  static const bool value =
      __is_trivially_copyable(T) && __is_trivially_constructible(T, const T &) && !is_volatile<T>::value;
};

// The address of an object whose class may have an operator& of its own.
template <class T> inline T *address_of(T &object) PLX_NOTHROW {
  return reinterpret_cast<T *>(&const_cast<char &>(reinterpret_cast<const volatile char &>(object)));
}

}  // namespace __zor

#endif

// What the compiler knows of a type, for choosing the fast path: plain types move as bytes, scalars are compared and
// kept in registers. A type of which nothing is known takes the path that the standard describes.
#ifndef PLX_TYPE_PROPERTIES_H
#define PLX_TYPE_PROPERTIES_H

#include <plx/base/config.h>
#include <plx/base/is_integer.h>

namespace __zor {

template <bool _condition> struct _truth { typedef _no _type; };
template <> struct _truth<true> { typedef _yes _type; };

template <class _A, class _Bt> struct _same_type { static const bool value = false; };
template <class _A> struct _same_type<_A, _A> { static const bool value = true; };

template <class _T> struct _is_volatile { static const bool value = false; };
template <class _T> struct _is_volatile<volatile _T> { static const bool value = true; };
template <class _T> struct _is_volatile<const volatile _T> { static const bool value = true; };

template <class _T> struct _without_const { typedef _T _type; };
template <class _T> struct _without_const<const _T> { typedef _T _type; };

template <class _T> struct _is_pointer { static const bool value = false; };
template <class _T> struct _is_pointer<_T *> { static const bool value = true; };

template <class _T> struct _is_floating { static const bool value = false; };
template <> struct _is_floating<float> { static const bool value = true; };
template <> struct _is_floating<double> { static const bool value = true; };
template <> struct _is_floating<long double> { static const bool value = true; };

template <class _T> struct _is_integral {
  static const bool value = _same_type<typename is_integer<_T>::_type, _yes>::value;
};

// Types whose copies neither throw nor are seen by anyone. Not volatile ones: each access of those counts.
template <class _T> struct _is_arithmetic {
  static const bool value = _is_integral<_T>::value || _is_floating<_T>::value;
};
template <class _T> struct _is_scalar {
  static const bool value =
      _is_arithmetic<_T>::value || _is_pointer<_T>::value || (__is_enum(_T) && !_is_volatile<_T>::value);
};

// Equal values are equal bytes, and the other way round. Not bool: its bytes may be anything in a program that errs.
template <class _T> struct _equal_as_bytes {
  static const bool value = _is_integral<_T>::value || _is_pointer<_T>::value;
};
template <> struct _equal_as_bytes<bool> { static const bool value = false; };

// Bytes whose order as the type is that of memcmp.
template <class _T> struct _ordered_as_bytes { static const bool value = _same_type<_T, unsigned char>::value; };

#if defined(__clang__)
#define PLX_TRIVIALLY_DESTRUCTIBLE(T) __is_trivially_destructible(T)
#else
#define PLX_TRIVIALLY_DESTRUCTIBLE(T) __has_trivial_destructor(T)
#endif

template <class _T> struct _is_trivially_destroyed { static const bool value = PLX_TRIVIALLY_DESTRUCTIBLE(_T); };

// Is `_object = _source _of _type _From` (a reference type), or _T(source), no more than a copy of bytes?
template <class _T, class _From> struct _is_assigned_as_bytes { static const bool value = false; };
template <class _T> struct _is_assigned_as_bytes<_T, _T &> {
  static const bool value =
      __is_trivially_copyable(_T) && __is_trivially_assignable(_T &, _T &) && !_is_volatile<_T>::value;
};
template <class _T> struct _is_assigned_as_bytes<_T, const _T &> {
  static const bool value =
      __is_trivially_copyable(_T) && __is_trivially_assignable(_T &, const _T &) && !_is_volatile<_T>::value;
};

template <class _T, class _From> struct _is_made_as_bytes { static const bool value = false; };
template <class _T> struct _is_made_as_bytes<_T, _T &> {
  static const bool value =
      __is_trivially_copyable(_T) && __is_trivially_constructible(_T, _T &) && !_is_volatile<_T>::value;
};
template <class _T> struct _is_made_as_bytes<_T, const _T &> {
  static const bool value =
      __is_trivially_copyable(_T) && __is_trivially_constructible(_T, const _T &) && !_is_volatile<_T>::value;
};

// The address of an object whose class may have an operator& of its own.
template <class _T> inline _T *_address_of(_T &_object) PLX_NOTHROW {
  return reinterpret_cast<_T *>(&const_cast<char &>(reinterpret_cast<const volatile char &>(_object)));
}

}  // namespace __zor

#endif

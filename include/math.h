/* <math.h> (1998, 26.5): the C library's, and for C++ each function for float, double and long double, with arguments of
 * integral or mixed types going to the form that C's arithmetic would choose, and abs.
 *
 * <cmath> puts the 1998 names into std. What later C has here stays as the C library has it: isnan and its kind are
 * macros.
 */
#ifndef PLX_MATH_H
#define PLX_MATH_H

#include_next <math.h>

#ifdef __cplusplus

#include <plx/config.h>

#undef abs
#undef acos
#undef asin
#undef atan
#undef atan2
#undef ceil
#undef cos
#undef cosh
#undef exp
#undef fabs
#undef floor
#undef fmod
#undef frexp
#undef ldexp
#undef log
#undef log10
#undef modf
#undef pow
#undef sin
#undef sinh
#undef sqrt
#undef tan
#undef tanh

extern "C++" {

namespace __plx_math {

/* The type in which an argument takes part: its own, or double for integers; what is no number takes no part. */
struct __none {};
template <class __T> struct __part { typedef __none __type; };
template <> struct __part<float> { typedef float __type; };
template <> struct __part<double> { typedef double __type; };
template <> struct __part<long double> { typedef long double __type; };

/* Those of integers only. */
template <class __T> struct __whole {};
__extension__ typedef long long __long_long;
__extension__ typedef unsigned long long __unsigned_long_long;

#define __PLX_INTEGER(type)                                \
  template <> struct __part<type> { typedef double __type; }; \
  template <> struct __whole<type> { typedef double __type; };
__PLX_INTEGER(bool)
__PLX_INTEGER(char)
__PLX_INTEGER(signed char)
__PLX_INTEGER(unsigned char)
__PLX_INTEGER(wchar_t)
__PLX_INTEGER(short)
__PLX_INTEGER(unsigned short)
__PLX_INTEGER(int)
__PLX_INTEGER(unsigned int)
__PLX_INTEGER(long)
__PLX_INTEGER(unsigned long)
__PLX_INTEGER(__long_long)
__PLX_INTEGER(__unsigned_long_long)
#undef __PLX_INTEGER

/* The wider of two such types; other classes have functions of these names for themselves, which must stay usable. */
template <class __T, class __U> struct __wider {};
template <> struct __wider<float, float> { typedef float __type; };
template <> struct __wider<float, double> { typedef double __type; };
template <> struct __wider<double, float> { typedef double __type; };
template <> struct __wider<double, double> { typedef double __type; };
template <> struct __wider<float, long double> { typedef long double __type; };
template <> struct __wider<double, long double> { typedef long double __type; };
template <> struct __wider<long double, float> { typedef long double __type; };
template <> struct __wider<long double, double> { typedef long double __type; };
template <> struct __wider<long double, long double> { typedef long double __type; };

template <class __T, class __U> struct __common : __wider<typename __part<__T>::__type, typename __part<__U>::__type> {};

}  // namespace __plx_math

inline float abs(float __x) PLX_NOTHROW { return __builtin_fabsf(__x); }
inline double abs(double __x) PLX_NOTHROW { return __builtin_fabs(__x); }
inline long double abs(long double __x) PLX_NOTHROW { return __builtin_fabsl(__x); }

#define __PLX_UNARY(name)                                                             \
  inline float name(float __x) PLX_NOTHROW { return __builtin_##name##f(__x); }             \
  inline long double name(long double __x) PLX_NOTHROW { return __builtin_##name##l(__x); } \
  template <class __T> inline typename __plx_math::__whole<__T>::__type name(__T __x) PLX_NOTHROW { \
    return __builtin_##name(static_cast<double>(__x));                                      \
  }
__PLX_UNARY(acos)
__PLX_UNARY(asin)
__PLX_UNARY(atan)
__PLX_UNARY(ceil)
__PLX_UNARY(cos)
__PLX_UNARY(cosh)
__PLX_UNARY(exp)
__PLX_UNARY(fabs)
__PLX_UNARY(floor)
__PLX_UNARY(log)
__PLX_UNARY(log10)
__PLX_UNARY(sin)
__PLX_UNARY(sinh)
__PLX_UNARY(sqrt)
__PLX_UNARY(tan)
__PLX_UNARY(tanh)
#undef __PLX_UNARY

#define __PLX_BINARY(name)                                                                                      \
  inline float name(float __x, float __y) PLX_NOTHROW { return __builtin_##name##f(__x, __y); }                       \
  inline long double name(long double __x, long double __y) PLX_NOTHROW { return __builtin_##name##l(__x, __y); }     \
  template <class __T, class __U>                                                                               \
  inline typename __plx_math::__common<__T, __U>::__type name(__T __x, __U __y) PLX_NOTHROW {                   \
    typedef typename __plx_math::__common<__T, __U>::__type __type;                                             \
    return name(static_cast<__type>(__x), static_cast<__type>(__y));                                            \
  }
__PLX_BINARY(atan2)
__PLX_BINARY(fmod)
__PLX_BINARY(pow)
#undef __PLX_BINARY

#if __cplusplus < 201103L
/* In 1998 an integer exponent keeps a float a float. */
inline float pow(float __x, int __y) PLX_NOTHROW {
  return static_cast<float>(__builtin_pow(static_cast<double>(__x), static_cast<double>(__y)));
}
#endif

inline float frexp(float __x, int *__exponent) PLX_NOTHROW { return __builtin_frexpf(__x, __exponent); }
inline long double frexp(long double __x, int *__exponent) PLX_NOTHROW { return __builtin_frexpl(__x, __exponent); }
template <class __T> inline typename __plx_math::__whole<__T>::__type frexp(__T __x, int *__exponent) PLX_NOTHROW {
  return __builtin_frexp(static_cast<double>(__x), __exponent);
}

inline float ldexp(float __x, int __exponent) PLX_NOTHROW { return __builtin_ldexpf(__x, __exponent); }
inline long double ldexp(long double __x, int __exponent) PLX_NOTHROW { return __builtin_ldexpl(__x, __exponent); }
template <class __T> inline typename __plx_math::__whole<__T>::__type ldexp(__T __x, int __exponent) PLX_NOTHROW {
  return __builtin_ldexp(static_cast<double>(__x), __exponent);
}

inline float modf(float __x, float *__integer) PLX_NOTHROW { return __builtin_modff(__x, __integer); }
inline long double modf(long double __x, long double *__integer) PLX_NOTHROW { return __builtin_modfl(__x, __integer); }
}

#endif

#endif

/* <math.h> (1998, 26.5): the C library's, and for C++ each function for float, double and long double, with arguments
 * of integral or mixed types going to the form that C's arithmetic would choose, and abs.
 *
 * Of later C: the classifications of numbers are functions, not macros, and from gnu++11 on the functions of 1999 have
 * their forms too. Those of <cmath> stand in std only, for a program that includes nothing else may have an isnan or a
 * round of its own.
 */
#ifndef PLX_MATH_H
#define PLX_MATH_H

#include_next <math.h>

#ifdef __cplusplus

#include <plx/base/config.h>

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

#undef fpclassify
#undef isfinite
#undef isgreater
#undef isgreaterequal
#undef isinf
#undef isless
#undef islessequal
#undef islessgreater
#undef isnan
#undef isnormal
#undef isunordered
#undef signbit

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

#define __PLX_INTEGER(type)                                   \
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

/* __R, where the other is a type at all. */
template <class __R, class __T> struct __yields { typedef __R __type; };
template <class __R> struct __yields<__R, __none> {};

template <class __T, class __U> struct __common : __wider<typename __part<__T>::__type, typename __part<__U>::__type> {
};

}  // namespace __plx_math

inline float abs(float __x) PLX_NOTHROW { return __builtin_fabsf(__x); }
inline double abs(double __x) PLX_NOTHROW { return __builtin_fabs(__x); }
inline long double abs(long double __x) PLX_NOTHROW { return __builtin_fabsl(__x); }

#define __PLX_UNARY(name)                                                                           \
  inline float name(float __x) PLX_NOTHROW { return __builtin_##name##f(__x); }                     \
  inline long double name(long double __x) PLX_NOTHROW { return __builtin_##name##l(__x); }         \
  template <class __T> inline typename __plx_math::__whole<__T>::__type name(__T __x) PLX_NOTHROW { \
    return __builtin_##name(static_cast<double>(__x));                                              \
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

#define __PLX_BINARY(name)                                                                                        \
  inline float name(float __x, float __y) PLX_NOTHROW { return __builtin_##name##f(__x, __y); }                   \
  inline long double name(long double __x, long double __y) PLX_NOTHROW { return __builtin_##name##l(__x, __y); } \
  template <class __T, class __U> inline typename __plx_math::__common<__T, __U>::__type name(__T __x, __U __y)   \
      PLX_NOTHROW {                                                                                               \
    typedef typename __plx_math::__common<__T, __U>::__type __type;                                               \
    return name(static_cast<__type>(__x), static_cast<__type>(__y));                                              \
  }
__PLX_BINARY(atan2)
__PLX_BINARY(fmod)
__PLX_BINARY(pow)

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

/* What a program gets in std, and in the global namespace only by including <math.h> itself. */
namespace __plx_math {
namespace __later {

#define __PLX_CLASSIFY(__result, name, __of_x)                                                                       \
  template <class __T> inline typename __yields<__result, typename __part<__T>::__type>::__type name(__T __argument) \
      PLX_NOTHROW {                                                                                                  \
    const typename __part<__T>::__type __x = static_cast<typename __part<__T>::__type>(__argument);                  \
    return __of_x;                                                                                                   \
  }
__PLX_CLASSIFY(int, fpclassify, __builtin_fpclassify(FP_NAN, FP_INFINITE, FP_NORMAL, FP_SUBNORMAL, FP_ZERO, __x))
__PLX_CLASSIFY(bool, isfinite, __builtin_isfinite(__x))
__PLX_CLASSIFY(bool, isinf, __builtin_isinf(__x))
__PLX_CLASSIFY(bool, isnan, __builtin_isnan(__x))
__PLX_CLASSIFY(bool, isnormal, __builtin_isnormal(__x))
__PLX_CLASSIFY(bool, signbit, __builtin_signbit(__x) != 0)
#undef __PLX_CLASSIFY

#define __PLX_COMPARE(name)                                                                                        \
  template <class __T, class __U>                                                                                  \
  inline typename __yields<bool, typename __common<__T, __U>::__type>::__type name(__T __x, __U __y) PLX_NOTHROW { \
    typedef typename __common<__T, __U>::__type __type;                                                            \
    return __builtin_##name(static_cast<__type>(__x), static_cast<__type>(__y));                                   \
  }
__PLX_COMPARE(isgreater)
__PLX_COMPARE(isgreaterequal)
__PLX_COMPARE(isless)
__PLX_COMPARE(islessequal)
__PLX_COMPARE(islessgreater)
__PLX_COMPARE(isunordered)
#undef __PLX_COMPARE

#if __cplusplus >= 201103L

using ::acosh;
using ::asinh;
using ::atanh;
using ::cbrt;
using ::copysign;
using ::erf;
using ::erfc;
using ::exp2;
using ::expm1;
using ::fdim;
using ::fma;
using ::fmax;
using ::fmin;
using ::hypot;
using ::ilogb;
using ::lgamma;
using ::llrint;
using ::llround;
using ::log1p;
using ::log2;
using ::logb;
using ::lrint;
using ::lround;
using ::nearbyint;
using ::nextafter;
using ::nexttoward;
using ::remainder;
using ::remquo;
using ::rint;
using ::round;
using ::scalbln;
using ::scalbn;
using ::tgamma;
using ::trunc;

__PLX_UNARY(acosh)
__PLX_UNARY(asinh)
__PLX_UNARY(atanh)
__PLX_UNARY(cbrt)
__PLX_UNARY(erf)
__PLX_UNARY(erfc)
__PLX_UNARY(exp2)
__PLX_UNARY(expm1)
__PLX_UNARY(lgamma)
__PLX_UNARY(log1p)
__PLX_UNARY(log2)
__PLX_UNARY(logb)
__PLX_UNARY(nearbyint)
__PLX_UNARY(rint)
__PLX_UNARY(round)
__PLX_UNARY(tgamma)
__PLX_UNARY(trunc)

__PLX_BINARY(copysign)
__PLX_BINARY(fdim)
__PLX_BINARY(fmax)
__PLX_BINARY(fmin)
__PLX_BINARY(hypot)
__PLX_BINARY(nextafter)
__PLX_BINARY(remainder)

#define __PLX_TO_INTEGER(__result, name)                                                                       \
  inline __result name(float __x) PLX_NOTHROW { return __builtin_##name##f(__x); }                             \
  inline __result name(long double __x) PLX_NOTHROW { return __builtin_##name##l(__x); }                       \
  template <class __T> inline typename __yields<__result, typename __whole<__T>::__type>::__type name(__T __x) \
      PLX_NOTHROW {                                                                                            \
    return __builtin_##name(static_cast<double>(__x));                                                         \
  }
__PLX_TO_INTEGER(int, ilogb)
__PLX_TO_INTEGER(__long_long, llrint)
__PLX_TO_INTEGER(__long_long, llround)
__PLX_TO_INTEGER(long, lrint)
__PLX_TO_INTEGER(long, lround)
#undef __PLX_TO_INTEGER

#define __PLX_WITH_NUMBER(name, __number)                                                                      \
  inline float name(float __x, __number __n) PLX_NOTHROW { return __builtin_##name##f(__x, __n); }             \
  inline long double name(long double __x, __number __n) PLX_NOTHROW { return __builtin_##name##l(__x, __n); } \
  template <class __T> inline typename __whole<__T>::__type name(__T __x, __number __n) PLX_NOTHROW {          \
    return __builtin_##name(static_cast<double>(__x), __n);                                                    \
  }
__PLX_WITH_NUMBER(nexttoward, long double)
__PLX_WITH_NUMBER(scalbln, long)
__PLX_WITH_NUMBER(scalbn, int)
#undef __PLX_WITH_NUMBER

inline float remquo(float __x, float __y, int *__quotient) PLX_NOTHROW {
  return __builtin_remquof(__x, __y, __quotient);
}
inline long double remquo(long double __x, long double __y, int *__quotient) PLX_NOTHROW {
  return __builtin_remquol(__x, __y, __quotient);
}
template <class __T, class __U>
inline typename __common<__T, __U>::__type remquo(__T __x, __U __y, int *__quotient) PLX_NOTHROW {
  typedef typename __common<__T, __U>::__type __type;
  return remquo(static_cast<__type>(__x), static_cast<__type>(__y), __quotient);
}

inline float fma(float __x, float __y, float __z) PLX_NOTHROW { return __builtin_fmaf(__x, __y, __z); }
inline long double fma(long double __x, long double __y, long double __z) PLX_NOTHROW {
  return __builtin_fmal(__x, __y, __z);
}
template <class __T, class __U, class __V>
inline typename __common<typename __common<__T, __U>::__type, __V>::__type fma(__T __x, __U __y, __V __z) PLX_NOTHROW {
  typedef typename __common<typename __common<__T, __U>::__type, __V>::__type __type;
  return fma(static_cast<__type>(__x), static_cast<__type>(__y), static_cast<__type>(__z));
}

#endif

}  // namespace __later
}  // namespace __plx_math
#undef __PLX_UNARY
#undef __PLX_BINARY
}

#endif

#endif

/* At the first inclusion that is not <cmath>'s. */
#if defined __cplusplus && !defined __PLX_FOR_CMATH && !defined PLX_MATH_H_GLOBAL
#define PLX_MATH_H_GLOBAL

/* 1998, D.5: the names are in std as well. */
#include <cmath>

extern "C++" {
using __plx_math::__later::fpclassify;
using __plx_math::__later::isfinite;
using __plx_math::__later::isgreater;
using __plx_math::__later::isgreaterequal;
using __plx_math::__later::isinf;
using __plx_math::__later::isless;
using __plx_math::__later::islessequal;
using __plx_math::__later::islessgreater;
using __plx_math::__later::isnan;
using __plx_math::__later::isnormal;
using __plx_math::__later::isunordered;
using __plx_math::__later::signbit;
#if __cplusplus >= 201103L
using __plx_math::__later::acosh;
using __plx_math::__later::asinh;
using __plx_math::__later::atanh;
using __plx_math::__later::cbrt;
using __plx_math::__later::copysign;
using __plx_math::__later::erf;
using __plx_math::__later::erfc;
using __plx_math::__later::exp2;
using __plx_math::__later::expm1;
using __plx_math::__later::fdim;
using __plx_math::__later::fma;
using __plx_math::__later::fmax;
using __plx_math::__later::fmin;
using __plx_math::__later::hypot;
using __plx_math::__later::ilogb;
using __plx_math::__later::lgamma;
using __plx_math::__later::llrint;
using __plx_math::__later::llround;
using __plx_math::__later::log1p;
using __plx_math::__later::log2;
using __plx_math::__later::logb;
using __plx_math::__later::lrint;
using __plx_math::__later::lround;
using __plx_math::__later::nearbyint;
using __plx_math::__later::nextafter;
using __plx_math::__later::nexttoward;
using __plx_math::__later::remainder;
using __plx_math::__later::remquo;
using __plx_math::__later::rint;
using __plx_math::__later::round;
using __plx_math::__later::scalbln;
using __plx_math::__later::scalbn;
using __plx_math::__later::tgamma;
using __plx_math::__later::trunc;
#endif
}

#endif

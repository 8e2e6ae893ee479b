// The functions of complex numbers (1998, 26.2.7 and 26.2.8). They stand on the C library's, which are exact to a few
// units in the last place, do not overflow half-way, and have their branch cuts along the negative real axis,
// continuous with the side that the sign of a zero names.
#ifndef PLX_COMPLEX_MATH_H
#define PLX_COMPLEX_MATH_H

#include <cmath>

#include <plx/complex.h>

namespace __zor {

#define PLX_COMPLEX_FUNCTION(name)                                                                                     \
  inline __complex__ float c_##name(__complex__ float z) PLX_NOTHROW { return __builtin_c##name##f(z); }               \
  inline __complex__ double c_##name(__complex__ double z) PLX_NOTHROW { return __builtin_c##name(z); }                \
  inline __complex__ long double c_##name(__complex__ long double z) PLX_NOTHROW { return __builtin_c##name##l(z); }
PLX_COMPLEX_FUNCTION(cos)
PLX_COMPLEX_FUNCTION(cosh)
PLX_COMPLEX_FUNCTION(exp)
PLX_COMPLEX_FUNCTION(log)
PLX_COMPLEX_FUNCTION(sin)
PLX_COMPLEX_FUNCTION(sinh)
PLX_COMPLEX_FUNCTION(sqrt)
PLX_COMPLEX_FUNCTION(tan)
PLX_COMPLEX_FUNCTION(tanh)
#undef PLX_COMPLEX_FUNCTION

inline float real_hypot(float x, float y) PLX_NOTHROW { return __builtin_hypotf(x, y); }
inline double real_hypot(double x, double y) PLX_NOTHROW { return __builtin_hypot(x, y); }
inline long double real_hypot(long double x, long double y) PLX_NOTHROW { return __builtin_hypotl(x, y); }

template <class T> inline typename c_complex<T>::type to_c(const std::complex<T> &z) PLX_NOTHROW {
  return to_c(z.real(), z.imag());
}
template <class T, class C> inline std::complex<T> from_c(C z) PLX_NOTHROW {
  return std::complex<T>(static_cast<T>(__real__ z), static_cast<T>(__imag__ z));
}

// Powers lose digits in the logarithm and in repeated products, so they are computed in the next wider type.
template <class T> struct complex_wide { typedef long double type; };
template <> struct complex_wide<float> { typedef double type; };

inline __complex__ double c_pow(__complex__ double x, __complex__ double y) PLX_NOTHROW { return __builtin_cpow(x, y); }
inline __complex__ long double c_pow(__complex__ long double x, __complex__ long double y) PLX_NOTHROW {
  return __builtin_cpowl(x, y);
}

template <class T> inline std::complex<T> complex_power(const std::complex<T> &x, const std::complex<T> &y) {
  typedef typename complex_wide<T>::type W;
  // The logarithm of zero is no number to go on with.
  if (x == T() && y == T()) return std::complex<T>(T(1));
  if (x == T() && y.real() > T()) return std::complex<T>();
  return from_c<T>(c_pow(to_c<W>(x.real(), x.imag()), to_c<W>(y.real(), y.imag())));
}

template <class T> inline std::complex<T> complex_power(const std::complex<T> &x, int n) {
  typedef typename complex_wide<T>::type W;
  // More products than this cost more digits than the wider type has to spare.
  if (n > 1024 || n < -1024) return complex_power(x, std::complex<T>(static_cast<T>(n)));
  std::complex<W> power(1), factor(x.real(), x.imag());
  for (unsigned rest = static_cast<unsigned>(n < 0 ? -n : n); rest != 0; rest >>= 1) {
    if (rest & 1) power *= factor;
    if (rest > 1) factor *= factor;
  }
  if (n < 0) power = std::complex<W>(1) / power;
  return std::complex<T>(static_cast<T>(power.real()), static_cast<T>(power.imag()));
}

}  // namespace __zor

namespace std {

template <class T> inline T real(const complex<T> &z) { return z.real(); }
template <class T> inline T imag(const complex<T> &z) { return z.imag(); }
template <class T> inline T abs(const complex<T> &z) { return __zor::real_hypot(z.real(), z.imag()); }
template <class T> inline T arg(const complex<T> &z) { return atan2(z.imag(), z.real()); }
template <class T> inline T norm(const complex<T> &z) { return z.real() * z.real() + z.imag() * z.imag(); }
template <class T> inline complex<T> conj(const complex<T> &z) { return complex<T>(z.real(), -z.imag()); }
template <class T> inline complex<T> polar(const T &rho, const T &theta = T()) {
  return complex<T>(rho * cos(theta), rho * sin(theta));
}

#define PLX_COMPLEX_FUNCTION(name)                                     \
  template <class T> inline complex<T> name(const complex<T> &z) {     \
    return __zor::from_c<T>(__zor::c_##name(__zor::to_c(z)));          \
  }
PLX_COMPLEX_FUNCTION(cos)
PLX_COMPLEX_FUNCTION(cosh)
PLX_COMPLEX_FUNCTION(exp)
PLX_COMPLEX_FUNCTION(log)
PLX_COMPLEX_FUNCTION(sin)
PLX_COMPLEX_FUNCTION(sinh)
PLX_COMPLEX_FUNCTION(sqrt)
PLX_COMPLEX_FUNCTION(tan)
PLX_COMPLEX_FUNCTION(tanh)
#undef PLX_COMPLEX_FUNCTION

template <class T> inline complex<T> log10(const complex<T> &z) {
  return log(z) * static_cast<T>(0.434294481903251827651128918916605082L);
}

template <class T> inline complex<T> pow(const complex<T> &x, const complex<T> &y) {
  return __zor::complex_power(x, y);
}
template <class T> inline complex<T> pow(const complex<T> &x, const T &y) {
  if (x.imag() == T() && x.real() > T()) return complex<T>(pow(x.real(), y));
  return __zor::complex_power(x, complex<T>(y));
}
template <class T> inline complex<T> pow(const T &x, const complex<T> &y) {
  return __zor::complex_power(complex<T>(x), y);
}
template <class T> inline complex<T> pow(const complex<T> &x, int n) { return __zor::complex_power(x, n); }

// Arguments of different types meet in the wider one. Without these, pow(z, 0.5f) would round the exponent to an int.
template <class T, class U>
inline complex<typename __plx_math::__common<T, U>::__type> pow(const complex<T> &x, const complex<U> &y) {
  typedef typename __plx_math::__common<T, U>::__type W;
  return __zor::complex_power(complex<W>(x), complex<W>(y));
}
template <class T, class U>
inline complex<typename __plx_math::__common<T, U>::__type> pow(const complex<T> &x, const U &y) {
  typedef typename __plx_math::__common<T, U>::__type W;
  return pow(complex<W>(x), static_cast<W>(y));
}
template <class T, class U>
inline complex<typename __plx_math::__common<T, U>::__type> pow(const U &x, const complex<T> &y) {
  typedef typename __plx_math::__common<T, U>::__type W;
  return pow(static_cast<W>(x), complex<W>(y));
}

}  // namespace std

#endif

// The functions of complex numbers (1998, 26.2.7 and 26.2.8). They stand on the C library's, which are exact to a few
// units in the last place, do not overflow half-way, and have their branch cuts along the negative real axis,
// continuous with the side that the sign of a zero names.
#ifndef PLX_COMPLEX_MATH_H
#define PLX_COMPLEX_MATH_H

#include <cmath>

#include <plx/numerics/complex.h>

namespace __zor {

#define PLX_COMPLEX_FUNCTION(name)                                                                          \
  inline __complex__ float _c_##name(__complex__ float _z) PLX_NOTHROW { return __builtin_c##name##f(_z); } \
  inline __complex__ double _c_##name(__complex__ double _z) PLX_NOTHROW { return __builtin_c##name(_z); }  \
  inline __complex__ long double _c_##name(__complex__ long double _z) PLX_NOTHROW { return __builtin_c##name##l(_z); }
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

inline float _real_hypot(float _x, float _y) PLX_NOTHROW { return __builtin_hypotf(_x, _y); }
inline double _real_hypot(double _x, double _y) PLX_NOTHROW { return __builtin_hypot(_x, _y); }
inline long double _real_hypot(long double _x, long double _y) PLX_NOTHROW { return __builtin_hypotl(_x, _y); }

template <class _T> inline typename _c_complex<_T>::_type _to_c(const std::complex<_T> &_z) PLX_NOTHROW {
  return _to_c(_z.real(), _z.imag());
}
template <class _T, class _Ct> inline std::complex<_T> _from_c(_Ct _z) PLX_NOTHROW {
  return std::complex<_T>(static_cast<_T>(__real__ _z), static_cast<_T>(__imag__ _z));
}

// Powers lose digits in the logarithm and in repeated products, so they are computed in the next wider type.
template <class _T> struct _complex_wide { typedef long double _type; };
template <> struct _complex_wide<float> { typedef double _type; };

inline __complex__ double _c_pow(__complex__ double _x, __complex__ double _y) PLX_NOTHROW {
  return __builtin_cpow(_x, _y);
}
inline __complex__ long double _c_pow(__complex__ long double _x, __complex__ long double _y) PLX_NOTHROW {
  return __builtin_cpowl(_x, _y);
}

template <class _T> inline std::complex<_T> _complex_power(const std::complex<_T> &_x, const std::complex<_T> &_y) {
  typedef typename _complex_wide<_T>::_type _W;
  // The logarithm of zero is no number to go on with.
  if (_x == _T() && _y == _T()) return std::complex<_T>(_T(1));
  if (_x == _T() && _y.real() > _T()) return std::complex<_T>();
  return _from_c<_T>(_c_pow(_to_c<_W>(_x.real(), _x.imag()), _to_c<_W>(_y.real(), _y.imag())));
}

template <class _T> inline std::complex<_T> _complex_power(const std::complex<_T> &_x, int _n) {
  typedef typename _complex_wide<_T>::_type _W;
  // More products than this cost more digits than the wider type has to spare.
  if (_n > 1024 || _n < -1024) return _complex_power(_x, std::complex<_T>(static_cast<_T>(_n)));
  std::complex<_W> _power(1), _factor(_x.real(), _x.imag());
  for (unsigned _rest = static_cast<unsigned>(_n < 0 ? -_n : _n); _rest != 0; _rest >>= 1) {
    if (_rest & 1) _power *= _factor;
    if (_rest > 1) _factor *= _factor;
  }
  if (_n < 0) _power = std::complex<_W>(1) / _power;
  return std::complex<_T>(static_cast<_T>(_power.real()), static_cast<_T>(_power.imag()));
}

}  // namespace __zor

namespace std {

template <class _T> inline _T real(const complex<_T> &_z) { return _z.real(); }
template <class _T> inline _T imag(const complex<_T> &_z) { return _z.imag(); }
template <class _T> inline _T abs(const complex<_T> &_z) { return __zor::_real_hypot(_z.real(), _z.imag()); }
template <class _T> inline _T arg(const complex<_T> &_z) { return atan2(_z.imag(), _z.real()); }
template <class _T> inline _T norm(const complex<_T> &_z) { return _z.real() * _z.real() + _z.imag() * _z.imag(); }
template <class _T> inline complex<_T> conj(const complex<_T> &_z) { return complex<_T>(_z.real(), -_z.imag()); }
template <class _T> inline complex<_T> polar(const _T &_rho, const _T &_theta = _T()) {
  return complex<_T>(_rho * cos(_theta), _rho * sin(_theta));
}

#define PLX_COMPLEX_FUNCTION(name)                                     \
  template <class _T> inline complex<_T> name(const complex<_T> &_z) { \
    return __zor::_from_c<_T>(__zor::_c_##name(__zor::_to_c(_z)));     \
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

template <class _T> inline complex<_T> log10(const complex<_T> &_z) {
  return log(_z) * static_cast<_T>(0.434294481903251827651128918916605082L);
}

template <class _T> inline complex<_T> pow(const complex<_T> &_x, const complex<_T> &_y) {
  return __zor::_complex_power(_x, _y);
}
template <class _T> inline complex<_T> pow(const complex<_T> &_x, const _T &_y) {
  if (_x.imag() == _T() && _x.real() > _T()) return complex<_T>(pow(_x.real(), _y));
  return __zor::_complex_power(_x, complex<_T>(_y));
}
template <class _T> inline complex<_T> pow(const _T &_x, const complex<_T> &_y) {
  return __zor::_complex_power(complex<_T>(_x), _y);
}
#if __cplusplus < 201103L
template <class _T> inline complex<_T> pow(const complex<_T> &_x, int _n) { return __zor::_complex_power(_x, _n); }
#else
// From 2011 on an integer takes part as a double.
template <class _T> inline complex<typename __plx_math::__common<_T, int>::__type> pow(const complex<_T> &_x, int _n) {
  return __zor::_complex_power(complex<typename __plx_math::__common<_T, int>::__type>(_x), _n);
}
#endif

// Arguments of different types meet in the wider one. Without these, pow(z, 0.5f) would round the exponent to an int.
template <class _T, class _Ut>
inline complex<typename __plx_math::__common<_T, _Ut>::__type> pow(const complex<_T> &_x, const complex<_Ut> &_y) {
  typedef typename __plx_math::__common<_T, _Ut>::__type _W;
  return __zor::_complex_power(complex<_W>(_x), complex<_W>(_y));
}
template <class _T, class _Ut>
inline complex<typename __plx_math::__common<_T, _Ut>::__type> pow(const complex<_T> &_x, const _Ut &_y) {
  typedef typename __plx_math::__common<_T, _Ut>::__type _W;
  return pow(complex<_W>(_x), static_cast<_W>(_y));
}
template <class _T, class _Ut>
inline complex<typename __plx_math::__common<_T, _Ut>::__type> pow(const _Ut &_x, const complex<_T> &_y) {
  typedef typename __plx_math::__common<_T, _Ut>::__type _W;
  return pow(static_cast<_W>(_x), complex<_W>(_y));
}

}  // namespace std

#endif

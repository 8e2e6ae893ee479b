// complex<_T> (1998, 26.2.1 to 26.2.6): the class with its three specialisations, arithmetic and comparison.
//
// For the three floating types products and quotients are the compiler's own, which do not overflow half-way and keep
// infinities; for other types they are the textbook's.
#ifndef PLX_COMPLEX_H
#define PLX_COMPLEX_H

#include <plx/base/config.h>

namespace std {

template <class _T> class complex;
template <> class complex<float>;
template <> class complex<double>;
template <> class complex<long double>;

}  // namespace std

namespace __zor {

// The compiler's complex type for _T, made and taken apart.
template <class _T> struct _c_complex {};
template <> struct _c_complex<float> { typedef __complex__ float _type; };
template <> struct _c_complex<double> { typedef __complex__ double _type; };
template <> struct _c_complex<long double> { typedef __complex__ long double _type; };

template <class _T> inline typename _c_complex<_T>::_type _to_c(_T _re, _T _im) PLX_NOTHROW {
  typename _c_complex<_T>::_type _z;
  __real__ _z = _re;
  __imag__ _z = _im;
  return _z;
}

template <class _T> struct _complex_arithmetic {
  static void _multiply(_T &_re, _T &_im, const _T &_a, const _T &_b) {
    const _T _product = _re * _a - _im * _b;
    _im = _re * _b + _im * _a;
    _re = _product;
  }
  static void _divide(_T &_re, _T &_im, const _T &_a, const _T &_b) {
    const _T _norm = _a * _a + _b * _b;
    const _T _quotient = (_re * _a + _im * _b) / _norm;
    _im = (_im * _a - _re * _b) / _norm;
    _re = _quotient;
  }
};

template <class _T> struct _c_arithmetic {
  static void _multiply(_T &_re, _T &_im, _T _a, _T _b) PLX_NOTHROW {
    const typename _c_complex<_T>::_type _z = _to_c(_re, _im) * _to_c(_a, _b);
    _re = __real__ _z;
    _im = __imag__ _z;
  }
  static void _divide(_T &_re, _T &_im, _T _a, _T _b) PLX_NOTHROW {
    const typename _c_complex<_T>::_type _z = _to_c(_re, _im) / _to_c(_a, _b);
    _re = __real__ _z;
    _im = __imag__ _z;
  }
};
template <> struct _complex_arithmetic<float> : _c_arithmetic<float> {};
template <> struct _complex_arithmetic<double> : _c_arithmetic<double> {};
template <> struct _complex_arithmetic<long double> : _c_arithmetic<long double> {};

// What complex<_T> and its specialisations have in common: all but the constructors. Right sides may be parts of the
// object itself, so they are read before anything is written.
template <class _T> class _complex_parts {
  typedef std::complex<_T> complex;

public:
  typedef _T value_type;

  _T real() const { return _re_; }
  _T imag() const { return _im_; }
#if __cplusplus >= 201103L
  void real(_T _re) { _re_ = _re; }
  void imag(_T _im) { _im_ = _im; }
#endif

  complex &operator=(const _T &_value) {
    _re_ = _value;
    _im_ = _T();
    return _self();
  }
  complex &operator+=(const _T &_value) {
    _re_ += _value;
    return _self();
  }
  complex &operator-=(const _T &_value) {
    _re_ -= _value;
    return _self();
  }
  complex &operator*=(const _T &_value) {
    const _T _factor(_value);
    _re_ *= _factor;
    _im_ *= _factor;
    return _self();
  }
  complex &operator/=(const _T &_value) {
    const _T _divisor(_value);
    _re_ /= _divisor;
    _im_ /= _divisor;
    return _self();
  }

  template <class _Xt> complex &operator=(const std::complex<_Xt> &_z) {
    _re_ = static_cast<_T>(_z.real());
    _im_ = static_cast<_T>(_z.imag());
    return _self();
  }
  template <class _Xt> complex &operator+=(const std::complex<_Xt> &_z) {
    _re_ += static_cast<_T>(_z.real());
    _im_ += static_cast<_T>(_z.imag());
    return _self();
  }
  template <class _Xt> complex &operator-=(const std::complex<_Xt> &_z) {
    _re_ -= static_cast<_T>(_z.real());
    _im_ -= static_cast<_T>(_z.imag());
    return _self();
  }
  template <class _Xt> complex &operator*=(const std::complex<_Xt> &_z) {
    _complex_arithmetic<_T>::_multiply(_re_, _im_, static_cast<_T>(_z.real()), static_cast<_T>(_z.imag()));
    return _self();
  }
  template <class _Xt> complex &operator/=(const std::complex<_Xt> &_z) {
    _complex_arithmetic<_T>::_divide(_re_, _im_, static_cast<_T>(_z.real()), static_cast<_T>(_z.imag()));
    return _self();
  }

protected:
  _complex_parts(const _T &_re, const _T &_im) : _re_(_re), _im_(_im) {}

private:
  complex &_self() { return static_cast<complex &>(*this); }

  _T _re_;
  _T _im_;
};

}  // namespace __zor

namespace std {

template <class _T> class complex : public __zor::_complex_parts<_T> {
public:
  complex(const _T &_re = _T(), const _T &_im = _T()) : __zor::_complex_parts<_T>(_re, _im) {}
  template <class _Xt> complex(const complex<_Xt> &_z)
      : __zor::_complex_parts<_T>(static_cast<_T>(_z.real()), static_cast<_T>(_z.imag())) {}
  using __zor::_complex_parts<_T>::operator=;
};

// Conversions to a wider type are implicit, the others explicit.
template <> class complex<float> : public __zor::_complex_parts<float> {
public:
  complex(float _re = 0, float _im = 0) PLX_NOTHROW : __zor::_complex_parts<float>(_re, _im) {}
  explicit inline complex(const complex<double> &_z) PLX_NOTHROW;
  explicit inline complex(const complex<long double> &_z) PLX_NOTHROW;
  using __zor::_complex_parts<float>::operator=;
};

template <> class complex<double> : public __zor::_complex_parts<double> {
public:
  complex(double _re = 0, double _im = 0) PLX_NOTHROW : __zor::_complex_parts<double>(_re, _im) {}
  inline complex(const complex<float> &_z) PLX_NOTHROW;
  explicit inline complex(const complex<long double> &_z) PLX_NOTHROW;
  using __zor::_complex_parts<double>::operator=;
};

template <> class complex<long double> : public __zor::_complex_parts<long double> {
public:
  complex(long double _re = 0, long double _im = 0) PLX_NOTHROW : __zor::_complex_parts<long double>(_re, _im) {}
  inline complex(const complex<float> &_z) PLX_NOTHROW;
  inline complex(const complex<double> &_z) PLX_NOTHROW;
  using __zor::_complex_parts<long double>::operator=;
};

inline complex<float>::complex(const complex<double> &_z) PLX_NOTHROW
    : __zor::_complex_parts<float>(static_cast<float>(_z.real()), static_cast<float>(_z.imag())) {}
inline complex<float>::complex(const complex<long double> &_z) PLX_NOTHROW
    : __zor::_complex_parts<float>(static_cast<float>(_z.real()), static_cast<float>(_z.imag())) {}
inline complex<double>::complex(const complex<float> &_z) PLX_NOTHROW
    : __zor::_complex_parts<double>(_z.real(), _z.imag()) {}
inline complex<double>::complex(const complex<long double> &_z) PLX_NOTHROW
    : __zor::_complex_parts<double>(static_cast<double>(_z.real()), static_cast<double>(_z.imag())) {}
inline complex<long double>::complex(const complex<float> &_z) PLX_NOTHROW
    : __zor::_complex_parts<long double>(_z.real(), _z.imag()) {}
inline complex<long double>::complex(const complex<double> &_z) PLX_NOTHROW
    : __zor::_complex_parts<long double>(_z.real(), _z.imag()) {}

template <class _T> inline complex<_T> operator+(const complex<_T> &_a, const complex<_T> &_b) {
  return complex<_T>(_a.real() + _b.real(), _a.imag() + _b.imag());
}
template <class _T> inline complex<_T> operator+(const complex<_T> &_a, const _T &_b) {
  return complex<_T>(_a.real() + _b, _a.imag());
}
template <class _T> inline complex<_T> operator+(const _T &_a, const complex<_T> &_b) {
  return complex<_T>(_a + _b.real(), _b.imag());
}

template <class _T> inline complex<_T> operator-(const complex<_T> &_a, const complex<_T> &_b) {
  return complex<_T>(_a.real() - _b.real(), _a.imag() - _b.imag());
}
template <class _T> inline complex<_T> operator-(const complex<_T> &_a, const _T &_b) {
  return complex<_T>(_a.real() - _b, _a.imag());
}
template <class _T> inline complex<_T> operator-(const _T &_a, const complex<_T> &_b) {
  return complex<_T>(_a - _b.real(), -_b.imag());
}

template <class _T> inline complex<_T> operator*(const complex<_T> &_a, const complex<_T> &_b) {
  complex<_T> _product(_a);
  _product *= _b;
  return _product;
}
template <class _T> inline complex<_T> operator*(const complex<_T> &_a, const _T &_b) {
  return complex<_T>(_a.real() * _b, _a.imag() * _b);
}
template <class _T> inline complex<_T> operator*(const _T &_a, const complex<_T> &_b) {
  return complex<_T>(_a * _b.real(), _a * _b.imag());
}

template <class _T> inline complex<_T> operator/(const complex<_T> &_a, const complex<_T> &_b) {
  complex<_T> _quotient(_a);
  _quotient /= _b;
  return _quotient;
}
template <class _T> inline complex<_T> operator/(const complex<_T> &_a, const _T &_b) {
  return complex<_T>(_a.real() / _b, _a.imag() / _b);
}
template <class _T> inline complex<_T> operator/(const _T &_a, const complex<_T> &_b) {
  complex<_T> _quotient(_a);
  _quotient /= _b;
  return _quotient;
}

template <class _T> inline complex<_T> operator+(const complex<_T> &_z) { return _z; }
template <class _T> inline complex<_T> operator-(const complex<_T> &_z) { return complex<_T>(-_z.real(), -_z.imag()); }

template <class _T> inline bool operator==(const complex<_T> &_a, const complex<_T> &_b) {
  return _a.real() == _b.real() && _a.imag() == _b.imag();
}
template <class _T> inline bool operator==(const complex<_T> &_a, const _T &_b) {
  return _a.real() == _b && _a.imag() == _T();
}
template <class _T> inline bool operator==(const _T &_a, const complex<_T> &_b) {
  return _a == _b.real() && _T() == _b.imag();
}

template <class _T> inline bool operator!=(const complex<_T> &_a, const complex<_T> &_b) { return !(_a == _b); }
template <class _T> inline bool operator!=(const complex<_T> &_a, const _T &_b) { return !(_a == _b); }
template <class _T> inline bool operator!=(const _T &_a, const complex<_T> &_b) { return !(_a == _b); }

}  // namespace std

#endif

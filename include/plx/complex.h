// complex<T> (1998, 26.2.1 to 26.2.6): the class with its three specialisations, arithmetic and comparison.
//
// For the three floating types products and quotients are the compiler's own, which do not overflow half-way and keep
// infinities; for other types they are the textbook's.
#ifndef PLX_COMPLEX_H
#define PLX_COMPLEX_H

#include <plx/config.h>

namespace std {

template <class T> class complex;
template <> class complex<float>;
template <> class complex<double>;
template <> class complex<long double>;

}  // namespace std

namespace __zor {

// The compiler's complex type for T, made and taken apart.
template <class T> struct c_complex {};
template <> struct c_complex<float> { typedef __complex__ float type; };
template <> struct c_complex<double> { typedef __complex__ double type; };
template <> struct c_complex<long double> { typedef __complex__ long double type; };

template <class T> inline typename c_complex<T>::type to_c(T re, T im) PLX_NOTHROW {
  typename c_complex<T>::type z;
  __real__ z = re;
  __imag__ z = im;
  return z;
}

template <class T> struct complex_arithmetic {
  static void multiply(T &re, T &im, const T &a, const T &b) {
    const T product = re * a - im * b;
    im = re * b + im * a;
    re = product;
  }
  static void divide(T &re, T &im, const T &a, const T &b) {
    const T norm = a * a + b * b;
    const T quotient = (re * a + im * b) / norm;
    im = (im * a - re * b) / norm;
    re = quotient;
  }
};

template <class T> struct c_arithmetic {
  static void multiply(T &re, T &im, T a, T b) PLX_NOTHROW {
    const typename c_complex<T>::type z = to_c(re, im) * to_c(a, b);
    re = __real__ z;
    im = __imag__ z;
  }
  static void divide(T &re, T &im, T a, T b) PLX_NOTHROW {
    const typename c_complex<T>::type z = to_c(re, im) / to_c(a, b);
    re = __real__ z;
    im = __imag__ z;
  }
};
template <> struct complex_arithmetic<float> : c_arithmetic<float> {};
template <> struct complex_arithmetic<double> : c_arithmetic<double> {};
template <> struct complex_arithmetic<long double> : c_arithmetic<long double> {};

// What complex<T> and its specialisations have in common: all but the constructors. Right sides may be parts of the
// object itself, so they are read before anything is written.
template <class T> class complex_parts {
  typedef std::complex<T> complex;

public:
  typedef T value_type;

  T real() const { return re_; }
  T imag() const { return im_; }
#if __cplusplus >= 201103L
  void real(T re) { re_ = re; }
  void imag(T im) { im_ = im; }
#endif

  complex &operator=(const T &value) {
    re_ = value;
    im_ = T();
    return self();
  }
  complex &operator+=(const T &value) {
    re_ += value;
    return self();
  }
  complex &operator-=(const T &value) {
    re_ -= value;
    return self();
  }
  complex &operator*=(const T &value) {
    const T factor(value);
    re_ *= factor;
    im_ *= factor;
    return self();
  }
  complex &operator/=(const T &value) {
    const T divisor(value);
    re_ /= divisor;
    im_ /= divisor;
    return self();
  }

  template <class X> complex &operator=(const std::complex<X> &z) {
    re_ = static_cast<T>(z.real());
    im_ = static_cast<T>(z.imag());
    return self();
  }
  template <class X> complex &operator+=(const std::complex<X> &z) {
    re_ += static_cast<T>(z.real());
    im_ += static_cast<T>(z.imag());
    return self();
  }
  template <class X> complex &operator-=(const std::complex<X> &z) {
    re_ -= static_cast<T>(z.real());
    im_ -= static_cast<T>(z.imag());
    return self();
  }
  template <class X> complex &operator*=(const std::complex<X> &z) {
    complex_arithmetic<T>::multiply(re_, im_, static_cast<T>(z.real()), static_cast<T>(z.imag()));
    return self();
  }
  template <class X> complex &operator/=(const std::complex<X> &z) {
    complex_arithmetic<T>::divide(re_, im_, static_cast<T>(z.real()), static_cast<T>(z.imag()));
    return self();
  }

protected:
  complex_parts(const T &re, const T &im) : re_(re), im_(im) {}

private:
  complex &self() { return static_cast<complex &>(*this); }

  T re_;
  T im_;
};

}  // namespace __zor

namespace std {

template <class T> class complex : public __zor::complex_parts<T> {
public:
  complex(const T &re = T(), const T &im = T()) : __zor::complex_parts<T>(re, im) {}
  template <class X> complex(const complex<X> &z)
      : __zor::complex_parts<T>(static_cast<T>(z.real()), static_cast<T>(z.imag())) {}
  using __zor::complex_parts<T>::operator=;
};

// Conversions to a wider type are implicit, the others explicit.
template <> class complex<float> : public __zor::complex_parts<float> {
public:
  complex(float re = 0, float im = 0) PLX_NOTHROW : __zor::complex_parts<float>(re, im) {}
  explicit inline complex(const complex<double> &z) PLX_NOTHROW;
  explicit inline complex(const complex<long double> &z) PLX_NOTHROW;
  using __zor::complex_parts<float>::operator=;
};

template <> class complex<double> : public __zor::complex_parts<double> {
public:
  complex(double re = 0, double im = 0) PLX_NOTHROW : __zor::complex_parts<double>(re, im) {}
  inline complex(const complex<float> &z) PLX_NOTHROW;
  explicit inline complex(const complex<long double> &z) PLX_NOTHROW;
  using __zor::complex_parts<double>::operator=;
};

template <> class complex<long double> : public __zor::complex_parts<long double> {
public:
  complex(long double re = 0, long double im = 0) PLX_NOTHROW : __zor::complex_parts<long double>(re, im) {}
  inline complex(const complex<float> &z) PLX_NOTHROW;
  inline complex(const complex<double> &z) PLX_NOTHROW;
  using __zor::complex_parts<long double>::operator=;
};

inline complex<float>::complex(const complex<double> &z) PLX_NOTHROW
    : __zor::complex_parts<float>(static_cast<float>(z.real()), static_cast<float>(z.imag())) {}
inline complex<float>::complex(const complex<long double> &z) PLX_NOTHROW
    : __zor::complex_parts<float>(static_cast<float>(z.real()), static_cast<float>(z.imag())) {}
inline complex<double>::complex(const complex<float> &z) PLX_NOTHROW
    : __zor::complex_parts<double>(z.real(), z.imag()) {}
inline complex<double>::complex(const complex<long double> &z) PLX_NOTHROW
    : __zor::complex_parts<double>(static_cast<double>(z.real()), static_cast<double>(z.imag())) {}
inline complex<long double>::complex(const complex<float> &z) PLX_NOTHROW
    : __zor::complex_parts<long double>(z.real(), z.imag()) {}
inline complex<long double>::complex(const complex<double> &z) PLX_NOTHROW
    : __zor::complex_parts<long double>(z.real(), z.imag()) {}

template <class T> inline complex<T> operator+(const complex<T> &a, const complex<T> &b) {
  return complex<T>(a.real() + b.real(), a.imag() + b.imag());
}
template <class T> inline complex<T> operator+(const complex<T> &a, const T &b) {
  return complex<T>(a.real() + b, a.imag());
}
template <class T> inline complex<T> operator+(const T &a, const complex<T> &b) {
  return complex<T>(a + b.real(), b.imag());
}

template <class T> inline complex<T> operator-(const complex<T> &a, const complex<T> &b) {
  return complex<T>(a.real() - b.real(), a.imag() - b.imag());
}
template <class T> inline complex<T> operator-(const complex<T> &a, const T &b) {
  return complex<T>(a.real() - b, a.imag());
}
template <class T> inline complex<T> operator-(const T &a, const complex<T> &b) {
  return complex<T>(a - b.real(), -b.imag());
}

template <class T> inline complex<T> operator*(const complex<T> &a, const complex<T> &b) {
  complex<T> product(a);
  product *= b;
  return product;
}
template <class T> inline complex<T> operator*(const complex<T> &a, const T &b) {
  return complex<T>(a.real() * b, a.imag() * b);
}
template <class T> inline complex<T> operator*(const T &a, const complex<T> &b) {
  return complex<T>(a * b.real(), a * b.imag());
}

template <class T> inline complex<T> operator/(const complex<T> &a, const complex<T> &b) {
  complex<T> quotient(a);
  quotient /= b;
  return quotient;
}
template <class T> inline complex<T> operator/(const complex<T> &a, const T &b) {
  return complex<T>(a.real() / b, a.imag() / b);
}
template <class T> inline complex<T> operator/(const T &a, const complex<T> &b) {
  complex<T> quotient(a);
  quotient /= b;
  return quotient;
}

template <class T> inline complex<T> operator+(const complex<T> &z) { return z; }
template <class T> inline complex<T> operator-(const complex<T> &z) { return complex<T>(-z.real(), -z.imag()); }

template <class T> inline bool operator==(const complex<T> &a, const complex<T> &b) {
  return a.real() == b.real() && a.imag() == b.imag();
}
template <class T> inline bool operator==(const complex<T> &a, const T &b) { return a.real() == b && a.imag() == T(); }
template <class T> inline bool operator==(const T &a, const complex<T> &b) { return a == b.real() && T() == b.imag(); }

template <class T> inline bool operator!=(const complex<T> &a, const complex<T> &b) { return !(a == b); }
template <class T> inline bool operator!=(const complex<T> &a, const T &b) { return !(a == b); }
template <class T> inline bool operator!=(const T &a, const complex<T> &b) { return !(a == b); }

}  // namespace std

#endif

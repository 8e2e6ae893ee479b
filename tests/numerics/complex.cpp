// test-variants: -O0 | -O2 | -O2 -std=gnu++20
// complex<T> for the three floating types and for int: arithmetic, conversions, and every function against formulas in
// long double, at branch cuts and where the textbook's formulas would overflow.
// test-peer: gnu++98
#include <complex>

#include <float.h>

#include "harness.h"

namespace {

typedef std::complex<float> cf;
typedef std::complex<double> cd;
typedef std::complex<long double> cl;

template <class T> struct precision;
template <> struct precision<float> { static long double step() { return FLT_EPSILON; } };
template <> struct precision<double> { static long double step() { return DBL_EPSILON; } };
template <> struct precision<long double> { static long double step() { return LDBL_EPSILON; } };

long double size(cl z) { return std::abs(z); }

// Within `steps` units of the last place, of the whole number's size.
template <class T> bool near_to(const std::complex<T> &got, const cl &want, int steps = 8) {
  const cl difference = cl(got.real(), got.imag()) - want;
  return size(difference) <= steps * precision<T>::step() * (size(want) > 0 ? size(want) : 1);
}

template <class T> void arithmetic() {
  typedef std::complex<T> c;
  const c a(3, 4), b(1, -2);
  CHECK(a + b == c(4, 2) && a - b == c(2, 6) && a * b == c(11, -2) && a / b == c(-1, 2));
  CHECK(a + T(1) == c(4, 4) && T(1) + a == c(4, 4) && a - T(1) == c(2, 4) && T(1) - a == c(-2, -4));
  CHECK(a * T(2) == c(6, 8) && T(2) * a == c(6, 8) && c(6, 8) / T(2) == a && T(10) / b == c(2, 4));
  CHECK(+a == a && -a == c(-3, -4));
  CHECK(c(5) == T(5) && T(5) == c(5) && a != T(3) && T(3) != a && a != b && c() == T());

  c z(a);
  z += b, z -= T(1), z *= b, z /= T(1);  // (4,2), (3,2), (7,-4)
  CHECK(z == c(7, -4));
  z = T(2), z += T(1);
  CHECK(z == c(3, 0));
  // The right side is the object itself.
  z = a, z *= z;
  CHECK(z == c(-7, 24));
  z /= z;
  CHECK(z == T(1));
  z = a, z += z, z -= a;
  CHECK(z == a);
  CHECK(std::real(a) == 3 && std::imag(a) == 4 && std::norm(a) == 25 && std::conj(a) == c(3, -4));
}

template <class T, class U> void other_types() {
  std::complex<T> z;
  z = std::complex<U>(1, 2);
  z += std::complex<U>(2, 2), z -= std::complex<U>(0, 1), z *= std::complex<U>(0, 1);  // (3,4), (3,3), (-3,3)
  z /= std::complex<U>(3, 0);
  CHECK(z == std::complex<T>(-1, 1));
  CHECK(std::complex<T>(std::complex<U>(5, 6)) == std::complex<T>(5, 6));
}

// Implicit conversions are those to a wider type.
double through_double(cd z) { return z.real(); }
double through_long_double(cl z) { return static_cast<double>(z.real()); }

template <class T> cl reference(int function, const cl &z) {
  const long double x = z.real(), y = z.imag();
  switch (function) {
    case 0: return cl(cosl(x) * coshl(y), -sinl(x) * sinhl(y));
    case 1: return cl(coshl(x) * cosl(y), sinhl(x) * sinl(y));
    case 2: return cl(expl(x) * cosl(y), expl(x) * sinl(y));
    case 3: return cl(logl(hypotl(x, y)), atan2l(y, x));
    case 4: return cl(log10l(hypotl(x, y)), atan2l(y, x) / logl(10.0L));
    case 5: return cl(sinl(x) * coshl(y), cosl(x) * sinhl(y));
    case 6: return cl(sinhl(x) * cosl(y), coshl(x) * sinl(y));
    case 7: {
      const long double large = sqrtl((hypotl(x, y) + fabsl(x)) / 2), other = fabsl(y) / (2 * large);
      return x < 0 ? cl(other, copysignl(large, y)) : cl(large, copysignl(other, y));
    }
    case 8: return cl(sinl(2 * x), sinhl(2 * y)) / (cosl(2 * x) + coshl(2 * y));
    default: return cl(sinhl(2 * x), sinl(2 * y)) / (coshl(2 * x) + cosl(2 * y));
  }
}

template <class T> std::complex<T> computed(int function, const std::complex<T> &z) {
  switch (function) {
    case 0: return std::cos(z);
    case 1: return std::cosh(z);
    case 2: return std::exp(z);
    case 3: return std::log(z);
    case 4: return std::log10(z);
    case 5: return std::sin(z);
    case 6: return std::sinh(z);
    case 7: return std::sqrt(z);
    case 8: return std::tan(z);
    default: return std::tanh(z);
  }
}

template <class T> void functions() {
  const T parts[] = {T(0.5), T(-0.75), T(1.25), T(3), T(-2.5), T(0.0625), T(-7)};
  const int n = sizeof parts / sizeof *parts;
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      const std::complex<T> z(parts[i], parts[j]);
      const cl exact(z.real(), z.imag());
      for (int function = 0; function < 10; ++function) {
        if (!near_to(computed(function, z), reference<T>(function, exact))) {
          CHECK(false);
          fprintf(stderr, "  function %d of (%Lg,%Lg)\n", function, exact.real(), exact.imag());
        }
      }
      CHECK(near_to(std::complex<T>(std::abs(z)), cl(hypotl(exact.real(), exact.imag())), 1));
      CHECK(near_to(std::complex<T>(std::arg(z)), cl(atan2l(exact.imag(), exact.real())), 1));
      CHECK(near_to(std::polar(std::abs(z), std::arg(z)), exact));
      const cl logarithm = reference<T>(3, exact);
      CHECK(near_to(std::pow(z, std::complex<T>(T(1.5), T(-0.5))), reference<T>(2, logarithm * cl(1.5L, -0.5L)), 32));
      CHECK(near_to(std::pow(z, T(0.75)), reference<T>(2, logarithm * 0.75L), 16));
      CHECK(near_to(std::pow(T(2.5), z), reference<T>(2, exact * logl(2.5L)), 32));
      CHECK(near_to(std::pow(z, 5), exact * exact * exact * exact * exact, 32));
      CHECK(near_to(std::pow(z, -3), 1.0L / (exact * exact * exact), 32));
    }
  }
  CHECK(std::polar(T(2)) == std::complex<T>(2));
}

template <class T> void branch_cuts(T pi) {
  typedef std::complex<T> c;
  const T zero = 0;
  CHECK(std::sqrt(c(-4, zero)) == c(0, 2) && std::sqrt(c(-4, -zero)) == c(0, -2));
  CHECK(std::log(c(-1, zero)).imag() == pi && std::log(c(-1, -zero)).imag() == -pi);
  // Kept in variables, because a function's result may come with more digits than its type has.
  const T above = std::arg(c(-1, zero)), below = std::arg(c(-1, -zero));
  CHECK(above == pi && below == -pi);
  CHECK(near_to(std::pow(c(-1, zero), T(0.5)), cl(0, 1)) && near_to(std::pow(c(-1, -zero), T(0.5)), cl(0, -1)));
  CHECK(std::sqrt(c(0, 2)) == c(1, 1) && std::sqrt(c(zero, -2)) == c(1, -1));
}

template <class T> void extremes(T big, T infinity) {
  typedef std::complex<T> c;
  CHECK(near_to(c(std::abs(c(big / 8 * 3, big / 8 * 4))), cl(big / 8 * 5), 2));
  CHECK(near_to(c(std::abs(c(T(3) / big, T(4) / big))), cl(5.0L / big), 2));
  CHECK(std::sqrt(c(big, big)).real() < big && std::sqrt(c(big, big)).imag() > 1);
  CHECK(near_to(c(big, big) / c(big, big), cl(1)));
  CHECK(near_to(std::tanh(c(T(2000), T(1))), cl(1)) && near_to(std::tan(c(T(1), T(-2000))), cl(0, -1)));
  CHECK(std::exp(c(-infinity, T(1))) == c() && std::abs(c(-infinity, T(1))) == infinity);
  CHECK(std::log(c(big, big)).real() < 12000 && std::log(c()).real() == -infinity);
  // An infinite factor stays infinite, though parts of the product are no numbers.
  CHECK(std::abs(c(infinity, infinity) * c(0, 1)) == infinity);
}

void powers() {
  CHECK(std::pow(cd(3, 4), 0) == cd(1) && std::pow(cd(3, 4), 2) == cd(-7, 24) && std::pow(cd(0, 1), 4) == cd(1));
  CHECK(std::pow(cd(2), 0.5) == cd(sqrt(2.0)));
#ifdef PLX_CONFIG_H
  // What 1998 leaves open, mixed types, and digits that many products would lose.
  CHECK(near_to(std::pow(cd(1, 1e-9), 2000), std::pow(cl(1, 1e-9), 2000.0L)));
  CHECK(std::pow(cd(), cd()) == cd(1) && std::pow(cd(), cd(2, 1)) == cd() && std::pow(cd(), 2.0) == cd());
  CHECK(near_to(std::pow(cd(0, 2), 0.5f), cl(1, 1)) && near_to(std::pow(cf(0, 2), 0.5), cl(1, 1)));
  CHECK(near_to(std::pow(2, cd(0.5)), cl(sqrtl(2.0L))) && near_to(std::pow(cf(0, 2), cd(0.5)), cl(1, 1), 1));
#endif
}

void integers() {
  typedef std::complex<int> ci;
  CHECK(ci(1, 2) * ci(3, 4) == ci(-5, 10) && ci(-5, 10) / ci(3, 4) == ci(1, 2) && std::norm(ci(3, 4)) == 25);
  ci z = ci(7, 9);
  z *= z;
  CHECK(z == ci(-32, 126) && ci(cd(3.5, -2.5)) == ci(3, -2));
}

}  // namespace

int main() {
  arithmetic<float>();
  arithmetic<double>();
  arithmetic<long double>();
  other_types<float, double>();
  other_types<double, float>();
  other_types<float, long double>();
  other_types<long double, double>();
  CHECK(through_double(cf(1.5f, 2)) == 1.5 && through_long_double(cf(1.5f)) == 1.5 && through_long_double(cd(2)) == 2);
  functions<float>();
  functions<double>();
  functions<long double>();
  branch_cuts<float>(atan2f(0, -1));
  branch_cuts<double>(atan2(0.0, -1.0));
  branch_cuts<long double>(atan2l(0, -1));
  extremes<float>(FLT_MAX / 2, HUGE_VALF);
  extremes<double>(DBL_MAX / 2, HUGE_VAL);
  extremes<long double>(LDBL_MAX / 2, HUGE_VALL);
  powers();
  integers();
  return TEST_RESULT();
}

// One decimal number of at most 19 digits to a floating value, inline: the step that the readers share.
#pragma once

#include "read.h"

namespace __zor {

// mantissa * 10 ^ exponent
struct decimal_real {
  unsigned long long mantissa;
  int exponent;
  bool negative;
};

// Any number, in any rounding mode.
PLX_HIDDEN PLX_REGPARM void real_by_strtod(const decimal_real &number, float &value) noexcept;
PLX_HIDDEN PLX_REGPARM void real_by_strtod(const decimal_real &number, double &value) noexcept;
PLX_HIDDEN PLX_REGPARM void real_by_strtod(const decimal_real &number, long double &value) noexcept;

// Whether rounding x, which may be `slack` units in its last place off, must give the right Real: its surplus bits are
// not near one half. For large powers the result must be normal too.
inline bool rounds_surely(const long_double_image &x, unsigned slack, double) noexcept {
  return (x.bits.low & 0x7FF) - (0x400 - slack) > 2 * slack;
}
inline bool rounds_surely(const long_double_image &x, unsigned slack, float) noexcept {
  const unsigned top = x.bits.high & 0xFF;
  return !(top == 0x80 && x.bits.low <= slack) && !(top == 0x7F && x.bits.low > ~slack);
}
inline bool rounds_surely(const long_double_image &, unsigned slack, long double) noexcept { return slack == 0; }
inline bool is_normal(int exponent, double) noexcept { return exponent >= -1022 && exponent <= 1023; }
inline bool is_normal(int exponent, float) noexcept { return exponent >= -126 && exponent <= 127; }
inline bool is_normal(int, long double) noexcept { return true; }

// Whether the product of the mantissa and a negative power may be tried, which is inexact in its last bits but several
// times faster than a quotient.
inline bool may_try(double) noexcept { return true; }
inline bool may_try(float) noexcept { return true; }
inline bool may_try(long double) noexcept { return false; }

// `mantissa` loads number.mantissa into an x87 register, which keeps all of its bits.
template <class Real, class Mantissa>
inline void to_real(const decimal_real &number, Mantissa mantissa, Real &value) noexcept {
  const int e = number.exponent;
  if (__builtin_expect(x87_is_default(), 1)) {
    const long double whole = number.negative ? -mantissa() : mantissa();
    if (e == 0) {
      value = static_cast<Real>(whole);
      return;
    }
    long_double_image x;
    if (e >= -most_exact_power && e <= most_exact_power) {
      if (e > 0 || may_try(Real())) {
        x.value = whole * near_power(e);
        if (__builtin_expect(rounds_surely(x, e > 0 ? 0 : 2, Real()), 1)) {
          value = static_cast<Real>(x.value);
          return;
        }
      }
      if (e < 0) {
        x.value = whole / near_power(-e);
        if (rounds_surely(x, 0, Real())) {
          value = static_cast<Real>(x.value);
          return;
        }
      }
    } else if (e >= -power_step * power_steps && e <= power_step * power_steps) {
      x.value = whole * near_power(e % power_step) * far_power(e / power_step);
      if (is_normal((x.bits.sign_and_exponent & 0x7FFF) - 16383, Real()) && rounds_surely(x, 8, Real())) {
        value = static_cast<Real>(x.value);
        return;
      }
    }
  }
  real_by_strtod(number, value);
}

template <class Real> inline void to_real(const decimal_real &number, Real &value) noexcept {
  to_real(
      number, [&number] { return static_cast<long double>(number.mantissa); }, value);
}

}  // namespace __zor

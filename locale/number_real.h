// One decimal number of at most 19 digits to a floating value, inline: the step that number_value's parts share.
#pragma once

#include "number_value.h"

namespace __zor {

// mantissa * 10 ^ exponent
struct decimal_real {
  unsigned long long mantissa;
  int exponent;
  bool negative;
};

// Exact up to 10^27; power_28[i] is 10^(28 i) rounded.
const unsigned int exact_powers = 28, rounded_powers = 13;
extern const long double power_1[exact_powers];
extern const long double power_28[rounded_powers];

// Any number, in any rounding mode.
NUMBER_CALL void real_by_strtod(const decimal_real &number, float &value) noexcept;
NUMBER_CALL void real_by_strtod(const decimal_real &number, double &value) noexcept;
NUMBER_CALL void real_by_strtod(const decimal_real &number, long double &value) noexcept;

// The x87's own format.
union long_double_image {
  long double value;
  struct {
    unsigned int low, high;
    unsigned short sign_and_exponent;
  } bits;
};

// Whether rounding x, which may be `slack` units in its last place off, must give the right Real: its surplus bits are
// not near one half. For large powers the result must be normal too.
inline bool rounds_surely(const long_double_image &x, unsigned int slack, double) noexcept {
  return (x.bits.low & 0x7FF) - (0x400 - slack) > 2 * slack;
}
inline bool rounds_surely(const long_double_image &x, unsigned int slack, float) noexcept {
  const unsigned int top = x.bits.high & 0xFF;
  return !(top == 0x80 && x.bits.low <= slack) && !(top == 0x7F && x.bits.low > ~slack);
}
inline bool rounds_surely(const long_double_image &, unsigned int slack, long double) noexcept { return slack == 0; }
inline bool is_normal(int exponent, double) noexcept { return exponent >= -1022 && exponent <= 1023; }
inline bool is_normal(int exponent, float) noexcept { return exponent >= -126 && exponent <= 127; }
inline bool is_normal(int, long double) noexcept { return true; }

// All 64 bits of the mantissa are kept, and results are rounded to nearest: what a process starts with.
inline bool x87_is_default() noexcept {
  unsigned short control;
  __asm__ volatile("fnstcw %0" : "=m"(control));
  return (control & 0xF00) == 0x300;
}

// `mantissa` loads number.mantissa into an x87 register, which keeps all of its bits.
template <class Real, class Mantissa>
inline void to_real(const decimal_real &number, Mantissa mantissa, Real &value) noexcept {
  const unsigned int power = number.exponent < 0 ? 0u - number.exponent : number.exponent;
  if (__builtin_expect(x87_is_default() && power < exact_powers * rounded_powers, 1)) {
    long_double_image x;
    x.value = mantissa();
    if (number.negative) x.value = -x.value;
    unsigned int slack = 0;
    if (power >= exact_powers) {
      slack = 8;
      const long double large = power_28[power / exact_powers], small = power_1[power % exact_powers];
      x.value = number.exponent < 0 ? x.value / small / large : x.value * small * large;
    } else if (number.exponent < 0) {
      x.value /= power_1[power];
    } else if (power != 0) {
      x.value *= power_1[power];
    }
    const bool normal = slack == 0 || is_normal((x.bits.sign_and_exponent & 0x7FFF) - 16383, Real());
    if (__builtin_expect(power == 0 || (normal && rounds_surely(x, slack, Real())), 1)) {
      value = static_cast<Real>(x.value);
      return;
    }
  }
  real_by_strtod(number, value);
}

template <class Real> inline void to_real(const decimal_real &number, Real &value) noexcept {
  to_real(
      number, [&number] { return static_cast<long double>(number.mantissa); }, value);
}

}  // namespace __zor

// Decimal digits to float, double and long double, rounded as the C library does it.
//
// Up to 19 digits and a power of ten up to 10^27 are exact in the x87's 64-bit mantissa, so their product or quotient
// is rounded once there. Rounding it again, to 53 or 24 bits, is only doubtful when it lies halfway between two
// results; larger powers carry an error of a few units in the last place, which makes a few more patterns doubtful.
// What is doubtful, denormal or longer goes to strtod, as digits and an exponent without a point: that text reads the
// same in each locale of the C library.
#include "real.h"

#include <stdio.h>
#include <stdlib.h>

namespace __zor {
namespace {

inline void parse(const char *text, float &value) { value = strtof(text, nullptr); }
inline void parse(const char *text, double &value) { value = strtod(text, nullptr); }
inline void parse(const char *text, long double &value) { value = strtold(text, nullptr); }

// What is far out of range stays so, and fits an int.
inline int clamp(long long exponent) {
  return exponent > 100000 ? 100000 : exponent < -100000 ? -100000 : int(exponent);
}

template <class Real> void parse_mantissa(unsigned long long mantissa, int exponent, bool negative, Real &value) {
  char text[48];
  snprintf(text, sizeof text, "%s%llue%d", negative ? "-" : "", mantissa, exponent);
  parse(text, value);
}

}  // namespace

PLX_HIDDEN PLX_REGPARM void real_by_strtod(const decimal_real &number, float &value) noexcept {
  parse_mantissa(number.mantissa, number.exponent, number.negative, value);
}
PLX_HIDDEN PLX_REGPARM void real_by_strtod(const decimal_real &number, double &value) noexcept {
  parse_mantissa(number.mantissa, number.exponent, number.negative, value);
}
PLX_HIDDEN PLX_REGPARM void real_by_strtod(const decimal_real &number, long double &value) noexcept {
  parse_mantissa(number.mantissa, number.exponent, number.negative, value);
}

template <class Real> void decimal_text::convert(Real &value) noexcept {
  const long long total = scale_ + (exponent_negative_ ? -exponent_ : exponent_);
  if (count_ <= 19) {
    decimal_real number = {0, clamp(total), negative_};
    for (int i = 1; i <= count_; ++i) number.mantissa = number.mantissa * 10 + static_cast<unsigned>(text_[i] - '0');
    to_real(number, value);
    return;
  }
  if (rest_) text_[++count_] = '1';
  snprintf(text_ + count_ + 1, 12, "e%d", clamp(total - rest_));
  text_[0] = '-';
  parse(negative_ ? text_ : text_ + 1, value);
}

void decimal_text::get(float &value) noexcept { convert(value); }
void decimal_text::get(double &value) noexcept { convert(value); }
void decimal_text::get(long double &value) noexcept { convert(value); }

}  // namespace __zor

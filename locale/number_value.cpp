// Decimal digits to float, double and long double, rounded as the C library does it.
//
// Up to 19 digits and a power of ten up to 10^27 are exact in the x87's 64-bit mantissa, so their product or quotient
// is rounded once there. Rounding it again, to 53 or 24 bits, is only doubtful when it lies halfway between two
// results; larger powers carry an error of a few units in the last place, which makes a few more patterns doubtful.
// What is doubtful, denormal or longer goes to strtod, as digits and an exponent without a point: that text reads the
// same in each locale of the C library.
#include "number_real.h"

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

const long double power_1[2 * small_powers + 1] = {
    1e-27L, 1e-26L, 1e-25L, 1e-24L, 1e-23L, 1e-22L, 1e-21L, 1e-20L, 1e-19L, 1e-18L, 1e-17L, 1e-16L, 1e-15L, 1e-14L,
    1e-13L, 1e-12L, 1e-11L, 1e-10L, 1e-9L,  1e-8L,  1e-7L,  1e-6L,  1e-5L,  1e-4L,  1e-3L,  1e-2L,  1e-1L,  1e0L,
    1e1L,   1e2L,   1e3L,   1e4L,   1e5L,   1e6L,   1e7L,   1e8L,   1e9L,   1e10L,  1e11L,  1e12L,  1e13L,  1e14L,
    1e15L,  1e16L,  1e17L,  1e18L,  1e19L,  1e20L,  1e21L,  1e22L,  1e23L,  1e24L,  1e25L,  1e26L,  1e27L};
const long double power_28[2 * large_powers + 1] = {
    1e-336L, 1e-308L, 1e-280L, 1e-252L, 1e-224L, 1e-196L, 1e-168L, 1e-140L, 1e-112L, 1e-84L, 1e-56L, 1e-28L, 1e0L,
    1e28L,   1e56L,   1e84L,   1e112L,  1e140L,  1e168L,  1e196L,  1e224L,  1e252L,  1e280L, 1e308L, 1e336L};

NUMBER_CALL void real_by_strtod(const decimal_real &number, float &value) noexcept {
  parse_mantissa(number.mantissa, number.exponent, number.negative, value);
}
NUMBER_CALL void real_by_strtod(const decimal_real &number, double &value) noexcept {
  parse_mantissa(number.mantissa, number.exponent, number.negative, value);
}
NUMBER_CALL void real_by_strtod(const decimal_real &number, long double &value) noexcept {
  parse_mantissa(number.mantissa, number.exponent, number.negative, value);
}

template <class Real> void decimal_text::convert(Real &value) noexcept {
  const long long total = scale_ + (exponent_negative_ ? -exponent_ : exponent_);
  if (count_ <= 19) {
    decimal_real number = {0, clamp(total), negative_};
    for (int i = 1; i <= count_; ++i)
      number.mantissa = number.mantissa * 10 + static_cast<unsigned int>(text_[i] - '0');
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

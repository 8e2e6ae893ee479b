// The fast path from double and long double to text: the processor's long double holds the value times a power of ten
// with 64 bits, and where its rounding to an integer is certain, that integer has the digits that are wanted.
//
//     |value| * 10^m = scaled, with an error     1234.5678 * 10^2 = 123456.78
//     rounded        = digits                    123457, unless a half is within the error
//
// "f" with precision p asks for m = p; "e" and "g" for as many digits as the precision says, so m follows from the
// value's decimal exponent. What is not certain is left to write_exact.cpp.

#include "write.h"
#include "powers.h"

namespace __zor {

namespace {

union a_double {
  double value;
  unsigned word[2];
};

// What is known of a value before it is scaled.
struct a_magnitude {
  long double value;  // not negative
  unsigned high;      // upper word of the nearest double
  bool is_short;      // at most 21 bits of mantissa: times 10^18 it is exact
  bool is_double;     // at most 53 bits: times 10^4 it is exact
};

inline long double as_float(unsigned long long value) {
  return static_cast<long double>(static_cast<long long>(value));
}

constexpr long double largest_scaled = 9e18L;

// Whether `scaled` is so near to a half that the true product may round the other way. Where the power is exact that
// is a half itself only: the product was rounded once, to nearest, which never carries it past a half, since that is
// a long double.
inline bool is_doubtful(long double scaled, long double whole, long double error) {
  return __builtin_expect(0.5L - __builtin_fabsl(scaled - whole) <= error, 0);
}

// Digits of `digits` as a number with `fraction` digits behind the point. Writes up to 8 characters more.
inline char *fraction_digits(char *at, unsigned value, unsigned fraction) {
  if (fraction <= 2) {
    two_digits(at, fraction == 2 ? value : value * 10);
  } else if (fraction <= 4) {
    four_digits(at, fraction == 4 ? value : value * 10);
  } else {
    char *from = at;
    if (fraction == 9) {
      const unsigned first = value / 100000000;
      *from++ = static_cast<char>('0' + first);
      value -= first * 100000000;
    } else {
      value *= small_power[8 - fraction].value;
    }
    eight_digits(from, value);
  }
  return at + fraction;
}

// The point is written only before a fraction.
char *pointed_digits(char *at, unsigned long long value, unsigned fraction) {
  unsigned high = static_cast<unsigned>(value >> 32), low = static_cast<unsigned>(value);
  if (fraction == 0) return long_digits(at, high, low);
  if (fraction >= small_powers) {
    const unsigned rest = take_eight_digits(high, low);
    at = pointed_digits(at, static_cast<unsigned long long>(high) << 32 | low, fraction - 8);
    eight_digits(at, rest);
    return at + 8;
  }
  const a_small_power &power = small_power[fraction];
  unsigned whole, part;
  if (high == 0) {
    whole =
        static_cast<unsigned>(static_cast<unsigned long long>(low >> power.before) * power.factor >> 32) >> power.after;
    part = low - whole * power.value;
    at = decimal_digits(at, whole);
  } else if (high < power.value) {
    whole = divide(high, low, power.value, part);
    at = decimal_digits(at, whole);
  } else {
    const unsigned top = high / power.value;
    whole = divide(high - top * power.value, low, power.value, part);
    at = long_digits(at, top, whole);
  }
  *at = '.';
  return fraction_digits(at + 1, part, fraction);
}

inline char *without_trailing_zeros(char *end) {
  while (end[-1] == '0') --end;
  return end[-1] == '.' ? end - 1 : end;
}

inline char *exponent_text(char *at, int exponent) {
  unsigned size = static_cast<unsigned>(exponent < 0 ? -exponent : exponent);
  at[0] = 'e';
  at[1] = exponent < 0 ? '-' : '+';
  at += 2;
  if (size >= 100) {
    const unsigned hundreds = size / 100;
    *at++ = static_cast<char>('0' + hundreds);
    size -= hundreds * 100;
  }
  two_digits(at, size);
  return at + 2;
}

inline char *fixed_text(char *at, unsigned flags, unsigned precision, const a_magnitude &number) {
  if (precision > 18) return nullptr;
  const long double scaled = number.value * near_power(precision);
  if (!(scaled < largest_scaled)) return nullptr;
  const unsigned long long digits = x87_rounded(scaled);
  const bool exact = precision == 0 || number.is_short || (number.is_double && precision <= 4);
  if (!exact && is_doubtful(scaled, as_float(digits), 0)) return nullptr;
  at = pointed_digits(at, digits, precision);
  if (precision == 0 && (flags & number_showpoint)) *at++ = '.';
  return at;
}

// An integer of up to 18 digits that is divided by 10^down: whether the quotient is `digits` and a half.
inline bool is_true_half(long double value, long double scaled, long double divisor) {
  const long double twice = scaled + scaled;
  return twice == as_float(x87_rounded(twice)) && twice * divisor == value + value;
}

// Scales to `count` digits, and says which power of ten the first of them stands for.
inline bool scaled_digits(const a_magnitude &number, int count, bool may_carry, unsigned long long &digits,
                          int &exponent) {
  const long double upper = near_power(count);
  exponent = decimal_exponent(number.high);
  for (;;) {
    const int up = count - 1 - exponent;
    const int distance = up < 0 ? -up : up;
    long double power, relative_error = 0;
    if (distance <= most_exact_power) {
      power = near_power(distance);
    } else {
      power = far_power(distance / power_step) * near_power(distance % power_step);
      relative_error = 0x1p-61L;  // three roundings, of 2^-64 each
    }
    const long double scaled = up < 0 ? number.value / power : number.value * power;
    digits = x87_rounded(scaled);
    const long double whole = as_float(digits);
    if (is_doubtful(scaled, whole, scaled * relative_error)) {
      const bool exact = up >= 0 ? up <= 18 && (number.is_short || (number.is_double && up <= 4))
                                 : exponent < 18 && is_true_half(number.value, scaled, power);
      if (!exact) return false;
    }
    if (__builtin_expect(whole >= upper, 0)) {
      // 99.97 became 100.
      if (!may_carry) return false;
      digits = x87_rounded(near_power(count - 1));
      ++exponent;
      return true;
    }
    if (__builtin_expect(scaled >= near_power(count - 1), 1)) return true;
    // The exponent was 1 too large: there is room for one more digit.
    --exponent;
  }
}

inline char *scientific_text(char *at, unsigned flags, unsigned precision, const a_magnitude &number) {
  unsigned long long digits;
  int exponent;
  if (precision > 17 || !scaled_digits(number, static_cast<int>(precision) + 1, true, digits, exponent)) return nullptr;
  at = pointed_digits(at, digits, precision);
  if (precision == 0 && (flags & number_showpoint)) *at++ = '.';
  return exponent_text(at, exponent);
}

inline char *general_text(char *at, unsigned flags, unsigned precision, const a_magnitude &number) {
  unsigned long long digits;
  int exponent;
  if (precision == 0) precision = 1;
  // The C library drops the zeros of "%#.3g" when 9.999e9 becomes 1.00e10; its text is what counts.
  const bool may_carry = (flags & number_showpoint) == 0;
  if (precision > 18 || !scaled_digits(number, static_cast<int>(precision), may_carry, digits, exponent))
    return nullptr;
  const bool is_fixed = exponent >= -4 && exponent < static_cast<int>(precision);
  const unsigned fraction = precision - 1 - static_cast<unsigned>(is_fixed ? exponent : 0);
  at = pointed_digits(at, digits, fraction);
  if (flags & number_showpoint) {
    if (fraction == 0) *at++ = '.';
  } else if (fraction != 0) {
    at = without_trailing_zeros(at);
  }
  return is_fixed ? at : exponent_text(at, exponent);
}

inline char *zero_text(char *at, unsigned flags, unsigned precision) {
  const unsigned style = flags & number_floatfield;
  if (precision > 18) return nullptr;
  if (style != number_fixed && style != number_scientific)
    precision = (flags & number_showpoint) == 0 || precision == 0 ? 0 : precision - 1;
  at = pointed_digits(at, 0, precision);
  if (precision == 0 && (flags & number_showpoint)) *at++ = '.';
  return style == number_scientific ? exponent_text(at, 0) : at;
}

inline char *magnitude_text(char *at, unsigned flags, unsigned precision, const a_magnitude &number) {
  const unsigned style = flags & number_floatfield;
  if (style == number_fixed) return fixed_text(at, flags, precision, number);
  if (number.value == 0) return zero_text(at, flags, precision);
  // Denormal values, infinities and what is no number.
  if (number.high < 0x00100000 || number.high >= 0x7FF00000) return nullptr;
  return style == number_scientific ? scientific_text(at, flags, precision, number)
                                    : general_text(at, flags, precision, number);
}

inline char *signed_text(char *at, unsigned flags, unsigned precision, bool negative, const a_magnitude &number) {
  if (!x87_is_default()) return nullptr;
  *at = '-';
  at += negative;
  if (__builtin_expect((flags & number_showpos) != 0, 0) && !negative) *at++ = '+';
  return magnitude_text(at, flags, precision, number);
}

}  // namespace

PLX_HIDDEN PLX_REGPARM char *fast_double_text(char *at, unsigned flags, unsigned precision, double value) noexcept {
  a_double bits;
  bits.value = value;
  const a_magnitude number = {__builtin_fabs(value), bits.word[1] & 0x7FFFFFFF, bits.word[0] == 0, true};
  return signed_text(at, flags, precision, bits.word[1] >> 31, number);
}

PLX_HIDDEN PLX_REGPARM char *fast_long_double_text(char *at, unsigned flags, unsigned precision,
                                                   long double value) noexcept {
  const long double size = __builtin_fabsl(value);
  // Outside of a double's range the exponent is not looked up, and the conversion would set the processor's flags.
  const bool is_near = size >= __DBL_MIN__ && size <= __DBL_MAX__;
  a_double near;
  near.value = is_near ? static_cast<double>(size) : 0;
  const a_magnitude number = {size, near.word[1], false, false};
  return signed_text(at, flags, precision, __builtin_signbit(value), number);
}

}  // namespace __zor

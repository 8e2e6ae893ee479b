// Reading numbers, without locales and streams: what the extractors' fast paths and num_get share.
//
//   fast_integer, fast_real   one number at the front of [p, end), in the plain locale: no grouping, point '.'
//   decimal_text                a floating text collected digit by digit, of any length, in constant space
//   integer_append, integer_fit the steps of integers: one digit more; sign and range
//
// Values are those that the C library's sscanf gives for the same text: rounded once, as the x87 control word says;
// infinite beyond the range and zero or denormal below it, which is no error. Nothing here throws or allocates, or
// looks at the C library's locale.
#pragma once

#include "../libC/i386/short_copy.h"
#include "digits.h"
#include "powers.h"

namespace __zor {

// value := value * 10 + digit; false, and nothing done, when that does not fit.
inline bool integer_append(unsigned long &value, unsigned digit) noexcept {
  const unsigned long most = 0xFFFFFFFFul / 10;
  if (value >= most && (value > most || digit > 0xFFFFFFFFul % 10)) return false;
  value = value * 10 + digit;
  return true;
}

// What an integer overload stores when the number does not fit.
inline unsigned long integer_limit(bool negative, bool is_signed, unsigned long max) noexcept {
  return is_signed ? (max >> 1) + (negative ? 1 : 0) : max;
}

// Turns the magnitude into the value of a type whose bits are `max`; false, with the limit, when it does not fit.
// Unsigned types take negative numbers down to minus half their range: "-1" is their largest value.
inline bool integer_fit(unsigned long &value, bool negative, bool is_signed, unsigned long max) noexcept {
  const unsigned long half = (max >> 1) + 1;
  if (value <= (negative ? half : is_signed ? max >> 1 : max)) {
    if (negative) value = (0 - value) & max;
    return true;
  }
  value = integer_limit(negative, is_signed, max);
  return false;
}

// Of four characters, the first in the lowest byte, bit 7 of the bytes that are no digits. Those above the lowest may
// be wrong.
inline unsigned other_than_digits(unsigned four) noexcept {
  return ((four - 0x30303030u) | (four + 0x46464646u) | four) & 0x80808080u;
}
// The number of four digits' values; for fewer, the lowest bytes are 0.
inline unsigned value_of_four(unsigned digits) noexcept {
  const unsigned pairs = (digits * 10 + (digits >> 8)) & 0x00FF00FF;
  return (pairs * (100u << 16 | 1)) >> 16;
}

// The digits at p, as fast_integer does.
[[gnu::always_inline]] inline const char *fast_decimal(const char *p, const char *end, unsigned long &value) noexcept {
  unsigned long sum = 0;
  const char *const begin = p;
  if (__builtin_expect(end - p >= 8, true)) {
    // Most numbers end in their first eight characters, and few branches depend on where.
    static const unsigned short powers[] = {1, 10, 100, 1000};
    unsigned four = words(p)->value, others = other_than_digits(four);
    if (others == 0) {
      sum = value_of_four(four - 0x30303030u);
      p += 4;
      four = words(p)->value;
      others = other_than_digits(four);
    }
    if (others != 0) {
      const unsigned n = static_cast<unsigned>(__builtin_ctz(others)) >> 3;
      value = sum * powers[n] + value_of_four((four - 0x30303030u) << 8 << (24 - 8 * n));
      p += n;
      return p == begin ? nullptr : p;
    }
    sum = sum * 10000 + value_of_four(four - 0x30303030u);
    p += 4;
  }
  for (; p != end; ++p) {
    const unsigned digit = static_cast<unsigned char>(*p) - static_cast<unsigned>('0');
    if (digit > 9) break;
    if (!integer_append(sum, digit)) return nullptr;
  }
  if (p == begin) return nullptr;
  value = sum;
  return p;
}

// The same for the other bases.
PLX_HIDDEN PLX_REGPARM const char *fast_based(const char *p, const char *end, unsigned long &value,
                                              unsigned flags) noexcept;

// Reads an integer of the type whose bits are `Max` from [p, end): sign, prefix and digits as the stream's flags say.
// Returns where it stopped. When that is `end`, the value holds only if the input ends there: a caller that may get
// more takes the general path instead, from p. Null, with `value` untouched: no plain number in range; the general path
// decides (white space after the sign, overflow, no digits).
template <bool Signed, unsigned long Max>
[[gnu::always_inline]] inline const char *fast_integer(const char *p, const char *end, unsigned flags,
                                                       unsigned long &value) noexcept {
  if (p == end) return nullptr;
  const bool negative = *p == '-';
  if (negative || *p == '+') ++p;
  unsigned long sum;
  const char *const stop =
      (flags & number_basefield) == number_dec ? fast_decimal(p, end, sum) : fast_based(p, end, sum, flags);
  if (!stop || !integer_fit(sum, negative, Signed, Max)) return nullptr;
  value = sum;
  return stop;
}

// The same for sign, digits, point, digits, exponent. Null, with `value` untouched, only when there is no digit
// directly after sign and point. An exponent letter without digits is taken and means nothing.
PLX_HIDDEN PLX_REGPARM const char *fast_real(const char *p, const char *end, float &value) noexcept;
PLX_HIDDEN PLX_REGPARM const char *fast_real(const char *p, const char *end, double &value) noexcept;
PLX_HIDDEN PLX_REGPARM const char *fast_real(const char *p, const char *end, long double &value) noexcept;

// A floating text while it is read: the caller tells the sign, the digits before and after the point, and the exponent.
//
// No value depends on more than 11,515 significant digits (a number halfway between two denormal long doubles has that
// many); of those beyond, only whether all are zero matters.
class decimal_text {
public:
  decimal_text() noexcept
      : negative_(false), any_(false), rest_(false), exponent_negative_(false), count_(0), scale_(0), exponent_(0) {}

  void negate() noexcept { negative_ = true; }
  void digit(unsigned digit) noexcept { take(digit, 0); }
  void fraction_digit(unsigned digit) noexcept { take(digit, 1); }
  void negate_exponent() noexcept { exponent_negative_ = true; }
  void exponent_digit(unsigned digit) noexcept {
    if (exponent_ < 1000000000000000ll) exponent_ = exponent_ * 10 + digit;
  }

  // Without any digit before the exponent there is no number.
  bool any_digit() const noexcept { return any_; }

  // Each may be called once, last.
  void get(float &value) noexcept;
  void get(double &value) noexcept;
  void get(long double &value) noexcept;

private:
  enum { most_digits = 11520 };

  void take(unsigned digit, int places) noexcept {
    any_ = true;
    if (count_ == 0 && digit == 0) {
      scale_ -= places;
    } else if (count_ < most_digits) {
      text_[++count_] = static_cast<char>('0' + digit);
      scale_ -= places;
    } else {
      rest_ |= digit != 0;
      scale_ += 1 - places;
    }
  }
  template <class Real> void convert(Real &value) noexcept;

  bool negative_, any_, rest_, exponent_negative_;
  int count_;           // digits in text_, after a place for the sign; the first of them is not 0
  long long scale_;     // the number is text_ * 10 ^ (scale_ +- exponent_)
  long long exponent_;  // stays below 10 ^ 16
  char text_[most_digits + 16];
};

}  // namespace __zor

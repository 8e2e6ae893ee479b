// The contiguous forms: numbers read straight from a stream's buffer.
#include "real.h"

namespace __zor {
namespace {

// Any length: collects the digits one by one.
template <class Real> __attribute__((__noinline__)) const char *long_real(const char *p, const char *end, Real &value) {
  decimal_text text;
  if (*p == '-') text.negate();
  if (*p == '-' || *p == '+') ++p;
  for (; p != end && digit_of(*p) <= 9; ++p) text.digit(digit_of(*p));
  if (p != end && *p == '.')
    for (++p; p != end && digit_of(*p) <= 9; ++p) text.fraction_digit(digit_of(*p));
  if (!text.any_digit()) return nullptr;
  if (p != end && (*p | 0x20) == 'e') {
    ++p;
    if (p != end && *p == '-') text.negate_exponent();
    if (p != end && (*p == '-' || *p == '+')) ++p;
    for (; p != end && digit_of(*p) <= 9; ++p) text.exponent_digit(digit_of(*p));
  }
  text.get(value);
  return p;
}

// Reads digits up to `stop` and adds them to the sum, modulo 2^32: one by one, or four in a step.
inline const char *add_digits(const char *p, const char *stop, unsigned &sum) {
  for (unsigned digit; p != stop && (digit = digit_of(*p)) <= 9; ++p) sum = sum * 10 + digit;
  return p;
}
inline const char *add_many_digits(const char *p, const char *stop, unsigned &sum) {
  while (stop - p >= 4) {
    unsigned four = words(p)->value;
    const unsigned high_halves = 0xF0F0F0F0, digits = 0x30303030;
    if ((four & high_halves) != digits || ((four + 0x06060606) & high_halves) != digits) break;
    four &= 0x0F0F0F0F;
    four = (four * 10 + (four >> 8)) & 0x00FF00FF;
    sum = sum * 10000 + ((four * 100 + (four >> 16)) & 0xFFFF);
    p += 4;
  }
  return add_digits(p, stop, sum);
}

// The mantissa: high * power + low.
struct two_words {
  unsigned high, low, power;

  // Of n digits, with a point among or before them, whose value modulo 2^32 is known. Zeros in front do not count.
  // False for more than 18.
  bool split(const char *p, unsigned n, unsigned sum) {
    for (; n != 0 && (*p == '0' || *p == '.'); ++p) n -= *p == '0';
    if (n > 18) return false;
    high = 0;
    low = sum;
    power = 1;
    if (n <= 9) return true;
    for (unsigned left = 9; left != 0; ++p) {
      const unsigned digit = digit_of(*p);
      if (digit > 9) continue;
      high = high * 10 + digit;
      --left;
    }
    power = small_power[n - 9].value;
    low = sum - high * power;
    return true;
  }
};

inline const char *up_to(const char *p, const char *end, int n) { return end - p > n ? p + n : end; }
inline bool at_digit(const char *p, const char *end) { return p != end && digit_of(*p) <= 9; }

template <class Real> inline const char *read_real(const char *const begin, const char *const end, Real &value) {
  const char *p = begin;
  if (p == end) return nullptr;
  decimal_real number;
  number.negative = *p == '-';
  if (number.negative || *p == '+') ++p;
  const char *const first = p;
  unsigned sum = 0;
  p = add_digits(p, end, sum);
  unsigned digits = p - first;
  int places = 0;
  two_words words = {0, 0, 1};
  bool whole = digits <= 9;  // words hold the mantissa
  if (p != end && *p == '.') {
    const char *const fraction = ++p;
    if (whole) {
      // Nine digits in one word, and nine in the other.
      p = add_many_digits(p, up_to(p, end, 9 - digits), sum);
      if (at_digit(p, end) && p - fraction == static_cast<int>(9 - digits)) {
        const char *const second = p;
        words.high = sum;
        words.low = 0;
        p = add_many_digits(p, up_to(p, end, 9), words.low);
        words.power = small_power[p - second].value;
        sum = sum * words.power + words.low;
        whole = !at_digit(p, end);
      }
    }
    if (!whole) p = add_digits(p, end, sum);
    places = p - fraction;
    digits += places;
  }
  if (digits == 0) return nullptr;
  int exponent = 0;
  if (p != end && (*p | 0x20) == 'e') {
    ++p;
    const bool negative = p != end && *p == '-';
    if (p != end && (*p == '-' || *p == '+')) ++p;
    const char *const letter = p;
    unsigned power = 0;
    p = add_digits(p, end, power);
    if (p - letter > 8) return long_real(begin, end, value);
    exponent = negative ? -static_cast<int>(power) : static_cast<int>(power);
  }
  number.exponent = exponent - places;
  if (digits <= 9) {
    number.mantissa = sum;
    to_real(
        number, [sum] { return static_cast<long double>(static_cast<int>(sum)); }, value);
    return p;
  }
  if (!whole && !words.split(first, digits, sum)) return long_real(begin, end, value);
  number.mantissa = static_cast<unsigned long long>(words.high) * words.power + words.low;
  to_real(
      number,
      [&words] {
        // Quicker than storing two words and loading them as one.
        return static_cast<long double>(static_cast<int>(words.high)) * static_cast<int>(words.power) +
               static_cast<int>(words.low);
      },
      value);
  return p;
}

}  // namespace

PLX_HIDDEN PLX_REGPARM const char *fast_real(const char *p, const char *end, float &value) noexcept {
  return read_real(p, end, value);
}
PLX_HIDDEN PLX_REGPARM const char *fast_real(const char *p, const char *end, double &value) noexcept {
  return read_real(p, end, value);
}
PLX_HIDDEN PLX_REGPARM const char *fast_real(const char *p, const char *end, long double &value) noexcept {
  return read_real(p, end, value);
}

PLX_HIDDEN PLX_REGPARM const char *fast_based(const char *p, const char *end, unsigned long &value,
                                              unsigned flags) noexcept {
  if (p == end) return nullptr;
  flags &= number_basefield;
  bool hex = flags == number_hex;
  const char *first = p;
  if (*p == '0') {
    ++p;
    if (flags != number_oct && p != end && (*p | 0x20) == 'x') {
      hex = true;
      first = ++p;
    }
  } else if (!hex && flags != number_oct) {
    return nullptr;  // the base stays unknown
  }
  const unsigned shift = hex ? 4 : 3;
  unsigned long sum = 0;
  for (; p != end; ++p) {
    const unsigned digit = hex_digit_of(*p);
    if (digit >> shift) break;
    if (sum >> (32 - shift)) return nullptr;
    sum = sum << shift | digit;
  }
  if (p == first) return nullptr;
  value = sum;
  return p;
}

}  // namespace __zor

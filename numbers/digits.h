// Digits: their values, and unsigned integers as text, two at a time and forwards: the text begins where the caller
// says, because that is where a stream's buffer has room. Called inline by the integer and the floating texts.
//
// Stores are of fixed sizes and may go beyond the digits returned: every function states the room it needs. Branches
// depend on the number of digits only coarsely, since a mispredicted one costs as much as all digits.
#pragma once

#include <string.h>

#include "flags.h"
#include "i386/x87.h"

namespace __zor {

// 10 and more for none.
inline unsigned digit_of(char c) { return static_cast<unsigned char>(c) - static_cast<unsigned>('0'); }

// The digit's value in base 16, or 16 for none. By table: branches on digits that may as well be letters are missed.
struct PLX_HIDDEN a_hex_table {
  unsigned char value[256];
};
extern PLX_HIDDEN const a_hex_table hex_digits;
inline unsigned hex_digit_of(char c) { return hex_digits.value[static_cast<unsigned char>(c)]; }

// For each number below 100 its two digits, and its text without leading zero (one or two characters used).
struct PLX_HIDDEN a_digit_table {
  char pair[200];
  char head[200];
};
extern PLX_HIDDEN const a_digit_table number_digits;

inline void two_digits(char *at, unsigned value) { memcpy(at, number_digits.pair + 2 * value, 2); }

// Below 10^4, with leading zeros. 5243 / 2^19 is near enough to 1 / 100.
inline void four_digits(char *at, unsigned value) {
  const unsigned high = value * 5243 >> 19;
  two_digits(at, high);
  two_digits(at + 2, value - high * 100);
}

// Below 10^8, with leading zeros.
inline void eight_digits(char *at, unsigned value) {
  const unsigned high = value / 10000;
  four_digits(at, high);
  four_digits(at + 4, value - high * 10000);
}

// Below 100, without leading zero. Writes 2 characters.
inline char *head_digits(char *at, unsigned value) {
  memcpy(at, number_digits.head + 2 * value, 2);
  return at + 1 + (value >= 10);
}

// Below 10^4, without leading zeros. Writes up to 4 characters.
inline char *short_digits(char *at, unsigned value) {
  if (value < 100) return head_digits(at, value);
  const unsigned high = value * 5243 >> 19;
  at = head_digits(at, high);
  two_digits(at, value - high * 100);
  return at + 2;
}

// Any value in decimal. Writes up to 10 characters.
inline char *decimal_digits(char *at, unsigned value) {
  if (value < 10000) return short_digits(at, value);
  if (value < 100000000) {
    const unsigned high = value / 10000;
    at = short_digits(at, high);
    four_digits(at, value - high * 10000);
    return at + 4;
  }
  const unsigned high = value / 100000000;
  at = head_digits(at, high);
  eight_digits(at, value - high * 100000000);
  return at + 8;
}

// The same of two words. Writes up to 20 characters.
PLX_HIDDEN PLX_REGPARM char *long_digits(char *at, unsigned high, unsigned low) noexcept;

// Divides high:low by 10^8 in place and returns the rest.
inline unsigned take_eight_digits(unsigned &high, unsigned &low) {
  unsigned rest;
  const unsigned top = high / 100000000;
  low = divide(high - top * 100000000, low, 100000000, rest);
  high = top;
  return rest;
}

}  // namespace __zor

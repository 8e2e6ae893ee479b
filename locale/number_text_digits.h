// Unsigned integers to digits, two at a time and forwards: the text begins where the caller says, because that is where
// a stream's buffer has room. Called inline by the integer and the floating texts.
//
// Stores are of fixed sizes and may go beyond the digits returned: every function states the room it needs. Branches
// depend on the number of digits only coarsely, since a mispredicted one costs as much as all digits.
#pragma once

#include <string.h>

#define PLX_NUMBER_HIDDEN __attribute__((__visibility__("hidden")))
#define PLX_NUMBER_CALL PLX_NUMBER_HIDDEN __attribute__((__regparm__(3)))

namespace __zor {

// For each number below 100 its two digits, and its text without leading zero (one or two characters used).
struct PLX_NUMBER_HIDDEN a_digit_table {
  char pair[200];
  char head[200];
};
extern PLX_NUMBER_HIDDEN const a_digit_table number_digits;

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

// Divides high:low by what is greater than high.
inline unsigned divide(unsigned high, unsigned low, unsigned divisor, unsigned &rest) {
  unsigned quotient;
  __asm__("divl %4" : "=a"(quotient), "=d"(rest) : "a"(low), "d"(high), "rm"(divisor) : "cc");
  return quotient;
}

}  // namespace __zor

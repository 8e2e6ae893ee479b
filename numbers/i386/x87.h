// The processor's part of numbers: the x87, whose registers hold 64 bits of mantissa, and a division of 64 bits by 32.
#pragma once

namespace __zor {

// All 64 bits of the mantissa are kept, and results are rounded to nearest: what a process starts with.
inline bool x87_is_default() noexcept {
  unsigned short control;
  __asm__ volatile("fnstcw %0" : "=m"(control));
  return (control & 0x0F00) == 0x0300;
}

// To an integer, as the control word says. Below 2^63 in size.
inline unsigned long long x87_rounded(long double value) noexcept {
  unsigned long long integer;
  __asm__("fistpll %0" : "=m"(integer) : "t"(value) : "st");
  return integer;
}

// The x87's own format.
union long_double_image {
  long double value;
  struct {
    unsigned low, high;
    unsigned short sign_and_exponent;
  } bits;
};

// Divides high:low by what is greater than high.
inline unsigned divide(unsigned high, unsigned low, unsigned divisor, unsigned &rest) noexcept {
  unsigned quotient;
  __asm__("divl %4" : "=a"(quotient), "=d"(rest) : "a"(low), "d"(high), "rm"(divisor) : "cc");
  return quotient;
}

}  // namespace __zor

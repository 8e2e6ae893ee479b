// Integers in octal and hexadecimal, and addresses.

#include "write.h"

namespace __zor {

namespace {

// Four hexadecimal digits of the upper half of a word, as characters in the order of memory.
inline unsigned hex_digits(unsigned value, unsigned letters) {
  unsigned x = value >> 16;
  x = (x >> 8 | x << 16) & 0x00FF00FF;
  x = (x >> 4 & 0x000F000F) | (x & 0x000F000F) << 8;
  const unsigned above_9 = (x + 0x06060606) >> 4 & 0x01010101;
  return x + 0x30303030 + above_9 * letters;
}

// Writes 8 characters.
inline char *hex_text(char *at, unsigned value, bool uppercase) {
  const unsigned count = value == 0 ? 1 : (35 - static_cast<unsigned>(__builtin_clz(value))) >> 2;
  const unsigned letters = uppercase ? 'A' - '9' - 1 : 'a' - '9' - 1;
  value <<= 32 - 4 * count;
  const unsigned first = hex_digits(value, letters), second = hex_digits(value << 16, letters);
  memcpy(at, &first, 4);
  memcpy(at + 4, &second, 4);
  return at + count;
}

inline char *octal_text(char *at, unsigned value) {
  const unsigned bits = value == 0 ? 1 : 32 - static_cast<unsigned>(__builtin_clz(value));
  char *const end = at + (bits + 2) / 3;
  for (char *digit = end; digit != at; value >>= 3) *--digit = static_cast<char>('0' + (value & 7));
  return end;
}

}  // namespace

PLX_HIDDEN PLX_REGPARM char *based_text(char *at, unsigned flags, unsigned long value) noexcept {
  const bool prefixed = (flags & number_showbase) && value != 0;
  if ((flags & number_basefield) == number_oct) {
    if (prefixed) *at++ = '0';
    return octal_text(at, static_cast<unsigned>(value));
  }
  const bool uppercase = (flags & number_uppercase) != 0;
  if (prefixed) {
    at[0] = '0';
    at[1] = uppercase ? 'X' : 'x';
    at += 2;
  }
  return hex_text(at, static_cast<unsigned>(value), uppercase);
}

PLX_HIDDEN PLX_REGPARM char *pointer_text(char *at, const void *value) noexcept {
  if (value == nullptr) {
    memcpy(at, "(nil)", 5);
    return at + 5;
  }
  at[0] = '0';
  at[1] = 'x';
  return hex_text(at + 2, static_cast<unsigned>(reinterpret_cast<__UINTPTR_TYPE__>(value)), false);
}

}  // namespace __zor

// The values of characters as digits.
#pragma once

namespace __zor {

// 10 and more for none.
inline unsigned int digit_of(char c) { return static_cast<unsigned char>(c) - static_cast<unsigned int>('0'); }

// The digit's value, or 16 for none.
inline unsigned int hex_digit_of(char c) {
  const unsigned int digit = digit_of(c);
  if (digit <= 9) return digit;
  const unsigned int letter = (static_cast<unsigned char>(c) | 0x20u) - static_cast<unsigned int>('a');
  return letter < 6 ? letter + 10 : 16;
}

}  // namespace __zor

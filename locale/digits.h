// The values of characters as digits.
#pragma once

namespace __zor {

// 10 and more for none.
inline unsigned int digit_of(char c) { return static_cast<unsigned char>(c) - static_cast<unsigned int>('0'); }

// The digit's value in base 16, or 16 for none. By table: branches on digits that may as well be letters are missed.
extern const unsigned char hex_digits[256];
inline unsigned int hex_digit_of(char c) { return hex_digits[static_cast<unsigned char>(c)]; }

}  // namespace __zor

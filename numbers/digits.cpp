// The tables of digits, made by the compiler, and the digits of two words.

#include "digits.h"

namespace __zor {

namespace {

constexpr a_digit_table make_digits() {
  a_digit_table table{};
  for (int value = 0; value < 100; ++value) {
    const char tens = static_cast<char>('0' + value / 10);
    const char ones = static_cast<char>('0' + value % 10);
    table.pair[2 * value] = tens;
    table.pair[2 * value + 1] = ones;
    table.head[2 * value] = value < 10 ? ones : tens;
    table.head[2 * value + 1] = ones;
  }
  return table;
}

constexpr a_hex_table make_hex_digits() {
  a_hex_table table{};
  for (int c = 0; c < 256; ++c) {
    const int letter = c | 0x20;
    const bool is_letter = 'a' <= letter && letter <= 'f';
    table.value[c] = static_cast<unsigned char>('0' <= c && c <= '9' ? c - '0' : is_letter ? letter - 'a' + 10 : 16);
  }
  return table;
}

constexpr a_digit_table digits_made = make_digits();
constexpr a_hex_table hex_digits_made = make_hex_digits();

}  // namespace

const a_digit_table number_digits = digits_made;
const a_hex_table hex_digits = hex_digits_made;

PLX_HIDDEN PLX_REGPARM char *long_digits(char *at, unsigned high, unsigned low) noexcept {
  if (high == 0) return decimal_digits(at, low);
  const unsigned rest = take_eight_digits(high, low);
  at = long_digits(at, high, low);
  eight_digits(at, rest);
  return at + 8;
}

}  // namespace __zor

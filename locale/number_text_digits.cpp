// The table of digit pairs, made by the compiler.

#include "number_text_digits.h"

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

}  // namespace

constexpr a_digit_table digits_made = make_digits();
const a_digit_table number_digits = digits_made;

}  // namespace __zor

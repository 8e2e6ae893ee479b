// Floating values and pointers straight into a stream's buffer (num_put_plain.h).

#include "num_put_plain.h"

namespace __zor {

namespace {

// An exponent is made upper case only where a decimal point stands before it.
inline void raise_exponent(char *first, char *last) {
  char *const point = static_cast<char *>(memchr(first, '.', static_cast<size_t>(last - first)));
  if (!point) return;
  char *const exponent = static_cast<char *>(memchr(point, 'e', static_cast<size_t>(last - point)));
  if (exponent) *exponent = 'E';
}

template <class Text, class Float>
inline char *plain_float(char *at, const std::ios_base &str, char fill, Float value, Text text) {
  const unsigned flags = static_cast<unsigned>(str.flags());
  const a_number_precision precision(flags, str.precision());
  char *const end = text(at, flags, precision.digits, value);
  if (!end) return nullptr;
  if (__builtin_expect((flags & number_uppercase) != 0, 0)) raise_exponent(at, end);
  return pad_float(at, end, flags, str.width(), fill);
}

}  // namespace

char *plain_double(char *at, const std::ios_base &str, char fill, double value) noexcept {
  return plain_float(at, str, fill, value, quick_double_text);
}

char *plain_long_double(char *at, const std::ios_base &str, char fill, long double value) noexcept {
  return plain_float(at, str, fill, value, quick_long_double_text);
}

// The fill is on the other side.
char *plain_pointer(char *at, const std::ios_base &str, char fill, const void *value) noexcept {
  char *const end = pointer_text(at, value);
  const int pad = str.width() - static_cast<int>(end - at);
  const int adjust = str.flags() & std::ios_base::adjustfield;
  if (pad <= 0 || (adjust != std::ios_base::left && adjust != std::ios_base::right)) return end;
  const unsigned flags = adjust == std::ios_base::left ? number_right : number_left;
  return pad_number(at, end, 0, flags, str.width(), fill);
}

}  // namespace __zor

// Floating values to text in every case: the quick way, or the C library's printf with its decimal point, which belongs
// to the process's locale and may be several bytes, made the one character '.'.

#include <locale.h>
#include <stdio.h>

#include "number_text.h"

namespace __zor {

namespace {

char *with_plain_point(char *first, char *end) {
  char *point = first;
  if (sign_prefix(point)) ++point;
  while (*point >= '0' && *point <= '9') ++point;
  const char *const local = localeconv()->decimal_point;
  const size_t length = strlen(local);
  if (length == 0 || point == end || memcmp(point, local, length) != 0) return end;
  *point = '.';
  if (length == 1) return end;
  memmove(point + 1, point + length, static_cast<size_t>(end - point) - length);
  return end - length + 1;
}

// "%+#.*Le" at its longest. The flags give the conversion.
void make_format(char *format, unsigned flags, bool is_long) {
  const unsigned style = flags & number_floatfield;
  *format++ = '%';
  if (flags & number_showpos) *format++ = '+';
  if (flags & number_showpoint) *format++ = '#';
  *format++ = '.';
  *format++ = '*';
  if (is_long) *format++ = 'L';
  *format++ = style == number_fixed ? 'f' : style == number_scientific ? 'e' : 'g';
  *format = '\0';
}

template <class Float>
char *printed_text(char *at, unsigned room, unsigned flags, unsigned precision, Float value, bool is_long) {
  char format[8];
  make_format(format, flags, is_long);
  const int length = snprintf(at, room, format, static_cast<int>(precision), value);
  return length <= 0 ? at : with_plain_point(at, at + length);
}

}  // namespace

__attribute__((__regparm__(3))) char *double_text(char *at, unsigned flags, unsigned precision, double value) noexcept {
  char *const end = quick_double_text(at, flags, precision, value);
  return end ? end : printed_text(at, double_text_room, flags, precision, value, false);
}

__attribute__((__regparm__(3))) char *long_double_text(char *at, unsigned flags, unsigned precision,
                                                       long double value) noexcept {
  char *const end = quick_long_double_text(at, flags, precision, value);
  return end ? end : printed_text(at, long_double_text_room, flags, precision, value, true);
}

}  // namespace __zor

// Floating values to text in every case: the fast path, or the C library's printf with its decimal point, which belongs
// to the process's locale and may be several bytes, made the one character '.'.

#include <locale.h>
#include <stdio.h>

#include "write.h"

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

template <class Float>
char *printed_text(char *at, unsigned room, unsigned flags, unsigned precision, Float value, char modifier) {
  char format[8];
  float_format(format, modifier, flags);
  const int length = snprintf(at, room, format, static_cast<int>(precision), value);
  return length <= 0 ? at : with_plain_point(at, at + length);
}

}  // namespace

PLX_HIDDEN PLX_REGPARM char *double_text(char *at, unsigned flags, unsigned precision, double value) noexcept {
  char *const end = fast_double_text(at, flags, precision, value);
  return end ? end : printed_text(at, double_text_room, flags, precision, value, '\0');
}

PLX_HIDDEN PLX_REGPARM char *long_double_text(char *at, unsigned flags, unsigned precision,
                                              long double value) noexcept {
  char *const end = fast_long_double_text(at, flags, precision, value);
  return end ? end : printed_text(at, long_double_text_room, flags, precision, value, 'L');
}

}  // namespace __zor

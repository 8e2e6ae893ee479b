// Writing numbers, without locales and streams: the text that the C library's printf gives for the format that a
// stream's flags stand for, in the "C" locale. num_put and the streams' own fast paths call these functions.
//
// All write forwards from `at` and return the end; no null character follows. Stores may go beyond the end, within the
// room that each function asks for. None of them allocates, throws, or looks at the process's locale.
//
//     integer_text   "%ld" "%+ld" "%#lx" "%lo" ...       room integer_text_room
//     pointer_text   "%p"                                room integer_text_room
//     double_text    "%.*f" "%+.*e" "%#.*g" ...          room double_text_room, or fast_text_room if it may fail
//     pad_integer, pad_float   width and fill round such a text
#pragma once

#include "digits.h"

namespace __zor {

enum a_number_room : unsigned {
  integer_text_room = 16,
  fast_text_room = 48,
  double_text_room = 512,        // sign, 309 digits, a point of several bytes, 127 digits
  long_double_text_room = 5120,  // the same with 4933 digits
  pad_overrun = 16,
  number_precision_limit = 127  // the longest fraction asked for; callers add zeros for the rest
};

// Octal, if the base field is exactly `oct`, or hexadecimal: a prefix for `showbase` unless the value is 0.
PLX_HIDDEN PLX_REGPARM char *based_text(char *at, unsigned flags, unsigned long value) noexcept;

// Decimal with a sign where there is one, unless the base field is exactly `oct` or `hex`.
inline char *integer_text(char *at, unsigned flags, long value) {
  if (__builtin_expect(number_is_based(flags), 0)) return based_text(at, flags, static_cast<unsigned long>(value));
  const unsigned sign = static_cast<unsigned>(value >> 31);
  *at = '-';
  at -= static_cast<int>(sign);
  if (__builtin_expect((flags & number_showpos) != 0, 0) && value >= 0) *at++ = '+';
  return decimal_digits(at, (static_cast<unsigned>(value) ^ sign) - sign);
}

inline char *integer_text(char *at, unsigned flags, unsigned long value) {
  if (__builtin_expect(number_is_based(flags), 0)) return based_text(at, flags, value);
  return decimal_digits(at, static_cast<unsigned>(value));
}

// "(nil)", or the address in hexadecimal.
PLX_HIDDEN PLX_REGPARM char *pointer_text(char *at, const void *value) noexcept;

// Floating values: `fixed` alone gives "f", `scientific` alone "e", anything else "g"; `showpos` "+", `showpoint` "#";
// `uppercase` has no say. The precision is 0 to 127. Rounding follows the processor's mode, as in the C library.
PLX_HIDDEN PLX_REGPARM char *double_text(char *at, unsigned flags, unsigned precision, double value) noexcept;
PLX_HIDDEN PLX_REGPARM char *long_double_text(char *at, unsigned flags, unsigned precision, long double value) noexcept;

// The same text, or null where the fast path cannot be certain: special values, more digits than the
// processor's registers hold, halves within the error of the calculation, unusual rounding modes.
PLX_HIDDEN PLX_REGPARM char *fast_double_text(char *at, unsigned flags, unsigned precision, double value) noexcept;
PLX_HIDDEN PLX_REGPARM char *fast_long_double_text(char *at, unsigned flags, unsigned precision,
                                                   long double value) noexcept;

// How many characters of a text `internal` keeps in front of the fill: the sign; for integers also the base.
inline unsigned sign_prefix(const char *text) { return *text == '-' || *text == '+'; }
inline unsigned integer_prefix(const char *text, unsigned length) {
  if (sign_prefix(text)) return 1;
  if (*text != '0' || length < 2) return 0;
  return (text[1] | 0x20) == 'x' ? 2 : 1;
}

// Widens the text [first, last) to `width` characters in place and returns its end: fill before it, behind it if the
// adjustment is exactly `left`, and behind the prefix if it is exactly `internal`. Needs room for `width` + pad_overrun
// characters at `first`.
PLX_HIDDEN PLX_REGPARM char *pad_number(char *first, char *last, unsigned prefix, unsigned flags, int width,
                                        char fill) noexcept;

inline char *pad_integer(char *first, char *last, unsigned flags, int width, char fill) {
  if (width <= last - first) return last;
  unsigned prefix = 0;
  if (__builtin_expect((flags & number_adjustfield) == number_internal, 0))
    prefix = integer_prefix(first, static_cast<unsigned>(last - first));
  return pad_number(first, last, prefix, flags, width, fill);
}
inline char *pad_float(char *first, char *last, unsigned flags, int width, char fill) {
  if (width <= last - first) return last;
  return pad_number(first, last, sign_prefix(first), flags, width, fill);
}

}  // namespace __zor

// Numbers straight into a stream's buffer: all that num_put does for a locale whose punctuation is that of the "C"
// locale, with width and fill, in the caller's room. The inserters' quick paths call these; num_put shares the parts.
//
// The caller has seen that the locale's facets are the library's own (_quick_num_put), that there is room for
// plain_number_room(width) characters at `at`, and sets the width to 0 afterwards, if not for a bool.
#pragma once

#include <plx/ios_base.h>

#include "number_text.h"

namespace __zor {

inline bool is_plain_number_locale(const std::ios_base &str) {
  return (str.getloc()._get_imp()->_get_quick() & std::locale::imp::_quick_num_put) != 0;
}

inline int plain_number_room(int width) {
  return width > static_cast<int>(quick_text_room) ? width : static_cast<int>(quick_text_room);
}

// The digits to ask for, and the zeros that follow them.
struct a_number_precision {
  a_number_precision(unsigned flags, int wanted) : digits(6), zeros(0) {
    const int least = flags & number_fixed ? 0 : 1;
    if (wanted < least) return;
    digits = static_cast<unsigned>(wanted);
    if (digits <= number_precision_limit) return;
    zeros = digits - number_precision_limit;
    digits = number_precision_limit;
  }
  unsigned digits, zeros;
};

template <class Integer> inline char *plain_integer(char *at, unsigned flags, int width, char fill, Integer value) {
  char *const end = integer_text(at, flags, value);
  return pad_integer(at, end, flags, width, fill);
}

// Null when the text takes the long way; nothing that counts has been written then.
PLX_NUMBER_CALL char *plain_double(char *at, const std::ios_base &str, char fill, double value) noexcept;
PLX_NUMBER_CALL char *plain_long_double(char *at, const std::ios_base &str, char fill, long double value) noexcept;
PLX_NUMBER_CALL char *plain_pointer(char *at, const std::ios_base &str, char fill, const void *value) noexcept;

inline char *plain_bool(char *at, unsigned flags, bool value) {
  if (!(flags & std::ios_base::boolalpha)) {
    *at = static_cast<char>('0' + value);
    return at + 1;
  }
  memcpy(at, value ? "true" : "fals", 4);
  at[4] = 'e';
  return at + 5 - value;
}

}  // namespace __zor

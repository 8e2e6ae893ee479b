// What the two files of num_put's core ask of a stream's locale.
#pragma once

#include <plx/streambuf/ios_base.h>

namespace __zor {

// Whether its numbers are punctuated as in the "C" locale, by facets of the library's own.
inline bool is_plain_number_locale(const std::ios_base &str) {
  return (str.getloc()._get_imp()->_get_quick() & std::locale::imp::_quick_num_put) != 0;
}

inline bool is_plain_ctype_locale(const std::locale &loc) {
  return (loc._get_imp()->_get_quick() & std::locale::imp::_quick_ctype) != 0;
}

}  // namespace __zor

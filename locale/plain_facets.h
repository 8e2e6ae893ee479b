// Which facets of a locale are the library's own, unchanged, so that their work can be done without asking them.
// locale/quick.cpp finds it out whenever a locale changes; its bits are looked at here, and in
// <plx/iostream/ostream.h>.
#pragma once

#include <plx/streambuf/ios_base.h>

namespace __zor {

inline bool has_plain(const std::locale &loc, std::locale::imp::_quick facets) {
  return (loc._get_imp()->_get_quick() & facets) != 0;
}

// Characters are classified by the classic table, and stay what they are.
inline bool has_plain_ctype(const std::locale &loc) { return has_plain(loc, std::locale::imp::_quick_ctype); }
inline bool has_plain_codecvt(const std::locale &loc) { return has_plain(loc, std::locale::imp::_quick_codecvt); }
// Numbers are written, and read, as in the "C" locale.
inline bool has_plain_num_put(const std::locale &loc) { return has_plain(loc, std::locale::imp::_quick_num_put); }
inline bool has_plain_num_get(const std::locale &loc) { return has_plain(loc, std::locale::imp::_quick_num_get); }

}  // namespace __zor

// The library's way into the fields of ios_base: what facets and streams read of one, without the copy of a locale.
#pragma once

#include <plx/streambuf/ios_base.h>

namespace __zor {

struct _ios_base_access {
  static std::ios_base::fmtflags flags(const std::ios_base &s) { return s._flags_; }
  static std::streamsize &width(std::ios_base &s) { return s._width_; }
  static const std::locale &loc(const std::ios_base &s) { return s._loc_; }
};

}  // namespace __zor

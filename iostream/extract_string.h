// Strings as destinations of input.
#pragma once

#include <plx/string/basic_string.h>

#include "../libC/eh_tools.h"

namespace __zor {

// The string is one pointer.
inline b_str_ref *&representation_of(std::string &text) { return reinterpret_cast<b_str_ref *&>(text); }

// n more characters fit without a new block: appending them cannot throw.
inline bool has_place(std::string &text, unsigned int n) {
  const b_str_ref *const rep = representation_of(text);
  return _string_is_private(rep) && n < rep->capacity && rep->length < rep->capacity - n;
}

}  // namespace __zor

// The facets that the library's own locales hold, category by category: what a named locale begins with, and what
// combining locales carries over.
#pragma once

#include <plx/locale_core.h>

namespace __zor {

// New facets of the given categories. `name` is for the punctuation facets; the C library is switched to it.
void install_standard_facets(std::locale::imp &table, const char *name, int categories);

// Into `to`, what `from` has of the given categories.
void carry_standard_facets(std::locale &to, std::locale::imp *from, int categories);

}  // namespace __zor

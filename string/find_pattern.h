// Finding a pattern of two characters or more in a text.
#pragma once

#include "block_pool.h"

namespace __zor {

// The first place in [text, end) where the n characters of `pattern` stand, or null. 2 <= n <= end - text.
const char *find_pattern(const char *text, const char *end, const char *pattern, unsigned n);

// Looks at 16 places at once for the first and the last character. Where these meet too often without a match, it gives
// up: then `text` is where the search must go on, and the result is null. Otherwise `text` is null after the search.
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM const char *find_pattern_sse2(const char *&text, const char *end,
                                                                  const char *pattern, unsigned n);

}  // namespace __zor

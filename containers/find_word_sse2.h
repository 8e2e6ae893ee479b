// The loop of _find_word for processors with SSE2.
#pragma once

#include <plx/base/config.h>

namespace __zor {

// Looks at whole steps of four words: where the word is, or where the rest of the range begins.
PLX_HIDDEN PLX_REGPARM const unsigned *find_word_sse2(const unsigned *first, const unsigned *last, unsigned word);

}  // namespace __zor

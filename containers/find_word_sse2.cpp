// The loop of _find_word for processors with SSE2: sixteen words a step while there are that many.

#include "find_word_sse2.h"

#include <emmintrin.h>

#include "../libC/i386/processor.h"

namespace __zor {

namespace {

// A bit for each byte of four words, set where the word is equal.
PLX_SSE2 inline __m128i matches(const unsigned *at, __m128i wanted) {
  return _mm_cmpeq_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i *>(at)), wanted);
}

}  // namespace

PLX_SSE2 PLX_REGPARM const unsigned *find_word_sse2(const unsigned *first, const unsigned *last, unsigned word) {
  const __m128i wanted = _mm_set1_epi32(static_cast<int>(word));
  for (; last - first >= 16; first += 16) {
    const __m128i a = matches(first, wanted), b = matches(first + 4, wanted);
    const __m128i c = matches(first + 8, wanted), d = matches(first + 12, wanted);
    const __m128i all = _mm_packs_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, d));
    const int mask = _mm_movemask_epi8(all);
    if (mask != 0) return first + __builtin_ctz(static_cast<unsigned>(mask));
  }
  for (; last - first >= 4; first += 4) {
    const int mask = _mm_movemask_epi8(matches(first, wanted));
    if (mask != 0) return first + __builtin_ctz(static_cast<unsigned>(mask)) / 4;
  }
  return first;
}

}  // namespace __zor

// The middle gear of find_pattern, for processors with SSE2.

#include <emmintrin.h>
#include <string.h>

#include "../libC/i386/processor.h"
#include "find_pattern.h"

namespace __zor {

namespace {

PLX_SSE2 inline __m128i load(const char *at) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(at)); }

}  // namespace

PLX_SSE2 const char *find_pattern_sse2(const char *&text, const char *end, const char *pattern, unsigned n) {
  const __m128i first = _mm_set1_epi8(pattern[0]);
  const __m128i last = _mm_set1_epi8(pattern[n - 1]);
  const char *const begin = text;
  const char *at = text;
  unsigned compared = 0;  // characters, in vain

  // The last character of 16 places is read, so they end n - 1 before the end.
  for (const char *const stop = end - n; at + 15 <= stop; at += 16) {
    const __m128i met = _mm_and_si128(_mm_cmpeq_epi8(load(at), first), _mm_cmpeq_epi8(load(at + n - 1), last));
    for (unsigned places = static_cast<unsigned>(_mm_movemask_epi8(met)); places != 0; places &= places - 1) {
      const char *place = at + __builtin_ctz(places);
      if (place[1] != pattern[1]) continue;
      if (memcmp(place + 1, pattern + 1, n - 1) == 0) {
        text = nullptr;
        return place;
      }
      compared += n;
    }
    // Beyond the first 16 KB of comparisons, four characters may be compared for each of progress.
    if (__builtin_expect(compared / 4 > 4096 + static_cast<unsigned>(at - begin), false)) {
      text = at + 16;
      return nullptr;
    }
  }
  text = nullptr;
  for (; at + n <= end; ++at)
    if (*at == *pattern && memcmp(at, pattern, n) == 0) return at;
  return nullptr;
}

}  // namespace __zor

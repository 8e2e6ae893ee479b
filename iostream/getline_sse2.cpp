// The loop of getline for processors with SSE2: sixteen characters a step, searched and copied at once. Nothing is
// written behind the delimiter.

#include "getline_sse2.h"

#include <emmintrin.h>

#define SSE2 __attribute__((__target__("sse2")))

namespace __zor {

namespace {

SSE2 inline __m128i load(const char *at) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(at)); }
SSE2 inline void store(char *at, __m128i block) { _mm_storeu_si128(reinterpret_cast<__m128i *>(at), block); }

struct bytes_8 {
  unsigned int low, high;
} __attribute__((__packed__, __may_alias__));
struct bytes_4 {
  unsigned int value;
} __attribute__((__packed__, __may_alias__));
template <class T> inline void copy_both_ends(char *to, const char *from, unsigned int n) {
  const T first = *reinterpret_cast<const T *>(from), last = *reinterpret_cast<const T *>(from + n - sizeof(T));
  *reinterpret_cast<T *>(to) = first;
  *reinterpret_cast<T *>(to + n - sizeof(T)) = last;
}

// Fewer than 16.
inline void copy_few(char *to, const char *from, unsigned int n) {
  if (n >= 8) return copy_both_ends<bytes_8>(to, from, n);
  if (n >= 4) return copy_both_ends<bytes_4>(to, from, n);
  for (; n != 0; --n) *to++ = *from++;
}

}  // namespace

SSE2 __attribute__((__regparm__(3))) const char *copy_line_sse2(char *to, const char *from, unsigned int n,
                                                                char delim) {
  const __m128i wanted = _mm_set1_epi8(delim);
  unsigned int i = 0;
  for (; n - i >= 16; i += 16) {
    const __m128i block = load(from + i);
    const unsigned int mask = static_cast<unsigned int>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, wanted)));
    if (mask != 0) {
      const unsigned int end = i + static_cast<unsigned int>(__builtin_ctz(mask));
      if (end >= 16)
        store(to + end - 16, load(from + end - 16));
      else
        copy_few(to, from, end);
      return from + end;
    }
    store(to + i, block);
  }
  for (; i != n; ++i) {
    if (from[i] == delim) return from + i;
    to[i] = from[i];
  }
  return nullptr;
}

}  // namespace __zor

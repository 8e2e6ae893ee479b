// The word loops of bitset for processors with SSE2 and popcnt.

#include "bitset_sse2.h"

#include <emmintrin.h>

#include "../libC/i386/processor.h"

namespace __zor {

namespace {

PLX_SSE2 inline __m128i load(const unsigned long *at) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(at)); }
PLX_SSE2 inline void store(unsigned long *at, __m128i x) { _mm_storeu_si128(reinterpret_cast<__m128i *>(at), x); }

enum operation { op_and, op_or, op_xor };

template <operation op> PLX_SSE2 inline __m128i combined(const unsigned long *a, const unsigned long *b) {
  const __m128i x = load(a), y = load(b);
  return op == op_and ? _mm_and_si128(x, y) : op == op_or ? _mm_or_si128(x, y) : _mm_xor_si128(x, y);
}

template <operation op>
PLX_SSE2 inline unsigned combine(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) {
  unsigned i = 0;
  for (; i + 16 <= n; i += 16) {
    const __m128i r0 = combined<op>(a + i, b + i), r1 = combined<op>(a + i + 4, b + i + 4);
    const __m128i r2 = combined<op>(a + i + 8, b + i + 8), r3 = combined<op>(a + i + 12, b + i + 12);
    store(dst + i, r0);
    store(dst + i + 4, r1);
    store(dst + i + 8, r2);
    store(dst + i + 12, r3);
  }
  for (; i + 4 <= n; i += 4) store(dst + i, combined<op>(a + i, b + i));
  return i;
}

}  // namespace

PLX_SSE2 unsigned vector_and_sse2(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) {
  return combine<op_and>(dst, a, b, n);
}
PLX_SSE2 unsigned vector_or_sse2(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) {
  return combine<op_or>(dst, a, b, n);
}
PLX_SSE2 unsigned vector_xor_sse2(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) {
  return combine<op_xor>(dst, a, b, n);
}

PLX_SSE2 unsigned vector_not_sse2(unsigned long *dst, const unsigned long *src, unsigned n) {
  const __m128i ones = _mm_set1_epi32(-1);
  unsigned i = 0;
  for (; i + 4 <= n; i += 4) store(dst + i, _mm_xor_si128(load(src + i), ones));
  return i;
}

PLX_SSE2 unsigned shift_right_sse2(unsigned long *dst, const unsigned long *src, unsigned n, unsigned bits) {
  const __m128i by = _mm_cvtsi32_si128(static_cast<int>(bits));
  const __m128i rest = _mm_cvtsi32_si128(static_cast<int>(32 - bits));
  unsigned i = 0;
  for (; i + 4 <= n; i += 4)
    store(dst + i, _mm_or_si128(_mm_srl_epi32(load(src + i), by), _mm_srl_epi32(load(src + i + 1), rest)));
  return i;
}

PLX_SSE2 unsigned shift_left_sse2(unsigned long *dst, const unsigned long *src, unsigned n, unsigned bits) {
  const __m128i by = _mm_cvtsi32_si128(static_cast<int>(bits));
  const __m128i rest = _mm_cvtsi32_si128(static_cast<int>(32 - bits));
  unsigned i = n;
  for (; i >= 4; i -= 4) {
    const unsigned long *from = src + i - 4;
    store(dst + i - 4, _mm_or_si128(_mm_sll_epi32(load(from), by), _mm_srl_epi32(load(from - 1), rest)));
  }
  return n - i;
}

PLX_SSE2 unsigned any_sse2(const unsigned long *w, unsigned n, bool &found) {
  const __m128i zero = _mm_setzero_si128();
  unsigned i = 0;
  for (; i + 16 <= n; i += 16) {
    const __m128i low = _mm_or_si128(load(w + i), load(w + i + 4));
    const __m128i all = _mm_or_si128(low, _mm_or_si128(load(w + i + 8), load(w + i + 12)));
    if (_mm_movemask_epi8(_mm_cmpeq_epi8(all, zero)) != 0xFFFF) {
      found = true;
      return i;
    }
  }
  found = false;
  return i;
}

__attribute__((__target__("popcnt"))) unsigned count_popcnt(const unsigned long *w, unsigned n) {
  // Two sums: an addition need not wait for the one before.
  unsigned even = 0, odd = 0, i = 0;
  for (; i + 4 <= n; i += 4) {
    even += static_cast<unsigned>(__builtin_popcountl(w[i]) + __builtin_popcountl(w[i + 2]));
    odd += static_cast<unsigned>(__builtin_popcountl(w[i + 1]) + __builtin_popcountl(w[i + 3]));
  }
  for (; i < n; ++i) even += static_cast<unsigned>(__builtin_popcountl(w[i]));
  return even + odd;
}

}  // namespace __zor

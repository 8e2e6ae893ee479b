// The word operations under bitset, shared by all sizes of sets that are too long for inline code. They check nothing:
// a shift must be less than 32 * n.

#include <plx/containers/bitset_words.h>

#include <string.h>

#include "../libC/i386/processor.h"
#include "bitset_sse2.h"

namespace __zor {

namespace {

constexpr unsigned word_bytes = sizeof(unsigned long);

// From this many words on, the call of the other form is worth it.
constexpr unsigned sse2_words = 8;
bool by_sse2(unsigned n) { return n >= sse2_words && processor_has(processor_sse2); }

}  // namespace

void set(unsigned long *w, unsigned n, unsigned long last_mask) PLX_NOTHROW {
  const unsigned top = n > 1 ? n - 1 : 0;
  memset(w, 0xFF, top * word_bytes);
  w[top] = last_mask;
}

void reset(unsigned long *w, unsigned n) PLX_NOTHROW { memset(w, 0, n * word_bytes); }

void vector_not(unsigned long *dst, const unsigned long *src, unsigned n, unsigned long last_mask) PLX_NOTHROW {
  const unsigned top = n > 1 ? n - 1 : 0;
  for (unsigned i = by_sse2(n) ? vector_not_sse2(dst, src, top) : 0; i < top; ++i) dst[i] = ~src[i];
  dst[top] = ~src[top] & last_mask;
}

void vector_and(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW {
  for (unsigned i = by_sse2(n) ? vector_and_sse2(dst, a, b, n) : 0; i < n; ++i) dst[i] = a[i] & b[i];
}
void vector_or(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW {
  for (unsigned i = by_sse2(n) ? vector_or_sse2(dst, a, b, n) : 0; i < n; ++i) dst[i] = a[i] | b[i];
}
void vector_xor(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW {
  for (unsigned i = by_sse2(n) ? vector_xor_sse2(dst, a, b, n) : 0; i < n; ++i) dst[i] = a[i] ^ b[i];
}

bool any(const unsigned long *w, unsigned n) PLX_NOTHROW {
  bool found = false;
  for (unsigned i = by_sse2(n) ? any_sse2(w, n, found) : 0; i < n && !found; ++i) found = w[i] != 0;
  return found;
}

unsigned count(const unsigned long *w, unsigned n) PLX_NOTHROW {
  if (processor_has(processor_popcnt)) return count_popcnt(w, n);
  unsigned sum = 0;
  for (unsigned i = 0; i < n; ++i) sum += static_cast<unsigned>(_count_in_word(w[i]));
  return sum;
}

bool equal(const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW {
  return n == 0 || memcmp(a, b, n * word_bytes) == 0;
}

// Works from the top word down, so that dst may be src.
void shift_left(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned n,
                unsigned long last_mask) PLX_NOTHROW {
  if (n == 0) return;
  const unsigned words = shift >> 5, bits = shift & 31;
  const unsigned kept = n - words;  // words of the source that stay in the set, the highest one in part
  if (bits == 0) {
    memmove(dst + words, src, kept * word_bytes);
  } else {
    unsigned i = kept;
    if (by_sse2(kept)) i -= shift_left_sse2(dst + words + 1, src + 1, kept - 1, bits);
    for (; i > 1; --i) dst[words + i - 1] = src[i - 1] << bits | src[i - 2] >> (32 - bits);
    dst[words] = src[0] << bits;
  }
  dst[n - 1] &= last_mask;
  if (words != 0) memset(dst, 0, words * word_bytes);
}

// Works from word 0 up, so that dst may be src. The neighbour's bits go right, as bitset_words.h says.
void shift_right(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned n) PLX_NOTHROW {
  if (n == 0) return;
  const unsigned words = shift >> 5, bits = shift & 31;
  const unsigned kept = n - words;
  src += words;
  if (bits == 0) {
    memmove(dst, src, kept * word_bytes);
  } else {
    unsigned i = by_sse2(kept) ? shift_right_sse2(dst, src, kept - 1, bits) : 0;
    for (; i + 1 < kept; ++i) dst[i] = src[i] >> bits | src[i + 1] >> (32 - bits);
    dst[i] = src[i] >> bits;
  }
  if (words != 0) memset(dst + kept, 0, words * word_bytes);
}

}  // namespace __zor

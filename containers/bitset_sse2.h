// The word loops for processors with SSE2, four words a step. Each does as many whole steps as there are and returns
// how many words it did; the caller does the rest.
#pragma once

#include <plx/base/config.h>

namespace __zor {

// From word 0 up.
PLX_HIDDEN PLX_REGPARM unsigned vector_and_sse2(unsigned long *dst, const unsigned long *a, const unsigned long *b,
                                                unsigned n);
PLX_HIDDEN PLX_REGPARM unsigned vector_or_sse2(unsigned long *dst, const unsigned long *a, const unsigned long *b,
                                               unsigned n);
PLX_HIDDEN PLX_REGPARM unsigned vector_xor_sse2(unsigned long *dst, const unsigned long *a, const unsigned long *b,
                                                unsigned n);
PLX_HIDDEN PLX_REGPARM unsigned vector_not_sse2(unsigned long *dst, const unsigned long *src, unsigned n);

// dst[i] = src[i] >> bits | src[i + 1] >> (32 - bits), from word 0 up; reads n + 1 words.
PLX_HIDDEN PLX_REGPARM unsigned shift_right_sse2(unsigned long *dst, const unsigned long *src, unsigned n,
                                                 unsigned bits);

// dst[i] = src[i] << bits | src[i - 1] >> (32 - bits), from word n - 1 down; reads src[-1].
PLX_HIDDEN PLX_REGPARM unsigned shift_left_sse2(unsigned long *dst, const unsigned long *src, unsigned n,
                                                unsigned bits);

// Whether any of the words is not zero, and of how many words this is said.
PLX_HIDDEN PLX_REGPARM unsigned any_sse2(const unsigned long *w, unsigned n, bool &found);

// The bits in n words; needs popcnt.
PLX_HIDDEN PLX_REGPARM unsigned count_popcnt(const unsigned long *w, unsigned n);

}  // namespace __zor

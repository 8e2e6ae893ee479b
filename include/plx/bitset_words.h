// The word loops under bitset: bit i is bit i & 31 of word i >> 5. Sets of many words share the library's compiled
// functions; those of a few words have the same operations inline, where a call would cost more than the work.
//
// Bits above the size of a set are zero at all times. What could set them takes the mask of the top word's valid bits.
#ifndef PLX_BITSET_WORDS_H
#define PLX_BITSET_WORDS_H

#include <plx/config.h>

namespace __zor {

PLX_API void set(unsigned long *w, unsigned n, unsigned long last_mask) PLX_NOTHROW;
PLX_API void reset(unsigned long *w, unsigned n) PLX_NOTHROW;
PLX_API void vector_not(unsigned long *dst, const unsigned long *src, unsigned n, unsigned long last_mask) PLX_NOTHROW;
PLX_API void vector_and(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW;
PLX_API void vector_or(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW;
PLX_API void vector_xor(unsigned long *dst, const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW;
PLX_API bool any(const unsigned long *w, unsigned n) PLX_NOTHROW;
PLX_API unsigned count(const unsigned long *w, unsigned n) PLX_NOTHROW;
PLX_API bool equal(const unsigned long *a, const unsigned long *b, unsigned n) PLX_NOTHROW;

// The shift must be less than 32 * n; dst may be src. shift_right has a rule of its own: by an amount that is not a
// multiple of 32, a word gets its neighbour's bits shifted right by what is missing to 32, not left.
PLX_API void shift_left(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned n,
                        unsigned long last_mask) PLX_NOTHROW;
PLX_API void shift_right(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned n) PLX_NOTHROW;

// out_of_range, invalid_argument and overflow_error.
PLX_API void throw_range() PLX_NORETURN_CXX PLX_COLD;
PLX_API void throw_invalid_value_in_string() PLX_NORETURN_CXX PLX_COLD;
PLX_API void throw_bitset_overflow() PLX_NORETURN_CXX PLX_COLD;

inline unsigned long count_in_word(unsigned long x) PLX_NOTHROW {
  x -= (x >> 1) & 0x55555555ul;
  x = (x & 0x33333333ul) + ((x >> 2) & 0x33333333ul);
  x = (x + (x >> 4)) & 0x0F0F0F0Ful;
  return (x * 0x01010101ul) >> 24;
}

// A word as 32 characters '0' and '1', highest bit first, and back, four characters a step: a multiplication spreads
// the four bits to the lowest bits of four bytes, or gathers them.

inline void word_to_text(unsigned long x, char *text) PLX_NOTHROW {
  for (unsigned i = 0; i < 8; ++i, x <<= 4) {
    const unsigned long four = x >> 28;
    const unsigned long characters = 0x30303030ul | (((four * 0x01008040ul) | four >> 3) & 0x01010101ul);
    __builtin_memcpy(text + 4 * i, &characters, 4);
  }
}

// Other characters leave a bit in `wrong`.
inline unsigned long word_from_text(const char *text, unsigned long &wrong) PLX_NOTHROW {
  unsigned long x = 0;
  for (unsigned i = 0; i < 8; ++i) {
    unsigned long four;
    __builtin_memcpy(&four, text + 4 * i, 4);
    wrong |= (four ^ 0x30303030ul) & 0xFEFEFEFEul;
    x = x << 4 | ((four & 0x01010101ul) * 0x80402010ul) >> 28;
  }
  return x;
}

// The operations of sets of n words, for the template.
template <unsigned n, bool few = (n <= 8)> struct bit_words {
  static void set(unsigned long *w, unsigned long last_mask) PLX_NOTHROW { __zor::set(w, n, last_mask); }
  static void reset(unsigned long *w) PLX_NOTHROW { __zor::reset(w, n); }
  static void vector_not(unsigned long *dst, const unsigned long *src, unsigned long last_mask) PLX_NOTHROW {
    __zor::vector_not(dst, src, n, last_mask);
  }
  static void vector_and(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    __zor::vector_and(dst, a, b, n);
  }
  static void vector_or(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    __zor::vector_or(dst, a, b, n);
  }
  static void vector_xor(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    __zor::vector_xor(dst, a, b, n);
  }
  static bool any(const unsigned long *w) PLX_NOTHROW { return __zor::any(w, n); }
  static unsigned count(const unsigned long *w) PLX_NOTHROW { return __zor::count(w, n); }
  static bool equal(const unsigned long *a, const unsigned long *b) PLX_NOTHROW { return __zor::equal(a, b, n); }
  static void shift_left(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned long mask) PLX_NOTHROW {
    __zor::shift_left(dst, src, shift, n, mask);
  }
  static void shift_right(unsigned long *dst, const unsigned long *src, unsigned shift) PLX_NOTHROW {
    __zor::shift_right(dst, src, shift, n);
  }
};

template <unsigned n> struct bit_words<n, true> {
  static void set(unsigned long *w, unsigned long last_mask) PLX_NOTHROW {
    for (unsigned i = 0; i + 1 < n; ++i) w[i] = ~0ul;
    w[n - 1] = last_mask;
  }
  static void reset(unsigned long *w) PLX_NOTHROW {
    for (unsigned i = 0; i < n; ++i) w[i] = 0;
  }
  static void vector_not(unsigned long *dst, const unsigned long *src, unsigned long last_mask) PLX_NOTHROW {
    for (unsigned i = 0; i + 1 < n; ++i) dst[i] = ~src[i];
    dst[n - 1] = ~src[n - 1] & last_mask;
  }
  static void vector_and(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    for (unsigned i = 0; i < n; ++i) dst[i] = a[i] & b[i];
  }
  static void vector_or(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    for (unsigned i = 0; i < n; ++i) dst[i] = a[i] | b[i];
  }
  static void vector_xor(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    for (unsigned i = 0; i < n; ++i) dst[i] = a[i] ^ b[i];
  }
  static bool any(const unsigned long *w) PLX_NOTHROW {
    unsigned long all = 0;
    for (unsigned i = 0; i < n; ++i) all |= w[i];
    return all != 0;
  }
  static unsigned count(const unsigned long *w) PLX_NOTHROW {
    unsigned long sum = 0;
    for (unsigned i = 0; i < n; ++i) sum += count_in_word(w[i]);
    return static_cast<unsigned>(sum);
  }
  static bool equal(const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    unsigned long differ = 0;
    for (unsigned i = 0; i < n; ++i) differ |= a[i] ^ b[i];
    return differ == 0;
  }
  static void shift_left(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned long mask) PLX_NOTHROW {
    const unsigned words = shift >> 5, bits = shift & 31;
    for (unsigned i = n; i-- != 0;) {
      const unsigned long low = i > words ? src[i - words - 1] : 0, high = i >= words ? src[i - words] : 0;
      dst[i] = high << bits | low >> 1 >> (31 - bits);
    }
    dst[n - 1] &= mask;
  }
  static void shift_right(unsigned long *dst, const unsigned long *src, unsigned shift) PLX_NOTHROW {
    const unsigned words = shift >> 5, bits = shift & 31;
    for (unsigned i = 0; i < n; ++i) {
      const unsigned long low = words < n - i ? src[i + words] : 0;
      const unsigned long high = words + 1 < n - i ? src[i + words + 1] : 0;
      dst[i] = low >> bits | high >> 1 >> (31 - bits);
    }
  }
};

// One word: a plain integer.
template <> struct bit_words<1, true> {
  static void set(unsigned long *w, unsigned long last_mask) PLX_NOTHROW { *w = last_mask; }
  static void reset(unsigned long *w) PLX_NOTHROW { *w = 0; }
  static void vector_not(unsigned long *dst, const unsigned long *src, unsigned long last_mask) PLX_NOTHROW {
    *dst = ~*src & last_mask;
  }
  static void vector_and(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    *dst = *a & *b;
  }
  static void vector_or(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    *dst = *a | *b;
  }
  static void vector_xor(unsigned long *dst, const unsigned long *a, const unsigned long *b) PLX_NOTHROW {
    *dst = *a ^ *b;
  }
  static bool any(const unsigned long *w) PLX_NOTHROW { return *w != 0; }
  static unsigned count(const unsigned long *w) PLX_NOTHROW { return static_cast<unsigned>(count_in_word(*w)); }
  static bool equal(const unsigned long *a, const unsigned long *b) PLX_NOTHROW { return *a == *b; }
  static void shift_left(unsigned long *dst, const unsigned long *src, unsigned shift, unsigned long mask) PLX_NOTHROW {
    *dst = (*src << shift) & mask;
  }
  static void shift_right(unsigned long *dst, const unsigned long *src, unsigned shift) PLX_NOTHROW {
    *dst = *src >> shift;
  }
};

}  // namespace __zor

#endif

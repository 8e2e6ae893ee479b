// The word loops under bitset: bit i is bit i & 31 of word i >> 5. Sets of many words share the library's compiled
// functions; those of a few words have the same operations inline, where a call would cost more than the work.
//
// Bits above the size of a set are zero at all times. What could set them takes the mask of the top word's valid bits.
#ifndef PLX_BITSET_WORDS_H
#define PLX_BITSET_WORDS_H

#include <plx/base/config.h>

namespace __zor {

PLX_API void set(unsigned long *_w, unsigned _n, unsigned long _last_mask) PLX_NOTHROW;
PLX_API void reset(unsigned long *_w, unsigned _n) PLX_NOTHROW;
PLX_API void vector_not(unsigned long *_dst, const unsigned long *_src, unsigned _n,
                        unsigned long _last_mask) PLX_NOTHROW;
PLX_API void vector_and(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b, unsigned _n) PLX_NOTHROW;
PLX_API void vector_or(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b, unsigned _n) PLX_NOTHROW;
PLX_API void vector_xor(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b, unsigned _n) PLX_NOTHROW;
PLX_API bool any(const unsigned long *_w, unsigned _n) PLX_NOTHROW;
PLX_API unsigned count(const unsigned long *_w, unsigned _n) PLX_NOTHROW;
PLX_API bool equal(const unsigned long *_a, const unsigned long *_b, unsigned _n) PLX_NOTHROW;

// The shift must be less than 32 * n; dst may be src. shift_right has a rule of its own: by an amount that is not a
// multiple of 32, a word gets its neighbour's bits shifted right by what is missing to 32, not left.
PLX_API void shift_left(unsigned long *_dst, const unsigned long *_src, unsigned _shift, unsigned _n,
                        unsigned long _last_mask) PLX_NOTHROW;
PLX_API void shift_right(unsigned long *_dst, const unsigned long *_src, unsigned _shift, unsigned _n) PLX_NOTHROW;

// out_of_range, invalid_argument and overflow_error.
PLX_API void throw_range() PLX_NORETURN PLX_COLD;
PLX_API void throw_invalid_value_in_string() PLX_NORETURN PLX_COLD;
PLX_API void throw_bitset_overflow() PLX_NORETURN PLX_COLD;

inline unsigned long _count_in_word(unsigned long _x) PLX_NOTHROW {
  _x -= (_x >> 1) & 0x55555555ul;
  _x = (_x & 0x33333333ul) + ((_x >> 2) & 0x33333333ul);
  _x = (_x + (_x >> 4)) & 0x0F0F0F0Ful;
  return (_x * 0x01010101ul) >> 24;
}

// A word as 32 characters '0' and '1', highest bit first, and back, four characters a step: a multiplication spreads
// the four bits to the lowest bits of four bytes, or gathers them.

inline void _word_to_text(unsigned long _x, char *_text) PLX_NOTHROW {
  for (unsigned _i = 0; _i < 8; ++_i, _x <<= 4) {
    const unsigned long _four = _x >> 28;
    const unsigned long _characters = 0x30303030ul | (((_four * 0x01008040ul) | _four >> 3) & 0x01010101ul);
    __builtin_memcpy(_text + 4 * _i, &_characters, 4);
  }
}

// Other characters leave a bit in `_wrong`.
inline unsigned long _word_from_text(const char *_text, unsigned long &_wrong) PLX_NOTHROW {
  unsigned long _x = 0;
  for (unsigned _i = 0; _i < 8; ++_i) {
    unsigned long _four;
    __builtin_memcpy(&_four, _text + 4 * _i, 4);
    _wrong |= (_four ^ 0x30303030ul) & 0xFEFEFEFEul;
    _x = _x << 4 | ((_four & 0x01010101ul) * 0x80402010ul) >> 28;
  }
  return _x;
}

// The operations of sets of n words, for the template.
template <unsigned _n, bool _few = (_n <= 8)> struct _bit_words {
  static void set(unsigned long *_w, unsigned long _last_mask) PLX_NOTHROW { __zor::set(_w, _n, _last_mask); }
  static void reset(unsigned long *_w) PLX_NOTHROW { __zor::reset(_w, _n); }
  static void vector_not(unsigned long *_dst, const unsigned long *_src, unsigned long _last_mask) PLX_NOTHROW {
    __zor::vector_not(_dst, _src, _n, _last_mask);
  }
  static void vector_and(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    __zor::vector_and(_dst, _a, _b, _n);
  }
  static void vector_or(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    __zor::vector_or(_dst, _a, _b, _n);
  }
  static void vector_xor(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    __zor::vector_xor(_dst, _a, _b, _n);
  }
  static bool any(const unsigned long *_w) PLX_NOTHROW { return __zor::any(_w, _n); }
  static unsigned count(const unsigned long *_w) PLX_NOTHROW { return __zor::count(_w, _n); }
  static bool equal(const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW { return __zor::equal(_a, _b, _n); }
  static void shift_left(unsigned long *_dst, const unsigned long *_src, unsigned _shift,
                         unsigned long _mask) PLX_NOTHROW {
    __zor::shift_left(_dst, _src, _shift, _n, _mask);
  }
  static void shift_right(unsigned long *_dst, const unsigned long *_src, unsigned _shift) PLX_NOTHROW {
    __zor::shift_right(_dst, _src, _shift, _n);
  }
};

template <unsigned _n> struct _bit_words<_n, true> {
  static void set(unsigned long *_w, unsigned long _last_mask) PLX_NOTHROW {
    for (unsigned _i = 0; _i + 1 < _n; ++_i) _w[_i] = ~0ul;
    _w[_n - 1] = _last_mask;
  }
  static void reset(unsigned long *_w) PLX_NOTHROW {
    for (unsigned _i = 0; _i < _n; ++_i) _w[_i] = 0;
  }
  static void vector_not(unsigned long *_dst, const unsigned long *_src, unsigned long _last_mask) PLX_NOTHROW {
    for (unsigned _i = 0; _i + 1 < _n; ++_i) _dst[_i] = ~_src[_i];
    _dst[_n - 1] = ~_src[_n - 1] & _last_mask;
  }
  static void vector_and(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    for (unsigned _i = 0; _i < _n; ++_i) _dst[_i] = _a[_i] & _b[_i];
  }
  static void vector_or(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    for (unsigned _i = 0; _i < _n; ++_i) _dst[_i] = _a[_i] | _b[_i];
  }
  static void vector_xor(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    for (unsigned _i = 0; _i < _n; ++_i) _dst[_i] = _a[_i] ^ _b[_i];
  }
  static bool any(const unsigned long *_w) PLX_NOTHROW {
    unsigned long _all = 0;
    for (unsigned _i = 0; _i < _n; ++_i) _all |= _w[_i];
    return _all != 0;
  }
  static unsigned count(const unsigned long *_w) PLX_NOTHROW {
    unsigned long _sum = 0;
    for (unsigned _i = 0; _i < _n; ++_i) _sum += _count_in_word(_w[_i]);
    return static_cast<unsigned>(_sum);
  }
  static bool equal(const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    unsigned long _differ = 0;
    for (unsigned _i = 0; _i < _n; ++_i) _differ |= _a[_i] ^ _b[_i];
    return _differ == 0;
  }
  static void shift_left(unsigned long *_dst, const unsigned long *_src, unsigned _shift,
                         unsigned long _mask) PLX_NOTHROW {
    if (_n > 4) return __zor::shift_left(_dst, _src, _shift, _n, _mask);  // what follows is laid out without a loop
    const unsigned _words = _shift >> 5, _bits = _shift & 31;
    for (unsigned _i = _n; _i-- != 0;) {
      const unsigned long _low = _i > _words ? _src[_i - _words - 1] : 0, _high = _i >= _words ? _src[_i - _words] : 0;
      _dst[_i] = _high << _bits | _low >> 1 >> (31 - _bits);
    }
    _dst[_n - 1] &= _mask;
  }
  static void shift_right(unsigned long *_dst, const unsigned long *_src, unsigned _shift) PLX_NOTHROW {
    const unsigned _words = _shift >> 5, _bits = _shift & 31;
    for (unsigned _i = 0; _i < _n; ++_i) {
      const unsigned long _low = _words < _n - _i ? _src[_i + _words] : 0;
      const unsigned long _high = _words + 1 < _n - _i ? _src[_i + _words + 1] : 0;
      _dst[_i] = _low >> _bits | _high >> 1 >> (31 - _bits);
    }
  }
};

// One word: a plain integer.
template <> struct _bit_words<1, true> {
  static void set(unsigned long *_w, unsigned long _last_mask) PLX_NOTHROW { *_w = _last_mask; }
  static void reset(unsigned long *_w) PLX_NOTHROW { *_w = 0; }
  static void vector_not(unsigned long *_dst, const unsigned long *_src, unsigned long _last_mask) PLX_NOTHROW {
    *_dst = ~*_src & _last_mask;
  }
  static void vector_and(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    *_dst = *_a & *_b;
  }
  static void vector_or(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    *_dst = *_a | *_b;
  }
  static void vector_xor(unsigned long *_dst, const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW {
    *_dst = *_a ^ *_b;
  }
  static bool any(const unsigned long *_w) PLX_NOTHROW { return *_w != 0; }
  static unsigned count(const unsigned long *_w) PLX_NOTHROW { return static_cast<unsigned>(_count_in_word(*_w)); }
  static bool equal(const unsigned long *_a, const unsigned long *_b) PLX_NOTHROW { return *_a == *_b; }
  static void shift_left(unsigned long *_dst, const unsigned long *_src, unsigned _shift,
                         unsigned long _mask) PLX_NOTHROW {
    *_dst = (*_src << _shift) & _mask;
  }
  static void shift_right(unsigned long *_dst, const unsigned long *_src, unsigned _shift) PLX_NOTHROW {
    *_dst = *_src >> _shift;
  }
};

}  // namespace __zor

#endif

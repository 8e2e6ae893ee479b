// Copying and filling of short texts, four bytes at once, wherever they lie.
//
// Calls of the C library and of exported functions need the GOT pointer, and short texts are too short for that. So
// these paths are free of such calls, and long texts go through hidden functions.
#pragma once

#include <string.h>

#include <plx/base/config.h>

namespace __zor {

PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void copy_long(char *to, const char *from, unsigned n);
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void move_long(char *to, const char *from, unsigned n);
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void fill_long(char *to, unsigned n, char c);

constexpr unsigned short_copy = 32;

struct four_bytes {
  unsigned value;
} __attribute__((__packed__, __may_alias__));
struct two_bytes {
  unsigned short value;
} __attribute__((__packed__, __may_alias__));
inline four_bytes *words(char *at) { return reinterpret_cast<four_bytes *>(at); }
inline const four_bytes *words(const char *at) { return reinterpret_cast<const four_bytes *>(at); }
inline two_bytes *pair(char *at) { return reinterpret_cast<two_bytes *>(at); }
inline const two_bytes *pair(const char *at) { return reinterpret_cast<const two_bytes *>(at); }

// Copying and filling. Nothing is nothing: the pointers may be null then. The regions of a copy do not overlap.
inline void copy_characters(char *to, const char *from, unsigned n) {
  if (__builtin_expect(n > short_copy, false)) return copy_long(to, from, n);
  if (n > 8) {
    if (n > 16) {
      *words(to + 8) = *words(from + 8);
      *words(to + 12) = *words(from + 12);
      *words(to + n - 16) = *words(from + n - 16);
      *words(to + n - 12) = *words(from + n - 12);
    }
    *words(to) = *words(from);
    *words(to + 4) = *words(from + 4);
    *words(to + n - 8) = *words(from + n - 8);
    *words(to + n - 4) = *words(from + n - 4);
  } else if (n >= 4) {
    *words(to) = *words(from);
    *words(to + n - 4) = *words(from + n - 4);
  } else if (n > 1) {
    *pair(to) = *pair(from);
    to[n - 1] = from[n - 1];
  } else if (n != 0) {
    *to = *from;
  }
}
// The regions may overlap: all is read before anything is written.
constexpr unsigned short_move = 16;
inline void move_characters(char *to, const char *from, unsigned n) {
  if (n > short_move) return move_long(to, from, n);
  if (n > 8) {
    const four_bytes a = *words(from), b = *words(from + 4), c = *words(from + n - 8), d = *words(from + n - 4);
    *words(to) = a;
    *words(to + 4) = b;
    *words(to + n - 8) = c;
    *words(to + n - 4) = d;
  } else if (n >= 4) {
    const four_bytes a = *words(from), b = *words(from + n - 4);
    *words(to) = a;
    *words(to + n - 4) = b;
  } else if (n > 1) {
    const two_bytes a = *pair(from);
    const char b = from[n - 1];
    *pair(to) = a;
    to[n - 1] = b;
  } else if (n != 0) {
    *to = *from;
  }
}
inline void fill_characters(char *to, unsigned n, char c) {
  if (n > 4) return fill_long(to, n, c);
  if (n == 0) return;
  to[0] = c;  // without a loop, which compilers take for memset
  to[(n - 1) / 2] = c;
  to[n / 2] = c;
  to[n - 1] = c;
}

}  // namespace __zor

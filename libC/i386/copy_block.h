// Copies characters that may be many, as blocks that go through streams are. The texts do not overlap.
#pragma once

#include <string.h>

#include <plx/base/config.h>

namespace __zor {

PLX_HIDDEN void copy_long_block(char *to, const char *from, unsigned n);

// Where the processor's own way begins to be faster than the C library's.
constexpr unsigned long_block = 512;

inline void copy_block(char *to, const char *from, unsigned n) {
  if (__builtin_expect(n >= long_block, false)) return copy_long_block(to, from, n);
  memcpy(to, from, n);
}

}  // namespace __zor

// Characters from a buffer's area into an array of the program's, which may be the one that the buffer reads.
#pragma once

#include "../libC/i386/copy_block.h"

namespace __zor {

inline void move_block(char *to, const char *from, unsigned n) {
  if (__builtin_expect(n >= long_block, false) && (to + n <= from || from + n <= to))
    return copy_long_block(to, from, n);
  memmove(to, from, n);
}

}  // namespace __zor

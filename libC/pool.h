// The memory behind the pools of string representations and container nodes. Their free lists are their own: strings
// keep written what depends on a block's size, and programs take nodes by inline code.
#pragma once

#include <stdlib.h>

#include <new>

#include "replaced_new.h"
#include "sanitizer.h"

namespace __zor {

// A program that replaced operator new or operator delete sees every allocation. Under the address sanitizer each block
// is one of the heap's, so that it is watched.
inline bool blocks_are_pooled() { return !PLX_ADDRESS_SANITIZER && !operator_new_is_replaced(); }

// Chunks of the heap that are kept for good, each twice as large as the one before up to a limit. The C library maps
// the largest ones apart, where they do not cut its heap into pieces.
struct chunk_source {
  unsigned next_chunk;  // the size of the next chunk
  char *fresh;          // the part of the last chunk that was never handed out
  unsigned fresh_bytes;

  static constexpr unsigned largest_chunk = 1 << 20;
  static constexpr unsigned modest_chunk = 1 << 16;  // the largest whose failure is reported

  void *carve(unsigned bytes) {
    void *block = fresh;
    fresh += bytes;
    fresh_bytes -= bytes;
    return block;
  }
  void *carve_end(unsigned bytes) {
    fresh_bytes -= bytes;
    return fresh + fresh_bytes;
  }

  // In two steps, so that what is left of the last chunk can be put away between them. The first takes at least so many
  // bytes, and throws bad_alloc, and nothing was handed out then; the second leaves out the first bytes of the chunk.
  char *new_chunk(unsigned least) {
    while (next_chunk < least) next_chunk *= 2;
    if (next_chunk > modest_chunk) {
      if (void *chunk = malloc(next_chunk)) return static_cast<char *>(chunk);
      next_chunk = modest_chunk;
    }
    return static_cast<char *>(operator new(next_chunk));
  }
  void begin(char *chunk, unsigned skipped = 0) {
    fresh = chunk + skipped;
    fresh_bytes = next_chunk - skipped;
    if (next_chunk < largest_chunk) next_chunk *= 2;
  }
};

}  // namespace __zor

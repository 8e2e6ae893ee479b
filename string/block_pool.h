// Small blocks for string representations, in classes of 32 bytes, from free lists. Blocks of 64 to 1,024 bytes are
// pooled, larger ones come from operator new. A program that replaced operator new or operator delete sees every
// allocation: then nothing is pooled.
#pragma once

#include <new>

namespace __zor {

struct free_block {
  free_block *next;
};

struct block_pool {
  static constexpr unsigned step = 32;
  static constexpr unsigned largest = 1024;

  free_block *free[largest / step + 1];  // by size; all empty when nothing is pooled
  char *fresh;                           // the part of the last chunk that was never handed out
  unsigned fresh_bytes;
  bool asked;     // whether the program replaced the allocation functions was found out
  bool bypassed;  // it did
};

extern block_pool string_pool;

// The slow case of pool_take. Throws bad_alloc and changes nothing then.
void *pool_refill(unsigned bytes);

// A block of `bytes`, a multiple of 32.
inline void *pool_take(unsigned bytes) {
  if (__builtin_expect(bytes <= block_pool::largest, true)) {
    free_block *&head = string_pool.free[bytes / block_pool::step];
    if (free_block *block = head) {
      head = block->next;
      return block;
    }
    return pool_refill(bytes);
  }
  return operator new(bytes);
}

inline void pool_give(void *memory, unsigned bytes) PLX_NOTHROW {
  if (__builtin_expect(bytes <= block_pool::largest && !string_pool.bypassed, true)) {
    free_block *block = static_cast<free_block *>(memory);
    free_block *&head = string_pool.free[bytes / block_pool::step];
    block->next = head;
    head = block;
  } else {
    operator delete(memory);
  }
}

}  // namespace __zor

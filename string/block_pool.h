// Small blocks for string representations, in classes of 32 bytes, from free lists. Blocks of 64 to 1,024 bytes are
// pooled, larger ones come from operator new. A program that replaced operator new or operator delete sees every
// allocation: then nothing is pooled.
#pragma once

#include <new>

// A compiler must see on the declaration that a symbol is the library's own, or it goes through the GOT pointer.
#define PLX_STRING_HIDDEN_DATA __attribute__((__visibility__("hidden")))
#define PLX_STRING_HIDDEN __attribute__((__visibility__("hidden"), __noinline__, __regparm__(3)))

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

extern PLX_STRING_HIDDEN_DATA block_pool string_pool;

// The slow case of pool_take. Throws bad_alloc and changes nothing then.
PLX_STRING_HIDDEN void *pool_refill(unsigned bytes);

// operator new and operator delete.
PLX_STRING_HIDDEN void *large_take(unsigned bytes);
PLX_STRING_HIDDEN void large_give(void *memory) PLX_NOTHROW;

// A block of more than `largest` bytes, made larger where the C library can do that without copying all of it. Null
// where it cannot, or where the program replaced the allocation functions; then the block is as it was.
PLX_STRING_HIDDEN void *large_extend(void *memory, unsigned bytes);

// A block of `bytes`, a multiple of 32.
[[gnu::always_inline]] inline void *pool_take(unsigned bytes) {
  if (__builtin_expect(bytes <= block_pool::largest, true)) {
    free_block *&head = string_pool.free[bytes / block_pool::step];
    if (free_block *block = head) {
      head = block->next;
      return block;
    }
    return pool_refill(bytes);
  }
  return large_take(bytes);
}

[[gnu::always_inline]] inline void pool_give(void *memory, unsigned bytes) PLX_NOTHROW {
  if (__builtin_expect(bytes <= block_pool::largest && !string_pool.bypassed, true)) {
    free_block *block = static_cast<free_block *>(memory);
    free_block *&head = string_pool.free[bytes / block_pool::step];
    block->next = head;
    head = block;
  } else {
    large_give(memory);
  }
}

}  // namespace __zor

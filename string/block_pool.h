// Blocks for string representations. Those of up to 1,024 bytes, in classes of 32 bytes, come from free lists, larger
// ones from operator new, and all of them in a program that replaced it.
//
// A block in a free list was a representation and still is one but for its first word: what depends on its size alone
// stays written, so taking it again is a matter of a few instructions.
#pragma once

#include <plx/string/string_core.h>

namespace __zor {

constexpr unsigned block_step = 32;
constexpr unsigned largest_pooled = 1024;

// In b_str_ref::_block beside the size, a multiple of 32: freeing takes more than putting the block into its list.
constexpr unsigned block_is_special = 1;

struct free_block {
  free_block *next;
};

// By size in steps; all empty when nothing is pooled.
extern PLX_HIDDEN free_block *free_strings[largest_pooled / block_step + 1];

inline char *own_buffer(b_str_ref *rep) { return reinterpret_cast<char *>(rep + 1); }

// A representation in a block of this size, with what depends on the size written. Throws bad_alloc.
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM b_str_ref *take_block(unsigned bytes);

// The same for a block of another use: it becomes a representation when it goes into a free list.
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM void give_block(void *memory, unsigned bytes) PLX_NOTHROW;

// Makes the block of a representation larger where the C library can do that without copying all of it; capacity,
// length and count stay. Null where it cannot, or where the program replaced the allocation functions: then the block
// is as it was.
PLX_HIDDEN PLX_NOINLINE PLX_REGPARM b_str_ref *extend_block(b_str_ref *rep, unsigned bytes);

}  // namespace __zor

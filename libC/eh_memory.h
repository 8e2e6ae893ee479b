// Memory for thrown objects and throw-stack entries: last in, first out, from a static block that serves the common
// case without the heap, then from heap blocks that go back as soon as they empty. Only the throw stack uses it.
//
//   block   | header | piece | header | piece | header | next block's descriptor | ... |
//             16       8 * n                            24, only in a full block
//
// The common case of both operations is inline: a throw allocates twice and frees twice.
#pragma once

#include <plx/runtime.h>

namespace __zor {

struct a_mem_block_descr {
  a_mem_block_descr *next;  // the block that was current before
  char *base;
  unsigned int size;
  unsigned int used;  // headers included
  bool from_heap;
};

struct a_mem_allocation {
  a_mem_allocation *next;  // the allocation made before
  unsigned int size;       // of the piece, rounded
  void *address;
  bool holds_descriptor;
};

static_assert(sizeof(a_mem_allocation) == 16, "pieces stay 8-byte aligned");

const unsigned int descriptor_piece = 24;
static_assert(sizeof(a_mem_block_descr) <= descriptor_piece, "a descriptor fits its piece");

// Kept free in every block: the next block's descriptor with its header, and the header of the piece asked for.
const unsigned int block_reserve = 2 * sizeof(a_mem_allocation) + descriptor_piece;

extern a_mem_block_descr *curr_mem_block_descr;
extern a_mem_allocation *mem_allocation_stack;

void alloc_new_mem_block(unsigned int bytes);
void leave_empty_mem_block();
[[noreturn]] void assertion_failed(int line);

inline void *alloc_in_mem_block(unsigned int size) {
  if (size % 8) assertion_failed(342);
  a_mem_block_descr *block = curr_mem_block_descr;
  auto *header = reinterpret_cast<a_mem_allocation *>(block->base + block->used);
  header->next = mem_allocation_stack;
  header->size = size;
  header->address = header + 1;
  header->holds_descriptor = false;
  block->used += size + sizeof(a_mem_allocation);
  mem_allocation_stack = header;
  return header + 1;
}

// Never returns null: when the heap is exhausted too, std::terminate runs.
inline void *eh_alloc_on_stack(unsigned int bytes) {
  const unsigned int size = (bytes + 7) & ~7u;
  const unsigned int room = curr_mem_block_descr->size - curr_mem_block_descr->used;
  // The first comparison catches sizes so large that the sum would wrap.
  if (__builtin_expect(bytes > room || size + block_reserve > room, 0)) alloc_new_mem_block(bytes);
  return alloc_in_mem_block(size);
}

inline void free_in_mem_block(void *piece) {
  a_mem_allocation *header = mem_allocation_stack;
  if (!header || header->address != piece) assertion_failed(436);
  mem_allocation_stack = header->next;
  curr_mem_block_descr->used -= header->size + sizeof(a_mem_allocation);
}

// `piece` must be the newest one.
inline void eh_free_on_stack(void *piece) {
  free_in_mem_block(piece);
  if (curr_mem_block_descr->used == 0 && curr_mem_block_descr->next) leave_empty_mem_block();
}

}  // namespace __zor

// Memory for thrown objects and throw-stack entries: last in, first out, from a static block that serves the common
// case without the heap, then from heap blocks that go back as soon as they empty. Only the throw stack uses it.
//
//   block   | header | piece | header | piece | header | next block's descriptor | ... |
//             16       8 * n                            24, only in a full block
//
// The common case of both operations is inline: a throw allocates twice and frees twice.
#pragma once

#include <plx/runtime.h>

#include "assertion.h"

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

inline void *add_header(a_mem_allocation *header, a_mem_allocation *below, unsigned int size) {
  header->next = below;
  header->size = size;
  header->address = header + 1;
  header->holds_descriptor = false;
  return header + 1;
}

inline void *alloc_in_mem_block(unsigned int size) {
  if (size % 8) assertion_failed(piece_is_not_aligned);
  a_mem_block_descr *block = curr_mem_block_descr;
  auto *header = reinterpret_cast<a_mem_allocation *>(block->base + block->used);
  block->used += size + sizeof(a_mem_allocation);
  void *piece = add_header(header, mem_allocation_stack, size);
  mem_allocation_stack = header;
  return piece;
}

inline unsigned int eh_rounded(unsigned int bytes) { return (bytes + 7) & ~7u; }

// Never returns null: when the heap is exhausted too, std::terminate runs.
inline void *eh_alloc_on_stack(unsigned int bytes) {
  const unsigned int size = eh_rounded(bytes);
  const unsigned int room = curr_mem_block_descr->size - curr_mem_block_descr->used;
  // The first comparison catches sizes so large that the sum would wrap.
  if (__builtin_expect(bytes > room || size + block_reserve > room, 0)) alloc_new_mem_block(bytes);
  return alloc_in_mem_block(size);
}

// Two pieces, one on the other: with one look at the block when both fit, which they nearly always do.
inline void *eh_alloc_two_on_stack(unsigned int lower_bytes, unsigned int upper_bytes, void **upper) {
  a_mem_block_descr *block = curr_mem_block_descr;
  const unsigned int room = block->size - block->used;
  const unsigned int lower_size = eh_rounded(lower_bytes), upper_size = eh_rounded(upper_bytes);
  if (__builtin_expect(lower_bytes > room || lower_size + upper_size + sizeof(a_mem_allocation) + block_reserve > room,
                       0)) {
    void *lower = eh_alloc_on_stack(lower_bytes);
    *upper = eh_alloc_on_stack(upper_bytes);
    return lower;
  }
  auto *header = reinterpret_cast<a_mem_allocation *>(block->base + block->used);
  block->used += lower_size + upper_size + 2 * sizeof(a_mem_allocation);
  void *lower = add_header(header, mem_allocation_stack, lower_size);
  auto *upper_header = reinterpret_cast<a_mem_allocation *>(static_cast<char *>(lower) + lower_size);
  *upper = add_header(upper_header, header, upper_size);
  mem_allocation_stack = upper_header;
  return lower;
}

inline void free_in_mem_block(void *piece) {
  a_mem_allocation *header = mem_allocation_stack;
  if (!header || header->address != piece) assertion_failed(piece_is_not_newest);
  mem_allocation_stack = header->next;
  curr_mem_block_descr->used -= header->size + sizeof(a_mem_allocation);
}

// `piece` must be the newest one.
inline void eh_free_on_stack(void *piece) {
  free_in_mem_block(piece);
  if (curr_mem_block_descr->used == 0 && curr_mem_block_descr->next) leave_empty_mem_block();
}

// Makes the newest piece longer, where it stands. Returns the added bytes, or null when the block has no room for them.
inline void *eh_extend_on_stack(void *piece, unsigned int bytes) {
  a_mem_block_descr *block = curr_mem_block_descr;
  a_mem_allocation *header = mem_allocation_stack;
  if (header->address != piece || bytes + block_reserve > block->size - block->used) return nullptr;
  void *added = static_cast<char *>(piece) + header->size;
  header->size += bytes;
  block->used += bytes;
  return added;
}

// Takes back the last bytes of the newest piece; of another they stay until it is freed.
inline void eh_shrink_on_stack(void *piece, unsigned int bytes) {
  a_mem_allocation *header = mem_allocation_stack;
  if (header->address != piece) return;
  header->size -= bytes;
  curr_mem_block_descr->used -= bytes;
}

// The reverse of eh_alloc_two_on_stack.
inline void eh_free_two_on_stack(void *lower, void *upper) {
  a_mem_block_descr *block = curr_mem_block_descr;
  a_mem_allocation *top = mem_allocation_stack;
  a_mem_allocation *below = top->next;
  if (__builtin_expect(block->next || top->address != upper || !below || below->address != lower, 0)) {
    eh_free_on_stack(upper);
    eh_free_on_stack(lower);
    return;
  }
  // In the first block nothing is given back, whether it empties or not.
  mem_allocation_stack = below->next;
  block->used -= top->size + below->size + 2 * sizeof(a_mem_allocation);
}

}  // namespace __zor

// Memory for thrown objects and throw-stack entries: last in, first out, from a static block that serves the common
// case without the heap, then from heap blocks that go back as soon as they empty.
//
//   block   | header | piece | header | piece | header | next block's descriptor | ... |
//             16       8 * n                            24, only in a full block
//
// Only the throw stack calls it.

#include <stdlib.h>

#include "eh_state.h"

namespace __zor {
namespace {

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

const unsigned int block_unit = 8192;
const unsigned int descriptor_piece = 24;
static_assert(sizeof(a_mem_block_descr) <= descriptor_piece, "a descriptor fits its piece");

// Kept free in every block: the next block's descriptor with its header, and the header of the piece asked for.
const unsigned int reserve = 2 * sizeof(a_mem_allocation) + descriptor_piece;

alignas(16) char initial_mem_block[block_unit];
a_mem_block_descr initial_mem_block_descr;
a_mem_block_descr *curr_mem_block_descr;
a_mem_allocation *mem_allocation_stack;

void init_eh_memory_management() {
  initial_mem_block_descr = {nullptr, initial_mem_block, sizeof initial_mem_block, 0, false};
  curr_mem_block_descr = &initial_mem_block_descr;
}

void *eh_get_memory(unsigned int size) {
  void *memory = malloc(size);
  if (!memory) __call_terminate();
  return memory;
}

void *alloc_in_mem_block(unsigned int size) {
  if (size % 8) assertion_failed(342);
  a_mem_block_descr *block = curr_mem_block_descr;
  auto *header = reinterpret_cast<a_mem_allocation *>(block->base + block->used);
  *header = {mem_allocation_stack, size, header + 1, false};
  block->used += size + sizeof(a_mem_allocation);
  mem_allocation_stack = header;
  return header + 1;
}

void alloc_new_mem_block(unsigned int size) {
  unsigned int block_size = (size & ~(block_unit - 1)) + block_unit;
  if (block_size - size < block_unit / 2) block_size += block_unit;
  // The heap is asked first: when it fails, the terminate handler finds this memory as it was.
  char *memory = static_cast<char *>(eh_get_memory(block_size));
  auto *block = static_cast<a_mem_block_descr *>(alloc_in_mem_block(descriptor_piece));
  mem_allocation_stack->holds_descriptor = true;
  *block = {curr_mem_block_descr, memory, block_size, 0, true};
  curr_mem_block_descr = block;
}

void free_in_mem_block(void *piece) {
  a_mem_allocation *header = mem_allocation_stack;
  if (!header || header->address != piece) assertion_failed(436);
  mem_allocation_stack = header->next;
  curr_mem_block_descr->used -= header->size + sizeof(a_mem_allocation);
}

}  // namespace

void *eh_alloc_on_stack(unsigned int bytes) {
  if (!curr_mem_block_descr) init_eh_memory_management();
  // No object is this large; the bound keeps the sums below from wrapping.
  if (bytes > 0x7FFF0000) __call_terminate();
  unsigned int size = (bytes + 7) & ~7u;
  if (curr_mem_block_descr->size < curr_mem_block_descr->used + size + reserve) alloc_new_mem_block(size);
  return alloc_in_mem_block(size);
}

void eh_free_on_stack(void *piece) {
  free_in_mem_block(piece);
  a_mem_block_descr *block = curr_mem_block_descr;
  if (block->used == 0 && block->next) {
    curr_mem_block_descr = block->next;
    if (block->from_heap) free(block->base);
    free_in_mem_block(block);
  }
}

}  // namespace __zor

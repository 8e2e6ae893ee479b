// Exception memory beyond the common case: blocks from the heap, and their return.

#include "eh_memory.h"

#include <stdlib.h>

namespace __zor {
namespace {

const unsigned int block_unit = 8192;

alignas(16) char initial_mem_block[block_unit];
a_mem_block_descr initial_mem_block_descr = {nullptr, initial_mem_block, sizeof initial_mem_block, 0, false};

char *eh_get_memory(unsigned int size) {
  void *memory = malloc(size);
  if (!memory) terminate_because("no memory for an exception");
  return static_cast<char *>(memory);
}

}  // namespace

a_mem_block_descr *curr_mem_block_descr = &initial_mem_block_descr;
// Not among the zeros, where the first throw would read a page before it writes it: two faults.
__attribute__((__section__(".data.mem_allocation_stack"))) a_mem_allocation *mem_allocation_stack = nullptr;

void alloc_new_mem_block(unsigned int bytes) {
  // No object is this large: such a size is a negative one.
  if (bytes > 0x7FFF0000) terminate_because("an exception of impossible size");
  const unsigned int size = (bytes + 7) & ~7u;
  unsigned int block_size = (size & ~(block_unit - 1)) + block_unit;
  if (block_size - size < block_unit / 2) block_size += block_unit;
  // The heap is asked first: when it fails, the terminate handler finds this memory as it was.
  char *memory = eh_get_memory(block_size);
  auto *block = static_cast<a_mem_block_descr *>(alloc_in_mem_block(descriptor_piece));
  mem_allocation_stack->holds_descriptor = true;
  *block = {curr_mem_block_descr, memory, block_size, 0, true};
  curr_mem_block_descr = block;
}

void leave_empty_mem_block() {
  a_mem_block_descr *block = curr_mem_block_descr;
  curr_mem_block_descr = block->next;
  if (block->from_heap) free(block->base);
  free_in_mem_block(block);
}

}  // namespace __zor

// Where blocks come from when their free list is empty: chunks that grow with use and are kept for good, or operator
// new.

#include "block_pool.h"

#include <stdlib.h>

#include "../libC/pool.h"

namespace __zor {

free_block *free_strings[largest_pooled / block_step + 1];

namespace {

// Characters start one representation after their block. What the C library returns is aligned for anything, so that
// they are too when the block starts this much later.
constexpr unsigned shift = block_step - sizeof(b_str_ref);

// A representation of up to 31 characters, the most frequent, lies in one line of the processor's cache: in a chunk,
// blocks of whole lines start in front, where a line does, and others at the end.
constexpr unsigned cache_line = 64;

chunk_source chunks = {1024, nullptr, 0};  // the first serves the strings of the standard streams' start

b_str_ref *describe(void *memory, unsigned bytes, unsigned special) {
  b_str_ref *rep = static_cast<b_str_ref *>(memory);
  rep->data = own_buffer(rep);
  rep->_room = bytes - static_cast<unsigned>(sizeof *rep);
  rep->_block = bytes | special;
  return rep;
}

void put(void *memory, unsigned bytes) {
  describe(memory, bytes, 0);
  free_block *block = static_cast<free_block *>(memory);
  free_block *&head = free_strings[bytes / block_step];
  block->next = head;
  head = block;
}

}  // namespace

b_str_ref *take_block(unsigned bytes) {
  if (bytes > largest_pooled || !blocks_are_pooled())
    return describe(static_cast<char *>(operator new(bytes + shift)) + shift, bytes, block_is_special);
  free_block *&head = free_strings[bytes / block_step];
  if (free_block *block = head) {
    head = block->next;
    return reinterpret_cast<b_str_ref *>(block);
  }
  if (chunks.fresh_bytes < bytes) {
    char *chunk = chunks.new_chunk(bytes + cache_line + block_step);
    const unsigned rest = chunks.fresh_bytes;
    if (rest > block_step) put(chunks.fresh, rest);
    const unsigned aligned = cache_line - reinterpret_cast<size_t>(chunk) % cache_line;
    chunks.begin(chunk, aligned + shift);
    chunks.fresh_bytes &= ~(block_step - 1);  // blocks at the end are aligned, too
  }
  return describe(bytes % cache_line ? chunks.carve_end(bytes) : chunks.carve(bytes), bytes, 0);
}

void give_block(void *memory, unsigned bytes) PLX_NOTHROW {
  if (bytes > largest_pooled || !blocks_are_pooled())
    operator delete(static_cast<char *>(memory) - shift);
  else
    put(memory, bytes);
}

b_str_ref *extend_block(b_str_ref *rep, unsigned bytes) {
  if ((rep->_block & ~block_is_special) <= largest_pooled || rep->data != own_buffer(rep) || !blocks_are_pooled())
    return nullptr;
  void *memory = realloc(reinterpret_cast<char *>(rep) - shift, bytes + shift);
  return memory ? describe(static_cast<char *>(memory) + shift, bytes, block_is_special) : nullptr;
}

}  // namespace __zor

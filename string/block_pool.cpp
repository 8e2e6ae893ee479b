// Where blocks come from when their free list is empty: chunks of operator new that grow with use and are kept for
// good, or operator new itself.

#include "block_pool.h"

#include <stdlib.h>

#include "../libC/replaced_new.h"
#include "../libC/sanitizer.h"

namespace __zor {

block_pool string_pool;

namespace {

constexpr unsigned first_chunk = 4096;
constexpr unsigned largest_chunk = 65536;

// Characters start one representation after their block. What the C library returns is aligned for anything, so that
// they are too when the block starts this much later.
constexpr unsigned shift = block_step - sizeof(b_str_ref);

unsigned next_chunk = first_chunk;

bool is_bypassed() {
  if (PLX_ADDRESS_SANITIZER) return true;
  if (!string_pool.asked) {
    string_pool.bypassed = operator_new_is_replaced();
    string_pool.asked = true;
  }
  return string_pool.bypassed;
}

b_str_ref *describe(void *memory, unsigned bytes, unsigned special) {
  b_str_ref *rep = static_cast<b_str_ref *>(memory);
  rep->data = own_buffer(rep);
  rep->_room = bytes - static_cast<unsigned>(sizeof *rep);
  rep->_block = bytes | special;
  return rep;
}

b_str_ref *carve(unsigned bytes) {
  void *block = string_pool.fresh;
  string_pool.fresh += bytes;
  string_pool.fresh_bytes -= bytes;
  return describe(block, bytes, 0);
}

void put(void *memory, unsigned bytes) {
  describe(memory, bytes, 0);
  free_block *block = static_cast<free_block *>(memory);
  free_block *&head = string_pool.free[bytes / block_step];
  block->next = head;
  head = block;
}

}  // namespace

b_str_ref *take_block(unsigned bytes) {
  if (bytes > largest_pooled || is_bypassed())
    return describe(static_cast<char *>(operator new(bytes + shift)) + shift, bytes, block_is_special);
  free_block *&head = string_pool.free[bytes / block_step];
  if (free_block *block = head) {
    head = block->next;
    return reinterpret_cast<b_str_ref *>(block);
  }
  if (string_pool.fresh_bytes >= bytes) return carve(bytes);

  char *chunk = static_cast<char *>(operator new(next_chunk));
  if (string_pool.fresh_bytes > block_step) put(string_pool.fresh, string_pool.fresh_bytes);
  const unsigned aligned = block_step - reinterpret_cast<size_t>(chunk) % block_step;
  const unsigned skipped = aligned + shift;
  string_pool.fresh = chunk + skipped;
  string_pool.fresh_bytes = (next_chunk - skipped) & ~(block_step - 1);
  if (next_chunk < largest_chunk) next_chunk *= 2;
  return carve(bytes);
}

void give_block(void *memory, unsigned bytes) PLX_NOTHROW {
  if (bytes > largest_pooled || is_bypassed())
    operator delete(static_cast<char *>(memory) - shift);
  else
    put(memory, bytes);
}

b_str_ref *extend_block(b_str_ref *rep, unsigned bytes) {
  if ((rep->_block & ~block_is_special) <= largest_pooled || rep->data != own_buffer(rep) || is_bypassed())
    return nullptr;
  void *memory = realloc(reinterpret_cast<char *>(rep) - shift, bytes + shift);
  return memory ? describe(static_cast<char *>(memory) + shift, bytes, block_is_special) : nullptr;
}

}  // namespace __zor

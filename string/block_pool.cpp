// Where the pool's blocks come from: chunks of operator new that grow with use and are kept for good.

#include "block_pool.h"

#include <stdint.h>
#include <stdlib.h>

#include <plx/string_core.h>

// The first and the last byte of this shared object, set by the linker.
extern "C" __attribute__((__visibility__("hidden"))) const char __ehdr_start[], _end[];

namespace __zor {

block_pool string_pool;

namespace {

constexpr unsigned first_chunk = 4096;
constexpr unsigned largest_chunk = 65536;

unsigned next_chunk = first_chunk;

bool is_ours(uintptr_t function) {
  return function - reinterpret_cast<uintptr_t>(__ehdr_start) < static_cast<uintptr_t>(_end - __ehdr_start);
}

// Both names are resolved as the program resolves them.
bool is_replaced() {
  void *(*allocate)(size_t) = operator new;
  void (*deallocate)(void *) PLX_NOTHROW = operator delete;
  return !is_ours(reinterpret_cast<uintptr_t>(allocate)) || !is_ours(reinterpret_cast<uintptr_t>(deallocate));
}

bool is_bypassed() {
  if (!string_pool.asked) {
    string_pool.bypassed = is_replaced();
    string_pool.asked = true;
  }
  return string_pool.bypassed;
}

void *carve(unsigned bytes) {
  void *block = string_pool.fresh;
  string_pool.fresh += bytes;
  string_pool.fresh_bytes -= bytes;
  return block;
}

}  // namespace

void *large_take(unsigned bytes) { return operator new(bytes); }
void large_give(void *memory) PLX_NOTHROW { operator delete(memory); }

void *large_extend(void *memory, unsigned bytes) { return is_bypassed() ? nullptr : realloc(memory, bytes); }

PLX_COLD void *pool_refill(unsigned bytes) {
  if (is_bypassed()) return operator new(bytes);
  if (string_pool.fresh_bytes >= bytes) return carve(bytes);

  char *chunk = static_cast<char *>(operator new(next_chunk));
  if (string_pool.fresh_bytes >= block_pool::step) pool_give(string_pool.fresh, string_pool.fresh_bytes);
  // The characters, which start one representation after the block, shall be aligned.
  const unsigned aligned = block_pool::step - reinterpret_cast<uintptr_t>(chunk) % block_pool::step;
  const unsigned skipped = aligned + block_pool::step - sizeof(b_str_ref);
  string_pool.fresh = chunk + skipped;
  string_pool.fresh_bytes = (next_chunk - skipped) & ~(block_pool::step - 1);
  if (next_chunk < largest_chunk) next_chunk *= 2;
  return carve(bytes);
}

}  // namespace __zor

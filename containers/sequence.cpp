// What the sequences need out of line: the errors that they report, and growing a block of plain bytes, which the C
// library often does where the block stands or by remapping its pages.

#include <plx/containers/sequence.h>

#include <stdlib.h>

#include <stdexcept>

#include "../libC/replaced_new.h"

namespace __zor {

void sequence_out_of_range() { std::out_of_range::__throw("Out of range exception occurred"); }
void sequence_length_error() { std::length_error::__throw("Length exception occurred"); }

namespace {

// Apart, because compilers warn of realloc on a block of operator new: the library's own is malloc.
PLX_NOINLINE void *reallocated(void *block, size_t bytes) { return realloc(block, bytes); }

}  // namespace

void *grow_block(void *block, size_t used, size_t bytes) {
  if (!block) return operator new(bytes);
  if (!operator_new_is_replaced()) {
    // On failure the block stays, and operator new asks the new handler.
    if (void *grown = reallocated(block, bytes)) return grown;
  }
  void *grown = operator new(bytes);
  memcpy(grown, block, used);
  operator delete(block);
  return grown;
}

}  // namespace __zor

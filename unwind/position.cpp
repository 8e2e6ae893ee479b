// Where entries of the eh stack stand among the frames of the machine's stack.

#include "../libC/i386/jump_buffer.h"
#include "../libC/throw_stack.h"
#include "walk.h"

namespace __zor {
namespace {

// A throw stands where it was thrown until it lands, and then, while the clean-up runs, at the end of the frame:
// handlers that were inlined into the clean-up come before it, and what leaves the frame meets it.
unsigned position_of_marker(const an_eh_stack_entry *marker) {
  auto *thrown = reinterpret_cast<a_throw_stack_entry *>(reinterpret_cast<unsigned>(marker) -
                                                         offsetof(a_throw_stack_entry, marker));
  const a_throw_state &state = state_of(thrown);
  const an_exception_header *header = state.exception;
  return header && header->thrown == thrown && header->landed ? header->landed->cfa : state.position;
}

}  // namespace

unsigned position_elsewhere(an_eh_stack_entry *entry) {
  switch (entry->kind) {
    case PLX_EH_IN_PROGRESS: return position_of_marker(entry);
    // The entry is not in the frame of its function, but the jump leads there.
    case PLX_EH_TRY_BLOCK: return stack_pointer_in(entry->body.try_block.jump_buffer);
    default: return 0;
  }
}

}  // namespace __zor

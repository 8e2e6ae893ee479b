// Where entries of the eh stack stand among the frames of the machine's stack.

#include "../libC/i386/jump_buffer.h"
#include "../libC/throw_stack.h"
#include "walk.h"

// In a program with the address sanitizer: its "fake stack" may hold what instrumented code has in its frames.
extern "C" {
void *__asan_get_current_fake_stack() __attribute__((__weak__));
void *__asan_addr_is_in_fake_stack(void *fake_stack, void *address, void **start, void **end) __attribute__((__weak__));
}

namespace __zor {
namespace {

// The sanitizer tells where the frame of its own function was, which an instrumented function calls first of all: right
// below, where the frames of other calls are now. Those begin less than this higher, whatever arguments were pushed for
// them, and no instrumented frame is as small.
const unsigned above_callees = 64;

// An address in the frame of what lies at `address` on the fake stack, or 0.
unsigned real_frame_of(void *address) {
  if (!__asan_get_current_fake_stack || !__asan_addr_is_in_fake_stack) return 0;
  void *fake_stack = __asan_get_current_fake_stack();
  if (!fake_stack) return 0;
  const void *below = __asan_addr_is_in_fake_stack(fake_stack, address, nullptr, nullptr);
  return below ? reinterpret_cast<unsigned>(below) + above_callees : 0;
}

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
    default: return real_frame_of(entry);
  }
}

}  // namespace __zor

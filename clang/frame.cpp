// The personality of clang's frames: which landing pad a frame has for an exception, and the jump to it.
//
//   head -> marker -> ... -> context -> next ...     while searching and unwinding
//   head -> context -> marker -> next ...            while the frame's cleanup or the entry of its handler runs
//
// With the marker below the frame, code that the landing pad calls builds its own entries on top as usual, and an
// exception that would leave it meets the marker and terminates.

#include "frame.h"

#include "../libC/foreign.h"
#include "../libC/sanitizer.h"
#include "abi_match.h"
#include "exception_table.h"
#include "foreign_match.h"

#if PLX_ADDRESS_SANITIZER
// Frames that a jump leaves stay poisoned unless the sanitizer is told.
extern "C" void __asan_handle_no_return();
#endif

namespace __zor {
namespace {

const int no_cleanup = -1;

// Frame and stack pointer change under the compiler's feet, so the jump is one instruction sequence.
[[noreturn]] inline __attribute__((__always_inline__)) void jump_to(a_function_context *context) {
#if PLX_ADDRESS_SANITIZER
  __asan_handle_no_return();
#endif
  __asm__ volatile(
      "movl %0, %%ebp\n\t"
      "movl %1, %%esp\n\t"
      "jmp *%2"
      :
      : "r"(context->frame_pointer), "r"(context->stack_pointer), "r"(context->landing_address));
  __builtin_unreachable();
}

[[noreturn]] inline __attribute__((__always_inline__)) void land(a_function_context *context,
                                                                 a_throw_stack_entry *thrown, int landing_pad,
                                                                 int selector) {
  auto *entry = reinterpret_cast<an_eh_stack_entry *>(&context->next);
  thrown->marker.next = context->next;
  context->next = &thrown->marker;
  __curr_eh_stack_entry = entry;
  state_of(thrown).landed = entry;
  context->call_site = landing_pad;
  context->exception = exception_pointer(thrown);
  context->selector = selector;
  jump_to(context);
}

}  // namespace

EH_FAST bool foreign_frame_search(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  a_function_context *context = context_of(entry);
  context->selector = no_cleanup;
  int call_site = context->call_site;
  if (call_site <= 0) return false;

  const an_exception_table table(context->exception_table);
  const unsigned char *at = table.call_sites;
  int landing_pad;
  unsigned int action;
  do {
    landing_pad = static_cast<int>(read_uleb(at));
    action = read_uleb(at);
  } while (--call_site > 0);

  if (action == 0) {
    context->selector = landing_pad;
    return false;
  }
  a_throw_state &state = state_of(thrown);
  for (at = table.actions + action - 1;;) {
    const int filter = read_sleb(at);
    const unsigned char *next = at;
    const int displacement = read_sleb(at);
    if (filter == 0) {
      context->selector = landing_pad;
    } else if (filter > 0 ? catch_clause_matches(table.type(filter), thrown, &state.adjusted)
                          : !allowed_by(table.allowed_list(filter), table.types, thrown)) {
      state.selector = filter;
      state.landing_pad = landing_pad;
      if (filter < 0) {
        state.filter = table.allowed_list(filter);
        state.filter_types = table.types;
      }
      return true;
    }
    if (displacement == 0) return false;
    at = next + displacement;
  }
}

EH_FAST void foreign_frame_clean_up(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  a_function_context *context = context_of(entry);
  if (context->selector != no_cleanup) land(context, thrown, context->selector, 0);
}

EH_FAST void foreign_frame_handle(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  const a_throw_state &state = state_of(thrown);
  land(context_of(entry), thrown, state.landing_pad, state.selector);
}

}  // namespace __zor

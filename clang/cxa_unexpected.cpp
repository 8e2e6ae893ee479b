// A violated exception specification of a C++ function (1998, 15.5.2): the unexpected handler may throw what the
// specification allows; anything else becomes bad_exception where that is allowed, and terminates where not.

#include <exception>
#include <new>

#include <plx/config.h>

#include "../libC/foreign.h"
#include "../libC/throw_stack.h"
#include "foreign_match.h"
#include "frame.h"

using namespace __zor;

namespace {

// On the eh stack while the unexpected handler runs.
struct a_guard {
  an_eh_stack_entry entry;
  const unsigned char *allowed;
  const void *const *types;
};

const a_guard *guard_of(const an_eh_stack_entry *entry) { return reinterpret_cast<const a_guard *>(entry); }

void destroy_bad_exception(void *object, int) { static_cast<std::bad_exception *>(object)->~bad_exception(); }

void construct_bad_exception() {
  void *object = __throw_setup_dtor(&__TI_St13bad_exception, sizeof(std::bad_exception), 0, destroy_bad_exception);
  new (object) std::bad_exception;
}

}  // namespace

namespace __zor {

bool foreign_guard_stops(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  return !allowed_by(guard_of(entry)->allowed, guard_of(entry)->types, thrown);
}

void foreign_guard_replace(an_eh_stack_entry *entry, a_throw_stack_entry *thrown) {
  const a_guard *guard = guard_of(entry);
  construct_bad_exception();
  a_throw_stack_entry *replacement = curr_throw_stack_entry;
  if (!allowed_by(guard->allowed, guard->types, replacement)) {
    // What is reported as uncaught is what the handler threw.
    abandon(replacement);
    free_finished_throws();
    __call_terminate();
  }
  release(thrown);
  end_wait(replacement);
  throw_exception(replacement);
}

}  // namespace __zor

extern "C" __attribute__((__visibility__("default"), __noreturn__)) void __cxa_call_unexpected(void *exception) {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && exception_pointer(thrown) != exception) thrown = thrown->next;
  if (!thrown) assertion_failed(1099);
  a_throw_state &state = state_of(thrown);

  a_guard guard;
  guard.entry.kind = eh_unexpected_guard;
  guard.allowed = state.filter;
  guard.types = state.filter_types;
  unlink_marker(thrown);
  guard.entry.next = __curr_eh_stack_entry;
  __curr_eh_stack_entry = &guard.entry;
  begin_wait(thrown, a_pending_step::unexpected, &guard.entry);
  __call_unexpected();
}

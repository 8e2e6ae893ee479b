// A violated exception specification of a C++ function (1998, 15.5.2): the unexpected handler may throw what the
// specification allows; anything else becomes bad_exception where that is allowed, and terminates where not.

#include <plx/base/config.h>

#include "../libC/above.h"
#include "../libC/throw_stack.h"
#include "walk.h"

using namespace __zor;

namespace {

struct a_guard : an_unexpected_guard {
  const a_plan *plan;  // of the call that the specification's exception came from
  int filter;

  bool allows(a_throw_stack_entry *thrown) const { return allowed_by(plan->table(), filter, thrown); }
};

bool stops(an_unexpected_guard *guard, a_throw_stack_entry *thrown) {
  return !static_cast<a_guard *>(guard)->allows(thrown);
}

void replace(an_unexpected_guard *guard, a_throw_stack_entry *thrown) {
  set_up_bad_exception();
  a_throw_stack_entry *replacement = curr_throw_stack_entry;
  if (!static_cast<a_guard *>(guard)->allows(replacement)) {
    // What is reported as uncaught is what the handler threw.
    abandon(replacement);
    free_finished_throws();
    __call_terminate();
  }
  release(thrown);
  __throw();
}

}  // namespace

extern "C" PLX_API PLX_NORETURN void __cxa_call_unexpected(an_exception_header *exception) {
  a_throw_stack_entry *thrown = exception->thrown;
  a_throw_state &state = state_of(thrown);
  // A copy: the memory of plans may need the place of this one while the handler runs.
  const a_plan plan = *find_plan(state.final.address);
  a_guard guard;
  guard.entry.kind = eh_unexpected_guard;
  guard.stops = stops;
  guard.replace = replace;
  guard.plan = &plan;
  guard.filter = state.final.selector;
  if (__curr_eh_stack_entry != &thrown->marker) assertion_failed(head_has_changed);
  give_back_records(thrown);
  thrown->handled = 1;
  guard.entry.next = thrown->marker.next;
  __curr_eh_stack_entry = &guard.entry;
  begin_wait(thrown, a_pending_step::unexpected, &guard.entry, &guard);
  __call_unexpected();
}

// What our frames do when another unwinder passes: an exception of another library, or the end of a thread. They clean
// up, and take part in nothing else: handlers, catch (...) too, are for our own exceptions. Those never come here,
// since the walk reads the tables itself; the name of this function tells it whose they are.

#include <plx/base/config.h>

#include "../libC/throw_stack.h"
#include "foreign_unwinder.h"
#include "walk.h"

using namespace __zor;

namespace {

enum a_reason { install_context = 7, continue_unwind = 8 };
const int search_phase = 1;

// A clean-up that leads into catch (...) is none: compilers make one landing of the two.
bool has_clean_up(const a_plan *plan) {
  if (plan->handling <= a_plan::clean_up) return plan->handling == a_plan::clean_up;
  const an_exception_table table = plan->table();
  bool found = false;
  for (const byte *at = plan->action; at;) {
    const int filter = table.next_action(at);
    if (filter > 0 && !table.type(static_cast<unsigned>(filter))) return false;
    if (filter == 0) found = true;
  }
  return found;
}

// Entries of frames that the other unwinder has left already.
void unwind_entries_below(unsigned stack_pointer) {
  while (an_eh_stack_entry *entry = __curr_eh_stack_entry) {
    if (position_of(entry, 0, reinterpret_cast<unsigned>(__libc_stack_end)) >= stack_pointer) return;
    if (pending_throws) end_waits_at(entry);
    __curr_eh_stack_entry = entry->next;
    unwind_entry(entry);
  }
}

}  // namespace

extern "C" {

PLX_API int __gxx_personality_v0(int, int actions, unsigned long long, void *exception, void *context) {
  const a_foreign_unwinder *unwinder = find_foreign_unwinder(__builtin_return_address(0));
  if (!unwinder) terminate_because("an unwinder that plx does not know");
  const a_plan *plan = find_plan(unwinder->get_ip(context));
  if (plan->handling == a_plan::terminate)
    terminate_because("another library's exception left a function that lets none pass");
  if ((actions & search_phase) || !has_clean_up(plan)) return continue_unwind;
  const unsigned landing_pad = plan->landing_pad;
  unwind_entries_below(unwinder->get_cfa(context));
  unwinder->set_gr(context, register_eax, reinterpret_cast<unsigned>(exception));
  unwinder->set_gr(context, register_edx, 0);
  unwinder->set_ip(context, landing_pad);
  return install_context;
}

PLX_API __attribute__((__alias__("__gxx_personality_v0"))) int __gcc_personality_v0(int, int, unsigned long long,
                                                                                    void *, void *);

[[noreturn]] PLX_REGPARM PLX_HIDDEN __attribute__((__used__)) void __zor_resume_foreign(void *exception) {
  void (*resume)(void *) = foreign_resume();
  if (resume) resume(exception);
  terminate_because("another library's exception, and nobody to go on with it");
}

}  // extern "C"

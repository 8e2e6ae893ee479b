// Termination and violated exception specifications (1998, 18.6.2 to 18.6.4).
//
// While a terminate handler runs, a barrier lies on the eh stack: what the handler throws and does not catch itself
// must not reach frames that are done with, nor call the handler again.

#include <stdlib.h>

#include <exception>

#include "eh_state.h"
#include "uncaught_report.h"

namespace __zor {
int terminate_called;
}

using namespace __zor;

void (*__default_terminate_routine)() = abort;
void (*__default_unexpected_routine)() = std::terminate;

namespace {

const char *termination_reason;

bool handler_is_running() {
  an_eh_stack_entry *entry = __curr_eh_stack_entry;
  while (entry && entry->kind != eh_terminate_barrier) entry = entry->next;
  return entry;
}

}  // namespace

void __call_terminate() {
  terminate_called = 1;
  std::terminate();
}

void __zor::terminate_because(const char *reason) {
  termination_reason = reason;
  __call_terminate();
}

void __call_unexpected() { std::unexpected(); }

namespace std {

void terminate() PLX_NOTHROW {
  if (handler_is_running()) abort();
  void (*handler)() = __default_terminate_routine;
  if (!handler || handler == abort) {
    if (termination_reason)
      report_termination(termination_reason);
    else
      report_uncaught_exception();
    abort();
  }
  // In this frame, where the handler's frames are inner to it.
  an_eh_stack_entry barrier;
  barrier.kind = eh_terminate_barrier;
  barrier.next = __curr_eh_stack_entry;
  __curr_eh_stack_entry = &barrier;
  handler();
  abort();
}

void unexpected() {
  if (__default_unexpected_routine) __default_unexpected_routine();
  terminate();
}

terminate_handler set_terminate(terminate_handler handler) PLX_NOTHROW {
  terminate_handler before = __default_terminate_routine;
  __default_terminate_routine = handler;
  return before;
}

unexpected_handler set_unexpected(unexpected_handler handler) PLX_NOTHROW {
  unexpected_handler before = __default_unexpected_routine;
  __default_unexpected_routine = handler;
  return before;
}

bool uncaught_exception() PLX_NOTHROW {
  if (terminate_called) return true;
  an_eh_stack_entry *entry = __curr_eh_stack_entry;
  while (entry && entry->kind != PLX_EH_IN_PROGRESS) entry = entry->next;
  return entry;
}

}  // namespace std

// setjmp and longjmp for programs (<setjmp.h>): a jump out of frames that are on the eh stack must take them off it.
// The head, the current region and the newest exception are kept in the jump buffer, in the tail of the signal mask,
// which _setjmp leaves unused and the kernel's eight bytes never reach.

#include <setjmp.h>

#include <plx/base/config.h>

#include "throw_stack.h"

using namespace __zor;

namespace {

struct a_jump_record {
  an_eh_stack_entry *head;
  a_throw_stack_entry *newest_throw;
  unsigned short region;
};

a_jump_record *record_in(__jmp_buf_tag *buffer) { return reinterpret_cast<a_jump_record *>(buffer + 1) - 1; }

// Exceptions younger than the buffer belong to handlers and throws that the jump leaves.
void end_throws_down_to(a_throw_stack_entry *newest) {
  a_throw_stack_entry *thrown = curr_throw_stack_entry;
  while (thrown && thrown != newest) thrown = thrown->next;
  if (thrown != newest) return;
  while (curr_throw_stack_entry != newest) {
    thrown = curr_throw_stack_entry;
    end_wait(thrown);
    release(thrown);
    // A rethrow that was ended may still share the object with an older handler that goes on. The newest that stays may
    // be finished: a rethrow whose object's destructor set up the jump.
    free_finished_throws(newest);
    if (curr_throw_stack_entry == thrown) return;
  }
}

}  // namespace

extern "C" {

PLX_API __jmp_buf_tag *__zor_mark_jump(__jmp_buf_tag *buffer) PLX_NOTHROW {
  *record_in(buffer) = {__curr_eh_stack_entry, curr_throw_stack_entry, __eh_curr_region};
  return buffer;
}

PLX_API PLX_NORETURN void __zor_longjmp(__jmp_buf_tag *buffer, int value) {
  const a_jump_record *record = record_in(buffer);
  end_throws_down_to(record->newest_throw);
  __curr_eh_stack_entry = record->head;
  __eh_curr_region = record->region;
  _longjmp(buffer, value);
}

}  // extern "C"

// The one setjmp of the library.

#include "eh_tools.h"

#include <setjmp.h>

namespace __zor {

const an_exception_type_specification eh_catch_all = {nullptr, PLX_TYPE_ELLIPSIS | PLX_TYPE_LAST};

PLX_NOINLINE int eh_try_erased(const an_exception_type_specification *list, void (*body)(void *), void *body_data,
                               void (*handler)(void *, void *), void *handler_data) {
  an_eh_stack_entry entry;
  entry.kind = PLX_EH_TRY_BLOCK;
  entry.body.try_block.clause_list = list;
  entry.body.try_block.handled_exception = nullptr;
  entry.body.try_block.try_region = __eh_curr_region;
  entry.next = __curr_eh_stack_entry;
  __curr_eh_stack_entry = &entry;
  if (_setjmp(entry.body.try_block.jump_buffer) == 0) {
    body(body_data);
    __curr_eh_stack_entry = entry.next;
    return 0;
  }
  const int clause = __catch_clause_number;
  void *object = __caught_object_address;
  __exception_caught();
  handler(handler_data, object);
  __free_thrown_object();
  __curr_eh_stack_entry = entry.next;
  return clause;
}

}  // namespace __zor

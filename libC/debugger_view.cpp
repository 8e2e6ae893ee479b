// Where a debugger finds the lists that nothing else exports. A record of its own, and exported, because a stripped
// library has no other names of its data. gdb/plx_printers/roots.py reads it; nothing in a program does.

#include <plx/base/config.h>

#include "throw_stack.h"

namespace __zor {

extern a_needed_destruction *needed_destruction_head;

struct a_debugger_view {
  unsigned int version;  // of this record, and of what is private in the records that the lists hold
  a_throw_stack_entry *const *throw_stack;
  a_needed_destruction *const *destructions;  // ends with the address 17
};

static_assert(sizeof(a_debugger_view) == 12, "the debugger's commands know this record");

}  // namespace __zor

extern "C" PLX_API const __zor::a_debugger_view __zor_debugger_view;
const __zor::a_debugger_view __zor_debugger_view = {1, &__zor::curr_throw_stack_entry, &__zor::needed_destruction_head};

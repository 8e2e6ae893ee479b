// What the files of this folder ask of each other: the search over frames and entries, and the way out.
#pragma once

#include "plan.h"

namespace __zor {

// Looks for the handler of `thrown` from where it was thrown outwards, and notes in its state where to land on the way:
// in `final` the handler, or, without one, the end of the stack; in the records what comes before.
void search_from(const a_saved_frame &thrower, a_throw_stack_entry *thrown);

// Notes the landings that follow the last recorded one, once those are used up.
void record_more(a_throw_stack_entry *thrown, const a_landing &last);

// Whether a specification's list of allowed types allows the exception to pass.
bool allowed_by(const an_exception_table &table, int filter, a_throw_stack_entry *thrown);

// Where an entry stands that does not lie on the searcher's stack.
unsigned position_elsewhere(an_eh_stack_entry *entry);

// The stack address of an entry, beyond all for none; `stack_pointer` is the searcher's.
inline unsigned position_of(an_eh_stack_entry *entry, unsigned stack_pointer, unsigned stack_end) {
  const unsigned address = reinterpret_cast<unsigned>(entry);
  if (address - stack_pointer < stack_end - stack_pointer) return address;
  return entry ? position_elsewhere(entry) : 0xFFFFFFFF;
}

}  // namespace __zor

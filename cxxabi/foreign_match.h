// Matching between a frame's catch clauses, which are a compiler's records, and any throw.
#pragma once

#include "../libC/eh_state.h"

namespace __zor {

// Whether a clause (null: catch (...)) matches; *adjusted becomes what the handler reads.
bool catch_clause_matches_by_rules(const void *clause, a_throw_stack_entry *thrown, void **adjusted);

// The usual case first: the very type that was thrown, and no pointer, nor a name that begins with a mark.
inline bool catch_clause_matches(const void *clause, a_throw_stack_entry *thrown, void **adjusted) {
  const a_type_info_impl *native = native_type(thrown);
  if (!clause || clause != native || native->name[0] == 'P' || native->name[0] == '*')
    return catch_clause_matches_by_rules(clause, thrown, adjusted);
  *adjusted = thrown->object;
  return true;
}

}  // namespace __zor

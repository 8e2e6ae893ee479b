// Matching between a frame's catch clauses, which are a compiler's records, and any throw.
#pragma once

#include "../libC/eh_state.h"

namespace __zor {

// Whether a clause (null: catch (...)) matches; *adjusted becomes what the handler reads.
bool catch_clause_matches_by_rules(const void *clause, a_throw_stack_entry *thrown, void **adjusted);

// The usual case first: the very type that was thrown, and no pointer.
inline bool catch_clause_matches(const void *clause, a_throw_stack_entry *thrown, void **adjusted) {
  if (!clause || clause != state_of(thrown).native || state_of(thrown).native->name[0] == 'P')
    return catch_clause_matches_by_rules(clause, thrown, adjusted);
  *adjusted = thrown->object;
  return true;
}

// Whether a list of allowed types, uleb indices into `types` ended by 0, allows the exception to pass.
bool allowed_by(const unsigned char *list, const void *const *types, a_throw_stack_entry *thrown);

}  // namespace __zor

// Matching between a frame's catch clauses, which are a compiler's records, and any throw.
#pragma once

#include "../libC/eh_state.h"

namespace __zor {

// Whether a clause (null: catch (...)) matches; *adjusted becomes what the handler reads.
bool catch_clause_matches_by_rules(const void *clause, a_throw_stack_entry *thrown, void **adjusted);

// The identity that the clause's type shares with a descriptor of the library; null: it shares none.
const char *library_identity_of_clause(const void *clause);

// The usual cases first: the very type that was thrown, and no pointer, nor a name that begins with a mark; and a class
// of the library's that the library threw. `identity` is the clause's if that is known, else null.
inline bool catch_clause_matches(const void *clause, const char *identity, a_throw_stack_entry *thrown,
                                 void **adjusted) {
  const a_type_info_impl *native = native_type(thrown);
  if (native ? clause != native || native->name[0] == 'P' || native->name[0] == '*'
             : !identity || identity != thrown->type->identity || (thrown->flags & PLX_TYPE_POINTER))
    return catch_clause_matches_by_rules(clause, thrown, adjusted);
  *adjusted = thrown->object;
  return true;
}

}  // namespace __zor

// What the throw machinery asks of the adapter for C++ compilers, which stands above it: frames whose cleanups and
// handlers are described by a compiler's own tables, and type records in that compiler's format. clang/ defines it.
#pragma once

#include "eh_state.h"

namespace __zor {

// A record is foreign unless it is a descriptor of generated code.
inline bool is_foreign(const a_type_info_impl *type) { return type->virtual_table != PLX_TYPE_INFO_VTABLE; }

// The address that stands for a foreign type; equal to the identity of the library's own descriptor of that class.
const char *foreign_identity(const a_type_info_impl *type);

// Whether two foreign records with different identities are of one pointer type all the same: where a file knows the
// class pointed to by its declaration only, its records have identities of their own.
bool foreign_same_incomplete(const a_type_info_impl *left, const a_type_info_impl *right);

// Converts from a foreign class to a base, public and unambiguous, that may be of either format.
bool foreign_derived_to_base(void *object, void **converted, const a_type_info_impl *from, const a_type_info_impl *to);

// Splits a foreign type as a throw or a clause of generated code states it: for a pointer the pointed-to type.
void foreign_describe(const a_type_info_impl *native, const a_type_info_impl **type, unsigned char *flags);

// Looks for a handler of `thrown` in a foreign frame; fills the throw's state when there is one, else notes in the
// frame whether it has a cleanup.
EH_FAST bool foreign_frame_search(an_eh_stack_entry *entry, a_throw_stack_entry *thrown);

// Enters the frame's cleanup, which comes back by resume_unwinding; returns when there is none.
EH_FAST void foreign_frame_clean_up(an_eh_stack_entry *entry, a_throw_stack_entry *thrown);

// Enters the chosen handler.
[[noreturn]] EH_FAST void foreign_frame_handle(an_eh_stack_entry *entry, a_throw_stack_entry *thrown);

// Whether an exception that leaves an unexpected handler must stop at its guard, and what becomes of it then.
bool foreign_guard_stops(an_eh_stack_entry *guard, a_throw_stack_entry *thrown);
[[noreturn]] void foreign_guard_replace(an_eh_stack_entry *guard, a_throw_stack_entry *thrown);

}  // namespace __zor

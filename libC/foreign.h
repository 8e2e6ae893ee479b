// What the throw machinery asks about type records in the C++ ABI's format. cxxabi/ defines it.
#pragma once

#include "eh_state.h"

namespace __zor {

// A record is foreign unless it is a descriptor of generated code.
inline bool is_foreign(const a_type_info_impl *type) { return type->virtual_table != PLX_TYPE_INFO_VTABLE; }

// The address that stands for a foreign type; equal to the identity of the library's own descriptor of that class.
PLX_HIDDEN const char *foreign_identity(const a_type_info_impl *type);

// Whether two foreign records with different identities are of one type all the same: objects that were loaded apart
// have records of their own, and so has a file for pointers to a class that is incomplete there.
PLX_HIDDEN bool foreign_same_name(const a_type_info_impl *left, const a_type_info_impl *right);

// Converts from a foreign class to a base, public and unambiguous, that may be of either format.
bool foreign_derived_to_base(void *object, void **converted, const a_type_info_impl *from, const a_type_info_impl *to);

// Splits a foreign type as a throw or a clause of generated code states it: for a pointer the pointed-to type.
void foreign_describe(const a_type_info_impl *native, const a_type_info_impl **type, unsigned char *flags);

}  // namespace __zor

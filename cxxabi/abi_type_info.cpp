// The classes of a compiler's type records. Their destructors are what makes the compiler emit the virtual tables that
// every record points to, and here also the records of the fundamental types.

#include "abi_type_info.h"

#include <string.h>

namespace __cxxabiv1 {

abi_type_info::~abi_type_info() {}
__fundamental_type_info::~__fundamental_type_info() {}
__array_type_info::~__array_type_info() {}
__function_type_info::~__function_type_info() {}
__enum_type_info::~__enum_type_info() {}
__class_type_info::~__class_type_info() {}
__si_class_type_info::~__si_class_type_info() {}
__vmi_class_type_info::~__vmi_class_type_info() {}
__pbase_type_info::~__pbase_type_info() {}
__pointer_type_info::~__pointer_type_info() {}
__pointer_to_member_type_info::~__pointer_to_member_type_info() {}

// Objects that were loaded apart have records, and names, of their own for one class. Types that only one file knows
// are not the same for that: clang's are in an unnamed namespace.
bool abi_type_info::is_same_text(const abi_type_info *other) const {
  return strcmp(_name_, other->_name_) == 0 && !strstr(_name_, "_GLOBAL__N_");
}

const __class_type_info *abi_type_info::as_class() const { return nullptr; }
const __pbase_type_info *abi_type_info::as_any_pointer() const { return nullptr; }
bool abi_type_info::is_function() const { return false; }

bool __function_type_info::is_function() const { return true; }
const __class_type_info *__class_type_info::as_class() const { return this; }
const __pbase_type_info *__pbase_type_info::as_any_pointer() const { return this; }
const abi_type_info *__pbase_type_info::member_of() const { return nullptr; }
const abi_type_info *__pointer_to_member_type_info::member_of() const { return __context; }

}  // namespace __cxxabiv1

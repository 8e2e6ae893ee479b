// Which of a compiler's records stand for types that the library declares for generated code.
#pragma once

#include "abi_type_info.h"

namespace __zor {

// The __TID_ object of the type, or null when the library declares none.
const char *library_identity(const __cxxabiv1::abi_type_info *type);

}  // namespace __zor

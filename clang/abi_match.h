// Catching what a C++ compiler's code threw, by that compiler's records.
#pragma once

#include "abi_type_info.h"

namespace __cxxabiv1 {

// Whether a handler of type `handler` catches an object of type `thrown` (1998, 15.3). *value is the object's address
// and becomes what the handler reads: the address of the base caught, or the converted pointer itself.
bool catches(const abi_type_info *handler, const abi_type_info *thrown, void **value);

}  // namespace __cxxabiv1

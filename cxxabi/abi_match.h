// Catching what a C++ compiler's code threw, by that compiler's records.
#pragma once

#include "abi_type_info.h"

namespace __cxxabiv1 {

// Whether a handler of type `handler` catches an object of type `thrown` (1998, 15.3). *value is the object's address
// and becomes what the handler reads: the address of the base caught, or the converted pointer itself.
bool catches(const abi_type_info *handler, const abi_type_info *thrown, void **value);

// Whether both are pointers, and one leads, at any level, to a class that its file knows by declaration only. Such
// records can only be compared by name: they are private to their file, as are their name objects.
bool names_incomplete_class(const abi_type_info *left, const abi_type_info *right);

}  // namespace __cxxabiv1

// Whether the program brought its own operator new or operator delete (1998, 17.4.3.4). Then every allocation of the
// library goes through them, and no block may come from anywhere else.
//
// The shared object (shared/replaced_new.cpp) sees it by the functions' addresses; a program with libplx.a in it
// (archive/replaced_new.cpp) by which of the objects below the linker took in: each stands beside its function.
#pragma once

#include <plx/base/config.h>

// For the forms of operator new and delete that share a file: a program may bring one of them and use another.
#define PLX_REPLACEABLE __attribute__((__weak__))

namespace __zor {

bool operator_new_is_replaced();

// One of those, or of operator new[] and operator delete[].
bool array_operator_new_is_replaced();

extern PLX_HIDDEN const char own_operator_new, own_operator_delete, own_operator_new_array, own_operator_delete_array;

}  // namespace __zor

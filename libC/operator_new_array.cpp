// The array form of operator new (1998, 18.4.1). In a file of its own, so that it calls the program's operator new when
// there is one.

#include <new>

#include "replaced_new.h"

void *operator new[](size_t bytes) { return operator new(bytes); }

const char __zor::own_operator_new_array = 0;

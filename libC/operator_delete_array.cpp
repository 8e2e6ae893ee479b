// The array form of operator delete (1998, 18.4.1), over operator delete.

#include <new>

#include "replaced_new.h"

void operator delete[](void *block) PLX_NOTHROW { operator delete(block); }

const char __zor::own_operator_delete_array = 0;

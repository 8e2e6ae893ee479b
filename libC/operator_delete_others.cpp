// The forms of operator delete that lead to the two plain ones: for a failed nothrow new-expression, and those with a
// size, which code of gnu++14 and later calls.

#include <new>

#include "replaced_new.h"

PLX_REPLACEABLE void operator delete(void *block, const std::nothrow_t &) PLX_NOTHROW { operator delete(block); }
PLX_REPLACEABLE void operator delete[](void *block, const std::nothrow_t &) PLX_NOTHROW { operator delete[](block); }
PLX_REPLACEABLE void operator delete(void *block, size_t) PLX_NOTHROW { operator delete(block); }
PLX_REPLACEABLE void operator delete[](void *block, size_t) PLX_NOTHROW { operator delete[](block); }

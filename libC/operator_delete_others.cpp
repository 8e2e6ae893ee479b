// The forms of operator delete that lead to the two plain ones: for a failed nothrow new-expression, and those with a
// size, which code of gnu++14 and later calls.

#include <new>

void operator delete(void *block, const std::nothrow_t &) PLX_NOTHROW { operator delete(block); }
void operator delete[](void *block, const std::nothrow_t &) PLX_NOTHROW { operator delete[](block); }
void operator delete(void *block, size_t) PLX_NOTHROW { operator delete(block); }
void operator delete[](void *block, size_t) PLX_NOTHROW { operator delete[](block); }

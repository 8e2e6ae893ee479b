// The array form of operator delete (1998, 18.4.1), over operator delete.

#include <new>

void operator delete[](void *block) PLX_NOTHROW { operator delete(block); }

// operator delete in all its forms (1998, 18.4.1; the sized and aligned forms that later dialects call).

#include <new>

#include <stdlib.h>

void operator delete(void *block) PLX_NOTHROW { free(block); }
void operator delete[](void *block) PLX_NOTHROW { operator delete(block); }
void operator delete(void *block, const std::nothrow_t &) PLX_NOTHROW { operator delete(block); }
void operator delete[](void *block, const std::nothrow_t &) PLX_NOTHROW { operator delete[](block); }

// Called by code of gnu++14 and later; a program that replaces the plain form gets these through it.
void operator delete(void *block, size_t) PLX_NOTHROW { operator delete(block); }
void operator delete[](void *block, size_t) PLX_NOTHROW { operator delete[](block); }

// operator delete for over-aligned types.

#include <new>

#include <stdlib.h>

void operator delete(void *block, std::align_val_t) PLX_NOTHROW { free(block); }

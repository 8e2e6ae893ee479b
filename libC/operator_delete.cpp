// operator delete (1998, 18.4.1).

#include <new>

#include <stdlib.h>

void operator delete(void *block) PLX_NOTHROW { free(block); }

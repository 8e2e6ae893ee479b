// operator delete (1998, 18.4.1).

#include <new>

#include <stdlib.h>

#include "replaced_new.h"

void operator delete(void *block) PLX_NOTHROW { free(block); }

const char __zor::own_operator_delete = 0;

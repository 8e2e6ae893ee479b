// Memory for sorting: the C library's, because a program's operator new and new handler have no part in it.

#include <plx/containers/list_sort.h>

#include <stdlib.h>

namespace __zor {

void *_take_scratch(size_t bytes) PLX_NOTHROW { return malloc(bytes); }
void _give_scratch(void *block) PLX_NOTHROW { free(block); }

}  // namespace __zor

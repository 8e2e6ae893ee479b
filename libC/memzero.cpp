// Zeroes memory for generated code.

#include <string.h>

#include <plx/runtime.h>

void *__memzero(void *p, int n) { return memset(p, 0, n); }

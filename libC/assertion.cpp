// The runtime's assertions: one message, one way out.

#include "assertion.h"

#include <stdlib.h>

#include <plx/runtime.h>

// What stderr points to at the start, by the C library's own name for it: so no code has to run to set this up.
extern "C" FILE standard_error __asm__("_IO_2_1_stderr_");

FILE *__f_debug = &standard_error;

void __zor::assertion_failed(a_broken_condition condition) {
  fprintf(__f_debug ? __f_debug : stderr, "Assertion failed in file \"%s\", line %d\n", "libC/throw", condition);
  abort();
}

// The runtime's assertions: one message, one way out. The line numbers belong to the contract, not to these sources.

#include <stdlib.h>

#include "eh_state.h"

FILE *__f_debug = stderr;

void __zor::assertion_failed(int line) {
  // Null only in a constructor that runs before this library's own.
  fprintf(__f_debug ? __f_debug : stderr, "Assertion failed in file \"%s\", line %d\n", "libC/throw", line);
  abort();
}

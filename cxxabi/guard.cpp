// Guards of local static objects (C++ ABI, 3.3.2). The first byte of a guard says that the object is initialised,
// the second, which the ABI leaves to us, that its initialiser is running.

#include <stdlib.h>
#include <unistd.h>

#include <plx/base/config.h>

extern "C" {

// Returns 1 when the caller is to initialise the object. An initialiser that reaches its own object never could end;
// the 1998 standard leaves that undefined (6.7), plx stops.
PLX_API int __cxa_guard_acquire(char *guard) {
  if (guard[0]) return 0;
  if (guard[1]) {
    static const char message[] = "plx: the initialiser of a local static object uses that object\n";
    if (write(STDERR_FILENO, message, sizeof message - 1) < 0) abort();
    abort();
  }
  guard[1] = 1;
  return 1;
}

PLX_API void __cxa_guard_release(char *guard) PLX_NOTHROW {
  guard[0] = 1;
  guard[1] = 0;
}

// The initialiser threw: the next call tries again.
PLX_API void __cxa_guard_abort(char *guard) PLX_NOTHROW { guard[1] = 0; }

}  // extern "C"

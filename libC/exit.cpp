// Start-up and exit as generated code sees them.

#include "eh_state.h"

// The C library's own exit and atexit. Those that <stdlib.h> declares are this library's, which end here.
extern "C" {
[[noreturn]] void c_library_exit(int status) __asm__("exit");
int __cxa_atexit(void (*function)(void *), void *argument, void *owner) noexcept;
extern PLX_HIDDEN void *__dso_handle;  // who registers: the object of the link
[[noreturn]] void abort();
}

int __dtor_processing_scheduled;

void __call_dtors() { __process_needed_destructions(); }

// Constructors are run by the platform; this only makes sure of the destructors.
void __call_ctors() {
  if (!__dtor_processing_scheduled)
    __dtor_processing_scheduled = __cxa_atexit([](void *) { __call_dtors(); }, nullptr, __dso_handle) == 0;
}

void _main() {
  static bool main_called;
  if (main_called) __main_called_more_than_once();
  main_called = true;
  __call_ctors();
}

void __main_called_more_than_once() { abort(); }

void __pure_virtual_called() { abort(); }

void __pliv_exit(int status) {
  __eh_exit_processing();
  __call_dtors();
  c_library_exit(status);
}

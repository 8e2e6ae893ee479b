// What clang's code calls when an operation of the language fails.

#include <stdlib.h>
#include <unistd.h>

#include <plx/base/config.h>
#include <plx/runtime.h>

namespace {

template <size_t N> [[noreturn]] void die(const char (&message)[N]) {
  if (write(STDERR_FILENO, message, N - 1) < 0) abort();
  abort();
}

}  // namespace

extern "C" {

PLX_API PLX_NORETURN void __cxa_pure_virtual() { die("plx: pure virtual function called\n"); }
PLX_API PLX_NORETURN void __cxa_deleted_virtual() { die("plx: deleted virtual function called\n"); }

PLX_API PLX_NORETURN void __cxa_bad_cast() { __throw_bad_cast(); }
PLX_API PLX_NORETURN void __cxa_bad_typeid() { __throw_bad_typeid(); }

// An array new-expression whose length is negative or does not fit. Later dialects name a class of their own for it;
// here it is bad_alloc, its base.
PLX_API PLX_NORETURN void __cxa_throw_bad_array_new_length() { __default_new_handler(); }

}  // extern "C"

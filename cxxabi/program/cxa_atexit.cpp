// What compilers call for a static object. It is linked into each program and shared object of C++ because the C
// library has a function of the same name, which shared objects of C must go on calling. Static programs have
// cxxabi/archive/cxa_atexit.cpp in its place.

#include <plx/base/config.h>

extern "C" {
PLX_API int __zor_destroy_at_exit(void (*destructor)(void *), void *object);
PLX_HIDDEN int __cxa_atexit(void (*destructor)(void *), void *object, void *);
}

// Whose object it is, which the ABI passes last, the end of a shared object tells by addresses.
int __cxa_atexit(void (*destructor)(void *), void *object, void *) { return __zor_destroy_at_exit(destructor, object); }

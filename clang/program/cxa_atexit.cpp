// What the compiler calls for a static object. It is in the program because the C library has a function of the same
// name, which shared objects must go on calling. Static programs have clang/archive/cxa_atexit.cpp in its place.

extern "C" {
__attribute__((__visibility__("hidden"))) int __zor_destroy_at_exit(void (*destructor)(void *), void *object);
__attribute__((__visibility__("hidden"))) int __cxa_atexit(void (*destructor)(void *), void *object, void *);
}

// The shared object that the ABI passes last is always the program.
int __cxa_atexit(void (*destructor)(void *), void *object, void *) { return __zor_destroy_at_exit(destructor, object); }

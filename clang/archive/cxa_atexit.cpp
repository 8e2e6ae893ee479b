// __cxa_atexit of static programs. The C library's is in the program too and must stay, under that name, what its own
// atexit calls: so the driver has the linker lead every other call here (--wrap). The C library is known by the owner
// that it passes, none; compilers pass the address of __dso_handle.

extern "C" {
__attribute__((__visibility__("hidden"))) int __zor_destroy_at_exit(void (*destructor)(void *), void *object);
__attribute__((__visibility__("hidden"))) int c_library_cxa_atexit(void (*destructor)(void *), void *object,
                                                                   void *owner) __asm__("__real___cxa_atexit");
__attribute__((__visibility__("hidden"))) int wrapped_cxa_atexit(void (*destructor)(void *), void *object,
                                                                 void *owner) __asm__("__wrap___cxa_atexit");
}

int wrapped_cxa_atexit(void (*destructor)(void *), void *object, void *owner) {
  if (!owner) return c_library_cxa_atexit(destructor, object, owner);
  return __zor_destroy_at_exit(destructor, object);
}

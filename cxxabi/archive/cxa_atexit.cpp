// __cxa_atexit of static programs. The C library's is in the program too, and its start-up code and atexit call it: so
// the driver has the linker lead every call here (--wrap). All goes to the list of static objects, as in other
// programs, but for what is registered before that list is: the C library's own, and the list itself.

#include <plx/base/config.h>
#include <plx/runtime.h>

extern "C" {
PLX_API int __zor_destroy_at_exit(void (*destructor)(void *), void *object);
PLX_HIDDEN int c_library_cxa_atexit(void (*destructor)(void *), void *object,
                                    void *owner) __asm__("__real___cxa_atexit");
PLX_HIDDEN int wrapped_cxa_atexit(void (*destructor)(void *), void *object, void *owner) __asm__("__wrap___cxa_atexit");
}

// The C library passes no owner, compilers the address of __dso_handle.
int wrapped_cxa_atexit(void (*destructor)(void *), void *object, void *owner) {
  if (!owner && !__dtor_processing_scheduled) return c_library_cxa_atexit(destructor, object, owner);
  return __zor_destroy_at_exit(destructor, object);
}

// dynamic_cast of generated code, by its name in C. Alone in its file: a program of C++ has a function of this name
// with other parameters, which calls the one below for generated code.

#include <plx/runtime.h>

extern "C" void *__zor_dynamic_cast(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target);

// The name is spelled out: in C++ it belongs to the compiler.
extern "C" PLX_API void *plx_dynamic_cast(void *object, const a_virtual_table_slot *slot,
                                          const a_type_info_impl *target) __asm__("__dynamic_cast");

void *plx_dynamic_cast(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target) {
  return __zor_dynamic_cast(object, slot, target);
}

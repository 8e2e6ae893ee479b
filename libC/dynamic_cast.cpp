// dynamic_cast and typeid for the virtual tables of generated code. Casts lead from the complete object to one of its
// accessible, unambiguous bases.

#include "eh_state.h"

using namespace __zor;

// __dynamic_cast under a name that no C++ compiler uses, for programs that hold code of both kinds.
extern "C" PLX_API void *__zor_dynamic_cast(void *object, const a_virtual_table_slot *slot,
                                            const a_type_info_impl *target) {
  void *complete = static_cast<char *>(object) - slot->offset;
  if (!target || same_type(slot->type, target)) return complete;
  void *converted;
  return __derived_to_base_conversion(complete, &converted, slot->type, target, nullptr, 0) ? converted : nullptr;
}

void *__dynamic_cast_ref(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target) {
  void *result = __zor_dynamic_cast(object, slot, target);
  if (!result) __throw_bad_cast();
  return result;
}

const a_type_info_impl *__get_typeid(const a_virtual_table_slot *table) {
  if (!table) __throw_bad_typeid();
  return table->type;
}

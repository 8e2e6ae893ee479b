// The what() of an exception whose type is known by descriptor only, for the message about an uncaught one.

#include <exception>

#include "../libC/above.h"
#include "../libC/eh_state.h"

const char *__zor::message_of(void *object, const a_type_info_impl *type) {
  void *converted = object;
  if (!same_type(type, &__TI_St9exception) &&
      !__derived_to_base_conversion(object, &converted, type, &__TI_St9exception, nullptr, 0))
    return nullptr;
  return static_cast<std::exception *>(converted)->what();
}

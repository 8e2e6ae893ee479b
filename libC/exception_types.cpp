// The identities and descriptors of the exception classes, which the runtime throws and matches by. All bases are
// single, public and at offset 0.

#include <plx/runtime.h>

#define ROOT(encoded, name)       \
  const char __TID_##encoded = 0; \
  const a_type_info_impl __TI_##encoded = {PLX_TYPE_INFO_VTABLE, name, &__TID_##encoded, nullptr};

#define DERIVED(encoded, name, base)                                                                         \
  static const a_base_class_spec base_of_##encoded[] = {{&__TI_##base, 0, PLX_BASE_PUBLIC | PLX_BASE_LAST}}; \
  const char __TID_##encoded = 0;                                                                            \
  const a_type_info_impl __TI_##encoded = {PLX_TYPE_INFO_VTABLE, name, &__TID_##encoded, base_of_##encoded};

ROOT(St9exception, "std::exception")
DERIVED(St13bad_exception, "std::bad_exception", St9exception)
DERIVED(St9bad_alloc, "std::bad_alloc", St9exception)
DERIVED(St8bad_cast, "std::bad_cast", St9exception)
DERIVED(St10bad_typeid, "std::bad_typeid", St9exception)

DERIVED(St11logic_error, "std::logic_error", St9exception)
DERIVED(St12domain_error, "std::domain_error", St11logic_error)
DERIVED(St16invalid_argument, "std::invalid_argument", St11logic_error)
DERIVED(St12length_error, "std::length_error", St11logic_error)
DERIVED(St12out_of_range, "std::out_of_range", St11logic_error)

DERIVED(St13runtime_error, "std::runtime_error", St9exception)
DERIVED(St11range_error, "std::range_error", St13runtime_error)
DERIVED(St14overflow_error, "std::overflow_error", St13runtime_error)
DERIVED(St15underflow_error, "std::underflow_error", St13runtime_error)

DERIVED(NSt8ios_base7failureE, "std::ios_base::failure", St9exception)

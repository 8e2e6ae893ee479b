// The classes of <stdexcept>. All are alike: a text, handed to the base class.

#include <stdexcept>

#include "throw_object.h"

#define DEFINE_ERROR(class_name, base, type)                            \
  class_name::class_name(const string &text) : base(text) {}            \
  class_name::class_name(const class_name &other) = default;            \
  class_name &class_name::operator=(const class_name &other) = default; \
  class_name::~class_name() PLX_NOTHROW {}                              \
  void class_name::__throw(const char *text) { __zor::throw_with_text<class_name>(__TI_##type, text); }

namespace std {

DEFINE_ERROR(logic_error, exception, St11logic_error)
DEFINE_ERROR(domain_error, logic_error, St12domain_error)
DEFINE_ERROR(invalid_argument, logic_error, St16invalid_argument)
DEFINE_ERROR(length_error, logic_error, St12length_error)
DEFINE_ERROR(out_of_range, logic_error, St12out_of_range)

DEFINE_ERROR(runtime_error, exception, St13runtime_error)
DEFINE_ERROR(range_error, runtime_error, St11range_error)
DEFINE_ERROR(overflow_error, runtime_error, St14overflow_error)
DEFINE_ERROR(underflow_error, runtime_error, St15underflow_error)

}  // namespace std

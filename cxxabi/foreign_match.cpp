// A throw of the same compiler is matched by the rules of C++ over its records; a throw of generated code or of the
// library by the rules of descriptors, as a clause of generated code would be.

#include "foreign_match.h"

#include "../libC/foreign.h"
#include "abi_match.h"
#include "library_types.h"

using namespace __cxxabiv1;

namespace __zor {
namespace {

const abi_type_info *abi_record(const void *type) {
  return static_cast<const abi_type_info *>(static_cast<const std::type_info *>(type));
}

}  // namespace

const char *library_identity_of_clause(const void *clause) { return library_identity(abi_record(clause)); }

bool catch_clause_matches_by_rules(const void *clause, a_throw_stack_entry *thrown, void **adjusted) {
  const a_type_info_impl *native = native_type(thrown);
  void *value = thrown->object;
  if (native) {
    // catch (...) reads nothing; the value is the object's address all the same.
    if (clause && !catches(abi_record(clause), abi_record(native), &value)) return false;
  } else {
    if (thrown->flags & PLX_TYPE_POINTER) value = *static_cast<void **>(value);
    an_exception_type_specification element = {nullptr, PLX_TYPE_ELLIPSIS};
    if (clause) foreign_describe(static_cast<const a_type_info_impl *>(clause), &element.type, &element.flags);
    element.flags |= PLX_TYPE_LAST;
    if (!match_specification(&element, thrown->type, thrown->flags, thrown->qualifier_string, thrown->access_value,
                             &value))
      return false;
  }
  *adjusted = value;
  return true;
}

}  // namespace __zor

// A throw of the same compiler is matched by the rules of C++ over its records; a throw of generated code or of the
// library by the rules of descriptors, as a clause of generated code would be.

#include "foreign_match.h"

#include "../libC/foreign.h"
#include "abi_match.h"
#include "exception_table.h"

using namespace __cxxabiv1;

namespace __zor {
namespace {

const abi_type_info *abi_record(const void *type) {
  return static_cast<const abi_type_info *>(static_cast<const std::type_info *>(type));
}

}  // namespace

bool catch_clause_matches_by_rules(const void *clause, a_throw_stack_entry *thrown, void **adjusted) {
  const a_type_info_impl *native = state_of(thrown).native;
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

bool allowed_by(const unsigned char *list, const void *const *types, a_throw_stack_entry *thrown) {
  void *ignored;
  while (unsigned int index = read_uleb(list))
    if (catch_clause_matches(types[-static_cast<int>(index)], thrown, &ignored)) return true;
  return false;
}

}  // namespace __zor

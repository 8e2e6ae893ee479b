// What libC asks about type records of a C++ compiler: an identity, a conversion to a base, and how a throw or a
// clause of generated code would state the type.

#include <string.h>

#include "../libC/foreign.h"
#include "abi_match.h"
#include "base_search.h"
#include "library_types.h"

using namespace __cxxabiv1;

namespace __zor {
namespace {

const abi_type_info *abi_record(const a_type_info_impl *type) {
  return static_cast<const abi_type_info *>(reinterpret_cast<const std::type_info *>(type));
}

const a_type_info_impl *plain_record(const abi_type_info *type) {
  return reinterpret_cast<const a_type_info_impl *>(static_cast<const std::type_info *>(type));
}

}  // namespace

// The address of a name object is the same in the whole program, as an identity must be. Types that the library
// declares for generated code have an identity of their own.
const char *foreign_identity(const a_type_info_impl *type) {
  const char *known = library_identity(abi_record(type));
  return known ? known : abi_record(type)->encoded_name();
}

bool foreign_same_name(const a_type_info_impl *left, const a_type_info_impl *right) {
  const abi_type_info *one = abi_record(left), *other = abi_record(right);
  if (one->has_same_name(other)) return true;
  const char kind = *one->encoded_name();
  return (kind == 'P' || kind == 'M') && names_incomplete_class(one, other) &&
         strcmp(one->encoded_name(), other->encoded_name()) == 0;
}

bool foreign_derived_to_base(void *object, void **converted, const a_type_info_impl *from, const a_type_info_impl *to) {
  const __class_type_info *derived = abi_record(from)->as_class();
  if (!derived) return false;
  auto is_target = [to](const __class_type_info *type) { return same_type(plain_record(type), to); };
  *converted = object;
  return convert_to_base(derived, is_target, converted);
}

void foreign_describe(const a_type_info_impl *native, const a_type_info_impl **type, unsigned char *flags) {
  const abi_type_info *record = abi_record(native);
  const __pbase_type_info *pointer = record->as_any_pointer();
  *type = native;
  *flags = 0;
  if (!pointer || pointer->member_of()) return;
  *type = plain_record(pointer->__pointee);
  *flags = PLX_TYPE_POINTER;
  if (pointer->__flags & __pbase_type_info::__const_mask) *flags |= PLX_TYPE_CONST;
  if (pointer->__flags & __pbase_type_info::__volatile_mask) *flags |= PLX_TYPE_VOLATILE;
}

}  // namespace __zor

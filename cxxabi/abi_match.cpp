// The handler rules of C++ over a compiler's records: classes by public unambiguous base, pointers by qualification
// and by standard conversions, pointers to members by qualification.

#include "abi_match.h"

#include <string.h>

#include "base_search.h"

namespace __cxxabiv1 {
namespace {

const unsigned int qualifiers =
    __pbase_type_info::__const_mask | __pbase_type_info::__volatile_mask | __pbase_type_info::__restrict_mask;
const unsigned int incomplete = __pbase_type_info::__incomplete_mask | __pbase_type_info::__incomplete_class_mask;

bool has_name(const abi_type_info *type, const char *name) { return strcmp(type->encoded_name(), name) == 0; }

bool same_pointee(const __pbase_type_info *left, const __pbase_type_info *right) {
  if (same_record(left->__pointee, right->__pointee)) return true;
  return ((left->__flags | right->__flags) & incomplete) &&
         strcmp(left->__pointee->encoded_name(), right->__pointee->encoded_name()) == 0;
}

bool same_members_class(const __pbase_type_info *left, const __pbase_type_info *right) {
  const abi_type_info *left_class = left->member_of(), *right_class = right->member_of();
  if (!left_class || !right_class) return left_class == right_class;
  return same_record(left_class, right_class) || (((left->__flags | right->__flags) & incomplete) &&
                                                  strcmp(left_class->encoded_name(), right_class->encoded_name()) == 0);
}

// Whether adding qualifiers leads from `from` to `to` at this level (1998, 4.4).
bool qualification_adds(const __pbase_type_info *to, const __pbase_type_info *from) {
  return !(from->__flags & qualifiers & ~to->__flags) &&
         !(to->__flags & ~from->__flags & __pbase_type_info::__noexcept_mask);
}

// The levels below the first: equal but for qualifiers, and a difference needs const on every level outside it.
bool inner_levels_convert(const abi_type_info *to, const abi_type_info *from, bool outer_const) {
  if (same_record(to, from)) return true;
  const __pbase_type_info *to_pointer = to->as_any_pointer(), *from_pointer = from->as_any_pointer();
  if (!to_pointer || !from_pointer || !same_members_class(to_pointer, from_pointer)) return false;
  if (!qualification_adds(to_pointer, from_pointer)) return false;
  const bool differs = (to_pointer->__flags ^ from_pointer->__flags) & qualifiers;
  if (differs && !outer_const) return false;
  if (same_pointee(to_pointer, from_pointer)) return true;
  return inner_levels_convert(to_pointer->__pointee, from_pointer->__pointee,
                              outer_const && (to_pointer->__flags & __pbase_type_info::__const_mask));
}

// `handler` may be null: a handler of something else.
bool catches_pointer(const __pbase_type_info *handler, const __pbase_type_info *thrown, void **pointer) {
  if (!handler || !same_members_class(handler, thrown) || !qualification_adds(handler, thrown)) return false;
  if (same_pointee(handler, thrown)) return true;
  const abi_type_info *to = handler->__pointee, *from = thrown->__pointee;
  if (!handler->member_of()) {
    if (has_name(to, "v") && !from->is_function()) return true;
    const __class_type_info *base = to->as_class(), *derived = from->as_class();
    if (base && derived)
      return convert_to_base(
          derived, [base](const __class_type_info *type) { return same_record(type, base); }, pointer);
  }
  return inner_levels_convert(to, from, handler->__flags & __pbase_type_info::__const_mask);
}

// A thrown null pointer constant of later dialects becomes any pointer.
bool catches_null(const __pbase_type_info *handler, void **value) {
  static void *null_function_member[2] = {nullptr, nullptr};
  static long null_data_member = -1;
  if (!handler->member_of())
    *value = nullptr;
  else if (handler->__pointee->is_function())
    *value = null_function_member;
  else
    *value = &null_data_member;
  return true;
}

}  // namespace

bool catches(const abi_type_info *handler, const abi_type_info *thrown, void **value) {
  // Handlers of pointers read the value itself, all others the object. The encoded name tells fastest.
  if (thrown->encoded_name()[0] == 'P') {
    void *pointer = *static_cast<void **>(*value);
    if (handler != thrown && !catches_pointer(handler->as_any_pointer(), thrown->as_any_pointer(), &pointer))
      return false;
    *value = pointer;
    return true;
  }
  if (same_record(handler, thrown)) return true;
  // A chain of single bases: all stand at the object's own address, and none can come twice.
  for (const abi_type_info *type = thrown; is_single_base_class(type);) {
    type = static_cast<const __si_class_type_info *>(type)->__base_type;
    if (type == handler) return true;
  }
  if (const __pbase_type_info *member = thrown->as_any_pointer())
    return catches_pointer(handler->as_any_pointer(), member, value);
  const __class_type_info *derived = thrown->as_class();
  if (const __class_type_info *base = derived ? handler->as_class() : nullptr)
    return convert_to_base(
        derived, [base](const __class_type_info *type) { return same_record(type, base); }, value);
  const __pbase_type_info *pointer = handler->as_any_pointer();
  return pointer && has_name(thrown, "Dn") && catches_null(pointer, value);
}

bool names_incomplete_class(const abi_type_info *left, const abi_type_info *right) {
  for (;;) {
    const __pbase_type_info *left_pointer = left->as_any_pointer(), *right_pointer = right->as_any_pointer();
    if (!left_pointer || !right_pointer) return false;
    if ((left_pointer->__flags | right_pointer->__flags) & incomplete) return true;
    left = left_pointer->__pointee;
    right = right_pointer->__pointee;
  }
}

}  // namespace __cxxabiv1

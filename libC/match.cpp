// When a thrown type matches a catch clause or an exception specification. The first element in list order that
// matches wins; there is no ranking.

#include "foreign.h"
#include "identity.h"

#include <string.h>

namespace __zor {
namespace {

const char *identity_of(const a_type_info_impl *type) {
  return is_foreign(type) ? foreign_identity(type) : type->identity;
}

// Of types that are not both foreign.
PLX_NOINLINE bool same_identity(const a_type_info_impl *left, const a_type_info_impl *right) {
  const char *identity = identity_of(left);
  if (identity && identity == identity_of(right)) return true;
  if (is_foreign(left) || is_foreign(right)) return false;
  // Objects that were loaded apart have identity objects of their own; what a file keeps to itself is its own type.
  return identity && right->identity && strcmp(left->name, right->name) == 0 &&
         are_exported_alike(identity, right->identity);
}

bool has_bases(const a_type_info_impl *type) { return is_foreign(type) || type->bases; }

bool element_matches(const an_exception_type_specification *element, const a_type_info_impl *type, unsigned char flags,
                     char *qualifier_string, unsigned char access_value, void **object) {
  const unsigned char qualifiers = PLX_TYPE_CONST | PLX_TYPE_VOLATILE;
  if (element->flags & PLX_TYPE_ELLIPSIS) return true;
  if ((flags & PLX_TYPE_POINTER) && (flags & qualifiers & ~element->flags)) return false;
  const bool pointers_agree = !((element->flags ^ flags) & PLX_TYPE_POINTER);
  if (!pointers_agree) return false;
  if (same_type(element->type, type)) return true;
  if (identity_of(element->type) == &__TID_v) return true;
  if (!has_bases(type)) return false;
  // Every element sees the qualifier string as the throw gave it.
  char *string = qualifier_string;
  void *converted = nullptr;
  if (!__derived_to_base_conversion(object ? *object : nullptr, &converted, type, element->type, &string, access_value))
    return false;
  if (object) *object = converted;
  return true;
}

}  // namespace

bool same_type(const a_type_info_impl *left, const a_type_info_impl *right) {
  if (left == right) return true;
  // Foreign records of one type have one name, whatever their identities.
  return is_foreign(left) && is_foreign(right) ? foreign_same_name(left, right) : same_identity(left, right);
}

int match_specification(const an_exception_type_specification *list, const a_type_info_impl *type, unsigned char flags,
                        char *qualifier_string, unsigned char access_value, void **object) {
  for (int number = 1;; ++number, ++list) {
    if (element_matches(list, type, flags, qualifier_string, access_value, object)) return number;
    if (list->flags & PLX_TYPE_LAST) return 0;
  }
}

}  // namespace __zor

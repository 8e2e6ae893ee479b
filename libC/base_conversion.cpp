// The search for a base class, shared by exception matching and dynamic_cast: direct bases first, then depth first,
// in declaration order. It finds no ambiguity itself: the compiler marks ambiguous bases.

#include "foreign.h"

using namespace __zor;

namespace {

void *subobject(void *object, const a_base_class_spec *base) {
  if (!object) return nullptr;
  char *place = static_cast<char *>(object) + base->offset;
  return base->flags & PLX_BASE_VIRTUAL ? *reinterpret_cast<void **>(place) : place;
}

// With a mode, the string says of each direct base whether it is accessible; what it does not say is not.
bool is_accessible(const a_base_class_spec *base, char **string, int mode) {
  if (!mode) return base->flags & PLX_BASE_PUBLIC;
  if (!string || !*string || !**string) return false;
  return *(*string)++ == 'Y';
}

bool is_path(const a_base_class_spec *base, int mode) {
  return mode || (base->flags & (PLX_BASE_PUBLIC | PLX_BASE_AMBIGUOUS)) == PLX_BASE_PUBLIC;
}

}  // namespace

int __derived_to_base_conversion(void *object, void **converted, const a_type_info_impl *from,
                                 const a_type_info_impl *to, char **string, int mode) {
  *converted = nullptr;
  if (is_foreign(from)) return foreign_derived_to_base(object, converted, from, to);
  if (!from->bases) return 0;
  for (const a_base_class_spec *base = from->bases;; ++base) {
    // Read for every base, also for others than the target: the string has one character for each.
    bool accessible = is_accessible(base, string, mode);
    if (same_type(base->base, to)) {
      if (base->flags & PLX_BASE_AMBIGUOUS) return 0;
      if (accessible) {
        *converted = subobject(object, base);
        return 1;
      }
      // An inaccessible direct base does not end the search: another path may lead to the target.
    }
    if (base->flags & PLX_BASE_LAST) break;
  }
  for (const a_base_class_spec *base = from->bases;; ++base) {
    if (is_path(base, mode) && (is_foreign(base->base) || base->base->bases) &&
        __derived_to_base_conversion(subobject(object, base), converted, base->base, to, string, mode))
      return 1;
    if (base->flags & PLX_BASE_LAST) return 0;
  }
}

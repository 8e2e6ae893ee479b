// Walks over the base classes that a compiler's record describes. A walk reports every path to every subobject; who
// walks decides what it looks for. Used by catching, in the shared object, and by dynamic_cast, in the program.
#pragma once

#include "abi_type_info.h"

extern "C" PLX_API const void *const _ZTVN10__cxxabiv120__si_class_type_infoE[];
extern "C" PLX_API const void *const _ZTVN10__cxxabiv121__vmi_class_type_infoE[];

namespace __cxxabiv1 {

// Whether a record has this virtual table, which tells its class without a call. Its first word points past the table's
// two leading words.
inline bool has_table(const void *record, const void *const *table) {
  return *static_cast<const void *const *const *>(record) == table + 2;
}
inline bool is_single_base_class(const void *record) {
  return has_table(record, _ZTVN10__cxxabiv120__si_class_type_infoE);
}

// Whether two records of a compiler are of one type.
inline bool same_record(const abi_type_info *left, const abi_type_info *right) {
  return left == right || left->has_same_name(right);
}

// Where a base of an object stands.
inline char *base_place(const __base_class_type_info &base, char *object) {
  const long offset = base.__offset_flags >> __base_class_type_info::__offset_shift;
  if (!(base.__offset_flags & __base_class_type_info::__virtual_mask)) return object + offset;
  return object + *reinterpret_cast<const long *>(*reinterpret_cast<const char **>(object) + offset);
}

// Calls search.reached(class, address, whether public) for the class and for each of its base subobjects, on every
// path. Without an object it still tells subobjects apart: it counts offsets from a made-up address, and a virtual
// base, which there is only one of, stands at the address of its own record.
template <class Search>
void visit_bases(const __class_type_info *type, char *object, bool has_object, bool is_public, Search &search) {
  for (;;) {
    search.reached(type, object, is_public);
    if (is_single_base_class(type)) {
      type = static_cast<const __si_class_type_info *>(type)->__base_type;
      continue;
    }
    if (!has_table(type, _ZTVN10__cxxabiv121__vmi_class_type_infoE)) return;
    const auto *derived = static_cast<const __vmi_class_type_info *>(type);
    for (unsigned int i = 0; i < derived->__base_count; ++i) {
      const __base_class_type_info &base = derived->__base_info[i];
      const bool is_made_up = !has_object && (base.__offset_flags & __base_class_type_info::__virtual_mask);
      char *place = is_made_up ? reinterpret_cast<char *>(const_cast<__class_type_info *>(base.__base_type))
                               : base_place(base, object);
      visit_bases(base.__base_type, place, has_object,
                  is_public && (base.__offset_flags & __base_class_type_info::__public_mask), search);
    }
    return;
  }
}

// Finds the one base that `Target` recognises: public, and not ambiguous.
template <class Target> struct a_conversion_search {
  explicit a_conversion_search(Target target) : target_(target) {}

  void reached(const __class_type_info *type, char *object, bool is_public) {
    if (!target_(type)) return;
    if (found_ && found_ != object) is_ambiguous_ = true;
    found_ = object;
    is_public_ |= is_public;
  }

  bool succeeded() const { return found_ && is_public_ && !is_ambiguous_; }

  Target target_;
  char *found_ = nullptr;
  bool is_public_ = false;
  bool is_ambiguous_ = false;
};

// Converts *object, which may be null, to the base; leaves it alone on failure.
template <class Target> bool convert_to_base(const __class_type_info *from, Target target, void **object) {
  a_conversion_search<Target> search(target);
  char *start = static_cast<char *>(*object);
  if (!start) start = reinterpret_cast<char *>(const_cast<__class_type_info *>(from));
  visit_bases(from, start, *object != nullptr, true, search);
  if (!search.succeeded()) return false;
  if (*object) *object = search.found_;
  return true;
}

}  // namespace __cxxabiv1

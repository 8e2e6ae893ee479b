// Walks over the base classes that a compiler's record describes. A walk reports every path to every subobject; who
// walks decides what it looks for.
#pragma once

#include "abi_type_info.h"

namespace __cxxabiv1 {

struct a_base_search {
  // Without an object a walk still tells subobjects apart: it counts offsets from a made-up address, and a virtual
  // base, which there is only one of, stands at the address of its own record.
  explicit a_base_search(const void *object) : has_object_(object != nullptr) {}

  virtual void reached(const __class_type_info *type, char *object, bool is_public) = 0;

  char *virtual_base(char *object, long offset_in_table, const __class_type_info *base) const {
    if (!has_object_) return reinterpret_cast<char *>(const_cast<__class_type_info *>(base));
    const char *table = *reinterpret_cast<const char **>(object);
    return object + *reinterpret_cast<const long *>(table + offset_in_table);
  }

protected:
  ~a_base_search() = default;

private:
  bool has_object_;
};

// Whether two records of a compiler are of one type. Name objects are unique in a program.
inline bool same_record(const abi_type_info *left, const abi_type_info *right) {
  return left == right || left->encoded_name() == right->encoded_name();
}

// Finds the one base that `Target` recognises: public, and not ambiguous.
template <class Target> struct a_conversion_search : a_base_search {
  a_conversion_search(Target target, void *object) : a_base_search(object), target_(target) {}

  void reached(const __class_type_info *type, char *object, bool is_public) override {
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
  a_conversion_search<Target> search(target, *object);
  char *start = static_cast<char *>(*object);
  if (!start) start = reinterpret_cast<char *>(const_cast<__class_type_info *>(from));
  from->visit(search, start, true);
  if (!search.succeeded()) return false;
  if (*object) *object = search.found_;
  return true;
}

}  // namespace __cxxabiv1

// dynamic_cast of C++ code (C++ ABI, 2.9.7). In the program and hidden, because the shared object exports another
// function of this name, with other parameters, for generated code. A program may hold code of both kinds, so calls
// from generated code are told apart and passed on.

#include "../base_search.h"

#include <plx/runtime.h>

using namespace __cxxabiv1;

extern "C" void *__zor_dynamic_cast(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target);

extern "C" const void *const _ZTVN10__cxxabiv117__class_type_infoE[];

namespace {

// Generated code passes a slot where C++ passes a class's record; a slot begins with a small number.
bool is_class_record(const void *record) {
  return is_single_base_class(record) || has_table(record, _ZTVN10__cxxabiv117__class_type_infoE) ||
         has_table(record, _ZTVN10__cxxabiv121__vmi_class_type_infoE);
}

// Whether, and how, an object of some class has the source as a base.
struct a_source_search {
  void reached(const __class_type_info *type, const char *object, bool is_public) {
    if (object != source_object || !same_record(type, source)) return;
    found = true;
    found_publicly |= is_public;
  }

  const __class_type_info *source;
  const char *source_object;
  bool found;
  bool found_publicly;
};

// The 1998 rules (5.2.7): if the source is a public base of exactly one target object, that object; else, if the
// source is a public base of the complete object and the target an unambiguous public base of it, that base.
struct a_cast {
  void reached(const __class_type_info *type, char *object, bool is_public) {
    whole.reached(type, object, is_public);
    if (!same_record(type, target)) return;
    if (object != target_object) {
      target_is_ambiguous |= target_object != nullptr;
      if (may_contain) look_below(type, object);
    }
    target_object = object;
    target_is_public |= is_public;
  }

  // Is the source a base of this target?
  void look_below(const __class_type_info *type, char *object) {
    a_source_search below = {whole.source, whole.source_object, false, false};
    visit_bases(type, object, true, true, below);
    if (!below.found) return;
    several_contain |= containing && containing != object;
    containing = object;
    contained_publicly |= below.found_publicly;
  }

  void *result() const {
    if (containing && !several_contain && contained_publicly) return containing;
    if (whole.found_publicly && target_object && !target_is_ambiguous && target_is_public) return target_object;
    return nullptr;
  }

  a_source_search whole;  // the source in the complete object
  const __class_type_info *target;
  bool may_contain;  // the source may be a base of the target
  char *target_object;
  bool target_is_public, target_is_ambiguous;
  char *containing;
  bool several_contain, contained_publicly;
};

// With single inheritance all the way every subobject has one address, and the answer is in the chain: the target
// must stand above the source in it. Returns false when the chain has another sort of class.
bool cast_along_chain(const __class_type_info *dynamic, const __class_type_info *source,
                      const __class_type_info *target, void *complete, void **result) {
  bool met_target = false;
  for (const __class_type_info *type = dynamic;;) {
    if (type == target) met_target = true;
    if (type == source) {
      *result = met_target ? complete : nullptr;
      return true;
    }
    if (!is_single_base_class(type)) return false;
    type = static_cast<const __si_class_type_info *>(type)->__base_type;
  }
}

// Where no class is two subobjects, the first record met that is the source's or the target's tells where it stands,
// and when both are public bases of the complete object there is nothing more to know. Names are not compared.
class a_quick_cast {
public:
  a_quick_cast(const __class_type_info *source, const __class_type_info *target) : source_(source), target_(target) {}

  // Null: found by neither, or not this way.
  void *result(const __class_type_info *dynamic, char *complete) {
    if (!has_table(dynamic, _ZTVN10__cxxabiv121__vmi_class_type_infoE)) return nullptr;
    const auto *derived = static_cast<const __vmi_class_type_info *>(dynamic);
    if (derived->__flags & __vmi_class_type_info::__non_diamond_repeat_mask) return nullptr;
    return meets_both(derived, complete) ? target_object_ : nullptr;
  }

private:
  bool meets_both(const __class_type_info *type, char *object) {
    for (;;) {
      if (type == source_) met_source_ = true;
      if (type == target_) target_object_ = object;
      if (met_source_ && target_object_) return true;
      if (!is_single_base_class(type)) break;
      type = static_cast<const __si_class_type_info *>(type)->__base_type;
    }
    if (!has_table(type, _ZTVN10__cxxabiv121__vmi_class_type_infoE)) return false;
    const auto *derived = static_cast<const __vmi_class_type_info *>(type);
    for (unsigned int i = 0; i < derived->__base_count; ++i) {
      const __base_class_type_info &base = derived->__base_info[i];
      if ((base.__offset_flags & __base_class_type_info::__public_mask) &&
          meets_both(base.__base_type, base_place(base, object)))
        return true;
    }
    return false;
  }

  const __class_type_info *const source_, *const target_;
  bool met_source_ = false;
  char *target_object_ = nullptr;
};

}  // namespace

// `hint` is the offset of the source in the target when it is the target's one public non-virtual base of its type,
// else negative: -2 when it is no public base of the target.
extern "C" PLX_HIDDEN void *__dynamic_cast(const void *object, const __class_type_info *source,
                                           const __class_type_info *target, long hint) {
  if (!is_class_record(source))
    return __zor_dynamic_cast(const_cast<void *>(object), reinterpret_cast<const a_virtual_table_slot *>(source),
                              reinterpret_cast<const a_type_info_impl *>(target));

  struct a_table_prefix {
    long offset_to_top;
    const __class_type_info *type;
  };
  const auto *prefix = *static_cast<const a_table_prefix *const *>(object) - 1;
  char *place = static_cast<char *>(const_cast<void *>(object));
  char *complete = place + prefix->offset_to_top;
  const __class_type_info *dynamic = prefix->type;
  if (dynamic == target && hint >= 0 && complete + hint == place) return complete;

  void *result;
  if (complete == place && cast_along_chain(dynamic, source, target, complete, &result)) return result;
  if (void *found = a_quick_cast(source, target).result(dynamic, complete)) return found;
  a_cast cast = {{source, place, false, false}, target, hint != -2, nullptr, false, false, nullptr, false, false};
  visit_bases(dynamic, complete, true, true, cast);
  return cast.result();
}

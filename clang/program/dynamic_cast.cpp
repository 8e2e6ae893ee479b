// dynamic_cast of C++ code (C++ ABI, 2.9.7). In the program and hidden, because the shared object exports another
// function of this name, with other parameters, for generated code. A program may hold code of both kinds, so calls
// from generated code are told apart and passed on.

#include "../base_search.h"

#include <plx/runtime.h>

using namespace __cxxabiv1;

extern "C" void *__zor_dynamic_cast(void *object, const a_virtual_table_slot *slot, const a_type_info_impl *target);

extern "C" const void *const _ZTVN10__cxxabiv117__class_type_infoE[];
extern "C" const void *const _ZTVN10__cxxabiv120__si_class_type_infoE[];
extern "C" const void *const _ZTVN10__cxxabiv121__vmi_class_type_infoE[];

namespace {

const void *const *table_of(const void *record) { return *static_cast<const void *const *const *>(record) - 2; }

// Generated code passes a slot where C++ passes a class's record; a slot begins with a small number.
bool is_class_record(const void *record) {
  const void *const *table = table_of(record);
  return table == _ZTVN10__cxxabiv117__class_type_infoE || table == _ZTVN10__cxxabiv120__si_class_type_infoE ||
         table == _ZTVN10__cxxabiv121__vmi_class_type_infoE;
}

// The 1998 rules (5.2.7): if the source is a public base of exactly one target object, that object; else, if the
// source is a public base of the complete object and the target an unambiguous public base of it, that base.
struct a_cast : a_base_search {
  a_cast(const __class_type_info *source, const char *source_object, const __class_type_info *target)
      : a_base_search(source_object), source_(source), source_object_(source_object), target_(target) {}

  void reached(const __class_type_info *type, char *object, bool is_public) override {
    if (same_record(type, source_) && object == source_object_) source_is_public_ |= is_public;
    if (!same_record(type, target_)) return;
    if (target_object_ && target_object_ != object) target_is_ambiguous_ = true;
    if (target_object_ != object) look_below(type, object);
    target_object_ = object;
    target_is_public_ |= is_public;
  }

  void *result() const {
    if (containing_ && !several_contain_ && contained_publicly_) return containing_;
    if (source_is_public_ && target_object_ && !target_is_ambiguous_ && target_is_public_) return target_object_;
    return nullptr;
  }

private:
  // Whether the source is a base of this target object.
  void look_below(const __class_type_info *type, char *object) {
    struct a_look : a_base_search {
      a_look(const a_cast &cast) : a_base_search(cast.source_object_), cast_(cast) {}
      void reached(const __class_type_info *below, char *place, bool is_public) override {
        if (!same_record(below, cast_.source_) || place != cast_.source_object_) return;
        found_ = true;
        is_public_ |= is_public;
      }
      const a_cast &cast_;
      bool found_ = false, is_public_ = false;
    } look(*this);
    type->visit(look, object, true);
    if (!look.found_) return;
    if (containing_ && containing_ != object) several_contain_ = true;
    containing_ = object;
    contained_publicly_ |= look.is_public_;
  }

  const __class_type_info *source_;
  const char *source_object_;
  const __class_type_info *target_;
  bool source_is_public_ = false;
  char *target_object_ = nullptr;
  bool target_is_public_ = false, target_is_ambiguous_ = false;
  char *containing_ = nullptr;
  bool several_contain_ = false, contained_publicly_ = false;
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
    if (table_of(type) != _ZTVN10__cxxabiv120__si_class_type_infoE) return false;
    type = static_cast<const __si_class_type_info *>(type)->__base_type;
  }
}

}  // namespace

// `hint` is the offset of the source in the target when it is the target's one public non-virtual base of its type,
// else negative.
extern "C" __attribute__((__visibility__("hidden"))) void *__dynamic_cast(const void *object,
                                                                           const __class_type_info *source,
                                                                           const __class_type_info *target,
                                                                           long hint) {
  if (!is_class_record(source))
    return __zor_dynamic_cast(const_cast<void *>(object),
                              reinterpret_cast<const a_virtual_table_slot *>(source),
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
  a_cast cast(source, place, target);
  dynamic->visit(cast, complete, true);
  return cast.result();
}

// The library's own classes and the fundamental types: a compiler's record and the library's descriptor of such a
// type must count as one type, so that both sorts of handler see the same exception.

#include "library_types.h"

#include <string.h>

#include <plx/runtime.h>

namespace __zor {
namespace {

struct a_library_class {
  const char *encoded_name;
  const char *identity;
};

#define LIBRARY_CLASS(encoded) \
  { #encoded, &__TID_##encoded }

const a_library_class library_classes[] = {
    LIBRARY_CLASS(St9exception),         LIBRARY_CLASS(St11logic_error),   LIBRARY_CLASS(St12domain_error),
    LIBRARY_CLASS(St16invalid_argument), LIBRARY_CLASS(St12length_error),  LIBRARY_CLASS(St12out_of_range),
    LIBRARY_CLASS(St13runtime_error),    LIBRARY_CLASS(St11range_error),   LIBRARY_CLASS(St14overflow_error),
    LIBRARY_CLASS(St15underflow_error),  LIBRARY_CLASS(St9bad_alloc),      LIBRARY_CLASS(St8bad_cast),
    LIBRARY_CLASS(St10bad_typeid),       LIBRARY_CLASS(St13bad_exception), LIBRARY_CLASS(NSt8ios_base7failureE),
};

const char *fundamental_identity(char code) {
  switch (code) {
    case 'v': return &__TID_v;
    case 'b': return &__TID_b;
    case 'c': return &__TID_c;
    case 'a': return &__TID_a;
    case 'h': return &__TID_h;
    case 'w': return &__TID_w;
    case 's': return &__TID_s;
    case 't': return &__TID_t;
    case 'i': return &__TID_i;
    case 'j': return &__TID_j;
    case 'l': return &__TID_l;
    case 'm': return &__TID_m;
    case 'x': return &__TID_x;
    case 'y': return &__TID_y;
    case 'f': return &__TID_f;
    case 'd': return &__TID_d;
    case 'e': return &__TID_e;
    default: return nullptr;
  }
}

}  // namespace

const char *library_identity(const __cxxabiv1::abi_type_info *type) {
  const char *name = type->encoded_name();
  if (name[0] != 0 && name[1] == 0) return fundamental_identity(name[0]);
  const char *scope = name[0] == 'N' ? name + 1 : name;  // nested names
  if (scope[0] != 'S' || scope[1] != 't') return nullptr;
  for (const a_library_class &known : library_classes)
    if (strcmp(name, known.encoded_name) == 0) return known.identity;
  return nullptr;
}

}  // namespace __zor

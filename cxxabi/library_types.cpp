// The library's own classes and the fundamental types: a compiler's record and the library's descriptor of such a
// type must count as one type, so that both sorts of handler see the same exception.

#include "library_types.h"

#include <string.h>

#include <plx/runtime.h>

namespace __zor {
namespace {

// Encoded names, and identities in the same order: text needs no relocation.
#define LIBRARY_CLASSES(entry)                                                                            \
  entry(St9exception), entry(St11logic_error), entry(St12domain_error), entry(St16invalid_argument),      \
      entry(St12length_error), entry(St12out_of_range), entry(St13runtime_error), entry(St11range_error), \
      entry(St14overflow_error), entry(St15underflow_error), entry(St9bad_alloc), entry(St8bad_cast),     \
      entry(St10bad_typeid), entry(St13bad_exception), entry(NSt8ios_base7failureE)

#define ENCODED_NAME(encoded) #encoded
#define IDENTITY(encoded) &__TID_##encoded

const char encoded_names[][22] = {LIBRARY_CLASSES(ENCODED_NAME)};
const char *const identities[] = {LIBRARY_CLASSES(IDENTITY)};

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
  if (scope[0] != 'S' || scope[1] != 't' || !name[2] || !name[3]) return nullptr;
  // Two characters tell most names apart without a call.
  for (size_t i = 0; i < sizeof identities / sizeof *identities; ++i)
    if (name[3] == encoded_names[i][3] && name[4] == encoded_names[i][4] && strcmp(name, encoded_names[i]) == 0)
      return identities[i];
  return nullptr;
}

}  // namespace __zor

// std::type_info (1998, 18.5.1), for descriptors of generated code and for records of a C++ compiler alike.

#include <typeinfo>

#include "foreign.h"

using namespace __zor;

namespace {

const a_type_info_impl *record_of(const std::type_info *type) {
  return reinterpret_cast<const a_type_info_impl *>(type);
}

size_t rank(const std::type_info *type) {
  const a_type_info_impl *record = record_of(type);
  const char *identity = is_foreign(record) ? foreign_identity(record) : record->identity;
  return identity ? reinterpret_cast<size_t>(identity) : reinterpret_cast<size_t>(type);
}

}  // namespace

namespace std {

type_info::~type_info() {}

bool type_info::equal(const type_info &other) const PLX_NOTHROW {
  return same_type(record_of(this), record_of(&other));
}

bool type_info::before(const type_info &other) const PLX_NOTHROW {
  return rank(this) < rank(&other) && !(*this == other);
}

}  // namespace std

// locale::facet, the base of every facet; locale::id, their identities; and looking for a facet that use_facet did not
// find at once.

#include <typeinfo>

#include <plx/locale/locale_core.h>

namespace std {

locale::facet::~facet() {}

unsigned int locale::id::init() const PLX_NOTHROW {
  static unsigned int master_id;
  if (_value_ == 0) _value_ = ++master_id;
  return _value_;
}

}  // namespace std

std::locale::facet &__zor::_locale_missing_facet(const std::locale::imp *table, const std::locale::id &identity) {
  std::locale::facet *found = table->_get(identity.init());
  if (!found) std::bad_cast::__throw("Facet not present\n");
  return *found;
}

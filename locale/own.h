// Owners for library code that builds facets and implementations: what they hold is given back when an exception
// passes, until it is released. Always as eh_local<...>.
#pragma once

#include <plx/locale/locale_core.h>

#include "../libC/eh_tools.h"

namespace __zor {

// A block whose object is still under construction.
struct block_owner {
  explicit block_owner(size_t size) : block(operator new(size)) {}
  ~block_owner() { operator delete(block); }
  void *release() {
    void *released = block;
    block = nullptr;
    return released;
  }
  void *block;
};

// new T(arguments...), for constructors that may throw.
template <class T, class... Arguments> T *make(const Arguments &...arguments) {
  eh_local<block_owner> owner(sizeof(T));
  T *made = new (owner->block) T(arguments...);
  owner->release();
  return made;
}

// A count of a facet: one that nobody else holds in the end is deleted.
struct facet_hold {
  explicit facet_hold(std::locale::facet *facet) : held(facet) { std::locale::imp::_take(held); }
  ~facet_hold() { std::locale::imp::_give_back(held); }
  std::locale::facet *held;
};

struct imp_owner {
  explicit imp_owner(std::locale::imp *owned) : imp(owned) {}
  ~imp_owner() { delete imp; }
  std::locale::imp *release() {
    std::locale::imp *released = imp;
    imp = nullptr;
    return released;
  }
  std::locale::imp *imp;
};

}  // namespace __zor

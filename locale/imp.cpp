// locale::imp: the facet table, who holds which facet, and what is released with the last handle. The facets that a
// named implementation begins with come from standard_facets.cpp.

#include <string.h>

#include "own.h"
#include "standard_facets.h"

using namespace __zor;

namespace std {

namespace {

// Enough for every facet class that a locale holds from the start.
const unsigned int first_slots = 13;

// Destroys an object whose members are there, but whose constructor does not end.
struct undo_members {
  explicit undo_members(locale::imp *object) : made(object) {}
  ~undo_members() {
    if (made) made->~imp();
  }
  locale::imp *made;
};

}  // namespace

locale::imp::imp(const char *name, int categories) : _refcount_(1), _quick_(0) {
  eh_local<undo_members> undo(this);
  _name_ = name;
  _facets_.resize(first_slots, nullptr);
  // "*" is the name of locales that have none.
  const bool named = strcmp(name, "*") != 0;
  install_standard_facets(*this, named ? name : "C", categories);
  _look();
  if (named && (categories & all) == all) _note_named_whole();
  undo->made = nullptr;
}

locale::imp::imp(const imp &source) : _name_(source._name_), _refcount_(1), _quick_(source._quick_) {
  eh_local<undo_members> undo(this);
  _facets_.resize(source._facets_.size(), nullptr);
  for (unsigned int i = 1; i < _facets_.size(); ++i) {
    _facets_[i] = source._facets_[i];
    if (_facets_[i]) _take(_facets_[i]);
  }
  undo->made = nullptr;
}

locale::imp::~imp() {
  for (unsigned int i = 1; i < _facets_.size(); ++i)
    if (_facets_[i]) _give_back(_facets_[i]);
}

void locale::imp::_take(facet *held) PLX_NOTHROW {
  if (held->_deletable_) ++held->_refcount_;
}

void locale::imp::_give_back(facet *held) PLX_NOTHROW {
  if (held->_deletable_ && --held->_refcount_ == 0) delete held;
}

void locale::imp::_store(facet *stored, const id &identity) {
  const unsigned int slot = identity.init();
  if (slot >= _facets_.size()) _facets_.resize(slot + 1, nullptr);
  facet *before = _facets_[slot];
  // In this order, since both may be the same one.
  _take(stored);
  _facets_[slot] = stored;
  if (before) _give_back(before);
}

void locale::imp::_set_name(const char *name) { _name_ = name; }

}  // namespace std

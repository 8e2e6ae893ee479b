// The handle: named and combined locales, assignment, names and comparison. The classic and the default locale are in
// default_locale.cpp.

#include <stdexcept>

#include "c_locale.h"
#include "own.h"
#include "standard_facets.h"

using namespace __zor;

void __zor::invalid_locale_name() { std::runtime_error::__throw("Invalid locale name\n"); }

namespace std {

const locale::category locale::none;
const locale::category locale::collate;
const locale::category locale::ctype;
const locale::category locale::monetary;
const locale::category locale::numeric;
const locale::category locale::time;
const locale::category locale::messages;
const locale::category locale::all;

locale::locale(const char *name) {
  eh_local<c_locale_switch> c_library;
  if (!c_library->to(name)) invalid_locale_name();
  _imp_ = make<imp>(name, int(all));
}

locale::locale(const locale &other, const char *name, category categories) {
  eh_local<c_locale_switch> c_library;
  eh_local<imp_owner> combined(make<imp>(*other._imp_));
  if (!c_library->to(name)) invalid_locale_name();
  eh_local<imp_owner> source(make<imp>(name, categories));
  _imp_ = combined->imp;
  set_cat(source->imp, categories);
  combined->release();
}

locale::locale(const locale &other, const locale &one, category categories) {
  eh_local<imp_owner> combined(make<imp>(*other._imp_));
  _imp_ = combined->imp;
  set_cat(one._imp_, categories);
  combined->release();
}

// The facet was handed over: when this fails, and no other locale holds it, it is deleted.
locale::imp *locale::_with(const locale &other, facet *added, const id &identity) {
  if (!added) {
    ++other._imp_->_refcount_;
    return other._imp_;
  }
  eh_local<facet_hold> hold(added);
  eh_local<imp_owner> combined(make<imp>(*other._imp_));
  combined->imp->_set_name("*");
  combined->imp->_store(added, identity);
  combined->imp->_look();
  return combined->release();
}

locale::imp *locale::_combined(const locale &base, const locale &other, const id &identity) {
  facet *added = other._imp_->_get(identity.init());
  if (!added) runtime_error::__throw("Facet not present\n");
  return _with(base, added, identity);
}

void locale::set_imp(imp *source, const id &identity) {
  facet *replacement = source->_get(identity.init());
  if (!replacement) return;
  _imp_->_store(replacement, identity);
  _imp_->_look();
}

void locale::set_cat(imp *source, category categories) { carry_standard_facets(*this, source, categories); }

const locale &locale::operator=(const locale &other) PLX_NOTHROW {
  if (_imp_ != other._imp_) {
    imp *before = _imp_;
    _imp_ = other._imp_;
    ++_imp_->_refcount_;
    if (--before->_refcount_ == 0) _free(before);
  }
  return *this;
}

string locale::name() const { return _imp_->_name_; }

bool locale::operator==(const locale &other) const PLX_NOTHROW {
  return _imp_ == other._imp_ ||
         ((_imp_->_quick_ & other._imp_->_quick_ & imp::_named_whole) && _imp_->_name_ == other._imp_->_name_);
}

}  // namespace std

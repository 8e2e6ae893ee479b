// The classic locale, and the default one that a locale or a stream gets when none is named.
//
// The default points at the classic implementation without a count of its own, from the first time that it is asked
// for; a locale that the program set by global() is counted, until it is replaced. So a program that never calls
// global() sees the counts and the moment of destruction of a library without it.
//
// At exit the classic locale is destroyed in its turn. Static objects made before it die later and may still use
// streams, so whatever frees its implementation also makes the default forget it, and the next one to ask for either
// gets a new one, to be destroyed in its turn. A locale set by global() stays to the end: those objects use it too.

#include <locale.h>
#include <string.h>

#include <new>

#include <plx/locale/locale_core.h>
#include <plx/runtime.h>

namespace std {

namespace {

locale::imp *classic_imp;  // as long as it lives, which may be longer than the classic locale
bool global_is_counted;
alignas(locale) char classic_storage[sizeof(locale)];
bool classic_lives;

}  // namespace

locale::imp *locale::global_;

locale::locale() {
  if (!global_) global_ = classic()._imp_;
  _imp_ = global_;
  ++_imp_->_refcount_;
}

const locale &locale::classic() {
  locale *const object = reinterpret_cast<locale *>(classic_storage);
  if (__builtin_expect(!classic_lives, 0)) {
    static a_needed_destruction at_exit = {nullptr, classic_storage, _end_of_classic};
    if (classic_imp) {
      new (object) locale(classic_imp);
      ++classic_imp->_refcount_;
    } else {
      new (object) locale("C");
      classic_imp = object->_imp_;
    }
    classic_lives = true;
    __record_needed_destruction(&at_exit);
  }
  return *object;
}

void locale::_end_of_classic(void *classic, int) PLX_NOTHROW {
  classic_lives = false;
  static_cast<locale *>(classic)->~locale();
}

// The only place that frees an implementation which handles have shared.
void locale::_free(imp *unused) PLX_NOTHROW {
  if (unused == global_) global_ = nullptr;
  if (unused == classic_imp) classic_imp = nullptr;
  delete unused;
}

locale locale::global(const locale &set) {
  const locale before;
  if (set._imp_ != global_) {
    const bool before_is_counted = global_is_counted;
    global_is_counted = set._imp_ != classic_imp;
    if (global_is_counted) ++set._imp_->_refcount_;
    global_ = set._imp_;
    if (before_is_counted) --before._imp_->_refcount_;
  }
  if (set._imp_->_name_ != "*") setlocale(LC_ALL, set._imp_->_name_.c_str());
  return before;
}

}  // namespace std

// The C library's locales: the one in force, switched for a while, and single ones kept beside it.
#pragma once

#include <locale.h>
#include <string.h>

#include <new>

namespace __zor {

// runtime_error with "Invalid locale name\n".
[[noreturn]] void invalid_locale_name();

// setlocale, which for a single category does not take the name of a mixture, "LC_CTYPE=...;LC_NUMERIC=...", though it
// returns such names.
const char *set_c_locale(int category, const char *name) noexcept;

// Puts the C library's locale back, also when an exception passes: always as eh_local<c_locale_switch>.
class c_locale_switch {
public:
  // The C library may free the text that it returns at the next change: it is copied before anything else. A mixture of
  // locales has a name of a few hundred characters; no memory is asked for unless it is longer.
  c_locale_switch() : before_(short_), switched_(false) {
    const char *name = setlocale(LC_ALL, nullptr);
    const size_t size = strlen(name) + 1;
    if (size > sizeof short_) before_ = static_cast<char *>(operator new(size));
    memcpy(before_, name, size);
  }
  ~c_locale_switch() {
    if (switched_) setlocale(LC_ALL, before_);
    if (before_ != short_) operator delete(before_);
  }
  c_locale_switch(const c_locale_switch &) = delete;
  c_locale_switch &operator=(const c_locale_switch &) = delete;

  // False, and nothing has changed, when there is no such locale.
  bool to(const char *name, int category = LC_ALL) {
    if (!name) return false;
    // As most programs have it all the time.
    if (strcmp(name, "C") == 0 && strcmp(before_, "C") == 0) return true;
    return switched_ = set_c_locale(category, name);
  }

private:
  char *before_;
  bool switched_;
  char short_[400];
};

// A locale of the C library for calls that name it; to be freed by freelocale. Throws when there is none.
inline locale_t open_c_locale(int mask, const char *name) {
  const locale_t opened = name ? newlocale(mask, name, nullptr) : nullptr;
  if (!opened) invalid_locale_name();
  return opened;
}

}  // namespace __zor

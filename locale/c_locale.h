// The C library's locale, switched for a while. Always as eh_local<c_locale_switch>, since it is put back also when an
// exception passes.
#pragma once

#include <locale.h>

#include <string>

namespace __zor {

class c_locale_switch {
public:
  // The C library may free the text that it returns at the next change: it is copied before anything else.
  c_locale_switch() : before_(setlocale(LC_ALL, nullptr)), switched_(false) {}
  ~c_locale_switch() {
    if (switched_) setlocale(LC_ALL, before_.c_str());
  }
  c_locale_switch(const c_locale_switch &) = delete;
  c_locale_switch &operator=(const c_locale_switch &) = delete;

  // False, and nothing has changed, when there is no such locale.
  bool to(const char *name) { return switched_ = name && setlocale(LC_ALL, name); }

private:
  std::string before_;
  bool switched_;
};

}  // namespace __zor

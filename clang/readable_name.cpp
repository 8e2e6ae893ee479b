// Encoded type names for people: the message about an uncaught exception should say ns::parse_error, not
// N2ns11parse_errorE. Covers classes, nested names, fundamental types, pointers and qualifiers; a name with anything
// else (templates, function types) is left as the compiler encoded it.

#include <string.h>

#include "../libC/uncaught_report.h"
#include "abi_type_info.h"

namespace __zor {
namespace {

class a_reader {
public:
  a_reader(const char *encoded, char *text, size_t size) : at_(encoded), text_(text), room_(size) {}

  bool read_all() { return type() && *at_ == 0; }

private:
  bool add(const char *text, size_t length) {
    if (length >= room_) return false;
    memcpy(text_, text, length);
    text_ += length;
    room_ -= length;
    *text_ = 0;
    return true;
  }
  bool add(const char *text) { return add(text, strlen(text)); }
  bool accept(char code) { return *at_ == code ? ++at_, true : false; }

  bool type() {
    if (accept('P')) return type() && add("*");
    if (accept('K')) return type() && add(" const");
    if (accept('V')) return type() && add(" volatile");
    if (*at_ == 'N') return nested_name();
    if (at_[0] == 'S' && at_[1] == 't') {
      at_ += 2;
      return add("std::") && source_name();
    }
    if (*at_ >= '0' && *at_ <= '9') return source_name();
    return fundamental();
  }

  bool nested_name() {
    ++at_;
    if (at_[0] == 'S' && at_[1] == 't') {
      at_ += 2;
      if (!add("std::")) return false;
    }
    for (bool first = true; !accept('E'); first = false)
      if ((!first && !add("::")) || !source_name()) return false;
    return true;
  }

  bool source_name() {
    size_t length = 0;
    const char *start = at_;
    while (*at_ >= '0' && *at_ <= '9') length = length * 10 + (*at_++ - '0');
    if (at_ == start || strlen(at_) < length) return false;
    const char *name = at_;
    at_ += length;
    static const char unnamed[] = "_GLOBAL__N_1";
    if (length == sizeof unnamed - 1 && memcmp(name, unnamed, length) == 0) return add("(anonymous namespace)");
    return add(name, length);
  }

  bool fundamental() {
    static const char *const names[26] = {"signed char", "bool",  "char",          "double",    "long double",
                                          "float",       nullptr, "unsigned char", "int",       "unsigned int",
                                          nullptr,       "long",  "unsigned long", nullptr,     nullptr,
                                          nullptr,       nullptr, nullptr,         "short",     "unsigned short",
                                          nullptr,       "void",  "wchar_t",       "long long", "unsigned long long",
                                          "..."};
    if (*at_ < 'a' || *at_ > 'z' || !names[*at_ - 'a']) return false;
    return add(names[*at_++ - 'a']);
  }

  const char *at_;
  char *text_;
  size_t room_;
};

}  // namespace

void foreign_readable_name(const a_type_info_impl *native, char *text, size_t size) {
  if (a_reader(native->name, text, size).read_all()) return;
  strncpy(text, native->name, size - 1);
  text[size - 1] = 0;
}

}  // namespace __zor

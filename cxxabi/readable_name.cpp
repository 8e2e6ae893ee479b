// Encoded type names for people: the message about an uncaught exception should say ns::parse_error<int>, not
// N2ns11parse_errorIiEE. Covers classes, nested names, templates over types and integers, fundamental types, pointers,
// references and qualifiers (C++ ABI, 5.1); a name with anything else, such as a function type or a local class, is
// left as the compiler encoded it.

#include <string.h>

#include "../libC/uncaught_report.h"
#include "abi_type_info.h"

namespace __zor {
namespace {

class a_reader {
public:
  a_reader(const char *encoded, char *text, size_t size) : at_(encoded), end_(text), room_(size) {}

  bool read_all() { return type() && *at_ == 0; }

private:
  // What a name may refer back to stands in the text already, in one piece.
  struct a_piece {
    const char *start;
    size_t length;
  };

  bool add(const char *text, size_t length) {
    if (length >= room_) return false;
    memmove(end_, text, length);
    end_ += length;
    room_ -= length;
    *end_ = 0;
    return true;
  }
  bool add(const char *text) { return add(text, strlen(text)); }
  bool accept(char code) { return *at_ == code ? ++at_, true : false; }

  bool remember(const char *start) {
    if (count_ == sizeof pieces_ / sizeof *pieces_) return false;
    pieces_[count_++] = {start, static_cast<size_t>(end_ - start)};
    return true;
  }

  bool type() {
    const char *start = end_;
    if (accept('P')) return type() && add("*") && remember(start);
    if (accept('R')) return type() && add("&") && remember(start);
    if (accept('K')) return type() && add(" const") && remember(start);
    if (accept('V')) return type() && add(" volatile") && remember(start);
    if (accept('N')) return nested_name();
    if (*at_ == 'S' || is_digit()) return component(start);
    return fundamental();
  }

  bool nested_name() {
    const char *start = end_;
    for (bool first = true; !accept('E'); first = false)
      if ((!first && !add("::")) || !component(start)) return false;
    return true;
  }

  // One name, with its template arguments; `start` is where the whole name starts.
  bool component(const char *start) {
    bool is_new = true;
    if (accept('S')) {
      if (accept('t')) {
        if (!add("std::")) return false;
        if (!source_name()) return false;
      } else {
        is_new = false;
        if (!substitution()) return false;
      }
    } else if (!source_name()) {
      return false;
    }
    if (is_new && !remember(start)) return false;
    return !accept('I') || (arguments() && remember(start));
  }

  bool arguments() {
    if (!add("<")) return false;
    for (bool first = true; !accept('E'); first = false)
      if ((!first && !add(", ")) || !(accept('L') ? number() : type())) return false;
    return add(">");
  }

  // An integer: its type, whose name is of no interest, and its digits.
  bool number() {
    char *const before = end_;
    const size_t room = room_;
    if (!fundamental()) return false;
    end_ = before;
    room_ = room;
    if (accept('n') && !add("-")) return false;
    const char *digits = at_;
    while (is_digit()) ++at_;
    return add(digits, at_ - digits) && accept('E');
  }

  bool substitution() {
    static const struct {
      char code;
      char name[18];
    } known[] = {{'a', "std::allocator"}, {'b', "std::basic_string"}, {'s', "std::string"},
                 {'i', "std::istream"},   {'o', "std::ostream"},      {'d', "std::iostream"}};
    for (const auto &name : known)
      if (accept(name.code)) return add(name.name);
    unsigned number = 0;
    if (!accept('_')) {
      for (; *at_ != '_'; ++at_) {
        if (!is_digit() && (*at_ < 'A' || *at_ > 'Z')) return false;
        number = number * 36 + (is_digit() ? *at_ - '0' : *at_ - 'A' + 10);
        if (number > count_) return false;
      }
      ++number;
      ++at_;
    }
    return number < count_ && add(pieces_[number].start, pieces_[number].length);
  }

  bool is_digit() const { return *at_ >= '0' && *at_ <= '9'; }

  bool source_name() {
    size_t length = 0;
    const char *start = at_;
    while (is_digit() && length < 10000) length = length * 10 + (*at_++ - '0');
    if (at_ == start || strlen(at_) < length) return false;
    const char *name = at_;
    at_ += length;
    static const char unnamed[] = "_GLOBAL__N_1";
    if (length == sizeof unnamed - 1 && memcmp(name, unnamed, length) == 0) return add("(anonymous namespace)");
    return add(name, length);
  }

  bool fundamental() {
    // Text, not pointers, here and above: pointers would have to be relocated at every start.
    static const char names[26][19] = {"signed char",
                                       "bool",
                                       "char",
                                       "double",
                                       "long double",
                                       "float",
                                       "",
                                       "unsigned char",
                                       "int",
                                       "unsigned int",
                                       "",
                                       "long",
                                       "unsigned long",
                                       "",
                                       "",
                                       "",
                                       "",
                                       "",
                                       "short",
                                       "unsigned short",
                                       "",
                                       "void",
                                       "wchar_t",
                                       "long long",
                                       "unsigned long long",
                                       "..."};
    if (*at_ < 'a' || *at_ > 'z' || !*names[*at_ - 'a']) return false;
    return add(names[*at_++ - 'a']);
  }

  const char *at_;
  char *end_;
  size_t room_;
  a_piece pieces_[32];
  unsigned count_ = 0;
};

}  // namespace

void foreign_readable_name(const a_type_info_impl *native, char *text, size_t size) {
  const char *name = native->name + (*native->name == '*');
  if (a_reader(name, text, size).read_all()) return;
  strncpy(text, name, size - 1);
  text[size - 1] = 0;
}

}  // namespace __zor

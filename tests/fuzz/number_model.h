// What num_get must make of a text, written the slow way: digits and group sizes are collected whole, values come from
// strtoull and strtod. For tests and the fuzzer; it runs with every C++ library.
#ifndef TESTS_NUMBER_MODEL_H
#define TESTS_NUMBER_MODEL_H

#include <stdlib.h>
#include <string.h>

#include <ostream>
#include <string>
#include <vector>

namespace model {

struct rules {
  int flags;
  std::string grouping;
  char separator, point;
};

struct reading {
  int err;
  size_t stop;
  bool stored;
  unsigned long integer;
  std::string real;  // for strtod and its kin
};

struct reader {
  const std::string &text;
  const rules &how;
  size_t at;
  std::vector<size_t> groups;  // digits in each

  reader(const std::string &of, const rules &by) : text(of), how(by), at(0), groups(1) {}
  bool more() const { return at < text.size(); }
  bool next_is(const char *set) const { return more() && text[at] != 0 && strchr(set, text[at]) != 0; }

  bool take_sign() {
    const bool negative = next_is("-");
    if (next_is("+-")) ++at;
    if (how.flags & std::ios_base::skipws)
      while (next_is(" \t\n\v\f\r")) ++at;
    return negative;
  }

  bool grouped() const {
    size_t g = 0;
    for (size_t i = groups.size() - 1; i > 0; --i) {
      if (how.grouping[g] == 127 || groups[i] != size_t(how.grouping[g] & 15)) return false;
      if (g + 1 < how.grouping.size()) ++g;
    }
    return groups.size() == 1 || how.grouping[g] == 127 || groups[0] <= size_t(how.grouping[g] & 15);
  }

  reading done(bool failed) const {
    reading result;
    result.err = (failed ? int(std::ios_base::failbit) : 0) | (more() ? 0 : int(std::ios_base::eofbit));
    result.stop = at;
    result.stored = !failed;
    result.integer = 0;
    return result;
  }
};

inline reading read_integer(const std::string &text, const rules &how, bool is_signed, unsigned long long max) {
  reader r(text, how);
  const bool negative = r.take_sign();
  const int field = how.flags & std::ios_base::basefield;
  int base = field == std::ios_base::dec ? 10 : field == std::ios_base::hex ? 16 : field == std::ios_base::oct ? 8 : 0;
  bool zero = false;
  if (r.next_is("0")) {
    ++r.at;
    if (base != 8 && base != 10 && r.next_is("xX")) {
      ++r.at;
      base = 16;
    } else {
      zero = true;
      if (base == 0) base = 8;
    }
  }
  const std::string digits_of_base = std::string("0123456789abcdefABCDEF").substr(0, base == 16 ? 22 : base);
  std::string digits;
  bool overflow = false;
  while (base && r.more()) {
    const char c = r.text[r.at];
    if (c && digits_of_base.find(c) != std::string::npos) {
      const size_t significant = (digits + c).find_first_not_of('0');
      const bool fits = significant == std::string::npos ||
                        (digits.size() + 1 - significant < 15 && strtoull((digits + c).c_str(), 0, base) < 1ull << 32);
      if (!fits) overflow = true;
      if (!fits && base != 10) break;
      digits += c;
      ++r.groups.back();
    } else if (!how.grouping.empty() && c == how.separator) {
      r.groups.push_back(0);
    } else {
      break;
    }
    ++r.at;
  }
  const unsigned long long magnitude = overflow ? 0 : strtoull(("0" + digits).c_str(), 0, base ? base : 10);
  const unsigned long long half = max / 2 + 1;
  const unsigned long long most = negative ? half : is_signed ? max / 2 : max;
  const bool in_range = !overflow && magnitude <= most;
  reading result = r.done(!in_range || (digits.empty() && !zero) || !r.grouped());
  result.stored = true;
  if (in_range)
    result.integer = (unsigned long)((negative ? 0 - magnitude : magnitude) & max);
  else
    result.integer = (unsigned long)(is_signed ? most : max);
  return result;
}

inline reading read_real(const std::string &text, const rules &how) {
  reader r(text, how);
  std::string real;
  if (r.take_sign()) real += '-';
  const size_t sign = real.size();
  for (; r.more(); ++r.at) {
    if (r.next_is("0123456789")) {
      real += r.text[r.at];
      ++r.groups.back();
    } else if (!how.grouping.empty() && r.text[r.at] == how.separator) {
      r.groups.push_back(0);
    } else {
      break;
    }
  }
  if (r.more() && r.text[r.at] == how.point) {
    real += '.';
    for (++r.at; r.next_is("0123456789"); ++r.at) real += r.text[r.at];
  }
  const bool any = real.find_first_of("0123456789", sign) != std::string::npos;
  if (r.next_is("eE")) {
    real += r.text[r.at++];
    if (r.next_is("+-")) real += r.text[r.at++];
    for (; r.next_is("0123456789"); ++r.at) real += r.text[r.at];
  }
  reading result = r.done(!any || !r.grouped());
  result.real = real;
  return result;
}

inline reading read_pointer(const std::string &text, const rules &how) {
  rules hex = how;
  hex.flags = (how.flags & ~std::ios_base::basefield) | std::ios_base::hex;
  reading result = read_integer(text, hex, false, 0xFFFFFFFFull);
  result.stored = !(result.err & std::ios_base::failbit);
  if (text.empty() || text[0] != '(') return result;
  const std::string null = "(nil)";
  while (result.stop < null.size() && result.stop < text.size() && text[result.stop] == null[result.stop])
    ++result.stop;
  result.stored = result.stop == null.size();
  result.err =
      (result.stored ? 0 : int(std::ios_base::failbit)) | (result.stop == text.size() ? int(std::ios_base::eofbit) : 0);
  return result;
}

}  // namespace model

#endif

// What num_get and the extractors of streams must make of a text, found the slow way. For num_get's tests and its
// fuzzer.
#ifndef TESTS_NUMBER_MODEL_H
#define TESTS_NUMBER_MODEL_H

#include <locale.h>

#include <sstream>

#include "reading.h"

typedef std::ios_base base;

static const char *during = "C";  // the C library's locale while plx reads or writes

// Groups are collected whole, and values come from strtoull, strtod and its kin.
struct number_model {
  const std::string &text;
  std::ios &stream;
  const chosen_punctuation &how;
  const size_t step;  // of the buffer that shows it
  std::string plain;  // what was taken, without separators
  size_t at, digits;
  std::vector<size_t> groups;  // digits in each

  number_model(const std::string &of, std::ios &with, const chosen_punctuation &by, size_t pieces = 3)
      : text(of), stream(with), how(by), step(pieces), at(0), digits(0), groups(1) {}
  bool take(const char *set) {
    if (at == text.size() || text[at] == 0 || !strchr(set, text[at])) return false;
    plain += text[at];
    return ++at;
  }
  void take_sign() {
    take("+-");
    while (stream.flags() & base::skipws && at < text.size() && strchr(" \t\n\v\f\r", text[at]) && text[at]) ++at;
  }
  bool take_digit(const char *set) {
    if (take(set)) return ++groups.back(), ++digits;
    if (how.sizes.empty() || at == text.size() || text[at] != how.separator) return false;
    groups.push_back(0);
    return ++at;
  }
  bool grouped() const {
    size_t g = 0;
    for (size_t i = groups.size() - 1; i > 0; --i) {
      if (how.sizes[g] == 127 || groups[i] != size_t(how.sizes[g] & 15)) return false;
      if (g + 1 < how.sizes.size()) ++g;
    }
    return groups.size() == 1 || how.sizes[g] == 127 || groups[0] <= size_t(how.sizes[g] & 15);
  }

  // Returns whether it is a number.
  bool read(long long least, unsigned long long most, unsigned long &value) {
    const int field = stream.flags() & base::basefield;
    int radix = field == base::dec ? 10 : field == base::hex ? 16 : field == base::oct ? 8 : 0;
    take_sign();
    const bool negative = plain == "-";
    if (take("0")) {
      digits = radix == 8 || radix == 10 || !take("xX");
      radix = !digits ? 16 : radix ? radix : 8;
    }
    const char *const set = radix == 16 ? "0123456789abcdefABCDEF" : radix == 10 ? "0123456789" : "01234567";
    unsigned long long sum = 0;
    plain = "0";
    while (radix && take_digit(set)) {
      if (sum >> 32 == 0) sum = strtoull(plain.c_str(), 0, radix);
      if (sum >> 32 == 0 || radix == 10) continue;
      --at;  // bits that do not fit are left
      break;
    }
    const unsigned long long limit = negative ? most / 2 + 1 : least < 0 ? most / 2 : most;
    const bool fits = sum <= limit;
    value = fits ? (negative ? 0 - sum : sum) & most : least < 0 ? limit : most;
    return fits && digits && grouped();
  }
  bool read() {
    take_sign();
    while (take_digit("0123456789")) continue;
    if (at < text.size() && text[at] == how.point) {
      ++at;
      for (plain += '.'; take("0123456789");) ++digits;
    }
    if (take("eE")) {
      take("+-");
      while (take("0123456789")) continue;
    }
    return digits && grouped();
  }
};

template <class T> static void compare(const number_model &want, bool good, T value) {
  number_reading<T> got = {&want.stream, T(77)}, extracted = got;
  const number_reading<T> wanted = {&want.stream, value};
  const int failed = good ? 0 : base::failbit;
  int err;
  // With more behind, so that the extractors see the end in their window.
  const std::string behind(";;;;;;;;");
  std::istringstream in(want.text + behind);
  in.copyfmt(want.stream);
  setlocale(LC_ALL, during);
  const std::string left = read_all_ways(want.text, want.step, got, err);
  in >> extracted.value;
  setlocale(LC_ALL, "C");
  must(got.same(wanted) && err == (failed | (left.empty() ? base::eofbit : 0)), "not the value", want.text);
  must(left == want.text.substr(want.at), "not the place", want.text);
  must(extracted.same(wanted) && in.rdstate() == failed, "not the value extracted", want.text);
  in.clear();
  must(std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()) == left + behind, "not so far",
       want.text);
}
template <class T> static void integer(number_model want) {
  unsigned long value;
  const bool good = want.read(T(-1) < T() ? -1 : 0, sizeof(T) == 2 ? 0xFFFF : 0xFFFFFFFFul, value);
  compare(want, good, T(value));
}
template <class T> static void real(number_model want, T (*parse)(const char *, char **)) {
  const bool good = want.read();
  compare(want, good, good ? parse(want.plain.c_str(), 0) : T(77));
}

#endif

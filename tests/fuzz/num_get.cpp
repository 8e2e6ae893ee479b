// num_get, and the extractors of streams, against a model that is written the slow way: the first three bytes of an
// input choose flags, punctuation, type and manner of reading, the rest is the text.
#include <sstream>
#include <vector>

#include "fuzz_check.h"

typedef std::ios_base base;

static const char *const groupings[] = {"", "\3", "\3\2", "\1\177", "\2\1\3", "\21", "\177", "\1\1\1\1\1\2"};
struct punctuation : std::numpunct<char> {
  std::string grouping;
  char separator, point;
  explicit punctuation(int kind)
      : grouping(groupings[kind & 7]), separator(kind & 8 ? '.' : ','), point(kind & 16 ? ',' : '.') {}

protected:
  virtual char do_thousands_sep() const { return separator; }
  virtual char do_decimal_point() const { return point; }
  virtual std::string do_grouping() const { return grouping; }
};

// What must come of a text: groups are collected whole, and values come from strtoull, strtod and its kin.
struct model {
  const std::string &text;
  const int flags;
  const punctuation &how;
  std::string plain;  // what was taken, without separators
  size_t at, digits;
  std::vector<size_t> groups;  // digits in each

  model(const std::string &of, int with, const punctuation &by)
      : text(of), flags(with), how(by), at(0), digits(0), groups(1) {}
  bool take(const char *set) {
    if (at == text.size() || text[at] == 0 || !strchr(set, text[at])) return false;
    plain += text[at];
    return ++at;
  }
  void take_sign() {
    take("+-");
    while (flags & base::skipws && at < text.size() && strchr(" \t\n\v\f\r", text[at]) && text[at]) ++at;
  }
  bool take_digit(const char *set) {
    if (take(set)) return ++groups.back(), ++digits;
    if (how.grouping.empty() || at == text.size() || text[at] != how.separator) return false;
    groups.push_back(0);
    return ++at;
  }
  bool grouped() const {
    size_t g = 0;
    for (size_t i = groups.size() - 1; i > 0; --i) {
      if (how.grouping[g] == 127 || groups[i] != size_t(how.grouping[g] & 15)) return false;
      if (g + 1 < how.grouping.size()) ++g;
    }
    return groups.size() == 1 || how.grouping[g] == 127 || groups[0] <= size_t(how.grouping[g] & 15);
  }

  // Returns whether it is a number.
  bool read(long long least, unsigned long long most, unsigned long &value) {
    const int field = flags & base::basefield;
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
      sum = strtoull(plain.c_str(), 0, radix);
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

template <class T> static void compare(std::ios &stream, size_t step, const model &want, bool good, T value) {
  number_reading<T> got = {&stream, T(77)};
  const number_reading<T> wanted = {&stream, value};
  int err;
  const std::string left = read_all_ways(want.text, step, got, err);
  must(got.same(wanted) && err == ((good ? 0 : base::failbit) | (left.empty() ? base::eofbit : 0)), "not the value",
       want.text);
  must(left == want.text.substr(want.at), "not the place", want.text);
  // With more behind, so that the extractors see the end in their window.
  const std::string behind(";;;;;;;;");
  std::istringstream in(want.text + behind);
  in.copyfmt(stream);
  got.value = T(77);
  in >> got.value;
  must(got.same(wanted) && in.rdstate() == (good ? 0 : base::failbit), "not the value extracted", want.text);
  in.clear();
  must(std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()) == left + behind, "not so far",
       want.text);
}
template <class T> static void integer(std::ios &stream, size_t step, model want) {
  unsigned long value;
  const bool good = want.read(T(-1) < T() ? -1 : 0, sizeof(T) == 2 ? 0xFFFF : 0xFFFFFFFFul, value);
  compare(stream, step, want, good, T(value));
}
template <class T> static void real(std::ios &stream, size_t step, model want, T (*parse)(const char *, char **)) {
  const bool good = want.read();
  compare(stream, step, want, good, good ? parse(want.plain.c_str(), 0) : T(77));
}

const char *const fuzz_words[] = {
    "0",   "1",  "12", "999",  "4294967295", "2147483648", "0x", "-", "+",    " ",     ",", ".",  "e",  "E-",
    "000", "fF", "7",  ",234", "123456789",  "(nil)",      "x",  "8", "true", "false", "t", ",,", "99", 0};

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 3) return 0;
  static const int bases[] = {base::dec, 0, base::oct, base::hex, base::basefield, base::hex | base::oct};
  const int kind = data[2] & 64 ? 0 : data[0] >> 3;
  const size_t step = 1 + (data[1] >> 4);
  std::ios stream(0);
  stream.flags(base::fmtflags(bases[data[2] & 128 ? 4 + (data[2] & 1) : data[0] & 3]));
  std::string text(reinterpret_cast<const char *>(data) + 3, size - 3);
  if (data[0] & 4) {
    stream.setf(base::skipws);
    text.erase(0, text.find_first_not_of(" \t\n\v\f\r"));  // which is for the extractors only
  }
  punctuation *const how = new punctuation(kind);
  const std::locale loc(std::locale::classic(), how);
  if (kind & 23) stream.imbue(loc);  // otherwise as the classic locale has it
  const model want(text, stream.flags(), *how);
  switch (data[1] & 7) {
    case 0: integer<unsigned short>(stream, step, want); break;
    case 1: integer<long>(stream, step, want); break;
    case 2: integer<unsigned int>(stream, step, want); break;
    case 3: integer<unsigned long>(stream, step, want); break;
    case 4:
    case 5: real(stream, step, want, strtof); break;
    case 6: real(stream, step, want, strtod); break;
    default: real(stream, step, want, strtold);
  }
  return 0;
}

// num_get: what it makes of texts by plx's own rules, row by row; groups without an end, names of bools, what buffers
// and iterators see of the reading, facets and buffers that throw. fuzz/num_get has random texts, number_value the
// values.
// test-variants: -O1 | -O2 -std=gnu++17
#include <limits.h>

#include <deque>
#include <locale>
#include <sstream>
#include <string>

#include "../buffers.h"
#include "../fail_allocation.h"
#include "../rows.h"
#include "named_locales.h"

namespace {

typedef std::ios_base base;
typedef std::istreambuf_iterator<char> iterator;
const int dec = base::dec | base::skipws;

// Its operations may throw.
struct punctuation : std::numpunct<char> {
  static int throws;
  const std::string sizes;
  explicit punctuation(const std::string &of = "") : sizes(of) {}
  static void maybe(int which) {
    if (which == throws) throw thrown();
  }
  virtual char do_thousands_sep() const { return maybe(1), ','; }
  virtual char do_decimal_point() const { return maybe(2), '.'; }
  virtual std::string do_grouping() const { return maybe(3), sizes; }
  virtual std::string do_truename() const { return maybe(4), "oui"; }
  virtual std::string do_falsename() const { return maybe(5), "on ne sait pas"; }
};
int punctuation::throws;

template <class Iterator> struct getter : std::num_get<char, Iterator> {};

// The value, 77 if it was left alone, "!" failbit, "." eofbit, and how far it was read; by pointers, an iterator of
// another kind, and buffers.
template <class T>
std::string read(int flags, const std::string &text, const std::locale &loc = std::locale::classic()) {
  std::string all;
  for (int manner = 0; manner < 5; ++manner) {
    std::ios s(0);
    s.imbue(loc);
    s.flags(base::fmtflags(flags));
    T value = static_cast<T>(77);
    base::iostate err = base::goodbit;
    size_t stop;
    if (manner == 0) {
      const char *const end = text.data() + text.size();
      stop = getter<const char *>().get(text.data(), end, s, err, value) - text.data();
    } else if (manner == 1) {
      const std::deque<char> copy(text.begin(), text.end());
      stop = getter<std::deque<char>::const_iterator>().get(copy.begin(), copy.end(), s, err, value) - copy.begin();
    } else {
      scripted buffer(text, manner == 4 ? 1000 : manner - 2);
      std::use_facet<std::num_get<char> >(loc).get(iterator(&buffer), iterator(), s, err, value);
      stop = buffer.position();
    }
    char made[100];
    sprintf(made, "%.20Lg%s%s%u", static_cast<long double>(value), err & base::failbit ? "!" : "",
            err & base::eofbit ? "." : "", unsigned(stop));
    if (manner) CHECK_TEXT(made, all.c_str());
    all = made;
  }
  return all;
}
void table() {
  int count = 0;
  for (rows row(__FILE__, "data/num_get"); row.next(); ++count) {
    int flags = 0;
    for (int i = 0; i < 5; ++i)
      if (row[1].find("dhosa"[i]) != std::string::npos)
        flags |= i == 0 ? base::dec : i == 1 ? base::hex : i == 2 ? base::oct : i == 3 ? base::skipws : base::boolalpha;
    const std::string got = row[0] == "long"             ? read<long>(flags, row[2])
                            : row[0] == "double"         ? read<double>(flags, row[2])
                            : row[0] == "bool"           ? read<bool>(flags, row[2])
                            : row[0] == "unsigned_short" ? read<unsigned short>(flags, row[2])
                                                         : read<unsigned long>(flags, row[2]);
    CHECK_TEXT(got.c_str(), row[3].c_str());
  }
  CHECK_INT(count, 48);
  CHECK_TEXT(read<long>(dec, std::string(5000, '0') + "12").c_str(), "12.5002");
  CHECK_TEXT(read<long>(dec, std::string(5000, '9')).c_str(), "2147483647!.5000");
  std::ios s(0);
  const char *const texts[] = {"0xBEEF", "beef", "(nil)", "(nix", "0x", "fffffffff"};
  for (unsigned long i = 0; i < 6; ++i) {
    void *value = &s, *const want = i < 2 ? reinterpret_cast<void *>(0xBEEF) : i == 2 ? 0 : &s;
    base::iostate err = base::goodbit;
    getter<const char *>().get(texts[i], texts[i] + strlen(texts[i]), s, err, value);
    CHECK(value == want && (err & base::failbit) == (i < 3 ? 0 : base::failbit));
  }
}

struct equal_names : std::numpunct<char> {
  virtual std::string do_truename() const { return "x"; }
  virtual std::string do_falsename() const { return "x"; }
};

void names_and_groups() {
  CHECK_TEXT(read<bool>(base::boolalpha, "x", std::locale(std::locale::classic(), new equal_names)).c_str(), "1!.1");
  const std::locale french(std::locale::classic(), new punctuation);
  CHECK_TEXT(read<bool>(base::boolalpha, "oui", french).c_str(),
             "1"
             "3");
  CHECK_TEXT(read<bool>(base::boolalpha, "on ne sait pas", french).c_str(),
             "0"
             "14");
  CHECK_TEXT(read<bool>(base::boolalpha, "on ne sais", french).c_str(), "1!9");
  CHECK_TEXT(read<bool>(base::boolalpha, "o", french).c_str(), "1!.1");
  // As many groups as there may be, and a grouping as long as it likes to be.
  const std::locale threes(std::locale::classic(), new punctuation("\3")),
      odd(std::locale::classic(), new punctuation(std::string(100, '\1') + std::string(100, '\2')));
  const std::locale indian(std::locale::classic(), new punctuation("\3\2"));
  CHECK_TEXT(read<long>(dec, "12,34,567", indian).c_str(), "1234567.9");
  CHECK_TEXT(read<long>(dec, "123,45,678", indian).c_str(), "12345678!.10");
  std::string many = "1", ones, wrong;
  for (int i = 0; i < 3000; ++i) many += ",000";
  CHECK_TEXT(read<double>(dec, many + "e-9000", threes).c_str(), "1.12007");
  CHECK_TEXT(read<double>(dec, many + "0", threes).c_str(), "77!.12002");
  for (int at = 1; at < 11000; at += 1999) {
    wrong = many;
    wrong.erase(wrong.find(',', at) + 1, 1);
    CHECK_TEXT(read<double>(dec, wrong, threes).c_str(), "77!.12000");
  }
  CHECK_TEXT(read<long>(dec, "0" + std::string(4000, ',') + "1", threes).c_str(), "1!.4002");
  CHECK_TEXT(read<long>(dec, "0,123", threes).c_str(), "123.5");
  ones = "1";
  for (int i = 0; i < 100; ++i) ones = "00," + ones;
  for (int i = 0; i < 99; ++i) ones += ",0";
  CHECK(read<double>(dec, "1," + ones + "e-99", odd).find('!') == std::string::npos);
  CHECK(read<double>(dec, "1," + ones + ",0", odd).find('!') != std::string::npos);
}

// A buffer sees what one who reads character by character would call, and nothing is read beyond the number.
void sources() {
  std::ios s(0);
  base::iostate err = base::goodbit;
  long value;
  const std::num_get<char> &facet = std::use_facet<std::num_get<char> >(std::locale::classic());
  scripted single("12 "), looked("56 ", 2);
  iterator after = facet.get(iterator(&single), iterator(), s, err, value);
  CHECK(single.calls[uflows] == 2 && *after == ' ' && single.position() == 2);
  // What the iterator looked at before counts as its next.
  iterator begin(&looked);
  CHECK(*begin == '5');
  after = facet.get(begin, iterator(), s, err, value);
  CHECK(value == 56 && *after == ' ' && looked.calls[underflows] == 2);
}

void throwing() {
  for (int which = 1; which <= 6; ++which) {
    const long before = live_blocks;
    {
      const std::locale loc(std::locale::classic(), new punctuation("\3"));
      std::ios s(0);
      s.imbue(loc);
      base::iostate err = base::goodbit;
      long value = 5;
      double real;
      bool truth;
      scripted buffer("1,234,567", 3);
      buffer.let_fail(underflows, which == 6 ? 2 : 1000, true);
      const char text[] = "1,234.5";
      int caught = 0;
      punctuation::throws = which;
      try {
        std::use_facet<std::num_get<char> >(loc).get(iterator(&buffer), iterator(), s, err, value);
        getter<const char *>().get(text, text + 7, s, err, real);
        s.flags(base::boolalpha);
        getter<const char *>().get(text, text + 7, s, err, truth);
      } catch (const thrown &) {
        caught = 1;
      }
      punctuation::throws = 0;
      CHECK(caught && (which != 6 || (value == 5 && buffer.position() == 6)));
    }
    CHECK(live_blocks == before && thrown::live == 0);
  }
}

void named() {
  const std::locale german("xx_DE"), indian("xx_IN");
  CHECK_TEXT(read<double>(dec, "1.234.567,5", german).c_str(), "1234567.5.11");
  CHECK_TEXT(read<long>(dec, "1.234", german).c_str(), "1234.5");
  CHECK_TEXT(read<double>(dec, "3.5", german).c_str(), "77!.3");
  CHECK_TEXT(read<double>(dec, "12,34,567.5", indian).c_str(), "1234567.5.11");
  CHECK_TEXT(read<double>(dec, "1,234,567.5", indian).c_str(), "77!.11");
}

struct reading_groups {
  std::locale loc;
  std::string got;
  reading_groups() : loc(std::locale::classic(), new punctuation(std::string(50, '\1'))) {}
  void run() { got = read<long>(dec, "1,2,3,4", loc); }
  void check(bool failed) {
    if (!failed) CHECK_TEXT(got.c_str(), "1234.7");
  }
};

}  // namespace

int main() {
  table();
  names_and_groups();
  sources();
  throwing();
  if (named_locales_setup()) named();
  CHECK(fail_each_allocation<reading_groups>() >= 1);
  return TEST_RESULT();
}

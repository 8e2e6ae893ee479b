// test-variants: -O1 | -O2 -std=gnu++17
//
// num_get: each rule of reading numbers, over pointers, a user's iterator and stream buffers of several manners; then
// random texts against the model, and what happens when a facet or a buffer throws.
#include <locale>

#include <algorithm>
#include <deque>
#include <limits>
#include <ostream>
#include <streambuf>

#include "../fail_allocation.h"
#include "named_locales.h"
#include "number_model.h"

namespace {

using std::ios_base;

const int plain = ios_base::dec | ios_base::skipws;

// A numpunct of the test's own; each of its operations may throw.
struct punctuation : std::numpunct<char> {
  static int throw_from;  // which operation
  const model::rules rules;
  explicit punctuation(const model::rules &by) : rules(by) {}

protected:
  static void maybe_throw(int operation) {
    if (operation == throw_from) throw operation;
  }
  virtual char do_thousands_sep() const { return maybe_throw(1), rules.separator; }
  virtual char do_decimal_point() const { return maybe_throw(2), rules.point; }
  virtual std::string do_grouping() const { return maybe_throw(3), rules.grouping; }
  virtual std::string do_truename() const { return maybe_throw(4), "oui"; }
  virtual std::string do_falsename() const { return maybe_throw(5), "on ne sait pas"; }
};
int punctuation::throw_from;

// Shows its text in get areas of `step` characters; with step 0 it has none at all. Counts the calls it gets.
struct pieces : std::streambuf {
  std::string text;
  size_t at, step, fail_at;
  int underflows, uflows;
  pieces(const std::string &of, size_t by, size_t fail = std::string::npos)
      : text(of), at(0), step(by), fail_at(fail), underflows(0), uflows(0) {}

  // How many characters were read.
  size_t position() const { return step == 0 ? at : at - (egptr() - gptr()); }

protected:
  virtual int_type underflow() {
    ++underflows;
    if (at >= fail_at) throw 7;
    if (at >= text.size()) return -1;
    if (step == 0) return (unsigned char)text[at];
    const size_t n = step < text.size() - at ? step : text.size() - at;
    setg(&text[at], &text[at], &text[at] + n);
    at += n;
    return (unsigned char)*gptr();
  }
  virtual int_type uflow() {
    if (step != 0) return std::streambuf::uflow();
    ++uflows;
    return at < text.size() ? (unsigned char)text[at++] : -1;
  }
};

template <class Iterator> struct getter : std::num_get<char, Iterator> {
  getter() : std::num_get<char, Iterator>(1) {}
  ~getter() {}
};

template <class T> struct outcome {
  T value;
  int err;
  size_t stop;
};

struct reader {
  std::ios stream;
  explicit reader(int flags) : stream(0) { stream.flags(flags); }
  reader(const model::rules &rules) : stream(0) {
    stream.flags(rules.flags);
    stream.imbue(std::locale(std::locale::classic(), new punctuation(rules)));
  }

  template <class T> outcome<T> read(const std::string &text, T before) {
    outcome<T> got = {before, 0, 0};
    ios_base::iostate err = ios_base::goodbit;
    const char *const begin = text.data();
    got.stop = getter<const char *>().get(begin, begin + text.size(), stream, err, got.value) - begin;
    got.err = err;
    return got;
  }
  // manner -1: through a user's iterator; otherwise through a buffer with pieces of that length.
  template <class T> outcome<T> read_by(int manner, const std::string &text, T before) {
    outcome<T> got = {before, 0, 0};
    ios_base::iostate err = ios_base::goodbit;
    if (manner < 0) {
      const std::deque<char> characters(text.begin(), text.end());
      typedef std::deque<char>::const_iterator iterator;
      got.stop =
          getter<iterator>().get(characters.begin(), characters.end(), stream, err, got.value) - characters.begin();
    } else {
      pieces buffer(text, manner);
      typedef std::istreambuf_iterator<char> iterator;
      std::use_facet<std::num_get<char> >(stream.getloc()).get(iterator(&buffer), iterator(), stream, err, got.value);
      got.stop = buffer.position();
    }
    got.err = err;
    return got;
  }
};

const int eof = ios_base::eofbit, fail = ios_base::failbit;

template <class T> void check(int flags, const std::string &text, T value, int err, size_t stop) {
  reader one(flags);
  const outcome<T> got = one.read(text, T(77));
  CHECK(got.value == value);
  CHECK_INT(got.err, err);
  CHECK_INT(got.stop, stop);
  if (got.value != value || got.err != err || got.stop != stop) fprintf(stderr, "  reading \"%.60s\"\n", text.c_str());
}

void check_integers() {
  check(plain, "42 ", 42L, 0, 2);
  check(plain, "-42", -42L, eof, 3);
  // The sign comes before white space.
  check(plain, "- \t12", -12L, eof, 5);
  check(ios_base::dec, "- 12", 0L, fail, 1);
  check(plain, " 7", 7L, eof, 2);
  check(plain, " +7", 0L, fail, 1);
}

void check_bases() {
  check(ios_base::hex | ios_base::skipws, "0x1A", 26L, eof, 4);
  check(ios_base::hex | ios_base::skipws, "fFg", 255L, 0, 2);
  check(plain, "0x1A", 0L, 0, 1);
  check(ios_base::oct, "178", 15L, 0, 2);
  const int several = ios_base::dec | ios_base::hex;
  const int mixtures[] = {0, several, ios_base::basefield};
  for (int i = 0; i < 3; ++i) {
    check(mixtures[i], "012", 10L, eof, 3);
    check(mixtures[i], "0X1A", 26L, eof, 4);
    check(mixtures[i], "12", 0L, fail, 0);
    check(mixtures[i], "0", 0L, eof, 1);
    check(mixtures[i], "0x", 0L, fail | eof, 2);
    check(mixtures[i], "09", 0L, 0, 1);
  }
  check(ios_base::hex, "0xg", 0L, fail, 2);
  check(ios_base::hex, "-0x10", -16L, eof, 5);
}

void check_limits() {
  const unsigned long all = 0xFFFFFFFFul;
  check(plain, "2147483647", 2147483647L, eof, 10);
  check(plain, "2147483648", 2147483647L, eof | fail, 10);
  check(plain, "-2147483648", -2147483647L - 1, eof, 11);
  check(plain, "-2147483649", -2147483647L - 1, eof | fail, 11);
  check(plain, "4294967295", all, eof, 10);
  check(plain, "4294967296", all, eof | fail, 10);
  check(plain, "9999999999x", all, fail, 10);  // wraps around to more than its first nine digits
  check(plain, "-99999999999", -2147483647L - 1, eof | fail, 12);
  check(plain, "-1", all, eof, 2);
  check(plain, "-1", 0xFFFFFFFFu, eof, 2);
  check(plain, "-2147483649", all, eof | fail, 11);
  check(plain, "-1", (unsigned short)0xFFFF, eof, 2);
  check(plain, "40000", (unsigned short)40000, eof, 5);
  check(plain, "-32768", (unsigned short)32768, eof, 6);
  check(plain, "-32769", (unsigned short)0xFFFF, eof | fail, 6);
  check(plain, "65536", (unsigned short)0xFFFF, eof | fail, 5);
  // Other bases stop before the digit that does not fit.
  check(ios_base::hex, "FFFFFFFF", all, eof, 8);
  check(ios_base::hex, "123456789", all, fail, 8);
  check(ios_base::oct, "37777777777", all, eof, 11);
  check(ios_base::oct, "40000000000", all, fail, 10);
  // Nothing is too long.
  check(plain, std::string(5000, '0') + "12", 12L, eof, 5002);
  check(plain, std::string(5000, '9'), 2147483647L, eof | fail, 5000);
  check(ios_base::hex, "0x" + std::string(5000, '0') + "12", 18L, eof, 5004);
  const char *const none[] = {"", "+", "-", " ", "x", "+ ", "-+1", "\xB1"};
  for (size_t i = 0; i < sizeof none / sizeof *none; ++i) CHECK(reader(plain).read(none[i], 5L).err & fail);
}

void check_reals() {
  check(plain, "12.34x", 12.34, 0, 5);
  check(plain, "- 1e2", -100.0, eof, 5);
  check(plain, "3,5", 3.0, 0, 1);
  check(plain, ".5E-1", 0.05, eof, 5);
  check(plain, "5.", 5.0, eof, 2);
  // An exponent letter without digits is read and means nothing; without digits before it there is no number.
  check(plain, "1e+ ", 1.0, 0, 3);
  const char *const none[] = {"", "+", ".", "-.", "e5", ".e5", "nan", "inf", "x1"};
  for (size_t i = 0; i < sizeof none / sizeof *none; ++i) {
    const outcome<double> got = reader(plain).read(none[i], 7.0);
    CHECK(got.value == 7.0);
    CHECK(got.err & fail);
  }
  check(plain, "0x10", 0.0, 0, 1);
  // Beyond the range: as sscanf, without an error.
  const double infinite = strtod("inf", 0);
  check(plain, "1e999", infinite, eof, 5);
  check(plain, "-1e999", -infinite, eof, 6);
  check(plain, "1e-999", 0.0, eof, 6);
  check(plain, "1e99999999999999999999", infinite, eof, 22);
  check(plain, "0." + std::string(5000, '0') + "1e5001", 1.0, eof, 5008);
  check(plain, "1" + std::string(5000, '0') + "e-5000", 1.0, eof, 5007);
  check(plain, "1e39", (float)infinite, eof, 4);
  // Rounded once: 1 + 2^-24 + 2^-60 is nearer to the larger float, but its double lies half-way.
  check(plain, "1.000000059604644776", 1.0f + 1.1920929e-7f, eof, 20);
  // A difference 5,000 digits behind decides.
  const std::string half_way = "9007199254740993." + std::string(5000, '0');
  check(plain, half_way, 9007199254740992.0, eof, half_way.size());
  check(plain, half_way + "1", 9007199254740994.0, eof, half_way.size() + 1);
  check(plain, "18446744073709551615", 18446744073709551615.0L, eof, 20);
}

// Half-way between the two smallest numbers of a type, which are 1 and 2 times 2 / 2^n: 3 / 2^n, in all of its digits.
template <class Real> void check_between_the_smallest(int n) {
  std::string digits("3");
  for (int i = 0; i < n; ++i) {
    int carry = 0;
    for (std::string::iterator d = digits.begin(); d != digits.end(); ++d, carry /= 10) {
      carry += (*d - '0') * 5;
      *d = static_cast<char>('0' + carry % 10);
    }
    if (carry) digits += static_cast<char>('0' + carry);
  }
  std::reverse(digits.begin(), digits.end());
  char exponent[20];
  const long all = sprintf(exponent, "e-%d", n) + static_cast<long>(digits.size());
  const Real smallest = std::numeric_limits<Real>::denorm_min();
  check(plain, digits + exponent, 2 * smallest, eof, all);
  check(plain, digits + ".01" + exponent, 2 * smallest, eof, all + 3);
  *digits.rbegin() = '4';  // of a 5
  check(plain, digits + exponent, smallest, eof, all);
}

void check_others() {
  check(plain, "1", true, eof, 1);
  check(plain, "0", false, eof, 1);
  check(plain, "2", true, eof | fail, 1);  // not stored
  check(plain, "x", true, fail, 0);
  const int names = ios_base::boolalpha;
  check(names, "truelove", true, 0, 4);
  check(names, "false", false, 0, 5);
  check(names, "falsy", true, fail, 4);
  check(names, "tru", true, fail | eof, 3);
  check(names, "1", true, fail, 0);
  void *const address = reinterpret_cast<void *>(0xBEEF);
  void *const before = reinterpret_cast<void *>(77);
  const char *const texts[] = {"0xBEEF", "beef", "(nil)", "(nix", "0x", "fffffffff"};
  void *const values[] = {address, address, 0, before, before, before};
  for (int i = 0; i < 6; ++i) {
    const outcome<void *> got = reader(plain).read(texts[i], before);
    CHECK(got.value == values[i]);
    CHECK_INT(got.err & fail, i < 3 ? 0 : fail);
  }
  // Names of which one begins with the other's first letter.
  const model::rules french = {ios_base::boolalpha, "", ',', '.'};
  CHECK(reader(french).read("oui", false).value);
  CHECK_INT(reader(french).read("on ne sait pas", true).stop, 14);
  CHECK_INT(reader(french).read("on ne sais", true).stop, 9);
}

void check_groups() {
  struct {
    const char *grouping, *text;
    int err;
    long value;
  } const cases[] = {
      {"\3", "1,234,567", 0, 1234567},
      {"\3", "12,34", fail, 1234},
      {"\3", "1234,567", fail, 1234567},
      {"\3", "1234567", 0, 1234567},
      {"\3", ",123", 0, 123},
      {"\3", "1,234,", fail, 1234},
      {"\3", "0,123", 0, 123},
      {"\3", "1,,234", fail, 1234},
      {"\3\2", "12,34,567", 0, 1234567},
      {"\3\2", "123,456", fail, 123456},
      {"\3\2", "1,23,45,678", 0, 12345678},
      {"\3\2", "1,234,567", fail, 1234567},
      {"\3\2", "1,234,56,789", fail, 123456789},
      {"\3\177", "123456,789", 0, 123456789},
      {"\3\177", "123,456,789", fail, 123456789},
      {"\177", "1,2", fail, 12},
      {"\63", "1,234", 0, 1234},  // the size is in the low four bits
  };
  for (size_t i = 0; i < sizeof cases / sizeof *cases; ++i) {
    const model::rules rules = {plain, cases[i].grouping, ',', '.'};
    const outcome<long> got = reader(rules).read(cases[i].text, 77L);
    CHECK_INT(got.err & fail, cases[i].err);
    CHECK_INT(got.value, cases[i].value);
    const outcome<double> real = reader(rules).read(cases[i].text, 77.0);
    CHECK_INT(real.err & fail, cases[i].err);
    CHECK(real.value == (cases[i].err ? 77 : cases[i].value));
  }
  const model::rules german = {plain, "\3", '.', ','};
  CHECK(reader(german).read("1.234.567,5", 0.0).value == 1234567.5);
  CHECK_INT(reader(german).read("1.234,5", 0L).value, 1234);
  CHECK(reader(model::rules(german)).read("12.34,5", 7.0).value == 7.0);

  // As many groups as there may be.
  std::string many = "1", digits = "1";
  for (int i = 0; i < 3000; ++i) many += ",000", digits += "000";
  const model::rules threes = {plain, "\3", ',', '.'};
  CHECK(reader(threes).read(many + "e-9000", 0.0).value == 1);
  CHECK(reader(threes).read(many + "0", 0.0).err & fail);
  many.replace(5000, 4, ",000");
  CHECK(reader(threes).read(many, 0.0).err & fail);
  CHECK(reader(threes).read("0" + std::string(4000, ',') + "1", 0L).err & fail);
  // A grouping as long as it likes to be.
  const model::rules odd = {plain, std::string(100, '\1') + std::string(100, '\2'), ',', '.'};
  std::string ones = "1";
  for (int i = 0; i < 100; ++i) ones = "00," + ones;
  for (int i = 0; i < 99; ++i) ones += ",0";
  CHECK_INT(reader(odd).read("1," + ones + "e-99", 0.0).err, eof);
  CHECK(reader(odd).read("1," + ones + ",0", 0.0).err & fail);
}

// Buffers and iterators see what reading character by character would show them, and nothing is read beyond the number.
void check_sources() {
  typedef std::istreambuf_iterator<char> iterator;
  for (int manner = -1; manner < 4; ++manner) {
    const outcome<long> got = reader(plain).read_by(manner, "12345 6", 0L);
    CHECK_INT(got.value, 12345);
    CHECK_INT(got.stop, 5);
    CHECK_INT(got.err, 0);
    CHECK(reader(plain).read_by(manner, "-1.5e2", 0.0).value == -150);
    CHECK_INT(reader(plain).read_by(manner, "99", 0L).err, eof);
  }
  reader one(plain);
  ios_base::iostate err = ios_base::goodbit;
  long value;
  pieces single("12 ", 0);
  iterator after = std::use_facet<std::num_get<char> >(std::locale::classic())
                       .get(iterator(&single), iterator(), one.stream, err, value);
  CHECK_INT(single.uflows, 2);
  CHECK(*after == ' ');
  CHECK_INT(single.position(), 2);
  // What the iterator looked at before counts as its next.
  pieces looked("56 ", 2);
  iterator begin(&looked);
  CHECK(*begin == '5');
  after = std::use_facet<std::num_get<char> >(std::locale::classic()).get(begin, iterator(), one.stream, err, value);
  CHECK_INT(value, 56);
  CHECK(*after == ' ');
  CHECK_INT(looked.underflows, 2);
}

template <class T> bool same(const T &a, const T &b) { return a == b; }
bool same(double a, double b) { return memcmp(&a, &b, sizeof a) == 0; }

template <class T>
void compare(const model::rules &rules, const std::string &text, const model::reading &want, T value, int manner) {
  const T before = T(77);
  reader one(rules);
  const outcome<T> got = manner < -1 ? one.read(text, before) : one.read_by(manner, text, before);
  const bool ok = same(got.value, want.stored ? value : before) && got.err == want.err && got.stop == want.stop;
  CHECK(ok);
  if (!ok)
    fprintf(stderr, "  \"%s\": err %d %d, stop %u %u\n", text.c_str(), got.err, want.err, unsigned(got.stop),
            unsigned(want.stop));
}

void check_random() {
  unsigned long long state = 20;
  struct {
    unsigned long long *state;
    unsigned operator()(unsigned n) {
      *state = *state * 6364136223846793005ull + 1442695040888963407ull;
      return unsigned(*state >> 33) % n;
    }
  } random = {&state};
  static const char *const parts[] = {"0", "1",    "12",        "999",   "4294967295", "2147483648", "0x",  "-",
                                      "+", " ",    ",",         ".",     "e",          "E-",         "000", "fF",
                                      "7", ",234", "123456789", "(nil)", "x",          "8"};
  const char *const groupings[] = {"", "\3", "\3\2", "\1\177", "\2\1\3", "\21"};
  const int bases[] = {0, ios_base::dec, ios_base::dec, ios_base::oct, ios_base::hex, ios_base::basefield};
  for (int i = 0; i < 60000; ++i) {
    std::string text;
    for (int n = random(9); n >= 0; --n) text += parts[random(sizeof parts / sizeof *parts)];
    const model::rules rules = {bases[random(6)] | (random(2) ? int(ios_base::skipws) : 0), groupings[random(6)],
                                random(4) ? ',' : '.', random(4) ? '.' : ','};
    const int manner = int(random(6)) - 2;
    const model::reading as_long = model::read_integer(text, rules, true, 0xFFFFFFFFull);
    compare(rules, text, as_long, long(as_long.integer), manner);
    const model::reading as_short = model::read_integer(text, rules, false, 0xFFFFull);
    compare(rules, text, as_short, (unsigned short)(as_short.integer), manner);
    const model::reading as_unsigned = model::read_integer(text, rules, false, 0xFFFFFFFFull);
    compare(rules, text, as_unsigned, as_unsigned.integer, manner);
    const model::reading as_real = model::read_real(text, rules);
    compare(rules, text, as_real, strtod(as_real.real.c_str(), 0), manner);
    const model::reading as_pointer = model::read_pointer(text, rules);
    compare(rules, text, as_pointer, as_pointer.integer ? (void *)as_pointer.integer : (void *)0, manner);
  }
}

void check_throwing() {
  const model::rules rules = {plain, "\3", ',', '.'};
  for (int operation = 1; operation <= 5; ++operation) {
    const long before = live_blocks;
    int thrown = 0;
    {
      reader one(rules);
      punctuation::throw_from = operation;
      try {
        one.read("1,234", 0L);
        one.read("1,234.5", 0.0);
        one.stream.flags(ios_base::boolalpha);
        one.read("oui", false);
      } catch (int which) {
        thrown = which;
      }
      punctuation::throw_from = 0;
    }
    CHECK_INT(thrown, operation);
    CHECK_INT(live_blocks, before);
  }
  const long before = live_blocks;
  {
    reader one(rules);
    pieces buffer("1,234,567", 3, 6);
    typedef std::istreambuf_iterator<char> iterator;
    ios_base::iostate err = ios_base::goodbit;
    long value = 5;
    bool caught = false;
    try {
      std::use_facet<std::num_get<char> >(one.stream.getloc())
          .get(iterator(&buffer), iterator(), one.stream, err, value);
    } catch (int) {
      caught = true;
    }
    CHECK(caught);
    CHECK_INT(value, 5);
    CHECK_INT(buffer.position(), 6);
  }
  CHECK_INT(live_blocks, before);
}

void check_named() {
  reader german(plain), indian(plain);
  german.stream.imbue(std::locale("xx_DE"));
  indian.stream.imbue(std::locale("xx_IN"));
  CHECK(german.read("1.234.567,5", 0.0).value == 1234567.5);
  CHECK_INT(german.read("1.234", 0L).value, 1234);
  CHECK(german.read("3.5", 0.0).err & fail);
  CHECK(indian.read("12,34,567.8", 0.0).value == 1234567.8);
  CHECK(indian.read("1,234,567.8", 0.0).err & fail);
}

struct other : std::num_get<char> {};
struct classes : std::ctype<char> {};

// Streams read numbers by themselves where the locale's facets are the library's own and plain, and nowhere else.
void check_quick_bit() {
  const model::rules rules = {plain, "", ',', '.'};
  const std::locale &classic = std::locale::classic();
  const std::locale changed[] = {std::locale(classic, new other), std::locale(classic, new classes),
                                 std::locale(classic, new punctuation(rules)),
                                 std::locale(classic, new std::numpunct<char>("xx_DE"))};
  const unsigned int bit = std::locale::imp::_quick_num_get;
  CHECK(classic._get_imp()->_get_quick() & bit);
  CHECK(std::locale(classic, new std::numpunct<char>)._get_imp()->_get_quick() & bit);
  for (int i = 0; i < 4; ++i) CHECK(!(changed[i]._get_imp()->_get_quick() & bit));
}

struct reading_groups {
  reader *one;
  outcome<long> got;
  reading_groups() {
    const model::rules rules = {plain, std::string(50, '\1'), ',', '.'};
    one = new reader(rules);
  }
  ~reading_groups() { delete one; }
  void run() { got = one->read("1,2,3,4", 5L); }
  void check(bool failed) {
    if (!failed) CHECK_INT(got.value, 1234);
  }
};

}  // namespace

int main() {
  check_integers();
  check_bases();
  check_limits();
  check_reals();
  check_between_the_smallest<float>(150);
  check_between_the_smallest<double>(1075);
  check_between_the_smallest<long double>(16446);
  check_others();
  check_groups();
  check_sources();
  check_random();
  check_throwing();
  if (named_locales_setup()) {
    check_named();
    check_quick_bit();
  }
  CHECK(fail_each_allocation<reading_groups>() >= 1);
  return TEST_RESULT();
}

// num_put: what the flags, width, fill and the locale's punctuation make of a number, and how it differs on purpose
// from the 1998 standard. The texts of unfilled, ungrouped numbers are number_text.cpp's affair.

#include <float.h>
#include <locale.h>
#include <math.h>

#include <locale>
#include <ostream>
#include <string>

#include "../harness.h"
#include "named_locales.h"

typedef std::ios_base base;
struct to_text : std::num_put<char, char *> {};

static char text[20000];

struct number_stream : std::basic_ios<char> {
  number_stream() : std::basic_ios<char>(0) {}
  explicit number_stream(const std::locale &loc) : std::basic_ios<char>(0) { imbue(loc); }
};

template <class T> static const char *put(base &str, T value, char fill = '#') {
  const to_text facet;
  *facet.put(text, str, fill, value) = 0;
  return text;
}

// With the flags, and the width, which must be 0 afterwards.
template <class T> static const char *shown(base &str, int flags, int width, T value) {
  str.flags(flags);
  str.width(width);
  put(str, value);
  if (str.width() != 0) strcat(text, " (width is left)");
  return text;
}

static void test_integers() {
  number_stream s;
  CHECK_TEXT(shown(s, base::internal, 6, -42l), "-###42");
  CHECK_TEXT(shown(s, base::internal | base::showbase | base::hex, 6, 255l), "0x##ff");
  CHECK_TEXT(shown(s, base::internal | base::showbase | base::oct, 6, 8l), "0###10");
  CHECK_TEXT(shown(s, base::internal, 6, 0l), "#####0");
  CHECK_TEXT(shown(s, base::left, 6, -42l), "-42###");
  CHECK_TEXT(shown(s, base::right, 6, -42l), "###-42");
  CHECK_TEXT(shown(s, base::left | base::right, 6, -42l), "###-42");
  CHECK_TEXT(shown(s, 0, 6, -42l), "###-42");
  CHECK_TEXT(shown(s, 0, -6, -42l), "-42");
  CHECK_TEXT(shown(s, base::hex | base::oct, 0, 255l), "255");
  CHECK_TEXT(shown(s, base::hex | base::showpos, 0, -1l), "ffffffff");
  CHECK_TEXT(shown(s, base::showpos, 0, 4294967295ul), "4294967295");
  CHECK_TEXT(shown(s, base::hex | base::showbase | base::uppercase, 0, 171ul), "0XAB");
  CHECK_TEXT(shown(s, base::hex | base::showbase, 0, 0ul), "0");
}

static void test_floats() {
  number_stream s;
  CHECK_TEXT(shown(s, 0, 10, 3.5), "#######3.5");
  CHECK_TEXT(shown(s, base::internal, 10, -3.5), "-######3.5");
  CHECK_TEXT(shown(s, base::internal, 6, 0.5), "###0.5");
  CHECK_TEXT(shown(s, base::left | base::showpos, 10, 3.5L), "+3.5######");
  s.precision(0);
  CHECK_TEXT(shown(s, 0, 0, 1.0 / 3), "0.333333");
  CHECK_TEXT(shown(s, base::scientific, 0, 1.5), "1.500000e+00");
  CHECK_TEXT(shown(s, base::fixed, 0, 2.5), "2");
  CHECK_TEXT(shown(s, base::fixed | base::showpoint, 0, 2.5), "2.");
  s.precision(-3);
  CHECK_TEXT(shown(s, base::fixed, 0, 2.5), "2.500000");
  CHECK_TEXT(shown(s, 0, 0, 2.5L), "2.5");
  s.precision(3);
  CHECK_TEXT(shown(s, base::scientific | base::fixed, 0, 2.25), "2.25");
  CHECK_TEXT(shown(s, base::scientific | base::uppercase, 0, 1e-7), "1.000E-07");
  CHECK_TEXT(shown(s, base::uppercase, 0, 1.5e20), "1.5E+20");
  CHECK_TEXT(shown(s, base::uppercase, 0, 1e20), "1e+20");
  CHECK_TEXT(shown(s, base::uppercase, 0, HUGE_VAL), "inf");
  CHECK_TEXT(shown(s, base::internal | base::showpos, 6, HUGE_VAL), "+##inf");
}

// Beyond 127 digits zeros follow, before an exponent and even where nothing else would.
static void test_long_precisions() {
  number_stream s;
  s.precision(200);
  const double third = 1.0 / 3;
  char want[1000];
  CHECK_INT(sprintf(want, "%.127f%073d", third, 0), 202);
  CHECK_TEXT(shown(s, base::fixed, 0, third), want);
  sprintf(want, "##%.127f%073d", third, 0);
  CHECK_TEXT(shown(s, base::fixed, 204, third), want);
  sprintf(want, "%.127e", third);
  std::string scientific(want);
  scientific.insert(scientific.find('e'), 73, '0');
  CHECK_TEXT(shown(s, base::scientific, 0, third), scientific.c_str());
  CHECK_TEXT(shown(s, 0, 0, 0.5), ("0.5" + std::string(73, '0')).c_str());
  CHECK_TEXT(shown(s, 0, 0, -HUGE_VAL), ("-inf" + std::string(73, '0')).c_str());
  s.precision(127);
  sprintf(want, "%.127f", -1e308);
  CHECK_TEXT(shown(s, base::fixed, 0, -1e308), want);
  static char long_want[6000];
  sprintf(long_want, "%.127Lf", -LDBL_MAX);
  CHECK_INT(strlen(long_want), 1 + 4933 + 1 + 127);
  CHECK_TEXT(shown(s, base::fixed, 0, -LDBL_MAX), long_want);
}

static void test_bools_and_pointers() {
  number_stream s;
  s.width(10);
  CHECK_TEXT(put(s, true), "1");
  s.setf(base::boolalpha);
  CHECK_TEXT(put(s, true), "true");
  CHECK_TEXT(put(s, false), "false");
  CHECK_INT(s.width(), 10);

  // Filled in front with `left`, behind with `right`.
  const void *const at = reinterpret_cast<const void *>(0xBEEF);
  CHECK_TEXT(shown(s, base::left, 8, at), "##0xbeef");
  CHECK_TEXT(shown(s, base::right, 8, at), "0xbeef##");
  CHECK_TEXT(shown(s, base::internal, 8, at), "0xbeef");
  CHECK_TEXT(shown(s, base::hex | base::uppercase | base::showpos, 8, at), "0xbeef");
  CHECK_TEXT(shown(s, base::right, 0, static_cast<const void *>(0)), "(nil)");
}

// Counts what is asked of it, and throws when it is told to.
static int live, throw_at;
struct own_punctuation : std::numpunct<char> {
  own_punctuation(const char *grouping, char point = '.') : grouping_(grouping), point_(point) { ++live; }
  ~own_punctuation() { --live; }
  virtual char do_decimal_point() const { return point_; }
  virtual std::string do_grouping() const {
    if (throw_at == 1) throw 1;
    return grouping_;
  }
  virtual std::string do_truename() const {
    if (throw_at == 2) throw 2;
    return std::string(100, 'y');
  }
  std::string grouping_;
  char point_;
};

static std::locale punctuated(const char *grouping, char point = '.') {
  return std::locale(std::locale::classic(), new own_punctuation(grouping, point));
}

static void test_grouping() {
  {
    number_stream s(punctuated("\3"));
    CHECK_TEXT(shown(s, 0, 0, 1234567l), "1,234,567");
    CHECK_TEXT(shown(s, 0, 0, -123456l), "-123,456");
    CHECK_TEXT(shown(s, base::showbase | base::hex, 0, 0xABCDEFl), "0xabc,def");
    CHECK_TEXT(shown(s, base::showbase | base::oct, 0, 0123456l), "0123,456");
    CHECK_TEXT(shown(s, base::internal, 12, -1234567l), "-##1,234,567");
    CHECK_TEXT(shown(s, base::left, 11, 1234567l), "1,234,567##");
    CHECK_TEXT(shown(s, base::fixed, 0, 1234567.5), "1,234,567.500000");
    CHECK_TEXT(shown(s, base::internal | base::showpos, 20, 98765.5L), "+###########98,765.5");
    CHECK_TEXT(shown(s, 0, 0, 1.5e20), "1.5e+20");
    // Without a point all the text is grouped.
    CHECK_TEXT(shown(s, 0, 0, 1e20), "1e,+20");
    CHECK_TEXT(shown(s, base::right, 0, reinterpret_cast<const void *>(0xBEEF1)), "0xbeef1");
  }
  {
    number_stream s(punctuated("\1\2\3", ';'));
    CHECK_TEXT(shown(s, 0, 0, 1234567890l), "1,234,567,89,0");
    CHECK_TEXT(shown(s, base::fixed, 0, 1234.5), "1,23,4;500000");
    CHECK_TEXT(shown(s, base::scientific, 0, 0.0), "0;000000e+00");
  }
  {
    number_stream s(punctuated("\3\177"));
    CHECK_TEXT(shown(s, 0, 0, 1234567l), "1234,567");
  }
  {
    number_stream s(punctuated("\2\xFF"));
    CHECK_TEXT(shown(s, 0, 0, 1234567l), "1,23,45,67");
  }
  {
    number_stream s(punctuated("\1"));
    CHECK_TEXT(shown(s, 0, 0, -HUGE_VAL), "-i,n,f");
    s.precision(127);
    shown(s, base::fixed, 0, LDBL_MAX);
    CHECK_INT(strlen(text), 4933 + 4932 + 1 + 127);
  }
  CHECK_INT(live, 0);
}

static void test_throwing_punctuation() {
  {
    number_stream s(punctuated("\3"));
    for (throw_at = 1; throw_at <= 2; ++throw_at) {
      int caught = 0;
      s.flags(base::boolalpha);
      s.width(7);
      try {
        if (throw_at == 1) put(s, 12.5);
        if (throw_at == 2) put(s, true);
      } catch (int number) {
        caught = number;
      }
      CHECK_INT(caught, throw_at);
      CHECK_INT(s.width(), 7);
    }
    throw_at = 0;
    CHECK_TEXT(put(s, true), std::string(100, 'y').c_str());
  }
  CHECK_INT(live, 0);
}

// An iterator of the program's: each character goes through it, and what it throws passes.
struct limited {
  explicit limited(std::string &to) : to_(&to) {}
  limited &operator*() { return *this; }
  limited &operator++() { return *this; }
  limited &operator=(char c) {
    if (to_->size() == 8) throw 8;
    *to_ += c;
    return *this;
  }
  std::string *to_;
};

struct to_limited : std::num_put<char, limited> {};

static void test_own_iterator() {
  number_stream s(punctuated("\3"));
  const to_limited facet;
  std::string out;
  s.width(7);
  facet.put(limited(out), s, '*', 1234l);
  CHECK_TEXT(out.c_str(), "**1,234");
  s.width(9);
  int caught = 0;
  try {
    facet.put(limited(out), s, '*', 1234l);
  } catch (int number) {
    caught = number;
  }
  CHECK_INT(caught, 8);
  CHECK_TEXT(out.c_str(), "**1,234*");
  CHECK_INT(s.width(), 9);
}

// A buffer with room for a few characters and no more.
struct small_buffer : std::streambuf {
  small_buffer() { setp(room_, room_ + 4); }
  std::string taken() const { return std::string(pbase(), pptr()) + overflown_; }
  virtual int overflow(int c) {
    if (overflown_.size() == 2) return -1;
    overflown_ += static_cast<char>(c);
    return c;
  }
  char room_[4];
  std::string overflown_;
};

static void test_buffer_iterator() {
  number_stream s;
  small_buffer buffer;
  const std::num_put<char> &facet = std::use_facet<std::num_put<char> >(s.getloc());
  std::ostreambuf_iterator<char> at = facet.put(&buffer, s, ' ', 1234l);
  CHECK(!at.failed());
  s.width(5);
  at = facet.put(at, s, '*', 56.5);
  CHECK(at.failed());
  CHECK_TEXT(buffer.taken().c_str(), "1234*5");
  CHECK_INT(s.width(), 0);
}

// The inserters have shorter ways of their own: they must lead to the same text, state and width.
struct wide_buffer : std::streambuf {
  void begin(int room) { setp(room_, room_ + room); }
  const char *text() {
    *pptr() = 0;
    return room_;
  }
  char room_[600];
};

template <class T> static void compare_inserter(base::fmtflags flags, int width, int precision, T value) {
  wide_buffer buffer;
  buffer.begin(500);
  std::ostream out(&buffer);
  number_stream s;
  out.flags(flags);
  out.width(width);
  out.precision(precision);
  out.fill('#');
  out << value;
  s.flags(flags);
  s.width(width);
  s.precision(precision);
  CHECK_TEXT(buffer.text(), put(s, value));
  CHECK_INT(out.width(), s.width());
  CHECK(out.good());
}

static void test_inserters() {
  static const base::fmtflags sides[] = {0, base::left, base::right, base::internal};
  static const base::fmtflags styles[] = {0, base::fixed, base::scientific, base::hex, base::oct};
  static const base::fmtflags extras[] = {0, base::showpos, base::showpoint | base::showbase, base::uppercase,
                                          base::boolalpha};
  static const int widths[] = {0, 5, 63, 64, 65, 120}, precisions[] = {-1, 0, 2, 6, 18, 40, 127, 130};
  static const double values[] = {0, 1, -3.25, 1e20, 0.1, 2.5e-7, 123456.5, HUGE_VAL};
  for (int i = 0; i < 4 * 5 * 5 * 6 * 8; ++i) {
    const base::fmtflags flags = sides[i % 4] | styles[i / 4 % 5] | extras[i / 20 % 5];
    const int width = widths[i / 100 % 6], precision = precisions[i / 600];
    const double value = values[i * 7 % 8];
    compare_inserter(flags, width, precision, value);
    compare_inserter(flags, width, precision, static_cast<long double>(value) / 3);
    if (i >= 600) continue;
    compare_inserter(flags, width, precision, -1234567l >> i % 32);
    compare_inserter(flags, width, precision, 3456789012ul >> i % 32);
    compare_inserter(flags, width, precision, i % 8 < 4);
    compare_inserter(flags, width, precision, reinterpret_cast<const void *>(i / 8));
  }
}

static void test_formats() {
  number_stream s;
  char format[8];
  to_text::int_fmt(format, 'd', base::showpos | base::showbase | base::hex | base::uppercase);
  CHECK_TEXT(format, "%+#lX");
  to_text::int_fmt(format, 'u', base::skipws | base::dec);
  CHECK_TEXT(format, "%lu");
  to_text::int_fmt(format, 'p', base::showpos | base::hex);
  CHECK_TEXT(format, "%p");
  s.flags(base::showpos | base::showpoint | base::scientific | base::uppercase);
  to_text::float_fmt(format, 'L', s);
  CHECK_TEXT(format, "%+#.*Le");
  s.flags(base::scientific | base::fixed);
  to_text::float_fmt(format, 0, s);
  CHECK_TEXT(format, "%.*g");
}

static void test_named_locales() {
  number_stream german(std::locale("xx_DE")), french(std::locale("xx_FR")), indian(std::locale("xx_IN"));
  CHECK_TEXT(shown(german, base::fixed, 0, 1234567.25), "1.234.567,250000");
  CHECK_TEXT(shown(german, 0, 0, -1234567l), "-1.234.567");
  CHECK_TEXT(shown(indian, base::fixed, 0, 1234567.25), "12,34,567.250000");
  CHECK_TEXT(shown(indian, 0, 14, 123456789l), "##12,34,56,789");
  // Of the separator's three bytes the first is used.
  CHECK_TEXT(shown(french, base::fixed, 0, 1234.5),
             "1\xe2"
             "234,500000");

  // The process's locale has no say, but for a text that the program had printf make.
  CHECK(setlocale(LC_ALL, "xx_DE") != 0);
  number_stream plain;
  CHECK_TEXT(shown(plain, base::fixed, 0, 1234.5), "1234.500000");
  CHECK_TEXT(shown(plain, base::scientific, 0, 1e300 / 3), "3.333333e+299");
  plain.precision(40);
  CHECK_TEXT(shown(plain, base::fixed, 0, 0.1), "0.1000000000000000055511151231257827021182");
  char made[40];
  const int length = sprintf(made, "%.2f", 1234.5);
  CHECK_TEXT(made, "1234,50");
  *to_text::print_float_type(text, plain, ' ', made, 3, static_cast<unsigned>(length)) = 0;
  CHECK_TEXT(text, "1234.50000");
  strcpy(made, "+77");
  plain.flags(base::internal);
  plain.width(5);
  *to_text::print_integral_type(text, plain, '_', made, 3) = 0;
  CHECK_TEXT(text, "+__77");
  setlocale(LC_ALL, "C");
}

int main() {
  const bool are_named = named_locales_setup();
  test_integers();
  test_floats();
  test_long_precisions();
  test_bools_and_pointers();
  test_grouping();
  test_throwing_punctuation();
  test_own_iterator();
  test_buffer_iterator();
  test_inserters();
  test_formats();
  if (are_named)
    test_named_locales();
  else
    fprintf(stderr, "skipped: there is no localedef\n");
  return TEST_RESULT();
}

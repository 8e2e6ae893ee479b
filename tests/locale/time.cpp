// time_put and time_get: patterns and their ends, names of the environment's locale, what is read and where it stops,
// round trips over all days, buffers that fail, and environments that name no locale.
// test-variants: -O1 | -O2 -std=gnu++17 | -O1 -static

#include <locale.h>

#include <iterator>
#include <locale>
#include <ostream>
#include <stdexcept>
#include <streambuf>

#include "../fail_allocation.h"
#include "locale_check.h"
#include "named_locales.h"

using std::ios_base;
using std::string;

typedef std::back_insert_iterator<string> output;

template <class Base> struct own : Base {
  own() : Base(1) {}
  explicit own(const char *name) : Base(name, 1) {}
  ~own() {}
};
typedef own<std::time_put<char, output> > writer;
typedef own<std::time_get<char, const char *> > reader;

static tm some_time() {
  tm t = tm();
  t.tm_year = 96;
  t.tm_mon = 8;
  t.tm_mday = 1;
  t.tm_hour = 14;
  t.tm_min = 3;
  t.tm_sec = 9;
  t.tm_yday = 244;
  return t;
}

template <class Writer> static string put(const Writer &by, const char *pattern, const tm &t) {
  std::ios stream(0);
  string text;
  by.put(output(text), stream, '*', &t, pattern, pattern + strlen(pattern));
  return text;
}
static string put(const char *pattern) { return put(writer(), pattern, some_time()); }

static void test_put() {
  CHECK_TEXT(put("%").c_str(), "");
  CHECK_TEXT(put("a%").c_str(), "a");
  CHECK_TEXT(put("%c").c_str(), "Sun Sep 01 14:03:09 1996");
  CHECK_TEXT(put("%c").c_str(), put("%a %b %d %H:%M:%S %Y").c_str());
  CHECK_TEXT(put("<%x|%X>").c_str(), "<09/01/96|14:03:09>");
  CHECK_TEXT(put("%A %B %h %p %I %j %y%% %r").c_str(), "Sunday September Sep PM 02 245 96% 02:03:09 PM");
  // Modifiers are conversions of their own, and give what strftime gives for them.
  CHECK_TEXT(put("%Ey").c_str(), "%Ey");
  const char with_null[] = "a%\0b";
  std::ios stream(0);
  string text;
  const tm t = some_time();
  writer().put(output(text), stream, ' ', &t, with_null, with_null + 4);
  CHECK_TEXT(text.c_str(), "ab");
  text = "";
  writer().put(output(text), stream, ' ', &t, 'c');
  writer().put(output(text), stream, ' ', &t, 'y', 'E');
  CHECK_TEXT(text.c_str(), "Sun Sep 01 14:03:09 199696");
  tm odd = t;
  odd.tm_wday = 7;
  odd.tm_mon = -1;
  CHECK_TEXT(put(writer(), "%a%A%b%B", odd).c_str(), "????");
}

// Numbers in and out of range are strftime's.
static void test_numbers() {
  static const int values[] = {-2147483647, -2000, -1901, -1900, -901, -900, -1, 0, 9, 60, 99, 100, 8099, 8100};
  for (size_t i = 0; i < sizeof values / sizeof *values; ++i)
    for (const char *c = "dHMSmyYjIeCug"; *c; ++c) {
      tm t = some_time();
      t.tm_mday = t.tm_hour = t.tm_min = t.tm_sec = t.tm_mon = t.tm_year = values[i];
      const char format[] = {'%', *c, 0};
      char want[100] = "";
      strftime(want, sizeof want, format, &t);
      CHECK_TEXT(put(writer(), format, t).c_str(), want);
    }
}

// What a derived class sees: every conversion but those that are expanded.
struct spelling : writer {
protected:
  iter_type do_put(iter_type out, ios_base &, char, const tm *, char format, char modifier) const {
    *out++ = '<';
    *out++ = format;
    *out++ = modifier == 0 ? '>' : modifier;
    return out;
  }
};

static string read(const char *what, const char *text, tm &t, const reader &by = reader()) {
  std::ios stream(0);
  ios_base::iostate err = ios_base::goodbit;
  const char *const end = text + strlen(text);
  const char *stop = text;
  switch (*what) {
    case 't': stop = by.get_time(text, end, stream, err, &t); break;
    case 'd': stop = by.get_date(text, end, stream, err, &t); break;
    case 'w': stop = by.get_weekday(text, end, stream, err, &t); break;
    case 'm': stop = by.get_monthname(text, end, stream, err, &t); break;
    case 'y': stop = by.get_year(text, end, stream, err, &t); break;
  }
  return string((err & ios_base::failbit) ? "!" : "") + ((err & ios_base::eofbit) ? "." : "") + stop;
}

// The member that was read, then "!" for failure, "." for the end of the input, and what was left.
#define CHECK_READ(what, text, member, value, want) \
  do {                                              \
    tm t = some_time();                             \
    CHECK_TEXT(read(what, text, t).c_str(), want);  \
    CHECK_INT(t.member, value);                     \
  } while (0)

static void test_get() {
  CHECK_INT(reader().date_order(), std::time_base::mdy);
  CHECK_READ("time", "23:59:61x", tm_sec, 61, "x");
  CHECK_READ("time", "1:2:3", tm_hour, 1, ".");
  CHECK_READ("time", "24:00:00", tm_hour, 14, "!:00:00");
  CHECK_READ("time", "12:60:00", tm_hour, 14, "!:00");
  CHECK_READ("time", "12:30", tm_min, 3, "!.");
  CHECK_READ("time", " 12:30:00", tm_min, 3, "! 12:30:00");
  CHECK_READ("date", "12/31/99,", tm_mon, 11, ",");
  CHECK_READ("date", "2/3/1969", tm_year, 69, ".");
  CHECK_READ("date", "2/3/68", tm_year, 168, ".");
  CHECK_READ("date", "0/3/68", tm_mon, 8, "!/3/68");
  CHECK_READ("date", "13/3/68", tm_mon, 8, "!/3/68");
  CHECK_READ("date", "1/32/68", tm_mon, 8, "!/68");
  CHECK_READ("date", "1/2/", tm_mday, 1, "!.");
  CHECK_READ("year", "2026", tm_year, 126, ".");
  CHECK_READ("year", "69", tm_year, 69, ".");
  CHECK_READ("year", "7", tm_year, 107, ".");
  CHECK_READ("year", "476", tm_year, 476 - 1900, ".");
  CHECK_READ("year", "19961", tm_year, 96, "1");
  CHECK_READ("year", "-5", tm_year, 96, "!-5");
  // Names: the longest, in either case; once a full name has begun, it must be whole.
  CHECK_READ("weekday", "Monday", tm_wday, 1, ".");
  CHECK_READ("weekday", "Mon, the", tm_wday, 1, ", the");
  CHECK_READ("weekday", "mONDAYs", tm_wday, 1, "s");
  CHECK_READ("weekday", "Mond", tm_wday, 0, "!.");
  CHECK_READ("weekday", "Monda!", tm_wday, 0, "!!");
  CHECK_READ("weekday", "S", tm_wday, 0, "!.");
  CHECK_READ("weekday", "", tm_wday, 0, "!.");
  CHECK_READ("weekday", "tue", tm_wday, 2, ".");
  CHECK_READ("month", "May", tm_mon, 4, ".");
  CHECK_READ("month", "JUNE", tm_mon, 5, ".");
  CHECK_READ("month", "Juli", tm_mon, 6, "i");  // no name goes on so
}

// Whatever time_put writes, time_get reads.
static void check_round_trips(const writer &out, const reader &in) {
  for (int i = 0; i < 12; ++i) {
    tm t = some_time(), back = tm();
    t.tm_wday = i % 7;
    t.tm_mon = i;
    t.tm_mday = 31 - i;
    t.tm_hour = 2 * i;
    t.tm_year = 69 + 9 * i;
    CHECK_TEXT(read("date", put(out, "%x", t).c_str(), back, in).c_str(), ".");
    CHECK_TEXT(read("time", put(out, "%X", t).c_str(), back, in).c_str(), ".");
    CHECK(back.tm_mon == t.tm_mon && back.tm_mday == t.tm_mday && back.tm_year == t.tm_year);
    CHECK(back.tm_hour == t.tm_hour && back.tm_min == t.tm_min && back.tm_sec == t.tm_sec);
    static const char *const formats[] = {"%a", "%A", "%b", "%B"};
    for (int k = 0; k < 4; ++k) {
      back.tm_mon = back.tm_wday = -1;
      CHECK_TEXT(read(k < 2 ? "weekday" : "month", put(out, formats[k], t).c_str(), back, in).c_str(), ".");
      CHECK_INT(k < 2 ? back.tm_wday : back.tm_mon, k < 2 ? t.tm_wday : t.tm_mon);
    }
  }
}

// Names come from the environment, at the time of the call, whatever the stream's locale and the C library's.
static void test_environment() {
  static const char *const names[] = {"xx_DE", "xx_FR", "xx_IN", "xx_JP", "C"};
  static const char *const days[] = {"Sonntag", "dimanche", "Sunday", "\xE6\x97\xA5\xE6\x9B\x9C\xE6\x97\xA5", "Sunday"};
  for (int round = 0; round < 2; ++round)
    for (int i = 0; i < 5; ++i) {
      setenv("LC_ALL", names[i], 1);
      CHECK_TEXT(put("%A").c_str(), days[i]);
      check_round_trips(writer(), reader());
    }
  setenv("LC_ALL", "", 1);
  setenv("LANG", "xx_FR", 1);
  setenv("LC_TIME", "xx_DE", 1);
  CHECK_TEXT(put("%A %p%x").c_str(), "Sonntag 09/01/96");
  unsetenv("LC_TIME");
  CHECK_TEXT(put("%A").c_str(), "dimanche");
  // By name.
  typedef own<std::time_put_byname<char, output> > named_writer;
  CHECK_TEXT(put(named_writer("xx_DE"), "%a, %x", some_time()).c_str(), "So, 09/01/96");
  tm t = some_time();
  const own<std::time_get_byname<char, const char *> > named_reader("xx_DE");
  std::ios stream(0);
  ios_base::iostate err = ios_base::goodbit;
  const char text[] = "dienstag";
  CHECK(named_reader.get_weekday(text, text + 8, stream, err, &t) == text + 8);
  CHECK(t.tm_wday == 2 && err == ios_base::eofbit);
  // No such locale: even a pattern without names is refused.
  setenv("LANG", "no such locale", 1);
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", put("a"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", read("month", "May", t));
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  unsetenv("LANG");
  CHECK_TEXT(put("%A").c_str(), "Sunday");
}

// A buffer that takes `left` characters, and then fails or throws.
struct full : std::streambuf {
  size_t left;
  bool throws;
  string text;
  full(size_t n, bool by_exception) : left(n), throws(by_exception) {}

protected:
  int_type overflow(int_type c) {
    if (left == 0) {
      if (throws) throw 7;
      return -1;
    }
    --left;
    text += char(c);
    return c;
  }
};

static void test_buffers() {
  const std::locale &loc = std::locale::classic();
  const std::time_put<char> &facet = std::use_facet<std::time_put<char> >(loc);
  const tm t = some_time();
  std::ios stream(0);
  const char pattern[] = "on %c";
  for (size_t n = 0; n < 30; ++n) {
    full buffer(n, false), angry(n, true);
    CHECK(facet.put(&buffer, stream, ' ', &t, pattern, pattern + 5).failed() == (n < 27));
    CHECK_TEXT(buffer.text.c_str(), string("on Sun Sep 01 14:03:09 1996").substr(0, n).c_str());
    bool caught = false;
    try {
      facet.put(&angry, stream, ' ', &t, pattern, pattern + 5);
    } catch (int) {
      caught = true;
    }
    CHECK(caught == (n < 27));
  }
  struct texts : std::streambuf {
    char text[20];
    texts() { setg(text, text, text + sprintf(text, "Sunday 1:2:3 x")); }
  } source;
  typedef std::istreambuf_iterator<char> iterator;
  tm back = tm();
  ios_base::iostate err = ios_base::goodbit;
  const std::time_get<char> &getter = std::use_facet<std::time_get<char> >(loc);
  iterator at = getter.get_weekday(&source, iterator(), stream, err, &back);
  CHECK(*at == ' ' && err == ios_base::goodbit);
  at = getter.get_time(++at, iterator(), stream, err, &back);
  CHECK(*at == ' ' && back.tm_hour == 1 && back.tm_sec == 3 && err == ios_base::goodbit);
}

int main() {
  setenv("LC_ALL", "C", 1);
  test_put();
  test_numbers();
  CHECK_TEXT(put(spelling(), "%a %x%%%E", some_time()).c_str(), "<a> <m>/<d>/<y><%><E>");
  test_get();
  check_round_trips(writer(), reader());
  test_buffers();
  if (named_locales_setup())
    test_environment();
  else
    fprintf(stderr, "skipped: there is no localedef\n");
  return TEST_RESULT();
}

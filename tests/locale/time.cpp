// time_put, time_get and timepunct against strftime: every conversion of random times, in range and out of it, under
// each environment, which changes between calls; what is read and where reading stops; buffers that fail, names that
// are refused, and memory that runs out. fuzz/time_get has random texts.
// test-variants: -O1 | -O1 -static
#include <locale.h>
#include <stdlib.h>
#include <time.h>

#include <iterator>
#include <locale>
#include <ostream>
#include <stdexcept>
#include <string>

#include "../buffers.h"
#include "../fail_allocation.h"
#include "../random.h"
#include "../rows.h"
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
  t.tm_year = 96, t.tm_mon = 8, t.tm_mday = 1, t.tm_hour = 14, t.tm_min = 3, t.tm_sec = 9, t.tm_yday = 244;
  return t;
}

template <class Writer> static string put(const Writer &by, const string &pattern, const tm &t) {
  std::ios stream(0);
  string text;
  by.put(output(text), stream, '*', &t, pattern.data(), pattern.data() + pattern.size());
  return text;
}
static string put(const string &pattern) { return put(writer(), pattern, some_time()); }

// strftime's text under a locale of the C library.
static string formatted(const char *locale, const string &pattern, const tm &t) {
  char text[200] = "";
  setlocale(LC_TIME, locale);
  strftime(text, sizeof text, pattern.c_str(), &t);
  setlocale(LC_TIME, "C");
  return text;
}

static tm random_time() {
  static const int odd[] = {-2147483647, -2000, -1901, -1900, -901, -900, -1, 0, 9, 11, 12, 60, 99, 100, 8099, 8100};
  tm t = tm();
  t.tm_sec = random_below(62), t.tm_min = random_below(60), t.tm_hour = random_below(24),
  t.tm_mday = 1 + random_below(31);
  t.tm_mon = random_below(12), t.tm_year = random_below(300), t.tm_wday = random_below(7),
  t.tm_yday = random_below(366);
  int *const fields[] = {&t.tm_sec, &t.tm_min, &t.tm_hour, &t.tm_mday, &t.tm_mon, &t.tm_year, &t.tm_wday};
  if (random_below(3) == 0) *fields[random_below(7)] = odd[random_below(16)];
  return t;
}

// What is expanded is so in every locale, names are the environment's, and of a day or month without a name strftime
// knows none either.
static void conversions(const char *locale) {
  for (int i = 0; i < 3000; ++i) {
    const tm t = random_time();
    const char c = "aAbBhpdHMSmyYjIeCugUVWGDTRFnt%kls"[random_below(33)];
    if (strchr("Ggl", c) && t.tm_year < -100000) continue;
    const string pattern = string("<%") + c + ">";
    const string want = formatted(locale, pattern, t), got = put(writer(), pattern, t);
    CHECK_TEXT(got.c_str(), want.c_str());
    if (got != want) fprintf(stderr, "  %s in %s\n", pattern.c_str(), locale);
    CHECK(put(writer(), "%c", t) == put(writer(), "%a %b %d %H:%M:%S %Y", t));
    CHECK(put(writer(), "%x|%X", t) == put(writer(), "%m/%d/%y|%H:%M:%S", t));
  }
}

// What a derived class sees: every conversion but those that are expanded.
struct spelling : writer {
  iter_type do_put(iter_type out, ios_base &, char, const tm *, char format, char modifier) const {
    *out++ = '<', *out++ = format, *out++ = modifier == 0 ? '>' : modifier;
    return out;
  }
};

static void patterns() {
  CHECK_TEXT(put("%").c_str(), "");
  CHECK_TEXT(put("a%").c_str(), "a");
  CHECK_TEXT(put("%c").c_str(), "Sun Sep 01 14:03:09 1996");
  CHECK_TEXT(put("%Ey").c_str(), "%Ey");  // a modifier is a conversion of its own
  CHECK_TEXT(put(string("a%\0b", 4)).c_str(), "ab");
  std::ios stream(0);
  string text;
  const tm t = some_time();
  writer().put(output(text), stream, ' ', &t, 'c');
  writer().put(output(text), stream, ' ', &t, 'y', 'E');
  CHECK_TEXT(text.c_str(), "Sun Sep 01 14:03:09 199696");
  CHECK_TEXT(put(spelling(), "%a %x%%%E", t).c_str(), "<a> <m>/<d>/<y><%><E>");
}

template <class Reader> static string read(const Reader &by, const char *what, const string &text, tm &t) {
  std::ios stream(0);
  ios_base::iostate err = ios_base::goodbit;
  const char *const end = text.c_str() + text.size(), *stop = text.c_str();
  switch (*what) {
    case 't': stop = by.get_time(stop, end, stream, err, &t); break;
    case 'd': stop = by.get_date(stop, end, stream, err, &t); break;
    case 'w': stop = by.get_weekday(stop, end, stream, err, &t); break;
    case 'm': stop = by.get_monthname(stop, end, stream, err, &t); break;
    case 'y': stop = by.get_year(stop, end, stream, err, &t); break;
  }
  return string((err & ios_base::failbit) ? "!" : "") + ((err & ios_base::eofbit) ? "." : "") + stop;
}

static void table() {
  int count = 0;
  CHECK_INT(reader().date_order(), std::time_base::mdy);
  for (rows row(__FILE__, "data/time"); row.next(); ++count) {
    tm t = some_time();
    CHECK_TEXT(read(reader(), row[0].c_str(), row[1], t).c_str(), row[4].c_str());
    const int members[] = {t.tm_sec, t.tm_min, t.tm_hour, t.tm_mday, t.tm_mon, t.tm_year, t.tm_wday};
    static const char *const names[] = {"sec", "min", "hour", "mday", "mon", "year", "wday"};
    for (int i = 0; i < 7; ++i)
      if (row[2] == names[i]) CHECK_INT(members[i], row.number(3));
  }
  CHECK_INT(count, 30);
}

// Whatever time_put writes, time_get reads.
template <class Writer, class Reader> static void round_trips(const Writer &out, const Reader &in) {
  for (int i = 0; i < 24; ++i) {
    tm t = random_time(), back = tm();
    t = some_time();
    t.tm_wday = i % 7, t.tm_mon = i % 12, t.tm_mday = 31 - i, t.tm_hour = i, t.tm_year = 69 + 4 * i;
    CHECK_TEXT(read(in, "date", put(out, "%x", t), back).c_str(), ".");
    CHECK_TEXT(read(in, "time", put(out, "%X", t), back).c_str(), ".");
    CHECK(back.tm_mon == t.tm_mon && back.tm_mday == t.tm_mday && back.tm_year == t.tm_year);
    CHECK(back.tm_hour == t.tm_hour && back.tm_min == t.tm_min && back.tm_sec == t.tm_sec);
    static const char *const formats[] = {"%a", "%A", "%b", "%B"};
    for (int k = 0; k < 4; ++k) {
      back.tm_mon = back.tm_wday = -1;
      CHECK_TEXT(read(in, k < 2 ? "weekday" : "month", put(out, formats[k], t), back).c_str(), ".");
      CHECK_INT(k < 2 ? back.tm_wday : back.tm_mon, k < 2 ? t.tm_wday : t.tm_mon);
    }
  }
}

// All names of one timepunct, and single conversions under it.
static void punctuation(const char *name) {
  const std::timepunct<char> punct(name);
  tm t = some_time();
  for (int i = 0; i < 14; ++i) {
    t.tm_wday = i % 7;
    const string want = formatted(name, i < 7 ? "%a" : "%A", t);
    CHECK_TEXT(punct.get_week_day_list()[i].c_str(), want.c_str());
    CHECK(punct.get_week_day(std::locale(), i < 7 ? 'a' : 'A', i % 7) == want);
  }
  for (int i = 0; i < 24; ++i) {
    t.tm_mon = i % 12;
    CHECK_TEXT(punct.get_month_name_list()[i].c_str(), formatted(name, i < 12 ? "%b" : "%B", t).c_str());
  }
  for (int i = 0; i < 2; ++i) {
    t.tm_hour = 11 + i;
    CHECK_TEXT(punct.get_ampm_string(i).c_str(), formatted(name, "%p", t).c_str());
  }
  for (const char *c = "AxXcrdpBHY"; *c; ++c)
    CHECK_TEXT(punct.print_format(std::locale(), *c, &t).c_str(), formatted(name, string("%") + *c, t).c_str());
  CHECK(punct.get_week_day(std::locale(), 'a', 7) == "?" && punct.get_week_day(std::locale(), 'a', -1) == "?");
  CHECK(punct.get_date_time_format() == "%a %b %d %H:%M:%S %Y" && punct.get_date_format() == "%m/%d/%y");
  CHECK(punct.get_time_format() == "%H:%M:%S" && punct.get_spec_conv_width('d') == 2);
  CHECK(punct.get_spec_conv_width('Y') == 4 && punct.get_spec_conv_width('A') == 0 &&
        punct.get_spec_conv_width('j') == 3 && punct.get_spec_conv_width('u') == 1 &&
        punct.get_spec_conv_width('w') == 1);
  const char *const start = reinterpret_cast<const char *>(&punct);
  CHECK(sizeof punct == 4 * (1 + 1 + 14 + 24 + 2) &&
        reinterpret_cast<const char *>(punct.get_month_name_list()) == start + 64);
}

struct naming {
  naming() { setlocale(LC_ALL, "xx_FR"); }
  ~naming() { setlocale(LC_ALL, "C"); }
  void run() { const std::timepunct<char> german("xx_DE"); }
  void check(bool) { CHECK_TEXT(setlocale(LC_ALL, 0), "xx_FR"); }
};

// Names come from the environment, at the time of the call, whatever the stream's locale and the C library's.
static void environment() {
  static const char *const names[] = {"xx_DE", "xx_FR", "xx_IN", "xx_JP", "C"};
  for (int round = 0; round < 2; ++round)
    for (int i = 0; i < 5; ++i) {
      setenv("LC_ALL", names[i], 1);
      conversions(names[i]);
      round_trips(writer(), reader());
      round_trips(own<std::time_put_byname<char, output> >(names[4 - i]),
                  own<std::time_get_byname<char, const char *> >(names[4 - i]));
      punctuation(names[i]);
      CHECK(put(own<std::time_put_byname<char, output> >("xx_DE"), "%a, %x", some_time()) == "So, 09/01/96");
      CHECK_TEXT(std::timepunct<char>("").get_week_day_list()[8].c_str(),
                 std::timepunct<char>(names[i]).get_week_day_list()[8].c_str());
    }
  setenv("LC_ALL", "", 1), setenv("LANG", "xx_FR", 1), setenv("LC_TIME", "xx_DE", 1);
  CHECK_TEXT(put("%A %p%x").c_str(), "Sonntag 09/01/96");
  setenv("LC_ALL", "xx_FR", 1);
  CHECK_TEXT(put("%A").c_str(), "dimanche");
  setenv("LC_ALL", "", 1), unsetenv("LC_TIME");
  CHECK_TEXT(put("%A").c_str(), "dimanche");
  // The same name in another folder is another locale.
  const string folder = getenv("LOCPATH"), other = folder + "/other";
  CHECK_INT(system(("mkdir -p " + other + " && cp -r " + folder + "/xx_DE " + other + "/xx_FR").c_str()), 0);
  setenv("LOCPATH", other.c_str(), 1);
  CHECK_TEXT(put("%A").c_str(), "Sonntag");
  setenv("LOCPATH", folder.c_str(), 1);
  CHECK_TEXT(put("%A").c_str(), "dimanche");
  // No such locale: even a pattern without names is refused.
  tm t = some_time();
  setenv("LANG", "no such locale", 1);
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", put("a"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", read(reader(), "month", "May", t));
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  unsetenv("LANG");
  CHECK_TEXT(put("%A").c_str(), "Sunday");
  setlocale(LC_MONETARY, "xx_FR");
  const string mixture = setlocale(LC_ALL, 0);
  { const std::timepunct<char> german("xx_DE"); }
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", std::timepunct<char>("no such locale"));
  CHECK_TEXT(setlocale(LC_ALL, 0), mixture.c_str());
  setlocale(LC_ALL, "C");
  CHECK(fail_each_allocation<naming>() >= 36);
}

static void buffers() {
  const std::locale &loc = std::locale::classic();
  const std::time_put<char> &facet = std::use_facet<std::time_put<char> >(loc);
  const tm t = some_time();
  std::ios stream(0);
  const char pattern[] = "on %c";
  for (int n = 0; n < 60; ++n) {
    scripted buffer;
    buffer.let_fail(overflows, n % 30, n >= 30);
    bool failed = false;
    try {
      failed = facet.put(&buffer, stream, ' ', &t, pattern, pattern + 5).failed();
    } catch (const thrown &) {
      failed = true;
    }
    CHECK(failed == (n % 30 < 27));
    CHECK_TEXT(buffer.taken().c_str(), string("on Sun Sep 01 14:03:09 1996").substr(0, n % 30).c_str());
  }
  scripted source("Sunday 1:2:3 x", 4);
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
  patterns();
  conversions("C");
  table();
  round_trips(writer(), reader());
  buffers();
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", std::timepunct<char>("no such locale"));
  if (named_locales_setup())
    environment();
  else
    fprintf(stderr, "skipped: there is no localedef\n");
  return TEST_RESULT();
}

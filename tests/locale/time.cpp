// time_put, time_get and timepunct against strftime: every conversion of random times, in range and out of it, under
// each environment, which changes between calls; what is read and where reading stops; full buffers, names that
// are refused, and memory that runs out.
// test-variants: -O1 | -O1 -static
#include <time.h>

#include <sstream>

#include "../fail_allocation.h"
#include "locale_check.h"

using std::string;
typedef std::ios_base base;
typedef std::time_put<char, std::back_insert_iterator<string> > put_facet;
typedef own_facet<put_facet> writer;

static tm some_time() {
  tm t = {9, 3, 14, 1, 8, 96, 0, 244, 0, 0, 0};
  return t;
}
static tm random_time() {
  static const int odd[] = {-2147483647, -2000, -1901, -1900, -901, -900, -1, 0, 9, 11, 12, 60, 99, 100, 8099, 8100},
                   most[] = {61, 59, 23, 30, 11, 299, 6, 365};
  tm t = tm();
  int *const fields[] = {&t.tm_sec, &t.tm_min, &t.tm_hour, &t.tm_mday, &t.tm_mon, &t.tm_year, &t.tm_wday, &t.tm_yday};
  for (int i = 0; i < 8; ++i) *fields[i] = static_cast<int>(random_below(most[i] + 1u));
  ++t.tm_mday;
  if (random_below(3) == 0) *fields[random_below(7)] = odd[random_below(16)];
  return t;
}

static string put(const string &pattern, const tm &t = some_time(), const put_facet &by = writer()) {
  std::ios stream(0);
  string text;
  by.put(std::back_inserter(text), stream, '*', &t, pattern.data(), pattern.data() + pattern.size());
  return text;
}
// strftime's text under a locale of the C library.
static string formatted(const char *locale, const string &pattern, const tm &t) {
  char text[200] = "";
  setlocale(LC_TIME, locale);
  strftime(text, sizeof text, pattern.c_str(), &t);
  setlocale(LC_TIME, "C");
  return text;
}

// What is read, of the names of a locale if one is given.
struct date_reading {
  char what;
  tm t;
  const char *name;
  template <class Iterator> Iterator read(Iterator in, Iterator end, base::iostate &err) {
    if (name) return read_by(own_facet<std::time_get_byname<char, Iterator> >(name), in, end, err);
    return read_by(own_facet<std::time_get<char, Iterator> >(), in, end, err);
  }
  template <class Iterator>
  Iterator read_by(const std::time_get<char, Iterator> &by, Iterator in, Iterator end, base::iostate &err) {
    std::ios stream(0);
    return what == 't'   ? by.get_time(in, end, stream, err, &t)
           : what == 'd' ? by.get_date(in, end, stream, err, &t)
           : what == 'w' ? by.get_weekday(in, end, stream, err, &t)
           : what == 'm' ? by.get_monthname(in, end, stream, err, &t)
                         : by.get_year(in, end, stream, err, &t);
  }
  bool same(const date_reading &other) const { return memcmp(&t, &other.t, sizeof t) == 0; }
};
static string read(char what, const string &text, tm &t, const char *name = 0) {
  date_reading got = {what, t, name};
  int err;
  const string left = read_all_ways(text, 1 + random_below(9), got, err);
  must(!(err & base::failbit) || memcmp(&t, &got.t, sizeof t) == 0, "stored", text);
  must(((err & base::eofbit) != 0) == left.empty(), "eofbit", text);
  t = got.t;
  return string(err & base::failbit ? "!" : "") + (left.empty() ? "." : "") + left;
}

// What is expanded is so in every locale, names are the environment's, and of a day or month without a name strftime
// knows none either. A facet by name has its own names, a timepunct too.
static void conversions(const char *locale, const char *other) {
  const own_facet<std::time_put_byname<char, std::back_insert_iterator<string> > > by_name(other);
  const std::timepunct<char> punct(other), here("");
  for (int i = 0; i < 3000; ++i) {
    tm t = random_time(), back = tm();
    const char c = "aAbBhpdHMSmyYjIeCugUVWGDTRFnt%kls"[random_below(33)];
    if (strchr("Ggl", c) && t.tm_year < -100000) continue;
    const string pattern = string("<%") + c + ">", want = formatted(locale, pattern, t), got = put(pattern, t);
    CHECK_TEXT((c + got).c_str(), (c + want).c_str());
    CHECK(put(pattern, t, by_name) == formatted(other, pattern, t));
    CHECK(string(1, '<') + punct.print_format(std::locale(), c, &t) + ">" == formatted(other, pattern, t));
    CHECK(put("%c", t) == put("%a %b %d %H:%M:%S %Y", t) && put("%x|%X", t) == put("%m/%d/%y|%H:%M:%S", t));
    if (i > 23) continue;
    // Each name is there, and is read again.
    t.tm_wday = i % 7, t.tm_mon = i % 12, t.tm_hour = 11 + i % 2;
    const string day = formatted(other, i % 14 < 7 ? "%a" : "%A", t), month = formatted(other, i < 12 ? "%b" : "%B", t);
    CHECK(punct.get_week_day_list()[i % 14] == day &&
          punct.get_week_day(std::locale(), i % 14 < 7 ? 'a' : 'A', i % 7) == day);
    CHECK(punct.get_month_name_list()[i] == month && punct.get_ampm_string(i % 2) == formatted(other, "%p", t));
    CHECK(here.get_month_name_list()[i] == put(i < 12 ? "%b" : "%B", t));
    CHECK(read('w', day, back, other) == "." && back.tm_wday == i % 7);
    CHECK(read('m', month, back, other) == "." && back.tm_mon == i % 12);
    CHECK(read('w', put("%A", t), back) == "." && back.tm_wday == i % 7);
    CHECK(read('m', put("%b", t), back) == "." && back.tm_mon == i % 12);
  }
}

// What a derived class sees: every conversion but those that are expanded.
struct spelling : writer {
  iter_type do_put(iter_type out, base &, char, const tm *, char format, char modifier) const {
    *out++ = '<', *out++ = format, *out++ = modifier == 0 ? '>' : modifier;
    return out;
  }
};

static void table() {
  CHECK_INT(std::use_facet<std::time_get<char> >(std::locale()).date_order(), std::time_base::mdy);
  for (rows row(__FILE__, "data/time"); row.next();) {
    tm t = some_time();
    const string got = row[0] == "put" ? put(row[1]) : read(row[0][0], row[1], t);
    CHECK_TEXT(got.c_str(), row[4].c_str());
    const int members[] = {t.tm_sec, t.tm_min, t.tm_hour, t.tm_mday, t.tm_mon, t.tm_year, t.tm_wday};
    static const string names("sec  min  hour mday mon  year wday");
    if (row[0] != "put") CHECK_INT(members[names.find(row[2]) / 5], row.number(3));
  }
  const tm t = some_time();
  CHECK_TEXT(put("%a %x%%%E", t, spelling()).c_str(), "<a> <m>/<d>/<y><%><E>");
  std::ios stream(0);
  string text;
  writer().put(std::back_inserter(text), stream, ' ', &t, 'c');
  writer().put(std::back_inserter(text), stream, ' ', &t, 'y', 'E');
  CHECK_TEXT(text.c_str(), "Sun Sep 01 14:03:09 199696");
  const std::time_put<char> &classic = std::use_facet<std::time_put<char> >(std::locale());
  for (int n = 0; n < 30; ++n) {  // where the buffer is full
    scripted buffer;
    buffer.most = n;
    const char pattern[] = "on %c";
    CHECK(classic.put(&buffer, stream, ' ', &t, pattern, pattern + 5).failed() == (n < 27));
    CHECK(buffer.taken() == string("on Sun Sep 01 14:03:09 1996").substr(0, n));
  }
  const std::timepunct<char> c("C");
  CHECK(c.get_week_day(std::locale(), 'a', 7) == "?" && c.get_week_day(std::locale(), 'a', -1) == "?");
  const string all = c.get_date_time_format() + '|' + c.get_date_format() + '|' + c.get_time_format();
  CHECK_TEXT(all.c_str(), "%a %b %d %H:%M:%S %Y|%m/%d/%y|%H:%M:%S");
  static const char widths[] = "d2Y4A0j3u1w1";
  for (const char *at = widths; *at; at += 2) CHECK_INT(c.get_spec_conv_width(*at), at[1] - '0');
}

// Names come from the environment, at the time of the call, whatever the stream's locale and the C library's.
static void environment() {
  static const char *const names[] = {"xx_DE", "xx_FR", "xx_IN", "xx_JP", "C"};
  for (int i = 0; i < 10; ++i) {
    setenv("LC_ALL", names[i % 5], 1);
    conversions(names[i % 5], names[4 - i % 5]);
  }
  const string folder = getenv("LOCPATH"), other = folder + "/other";
  CHECK_INT(system(("mkdir -p " + other + " && cp -r " + folder + "/xx_DE " + other + "/xx_FR").c_str()), 0);
  // One variable after the other; the same name in another folder is another locale.
  for (rows row(__FILE__, "data/environment"); row.next();) {
    setenv(row[0].c_str(), ((row[0] == "LOCPATH" ? folder : "") + row[1]).c_str(), 1);
    CHECK_TEXT(put("%A %x").c_str(), (row[2] + " 09/01/96").c_str());
  }
  // No such locale: even a pattern without names is refused.
  tm t = some_time();
  setenv("LANG", "no such locale", 1);
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", put("a"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", read('m', "May", t));
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  unsetenv("LANG");
  CHECK_TEXT(put("%A").c_str(), "Sunday");
  CHECK(fail_each_allocation<naming<std::timepunct<char> > >() >= 36);
}

int main() {
  setenv("LC_ALL", "C", 1);
  conversions("C", "C");
  table();
  if (named_locales_setup()) environment();
  return TEST_RESULT();
}

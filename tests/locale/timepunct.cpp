// timepunct: the names of "C" and of real locales, conversions under them, names that are refused, the C library's
// locale afterwards, and memory that runs out half-way.

#include <locale.h>

#include <locale>
#include <stdexcept>

#include "../fail_allocation.h"
#include "locale_check.h"
#include "named_locales.h"

typedef std::timepunct<char> timepunct;

static void check_names(const timepunct &punct, const char *const (&want)[8]) {
  const std::string *const days = punct.get_week_day_list(), *const months = punct.get_month_name_list();
  CHECK_TEXT(days[0].c_str(), want[0]);
  CHECK_TEXT(days[6].c_str(), want[1]);
  CHECK_TEXT(days[7].c_str(), want[2]);
  CHECK_TEXT(days[13].c_str(), want[3]);
  CHECK_TEXT(months[2].c_str(), want[4]);
  CHECK_TEXT(months[14].c_str(), want[5]);
  CHECK_TEXT(punct.get_ampm_string(0).c_str(), want[6]);
  CHECK_TEXT(punct.get_ampm_string(1).c_str(), want[7]);
}

static const char *const english[8] = {"Sun", "Sat", "Sunday", "Saturday", "Mar", "March", "AM", "PM"};

static void test_classic() {
  const timepunct classic("C");
  check_names(classic, english);
  CHECK_TEXT(classic.get_date_time_format().c_str(), "%a %b %d %H:%M:%S %Y");
  CHECK_TEXT(classic.get_date_format().c_str(), "%m/%d/%y");
  CHECK_TEXT(classic.get_time_format().c_str(), "%H:%M:%S");
  const std::locale &loc = std::locale::classic();
  CHECK_TEXT(classic.get_week_day(loc, 'A', 1).c_str(), "Monday");
  CHECK_TEXT(classic.get_week_day(loc, 'a', 6).c_str(), "Sat");
  CHECK_TEXT(classic.get_week_day(loc, 'a', 7).c_str(), "?");
  CHECK_INT(classic.get_spec_conv_width('d'), 2);
  CHECK_INT(classic.get_spec_conv_width('Y'), 4);
  CHECK_INT(classic.get_spec_conv_width('A'), 0);
  // Name, 14 days, 24 months, the halves, in this order behind the virtual table.
  CHECK_INT(sizeof classic, 4 * (1 + 1 + 14 + 24 + 2));
  const char *const start = reinterpret_cast<const char *>(&classic);
  CHECK(reinterpret_cast<const char *>(classic.get_week_day_list()) == start + 8);
  CHECK(reinterpret_cast<const char *>(classic.get_month_name_list()) == start + 64);
}

static tm some_time() {
  tm t = tm();
  t.tm_year = 100;
  t.tm_mon = 2;
  t.tm_mday = 7;
  t.tm_hour = 13;
  t.tm_min = 5;
  t.tm_wday = 2;
  return t;
}

static void test_named() {
  const char *const german[8] = {"So", "Sa", "Sonntag", "Samstag", "M\xE4r", "M\xE4rz", "", ""};
  const char *const japanese[8] = {"\xE6\x97\xA5",
                                   "\xE5\x9C\x9F",
                                   "\xE6\x97\xA5\xE6\x9B\x9C\xE6\x97\xA5",
                                   "\xE5\x9C\x9F\xE6\x9B\x9C\xE6\x97\xA5",
                                   " 3\xE6\x9C\x88",
                                   "3\xE6\x9C\x88",
                                   "\xE5\x8D\x88\xE5\x89\x8D",
                                   "\xE5\x8D\x88\xE5\xBE\x8C"};
  setlocale(LC_ALL, "C");
  setlocale(LC_MONETARY, "xx_FR");
  const std::string mixture = setlocale(LC_ALL, 0);
  const timepunct de("xx_DE"), jp("xx_JP"), in("xx_IN");
  check_names(de, german);
  check_names(jp, japanese);
  check_names(in, english);
  const tm t = some_time();
  const std::locale &loc = std::locale::classic();
  CHECK_TEXT(de.print_format(loc, 'A', &t).c_str(), "Dienstag");
  CHECK_TEXT(de.print_format(loc, 'x', &t).c_str(), "07.03.2000");
  CHECK_TEXT(in.print_format(loc, 'r', &t).c_str(), "01:05:00 PM");
  CHECK_TEXT(in.print_format(loc, 'd', &t).c_str(), "07");
  CHECK_TEXT(jp.print_format(loc, 'p', &t).c_str(), japanese[7]);
  CHECK_TEXT(setlocale(LC_ALL, 0), mixture.c_str());
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", timepunct("no such locale"));
  CHECK_TEXT(setlocale(LC_ALL, 0), mixture.c_str());
  // The empty name is the environment's.
  setenv("LC_ALL", "xx_DE", 1);
  check_names(timepunct(""), german);
  setenv("LC_ALL", "C", 1);
  setlocale(LC_ALL, "C");
}

struct naming {
  naming() { setlocale(LC_ALL, "xx_FR"); }
  ~naming() { setlocale(LC_ALL, "C"); }
  void run() { const timepunct german("xx_DE"); }
  void check(bool) { CHECK_TEXT(setlocale(LC_ALL, 0), "xx_FR"); }
};

int main() {
  test_classic();
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", timepunct("no such locale"));
  if (named_locales_setup()) {
    test_named();
    CHECK(fail_each_allocation<naming>() >= 36);
  } else {
    fprintf(stderr, "skipped: there is no localedef\n");
  }
  return TEST_RESULT();
}

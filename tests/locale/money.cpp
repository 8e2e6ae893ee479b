// money_put and money_get: rows of data/money, amounts of any length, real locales, buffers and facets that fail.
// peer/money_time has random layouts.
// test-variants: -O1 | -O2 -std=gnu++17

#include <limits>
#include <locale>
#include <typeinfo>

#include "../buffers.h"
#include "../fail_allocation.h"
#include "../rows.h"
#include "locale_check.h"
#include "money_texts.h"
#include "named_locales.h"

using std::ios_base;
using std::string;

static const money_rules usual = {"$-0v", "$", "", "-", "\3", 2};

static std::locale with(const money_rules &rules) {
  return std::locale(std::locale(std::locale::classic(), new chosen_money<false>(rules)),
                     new chosen_money<true>(rules));
}

static void table() {
  int count = 0;
  for (rows row(__FILE__, "data/money"); row.next(); ++count) {
    int flags = 0;
    for (int i = 0; i < 4; ++i)
      if (row[8].find("bilr"[i]) != string::npos)
        flags |= i == 0 ? ios_base::showbase : i == 1 ? ios_base::internal : i == 2 ? ios_base::left : ios_base::right;
    const money_rules rules = {row[1].c_str(), row[2].c_str(), row[3].c_str(),
                               row[4].c_str(), row[5].c_str(), row.number(6)};
    money_stream stream(with(rules), flags);
    const bool puts = row[0] == "put";
    CHECK_TEXT((puts ? money_text(stream, false, row[7], row.number(9)) : money_read(stream, false, row[7])).c_str(),
               row[10].c_str());
    CHECK_INT(stream.width(), 0);
  }
  CHECK_INT(count, 56);
  const money_rules endless = {"v$-0", "", "", "", "\1\0", 126};
  money_stream stream(with(endless));
  CHECK_INT(money_text(stream, false, string("1")).size(), 128);
}

static void test_numbers() {
  money_stream stream(with(usual));
  CHECK_TEXT(money_text(stream, false, -1234.5L).c_str(), "-12.34");
  CHECK_TEXT(money_text(stream, true, 0.4L).c_str(), "0.00");
  CHECK_TEXT(money_text(stream, false, std::numeric_limits<long double>::infinity()).c_str(), "");
  const string greatest = money_text(stream, false, std::numeric_limits<long double>::max());
  CHECK_INT(greatest.size(), 4933 + 1 + (4931 - 1) / 3);
  ios_base::iostate err = ios_base::goodbit;
  long double value = 0;
  money_reader().get(greatest.data(), greatest.data() + greatest.size(), false, stream, err, value);
  CHECK(value == std::numeric_limits<long double>::max() && err == ios_base::eofbit);
  const char bad[] = "12.3";
  err = ios_base::goodbit;
  value = 7;
  money_reader().get(bad, bad + 4, false, stream, err, value);
  CHECK(value == 7 && err == (ios_base::failbit | ios_base::eofbit));
  // Amounts that no number holds.
  const string nines(30000, '9');
  CHECK_TEXT(money_read(stream, false, money_text(stream, false, nines)).c_str(), (nines + ".").c_str());
}

static string put_named(const char *name, bool intl, const char *digits) {
  money_stream stream((std::locale(name)), ios_base::showbase);
  const string text = money_text(stream, intl, string(digits));
  CHECK_TEXT(money_read(stream, intl, text).c_str(), (string(digits) + ".").c_str());
  return text;
}

static void test_named() {
  CHECK_TEXT(put_named("xx_DE", false, "-123456789").c_str(), "-1.234.567,89 Eur");
  CHECK_TEXT(put_named("xx_DE", true, "123456").c_str(), "EUR 1.234,56");
  CHECK_TEXT(put_named("xx_FR", false, "12345").c_str(), "123,45 \xE2\x82\xAC");
  CHECK_TEXT(put_named("xx_IN", true, "-12345678900").c_str(), "INR -12,34,56,789.00");
  CHECK_TEXT(put_named("xx_JP", false, "-1234567").c_str(), "\xEF\xBF\xA5-1,234,567");
  CHECK_TEXT(put_named("xx_JP", true, "5").c_str(), "JPY 5");
  // Read by the negative format, written by another: the Indian locale's own texts of positive amounts are no input.
  money_stream indian(std::locale("xx_IN"), ios_base::showbase);
  CHECK_TEXT(money_text(indian, false, string("-5")).c_str(), "-Rs0.05()");
  CHECK_TEXT(money_text(indian, false, string("5")).c_str(), "Rs+ 0.05");
  CHECK_TEXT(money_read(indian, false, "-Rs0.05()").c_str(), "-5.");
}

static void test_classic() {
  money_stream stream(std::locale::classic(), ios_base::showbase);
  CHECK_TEXT(money_text(stream, false, string("12345")).c_str(), "12345");
  CHECK_TEXT(money_read(stream, true, "12345.6").c_str(), "12345.6");
  // Facets over pointers are the library's too, but in no locale.
  typedef std::money_put<char, char *> pointer_put;
  CHECK_THROWS(std::bad_cast, "Facet not present\n", std::use_facet<pointer_put>(std::locale::classic()));
}

static void test_failing_buffers() {
  const std::locale loc = with(usual);
  const std::money_put<char> &writer = std::use_facet<std::money_put<char> >(loc);
  const std::money_get<char> &reader = std::use_facet<std::money_get<char> >(loc);
  money_stream stream(loc);
  for (int n = 0; n < 6; ++n) {
    const long before = live_blocks;
    {
      scripted full, angry, source("123.45");
      string digits = "kept";
      ios_base::iostate err = ios_base::goodbit;
      int caught = 0;
      full.let_fail(overflows, n, false), angry.let_fail(overflows, n, true), source.let_fail(underflows, n, true);
      CHECK(writer.put(&full, false, stream, ' ', string("12345")).failed() && int(full.taken().size()) == n);
      for (int how = 0; how < 2; ++how) try {
          if (how == 0) writer.put(&angry, false, stream, ' ', 12345.0L);
          if (how == 1) reader.get(&source, std::istreambuf_iterator<char>(), false, stream, err, digits);
        } catch (const thrown &) {
          ++caught;
        }
      CHECK(caught == 2 && digits == "kept");
    }
    CHECK_INT(live_blocks, before);
  }
}

// Facets whose n-th operation throws.
static int operations_left;
struct throwing : chosen_money<false> {
  throwing() : chosen_money<false>(usual) {}

protected:
  static void note() {
    if (--operations_left == 0) throw 7;
  }
  char do_decimal_point() const { return note(), '.'; }
  char do_thousands_sep() const { return note(), ','; }
  string do_grouping() const { return note(), string(100, '\3'); }
  string do_curr_symbol() const { return note(), string(100, '$'); }
  string do_positive_sign() const { return note(), string(); }
  string do_negative_sign() const { return note(), string(100, '-'); }
  int do_frac_digits() const { return note(), 2; }
  pattern do_pos_format() const { return note(), chosen_money<false>::do_pos_format(); }
  pattern do_neg_format() const { return note(), chosen_money<false>::do_neg_format(); }
};

static void test_throwing_facets() {
  money_stream stream(std::locale(std::locale::classic(), new throwing), ios_base::showbase);
  const string amount = "-123456";
  operations_left = 0;
  const string text = money_text(stream, false, amount);
  for (int n = 1; n < 12; ++n) {
    const long before = live_blocks;
    for (int way = 0; way < 2; ++way) {
      operations_left = n;
      bool caught = false;
      try {
        if (way == 0) money_text(stream, false, amount);
        if (way == 1) money_read(stream, false, text);
      } catch (int) {
        caught = true;
      }
      CHECK(caught == (operations_left <= 0));
    }
    CHECK_INT(live_blocks, before);
  }
}

struct working {
  std::locale loc;
  working() : loc(with(usual)) {}
  void run() {
    money_stream stream(loc, ios_base::showbase);
    const string text = money_text(stream, false, string(100, '1'));
    CHECK_TEXT(money_read(stream, false, text).c_str(), (string(100, '1') + ".").c_str());
  }
  void check(bool) {}
};

int main() {
  table();
  test_numbers();
  test_classic();
  test_failing_buffers();
  test_throwing_facets();
  CHECK(fail_each_allocation<working>() >= 3);
  if (named_locales_setup())
    test_named();
  else
    fprintf(stderr, "skipped: there is no localedef\n");
  return TEST_RESULT();
}

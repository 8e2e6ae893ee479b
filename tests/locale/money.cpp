// money_put and money_get: layouts, signs of several characters, amounts of any length, what is optional on input, real
// locales, round trips through every pattern, buffers and facets that fail.
// test-variants: -O1 | -O2 -std=gnu++17

#include <algorithm>
#include <limits>
#include <locale>
#include <streambuf>
#include <typeinfo>

#include "../fail_allocation.h"
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

static string put(const money_rules &rules, const char *digits, int flags = ios_base::showbase, int width = 0) {
  money_stream stream(with(rules), flags);
  const string text = money_text(stream, false, string(digits), width);
  CHECK_INT(stream.width(), 0);
  return text;
}

static string get(const money_rules &rules, const char *text, int flags = 0) {
  money_stream stream(with(rules), flags);
  return money_read(stream, false, text);
}

static void test_put() {
  CHECK_TEXT(put(usual, "123456789").c_str(), "$1,234,567.89");
  CHECK_TEXT(put(usual, "-123456", 0).c_str(), "-1,234.56");
  CHECK_TEXT(put(usual, "12").c_str(), "$0.12");
  CHECK_TEXT(put(usual, "-5").c_str(), "$-0.05");
  CHECK_TEXT(put(usual, "100x99").c_str(), "$1.00");
  // Without digits nothing is written, but the width is used up.
  CHECK_TEXT(put(usual, "", ios_base::showbase, 9).c_str(), "");
  CHECK_TEXT(put(usual, "-x").c_str(), "");
  // The rest of a sign comes last.
  const money_rules brackets = {"-$ v", "L", "", "(<>)", "\3\2", 2};
  CHECK_TEXT(put(brackets, "-1234567890").c_str(), "(L 1,23,45,678.90<>)");
  CHECK_TEXT(put(brackets, "7").c_str(), "L 0.07");
  // Fill: at the place of space or nothing, behind, in front.
  CHECK_TEXT(put(usual, "-123", ios_base::showbase | ios_base::internal, 10).c_str(), "$-****1.23");
  CHECK_TEXT(put(brackets, "-123", ios_base::showbase | ios_base::internal, 13).c_str(), "(L ***1.23<>)");
  CHECK_TEXT(put(usual, "123", ios_base::left, 7).c_str(), "1.23***");
  CHECK_TEXT(put(usual, "123", ios_base::right, 7).c_str(), "***1.23");
  CHECK_TEXT(put(usual, "123", 0, 7).c_str(), "***1.23");
  // What is no number of decimals, and sizes that end grouping.
  const int odd[] = {0, -1, 127, 2000000000};
  for (int i = 0; i < 4; ++i) {
    const money_rules rules = {"v$-0", "", "", "", "\2\177", odd[i]};
    CHECK_TEXT(put(rules, "1234567").c_str(), "12345,67");
  }
  const money_rules endless = {"v$-0", "", "", "", "\1\0", 126};
  CHECK_INT(put(endless, "1").size(), 128);
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

static void test_get() {
  CHECK_TEXT(get(usual, "$1,056.23").c_str(), "105623.");
  CHECK_TEXT(get(usual, "-1056.23 rest").c_str(), "-105623 rest");
  CHECK_TEXT(get(usual, "$-000.05").c_str(), "-5.");
  CHECK_TEXT(get(usual, "-0.00").c_str(), "0.");
  CHECK_TEXT(get(usual, ".50").c_str(), "50.");
  CHECK_TEXT(get(usual, "1056").c_str(), "1056.");
  CHECK_TEXT(get(usual, "  12.00").c_str(), "1200.");  // space where the pattern has nothing
  const money_rules open_end = {"$-v0", "$", "", "-", "", 2};
  CHECK_TEXT(get(open_end, "12.00  rest").c_str(), "1200  rest");  // and not behind it
  // Decimals are as many as there must be; a second point ends the amount.
  CHECK_TEXT(get(usual, "10.5").c_str(), "?!.");
  CHECK_TEXT(get(usual, "10.567").c_str(), "?!.");
  CHECK_TEXT(get(usual, "10.50.1").c_str(), "1050.1");
  // Groups are optional, and right if there are any.
  CHECK_TEXT(get(usual, "1,234,567.00").c_str(), "123456700.");
  CHECK_TEXT(get(usual, "1,23.00").c_str(), "?!.");
  CHECK_TEXT(get(usual, "1234,567.00").c_str(), "?!.");
  CHECK_TEXT(get(usual, ",123.00").c_str(), "?!,123.00");
  CHECK_TEXT(get(usual, "1,,234").c_str(), "?!,234");
  CHECK_TEXT(get(usual, "1,234,").c_str(), "?!.");
  const money_rules plain = {"$-0v", "$", "", "-", "", 0}, indian = {"$-0v", "$", "", "-", "\3\2", 0};
  CHECK_TEXT(get(plain, "1,234").c_str(), "1,234");
  CHECK_TEXT(get(plain, "1.5").c_str(), "1.5");
  CHECK_TEXT(get(indian, "12,34,567").c_str(), "1234567.");
  CHECK_TEXT(get(indian, "1,234,567").c_str(), "?!.");
  // The symbol: required with showbase, and whole once it began.
  CHECK_TEXT(get(usual, "1.00", ios_base::showbase).c_str(), "?!1.00");
  CHECK_TEXT(get(usual, "").c_str(), "?!.");
  const money_rules long_symbol = {"$-0v", "USD", "", "-", "", 0};
  CHECK_TEXT(get(long_symbol, "US5").c_str(), "?!5");
  // Signs: optional when one is empty, which then is the amount's; required otherwise; equal ones are positive.
  const money_rules both = {"-$0v", "", "+", "-", "", 0}, no_minus = {"-$0v", "", "+", "", "", 0},
                    equal = {"-$0v", "", "(+)", "(-)", "", 0};
  CHECK_TEXT(get(both, "5").c_str(), "?!5");
  CHECK_TEXT(get(both, "-5").c_str(), "-5.");
  CHECK_TEXT(get(no_minus, "5").c_str(), "-5.");
  CHECK_TEXT(get(no_minus, "+5").c_str(), "5.");
  CHECK_TEXT(get(equal, "(5+)").c_str(), "5.");
  CHECK_TEXT(get(equal, "(5-)").c_str(), "?!-)");
  // The standard's example: the symbol is read only where more must follow.
  const money_rules brackets = {"-v $", "L", "", "()", "", 0}, dash = {"-v $", "L", "", "-", "", 0};
  CHECK_TEXT(get(brackets, "(100 L)").c_str(), "-100.");
  CHECK_TEXT(get(brackets, "(100 )").c_str(), "-100.");
  CHECK_TEXT(get(brackets, "(100 L").c_str(), "?!.");
  CHECK_TEXT(get(dash, "-100 L").c_str(), "-100L");
  CHECK_TEXT(get(dash, "-100L").c_str(), "?!L");
}

// Every order of the parts that has a space or nothing between others, signs of zero to three characters.
static void test_round_trips() {
  static const char *const signs[][2] = {{"", "-"}, {"+", "-"}, {"", "()"}, {"+", "(cr"}, {"p", ""}};
  string order = " $-v";
  int count = 0;
  do {
    if (order[0] == ' ' || order[3] == ' ') continue;
    for (int i = 0; i < 40; ++i) {
      string pattern = order;
      if (i >= 20) pattern[order.find(' ')] = '0';
      const money_rules rules = {pattern.c_str(),     i & 1 ? "USD" : "$", signs[i / 4 % 5][0],
                                 signs[i / 4 % 5][1], i & 2 ? "\3" : "",   i % 3};
      static const char *const amounts[] = {"0", "7", "-7", "123456", "-1234567890123456789012345"};
      for (int k = 0; k < 5; ++k) {
        money_stream stream(with(rules), ios_base::showbase);
        const string text = money_text(stream, k & 1, string(amounts[k]));
        CHECK_TEXT(money_read(stream, k & 1, text).c_str(), (string(amounts[k]) + ".").c_str());
        ++count;
      }
    }
  } while (std::next_permutation(order.begin(), order.end()));
  CHECK_INT(count, 12 * 200);
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

// A buffer that takes or gives `left` characters, then fails or throws.
struct failing : std::streambuf {
  string text;
  size_t left;
  bool throws;
  failing(size_t n, bool by_exception, const string &of = "") : text(of), left(n), throws(by_exception) {
    if (!text.empty()) setg(&text[0], &text[0], &text[0] + left);
  }

protected:
  int_type overflow(int_type c) {
    if (left-- == 0) {
      left = 0;
      if (throws) throw 7;
      return -1;
    }
    text += char(c);
    return c;
  }
  int_type underflow() {
    if (throws) throw 7;
    return -1;
  }
};

static void test_failing_buffers() {
  const std::locale loc = with(usual);
  const std::money_put<char> &writer = std::use_facet<std::money_put<char> >(loc);
  const std::money_get<char> &reader = std::use_facet<std::money_get<char> >(loc);
  money_stream stream(loc);
  for (size_t n = 0; n < 6; ++n) {
    const long before = live_blocks;
    {
      failing full(n, false), angry(n, true);
      CHECK(writer.put(&full, false, stream, ' ', string("12345")).failed() && full.text.size() == n);
      bool caught = false;
      try {
        writer.put(&angry, false, stream, ' ', 12345.0L);
      } catch (int) {
        caught = true;
      }
      failing source(n, true, "123.45");
      string digits = "kept";
      ios_base::iostate err = ios_base::goodbit;
      try {
        reader.get(&source, std::istreambuf_iterator<char>(), false, stream, err, digits);
      } catch (int) {
        caught = caught && true;
      }
      CHECK(caught && digits == "kept");
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
  test_put();
  test_numbers();
  test_get();
  test_round_trips();
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

// money_put and money_get: rows of data/money, amounts of any length, real locales, buffers and facets that fail.
// peer/money has random layouts.
// test-variants: -O1 | -O2 -std=gnu++17
#include <limits>

#include "../fail_allocation.h"
#include "locale_check.h"
#include "money_texts.h"

using std::ios_base;
using std::string;

static const money_rules usual = {"$-0v", "$", "", "-", "\3", 2, 0};

// Named locales are those of "xx_DE" and the like; flags and an I ask for the international form.
static void table(bool by_name) {
  int count = 0;
  for (rows row(__FILE__, "data/money"); row.next(); ++count) {
    static const int bits[] = {ios_base::showbase, ios_base::internal, ios_base::left, ios_base::right};
    int flags = 0;
    for (int i = 0; i < 4; ++i)
      if (row[8].find("bilr"[i]) != string::npos) flags |= bits[i];
    const bool named = row[1].size() > 4, intl = row[8].find('I') != string::npos;
    if (named && !by_name) continue;
    const money_rules rules = {
        row[1].c_str(), row[2].c_str(), row[3].c_str(), row[4].c_str(), row[5].c_str(), row.number(6), 0};
    money_stream stream(named ? std::locale(row[1].c_str()) : with_money(rules), flags);
    const string got =
        row[0] == "put" ? money_text(stream, intl, row[7], row.number(9)) : money_read(stream, intl, row[7]);
    CHECK_TEXT(got.c_str(), row[10].c_str());
    CHECK_INT(stream.width(), 0);
  }
  CHECK(count == 81 || !by_name);
}

static void numbers() {
  money_stream stream(with_money(usual));
  const long double greatest = std::numeric_limits<long double>::max();
  const long double endless = std::numeric_limits<long double>::infinity();
  CHECK(money_text(stream, false, -1234.5L) == "-12.34" && money_text(stream, true, 0.4L) == "0.00" &&
        money_text(stream, false, endless) == "");
  const string all = money_text(stream, false, greatest);
  CHECK_INT(all.size(), 4933 + 1 + (4931 - 1) / 3);
  for (int i = 0; i < 2; ++i) {
    const string text = i ? "12.3" : all;
    ios_base::iostate err = ios_base::goodbit;
    long double value = 7;
    own_facet<std::money_get<char, const char *> >().get(text.data(), text.data() + text.size(), false, stream, err,
                                                         value);
    CHECK(value == (i ? 7 : greatest) && err == (i ? ios_base::failbit | ios_base::eofbit : ios_base::eofbit));
  }
  // Amounts that no number holds, and decimals without an end.
  const string nines(30000, '9');
  CHECK_TEXT(money_read(stream, false, money_text(stream, false, nines)).c_str(), (nines + ".").c_str());
  const money_rules decimals = {"v$-0", "", "", "", "\1", 126, 0};
  money_stream many(with_money(decimals));
  CHECK_INT(money_text(many, false, string("1")).size(), 128);
  // Facets over pointers are the library's too, but in no locale.
  CHECK((!std::has_facet<std::money_put<char, char *> >(std::locale::classic())));
}

// Where the n-th character is refused, and where the n-th operation of the punctuation throws: nothing is lost.
static int operations_left;
static void note() {
  if (--operations_left == 0) throw thrown();
}
static void failing() {
  const string grouping(100, '\3'), symbol(100, '$'), minus(100, '-');
  const money_rules long_ones = {"$-0v", symbol.c_str(), "", minus.c_str(), grouping.c_str(), 2, note};
  const std::locale loc = with_money(usual);
  const std::money_put<char> &writer = std::use_facet<std::money_put<char> >(loc);
  const std::money_get<char> &reader = std::use_facet<std::money_get<char> >(loc);
  money_stream stream(loc), other(with_money(long_ones), ios_base::showbase);
  const string amount = "-123456", text = money_text(other, false, amount);
  for (int n = 0; n < 12; ++n) {
    const long before = live_blocks;
    for (int way = 0; way < 5; ++way) {
      scripted to, source("123.45");
      string digits = "kept";
      ios_base::iostate err = ios_base::goodbit;
      to.let_fail(overflows, n, way == 0);
      source.let_fail(underflows, n, true);
      operations_left = n;
      bool caught = false;
      try {
        if (way == 0) writer.put(&to, false, stream, ' ', 12345.0L);
        if (way == 1) reader.get(&source, std::istreambuf_iterator<char>(), false, stream, err, digits);
        if (way == 2) money_text(other, false, amount);
        if (way == 3) money_read(other, false, text);
        if (way == 4) caught = writer.put(&to, false, stream, ' ', string("12345")).failed();
      } catch (const thrown &) { caught = true; }
      CHECK(caught == (way % 4 == 0 ? n < 6 : way == 1 ? n < 7 : n > 0 && operations_left <= 0));
      CHECK(way != 1 || (digits == "kept") == caught);
      CHECK(way % 4 != 0 || to.taken() == string("123.45").substr(0, n));
    }
    CHECK(live_blocks == before && thrown::live == 0);
  }
}

struct working {
  std::locale loc;
  working() : loc(with_money(usual)) {}
  void run() {
    money_stream stream(loc, ios_base::showbase);
    const string text = money_text(stream, false, string(100, '1'));
    CHECK_TEXT(money_read(stream, false, text).c_str(), (string(100, '1') + ".").c_str());
  }
  void check(bool) {}
};

int main() {
  table(named_locales_setup());
  numbers();
  failing();
  CHECK(fail_each_allocation<working>() >= 3);
  return TEST_RESULT();
}

// numpunct and moneypunct: the values of each of the C library's locales are those of its localeconv, patterns are
// those that its fields mean; names that are refused, the C library's locale afterwards, and memory that runs out.
// money_put and money_get: rows of data/money, amounts of any length, real locales, full buffers.
// test-variants: -O1 | -O2 -std=gnu++17
#include <float.h>

#include "../fail_allocation.h"
#include "locale_check.h"

using std::ios_base;
using std::string;

// ---- Punctuation

typedef own_facet<std::numpunct<char> > numbers;
typedef own_facet<std::moneypunct_byname<char, false> > money;
typedef own_facet<std::moneypunct_byname<char, true> > international;

static string shown(const std::money_base::pattern &pattern) { return string(pattern.field, 4); }

// Values, then both signs and patterns.
template <bool Intl> static string described(const std::moneypunct<char, Intl> &facet) {
  char values[20];
  sprintf(values, "%d,%d,%d ", facet.decimal_point(), facet.thousands_sep(), facet.frac_digits());
  return values + facet.curr_symbol() + ' ' + facet.grouping() + ' ' + facet.positive_sign() + ' ' +
         facet.negative_sign() + ' ' + shown(facet.pos_format()) + ' ' + shown(facet.neg_format());
}

static string described(const std::numpunct<char> &facet) {
  char values[20];
  sprintf(values, "%d,%d ", facet.decimal_point(), facet.thousands_sep());
  return values + facet.grouping() + ' ' + facet.truename() + ' ' + facet.falsename();
}

// The values are those of localeconv: of a separator of several bytes the first, and without a name the present ones.
static void check_numbers(const char *name) {
  const std::locale loc(name), by_name(std::locale::classic(), new std::numpunct_byname<char>(name));
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  setlocale(LC_ALL, name);
  const lconv &c = *localeconv();
  char values[40];
  sprintf(values, "%d,%d %s true false", *c.decimal_point, *c.thousands_sep, c.grouping);
  const numbers alone(name), present(static_cast<const char *>(0));
  const std::numpunct<char> *const all[] = {&std::use_facet<std::numpunct<char> >(loc), &alone, &present,
                                            &std::use_facet<std::numpunct<char> >(by_name)};
  for (int i = 0; i < 4; ++i) CHECK_TEXT(described(*all[i]).c_str(), values);
  setlocale(LC_ALL, "C");
}

static void punctuation() {
  for (rows row(__FILE__, "data/patterns"); row.next();)
    for (int i = 0; i < 8; ++i) {
      bool paren = i != 0;
      const std::money_base::pattern got = std::money_base::get_pat(row.number(0), row.number(1), char(i), paren);
      CHECK(shown(got) == row[2 + i] && paren == (i == 0));
    }
  CHECK_TEXT(shown(std::money_base::get_pat()).c_str(), "?-0v");
  // In "C" nothing of money is said; what a program derives from has points, and no decimals.
  CHECK_TEXT(described(std::use_facet<std::moneypunct<char> >(std::locale::classic())).c_str(),
             "0,0,127     ?-0v ?-0v");
  CHECK_TEXT(described(own_facet<std::moneypunct<char, false> >()).c_str(), "46,44,0     ?-0v ?-0v");
  CHECK_TEXT(described(own_facet<std::moneypunct<char, true> >()).c_str(), "46,44,0     ?-0v ?-0v");
  CHECK_TEXT(described(std::use_facet<std::numpunct<char> >(std::locale::classic())).c_str(), "46,0  true false");
  CHECK_TEXT(described(numbers()).c_str(), "46,44  true false");
  check_numbers("xx_DE"), check_numbers("xx_FR"), check_numbers("xx_IN"), check_numbers("xx_JP");
  // A sign in parentheses is followed by "()"; the international form has one pattern.
  CHECK_TEXT(described(money("xx_IN")).c_str(), "46,44,2 Rs \3\2 + -() ?- v -?0v");
  CHECK_TEXT(described(international("xx_FR")).c_str(), "44,-30,3 EUR  \3  - ?-0v ?-0v");
  CHECK(fail_each_allocation<naming<numbers> >() >= 3 && fail_each_allocation<naming<money> >() >= 3 &&
        fail_each_allocation<naming<international> >() >= 3);
}

// ---- Amounts

struct money_rules {
  const char *pattern, *symbol, *plus, *minus, *grouping;
  int decimals;
};

template <bool Intl> struct chosen_money : std::moneypunct<char, Intl> {
  explicit chosen_money(const money_rules &by) : rules(by) {}
  const money_rules rules;
  char do_decimal_point() const { return '.'; }
  char do_thousands_sep() const { return ','; }
  string do_grouping() const { return rules.grouping; }
  string do_curr_symbol() const { return rules.symbol; }
  string do_positive_sign() const { return rules.plus; }
  string do_negative_sign() const { return rules.minus; }
  int do_frac_digits() const { return rules.decimals; }
  std::money_base::pattern do_pos_format() const {
    std::money_base::pattern made;
    memcpy(made.field, rules.pattern, 4);
    return made;
  }
  std::money_base::pattern do_neg_format() const { return do_pos_format(); }
};
static std::locale with_money(const money_rules &rules) {
  return std::locale(std::locale(std::locale::classic(), new chosen_money<false>(rules)),
                     new chosen_money<true>(rules));
}

struct money_stream : std::ios {
  explicit money_stream(const std::locale &loc, fmtflags wanted = fmtflags(0)) : std::ios(0) {
    imbue(loc), flags(wanted);
  }
};

// Over strings.
template <class Amount> static string money_text(std::ios &stream, bool intl, const Amount &amount, int width = 0) {
  typedef std::back_insert_iterator<string> iterator;
  string text;
  stream.width(width);
  own_facet<std::money_put<char, iterator> >().put(iterator(text), intl, stream, '*', amount);
  return text;
}

struct amount_reading {
  std::ios *stream;
  bool intl;
  string digits;
  template <class Iterator> Iterator read(Iterator in, Iterator end, ios_base::iostate &err) {
    return own_facet<std::money_get<char, Iterator> >().get(in, end, intl, *stream, err, digits);
  }
  bool same(const amount_reading &other) const { return digits == other.digits; }
};

// "digits" or "!" for failure, then '.' when the input ended, then what was left.
static string money_read(std::ios &stream, bool intl, const string &text) {
  amount_reading got = {&stream, intl, "?"};
  int err;
  const string left = read_all_ways(text, 1 + random_below(9), got, err);
  const bool failed = (err & ios_base::failbit) != 0;
  must(failed == (got.digits == "?") && left.empty() == ((err & ios_base::eofbit) != 0), "not stored", text);
  return got.digits + (failed ? "!" : "") + (left.empty() ? "." : "") + left;
}

static const money_rules usual = {"?-0v", "$", "", "-", "\3", 2};

// Named locales are those of "xx_DE" and the like; flags and an I ask for the international form.
static void table() {
  for (rows row(__FILE__, "data/money"); row.next();) {
    const bool named = row[1].size() > 4, intl = row[8].find('I') != string::npos;
    const money_rules rules = {row[1].c_str(), row[2].c_str(), row[3].c_str(),
                               row[4].c_str(), row[5].c_str(), row.number(6)};
    money_stream stream(named ? std::locale(row[1].c_str()) : with_money(rules), flags_of(row[8]));
    const string got =
        row[0] == "put" ? money_text(stream, intl, row[7], row.number(9)) : money_read(stream, intl, row[7]);
    if (row[10] == "!")
      CHECK(got.find('!') != string::npos);
    else
      CHECK_TEXT(got.c_str(), row[10].c_str());
    CHECK_INT(stream.width(), 0);
  }
}

static void amounts() {
  money_stream stream(with_money(usual));
  const long double greatest = LDBL_MAX;
  CHECK(money_text(stream, false, -1234.5L) == "-12.34" && money_text(stream, true, 0.4L) == "0.00" &&
        money_text(stream, false, greatest * 2) == "");
  const string all = money_text(stream, false, greatest);
  CHECK_INT(all.size(), 4933 + 1 + (4931 - 1) / 3);
  for (int i = 0; i < 2; ++i) {
    const char *const text = i ? "12.3" : all.c_str();
    ios_base::iostate err = ios_base::goodbit;
    long double value = 7;
    own_facet<std::money_get<char, const char *> >().get(text, text + strlen(text), false, stream, err, value);
    CHECK(value == (i ? 7 : greatest) && err == (i ? ios_base::failbit | ios_base::eofbit : ios_base::eofbit));
  }
  // Amounts that no number holds, and decimals without an end.
  const string nines(30000, '9');
  CHECK_TEXT(money_read(stream, false, money_text(stream, false, nines)).c_str(), (nines + ".").c_str());
  const money_rules decimals = {"v?-0", "", "", "", "\1", 126};
  money_stream many(with_money(decimals));
  CHECK_INT(money_text(many, false, string("1")).size(), 128);
  for (int n = 0; n < 8; ++n) {  // where the buffer is full
    scripted to;
    to.most = n;
    const std::money_put<char> &writer = std::use_facet<std::money_put<char> >(std::locale());
    CHECK(writer.put(&to, false, stream, ' ', string("12345")).failed() == (n < 6));
    CHECK(to.taken() == string("123.45").substr(0, n));
  }
  // Facets over pointers are the library's too, but in no locale.
  CHECK((!std::has_facet<std::money_put<char, char *> >(std::locale::classic())));
}

int main() {
  if (!named_locales_setup()) return TEST_SKIP;
  punctuation();
  table();
  amounts();
  return TEST_RESULT();
}

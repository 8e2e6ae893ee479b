// numpunct and moneypunct: the values of each of the C library's locales are those of its localeconv, patterns are
// those that its fields mean; names that are refused, the C library's locale afterwards, and memory that runs out.
// data/money has amounts in each locale.

#include "../fail_allocation.h"
#include "locale_check.h"

using std::string;
typedef own_facet<std::numpunct<char> > numbers;
typedef own_facet<std::moneypunct_byname<char, false> > money;
typedef own_facet<std::moneypunct_byname<char, true> > international;

static string shown(const std::money_base::pattern &pattern) { return string(pattern.field, 4); }

// By cs_precedes and sep_by_space, then by sign_posn from 0 on.
static const char *const patterns[4][8] = {{"-v0?", "-v0?", "v0?-", "v0-?", "v0?-", "-v0?", "v0?-", "v0-?"},
                                           {"-v ?", "-v ?", "v ?-", "v -?", "v ?-", "-v ?", "v ?-", "v -?"},
                                           {"-?0v", "-?0v", "?0v-", "-?0v", "?-0v", "-?0v", "?0v-", "-?0v"},
                                           {"-? v", "-? v", "? v-", "-? v", "?- v", "-? v", "? v-", "-? v"}};

// Values, then both signs and patterns.
template <bool Intl> static string described(const std::moneypunct<char, Intl> &facet) {
  char values[20];
  sprintf(values, "%d,%d,%d ", facet.decimal_point(), facet.thousands_sep(), facet.frac_digits());
  return values + facet.curr_symbol() + ' ' + facet.grouping() + ' ' + facet.positive_sign() + ' ' +
         facet.negative_sign() + ' ' + shown(facet.pos_format()) + ' ' + shown(facet.neg_format());
}

static void check(const std::numpunct<char> &facet, char point, char separator, const string &sizes) {
  CHECK(facet.decimal_point() == point && facet.thousands_sep() == separator && facet.grouping() == sizes);
  CHECK(facet.truename() == "true" && facet.falsename() == "false");
}

// Of a separator of several bytes the first is used; without a name the C library's present locale is.
static void check_locale(const char *name) {
  const std::locale loc(name), by_name(std::locale::classic(), new std::numpunct_byname<char>(name));
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  setlocale(LC_ALL, name);
  const lconv &c = *localeconv();
  check(std::use_facet<std::numpunct<char> >(loc), *c.decimal_point, *c.thousands_sep, c.grouping);
  check(std::use_facet<std::numpunct<char> >(by_name), *c.decimal_point, *c.thousands_sep, c.grouping);
  check(numbers(name), *c.decimal_point, *c.thousands_sep, c.grouping);
  check(numbers(static_cast<const char *>(0)), *c.decimal_point, *c.thousands_sep, c.grouping);
  setlocale(LC_ALL, "C");
}

int main() {
  for (int i = 0; i < 32; ++i) {
    bool paren = i % 8 != 0;
    CHECK_TEXT(shown(std::money_base::get_pat(i / 16, i / 8 % 2, i % 8, paren)).c_str(), patterns[i / 8][i % 8]);
    CHECK(paren == (i % 8 == 0));
  }
  CHECK_TEXT(shown(std::money_base::get_pat()).c_str(), "?-0v");
  // In "C" nothing of money is said; what a program derives from has points, and no decimals.
  CHECK_TEXT(described(std::use_facet<std::moneypunct<char> >(std::locale::classic())).c_str(),
             "0,0,127     ?-0v ?-0v");
  CHECK_TEXT(described(own_facet<std::moneypunct<char, false> >()).c_str(), "46,44,0     ?-0v ?-0v");
  CHECK_TEXT(described(own_facet<std::moneypunct<char, true> >()).c_str(), "46,44,0     ?-0v ?-0v");
  check(std::use_facet<std::numpunct<char> >(std::locale::classic()), '.', 0, "");
  check(numbers(), '.', ',', "");
  if (!named_locales_setup()) return TEST_RESULT();
  check_locale("xx_DE"), check_locale("xx_FR"), check_locale("xx_IN"), check_locale("xx_JP");
  // A sign in parentheses is followed by "()"; the international form has one pattern.
  CHECK_TEXT(described(money("xx_IN")).c_str(), "46,44,2 Rs \3\2 + -() ?- v -?0v");
  CHECK_TEXT(described(international("xx_FR")).c_str(), "44,-30,3 EUR  \3  - ?-0v ?-0v");
  CHECK(fail_each_allocation<naming<numbers> >() >= 3 && fail_each_allocation<naming<money> >() >= 3 &&
        fail_each_allocation<naming<international> >() >= 3);
  return TEST_RESULT();
}

// numpunct and moneypunct: the values of each of the C library's locales are those of its localeconv, patterns are
// those that its fields mean; names that are refused, the C library's locale afterwards, and memory that runs out.
#include <locale.h>

#include <locale>
#include <stdexcept>
#include <string>

#include "../fail_allocation.h"
#include "locale_check.h"
#include "named_locales.h"

template <class Base> struct own : Base {  // its destructor is anybody's
  own() {}
  explicit own(const char *name) : Base(name) {}
};
typedef own<std::numpunct<char> > numbers;
template <bool Intl> struct money { typedef own<std::moneypunct_byname<char, Intl> > type; };

static std::string shown(const std::money_base::pattern &pattern) { return std::string(pattern.field, 4); }

// By cs_precedes and sep_by_space, then by sign_posn from 0 on.
static const char *const patterns[4][8] = {{"-v0?", "-v0?", "v0?-", "v0-?", "v0?-", "-v0?", "v0?-", "v0-?"},
                                           {"-v ?", "-v ?", "v ?-", "v -?", "v ?-", "-v ?", "v ?-", "v -?"},
                                           {"-?0v", "-?0v", "?0v-", "-?0v", "?-0v", "-?0v", "?0v-", "-?0v"},
                                           {"-? v", "-? v", "? v-", "-? v", "?- v", "-? v", "? v-", "-? v"}};
static void all_patterns() {
  for (int k = 0; k < 4; ++k)
    for (int posn = 0; posn < 8; ++posn) {
      bool paren = posn != 0;
      CHECK_TEXT(shown(std::money_base::get_pat(k / 2, k % 2, posn, paren)).c_str(), patterns[k][posn]);
      CHECK(paren == (posn == 0));
    }
  CHECK_TEXT(shown(std::money_base::get_pat()).c_str(), "?-0v");
}

// 127 is what a locale leaves open; 2 a space on the sign's other side. A sign in parentheses is followed by "()".
static std::string pattern(char precedes, char space, char posn) {
  return patterns[(precedes ? 2 : 0) + (space == 1)][posn > 7 ? 4 : static_cast<int>(posn)];
}

template <bool Intl> static void check_money(const std::locale &loc, const lconv &c) {
  const std::moneypunct<char, Intl> &facet = std::use_facet<std::moneypunct<char, Intl> >(loc);
  const bool parens[] = {!Intl && c.p_sign_posn == 0, !Intl && c.n_sign_posn == 0};
  CHECK_TEXT(facet.curr_symbol().c_str(), Intl ? c.int_curr_symbol : c.currency_symbol);
  CHECK(facet.decimal_point() == *c.mon_decimal_point && facet.thousands_sep() == *c.mon_thousands_sep);
  CHECK(facet.grouping() == c.mon_grouping && facet.frac_digits() == (Intl ? c.int_frac_digits : c.frac_digits));
  CHECK(facet.positive_sign() == c.positive_sign + std::string(parens[0] ? "()" : ""));
  CHECK(facet.negative_sign() == c.negative_sign + std::string(parens[1] ? "()" : ""));
  CHECK(shown(facet.pos_format()) == (Intl ? "?-0v" : pattern(c.p_cs_precedes, c.p_sep_by_space, c.p_sign_posn)));
  CHECK(shown(facet.neg_format()) == (Intl ? "?-0v" : pattern(c.n_cs_precedes, c.n_sep_by_space, c.n_sign_posn)));
}

// Of a separator of several bytes the first is used.
static void check_locale(const char *name) {
  const std::locale loc(name);
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  setlocale(LC_ALL, name);
  const lconv &c = *localeconv();
  const std::numpunct<char> &facet = std::use_facet<std::numpunct<char> >(loc);
  const numbers alone(name), present(static_cast<const char *>(0));
  const std::numpunct<char> *const all[] = {&facet, &alone, &present};
  for (int i = 0; i < 3; ++i) {
    CHECK(all[i]->decimal_point() == *c.decimal_point && all[i]->thousands_sep() == *c.thousands_sep);
    CHECK(all[i]->grouping() == c.grouping && all[i]->truename() == "true" && all[i]->falsename() == "false");
  }
  if (strcmp(name, "C") != 0) {  // whose decimals and points are left open
    check_money<false>(loc, c);
    check_money<true>(loc, c);
  }
  const numbers beside("xx_DE");
  CHECK(beside.thousands_sep() == '.');
  CHECK_TEXT(setlocale(LC_ALL, 0), name);
  setlocale(LC_ALL, "C");
}

// In "C" nothing of money is said; what a program derives from has points, and no decimals.
template <bool Intl> static void classic() {
  const std::moneypunct<char, Intl> &c = std::use_facet<std::moneypunct<char, Intl> >(std::locale::classic());
  CHECK(c.curr_symbol().empty() && c.positive_sign().empty() && c.negative_sign().empty() && c.grouping().empty());
  CHECK(c.frac_digits() == 127 && c.decimal_point() == 0 && c.thousands_sep() == 0);
  CHECK(shown(c.pos_format()) == "?-0v" && shown(c.neg_format()) == "?-0v");
  const std::numpunct<char> &n = std::use_facet<std::numpunct<char> >(std::locale::classic());
  CHECK(n.decimal_point() == '.' && n.thousands_sep() == 0 && n.grouping() == "" && n.truename() == "true");
  const numbers usual;
  CHECK(usual.decimal_point() == '.' && usual.thousands_sep() == ',' && usual.grouping() == "" &&
        usual.falsename() == "false");
  const own<std::moneypunct<char, Intl> > derived;
  CHECK(derived.decimal_point() == '.' && derived.thousands_sep() == ',' && derived.frac_digits() == 0);
  const char *const bytes = reinterpret_cast<const char *>(static_cast<const std::moneypunct<char, Intl> *>(&derived));
  CHECK(sizeof derived == 44 && bytes[12] == '.' && bytes[13] == ',' && memcmp(bytes + 36, "?-0v?-0v", 8) == 0);
}

static void refused() {
  const std::string before = setlocale(LC_ALL, 0);
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", numbers("no such locale"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", money<true>::type("no such locale"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", money<false>::type("no such locale"));
  CHECK_TEXT(setlocale(LC_ALL, 0), before.c_str());
}

// Facets by name, made while the C library is in another locale.
template <class Facet> struct naming {
  naming() { setlocale(LC_ALL, "xx_FR"); }
  ~naming() { setlocale(LC_ALL, "C"); }
  void run() { const Facet indian("xx_IN"); }
  void check(bool) { CHECK_TEXT(setlocale(LC_ALL, 0), "xx_FR"); }
};

int main() {
  all_patterns();
  classic<false>();
  classic<true>();
  refused();
  if (!named_locales_setup()) {
    fprintf(stderr, "skipped: there is no localedef\n");
    return TEST_RESULT();
  }
  static const char *const names[] = {"C", "xx_DE", "xx_FR", "xx_IN", "xx_JP"};
  for (int i = 0; i < 5; ++i) check_locale(names[i]);
  // A mixture: its name is long, and the C library's own until the next change.
  setlocale(LC_TIME, "xx_FR");
  refused();
  { const money<false>::type german("xx_DE"); }
  setlocale(LC_ALL, "C");
  const std::locale by_name(std::locale::classic(), new std::numpunct_byname<char>("xx_DE"));
  CHECK_INT(std::use_facet<std::numpunct<char> >(by_name).decimal_point(), ',');
  CHECK(fail_each_allocation<naming<numbers> >() >= 3);
  CHECK(fail_each_allocation<naming<money<false>::type> >() >= 3);
  return TEST_RESULT();
}

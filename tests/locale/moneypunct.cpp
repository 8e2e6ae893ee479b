// moneypunct: every pattern that the C library's fields can mean, the values of real locales and of "C", names that are
// refused, the C library's locale afterwards, and memory that runs out.

#include <locale.h>
#include <string.h>

#include <locale>
#include <stdexcept>

#include "../fail_allocation.h"
#include "locale_check.h"
#include "named_locales.h"

static std::string shown(const std::money_base::pattern &pattern) { return std::string(pattern.field, 4); }

template <bool Intl> struct punctuation : std::moneypunct_byname<char, Intl> {
  explicit punctuation(const char *name) : std::moneypunct_byname<char, Intl>(name) {}
  ~punctuation() {}
};

// By cs_precedes and sep_by_space, then by sign_posn from 0 on.
static void test_patterns() {
  static const char *const table[4][8] = {
      {"-v0?", "-v0?", "v0?-", "v0-?", "v0?-", "-v0?", "v0?-", "v0-?"},
      {"-v ?", "-v ?", "v ?-", "v -?", "v ?-", "-v ?", "v ?-", "v -?"},
      {"-?0v", "-?0v", "?0v-", "-?0v", "?-0v", "-?0v", "?0v-", "-?0v"},
      {"-? v", "-? v", "? v-", "-? v", "?- v", "-? v", "? v-", "-? v"},
  };
  for (int k = 0; k < 4; ++k)
    for (int posn = 0; posn < 8; ++posn) {
      bool paren = posn != 0;
      CHECK_TEXT(shown(std::money_base::get_pat(k / 2, k % 2, posn, paren)).c_str(), table[k][posn]);
      CHECK(paren == (posn == 0));
    }
  CHECK_TEXT(shown(std::money_base::get_pat()).c_str(), "?-0v");
}

template <bool Intl> static void test_classic() {
  const std::moneypunct<char, Intl> &classic = std::use_facet<std::moneypunct<char, Intl> >(std::locale::classic());
  CHECK(classic.curr_symbol().empty() && classic.positive_sign().empty() && classic.negative_sign().empty());
  CHECK(classic.grouping().empty());
  CHECK_INT(classic.frac_digits(), 127);
  CHECK_INT(classic.decimal_point(), 0);
  CHECK_INT(classic.thousands_sep(), 0);
  CHECK_TEXT(shown(classic.pos_format()).c_str(), "?-0v");
  CHECK_TEXT(shown(classic.neg_format()).c_str(), "?-0v");
}

template <bool Intl>
static void check_named(const char *name, const char *symbol, const char *point_and_separator, const char *plus,
                        const char *minus, int decimals, const char *positive, const char *negative) {
  const std::locale loc(name);
  const std::moneypunct<char, Intl> &facet = std::use_facet<std::moneypunct<char, Intl> >(loc);
  CHECK_TEXT(facet.curr_symbol().c_str(), symbol);
  CHECK_INT(facet.decimal_point(), point_and_separator[0]);
  CHECK_INT(facet.thousands_sep(), point_and_separator[1]);
  CHECK_TEXT(facet.positive_sign().c_str(), plus);
  CHECK_TEXT(facet.negative_sign().c_str(), minus);
  CHECK_INT(facet.frac_digits(), decimals);
  CHECK_TEXT(shown(facet.pos_format()).c_str(), positive);
  CHECK_TEXT(shown(facet.neg_format()).c_str(), negative);
}

static void test_named() {
  check_named<false>("xx_DE", "Eur", ",.", "", "-", 2, "-v ?", "-v ?");
  check_named<true>("xx_DE", "EUR ", ",.", "", "-", 2, "?-0v", "?-0v");
  // Of a separator of three bytes the first is used.
  check_named<false>("xx_FR", "\xE2\x82\xAC", ",\xE2", "", "-", 2, "-v ?", "-v ?");
  check_named<false>("xx_IN", "Rs", ".,", "+", "-()", 2, "?- v", "-?0v");
  check_named<true>("xx_IN", "INR ", ".,", "+", "-", 2, "?-0v", "?-0v");
  check_named<false>("xx_JP", "\xEF\xBF\xA5", ".,", "", "-", 0, "?-0v", "?-0v");
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  // A mixture: its name is long, and the C library's own until the next change.
  setlocale(LC_TIME, "xx_FR");
  const std::string mixture = setlocale(LC_ALL, 0);
  { const punctuation<false> german("xx_DE"); }
  CHECK_TEXT(setlocale(LC_ALL, 0), mixture.c_str());
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", punctuation<true>("no such locale"));
  CHECK_TEXT(setlocale(LC_ALL, 0), mixture.c_str());
  setlocale(LC_ALL, "C");
}

// What a program derives from has points and no decimals; its fields lie as the library says.
struct dollars : std::moneypunct<char, false> {
  dollars() : std::moneypunct<char, false>(1) {}
  ~dollars() {}

protected:
  std::string do_curr_symbol() const { return "$"; }
};

static void test_derived() {
  const dollars facet;
  CHECK_TEXT(facet.curr_symbol().c_str(), "$");
  CHECK_INT(facet.decimal_point(), '.');
  CHECK_INT(facet.thousands_sep(), ',');
  CHECK_INT(facet.frac_digits(), 0);
  const char *const bytes = reinterpret_cast<const char *>(static_cast<const std::moneypunct<char, false> *>(&facet));
  CHECK_INT(sizeof(std::moneypunct<char, true>), 44);
  CHECK(bytes[12] == '.' && bytes[13] == ',' && memcmp(bytes + 36, "?-0v?-0v", 8) == 0);
}

struct naming {
  naming() { setlocale(LC_ALL, "xx_FR"); }
  ~naming() { setlocale(LC_ALL, "C"); }
  void run() { const punctuation<false> indian("xx_IN"); }
  void check(bool) { CHECK_TEXT(setlocale(LC_ALL, 0), "xx_FR"); }
};

int main() {
  const bool are_named = named_locales_setup();
  test_patterns();
  test_classic<false>();
  test_classic<true>();
  test_derived();
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", punctuation<false>("no such locale"));
  if (are_named) {
    test_named();
    CHECK(fail_each_allocation<naming>() >= 3);
  } else {
    fprintf(stderr, "skipped: there is no localedef\n");
  }
  return TEST_RESULT();
}

// Named locales, with real ones: what depends on the name and what does not, the C library's locale before, during and
// after, and the facets that a program makes from a name by itself.

#include <locale.h>

#include <sstream>
#include <stdexcept>

#include "locale_check.h"
#include "named_locales.h"

using std::locale;

static const char *c_library() { return setlocale(LC_ALL, 0); }

static int compare(const std::collate<char> &facet, const char *left, const char *right) {
  return facet.compare(left, left + strlen(left), right, right + strlen(right));
}

static void c_library_is_kept() {
  setlocale(LC_ALL, "xx_JP");
  setlocale(LC_TIME, "xx_FR");
  const std::string mixed = c_library();
  { const locale german("xx_DE"); }
  CHECK_TEXT(c_library(), mixed.c_str());
  { const locale german(locale::classic(), "xx_DE", locale::numeric); }
  CHECK_TEXT(c_library(), mixed.c_str());
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale("xx_XX"));
  CHECK_TEXT(c_library(), mixed.c_str());
  setlocale(LC_ALL, "C");
}

// Classification and collation of a named locale are the classic ones; collation follows the C library.
static void name_is_not_used() {
  const locale german("xx_DE");
  CHECK_TEXT(german.name().c_str(), "xx_DE");
  CHECK(german == locale("xx_DE") && german != locale("xx_FR") && german != locale::classic());
  CHECK(!std::isalpha('\xE4', german) && std::toupper('\xE4', german) == '\xE4');
  CHECK_INT(german._get_imp()->_get_quick() & 3, 3);
  const std::collate<char> &collate = std::use_facet<std::collate<char> >(german);
  CHECK_INT(compare(collate, "a", "B"), 1);
  setlocale(LC_COLLATE, "xx_DE");
  CHECK_INT(compare(collate, "a", "B"), -1);
  CHECK_INT(compare(std::use_facet<std::collate<char> >(locale::classic()), "a", "B"), -1);
  // Keys compare as the texts do, also long ones.
  const std::string left = std::string(300u, 'x') + "a", right = std::string(300u, 'x') + "B";
  CHECK(collate.transform(left.data(), left.data() + left.size()) <
        collate.transform(right.data(), right.data() + right.size()));
  setlocale(LC_COLLATE, "C");
}

static char point(const locale &loc) { return std::use_facet<std::numpunct<char> >(loc).decimal_point(); }

static void categories() {
  const locale german("xx_DE"), indian("xx_IN");
  CHECK(point(german) == ',' && point(locale::classic()) == '.');
  const locale numbers(indian, german, locale::numeric);
  CHECK(point(numbers) == ',' && numbers.name() == "xx_IN" && numbers != indian);
  CHECK(point(locale(indian, "xx_DE", locale::numeric)) == ',');
  CHECK(point(locale(indian, german, locale::all & ~locale::numeric)) == '.');
  CHECK(point(locale(indian, "xx_DE", locale::monetary | locale::ctype)) == '.');
  CHECK_INT(numbers._get_imp()->_get_quick() & (locale::imp::_quick_num_put | locale::imp::_quick_num_get), 0);
  // The environment's.
  setenv("LC_ALL", "xx_DE", 1);
  const locale environment("");
  CHECK(point(environment) == ',' && environment.name() == "");
}

// The name that setlocale has for categories that differ.
static void mixtures() {
  setlocale(LC_ALL, "xx_JP");
  setlocale(LC_NUMERIC, "xx_DE");
  setlocale(LC_TIME, "xx_FR");
  const std::string name = c_library();
  setlocale(LC_ALL, "C");
  const locale mixed(name.c_str());
  CHECK(mixed.name() == name && point(mixed) == ',' && mixed == locale(name.c_str()));
  CHECK(point(locale(locale::classic(), name.c_str(), locale::numeric)) == ',');
  CHECK(std::use_facet<std::moneypunct<char> >(mixed).curr_symbol() ==
        std::use_facet<std::moneypunct<char> >(locale("xx_JP")).curr_symbol());
  std::time_put<char> *const dates = new std::time_put_byname<char>(name.c_str());
  const locale french(locale::classic(), dates);
  tm new_year = tm();
  std::ostringstream month;
  dates->put(month, month, ' ', &new_year, 'B');
  CHECK_TEXT(month.str().c_str(), "janvier");
  const locale classes(locale::classic(), new std::ctype_byname<char>(name.c_str()));
  locale::global(mixed);
  CHECK_TEXT(c_library(), name.c_str());
  locale::global(locale::classic());
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale("LC_CTYPE=C;LC_NUMERIC=xx_DE"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", new std::numpunct<char>("LC_TIME=C;LC_MONETARY=C"));
}

static void by_name() {
  const locale german(locale(locale::classic(), new std::ctype_byname<char>("xx_DE")),
                      new std::collate_byname<char>("xx_DE"));
  CHECK(std::isalpha('\xE4', german) && std::islower('\xDF', german) && !std::isalpha('\xA7', german));
  char word[] =
      "gr\xFC\xDF"
      "e\xFF";
  std::use_facet<std::ctype<char> >(german).toupper(word, word + 6);
  CHECK_TEXT(word,
             "GR\xDC\xDF"
             "E\xFF");
  CHECK(std::tolower('\xDC', german) == '\xFC' && !std::iscntrl('\0', german));
  CHECK(german(std::string("a"), std::string("B")) && german(std::string("\xE4"), std::string("b")));
  const std::collate<char> &collate = std::use_facet<std::collate<char> >(german);
  CHECK(collate.transform("\xE4", &"\xE4"[1]) < collate.transform("b", &"b"[1]));
  // The bytes of UTF-8 are no letters.
  const locale french(locale::classic(), new std::ctype_byname<char>("xx_FR"));
  CHECK(!std::isalpha('\xC3', french) && std::toupper('\xA9', french) == '\xA9');

  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", new std::ctype_byname<char>("xx_XX"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", new std::collate_byname<char>(0));
  const locale converting(locale::classic(), new std::codecvt_byname<char, char, std::mbstate_t>("xx_XX"));
  CHECK((std::use_facet<std::codecvt<char, char, int> >(converting).always_noconv()));
}

// A default with a name becomes the C library's too.
static void the_default() {
  const locale before = locale::global(locale("xx_DE"));
  CHECK_TEXT(c_library(), "xx_DE");
  CHECK_TEXT(localeconv()->decimal_point, ",");
  locale::global(locale(locale(), new noted));
  CHECK_TEXT(c_library(), "xx_DE");
  locale::global(before);
  CHECK_TEXT(c_library(), "C");
}

int main() {
  if (!named_locales_setup()) return TEST_SKIP;
  c_library_is_kept();
  name_is_not_used();
  categories();
  mixtures();
  by_name();
  the_default();
  return TEST_RESULT();
}

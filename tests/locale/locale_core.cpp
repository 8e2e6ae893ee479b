// Handles by plx's own rules: identities, what combining carries over and what not, names, the default locale and the C
// library's; and memory that runs out at each allocation: nothing is lost, no facet is deleted twice or not at all.
// What the standard fixes, and when facets die, is in peer/handles. And messages.
// test-variants: -O0 | -O2
#include <algorithm>

#include "../fail_allocation.h"
#include "locale_check.h"

using std::locale;

typedef std::codecvt<char, char, int> conversion;
class other_noted : public noted {
public:
  static locale::id id;
};
locale::id other_noted::id;

static const char *c_library() { return setlocale(LC_ALL, 0); }
static unsigned int quick(const locale &loc) { return loc._get_imp()->_get_quick() & 15u; }
static unsigned int references(const locale &loc) { return (*reinterpret_cast<unsigned int *const *>(&loc))[1]; }
// Which of the library's facets two locales share, by their numbers.
static std::string shared(const locale &a, const locale &b) {
  std::string all;
  for (unsigned i = 1; i < 13; ++i)
    if (a._get_imp()->_get(i) == b._get_imp()->_get(i)) all += " ngpcvktTiMPG"[i];
  return all;
}

// Numbers from 1 on, in the order in which classes are first asked for: the classic locale's facets come first. A table
// grows for a facet whose number it has no slot for.
static void identities() {
  const locale loc, more(locale(loc, new other_noted), new noted), copy(more);
  CHECK(std::numpunct<char>::id.init() == 1 && conversion::id.init() == 5 && std::money_get<char>::id.init() == 12);
  CHECK(other_noted::id.init() == 13 && noted::id.init() == 14 && std::has_facet<other_noted>(copy));
}

struct my_ctype : std::ctype<char> {};
struct my_codecvt : conversion {};
struct my_collate : std::collate<char> {
  virtual int do_compare(const char *, const char *, const char *, const char *) const { return -1; }
};

static void combining() {
  const locale &classic = locale::classic();
  const unsigned int classes = locale::imp::_quick_ctype, plain = locale::imp::_quick_codecvt,
                     writes = locale::imp::_quick_num_put, reads = locale::imp::_quick_num_get;
  // Which facets streams may take for the library's own, unchanged.
  CHECK(quick(classic) == (classes | plain | writes | reads) && quick(locale(classic, new my_ctype)) == plain);
  static const std::ctype_base::mask none[256] = {};
  CHECK(quick(locale(classic, new std::ctype<char>(none))) == (plain | writes));
  // Dates stay, whatever is asked for; money goes as a whole; the conversion of files is in no category.
  const locale other("POSIX");
  static const int categories[] = {locale::none, locale::numeric,  locale::ctype,    locale::collate,
                                   locale::time, locale::monetary, locale::messages, locale::all};
  static const char *const taken[] = {"", "ngp", "c", "k", "", "iMPG", "", "ngpckiMPG"};
  for (int i = 0; i < 8; ++i) {
    const locale one(classic, other, categories[i]), by_name(classic, "POSIX", categories[i]);
    CHECK_TEXT(shared(one, other).c_str(), taken[i]);
    CHECK(shared(one, classic) == shared(by_name, classic) && shared(one, classic).size() + strlen(taken[i]) == 12);
  }
  locale mine(locale(locale(classic, new my_ctype), new my_codecvt), new my_collate);
  const locale some(classic, mine, locale::ctype);
  CHECK((quick(some) & (classes | plain)) == plain && some.name() == "C");
  const std::string a("a"), b("b");
  CHECK(classic(a, b) && !classic(b, a) && !classic(a, a) && mine(b, a));
  // plx's own: the implementation itself is changed, for all who share it.
  const locale sharer = mine;
  mine.set_imp(classic._get_imp(), conversion::id);
  mine.set_imp(classic._get_imp(), noted::id);
  CHECK((quick(sharer) & plain) && !std::has_facet<noted>(mine));
  locale alone(mine, new noted);
  alone.set_imp(alone._get_imp(), noted::id);  // by itself, where nobody else holds it
  CHECK(noted_alive == 1 && std::has_facet<noted>(alone));
  // A default is held until the next, but the classic one is not.
  const unsigned int before = references(classic);
  for (int i = 0; i < 4; ++i) {
    locale::global(i < 2 ? alone : classic);
    CHECK(references(alone) == (i < 2 ? 2u : 1u) && references(classic) == before);
  }
}

static void names() {
  const locale c("C"), posix("POSIX"), mixed(c, posix, locale::collate);
  CHECK(posix.name() == "POSIX" && locale("").name() == "" && c != locale(""));
  CHECK(mixed.name() == "C" && mixed != c && mixed == locale(mixed));  // a name is not enough
  static const char *const bad[] = {"LC_CTYPE=C;LC_NUMERIC=xx_DE", "*", "LC_TIME=C;LC_MONETARY=C", "no such locale", 0};
  for (int i = 0; i < 5; ++i) {
    CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale(bad[i]));
    CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale(c, bad[i], i % 2 ? locale::none : locale::all));
    if (i > 1) CHECK_THROWS(std::runtime_error, "Invalid locale name\n", new std::ctype_byname<char>(bad[i]));
    if (i > 2) CHECK_THROWS(std::runtime_error, "Invalid locale name\n", new std::collate_byname<char>(bad[i]));
  }
  CHECK_THROWS(std::bad_cast, "Facet not present\n", std::use_facet<noted>(c));
  CHECK_THROWS(std::runtime_error, "Facet not present\n", c.combine<noted>(c));
}

// Classification and collation of a named locale are the classic ones, and collation follows the C library, whose
// locale is what it was before. A mixture of named ones is known by the C library's name for it.
static char point(const locale &loc) { return std::use_facet<std::numpunct<char> >(loc).decimal_point(); }
static void named() {
  const locale german("xx_DE");
  const std::string a("a"), b("B");
  CHECK((quick(german) & 3) == 3 && !std::isalpha('\xE4', german) && !german(a, b));
  setlocale(LC_COLLATE, "xx_DE");
  CHECK(german(a, b) && locale::classic()(a, b));
  setlocale(LC_ALL, "xx_JP");
  setlocale(LC_NUMERIC, "xx_DE"), setlocale(LC_TIME, "xx_FR");
  const std::string name = c_library();
  CHECK(locale("xx_DE") == german && point(locale(locale::classic(), "xx_DE", locale::numeric)) == ',');
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale("xx_XX"));
  CHECK_TEXT(c_library(), name.c_str());
  setlocale(LC_ALL, "C");
  const locale mixed(name.c_str());
  CHECK(mixed.name() == name && point(mixed) == ',' && mixed == locale(name.c_str()));
  CHECK(point(locale(locale::classic(), name.c_str(), locale::numeric)) == ',');
  CHECK(std::use_facet<std::moneypunct<char> >(mixed).curr_symbol() ==
        std::use_facet<std::moneypunct<char> >(locale("xx_JP")).curr_symbol());
  CHECK_TEXT(std::timepunct<char>(name.c_str()).get_month_name_list()[12].c_str(), "janvier");
  delete new own_facet<std::ctype_byname<char> >(name.c_str());
  // A default with a name becomes the C library's too.
  locale::global(mixed);
  CHECK_TEXT(c_library(), name.c_str());
  locale::global(locale(locale(), new noted));
  CHECK_TEXT(c_library(), name.c_str());
  locale::global(locale::classic());
  CHECK_TEXT(c_library(), "C");
}

template <int how> struct making {
  noted *facet;
  locale owner, made;
  making() : facet(how == 3 ? new noted : 0), owner(locale("C"), new noted) {}
  void run() {
    switch (how) {
      case 0: made = locale("C"); break;
      case 1: made = locale(locale::classic(), "C", locale::all); break;
      case 2: made = locale(locale::classic(), owner, locale::all); break;
      case 3: made = locale(locale::classic(), facet); break;
      case 4: made = locale::classic().combine<noted>(owner); break;
      default: CHECK(locale()(std::string(5000u, 'a'), std::string(6000u, 'a')));
    }
  }
  // A facet that was handed over is deleted when it comes into no locale; one that another locale has stays.
  void check(bool failed) {
    CHECK_TEXT(c_library(), "C.UTF-8");
    CHECK(noted_alive == (how == 3 && !failed ? 2 : 1) && std::has_facet<noted>(owner));
  }
};

// No locale holds messages by itself. Catalogs made by gencat, many at once; texts that are not there, catalogs that
// are not open.
static void messages() {
  CHECK_THROWS(std::bad_cast, "Facet not present\n", std::use_facet<std::messages<char> >(locale()));
  const locale loc(locale(), new std::messages_byname<char>("C"));
  const std::messages<char> &facet = std::use_facet<std::messages<char> >(loc);
  CHECK(facet.open("/no/such/catalog", loc) < 0);
  CHECK(facet.get(-1, 1, 1, "none") == "none" && facet.get(1000, 1, 1, "none") == "none");
  facet.close(-1);
  char made[] = "/tmp/messages.XXXXXX";
  const std::string folder = mkdtemp(made), catalog = folder + "/catalog";
  const std::string make =
      "cd " + folder + " && printf '$set 1\\n1 first\\n2\\n$set 3\\n7 of another set\\n' > source " +
      "&& gencat catalog source || (echo skipped: there is no gencat; rm -r " + folder + "; exit 1)";
  if (system(make.c_str()) != 0) return;
  int open[20];
  for (int i = 0; i < 20; ++i) open[i] = facet.open(catalog, loc);
  for (int i = 0; i < 20; ++i) {
    CHECK(open[i] >= 0 && std::count(open, open + 20, open[i]) == 1);
    CHECK(facet.get(open[i], 1, 1, "none") == "first" && facet.get(open[i], 3, 7, "none") == "of another set");
    if (i % 2) facet.close(open[i]), facet.close(open[i]);
    CHECK(facet.get(open[i], i % 2, 1, "none") == "none" && facet.get(open[i], 2, 1, "none") == "none");
  }
  CHECK(facet.get(open[4], 1, 1, "none") == "first" && facet.open(catalog, loc) == open[1]);
  CHECK_INT(system(("rm -r " + folder).c_str()), 0);
}

static void report() { __vexil_report_error("so far 100%"); }

int main() {
  identities();
  combining();
  names();
  messages();
  CHECK_ENDS(report, 1, "so far 100%\n");
  if (setlocale(LC_ALL, "C.UTF-8")) {  // not the one that locales are built in
    CHECK(fail_each_allocation<making<0> >() > 5 && fail_each_allocation<making<1> >() > 5 &&
          fail_each_allocation<making<2> >() >= 2 && fail_each_allocation<making<3> >() >= 2 &&
          fail_each_allocation<making<4> >() >= 2 && fail_each_allocation<making<5> >() >= 2);
    setlocale(LC_ALL, "C");
  }
  if (named_locales_setup()) named();
  return TEST_RESULT();
}

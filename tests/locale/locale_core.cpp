// Handles and what they share: counts, identities, who owns a facet, what combining carries over and what not, names
// and comparison, the default locale.
// test-variants: -O0 | -O2

#include <stdexcept>
#include <string>
#include <typeinfo>

#include "locale_check.h"

using std::locale;

class other_noted : public noted {
public:
  static locale::id id;
};
locale::id other_noted::id;

// Numbers from 1 on, in the order in which classes are first asked for: the classic locale's facets come first.
static void identities() {
  const locale loc;
  CHECK_INT(std::numpunct<char>::id.init(), 1);
  CHECK_INT(std::num_get<char>::id.init(), 2);
  CHECK_INT(std::num_put<char>::id.init(), 3);
  CHECK_INT(std::ctype<char>::id.init(), 4);
  CHECK_INT((std::codecvt<char, char, int>::id.init()), 5);
  CHECK_INT(std::collate<char>::id.init(), 6);
  const unsigned int first = noted::id.init();
  CHECK_INT(std::time_put<char>::id.init(), 7);
  CHECK_INT(std::time_get<char>::id.init(), 8);
  CHECK_INT((std::moneypunct<char, true>::id.init()), 9);
  CHECK_INT((std::moneypunct<char, false>::id.init()), 10);
  CHECK_INT(std::money_put<char>::id.init(), 11);
  CHECK_INT(std::money_get<char>::id.init(), 12);
  CHECK_INT(first, 13);
  CHECK_INT(other_noted::id.init(), first + 1);
  CHECK_INT(noted::id.init(), first);
  CHECK(record_of(loc).size >= 13);
  CHECK(record_of(loc).facets[0] == 0);
  // A table grows for a facet whose number it has no slot for.
  const locale grown(locale(loc, new noted), new other_noted);
  CHECK_INT(record_of(grown).size, first + 1 < 13 ? 13 : first + 2);
}

static void counting() {
  const locale &classic = locale::classic();
  const unsigned int start = record_of(classic).refcount;
  {
    locale one;
    CHECK(&record_of(one) == &record_of(classic));
    CHECK_INT(record_of(classic).refcount, start + 1);
    locale two(one);
    two = two;
    two = one;
    CHECK_INT(record_of(classic).refcount, start + 2);
    two = locale("C");
    CHECK_INT(record_of(classic).refcount, start + 1);
    CHECK_INT(record_of(two).refcount, 1);
  }
  CHECK_INT(record_of(classic).refcount, start);
}

static void owned_facets() {
  noted *owned = new noted;
  CHECK(record_of(*owned).deletable == 1 && record_of(*owned).refcount == 0);
  {
    locale with(locale::classic(), owned);
    CHECK(&std::use_facet<noted>(with) == owned);
    CHECK(!std::has_facet<noted>(locale::classic()));
    CHECK_INT(record_of(*owned).refcount, 1);
    locale copy(with, locale::classic(), locale::all);
    CHECK_INT(record_of(*owned).refcount, 2);
    const locale same = with;
    CHECK_INT(record_of(*owned).refcount, 2);
    // The same facet where it is already.
    with = locale(with, owned);
    CHECK_INT(record_of(*owned).refcount, 3);
    // Another in its place.
    with = locale(with, new noted);
    CHECK_INT(noted_alive, 2);
  }
  CHECK_INT(noted_alive, 0);

  noted mine(1);
  {
    locale with(locale::classic(), &mine);
    locale again = with.combine<noted>(with);
    CHECK(&std::use_facet<noted>(again) == &mine);
  }
  CHECK(record_of(mine).deletable == 0 && record_of(mine).refcount == 0);
  CHECK_INT(noted_alive, 1);  // `mine`
  // A null facet is none.
  CHECK(locale(locale::classic(), static_cast<noted *>(0)) == locale::classic());
}

template <class Facet> static bool same(const locale &left, const locale &right) {
  return &std::use_facet<Facet>(left) == &std::use_facet<Facet>(right);
}

// Dates stay, whatever is asked for; money goes as a whole.
static void time_and_money() {
  const locale &classic = locale::classic();
  const locale other("POSIX"), all(classic, other, locale::all), by_name(classic, "POSIX", locale::all);
  CHECK(same<std::time_put<char> >(all, classic) && same<std::time_get<char> >(all, classic));
  CHECK(same<std::time_put<char> >(by_name, classic) && same<std::time_get<char> >(by_name, classic));
  CHECK((same<std::moneypunct<char, true> >(all, other) && same<std::moneypunct<char, false> >(all, other)));
  CHECK(same<std::money_put<char> >(all, other) && same<std::money_get<char> >(all, other));
  CHECK(same<std::num_put<char> >(all, other) && same<std::num_get<char> >(all, other));
  CHECK(same<std::collate<char> >(all, other) && !same<std::collate<char> >(by_name, classic));
}

struct my_ctype : std::ctype<char> {};
struct my_codecvt : std::codecvt<char, char, int> {};
struct my_collate : std::collate<char> {
  virtual int do_compare(const char *, const char *, const char *, const char *) const { return -1; }
};

struct my_numpunct : std::numpunct<char> {};
struct my_num_put : std::num_put<char> {};

// Which facets streams may take for the library's own, unchanged.
static unsigned int quick(const locale &loc) { return loc._get_imp()->_get_quick() & 15u; }

static void quick_facets() {
  const unsigned int classes = locale::imp::_quick_ctype, conversion = locale::imp::_quick_codecvt,
                     output = locale::imp::_quick_num_put, input = locale::imp::_quick_num_get;
  const locale &classic = locale::classic();
  CHECK_INT(quick(classic), classes | conversion | output | input);
  CHECK_INT(quick(locale(classic, new my_ctype)), conversion);
  CHECK_INT(quick(locale(classic, new my_numpunct)), classes | conversion);
  CHECK_INT(quick(locale(classic, new my_num_put)), classes | conversion | input);
  CHECK_INT(quick(locale(classic, new noted)), 15);
  CHECK_INT(quick(locale(locale(classic, new my_numpunct), classic, locale::numeric)), 15);
}

static void combining() {
  const locale::imp *plain = locale::classic()._get_imp();
  const unsigned int both = locale::imp::_quick_ctype | locale::imp::_quick_codecvt;
  CHECK_INT(plain->_get_quick() & both, both);

  locale mine(locale(locale(locale::classic(), new my_ctype), new my_codecvt), new my_collate);
  CHECK_INT(mine._get_imp()->_get_quick() & both, 0);
  const locale none(locale::classic(), mine, locale::messages | locale::time);
  CHECK(&std::use_facet<std::ctype<char> >(none) == &std::use_facet<std::ctype<char> >(locale::classic()));
  // The category has both, but the conversion of files stays.
  const locale classes(locale::classic(), mine, locale::ctype);
  CHECK(&std::use_facet<std::ctype<char> >(classes) == &std::use_facet<std::ctype<char> >(mine));
  CHECK((&std::use_facet<std::codecvt<char, char, int> >(classes) ==
         &std::use_facet<std::codecvt<char, char, int> >(locale::classic())));
  CHECK(&std::use_facet<std::collate<char> >(classes) == &std::use_facet<std::collate<char> >(locale::classic()));
  CHECK_INT(classes._get_imp()->_get_quick() & both, locale::imp::_quick_codecvt);
  CHECK_TEXT(classes.name().c_str(), "C");

  const std::string a("a"), b("b");
  CHECK(locale::classic()(a, b) && !locale::classic()(b, a) && !locale::classic()(a, a));
  CHECK(mine(b, a));
  // From a named one: what is there is replaced, what is not stays.
  locale back(locale(mine, new noted), "C", locale::all);
  CHECK(std::has_facet<noted>(back) && !back(b, a));
  CHECK_INT(back._get_imp()->_get_quick() & both, locale::imp::_quick_ctype);
  CHECK_TEXT(back.name().c_str(), "*");

  // plx's own: the implementation itself is changed, for all who share it.
  const locale sharer = mine;
  mine.set_imp(locale::classic()._get_imp(), std::codecvt<char, char, int>::id);
  CHECK_INT(sharer._get_imp()->_get_quick() & both, locale::imp::_quick_codecvt);
  mine.set_imp(locale::classic()._get_imp(), noted::id);
  CHECK(!std::has_facet<noted>(mine));
  const int alive = noted_alive;
  locale alone(mine, new noted);
  alone.set_imp(alone._get_imp(), noted::id);  // by itself, where nobody else holds it
  CHECK(noted_alive == alive + 1 && std::has_facet<noted>(alone));
}

static void names() {
  const locale c("C"), posix("POSIX"), environment("");
  CHECK_TEXT(locale().name().c_str(), "C");
  CHECK_TEXT(posix.name().c_str(), "POSIX");
  CHECK_TEXT(environment.name().c_str(), "");
  CHECK(c == locale::classic() && c != posix && c != environment);
  // A name is not enough where something was replaced.
  const locale mixed(c, posix, locale::collate);
  CHECK_TEXT(mixed.name().c_str(), "C");
  CHECK(mixed != c && mixed == locale(mixed));
  const locale with(c, new noted);
  CHECK_TEXT(with.name().c_str(), "*");
  CHECK(with != locale(c, new noted));
}

static void errors() {
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale("no such locale"));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale(static_cast<const char *>(0)));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale(locale(), "no such locale", locale::all));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale(locale(), static_cast<const char *>(0), 0));
  CHECK_THROWS(std::runtime_error, "Invalid locale name\n", locale("*"));
  CHECK_THROWS(std::bad_cast, "Facet not present\n", std::use_facet<noted>(locale()));
  CHECK_THROWS(std::runtime_error, "Facet not present\n", locale().combine<noted>(locale()));
  CHECK(std::use_facet<std::ctype<char> >(locale()).is(std::ctype_base::digit, '0'));
}

// A default that the program sets is held until it is replaced; the classic one is not held.
static void the_default() {
  const unsigned int classic_count = record_of(locale::classic()).refcount;
  noted *facet = new noted;
  {
    locale mine(locale::classic(), facet);
    CHECK(locale::global(mine) == locale::classic());
    CHECK_INT(record_of(mine).refcount, 2);
    CHECK(locale::global(mine) == mine);
    CHECK_INT(record_of(mine).refcount, 2);
  }
  CHECK(locale() != locale::classic() && std::has_facet<noted>(locale()));
  CHECK(std::has_facet<noted>(locale::global(locale::classic())));
  CHECK_INT(noted_alive, 0);
  CHECK(locale() == locale::classic());
  CHECK_INT(record_of(locale::classic()).refcount, classic_count);
}

static void report() { __vexil_report_error("so far 100%"); }

int main() {
  identities();
  counting();
  owned_facets();
  combining();
  time_and_money();
  quick_facets();
  names();
  errors();
  the_default();
  CHECK_ENDS(report, 1, "so far 100%\n");
  return TEST_RESULT();
}

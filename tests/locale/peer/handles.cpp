// Handles of locales: names, comparison, combination, the default locale and what streams take from it. Printed for
// comparison with the host's library; left out is where plx means to differ ("", the
// names of combined locales, time).
// prints: 40 lines

#include <locale.h>
#include <stdio.h>

#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "../named_locales.h"

using std::locale;

namespace {

struct comma : std::numpunct<char> {
  explicit comma(std::size_t refs = 0) : std::numpunct<char>(refs) {}
  virtual char do_decimal_point() const { return ','; }
  virtual std::string do_grouping() const { return "\2"; }
};
struct own : locale::facet {
  static locale::id id;
  static int live;
  own() { ++live; }
  virtual ~own() { --live; }
};
locale::id own::id;
int own::live;

void say(const char *what, const locale &loc) {
  std::ostringstream out;
  out.imbue(loc);
  out << 1234567 << ' ' << 1234.5;
  printf("%s: %s, %s, own %d, numbers %s\n", what, loc.name().c_str(), loc == locale::classic() ? "classic" : "not",
         std::has_facet<own>(loc), out.str().c_str());
}
// A combined locale's name is the library's own affair.
void say_without_name(const char *what, const locale &loc) {
  std::ostringstream out;
  out.imbue(loc);
  out << 1234567 << ' ' << 1234.5;
  printf("%s: %s, %s\n", what, loc == locale::classic() ? "classic" : "not", out.str().c_str());
}

// Each fails in its way: runtime_error, or bad_cast.
void fail(int how) {
  const char *const none = 0;
  try {
    switch (how) {
      case 0: locale("no such locale"); break;
      case 1: (void)locale(none); break;
      case 2: locale(locale(), "no such locale", locale::numeric); break;
      case 3: locale(locale(), none, locale::numeric); break;
      case 4: locale().combine<own>(locale::classic()); break;
      case 5: std::use_facet<own>(locale()); break;
    }
    printf("%d: nothing\n", how);
  } catch (const std::runtime_error &) {
    printf("%d: runtime_error\n", how);
  } catch (const std::bad_cast &) {
    printf("%d: bad_cast\n", how);
  }
}

void default_locale(const char *what) {
  std::ostringstream out;
  out << 1234567;
  printf("%s: %s, C library %s, stream %s\n", what, locale().name().c_str(), setlocale(LC_NUMERIC, 0),
         out.str().c_str());
}

}  // namespace

int main() {
  if (!named_locales_setup()) return TEST_SKIP;
  const locale german("xx_DE"), indian("xx_IN");
  say("classic", locale::classic());
  say("default", locale());
  say("C", locale("C"));
  say("German", german);
  say("Indian", indian);
  say("copy", locale(german));
  printf("%d%d%d%d%d\n", german == locale("xx_DE"), german != indian, locale("C") == locale::classic(),
         german == german, locale(german) == german);

  say_without_name("numbers of", locale(locale::classic(), german, locale::numeric));
  say_without_name("numbers by name", locale(locale::classic(), "xx_DE", locale::numeric));
  say_without_name("all but numbers", locale(indian, german, locale::all & ~locale::numeric));
  say_without_name("two categories", locale(indian, "xx_DE", locale::monetary | locale::ctype));
  say_without_name("no category", locale(locale::classic(), german, locale::none));
  say_without_name("back", locale(german, "C", locale::numeric));
  printf("money %s\n",
         std::use_facet<std::moneypunct<char, true> >(locale(german, indian, locale::monetary)).curr_symbol().c_str());

  say("facet", locale(locale::classic(), new comma));
  say("facet of German", locale(german, new comma));
  say("new class", locale(german, new own));
  const locale owner(german, new own);
  comma mine(1);
  say("kept facet", locale(indian, &mine));
  printf("%d%d%d\n", locale(owner) == owner, locale(german, new own) == owner, locale(owner, new own) == owner);
  printf("live %d\n", own::live);
  {
    locale one(owner), two(german);
    two = one;
    one = german;
    one = one;
    say("assigned", two);
    say("assigned back", one);
  }
  printf("live %d\n", own::live);

  for (int how = 0; how < 6; ++how) fail(how);

  default_locale("start");
  std::ostringstream old;
  const locale before = locale::global(german);
  printf("before %s\n", before.name().c_str());
  default_locale("German");
  old << 1234567;
  printf("older stream %s\n", old.str().c_str());
  const locale second = locale::global(locale(indian, new own));
  printf("before %s\n", second.name().c_str());
  default_locale("without a name");  // the C library keeps what it had
  printf("live %d\n", own::live);
  printf("default has it %d\n", std::has_facet<own>(locale()));
  locale::global(locale::classic());
  default_locale("end");
  printf("live %d\n", own::live);
  const std::string a("a"), b("b");
  printf("%d%d%d\n", german(a, b), german(b, a), german(a, a));
  return 0;
}

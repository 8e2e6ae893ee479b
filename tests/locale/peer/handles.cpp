// Handles of locales, built, copied, combined, assigned and made the default at random: their names and what they hold,
// which are equal, and when their facets die. Left out is where plx means to differ: "", the names of combined locales,
// time, classes and collation.
// prints: 4000 lines
#include <stdio.h>

#include <sstream>

#include "../locale_check.h"

using std::locale;

struct comma : std::numpunct<char> {
  explicit comma(std::size_t refs = 0) : std::numpunct<char>(refs) { ++noted_alive; }
  ~comma() { --noted_alive; }
  virtual char do_decimal_point() const { return ','; }
  virtual std::string do_grouping() const { return "\2"; }
};

enum { handles = 5 };
static locale all[handles];
static bool is_known[handles];  // its name: that of a combined one is the library's own affair

static std::string described(const locale &loc) {
  std::ostringstream out;
  out.imbue(loc);
  out << 1234567 << ' ' << 1234.5 << ' ' << std::use_facet<std::moneypunct<char, true> >(loc).curr_symbol()
      << std::has_facet<noted>(loc);
  return out.str();
}

static comma kept(1);

static void change(locale &to, bool &known, const locale &from, const locale &other, bool others_known) {
  static const char *const names[] = {"C", "xx_DE", "xx_IN", "xx_JP", "no such locale", 0};
  static const int categories[] = {locale::numeric,  locale::monetary, locale::monetary | locale::ctype,
                                   locale::all,      locale::none,     locale::all & ~locale::numeric,
                                   locale::messages, locale::time};
  const char *const name = names[random_below(random_below(4) ? 4 : 6)];
  const int category = categories[random_below(8)];
  const unsigned what = random_below(10);
  switch (what) {
    case 0: to = locale(name); break;
    case 1: to = locale(from, name, category); break;
    case 2: to = locale(from, other, category); break;
    case 3: to = from.combine<noted>(other); break;
    case 4: to = locale(from, new comma); break;
    case 5: to = locale(from, &kept); break;
    case 6: to = locale(from, new noted); break;
    case 7: std::use_facet<noted>(from); return;
    case 8: to = others_known ? locale::global(other) : locale::global(locale()); break;
    default: to = locale();
  }
  known = what == 0 || what > 3;
}

int main() {
  if (!named_locales_setup()) return TEST_SKIP;
  for (int i = 0; i < handles; ++i) is_known[i] = true;
  for (int round = 0; round < 4000; ++round) {
    const unsigned to = random_below(handles), from = random_below(handles), other = random_below(handles);
    try {
      if (random_below(4) == 0) {
        all[to] = all[from];
        is_known[to] = is_known[from];
      } else {
        change(all[to], is_known[to], all[from], all[other], is_known[other]);
      }
    } catch (const std::runtime_error &) { printf("runtime_error "); } catch (const std::bad_cast &) {
      printf("bad_cast ");
    }
    printf("%s", described(all[to]).c_str());
    for (int i = 0; i < handles; ++i)
      if (is_known[i] && is_known[to]) printf(" %s%d%d", all[i].name().c_str(), all[i] == all[to], all[to] != all[i]);
    std::ostringstream out;
    out << 1234567;
    printf(" live %d, default %s, %s\n", noted_alive, out.str().c_str(), setlocale(LC_NUMERIC, 0));
  }
  return 0;
}

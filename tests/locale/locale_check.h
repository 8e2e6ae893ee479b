// For tests of locales: a facet that tells when it is destroyed, a check of exceptions, and real named locales, built
// from tests/locale/data by the machine's localedef; nothing else is to be installed.
//
//   if (!named_locales_setup()) return TEST_SKIP;   // before the first use of a locale
//
// xx_DE  German, ISO-8859-1: 1.234,5; collates a A (a umlaut) b B ...
// xx_FR  French, UTF-8: separator of thousands and euro sign of three bytes each
// xx_IN  Indian, ASCII: 12,34,567.8; "+", and parentheses around negative money
// xx_JP  Japanese, UTF-8: a point of two bytes; money without decimals; names of days and months without letters
#ifndef TESTS_LOCALE_CHECK_H
#define TESTS_LOCALE_CHECK_H

#include <locale.h>

#include <stdexcept>
#include <typeinfo>

#include "../harness.h"
#include "../random.h"
#include "../rows.h"
#include "reading.h"

// The flags that letters in data/ stand for.
static TEST_UNUSED std::ios_base::fmtflags flags_of(const std::string &letters) {
  typedef std::ios_base base;
  static const base::fmtflags flags[] = {
      base::left,       base::right,   base::internal, base::dec,       base::oct,       base::hex,       base::fixed,
      base::scientific, base::showpos, base::showbase, base::showpoint, base::uppercase, base::boolalpha, base::skipws};
  base::fmtflags all = base::fmtflags(0);
  for (int i = 0; i < 14; ++i)
    if (letters.find("lridohfs+#.uaw"[i]) != std::string::npos) all |= flags[i];
  return all;
}
// The locale of a name, or with digits in groups.
static TEST_UNUSED std::locale locale_of(const std::string &what, char point, char separator = ',') {
  if (what.compare(0, 3, "xx_") == 0) return std::locale(what.c_str());
  return std::locale(std::locale::classic(), new chosen_punctuation(what, point, separator));
}

static int noted_alive;

class noted : public std::locale::facet {
public:
  static std::locale::id id;
  explicit noted(std::size_t refs = 0) : std::locale::facet(refs) { ++noted_alive; }
  virtual ~noted() { --noted_alive; }
};
std::locale::id noted::id;

// The expression must throw an exception of the class, with the text.
#define CHECK_THROWS(error, error_text, expression) \
  do {                                              \
    std::string caught = "nothing";                 \
    try {                                           \
      (void)(expression);                           \
    } catch (const error &e) { caught = e.what(); } \
    CHECK_TEXT(caught.c_str(), error_text);         \
  } while (0)

// A facet by name, made while the C library is in a mixture of locales, whose name is long: for fail_each_allocation.
template <class Facet> struct naming {
  std::string before;
  naming() {
    setlocale(LC_ALL, "xx_FR");
    setlocale(LC_TIME, "xx_DE");
    before = setlocale(LC_ALL, 0);
  }
  ~naming() { setlocale(LC_ALL, "C"); }
  void run() { const Facet indian("xx_IN"); }
  void check(bool) {
    CHECK_THROWS(std::runtime_error, "Invalid locale name\n", Facet("no such locale"));
    CHECK_TEXT(setlocale(LC_ALL, 0), before.c_str());
  }
};

// newlocale() loses the text of LOCPATH that it took apart.
extern "C" TEST_UNUSED const char *__lsan_default_suppressions() { return "leak:argz_add_sep"; }

static std::string named_locales_folder;
static pid_t named_locales_maker;

static void named_locales_remove() {
  // A child that calls exit leaves them to its parent.
  if (getpid() == named_locales_maker) (void)!system(("rm -rf " + named_locales_folder).c_str());
}

// False, and it says so, when there is no localedef.
static TEST_UNUSED bool named_locales_setup() {
  char folder[] = "/tmp/named_locales.XXXXXX";
  if (system("command -v localedef > /dev/null || (echo skipped: there is no localedef; exit 1)") != 0) return false;
  if (!mkdtemp(folder)) return false;
  named_locales_folder = folder;
  named_locales_maker = getpid();
  atexit(named_locales_remove);
  std::string source = __FILE__;
  source.erase(source.find_last_of('/'));
  // Its status is 1 for the categories that the sources leave out.
  const std::string make = "cd " + source + "/data && for one in DE:latin1 FR:utf8 IN:latin1 JP:utf8; do " +
                           "localedef -c --quiet --no-archive -i ./xx_${one%:*} -f ./${one#*:}.charmap " + folder +
                           "/xx_${one%:*} 2> /dev/null; test -r " + folder + "/xx_${one%:*}/LC_TIME || exit 1; done";
  if (system(make.c_str()) != 0) {
    fprintf(stderr, "localedef fails\n");
    exit(1);
  }
  setenv("LOCPATH", folder, 1);
  return true;
}

#endif

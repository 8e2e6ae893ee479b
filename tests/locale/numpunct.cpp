// numpunct: the punctuation of the C library's locales, by name; the names that it refuses; the C library's locale
// afterwards; and memory that runs out.

#include <locale.h>

#include <locale>
#include <stdexcept>

#include "../fail_allocation.h"
#include "../harness.h"
#include "named_locales.h"

struct punctuation : std::numpunct<char> {
  punctuation() {}
  explicit punctuation(const char *name) : std::numpunct<char>(name) {}
};

static void test_classic() {
  const std::numpunct<char> &classic = std::use_facet<std::numpunct<char> >(std::locale::classic());
  CHECK_INT(classic.decimal_point(), '.');
  CHECK_INT(classic.thousands_sep(), 0);
  CHECK_TEXT(classic.grouping().c_str(), "");
  CHECK_TEXT(classic.truename().c_str(), "true");
  CHECK_TEXT(classic.falsename().c_str(), "false");
  // What derived classes begin with.
  const punctuation usual;
  CHECK_INT(usual.decimal_point(), '.');
  CHECK_INT(usual.thousands_sep(), ',');
  CHECK_TEXT(usual.grouping().c_str(), "");
}

static void test_named() {
  const punctuation german("xx_DE"), indian("xx_IN"), classic("C");
  CHECK_INT(german.decimal_point(), ',');
  CHECK_INT(german.thousands_sep(), '.');
  CHECK_TEXT(german.grouping().c_str(), "\3\3");
  CHECK_TEXT(indian.grouping().c_str(), "\3\2");
  CHECK_TEXT(german.truename().c_str(), "true");
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
  // The locale that is set stays set.
  CHECK(setlocale(LC_ALL, "xx_FR") != 0);
  const punctuation beside("xx_DE"), present(static_cast<const char *>(0));
  CHECK_INT(beside.thousands_sep(), '.');
  CHECK_INT(static_cast<unsigned char>(present.thousands_sep()), 0xE2);
  CHECK_TEXT(setlocale(LC_ALL, 0), "xx_FR");
  setlocale(LC_ALL, "C");
  const std::numpunct_byname<char> *const by_name = new std::numpunct_byname<char>("xx_DE");
  const std::locale loc(std::locale::classic(), const_cast<std::numpunct_byname<char> *>(by_name));
  CHECK_INT(std::use_facet<std::numpunct<char> >(loc).decimal_point(), ',');
}

static void test_unknown_name() {
  std::string caught;
  try {
    const punctuation none("no such locale");
  } catch (std::runtime_error &error) {
    caught = error.what();
  }
  CHECK_TEXT(caught.c_str(), "Invalid locale name\n");
  CHECK_TEXT(setlocale(LC_ALL, 0), "C");
}

// A facet by name, made while the C library is in another locale.
struct naming {
  naming() { setlocale(LC_ALL, "xx_FR"); }
  ~naming() { setlocale(LC_ALL, "C"); }
  void run() { const punctuation german("xx_DE"); }
  void check(bool) { CHECK_TEXT(setlocale(LC_ALL, 0), "xx_FR"); }
};

int main() {
  const bool are_named = named_locales_setup();
  test_classic();
  test_unknown_name();
  if (are_named) {
    test_named();
    CHECK(fail_each_allocation<naming>() >= 3);
  } else {
    fprintf(stderr, "skipped: there is no localedef\n");
  }
  return TEST_RESULT();
}

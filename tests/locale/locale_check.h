// For tests of locales: a facet that tells when it is destroyed, and a check of exceptions.
#ifndef TESTS_LOCALE_CHECK_H
#define TESTS_LOCALE_CHECK_H

#include <locale>

#include "../harness.h"

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
    bool caught = false;                            \
    try {                                           \
      (void)(expression);                           \
    } catch (const error &e) {                      \
      caught = true;                                \
      CHECK_TEXT(e.what(), error_text);             \
    }                                               \
    CHECK(caught);                                  \
  } while (0)

#endif

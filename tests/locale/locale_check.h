// For tests of locales: a look into the records, and a facet that tells when it is destroyed.
#ifndef TESTS_LOCALE_CHECK_H
#define TESTS_LOCALE_CHECK_H

#include <locale>

#include "../harness.h"

// As the library lays them out.
struct imp_record {
  void *name;
  unsigned int refcount;
  void **facets;
  unsigned int size;
};
struct facet_record {
  void *virtual_table;
  unsigned char deletable;
  unsigned int refcount;
};

static TEST_UNUSED const imp_record &record_of(const std::locale &loc) {
  return **reinterpret_cast<imp_record *const *>(&loc);
}
static TEST_UNUSED const facet_record &record_of(const std::locale::facet &facet) {
  return *reinterpret_cast<const facet_record *>(&facet);
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

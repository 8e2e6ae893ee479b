// Locales when memory runs out at each of their allocations: nothing is lost, no facet is deleted twice or not at all,
// and the C library's locale is what it was.

#include <locale.h>

#include "../fail_allocation.h"
#include "locale_check.h"

using std::locale;

static const char *c_library() { return setlocale(LC_ALL, 0); }

// Makes one locale, in place.
struct making {
  bool made;
  union {
    char place[sizeof(locale)];
    void *align;
  };
  making() : made(false) {}
  ~making() {
    if (made) reinterpret_cast<locale *>(place)->~locale();
  }
  void check(bool) { CHECK_TEXT(c_library(), "C.UTF-8"); }
};

#define MAKE(arguments)           \
  void run() {                    \
    new (place) locale arguments; \
    made = true;                  \
  }

struct named : making {
  MAKE(("C"))
};

struct combined_by_name : making {
  MAKE((locale::classic(), "C", locale::all))
};

struct combined : making {
  locale other;
  combined() : other(locale(locale("C"), new noted)) {}
  MAKE((locale::classic(), other, locale::all))
};

// A facet that was handed over is deleted when it comes into no locale.
struct with_facet : making {
  noted *facet;
  with_facet() : facet(new noted) {}
  MAKE((locale::classic(), facet))
  void check(bool failed) {
    making::check(failed);
    CHECK_INT(noted_alive, failed ? 0 : 1);
  }
};

// One that another locale has stays.
struct with_shared_facet : making {
  locale owner;
  with_shared_facet() : owner(locale::classic(), new noted) {}
  MAKE((locale::classic().combine<noted>(owner)))
  void check(bool failed) {
    making::check(failed);
    CHECK_INT(noted_alive, 1);
    CHECK(std::has_facet<noted>(owner));
  }
};

struct collated : making {
  const std::collate<char> &facet;
  std::string left, right;
  collated() : facet(std::use_facet<std::collate<char> >(locale())), left(5000u, 'a'), right(6000u, 'a') {}
  void run() {
    CHECK_INT(facet.compare(left.data(), left.data() + left.size(), right.data(), right.data() + right.size()), -1);
    CHECK(facet.transform(left.data(), left.data() + left.size()) == left);
  }
};

int main() {
  // Not the one that locales are built in.
  if (!setlocale(LC_ALL, "C.UTF-8")) return TEST_SKIP;
  locale::classic();
  noted::id.init();
  CHECK(fail_each_allocation<named>() > 5);
  CHECK(fail_each_allocation<combined_by_name>() > 5);
  CHECK(fail_each_allocation<combined>() >= 2);
  CHECK(fail_each_allocation<with_facet>() >= 2);
  CHECK(fail_each_allocation<with_shared_facet>() >= 2);
  CHECK(fail_each_allocation<collated>() >= 2);
  return TEST_RESULT();
}

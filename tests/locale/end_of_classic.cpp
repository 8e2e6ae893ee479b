// Static objects that outlive the classic locale and use the default one in their destructors: they get a living one,
// whether its first implementation is gone by then or held by others. The C library overwrites what is freed here, so
// that use of it shows.
#include <malloc.h>

#include <iostream>
#include <locale>
#include <new>
#include <sstream>

#include "../harness.h"

void *operator new(std::size_t bytes) throw(std::bad_alloc) { return malloc(bytes); }
void operator delete(void *place) throw() { free(place); }

static bool used_before;
static std::locale *keeper;

static void use(const char *who) {
  const std::locale loc, another(loc);
  std::stringstream stream;
  int number = 0;
  stream << 42 << ' ';
  stream >> number;
  const bool works = number == 42 && std::isalpha('x', loc) && std::isalpha('x', std::locale::classic()) &&
                     (loc == std::locale::classic()) == (loc.name() == "C");
  used_before = true;
  printf("%s: %s\n", who, works ? loc.name().c_str() : "broken");
}

// Made before the classic locale: destroyed after it.
struct late {
  const char *const name;
  explicit late(const char *text) : name(text) {}
  ~late() {
    use(name);
    if (!keeper) return;
    delete keeper, keeper = 0;
    use("without keeper");
  }
};
static late last("last"), before_last("before last");

// Later than any static object. The standard streams, which still live, let go of what may be the last implementation.
__attribute__((__destructor__)) static void at_unloading() {
  if (!used_before) return;
  std::ios *const streams[] = {&std::cin, &std::cout, &std::cerr, &std::clog};
  for (int i = 0; i < 4; ++i) streams[i]->imbue(std::locale("POSIX"));
  use("unloading");
  fflush(stdout);
}

template <int how> static void end() {
  if (how == 0) std::locale::classic();
  if (how == 1) keeper = new std::locale;
  if (how == 2) std::locale::global(std::locale(std::locale(), new std::ctype<char>));
  exit(0);
}

int main() {
  mallopt(M_PERTURB, 0x22);
  CHECK_ENDS(end<0>, 0, "before last: C\nlast: C\nunloading: C\n");
  CHECK_ENDS(end<1>, 0, "before last: C\nwithout keeper: C\nlast: C\nunloading: C\n");
  CHECK_ENDS(end<2>, 0, "before last: *\nlast: *\nunloading: *\n");
  return TEST_RESULT();
}

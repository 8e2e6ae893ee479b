// Static objects that outlive the classic locale and use the default one in their destructors: they get a living one,
// whether its first implementation is gone by then or held by others. Freed memory is overwritten here, so that use of
// it shows.

#include <iostream>
#include <locale>
#include <new>
#include <sstream>

#include "../harness.h"

void *operator new(std::size_t bytes) {
  unsigned int *block = static_cast<unsigned int *>(malloc(bytes + 8));
  block[0] = static_cast<unsigned int>(bytes);
  return block + 2;
}
void operator delete(void *place) throw() {
  if (!place) return;
  unsigned int *block = static_cast<unsigned int *>(place) - 2;
  memset(place, 0xDD, block[0]);
  free(block);
}

static bool held_to_the_end;

static bool used_before;

static void use(const char *who) {
  std::locale loc;
  std::locale another(loc);
  std::stringstream stream;
  int number = 0;
  stream << 42 << ' ';
  stream >> number;
  const bool works = number == 42 && std::use_facet<std::ctype<char> >(loc).is(std::ctype_base::alpha, 'x') &&
                     std::use_facet<std::ctype<char> >(std::locale::classic()).is(std::ctype_base::alpha, 'x') &&
                     (loc == std::locale::classic()) == (loc.name() == "C");
  used_before = true;
  printf("%s: %s\n", who, works ? loc.name().c_str() : "broken");
}

static std::locale *keeper;

// Made before the classic locale: destroyed after it.
struct late {
  const char *name;
  explicit late(const char *text) : name(text) {}
  ~late() {
    use(name);
    if (held_to_the_end && keeper) {
      delete keeper;
      keeper = 0;
      use("without keeper");
    }
  }
};

static late last("last"), before_last("before last");

// Later than any static object. The standard streams, which still live, let go of what may be the last implementation.
__attribute__((__destructor__)) static void at_unloading() {
  if (!used_before) return;
  const std::locale other("POSIX");
  std::cin.imbue(other);
  std::cout.imbue(other);
  std::cerr.imbue(other);
  std::clog.imbue(other);
  use("unloading");
  fflush(stdout);
}

static void plain() {
  std::locale::classic();
  exit(0);
}
static void with_a_keeper() {
  held_to_the_end = true;
  keeper = new std::locale;
  exit(0);
}
static void with_a_global() {
  std::locale::global(std::locale(std::locale(), new std::ctype<char>(0, false, 0)));
  exit(0);
}

int main() {
  CHECK_ENDS(plain, 0, "before last: C\nlast: C\nunloading: C\n");
  CHECK_ENDS(with_a_keeper, 0, "before last: C\nwithout keeper: C\nlast: C\nunloading: C\n");
  CHECK_ENDS(with_a_global, 0, "before last: *\nlast: *\nunloading: *\n");
  return TEST_RESULT();
}

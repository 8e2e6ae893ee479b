// Throwing when the C library has no memory left: small exceptions still travel, also ones of classes never thrown
// before; one that is too big for what is set aside terminates, and the terminate handler may still throw and catch.
// What operator new and its handler do, generated/memory tells. test-variants: -O0 | -O2
#include <exception>
#include <new>

#include "../heap.h"

// Memory is short for as long as one of these lives.
struct shortage {
  shortage() { heap_fails_at = 0; }
  ~shortage() { heap_fails_at = -1; }
};
struct quiet : std::exception {
  virtual const char *what() const throw() { return "quiet"; }
};
struct part {
  int p;
};
struct joined : part, virtual quiet {};
template <int size> struct sized { char bytes[size]; };
typedef sized<2000> medium;

static int round_trip(int which) {
  static joined object;
  const shortage s;
  try {
    switch (which) {
      case 0: throw 1;
      case 1: throw quiet();
      case 2: throw joined();
      case 3: throw &object;
      case 4: ::operator new(100); break;
      case 5: throw medium();
      default: throw which;
    }
  } catch (int n) {
    return n > 10 ? round_trip(n - 1) + 1 : 0;  // handlers fit into each other: a throw's notes are given back
  } catch (joined &j) { return strcmp(j.what(), "quiet") == 0 ? 2 : -1; } catch (part *) {
    return 3;
  } catch (quiet &) {
    try {
      throw;
    } catch (std::exception &) { return 1; }
  } catch (medium &) { return 5; } catch (std::bad_alloc &) {
    return 4;
  }
  return -1;
}

// A clean-up runs while memory is short, and throws and catches: what a throw notes on its way out has a place.
struct busy {
  int depth;
  explicit busy(int d) : depth(d) {}
  ~busy() {
    if (depth == 0) return;
    try {
      busy inner(depth - 1), second(0);
      throw depth;
    } catch (int n) { trace("%d", n); }
  }
};
static void clean_ups() {
  const shortage s;
  try {
    busy a(3), b(0), c(2);
    throw 9;
  } catch (int n) { trace("%d", n); }
}

static void terminate_handler() {
  const int works = round_trip(1) + round_trip(4);
  heap_fails_at = -1;
  printf("terminate handler %d\n", works);
  fflush(stdout);
  _exit(3);
}
static void too_many(int depth) {
  try {
    throw medium();
  } catch (medium &) {
    if (depth) too_many(depth - 1);
  }
}
static int ending;
static void end() {
  std::set_terminate(terminate_handler);
  heap_fails_at = 0;
  if (ending) too_many(5);
  try {
    throw sized<20000>();
  } catch (...) { puts("caught"); }
}

int main() {
  if (!HEAP_IS_COUNTED) return TEST_SKIP;  // a sanitizer's heap cannot be made to fail
  for (int which = 0; which < 6; ++which) CHECK_INT(round_trip(which), which);
  CHECK_INT(round_trip(24), 14);
  clean_ups();
  CHECK_TRACE("1 2 1 2 3 9");
  int live = 0;
  for (int i = 0; i < 100; ++i) {
    if (i == 10) live = heap_live;  // the first throws keep what they learned of the frames
    try {
      throw sized<20000>();
    } catch (sized<20000> &) { too_many(i % 7); }
  }
  CHECK_INT(heap_live, live);
  for (; ending < 2; ++ending) CHECK_ENDS(end, 3, "terminate handler 5");
  return TEST_RESULT();
}

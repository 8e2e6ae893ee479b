// Throwing when the C library has no memory left: small exceptions still travel, also ones of classes never thrown before;
// one that is too big for what is set aside terminates, and the terminate handler may still throw and catch. What operator
// new and its handler do, generated/memory tells. test-variants: -O0 | -O2
#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "../heap.h"

// Memory is short for as long as one of these lives.
struct shortage {
  shortage() { heap_fails_at = 0; }
  ~shortage() { heap_fails_at = -1; }
};
struct quiet : std::exception {
  int n;
  explicit quiet(int k) : n(k) {}
  virtual const char *what() const throw() { return "quiet"; }
};
struct part {
  int p;
};
struct joined : part, virtual quiet {
  joined() : quiet(4) {}
};
struct medium {
  char bytes[2000];
};
struct big {
  char bytes[20000];
};

static int round_trip(int which) {
  static joined object;
  const shortage s;
  try {
    switch (which) {
      case 0: throw 1;
      case 1: throw quiet(2);
      case 2: throw joined();
      case 3: throw &object;
      case 4: throw std::bad_alloc();
      case 5: throw medium();
      case 6: ::operator new(100);
      case 7: throw joined();
      default: throw which;
    }
  } catch (int n) {
    return n > 10 ? round_trip(n - 1) + 1 : 0;  // handlers fit into each other: a throw's notes are given back
  } catch (joined &j) {
    return which == 7 && strcmp(j.what(), "quiet") == 0 ? 7 : 2;
  } catch (part *) {
    return 3;
  } catch (quiet &) {
    return 1;
  } catch (medium &) {
    return 5;
  } catch (std::bad_alloc &) {
    return which;
  }
  return -1;
}

// Three levels of nesting, rethrows included, fit.
static int nested_and_rethrown() {
  const shortage s;
  try {
    try {
      throw medium();
    } catch (medium &) {
      try {
        throw quiet(5);
      } catch (std::exception &) {
        try { throw; } catch (quiet &q) { if (q.n != 5) return -1; }
        throw;
      }
    }
  } catch (quiet &q) {
    return q.n;
  }
  return -2;
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
    } catch (int n) {
      trace("%d", n);
    }
  }
};
static void clean_ups() {
  const shortage s;
  try {
    busy a(3), b(0), c(2);
    throw 9;
  } catch (int n) {
    trace("%d", n);
  }
}

static void terminate_handler() {
  const int works = round_trip(1) + round_trip(4);
  heap_fails_at = -1;
  printf("terminate handler %d\n", works), fflush(stdout), _exit(3);
}
static void too_big() {
  std::set_terminate(terminate_handler);
  heap_fails_at = 0;
  try { throw big(); } catch (...) { puts("caught"); }
}
static void too_many(int depth) {
  try { throw medium(); } catch (medium &) { if (depth) too_many(depth - 1); }
}
static void too_many_mediums() {
  std::set_terminate(terminate_handler);
  heap_fails_at = 0;
  too_many(5);
}

int main() {
  if (!HEAP_IS_COUNTED) return TEST_SKIP;  // a sanitizer's heap cannot be made to fail
  for (int which = 0; which < 8; ++which) CHECK_INT(round_trip(which), which);
  CHECK_INT(round_trip(24), 14);
  CHECK_INT(nested_and_rethrown(), 5);
  clean_ups();
  CHECK_TRACE("1 2 1 2 3 9");
  const int live = heap_live;
  for (int i = 0; i < 100; ++i) {
    try { throw big(); } catch (big &) { too_many(i % 7); }
  }
  CHECK_INT(heap_live, live);
  CHECK_ENDS(too_big, 3, "terminate handler 5");
  CHECK_ENDS(too_many_mediums, 3, "terminate handler 5");
  return TEST_RESULT();
}

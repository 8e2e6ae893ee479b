// Throwing when the C library has no memory left: small exceptions still travel, also ones of classes never thrown
// before; one that is too big for what is set aside terminates, and the terminate handler may still throw and catch.
// And what comes out of each form of operator new, with each handler. test-variants: -O0 | -O2
#include <exception>
#include <new>

#include <plx/runtime.h>

#include "../heap.h"

// Memory is short for as long as one of these lives.
struct shortage {
  shortage() { heap_fails_at = 0; }
  ~shortage() { heap_fails_at = -1; }
};
struct quiet : std::exception {};
template <int size> struct sized { char bytes[size]; };
typedef sized<2000> medium;

static int round_trip(int which) {
  const shortage s;
  try {
    switch (which) {
      case 0: throw 1;
      case 1: throw quiet();
      case 2: throw medium();
      case 3: ::operator new(100); break;
      default: throw which;
    }
  } catch (int n) {
    return n > 10 ? round_trip(n - 1) + 1 : 0;  // handlers fit into each other: a throw's notes are given back
  } catch (quiet &) {
    try {
      throw;
    } catch (std::exception &) { return 1; }
  } catch (medium &) { return 2; } catch (std::bad_alloc &) {
    return 3;
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
  const int works = round_trip(1) + round_trip(3);
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

// Small throws where a block from the heap is nearly full: what a new block needs was kept free in it.
static void throw_of_size(int size) {
  *static_cast<int *>(__throw_setup(&__TI_i, size, 0)) = size;
  __throw();
}
static void full_blocks() {
  for (int size = 1000; size < 4600; size += 8) try {
      throw sized<20000>();
    } catch (sized<20000> &) {
      try {
        busy a(1), b(1);
        throw_of_size(size);
      } catch (int n) { CHECK_INT(n, size); }
    }
  test_trace[0] = 0;
}

// ---- operator new

// By pointers: compilers take an allocation away together with its release.
static void *plain(unsigned bytes) { return ::operator new(bytes); }
static void *array(unsigned bytes) { return ::operator new[](bytes); }
static void *nothrow(unsigned bytes) { return ::operator new(bytes, std::nothrow); }
static void *nothrow_array(unsigned bytes) { return ::operator new[](bytes, std::nothrow); }
static void *(*volatile forms[])(unsigned) = {plain, array, nothrow, nothrow_array};
static void release(int form, void *block) { form % 2 ? ::operator delete[](block) : ::operator delete(block); }

static const char *outcome_of(int form, unsigned bytes) {
  try {
    void *const block = forms[form](bytes);
    release(form, block);
    return block ? "block" : "null";
  } catch (std::bad_alloc &) { return "bad_alloc"; } catch (int) {
    return "int";
  }
}
static volatile int calls;
static void third_time_gives_up() {
  if (++calls == 3) __default_new_handler();
}
static void throws_int() {
  ++calls;
  throw 5;
}
static void finds_memory() {
  if (++calls == 2) heap_fails_at = -1;
}
static void unexpected_int() {
  trace("unexpected");
  throw 6;
}
static void new_handlers() {
  static const struct {
    std::new_handler handler;
    int calls;
    const char *thrown, *quiet;
  } cases[] = {{__default_new_handler, 0, "bad_alloc", "null"},
               {0, 0, "bad_alloc", "null"},
               {third_time_gives_up, 3, "bad_alloc", "null"},
               {throws_int, 1, "int", "int"},
               {finds_memory, 2, "block", "block"}};
  CHECK(std::set_new_handler(0) == __default_new_handler);
  std::set_unexpected(unexpected_int);
  for (unsigned i = 0; i < sizeof cases / sizeof *cases - !HEAP_IS_COUNTED; ++i)
    for (int form = 0; form < 4; ++form) {
      const bool exhausts = cases[i].handler == finds_memory;
      calls = 0;
      std::set_new_handler(cases[i].handler);
      if (exhausts) heap_fails_at = 0;
      CHECK_TEXT(outcome_of(form, exhausts ? 16 : 0xF0000000u), form < 2 ? cases[i].thrown : cases[i].quiet);
      CHECK_INT(calls, cases[i].calls);
      CHECK_TRACE(cases[i].handler == throws_int ? "unexpected" : "");
      CHECK(std::set_new_handler(0) == cases[i].handler && !__curr_eh_stack_entry);
    }
  for (int form = 0; form < 4; ++form) {
    void *const first = forms[form](0), *const second = forms[form](0);
    CHECK(first && second && first != second);
    release(form, first);
    release(form, second);
    release(form, 0);
  }
}

int main() {
  new_handlers();
  if (!HEAP_IS_COUNTED) return TEST_RESULT();  // a sanitizer's heap cannot be made to fail
  for (int which = 0; which < 4; ++which) CHECK_INT(round_trip(which), which);
  CHECK_INT(round_trip(24), 14);
  clean_ups();
  CHECK_TRACE("1 2 1 2 3 9");
  full_blocks();
  int live = 0;
  for (int i = 0; i < 100; ++i) {
    if (i == 10) live = heap_live;  // the first throws keep what they learned of the frames
    try {
      throw sized<20000>();
    } catch (sized<20000> &) { too_many(i % 7); }
  }
  CHECK_INT(heap_live, live);
  for (; ending < 2; ++ending) CHECK_ENDS(end, 3, "terminate handler 4");
  return TEST_RESULT();
}

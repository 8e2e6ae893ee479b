// Allocation failure and the new handler (1998, 18.4.2): std::bad_alloc, the nothrow forms, a handler that makes
// room, gives up, or throws; sizes that cannot be had; what is left behind when an object's memory cannot be had in
// the middle of things.
// test-variants: -O0 | -O2 -std=gnu++17
#include <malloc.h>
#include <new>
#include <sys/resource.h>

#include "../harness.h"

// More than a 32-bit process can get in one piece, yet no constant that the compiler could reason about.
static volatile size_t too_much = 0xF0000000u;

static void plain_failure() {
  bool caught = false;
  try {
    char *volatile p = new char[too_much];
    CHECK(p == 0);
  } catch (std::bad_alloc &e) {
    caught = true;
    CHECK(e.what()[0] != 0);
  }
  CHECK(caught);
  caught = false;
  try {
    void *volatile p = ::operator new(too_much);
    CHECK(p == 0);
  } catch (std::exception &) {
    caught = true;
  }
  CHECK(caught);
  char *volatile q = new (std::nothrow) char[too_much];
  CHECK(q == 0);
  CHECK(::operator new(too_much, std::nothrow) == 0);
  // zero bytes is a valid size, and each block its own
  void *a = ::operator new(0), *b = ::operator new(0);
  CHECK(a != 0 && a != b);
  ::operator delete(a);
  ::operator delete(b);
  ::operator delete(0);
}

static int calls;
static void count_then_give_up() {
  trace("h%d", ++calls);
  if (calls == 3) std::set_new_handler(0);
}
static void throw_bad_alloc() {
  trace("throwing");
  throw std::bad_alloc();
}
static void *reserve;
static void free_the_reserve() {
  trace("freed");
  free(reserve);
  reserve = 0;
  std::set_new_handler(0);
}

static void handlers() {
  std::set_new_handler(count_then_give_up);  // what was there before is not null with plx: it is a default handler
  calls = 0;
  try {
    ::operator new(too_much);
    trace("got it");
  } catch (std::bad_alloc &) {
    trace("bad_alloc");
  }
  CHECK_TRACE("h1 h2 h3 bad_alloc");
  calls = 0;
  std::set_new_handler(count_then_give_up);
  CHECK(::operator new[](too_much, std::nothrow) == 0);
  CHECK_TRACE("h1 h2 h3");
  std::set_new_handler(throw_bad_alloc);
  CHECK(::operator new(too_much, std::nothrow) == 0);
  CHECK_TRACE("throwing");
  try {
    char *volatile p = new char[too_much];
    delete[] p;
  } catch (std::bad_alloc &) {
    trace("bad_alloc");
  }
  CHECK_TRACE("throwing bad_alloc");
  CHECK(std::set_new_handler(0) == throw_bad_alloc);
}

// A handler that makes room: the address space is limited so that the second block does not fit beside the reserve.
static void handler_makes_room() {
  struct rlimit limit;
  getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = 300u << 20;
  setrlimit(RLIMIT_AS, &limit);
  reserve = malloc(150u << 20);
  if (reserve == 0) {
    puts("made room");  // the limit already leaves no room for the case
    return;
  }
  std::set_new_handler(free_the_reserve);
  try {
    char *volatile p = new char[200u << 20];
    p[0] = 1;
    puts(strcmp(test_trace, "freed") == 0 ? "made room" : "not called");
  } catch (std::bad_alloc &) {
    puts("bad_alloc");
  }
}

// What a new-expression had built is undone when a later allocation in it fails.
struct owner {
  char *small;
  char *large;
  struct guard {
    ~guard() { trace("guard"); }
  } g;
  owner() : small(new char[10]), large(0) {
    try {
      large = new char[too_much];
    } catch (std::bad_alloc &) {
      delete[] small;
      throw;
    }
  }
};
static void in_the_middle() {
  unsigned before = 0;
  for (int i = 0; i < 100; ++i) {
    if (i == 1) before = mallinfo2().uordblks;  // the first throw keeps what it learned of the frames
    try {
      owner *volatile p = new owner;
      CHECK(p == 0);
    } catch (std::bad_alloc &) {
      trace("bad_alloc");
    }
    CHECK_TRACE("guard bad_alloc");
  }
  unsigned after = mallinfo2().uordblks;
  CHECK_INT(after - before, 0);
}

// An array whose size in bytes does not fit: from the 2011 dialect on this throws, before it the size is what the
// multiplication leaves, so there it is not asked for.
static void overflowing_size() {
#if __cplusplus >= 201103L
  struct large {
    char bytes[1 << 20];
  };
  volatile unsigned count = 0x10000;
  bool caught = false;
  try {
    large *volatile p = new large[count];
    CHECK(p == 0);
  } catch (std::bad_alloc &) {
    caught = true;
  }
  CHECK(caught);
#endif
}

// plx enforces operator new's specification throw(std::bad_alloc): an int from the new handler is unexpected.
#if __cplusplus < 201103L && defined(PLX_CONFIG_H)
static void throw_int() { throw 17; }
static void throw_in_handler() {
  std::set_new_handler(throw_int);
  try {
    ::operator new(too_much);
  } catch (int n) {
    trace("int%d", n);
  } catch (std::bad_alloc &) {
    trace("bad_alloc");
  }
  std::set_new_handler(0);
}
#endif

static void only_bad_alloc_leaves() {
#if __cplusplus < 201103L && defined(PLX_CONFIG_H)
  CHECK_ABORTS(throw_in_handler, "");
#endif
}

int main() {
  plain_failure();
  handlers();
  CHECK_ENDS(handler_makes_room, 0, "made room");
  in_the_middle();
  overflowing_size();
  only_bad_alloc_leaves();
  return TEST_RESULT();
}

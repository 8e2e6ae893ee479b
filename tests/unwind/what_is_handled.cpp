// What `throw;` means where exceptions pass each other: to a destructor that runs while another is in flight, after a
// handler was left by a rethrow, in an unexpected handler more than once. And where thrown objects lie.
// test-variants: -O0 -std=gnu++98 | -O2 -msse2 -std=gnu++98
// test-peer: gnu++98
#include <exception>

#include "../harness.h"

static void who() {
  try {
    throw;
  } catch (int n) {
    trace("int%d", n);
  } catch (double) {
    trace("double");
  } catch (...) {
    trace("?");
  }
}
struct asks {
  ~asks() { who(); }
};
#define APART __attribute__((__noinline__))
static APART void throw_double() { throw 2.5; }
static APART void throw_past() {
  asks local;
  throw_double();
}
static APART void rethrow_double() {
  try {
    throw_double();
  } catch (double) {
    throw;
  }
}
static APART void rethrow_past() {
  asks local;
  rethrow_double();
}

static void in_destructors() {
  void (*const paths[])() = {throw_past, rethrow_past};
  for (int i = 0; i < 2; ++i) {
    try {
      throw 1;
    } catch (int) {
      try {
        paths[i]();
      } catch (double) {
        trace("caught");
      }
      try {
        asks local;
        throw_double();
      } catch (double) {
        who();
      }
      who();
    }
    CHECK_TRACE("int1 caught int1 double int1");
  }
}
// Nothing is handled any more when the destructor asks.
static void left_its_handler() {
  try {
    rethrow_past();
  } catch (double) {
  }
}

static void sort_out_twice() {
  who();
  who();
  throw;
}
static void violate() throw(std::bad_exception);
static void violate() throw(std::bad_exception) { throw 3; }
static void in_unexpected() {
  std::set_unexpected(sort_out_twice);
  try {
    throw 4.5;
  } catch (double) {
    try {
      violate();
    } catch (std::bad_exception &) {
      who();
    }
    who();
  }
  CHECK_TRACE("int3 int3 ? double");
}

struct eight {
  int a[8];
};
static eight model = {{1, 2, 3, 4, 5, 6, 7, 8}};
template <class T> static APART void throw_copy(const T &object) { throw object; }
static void alignment() {
  for (int k = 0; k < 3; ++k) {
    try {
      throw 1;
    } catch (int) {
      try {
        if (k == 0) throw eight();
        throw_copy(model);
      } catch (eight &e) {
        CHECK_INT((unsigned long)&e % 16, 0);
        CHECK_INT(e.a[7], k ? 8 : 0);
      }
    }
  }
}

int main() {
  in_destructors();
  in_unexpected();
  alignment();
  CHECK_ABORTS(left_its_handler, "");
  return TEST_RESULT();
}

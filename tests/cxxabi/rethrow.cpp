// What `throw;` means where exceptions pass each other: to destructors that run while a `throw;` leads the same exception
// out of its handler, while another is in flight, in an unexpected handler. (The host's library ends the rethrown one too
// early, so there is no peer.) test-variants: -O0 -std=gnu++98 | -O2 -std=gnu++98
#include <exception>

#include "../harness.h"

#define APART static __attribute__((__noinline__))
struct error {
  int n;
  explicit error(int k) : n(k) {}
  error(const error &o) : n(o.n) {}
  ~error() { trace("~%d", n); }
};
static void ask() {
  try {
    throw;
  } catch (error &e) { trace("?%d", e.n);
  } catch (int n) { trace("?i%d", n);
  } catch (...) { trace("?"); }
}
// Rethrows while an exception is in flight, through a frame of its own, to `depth` handlers.
static void ask_deep(int depth);
struct asks {
  int depth;
  explicit asks(int d) : depth(d) {}
  ~asks() { depth ? ask_deep(depth - 1) : ask(); }
};
static void ask_deep(int depth) {
  try {
    asks a(depth);
    throw;
  } catch (...) {
    trace("h%d", depth);
    ask();
  }
}
static void (*volatile ask_from_afar)(int) = ask_deep;

APART void leave(int depth) {
  try {
    throw error(1);
  } catch (error &) {
    asks a(depth);
    asks b(0);
    throw;
  }
}
// The locals of frames that the rethrow passes after it left the handler find what was handled before.
static void leave_and_pass(int depth) {
  asks outer(depth);
  leave(0);
}
APART void throw_double() { throw 2.5; }
APART void throw_past() { asks local(0); throw_double(); }
APART void rethrow_double() { try { throw_double(); } catch (double) { throw; } }
APART void rethrow_past() { asks local(0); rethrow_double(); }
static void uncaught() { try { rethrow_past(); } catch (double) {} }  // nothing is handled when the destructor asks

static void sort_out_twice() {
  ask();
  ask();
  throw;
}
static void violate() throw(std::bad_exception);
static void violate() throw(std::bad_exception) { throw 3; }

// Hundreds of handlers of one exception inside each other: its end comes once.
static int nest(int depth) {
  try { throw; } catch (error &e) { return depth ? nest(depth - 1) + 1 : e.n; }
}

int main() {
  static const char *const wants[] = {"?1 ?1 c ?1 ~1", "?1 ?1 h0 ?1 c ?1 ~1", "?1 ?1 h0 ?1 h1 ?1 c ?1 ~1",
                                      "?1 ?1 h0 ?1 h1 ?1 h2 ?1 c ?1 ~1"};
  for (int depth = 0; depth < 4; ++depth) {
    try {
      leave(depth);
    } catch (error &) {
      trace("c");
      ask();
    }
    CHECK_TRACE(wants[depth]);
  }
  try {
    throw 7;
  } catch (int) {
    for (int depth = 0; depth < 2; ++depth) {
      try { leave_and_pass(depth); } catch (error &) { asks in_handler(0); }
      CHECK_TRACE(depth ? "?1 ?1 ?i7 h0 ?i7 ?1 ~1" : "?1 ?1 ?i7 ?1 ~1");
    }
    ask_from_afar(2);
    CHECK_TRACE("?i7 h0 ?i7 h1 ?i7 h2 ?i7");
    try {
      asks d(2);
      throw;
    } catch (int) {
      ask();
    }
    CHECK_TRACE("?i7 h0 ?i7 h1 ?i7 ?i7");
    void (*const paths[])() = {throw_past, rethrow_past};
    for (int i = 0; i < 2; ++i) {
      try { paths[i](); } catch (double) { trace("caught"); }
      try { asks local(0); throw_double(); } catch (double) { ask(); }
      ask();
      CHECK_TRACE("?i7 caught ?i7 ? ?i7");
    }
  }
  std::set_unexpected(sort_out_twice);
  try {
    throw 4.5;
  } catch (double) {
    try { violate(); } catch (std::bad_exception &) { ask(); }
    ask();
  }
  CHECK_TRACE("?i3 ?i3 ? ?");
  try { throw error(5); } catch (...) { CHECK_INT(nest(300), 305); }
  CHECK_TRACE("~5");
  CHECK_ABORTS(uncaught, "");
  return TEST_RESULT();
}

// `throw;` while a `throw;` of the same exception is on its way out of its handler: destructors of the handler's locals
// still find the exception handled, however often, and it ends once, when its last handler does. (The host's library
// ends it too early, so there is no peer.)
// test-variants: -O0 | -O2
#include "../harness.h"

struct error {
  int n;
  explicit error(int k) : n(k) {}
  error(const error &o) : n(o.n) {}
  ~error() { trace("~%d", n); }
};
static void ask() {
  try {
    throw;
  } catch (error &e) {
    trace("?%d", e.n);
  } catch (int n) {
    trace("?i%d", n);
  }
}
// Rethrows while an exception is in flight, through a frame of its own, to `depth` handlers.
static void ask_deep(int depth) {
  struct again {
    int depth;
    explicit again(int d) : depth(d) {}
    ~again() { depth ? ask_deep(depth - 1) : ask(); }
  };
  try {
    again a(depth);
    throw;
  } catch (...) {
    trace("h%d", depth);
    ask();
  }
}
struct asks {
  int depth;
  explicit asks(int d) : depth(d) {}
  ~asks() { depth ? ask_deep(depth - 1) : ask(); }
};
static void (*volatile ask_from_afar)(int) = ask_deep;

static void leave(int depth) {
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
      try {
        leave_and_pass(depth);
      } catch (error &) {
        asks in_handler(0);
      }
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
  }
  return TEST_RESULT();
}

// The life of an exception object: how often it is copied, when it is destroyed, that a handler by reference sees the
// one object, what happens when its copy constructor throws, and that objects of every size and many at once are
// possible without losing memory.
// test-variants: -O0 | -O1 | -O3 | -Os | -O2 -std=gnu++11
#include <exception>
#include <malloc.h>

#include "../harness.h"

static int live;

struct tracked {
  int id;
  explicit tracked(int n) : id(n) {
    ++live;
    trace("+%d", id);
  }
  tracked(const tracked &other) : id(other.id + 1) {
    ++live;
    trace("c%d", id);
  }
  ~tracked() {
    --live;
    trace("-%d", id);
  }
};

// A temporary is constructed in place; an lvalue is copied once; a handler by value copies once more.
static void copies() {
  try {
    throw tracked(10);
  } catch (const tracked &t) {
    trace("h%d", t.id);
  }
  CHECK_TRACE("+10 h10 -10");
  try {
    throw tracked(10);
  } catch (tracked t) {
    trace("h%d", t.id);
  }
  CHECK_TRACE("+10 c11 h11 -11 -10");
  {
    tracked local(20);
    try {
      throw local;
    } catch (tracked &t) {
      trace("h%d", t.id);
      CHECK(&t != &local);
    }
    trace("end");
  }
  CHECK_TRACE("+20 c21 h21 -21 end -20");
  try {
    static tracked never_destroyed_here(30);
    trace("try");
    throw never_destroyed_here;
  } catch (...) {
    trace("any");
  }
  CHECK_TRACE("+30 try c31 any -31");
  try {
    try {
      throw tracked(40);
    } catch (tracked t) {
      t.id = 99;
      throw;  // the exception object, not the copy
    }
  } catch (tracked &t) {
    trace("h%d", t.id);
  }
  CHECK_TRACE("+40 c41 -99 h40 -40");
  try {
    try {
      throw tracked(50);
    } catch (tracked &t) {
      throw t;  // a new exception, a copy of the first
    }
  } catch (tracked &t) {
    trace("h%d", t.id);
  }
  CHECK_TRACE("+50 c51 -50 h51 -51");
  CHECK_INT(live, 1);
}

static void leave_by_return(int how) {
  for (int i = 0; i < 1; ++i) {
    try {
      throw tracked(60 + how);
    } catch (tracked &) {
      if (how == 0) return;
      if (how == 1) break;
      if (how == 2) continue;
      if (how == 3) goto out;
    }
  }
out:
  trace("out");
}

static void destroyed_however_the_handler_is_left() {
  leave_by_return(0);
  CHECK_TRACE("+60 -60");
  leave_by_return(1);
  CHECK_TRACE("+61 -61 out");
  leave_by_return(2);
  CHECK_TRACE("+62 -62 out");
  leave_by_return(3);
  CHECK_TRACE("+63 -63 out");
}

// A copy constructor that throws while the exception object is made replaces the exception; one that throws while a
// handler's parameter is made terminates.
struct fragile {
  static int copies_left;
  fragile() {}
  fragile(const fragile &) {
    if (copies_left-- == 0) throw 77;
  }
};
int fragile::copies_left;

static void copy_for_the_throw_fails() {
  fragile f;
  tracked outside(1);
  fragile::copies_left = 0;
  try {
    tracked inside(2);
    throw f;
  } catch (fragile &) {
    trace("fragile");
  } catch (int n) {
    trace("int%d", n);
    trace(std::uncaught_exception() ? "uncaught" : "handled");
  }
  CHECK_TRACE("+1 +2 -2 int77 handled");
  fragile::copies_left = 1;
  try {
    throw f;
  } catch (fragile &) {
    trace("fragile");
  } catch (int n) {
    trace("int%d", n);
  }
  CHECK_TRACE("fragile");
  // The failed attempt must leave nothing behind: no exception is being handled now.
  try {
    throw 5;
  } catch (int n) {
    CHECK_INT(n, 5);
  }
}

static void handler_parameter_copy_throws() {
  fragile f;
  fragile::copies_left = 1;
  try {
    try {
      throw f;
    } catch (fragile by_value) {
      puts("handler");
    }
  } catch (...) {
    puts("escaped");
  }
}
static void say_terminate() {
  puts("terminate handler");
  fflush(stdout);
  _exit(3);
}
static void handler_parameter_copy_throws_with_handler() {
  std::set_terminate(say_terminate);
  handler_parameter_copy_throws();
}

// Inside the copy of a parameter a complete throw and catch is allowed.
struct careful {
  careful() {}
  careful(const careful &) {
    try {
      throw tracked(70);
    } catch (tracked &) {
      trace("inner");
    }
  }
};
static void copy_that_catches() {
  careful c;
  try {
    throw c;
  } catch (careful by_value) {
    trace("outer");
  }
  CHECK_TRACE("+70 inner -70 +70 inner -70 outer");
}

// The constructor of the object to be thrown throws and catches; or it fails, and nothing is destroyed that was not
// built.
struct made_with_trouble {
  tracked part;
  explicit made_with_trouble(bool fails) : part(80) {
    try {
      throw tracked(90);
    } catch (tracked &) {
    }
    if (fails) throw tracked(100);
  }
};
static void construction_of_the_object() {
  try {
    throw made_with_trouble(false);
  } catch (made_with_trouble &) {
    trace("caught");
  }
  CHECK_TRACE("+80 +90 -90 caught -80");
  try {
    throw made_with_trouble(true);
  } catch (made_with_trouble &) {
    trace("wrong");
  } catch (tracked &) {
    trace("caught");
  }
  CHECK_TRACE("+80 +90 -90 +100 -80 caught -100");
}

// Objects that fit no small buffer.
template <int Size> struct big {
  unsigned char bytes[Size];
  explicit big(int seed) { fill(seed); }
  void fill(int seed) {
    for (int i = 0; i < Size; ++i) bytes[i] = (unsigned char)(i * 7 + seed);
  }
  bool holds(int seed) const {
    for (int i = 0; i < Size; ++i)
      if (bytes[i] != (unsigned char)(i * 7 + seed)) return false;
    return true;
  }
};

template <int Size> static void throw_big() {
  try {
    throw big<Size>(3);
  } catch (big<Size> &outer) {
    try {
      throw big<Size>(4);
    } catch (big<Size> &inner) {
      CHECK(inner.holds(4));
      try {
        throw 1;
      } catch (int) {
      }
      CHECK(inner.holds(4));
      inner.fill(5);
    }
    CHECK(outer.holds(3));
  }
}

static void sizes() {
  throw_big<1>();
  throw_big<7>();
  throw_big<100>();
  throw_big<1000>();
  throw_big<8000>();
  throw_big<8184>();
  throw_big<8192>();
  throw_big<8193>();
  throw_big<40000>();
  throw_big<1000000>();
}

// Thousands of exceptions alive at the same time, of changing sizes, each handled inside the handler of the one before.
static int nest(int depth) {
  try {
    if (depth % 3 == 0) throw big<200>(depth);
    if (depth % 3 == 1) throw depth;
    throw big<3000>(depth);
  } catch (big<200> &b) {
    int inner = depth ? nest(depth - 1) : 0;
    return inner + b.holds(depth);
  } catch (int n) {
    int inner = depth ? nest(depth - 1) : 0;
    return inner + (n == depth);
  } catch (big<3000> &b) {
    int inner = depth ? nest(depth - 1) : 0;
    return inner + b.holds(depth);
  }
}

// Every handler is left by a new exception: one object after another dies while a younger one lives.
static void relay(int depth) {
  try {
    if (depth == 0) throw tracked(0);
    relay(depth - 1);
  } catch (tracked &t) {
    big<500> on_the_stack(depth);
    if (!on_the_stack.holds(depth)) trace("damaged");
    throw tracked(t.id + 1);
  }
}

static void many_at_once() {
  CHECK_INT(nest(2999), 3000);
  test_trace[0] = 0;
  try {
    relay(3000);
  } catch (tracked &t) {
    CHECK_INT(t.id, 3001);
    CHECK(strstr(test_trace, "damaged") == 0);
    CHECK_INT(live, 2);
  }
  CHECK_INT(live, 1);
  test_trace[0] = 0;
}

// Nothing is lost, in whatever order exceptions end.
static void one_round(int i) {
  try {
    try {
      throw big<300>(i);
    } catch (big<300> &) {
      try {
        throw big<9000>(i);
      } catch (big<9000> &) {
        if (i % 2) throw;
        throw i;
      }
    }
  } catch (...) {
    try {
      throw;
    } catch (int) {
    } catch (big<9000> &b) {
      if (!b.holds(i)) trace("damaged");
    }
  }
}
static void nothing_is_lost() {
  for (int i = 0; i < 20; ++i) one_round(i);
  unsigned before = mallinfo2().uordblks;
  for (int i = 0; i < 5000; ++i) one_round(i);
  unsigned after = mallinfo2().uordblks;
  CHECK_INT(after - before, 0);
  CHECK_TRACE("");
}

// A class whose copies are made by a non-trivial assignment-free path: the handler's by-value base part of a larger
// object.
struct root {
  tracked t;
  root() : t(200) {}
};
struct leaf : root {
  tracked u;
  leaf() : u(300) {}
};
static void slice() {
  try {
    throw leaf();
  } catch (root r) {
    trace("h%d", r.t.id);
  }
  CHECK_TRACE("+200 +300 c201 h201 -201 -300 -200");
}

int main() {
  copies();
  destroyed_however_the_handler_is_left();
  copy_for_the_throw_fails();
  test_trace[0] = 0;
  CHECK_ABORTS(handler_parameter_copy_throws, "");
  CHECK_ENDS(handler_parameter_copy_throws_with_handler, 3, "terminate handler");
  copy_that_catches();
  construction_of_the_object();
  sizes();
  many_at_once();
  nothing_is_lost();
  slice();
  CHECK_INT(live, 1);
  return TEST_RESULT();
}

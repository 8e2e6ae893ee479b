// Constructions that fail half-way: arrays of every kind at every element, members and bases, new-expressions with the
// matching deallocation function, array cookies, and destructors of array elements that throw.
// test-variants: -O0 | -O1 | -O2 | -O3 | -O2 -std=gnu++17
#include <new>
#include <stddef.h>

#include "../harness.h"

#if __cplusplus >= 201103L
#define MAY_THROW noexcept(false)
#else
#define MAY_THROW
#endif

static int built;      // so far
static int fail_at;    // the construction that fails, counted from 0; -1: none
static int destroyed;  // so far
static int order_kept;
static int alive[200];
static int alive_count;

struct element {
  int number;
  char filler[9];
  element() { construct(); }
  element(const element &) { construct(); }
  ~element() {
    ++destroyed;
    // Destroyed strictly in reverse order of construction.
    if (alive_count == 0 || alive[--alive_count] != number) order_kept = 0;
  }
  void construct() {
    if (built == fail_at) throw built;
    number = built++;
    alive[alive_count++] = number;
  }
};

static void reset(int at) {
  built = destroyed = alive_count = 0;
  order_kept = 1;
  fail_at = at;
}

// Runs `body`, which constructs `count` elements, failing at each in turn, and then without a failure.
static void fail_at_each(void (*body)(), int count) {
  for (int at = 0; at < count; ++at) {
    reset(at);
    int caught = -1;
    try {
      body();
    } catch (int n) {
      caught = n;
    }
    CHECK_INT(caught, at);
    CHECK_INT(built, at);
    CHECK_INT(destroyed, at);
    CHECK(order_kept);
  }
  reset(-1);
  body();
  CHECK_INT(built, count);
  CHECK_INT(destroyed, count);
  CHECK(order_kept);
}

static volatile int five = 5;

static void local_array() { element a[5]; }
static void local_matrix() { element a[3][4]; }
static void heap_array() { delete[] new element[five]; }
static void heap_constant_array() { delete[] new element[7]; }
static void heap_matrix() { delete[] new element[five][3]; }
static void heap_single() { delete new element; }
struct has_arrays {
  element first;
  element line[3];
  element matrix[2][2];
  element last;
};
static void member_arrays() { has_arrays h; }
static void array_of_aggregates() { has_arrays h[2]; }
static void heap_of_aggregates() { delete[] new has_arrays[2]; }
struct base_arrays : has_arrays {
  element own[2];
  base_arrays() {}
};
static void derived_arrays() { base_arrays b; }
static void partly_initialised() { element a[4] = {element(), element()}; }
static void several_locals() {
  element a;
  element b[2];
  {
    element c[2];
  }
  // c's numbers are not reused, so the reverse order still holds
  element d;
}
static void placement_array() {
  static char room[sizeof(element) * 4 + 64];
  element *p = new (room) element;
  try {
    new (room + sizeof(element)) element[3];
  } catch (...) {
    p->~element();
    throw;
  }
  for (int i = 3; i >= 1; --i) p[i].~element();
  p->~element();
}
static void copied_array() {
  has_arrays h;
  has_arrays copy(h);
}

static void arrays() {
  fail_at_each(local_array, 5);
  fail_at_each(local_matrix, 12);
  fail_at_each(heap_array, 5);
  fail_at_each(heap_constant_array, 7);
  fail_at_each(heap_matrix, 15);
  fail_at_each(heap_single, 1);
  fail_at_each(member_arrays, 9);
  fail_at_each(array_of_aggregates, 18);
  fail_at_each(heap_of_aggregates, 18);
  fail_at_each(derived_arrays, 11);
  fail_at_each(partly_initialised, 4);
  fail_at_each(several_locals, 6);
  fail_at_each(copied_array, 18);
}

static void no_elements() {
  reset(-1);
  volatile int none = 0;
  element *p = new element[none];
  CHECK(p != 0);
  delete[] p;
  delete[](element *)0;
  CHECK_INT(destroyed, 0);
}

// The memory of a failed new-expression goes back through the deallocation function that matches.
struct arena {
  int taken, given;
};
static arena pool;
void *operator new(size_t size, arena &a, int) {
  ++a.taken;
  return malloc(size);
}
void operator delete(void *p, arena &a, int) {
  ++a.given;
  free(p);
}
void *operator new[](size_t size, arena &a) {
  ++a.taken;
  return malloc(size);
}
void operator delete[](void *p, arena &a) {
  ++a.given;
  free(p);
}
struct lost_arena {
  int taken;
};
void *operator new(size_t, lost_arena &a) {  // no operator delete matches: nothing is called
  ++a.taken;
  static double room[16];
  return room;
}

struct own {
  static int taken, given, array_taken, array_given;
  static size_t size_given;
  int n[4];
  explicit own(bool fails = true) {
    if (fails) throw 3;
  }
  virtual ~own() { trace("~own"); }
  void *operator new(size_t size) {
    ++taken;
    return malloc(size);
  }
  void operator delete(void *p, size_t size) {
    ++given;
    size_given = size;
    free(p);
  }
  void *operator new[](size_t size) {
    ++array_taken;
    return malloc(size);
  }
  void operator delete[](void *p) {
    ++array_given;
    free(p);
  }
};
int own::taken, own::given, own::array_taken, own::array_given;
size_t own::size_given;
struct larger : own {
  double more[3];
  larger() : own(false) {}
  explicit larger(int) : own(false) { throw 4; }
};

static int catch_int(void (*body)()) {
  try {
    body();
  } catch (int n) {
    return n;
  }
  return -1;
}
static void new_in_arena() { new (pool, 1) element; }
static void new_array_in_arena() { new (pool) element[3]; }
static void new_in_lost_arena() {
  static lost_arena lost = {0};
  new (lost) element;
}
static void new_own() { new own; }
static void new_own_array() { new own[3]; }
static void new_larger() { new larger(1); }
static void new_nothrow() { new (std::nothrow) element; }
static int throwing_argument() { throw 8; }
static void new_with_failing_argument() { new own(throwing_argument() != 0); }

static void matching_deallocation() {
  reset(0);
  CHECK_INT(catch_int(new_in_arena), 0);
  CHECK_INT(pool.taken, 1);
  CHECK_INT(pool.given, 1);
  reset(1);
  CHECK_INT(catch_int(new_array_in_arena), 1);
  CHECK_INT(pool.taken, 2);
  CHECK_INT(pool.given, 2);
  CHECK_INT(destroyed, 1);
  reset(0);
  CHECK_INT(catch_int(new_in_lost_arena), 0);
  CHECK_INT(catch_int(new_nothrow), 0);

  CHECK_INT(catch_int(new_own), 3);
  CHECK_INT(own::taken, 1);
  CHECK_INT(own::given, 1);
  CHECK_INT(own::size_given, sizeof(own));
  CHECK_INT(catch_int(new_own_array), 3);
  CHECK_INT(own::array_taken, 1);
  CHECK_INT(own::array_given, 1);
  CHECK_INT(catch_int(new_larger), 4);
  CHECK_INT(own::taken, 2);
  CHECK_INT(own::given, 2);
  CHECK_INT(own::size_given, sizeof(larger));
  CHECK_TRACE("~own");
  own *p = new larger;
  delete p;  // the virtual destructor knows the size
  CHECK_INT(own::given, 3);
  CHECK_INT(own::size_given, sizeof(larger));
  CHECK_TRACE("~own");
  own::taken = own::given = 0;
  CHECK_INT(catch_int(new_with_failing_argument), 8);
  CHECK_INT(own::taken, own::given);
}

// Members and bases, virtual ones too, are undone in reverse order; the object's own destructor does not run.
struct part {
  const char *name;
  part(const char *n, bool fails) : name(n) {
    if (fails) throw n;
  }
  ~part() { trace("~%s", name); }
};
static int failing_part;
struct vb {
  part p;
  vb() : p("vb", failing_part == 1) {}
  virtual ~vb() {}
};
struct left : virtual vb {
  part p;
  left() : p("left", failing_part == 2) {}
};
struct right : virtual vb {
  part p;
  right() : p("right", failing_part == 3) {}
};
struct joined : left, right {
  part a, b;
  joined() : a("a", failing_part == 4), b("b", failing_part == 5) {
    if (failing_part == 6) throw "body";
  }
  ~joined() { trace("~joined"); }
};
static void try_joined(int n, const char *expected) {
  failing_part = n;
  try {
    joined j;
  } catch (const char *name) {
    trace("=%s", name);
  }
  CHECK_TRACE(expected);
  try {
    delete new joined;
  } catch (const char *name) {
    trace("=%s", name);
  }
  CHECK_TRACE(expected);
}
static void parts() {
  try_joined(0, "~joined ~b ~a ~right ~left ~vb");
  try_joined(1, "=vb");
  try_joined(2, "~vb =left");
  try_joined(3, "~left ~vb =right");
  try_joined(4, "~right ~left ~vb =a");
  try_joined(5, "~a ~right ~left ~vb =b");
  try_joined(6, "~b ~a ~right ~left ~vb =body");
}

// Temporaries of a full expression are destroyed when a later part of it throws. The order of arguments is free.
struct temporary {
  int n;
  explicit temporary(int k) : n(k) {
    if (k < 0) throw k;
  }
  ~temporary() { trace("~t%d", n); }
};
static int sum(const temporary &a, const temporary &b, int c) { return a.n + b.n + c; }
static int throws(int n) { throw n; }
static void temporaries() {
  for (int i = 0; i < 3; ++i) {
    try {
      if (i == 0) sum(temporary(1), temporary(-2), 3);
      if (i == 1) sum(temporary(1), temporary(1), throws(4));
      if (i == 2) sum(temporary(1), temporary(2), 3) ? throw 5 : 0;
    } catch (int n) {
      trace("=%d", n);
    }
    if (i == 0) CHECK(strcmp(test_trace, "~t1 =-2") == 0 || strcmp(test_trace, "=-2") == 0);
    if (i == 1) CHECK(strcmp(test_trace, "~t1 ~t1 =4") == 0 || strcmp(test_trace, "=4") == 0);
    if (i == 2) CHECK(strcmp(test_trace, "~t2 ~t1 =5") == 0 || strcmp(test_trace, "~t1 ~t2 =5") == 0);
    test_trace[0] = 0;
  }
}

// An element's destructor throws: the rest of the array is still destroyed and the memory given back.
struct throws_when_destroyed {
  static int thrower;
  static int given;
  int n;
  ~throws_when_destroyed() MAY_THROW {
    trace("~%d", n);
    if (n == thrower) throw n;
  }
  void operator delete[](void *p) {
    ++given;
    free(p);
  }
  void *operator new[](size_t size) { return malloc(size); }
};
int throws_when_destroyed::thrower, throws_when_destroyed::given;
static void destroying_throws() {
  throws_when_destroyed::thrower = 1;
  try {
    throws_when_destroyed *p = new throws_when_destroyed[3];
    for (int i = 0; i < 3; ++i) p[i].n = i;
    delete[] p;
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~2 ~1 ~0 =1");
  CHECK_INT(throws_when_destroyed::given, 1);
  try {
    part outer("outer", false);
    throws_when_destroyed local[3];
    for (int i = 0; i < 3; ++i) local[i].n = i;
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~2 ~1 ~0 ~outer =1");
}

int main() {
  arrays();
  reset(-1);
  placement_array();
  no_elements();
  matching_deallocation();
  parts();
  temporaries();
  destroying_throws();
  return TEST_RESULT();
}

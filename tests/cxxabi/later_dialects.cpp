// What later dialects bring to exceptions: noexcept, lambdas, range-for, move construction of the exception object,
// nullptr and char16_t as exceptions, destructors that are noexcept by themselves, constexpr, delegating
// constructors, structured local types as template arguments.
// test-variants: -O1 -std=gnu++11 | -O0 -std=gnu++14 | -O2 -std=gnu++17 | -O3 -std=gnu++20
#include <exception>
#include <initializer_list>
#include <new>
#include <typeinfo>

#include "../harness.h"

#pragma clang diagnostic ignored "-Wexceptions"  // a violated noexcept is what is tested

struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  ~noisy() { trace("~%d", n); }
};

static void say_terminate() {
  puts("terminate handler");
  fflush(stdout);
  _exit(3);
}

// ---- noexcept

static void thrower(int n) {
  noisy local(n);
  if (n) throw n;
}
static void (*volatile hidden)(int) = thrower;
static void never(int n) noexcept { hidden(n); }
static void conditionally(int n) noexcept(sizeof(int) == 4) { hidden(n); }
static void may(int n) noexcept(false) { hidden(n); }
static void handles_inside(int n) noexcept {
  try {
    hidden(n);
  } catch (int k) {
    trace("inside%d", k);
  }
}
struct quiet_destructor {
  ~quiet_destructor() { hidden(1); }  // noexcept without saying so
};
static void violate() {
  std::set_terminate(say_terminate);
  try {
    never(1);
  } catch (...) {
    puts("caught");
  }
}
static void violate_conditional() {
  std::set_terminate(say_terminate);
  try {
    conditionally(1);
  } catch (...) {
    puts("caught");
  }
}
static void violate_in_destructor() {
  std::set_terminate(say_terminate);
  try {
    quiet_destructor d;
  } catch (...) {
    puts("caught");
  }
}
static void violate_from_handler() noexcept {
  std::set_terminate(say_terminate);
  try {
    throw 1;
  } catch (int) {
    throw;
  }
}
static void without_specification() {
  never(0);
  handles_inside(4);
  try {
    may(5);
  } catch (int n) {
    trace("caught%d", n);
  }
  CHECK_TRACE("~0 ~4 inside4 ~5 caught5");
  CHECK(noexcept(never(1)));
  CHECK(!noexcept(may(1)));
  CHECK(noexcept(quiet_destructor()));
}

// ---- lambdas

static int run(int (*function)(int), int n) { return function(n); }
template <class F> static int apply(F function, int n) {
  noisy local(n);
  return function(n);
}
static void lambdas() {
  int seen = 0;
  auto thrower = [&](int n) -> int {
    seen = n;
    throw n * 2;
  };
  try {
    apply(thrower, 4);
  } catch (int n) {
    CHECK_INT(n, 8);
    CHECK_INT(seen, 4);
  }
  auto catcher = [=](int n) {
    try {
      return apply(thrower, n);
    } catch (int got) {
      return got + seen;
    }
  };
  CHECK_INT(catcher(5), 14);
  CHECK_INT(run([](int n) { try { throw n; } catch (int k) { return k + 1; } }, 6), 7);
  try {
    throw [](int n) { return n * 3; };
  } catch (int) {
    trace("wrong");
  } catch (...) {
    trace("lambda");
  }
  CHECK_TRACE("~4 ~5 lambda");
}

// ---- range-for, initialisers

struct range {
  int from, to;
  struct iterator {
    int at;
    int operator*() const {
      if (at == 3) throw at;
      return at;
    }
    iterator &operator++() {
      ++at;
      return *this;
    }
    bool operator!=(const iterator &other) const { return at != other.at; }
  };
  range(int a, int b) : from(a), to(b) {}
  ~range() { trace("~range"); }
  iterator begin() const { return iterator{from}; }
  iterator end() const { return iterator{to}; }
};
static void loops() {
  int array[] = {1, 2, 0, 4};
  int sum = 0;
  for (int n : array) {
    try {
      hidden(n);
    } catch (int k) {
      sum = sum * 10 + k;
      continue;
    }
    sum = sum * 10 + 9;
  }
  CHECK_INT(sum, 1294);
  CHECK_TRACE("~1 ~2 ~0 ~4");
  try {
    for (int n : range(1, 9)) trace("%d", n);
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("1 2 ~range =3");
}

// A list whose construction fails half-way, and one whose taker fails.
struct numbered {
  int n;
  numbered(int k) : n(k) {
    if (k < 0) throw k;
  }
  numbered(const numbered &o) : n(o.n) {}
  ~numbered() { trace("~%d", n); }
};
struct takes_list {
  noisy member;
  takes_list(std::initializer_list<numbered> list) : member(9) {
    int sum = 0;
    for (const numbered &entry : list) sum += entry.n;
    if (sum > 5) throw sum;
  }
};
static void lists() {
  try {
    takes_list t{1, 2, -3, 4};
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~2 ~1 =-3");
  try {
    takes_list t{1, 2, 3};
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~9 ~3 ~2 ~1 =6");
  int sum = 0;
  for (int n : {1, 2, 3}) sum += n;
  CHECK_INT(sum, 6);
}

struct aggregate {
  noisy a;
  noisy b;
  int c;
};
static int fail_with(int n) { throw n; }
static void braces() {
  try {
    aggregate g{noisy(1), noisy(2), fail_with(3)};
    trace("%d", g.c);
  } catch (int n) {
    trace("=%d", n);
  }
  // the members and, where copies are not elided, the temporaries they were copied from, are destroyed
  CHECK(strstr(test_trace, "~2") != 0 && strstr(test_trace, "~1 =3") != 0);
  test_trace[0] = 0;
}

// ---- the exception object

struct movable {
  static int copied, moved;
  int n;
  explicit movable(int k) : n(k) {}
  movable(const movable &o) : n(o.n) { ++copied; }
  movable(movable &&o) noexcept : n(o.n) {
    o.n = 0;
    ++moved;
  }
};
int movable::copied, movable::moved;
struct move_only {
  int n;
  explicit move_only(int k) : n(k) {}
  move_only(move_only &&o) noexcept : n(o.n) { o.n = 0; }
};
static void objects() {
  try {
    movable local(5);
    throw local;  // a local that ends here is moved
  } catch (movable &m) {
    CHECK_INT(m.n, 5);
  }
  CHECK_INT(movable::copied, 0);
  CHECK_INT(movable::moved, 1);
  try {
    throw move_only(6);
  } catch (move_only &m) {
    CHECK_INT(m.n, 6);
  }
  try {
    throw nullptr;
  } catch (int) {
    CHECK(!"nullptr is no int");
  } catch (decltype(nullptr) p) {
    trace("nullptr");
  }
  try {
    throw nullptr;
  } catch (const char *p) {  // converts to every pointer type
    trace(p ? "wrong" : "pointer");
  }
  try {
    throw nullptr;
  } catch (int movable::*p) {
    trace(p ? "wrong" : "member pointer");
  }
  try {
    throw u'x';
  } catch (unsigned short) {
    trace("wrong");
  } catch (char16_t c) {
    trace("%c", (char)c);
  }
  try {
    throw U'y';
  } catch (unsigned) {
    trace("wrong");
  } catch (char32_t c) {
    trace("%c", (char)c);
  }
#if __cplusplus >= 202002L
  try {
    throw u8'z';
  } catch (unsigned char) {
    trace("wrong");
  } catch (char8_t c) {
    trace("%c", (char)c);
  }
#else
  trace("z");
#endif
  CHECK_TRACE("nullptr pointer member pointer x y z");
  enum class scoped : short { a = 3 };
  try {
    throw scoped::a;
  } catch (short) {
    CHECK(!"a scoped enumeration is no short");
  } catch (scoped s) {
    CHECK(s == scoped::a);
  }
  struct alignas(8) aligned {
    long long v;
  };
  try {
    throw aligned{7};
  } catch (aligned &a) {
    CHECK(reinterpret_cast<unsigned>(&a) % 8 == 0);
    CHECK(a.v == 7);
  }
}

// ---- function types of the 2017 dialect, delegating and inherited constructors, static initialisers

static void plain_function() {}
static void quiet_function() noexcept {}
static void function_pointers() {
  try {
    throw &quiet_function;
  } catch (void (*f)()) {  // noexcept may be dropped
    f();
    trace("caught");
  } catch (...) {
    trace("not caught");
  }
  CHECK_TRACE("caught");
#if __cplusplus >= 201703L
  try {
    throw &plain_function;
  } catch (void (*f)() noexcept) {
    trace("wrong");
  } catch (void (*f)()) {
    trace("caught");
  }
  CHECK_TRACE("caught");
#else
  plain_function();
#endif
}

struct delegating {
  noisy member;
  explicit delegating(int n) : member(n) {}
  delegating(int n, int fail) : delegating(n) {
    if (fail) throw fail;  // the object counts as constructed: its destructor runs
  }
  ~delegating() { trace("~delegating"); }
};
struct inheriting : delegating {
  using delegating::delegating;
  noisy own{8};
};
static void constructors() {
  try {
    delegating d(1, 2);
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~delegating ~1 =2");
  try {
    inheriting i(1, 2);
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~delegating ~1 =2");
  {
    inheriting i(3, 0);
  }
  CHECK_TRACE("~8 ~delegating ~3");
}

// Dynamic casts and typeid in templates with packs.
template <class... T> static int count_types(const std::type_info &wanted) {
  const std::type_info *all[] = {&typeid(T)...};
  int n = 0;
  for (const std::type_info *t : all) n += *t == wanted;
  return n;
}
static void packs() { CHECK_INT((count_types<int, long, const int, char, int &>(typeid(int))), 3); }

#if __cplusplus < 202002L
static int uncaught_now() { return std::uncaught_exception(); }
#endif

int main() {
  without_specification();
  CHECK_ENDS(violate, 3, "terminate handler");
  CHECK_ENDS(violate_conditional, 3, "terminate handler");
  CHECK_ENDS(violate_in_destructor, 3, "terminate handler");
  CHECK_ENDS(violate_from_handler, 3, "terminate handler");
  lambdas();
  loops();
  lists();
  braces();
  objects();
  function_pointers();
  constructors();
  packs();
#if __cplusplus < 202002L
  CHECK_INT(uncaught_now(), 0);
#endif
  return TEST_RESULT();
}

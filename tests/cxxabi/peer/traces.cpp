// What runs in which order when exceptions pass: each body prints a trace, and the host's library says the right one.
// Every step of an object also tells std::uncaught_exception (a star), and every body how many objects it left behind.
// prints: 16 lines
// test-variants: -O0 | -O2 -fomit-frame-pointer
#include <exception>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static void say(const char *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  vprintf(format, arguments);
  va_end(arguments);
  printf(std::uncaught_exception() ? "* " : " ");
}

// An object that tells its life; also what is thrown mostly.
static int alive;
struct noisy {
  int n;
  explicit noisy(int k) : n(k) { ++alive, say("+%d", n); }
  noisy(const noisy &other) : n(other.n + 1000) { ++alive, say("c%d", n); }
  virtual ~noisy() { --alive, say("~%d", n); }
};
struct special : noisy {
  noisy part;
  explicit special(int k) : noisy(k), part(k + 1) {}
};

static void (*bodies[200])();
static const char *names[200];
static int count;
static bool add(const char *name, void (*body)()) {
  names[count] = name;
  bodies[count++] = body;
  return true;
}
#define BODY(name)                               \
  static void name();                            \
  static bool added_##name = add(#name, name);   \
  static void name()

static void fail_now(int n) {
  noisy local(900 + n);
  if (n >= 50) throw special(n);
  if (n) throw noisy(n);
}
static void (*volatile fail)(int) = fail_now;
static void throw_int_now(int n) { if (n) throw n; }
static void (*volatile throw_int)(int) = throw_int_now;

// ---- handlers, as random/scenes does not have them

BODY(many_times) {
  int times = 0;
  try { fail(20); } catch (noisy &e) {
    for (int i = 0; i < 1000; ++i) try { throw; } catch (noisy &again) { times += &again == &e; }
    say("h%d,%d", e.n, times);
  }
}
BODY(pointer_parameters_are_copies) {
  static noisy object(1);
  try {
    try { throw &object; } catch (noisy *&p) { p = 0; throw; }
  } catch (noisy *p) { say(p == &object ? "kept" : "changed"); }
  try {
    try { throw (special *)0; } catch (noisy *p) { p = &object; throw; }
  } catch (special *p) { say(p ? "changed" : "kept"); }
}

// Recursion: passed on through 2000 handlers, replaced in 1000, over 20000 frames.
static int levels;
static void pass_on(int depth) {
  if (depth == 0) throw_int(1);
  try { pass_on(depth - 1); } catch (int &n) { ++levels, ++n; throw; }
}
static void replace(int depth) {
  if (depth == 0) throw_int(1);
  try { replace(depth - 1); } catch (int n) { ++levels; throw_int(n + 2); }
}
struct counted { ~counted() { ++levels; } };
static int far_away(int depth) {
  counted c;
  if (depth == 0) throw_int(1);
  return far_away(depth - 1) + 1;
}
BODY(deep) {
  levels = 0;
  try { pass_on(2000); } catch (int n) { say("%d,%d", n, levels); }
  levels = 0;
  try { replace(1000); } catch (int n) { say("%d,%d", n, levels); }
  levels = 0;
  try { far_away(20000); } catch (int n) { say("%d,%d", n, levels); }
}

// ---- the exception object

BODY(copies) {
  try { throw noisy(10); } catch (const noisy &e) { say("h%d", e.n); }
  try { throw noisy(10); } catch (noisy e) { say("h%d", e.n); }
  noisy local(20);
  try { throw local; } catch (noisy &e) { say(&e == &local ? "same" : "copy"); }
  try {
    try { throw noisy(40); } catch (noisy e) { e.n = 99; throw; }
  } catch (noisy &e) { say("h%d", e.n); }
  try {
    try { throw noisy(50); } catch (noisy &e) { throw e; }
  } catch (noisy &e) { say("h%d", e.n); }
  try { throw special(60); } catch (noisy slice) { say("h%d", slice.n); }
}
static void leave(int how) {
  for (int i = 0; i < 2; ++i) {
    try { throw noisy(60 + how); } catch (noisy &) {
      noisy in_handler(how);
      if (how == 0) return;
      if (how == 1) break;
      if (how == 2) continue;
      if (how == 3) goto out;
    }
  }
out:
  say("out");
}
BODY(destroyed_however_the_handler_is_left) { for (int how = 0; how < 5; ++how) leave(how); }
struct fragile {
  noisy part;
  int copies;
  explicit fragile(int n) : part(n), copies(n) {}
  fragile(const fragile &o) : part(o.part), copies(o.copies - 1) { if (copies < 0) throw 77; }
};
BODY(copy_for_the_throw_fails) {
  noisy outside(1);
  for (int n = 0; n < 2; ++n) {
    fragile f(n);
    try { noisy inside(2); throw f; }
    catch (fragile &) { say("fragile"); }
    catch (int k) { say("int%d", k); }
  }
}
// ---- ways in and out

static int loop(int rounds) {
  int sum = 0;
  for (int i = 0; i < rounds; ++i) {
    try {
      noisy local(i);
      if (i == 3) continue;
      if (i == 13) break;
      if (i % 3 == 2) throw (double)i;
      throw_int(i % 3 ? i : 0);
      sum += 1;
    } catch (int n) {
      noisy local(100 + i);
      if (n == 4) continue;
      sum += n;
    } catch (double d) {
      sum += (int)d * 10;
      if (d == 11) goto last;
    }
    sum += 1000;
    continue;
  last:
    sum += 100000;
  }
  return sum;
}
static int nested_loops() {
  int sum = 0;
  for (int i = 0; i < 10; ++i) {
    try {
      for (int k = 0; k <= i; ++k) {
        try {
          if ((i + k) % 4 == 3) throw i;
          ++sum;
        } catch (int n) {
          if (n % 2) throw (long)k;
          continue;
        }
      }
    } catch (long) { sum += 100; }
  }
  return sum;
}
BODY(loops) { say("%d", loop(20)); say("%d", nested_loops()); }
static double return_floating(int n) {
  double value = n / 4.0;
  try { throw_int(n % 3); return value; } catch (int k) { return value + k; }
}
static long long return_wide(int n) {
  long long value = 0x100000001LL * n;
  try { throw_int(n % 3); return value; } catch (int k) { return -value + k; }
}
static const char *in_switch(int n) {
  switch (n) {
    case 0:
    case 1:
      try { throw_int(n); return "body"; } catch (int) { break; }
    case 2:
      try { throw_int(n); } catch (int) { return "caught"; }
    default: return "default";
  }
  return "broken out";
}
static int with_goto(int n) {
  int tries = 0;
again:
  ++tries;
  try {
    noisy local(tries);
    if (tries < n) goto again;
    throw tries;
  } catch (int k) {
    if (k < n + 2) goto again;
    return k;
  }
}
BODY(values) {
  for (int n = 6; n < 9; ++n) say("%g %lld", return_floating(n), return_wide(n));
  for (int n = 0; n < 4; ++n) say("%s", in_switch(n));
  say("%d", with_goto(3));
}
#define INLINE inline __attribute__((__always_inline__))
static INLINE int guarded(int n) {
  try { noisy local(n); if (n % 3 == 1) throw n; if (n % 3 == 2) throw (double)n; return 0; } catch (int k) { return k; }
}
static INLINE int doubly_guarded(int n) {
  try { return guarded(n) + guarded(n + 3); } catch (double d) { noisy local(-n); return -(int)d; }
}
static INLINE int rethrowing(int n) {
  try { return doubly_guarded(n) + guarded(n); } catch (...) { try { throw; } catch (double) { throw n; } }
}
BODY(inlined) {
  for (int n = 3; n < 6; ++n) {
    int sum = guarded(n * 3) + doubly_guarded(n);
    try { sum += rethrowing(n) * 100; } catch (int k) { sum += k * 10000; }
    say("%d", sum);
  }
}
// ---- construction and function try blocks

static int fails_at, step;
static int number(int n) { if (++step == fails_at) throw n; return n; }
struct root { noisy part; root() : part(number(1)) {} virtual ~root() { say("~root"); } };
struct left : virtual root { noisy part; left() try : part(number(2)) {} catch (int n) { say("l%d", n); } };
struct right : virtual root { noisy part; right() : part(number(3)) {} };
struct default_noisy : noisy { default_noisy() : noisy(number(7)) {} };
struct joined : left, right {
  default_noisy b[2];
  noisy a;
  joined() try : b(), a(number(4)) { number(5); } catch (int &n) { say("j%d", n); n += 10; }
  ~joined() try { say("~joined"); number(6); } catch (int n) { say("d%d", n); }
};
BODY(members_and_bases) {
  for (fails_at = 0; fails_at < 9; ++fails_at) {
    step = 0;
    try { joined j; say("made"); } catch (int n) { say("=%d", n); }
    step = 0;
    try { delete new joined; } catch (int n) { say("=%d", n); }
  }
  fails_at = -1;
}
static int function_block(int n) try {
  noisy local(n);
  throw_int(n);
  return 0;
} catch (int k) {
  if (k == 2) throw;
  return k;
}
BODY(function_blocks) {
  for (int n = 0; n < 3; ++n) try { say("%d", function_block(n)); } catch (int k) { say("=%d", k); }
}
struct base_parameter {
  noisy n;
  base_parameter(noisy by_value, int fails) try : n(by_value) { throw_int(fails); } catch (int k) { say("%d", by_value.n); }
};
struct destructor_block : noisy {
  noisy part;
  destructor_block() : noisy(1), part(2) {}
  ~destructor_block() try { throw 3; } catch (int n) { say("d%d", n); return; }
};
BODY(odd_function_blocks) {
  try { base_parameter b(noisy(1), 2); } catch (int n) { say("=%d", n); }
  { destructor_block d; }
  try { destructor_block d; throw 'c'; } catch (char) { say("c"); }
}
static int throws(int n) { noisy local(n); throw n; }
struct throws_when_destroyed {
  int n;
  ~throws_when_destroyed() { say("~e%d", n); if (n == 1) throw n; }
  void *operator new[](size_t size) { say("new"); return malloc(size); }
  void operator delete[](void *p) { say("delete"); free(p); }
};
BODY(element_destructor_throws) {
  try {
    throws_when_destroyed *p = new throws_when_destroyed[3];
    for (int i = 0; i < 3; ++i) p[i].n = i;
    delete[] p;
  } catch (int n) { say("=%d", n); }
  try {
    noisy outer(1);
    throws_when_destroyed local[3];
    for (int i = 0; i < 3; ++i) local[i].n = i;
  } catch (int n) { say("=%d", n); }
}

// ---- memory of failed new-expressions goes back where it came from

struct arena { int taken, given; } pool;
void *operator new(size_t size, arena &a, int) { ++a.taken; return malloc(size); }
void operator delete(void *p, arena &a, int) throw() { ++a.given; free(p); }
void *operator new[](size_t size, arena &a) { ++a.taken; return malloc(size); }
void operator delete[](void *p, arena &a) throw() { ++a.given; free(p); }
struct owns_new : noisy {
  double more[3];
  explicit owns_new(int fails = 1) : noisy(5) { throw_int(fails); }
  void *operator new(size_t size) { say("new"); return malloc(size); }
  void operator delete(void *p, size_t size) { say(size == sizeof(owns_new) ? "delete" : "wrong size"); free(p); }
  void *operator new[](size_t size) { say("new[]"); return malloc(size); }
  void operator delete[](void *p) { say("delete[]"); free(p); }
};
BODY(matching_deallocation) {
  static volatile int two = 2;
  for (int i = 0; i < 6; ++i) try {
    fails_at = i + 1, step = i == 2 ? 1 : i;
    if (i == 0) new (pool, 1) default_noisy;
    if (i == 1) new (pool) default_noisy[two];
    if (i == 2) new (pool) default_noisy[two];
    if (i == 3) new owns_new;
    if (i == 4) new owns_new[two];
    if (i == 5) { noisy *p = new owns_new(0); delete p; new owns_new(throws(8)); }
  } catch (int n) { say("=%d:%d,%d", n, pool.taken, pool.given); }
  fails_at = -1;
}

// ---- local statics

static int attempts;
static int fails_twice() { if (++attempts < 3) throw attempts; return attempts; }
static int once() { static int value = fails_twice(); return value; }
struct part_and_throw { noisy part; explicit part_and_throw(int n) : part(n) { throw_int(fails_at); } };
static part_and_throw *second_of_two() {
  static noisy first(1);
  static part_and_throw second(2);
  return &second;
}
static default_noisy *static_array() { static default_noisy elements[3]; return elements; }
static int inner_static() { static int value = fails_twice(); return value + 1; }
static int outer_static() { static int value = inner_static() + 1; return value; }
template <class T> static T &instance() { static T object(sizeof(T)); return object; }
BODY(local_statics) {
  attempts = 0;
  for (int i = 0; i < 5; ++i) try { say("%d", once()); } catch (int n) { say("=%d", n); }
  for (fails_at = 2; fails_at >= 0; --fails_at) try { second_of_two(); say("made"); } catch (int) { say("caught"); }
  for (int i = 3; i >= 0; --i) try { fails_at = i, step = 0; static_array(); } catch (int n) { say("=%d", n); }
  attempts = 1;
  for (int i = 0; i < 3; ++i) try { say("%d", outer_static()); } catch (int n) { say("=%d", n); }
  say("%d", &instance<noisy>() == &instance<noisy>());
  for (int i = 0; i < 2; ++i) { static noisy in_loop(20); static const noisy &reference = noisy(30); say("%d", reference.n); }
  fails_at = -1;
}
template <int n> static void many_statics() {
  static noisy one(n);
  many_statics<n - 1>();
}
template <> void many_statics<0>() {}
struct starts_late { ~starts_late() { say("~starter"); instance<special>(); } };
struct handles_at_end { ~handles_at_end() { try { fail(70); } catch (noisy &e) { say("%d", e.n); } } };
BODY(statics_that_end) {
  static starts_late starter;
  static handles_at_end handles_at_exit;
  (void)starter, (void)handles_at_exit;
  many_statics<200>();
}

int main() {
  setvbuf(stdout, 0, _IOLBF, 1 << 12);
  for (int i = 0; i < count; ++i) {
    printf("%s: ", names[i]);
    const int before = alive;
    try { bodies[i](); } catch (...) { printf("escaped "); }
    printf(" (%d)\n", alive - before);
  }
  return 0;  // and the ends of all statics
}

// What random/scenes does not have: pointers changed by handlers, deep recursion, local statics. Each body prints a trace,
// and the host's library says the right one; every step of an object also tells std::uncaught_exception (a star), and
// every body how many objects it left behind.
// prints: 4 lines
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

static void throw_int_now(int n) { if (n) throw n; }
static void (*volatile throw_int)(int) = throw_int_now;

static void pointer_parameters_are_copies() {
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
// More clean-ups than a throw notes at once, each of which throws.
struct busy { ~busy() { try { throw 'c'; } catch (char) { ++levels; } } };
static int past_busy(int depth) {
  busy b;
  if (depth == 0) throw_int(1);
  return past_busy(depth - 1) + 1;
}
static void (*volatile try_past)(int);
static void try_past_now(int depth) {
  levels = 0;
  try { past_busy(depth); } catch (int n) { say("%d,%d", n, levels); }
}
static void deep() {
  try_past = try_past_now;
  for (int depth = 28; depth < 70; depth += 1 + depth / 36 * 4) { noisy outer(depth); try_past(depth); }
  levels = 0;
  try { pass_on(2000); } catch (int n) { say("%d,%d", n, levels); }
  levels = 0;
  try { replace(1000); } catch (int n) { say("%d,%d", n, levels); }
  levels = 0;
  try { far_away(20000); } catch (int n) { say("%d,%d", n, levels); }
}

// ---- local statics

static int fails_at, step;
static int number(int n) { if (++step == fails_at) throw n; return n; }
struct default_noisy : noisy { default_noisy() : noisy(number(7)) {} };

static int attempts;
static int fails_twice() { if (++attempts < 3) throw attempts; return attempts; }
static int once() { static int value = fails_twice(); return value; }
static default_noisy *static_array() { static default_noisy elements[3]; return elements; }
static int inner_static() { static int value = fails_twice(); return value + 1; }
static int outer_static() { static int value = inner_static() + 1; return value; }
template <class T> static T &instance() { static T object(sizeof(T)); return object; }
static void local_statics() {
  attempts = 0;
  for (int i = 0; i < 5; ++i) try { say("%d", once()); } catch (int n) { say("=%d", n); }
  for (int i = 3; i >= 0; --i) try { fails_at = i; step = 0; static_array(); } catch (int n) { say("=%d", n); }
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
struct handles_at_end { ~handles_at_end() { try { throw special(70); } catch (noisy &e) { say("%d", e.n); } } };
static void statics_that_end() {
  static starts_late starter;
  static handles_at_end handles_at_exit;
  (void)starter, (void)handles_at_exit;
  many_statics<200>();
}

int main() {
  void (*const bodies[])() = {pointer_parameters_are_copies, deep, local_statics, statics_that_end};
  setvbuf(stdout, 0, _IOLBF, 1 << 12);
  for (int i = 0; i < 4; ++i) {
    const int before = alive;
    try { bodies[i](); } catch (...) { printf("escaped "); }
    printf(" (%d)\n", alive - before);
  }
  return 0;  // and the ends of all statics
}

// What random/scenes does not have: pointers changed by handlers, deep recursion, local statics. Each body prints a
// trace, and the host's library says the right one; every step of an object also tells std::uncaught_exception (a
// star), and every body how many objects it left behind.
// prints: 4 lines
// test-variants: -O0 | -O2 -fomit-frame-pointer
#include <exception>
#include <stdarg.h>
#include <stdio.h>

static void say(const char *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  vprintf(format, arguments);
  va_end(arguments);
  printf(std::uncaught_exception() ? "* " : " ");
}

// An object that tells its life.
static int alive;
struct noisy {
  int n;
  explicit noisy(int k) : n(k) {
    ++alive;
    say("+%d", n);
  }
  virtual ~noisy() {
    --alive;
    say("~%d", n);
  }
};
struct special : noisy {
  noisy part;
  explicit special(int k) : noisy(k), part(k + 1) {}
};

static noisy the_noisy(1);
static void change_pointer() {
  try {
    throw &the_noisy;
  } catch (noisy *&p) {
    p = 0;
    throw;
  }
}
static void change_null() {
  try {
    throw static_cast<special *>(0);
  } catch (noisy *p) {
    p = &the_noisy;
    throw;
  }
}
static void pointer_parameters_are_copies() {
  void (*const changes[])() = {change_pointer, change_null};
  for (int i = 0; i < 2; ++i) {
    try {
      changes[i]();
    } catch (special *p) { say("special %d", p != 0); } catch (noisy *p) {
      say("noisy %d", p == &the_noisy);
    }
  }
}

// Recursion: passed on through handlers, replaced in them, over many frames, and past more clean-ups than a throw notes
// at once, each of which throws.
static int levels;
static int throw_one_now(int n) { throw n; }
static int (*volatile throw_one)(int) = throw_one_now;
static int pass_on(int depth) {
  try {
    return depth == 0 ? throw_one(1) : pass_on(depth - 1);
  } catch (int &n) {
    ++n;
    throw;
  }
}
static int replace(int depth) {
  try {
    return depth == 0 ? throw_one(1) : replace(depth - 1);
  } catch (int n) { return throw_one(n + 2); }
}
struct counted {
  ~counted() { ++levels; }
};
static int far_away(int depth) {
  counted c;
  return depth == 0 ? throw_one(1) : far_away(depth - 1) + 1;
}
struct busy {
  ~busy() {
    try {
      throw_one(1);
    } catch (int n) { levels += n; }
  }
};
static int past_busy(int depth) {
  busy b;
  return depth == 0 ? throw_one(1) : past_busy(depth - 1) + 1;
}
static void go(int (*function)(int), int depth) {
  noisy outer(depth);
  levels = 0;
  try {
    function(depth);
  } catch (int n) { say("%d,%d", n, levels); }
}
static void (*volatile go_there)(int (*)(int), int) = go;
static void deep() {
  for (int depth = 28; depth < 70; depth += 1 + depth / 36 * 4) go_there(past_busy, depth);
  go_there(pass_on, 2000);
  go_there(replace, 1000);
  go_there(far_away, 20000);
}

// Initialisers of local statics fail: the next call tries again.
static int calls, fails_at;
static int number() { return ++calls <= fails_at ? throw_one(calls) : calls; }
struct numbered : noisy {
  numbered() : noisy(number()) {}
};
static int once() {
  static int value = number();
  return value;
}
static int inside() {
  static int value = once() + number();
  return value;
}
static int array() {
  static numbered elements[3];
  return elements[2].n;
}
template <class T> static int instance() {
  static T object(sizeof(T));
  return object.n;
}
static int reference() {
  static const noisy &object = noisy(30);
  return object.n;
}
static void local_statics() {
  int (*const functions[])() = {inside, array, reference, instance<noisy>, once};
  for (int i = 0; i < 15; ++i) {
    if (i % 3 == 0) fails_at = calls + 2;
    try {
      say("%d", functions[i / 3]());
    } catch (int n) { say("=%d", n); }
  }
}
template <int n> static void many_statics() {
  static noisy one(n);
  many_statics<n - 1>();
}
template <> void many_statics<0>() {}
struct starts_late {
  ~starts_late() { instance<special>(); }
};
static void statics_that_end() {
  static starts_late starter;
  static busy handles_at_exit;
  many_statics<200>();
}

int main() {
  void (*const bodies[])() = {pointer_parameters_are_copies, deep, local_statics, statics_that_end};
  setvbuf(stdout, 0, _IOLBF, 1 << 12);
  for (int i = 0; i < 4; ++i) {
    const int before = alive;
    bodies[i]();
    printf(" (%d)\n", alive - before);
  }
  return 0;  // and the ends of all statics
}

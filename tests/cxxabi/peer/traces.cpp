// What the random programs do not have: deep recursion, local statics. The host's library says what is right.
// prints: 2 lines
// test-variants: -O0 | -O2 -fomit-frame-pointer
#include <stdio.h>

struct noisy {
  int n;
  explicit noisy(int k) : n(k) { printf("+%d ", n); }
  ~noisy() { printf("~%d ", n); }
};

// Over many frames, and past more clean-ups than a throw notes at once, each of which throws.
static int levels;
static int throw_one_now(int n) { throw n; }
static int (*volatile throw_one)(int) = throw_one_now;
struct counted {
  ~counted() { ++levels; }
};
struct busy {
  ~busy() {
    try {
      throw_one(1);
    } catch (int n) { levels += n; }
  }
};
template <class Local> static int far_away(int depth) {
  Local local;
  return depth == 0 ? throw_one(1) : far_away<Local>(depth - 1) + 1;
}
static void go(int (*function)(int), int depth) {
  noisy outer(depth);
  levels = 0;
  try {
    function(depth);
  } catch (int n) { printf("%d,%d ", n, levels); }
}
static void (*volatile go_there)(int (*)(int), int) = go;

// Initialisers of local statics fail: the next call tries again.
static int calls, fails_at;
static int number() { return ++calls <= fails_at ? throw_one(calls) : calls; }
static int once() {
  static int value = number();
  return value;
}
static int inside() {
  static int value = once() + number();
  return value;
}
template <int n> static void many_statics() {
  static noisy one(n);
  many_statics<n - 1>();
}
template <> void many_statics<0>() {}
struct starts_late {
  ~starts_late() { static noisy late(9); }
};

int main() {
  const noisy around(0);  // a clean-up beyond the handlers
  for (int depth = 28; depth < 70; depth += 1 + depth / 36 * 4) go_there(far_away<busy>, depth);
  go_there(far_away<counted>, 20000);
  printf("\n");
  int (*const functions[])() = {inside, once};
  for (int i = 0; i < 6; ++i) {
    if (i % 3 == 0) fails_at = calls + 2;
    try {
      printf("%d ", functions[i / 3]());
    } catch (int n) { printf("=%d ", n); }
  }
  static starts_late starter;
  static busy handles_at_exit;
  many_statics<200>();
  printf("\n");
  return 0;  // and the ends of all statics
}

// Ways into and out of try blocks and handlers: loops, switch, goto, return of every kind of value, recursion, calls
// through pointers and virtual functions, inlining, and variables that change between the try and its handler.
// test-variants: -O0 | -O1 | -O2 | -O3 | -Os | -O2 -fomit-frame-pointer
#include "../harness.h"

struct noisy {
  int n;
  explicit noisy(int k) : n(k) {}
  noisy(const noisy &other) : n(other.n) {}
  ~noisy() { trace("~%d", n); }
};

static void may_throw(int n) {
  if (n % 3 == 1) throw n;
  if (n % 3 == 2) throw (double)n;
}
static void (*volatile hidden_may_throw)(int) = may_throw;

// Every way to go on from a body and from handlers, in one loop.
static int loop(int rounds) {
  int sum = 0;
  for (int i = 0; i < rounds; ++i) {
    try {
      noisy local(i);
      if (i == 3) continue;
      if (i == 13) break;
      may_throw(i);
      sum += 1;
    } catch (int n) {
      noisy local(100 + i);
      if (n == 4) continue;
      if (n == 16) break;
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
  int count = 0;
  for (int i = 0; i < 10; ++i) {
    try {
      for (int k = 0; k < 10; ++k) {
        try {
          if (k > i) break;
          if ((i + k) % 4 == 3) throw i;
          ++count;
        } catch (int n) {
          if (n % 2) throw (long)k;
          continue;
        }
      }
    } catch (long) {
      count += 100;
    }
  }
  return count;
}

// The same steps without exceptions.
static int nested_loops_plainly() {
  int count = 0;
  for (int i = 0; i < 10; ++i) {
    for (int k = 0; k <= i; ++k) {
      if ((i + k) % 4 != 3) {
        ++count;
      } else if (i % 2) {
        count += 100;
        break;
      }
    }
  }
  return count;
}
static void loops() {
  CHECK_INT(nested_loops(), nested_loops_plainly());
  CHECK_INT(loop(3), 1 + 1000 + 1 + 1000 + 20 + 1000);
  CHECK_TRACE("~0 ~1 ~101 ~2");
  CHECK_INT(loop(20), 1 + 1 + 20 + (0) + (0) + 50 + 1 + 7 + 80 + 1 + 10 + 110 + 1 + 9 * 1000 + 1000 + 100000);
  test_trace[0] = 0;
}

// return from the body, from a handler and out of nested ones, with values that need destruction.
static noisy make(int how) {
  noisy outer(1);
  try {
    noisy inner(2);
    if (how == 0) return noisy(10);
    if (how == 1) throw 1;
    if (how == 2) throw 'c';
    return noisy(11);
  } catch (int) {
    noisy in_handler(3);
    return noisy(12);
  } catch (char) {
    try {
      throw 2L;
    } catch (long) {
      return noisy(13);
    }
  }
}
static void returns() {
  for (int how = 0; how < 4; ++how) {
    noisy got = make(how);
    trace("got%d", got.n);
  }
  CHECK_TRACE("~2 ~1 got10 ~10 ~2 ~3 ~1 got12 ~12 ~2 ~1 got13 ~13 ~2 ~1 got11 ~11");
}

static double return_floating(int n) {
  double value = n / 4.0;
  try {
    hidden_may_throw(n);
    return value;
  } catch (int k) {
    return value + k;
  } catch (double d) {
    return value - d;
  }
}
static long long return_wide(int n) {
  long long value = 0x100000000LL * n;
  try {
    hidden_may_throw(n);
    return value;
  } catch (int k) {
    return value + k;
  } catch (double) {
    return -value;
  }
}
static void values_survive() {
  CHECK(return_floating(3) == 0.75);
  CHECK(return_floating(4) == 5.0);
  CHECK(return_floating(8) == -6.0);
  CHECK(return_wide(6) == 0x600000000LL);
  CHECK(return_wide(7) == 0x700000007LL);
  CHECK(return_wide(5) == -0x500000000LL);
}

static const char *in_switch(int n) {
  switch (n) {
    case 0:
    case 1:
      try {
        may_throw(n);
        return "body";
      } catch (int) {
        break;
      }
    case 2:
      try {
        may_throw(n);
      } catch (double) {
        return "double";
      }
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
static void jumps() {
  CHECK_TEXT(in_switch(0), "body");
  CHECK_TEXT(in_switch(1), "broken out");
  CHECK_TEXT(in_switch(2), "double");
  CHECK_TEXT(in_switch(5), "default");
  CHECK_INT(with_goto(3), 5);
  CHECK_TRACE("~1 ~2 ~3 ~4 ~5");
}

// Local variables, changed in the body right before the throw, have their new values in the handler, whatever the
// optimiser kept in registers.
static int changed_locals(int n) {
  int a = 1, b = 2;
  unsigned char c = 3;
  float f = 0.5f;
  double d = 0.25;
  long long w = 1LL << 40;
  int *p = &a;
  int array[4] = {1, 2, 3, 4};
  try {
    a += n;
    hidden_may_throw(0);
    b = a * 2;
    c = (unsigned char)(c + n);
    f += n;
    hidden_may_throw(0);
    d = f * 2;
    w += n;
    p = &b;
    array[n & 3] = 77;
    hidden_may_throw(n);
    a = 999;
  } catch (int) {
    ++a;
  } catch (double) {
    a += 2;
  }
  return a * 10 + b + c + (int)(f * 2) + (int)(d * 4) + (int)(w >> 40) + (int)(w & 0xFF) + *p + array[n & 3];
}
static int changed_in_loop(int rounds) {
  int thrown = 0, passed = 0, last = -1;
  for (int i = 0; i < rounds; ++i) {
    int before = last;
    try {
      last = i;
      hidden_may_throw(i);
      ++passed;
    } catch (...) {
      if (before != i - 1 || last != i) return -1;
      ++thrown;
    }
  }
  return thrown * 1000 + passed;
}
static void locals() {
  // a = 5 or 6; b = 10; c = 7; f = 4.5; d = 9; w; p = &b; 77
  CHECK_INT(changed_locals(4), 60 + 10 + 7 + 9 + 36 + 1 + 4 + 10 + 77);
  CHECK_INT(changed_locals(5), 80 + 12 + 8 + 11 + 44 + 1 + 5 + 12 + 77);
  CHECK_INT(changed_in_loop(300), 200 * 1000 + 100);
}

// Recursion, mutual and through virtual functions and pointers to members.
static int countdown(int n) {
  noisy local(n);
  if (n == 0) throw 0;
  try {
    return countdown(n - 1);
  } catch (int k) {
    if (k == n - 1) throw n;
    return -1;
  }
}
struct visitor {
  virtual ~visitor() {}
  virtual int visit(visitor &next, int depth) {
    try {
      if (depth == 0) throw *this;
      return next.visit(*this, depth - 1) + 1;
    } catch (const char *) {
      return -1;
    }
  }
};
struct counting_visitor : visitor {
  int (visitor::*again)(visitor &, int);
  counting_visitor() : again(&visitor::visit) {}
  virtual int visit(visitor &next, int depth) {
    noisy local(depth);
    return (next.*again)(*this, depth - 1) + 1;
  }
};
static void calls() {
  try {
    countdown(4);
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~0 ~1 ~2 ~3 ~4 =4");
  visitor plain;
  counting_visitor counting;
  visitor *volatile first = &counting;
  try {
    first->visit(plain, 5);
  } catch (visitor &) {
    trace("visitor");
  }
  CHECK_TRACE("~1 ~3 ~5 visitor");
}

// Inlined functions with try blocks and handlers, several into one frame.
#define INLINE inline __attribute__((__always_inline__))
static INLINE int guarded(int n) {
  try {
    noisy local(n);
    may_throw(n);
    return 0;
  } catch (int k) {
    return k;
  }
}
static INLINE int doubly_guarded(int n) {
  try {
    return guarded(n) + guarded(n + 3);
  } catch (double d) {
    noisy local(-n);
    return -(int)d;
  }
}
static INLINE int rethrowing(int n) {
  try {
    return doubly_guarded(n) + guarded(n);
  } catch (...) {
    try {
      throw;
    } catch (double) {
      throw n;
    }
  }
}
static int all_inlined(int n) {
  int sum = guarded(n * 3) + doubly_guarded(n);
  try {
    sum += rethrowing(n) * 100;
  } catch (int k) {
    sum += k * 10000;
  }
  return sum;
}
static void inlining() {
  CHECK_INT(all_inlined(3), 0);
  CHECK_TRACE("~9 ~3 ~6 ~3 ~6 ~3");
  CHECK_INT(all_inlined(4), 11 + 1100 + 400);
  CHECK_TRACE("~12 ~4 ~7 ~4 ~7 ~4");
  CHECK_INT(all_inlined(5), -5 + 50000);
  CHECK_TRACE("~15 ~5 ~-5 ~5 ~-5 ~5");
}

// Conditions, and operators that do not evaluate an operand, around things that throw.
static bool yes(int n) {
  if (n) throw n;
  return true;
}
static int conditions(int n) {
  int steps = 0;
  try {
    while (noisy *p = new noisy(n)) {
      ++steps;
      delete p;
      if (yes(steps > 2 ? steps : 0) && (n > 5 || yes(n))) continue;
      break;
    }
  } catch (int k) {
    return k * 10 + steps;
  }
  return steps;
}
static void expressions() {
  CHECK_INT(conditions(6), 33);
  CHECK_INT(conditions(2), 21);
  test_trace[0] = 0;
}

// Out of functions of the C library that called back.
static int compare_calls;
static int compare_and_throw(const void *a, const void *b) {
  noisy local(++compare_calls);
  if (compare_calls == 3) throw compare_calls;
  return *(const int *)a - *(const int *)b;
}
static void through_the_c_library() {
  int numbers[10] = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
  try {
    noisy n(10);
    qsort(numbers, 10, sizeof numbers[0], compare_and_throw);
  } catch (int n) {
    trace("=%d", n);
  }
  CHECK_TRACE("~1 ~2 ~3 ~10 =3");
}

int main() {
  loops();
  returns();
  values_survive();
  jumps();
  locals();
  calls();
  inlining();
  expressions();
  through_the_c_library();
  return TEST_RESULT();
}

// What a clang must get right before plx-c++ uses it: handlers in loops, values that live across them, cleanups, nested
// and rethrown exceptions. Versions are known that lose such handlers, or the values, at some level of optimisation.
// The driver builds and runs this once for each compiler, at every level. Prints what went wrong and returns 1.

extern "C" int puts(const char *);
extern "C" int sprintf(char *, const char *, ...);

#define OPAQUE __attribute__((__noinline__))

static volatile int none = 0; // keeps the optimiser from knowing what is thrown

static OPAQUE void throw_odd(int i) {
  if (i & 1) throw i + none;
}

// The handler's result goes round a loop.
static OPAQUE int sum_in_loop(int n) {
  int sum = 0;
  for (int i = 0; i < n; ++i) try {
      throw_odd(i);
    } catch (int k) {
      sum += k;
    }
  return sum;
}

static int alive;
struct counted {
  int value;
  counted(int v) : value(v + none) { ++alive; }
  ~counted() { --alive; }
};

// Objects of different lifetimes around calls that throw, and a variable that both paths write.
static OPAQUE int cleanups(int n) {
  int steps = 0;
  for (int i = 0; i < n; ++i) {
    counted outer(i);
    try {
      counted inner(i);
      ++steps;
      throw_odd(inner.value);
      counted late(i);
      throw_odd(late.value + 1);
      steps += 100;
    } catch (int k) {
      steps += k == i || k == i + 1 ? 10 : 1000;
    }
  }
  return steps;
}

// Handlers inside handlers; the inner one ends before the outer exception is used again.
static OPAQUE int nested(int n) {
  int sum = 0;
  for (int i = 1; i <= n; ++i) {
    try {
      throw_odd(2 * i + 1);
    } catch (int outer) {
      try {
        throw_odd(i);
        sum += 1000;
      } catch (int inner) {
        sum += inner;
      }
      sum += outer;
    }
  }
  return sum;
}

static OPAQUE int rethrown(int n) {
  int sum = 0;
  for (int i = 0; i < n; ++i) try {
      counted guard(i);
      try {
        throw_odd(i);
      } catch (int) {
        sum += 7;
        throw;
      }
    } catch (long) {
      sum = -1000;
    } catch (int k) {
      sum += k;
    } catch (...) {
      sum = -2000;
    }
  return sum;
}

// Several calls in one try: the handler must see which of them was reached.
static OPAQUE int reached(int i) {
  int where = 0;
  try {
    where = 1;
    throw_odd(i);
    where = 2;
    throw_odd(i + 1);
    where = 3;
  } catch (int k) {
    return where * 10 + (k & 1);
  }
  return where;
}

static OPAQUE int dispatch(int i) {
  try {
    switch (i + none) {
      case 0: throw 1;
      case 1: throw 2L;
      case 2: throw 'c';
      case 3: throw counted(4);
      case 4: throw "text";
    }
  } catch (int k) {
    return k;
  } catch (long k) {
    return int(k);
  } catch (char) {
    return 3;
  } catch (counted &object) {
    return object.value;
  } catch (const char *text) {
    return text[0] == 't' ? 5 : -1;
  }
  return 0;
}

static int wrong;
static void expect(const char *what, int got, int want) {
  if (got == want) return;
  char line[120];
  sprintf(line, "%s: %d, not %d; ", what, got, want);
  if (!wrong) puts(line);
  wrong = 1;
}

int main() {
  expect("a handler in a loop", sum_in_loop(10), 25);
  expect("cleanups", cleanups(10), 10 + 10 * 10);
  expect("nested handlers", nested(4), (3 + 5 + 7 + 9) + 1000 * 2 + (1 + 3));
  expect("a rethrow", rethrown(10), 25 + 5 * 7);
  expect("the place of a throw, odd", reached(1), 11);
  expect("the place of a throw, even", reached(2), 21);
  for (int i = 0; i < 6; ++i) expect("the choice of a handler", dispatch(i), i < 5 ? i + 1 : 0);
  expect("objects left alive", alive, 0);
  return wrong;
}

// Functions whose exception tables outgrow one byte per entry: hundreds of call sites, handlers and types in one
// function, long lists of clauses and of specifications, and deep and wide hierarchies. Tables are read with the
// first, the last and the ones at the edges.
// test-variants: -O0 | -O2
#include <exception>

#include "../harness.h"

template <int N> struct error {
  int value;
  error() : value(N) {}
};
struct counted {
  static int alive;
  counted() { ++alive; }
  ~counted() { --alive; }
};
int counted::alive;

// Not inlined: that alone keeps optimising compilers busy for a minute.
template <int N> __attribute__((__noinline__)) static void thrower(int which) {
  counted c;
  if (which == N) throw error<N>();
}

#define TEN(M, base)                                         \
  M(base + 0) M(base + 1) M(base + 2) M(base + 3) M(base + 4) \
  M(base + 5) M(base + 6) M(base + 7) M(base + 8) M(base + 9)
#define HUNDRED(M, base)                                                                                      \
  TEN(M, base + 0) TEN(M, base + 10) TEN(M, base + 20) TEN(M, base + 30) TEN(M, base + 40) TEN(M, base + 50) \
  TEN(M, base + 60) TEN(M, base + 70) TEN(M, base + 80) TEN(M, base + 90)
#define ALL(M) HUNDRED(M, 0) HUNDRED(M, 100) HUNDRED(M, 200)

// 300 try blocks, each with an object, in one function.
static int many_try_blocks(int which) {
  int result = -1;
#define BLOCK(n)                  \
  try {                           \
    counted c;                    \
    thrower<n>(which);            \
  } catch (error<n> & e) {        \
    result = e.value;             \
  }
  ALL(BLOCK)
  return result;
}

// One try block with 300 calls and 300 clauses.
static int many_clauses(int which) {
  try {
#define CALL(n) thrower<n>(which);
    ALL(CALL)
  }
#define CLAUSE(n) \
  catch (error<n> & e) { return e.value; }
  ALL(CLAUSE)
  return -1;
}

// A specification with 200 types, the last of them allowed as well as the first.
#define NAME(n) error<n>,
static void many_allowed(int which) throw(HUNDRED(NAME, 0) HUNDRED(NAME, 100) int) {
  counted c;
  many_clauses(-1);
  thrower<0>(which);
  thrower<127>(which);
  thrower<128>(which);
  thrower<199>(which);
  thrower<200>(which);
}
static void translate() { throw 12; }

// A line of 200 classes, and a class with 64 bases.
template <int N> struct chain : chain<N - 1> {
  int n;
  chain() : n(N) {}
};
template <> struct chain<0> {
  int n;
  chain() : n(0) {}
};
struct most_bases : TEN(NAME, 0) TEN(NAME, 10) TEN(NAME, 20) TEN(NAME, 30) TEN(NAME, 40) TEN(NAME, 50) error<60> {};

int main() {
  const int edges[] = {0, 1, 62, 63, 64, 126, 127, 128, 129, 199, 255, 256, 298, 299};
  for (unsigned i = 0; i < sizeof edges / sizeof edges[0]; ++i) {
    CHECK_INT(many_try_blocks(edges[i]), edges[i]);
    CHECK_INT(many_clauses(edges[i]), edges[i]);
    CHECK_INT(counted::alive, 0);
  }
  CHECK_INT(many_try_blocks(300), -1);
  CHECK_INT(many_clauses(300), -1);

  std::set_unexpected(translate);
  for (int which = 0; which <= 200; ++which) {
    int caught = -1;
    try {
      many_allowed(which);
    } catch (error<0> &e) {
      caught = e.value;
    } catch (error<127> &e) {
      caught = e.value;
    } catch (error<128> &e) {
      caught = e.value;
    } catch (error<199> &e) {
      caught = e.value;
    } catch (int n) {
      caught = n;
    }
    bool throws = which == 0 || which == 127 || which == 128 || which == 199 || which == 200;
    CHECK_INT(caught, !throws ? -1 : which == 200 ? 12 : which);
    CHECK_INT(counted::alive, 0);
  }

  try {
    throw chain<200>();
  } catch (chain<201> &) {
    CHECK(!"no base");
  } catch (chain<1> &l) {
    CHECK_INT(l.n, 1);
  }
  try {
    throw most_bases();
  } catch (error<61> &) {
    CHECK(!"no base");
  } catch (error<59> &e) {
    CHECK_INT(e.value, 59);
  }
  return TEST_RESULT();
}

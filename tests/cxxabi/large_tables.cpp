// Functions whose exception tables outgrow one byte per entry: hundreds of call sites, handlers, types and allowed
// types in one function, deep and wide hierarchies; looked at are the first, the last and the ones at the edges.
// test-variants: -O0 | -O2
#include <exception>

#include "../harness.h"

template <int N> struct error {
  int value;
  error() : value(N) {}
};
static int alive;
struct counted {
  counted() { ++alive; }
  ~counted() { --alive; }
};

// Not inlined: that alone keeps optimising compilers busy for a minute.
template <int N> __attribute__((__noinline__)) static void thrower(int which) {
  counted c;
  if (which == N) throw error<N>();
}

// clang-format off
#define TEN(M, base) M(base) M(base + 1) M(base + 2) M(base + 3) M(base + 4) M(base + 5) M(base + 6) M(base + 7) M(base + 8) M(base + 9)
#define HUNDRED(M, base) TEN(M, base) TEN(M, base + 10) TEN(M, base + 20) TEN(M, base + 30) TEN(M, base + 40) \
  TEN(M, base + 50) TEN(M, base + 60) TEN(M, base + 70) TEN(M, base + 80) TEN(M, base + 90)
#define ALL(M) HUNDRED(M, 0) HUNDRED(M, 100) HUNDRED(M, 200)

static int many_try_blocks(int which) {
  int result = -1;
#define BLOCK(n) try { counted c; thrower<n>(which); } catch (error<n> & e) { result = e.value; }
  ALL(BLOCK)
  return result;
}
static int many_clauses(int which) {
#define CALL(n) thrower<n>(which);
#define CLAUSE(n) catch (error<n> & e) { return e.value; }
  try { ALL(CALL) } ALL(CLAUSE)
  return -1;
}
#define NAME(n) error<n>,
static void many_allowed(int which) throw(HUNDRED(NAME, 0) HUNDRED(NAME, 100) int) {
  counted c;
  many_clauses(-1);
  ALL(CALL)
}
// clang-format on
static void translate() { throw 1200; }

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
  std::set_unexpected(translate);
  const int edges[] = {0, 1, 62, 63, 64, 126, 127, 128, 129, 199, 200, 255, 256, 298, 299, 300};
  for (unsigned i = 0; i < sizeof edges / sizeof edges[0]; ++i) {
    const int which = edges[i], want = which < 300 ? which : -1;
    CHECK_INT(many_try_blocks(which), want);
    CHECK_INT(many_clauses(which), want);
    int caught = -1;
    try {
      try {
        many_allowed(which);
      } catch (int n) { caught = n; }
    }
#define CATCH(n)         \
  catch (error<n> & e) { \
    caught = e.value;    \
  }
    HUNDRED(CATCH, 0) HUNDRED(CATCH, 100) CHECK_INT(caught, which < 200 ? which : which < 300 ? 1200 : -1);
    CHECK_INT(alive, 0);
  }
  int found = 0;
  try {
    throw chain<200>();
  } catch (chain<201> &) { found = -1; } catch (chain<1> &l) {
    found = l.n;
  }
  CHECK_INT(found, 1);
  try {
    throw most_bases();
  } catch (error<61> &) { found = -1; } catch (error<59> &e) {
    found = e.value;
  }
  CHECK_INT(found, 59);
  return TEST_RESULT();
}

// The peers' side of generated.c: the C++ source of the same cases under the same names, since no peer has a contract
// for C code that throws.
#include "bench.h"

#ifndef WORLD
#define WORLD "generated C"
#endif

namespace {

unsigned long destroyed = 0;

struct guard {
  ~guard() {
    BENCH_TOUCH(this);
    ++destroyed;
  }
};

BENCH_NOINLINE void throw_if(int value) {
  if (value != 0) throw value;
  BENCH_TOUCH(&value);
}

template <int depth> struct frames {
  static BENCH_NOINLINE void descend(int value) {
    guard local;
    frames<depth - 1>::descend(value);
  }
};

template <> struct frames<0> {
  static void descend(int value) { throw_if(value); }
};

struct throw_here {
  static void run(int value) { throw value; }
};

struct throw_nothing {
  static void run(int) { throw_if(0); }
};

template <int depth> struct throw_below {
  static void run(int value) { frames<depth>::descend(value); }
};

template <class work> unsigned long try_loop(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      work::run(static_cast<int>(i));
    } catch (int value) {
      sum += value;
    }
  }
  return sum + destroyed;
}

const bench_case cases[] = {
    {WORLD ": throw and catch", 20, 1, try_loop<throw_here>},
    {WORLD ": throw through 5 owning frames", 20, 1, try_loop<throw_below<5> >},
    {WORLD ": throw through 20 owning frames", 20, 1, try_loop<throw_below<20> >},
    {WORLD ": try block, nothing thrown", 1, 1, try_loop<throw_nothing>},
};

}  // namespace

BENCH_MAIN(cases)

// What exception handling costs where nothing is thrown: a call, the same call in a function with one destructible
// local, and the same call in a try block. The callee may throw for all the compiler knows.
#include "bench.h"

static unsigned long destroyed = 0;

struct guard {
  ~guard() {
    ++destroyed;
    BENCH_TOUCH(&destroyed);
  }
};

BENCH_NOINLINE unsigned long may_throw(unsigned long value) {
  if (value == 0xFFFFFFFF) throw 1;
  BENCH_TOUCH(&value);
  return value + 1;
}

// External linkage, because C++98 takes no other function as a template argument.
BENCH_NOINLINE unsigned long plain(unsigned long value) {
  unsigned long result = may_throw(value);
  BENCH_OPAQUE(result);
  return result;
}

BENCH_NOINLINE unsigned long with_local(unsigned long value) {
  guard local;
  BENCH_TOUCH(&local);
  return may_throw(value);
}

BENCH_NOINLINE unsigned long with_try(unsigned long value) {
  try {
    return may_throw(value);
  } catch (int) {
    return 0;
  }
}

template <unsigned long (*function)(unsigned long)> static unsigned long call(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  for (unsigned long i = 0; i < iterations; ++i) sum += function(i);
  return sum + destroyed;
}

static const bench_case cases[] = {
    {"call, nothing to clean up", 1, 1, call<plain>},
    {"call with one destructible local", 1, 1, call<with_local>},
    {"call in a try block", 1, 1, call<with_try>},
};

BENCH_MAIN(cases)

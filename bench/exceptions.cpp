// What a throw costs: in one function, through frames that each destroy an object, thrown again, caught by a distant
// base class, and thrown inside a handler. Every frame is a function of its own, as in a real program, because table
// unwinding pays for each distinct one.
#include "bench.h"

namespace {

unsigned long destroyed = 0;

// An object whose destructor is observable, so that no compiler may drop it.
struct guard {
  ~guard() {
    ++destroyed;
    BENCH_TOUCH(&destroyed);
  }
};

BENCH_NOINLINE void throw_if(int value) {
  if (value != 0) throw value;
  BENCH_TOUCH(&value);
}

unsigned long same_function(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      throw static_cast<int>(i);
    } catch (int value) {
      sum += value;
    }
  }
  return sum;
}

template <int depth>
struct frames {
  static BENCH_NOINLINE void descend(int value) {
    guard local;
    BENCH_TOUCH(&local);
    frames<depth - 1>::descend(value);
  }
};

template <>
struct frames<0> {
  static void descend(int value) { throw_if(value); }
};

template <int depth>
unsigned long through_frames(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      frames<depth>::descend(static_cast<int>(i));
    } catch (int value) {
      sum += value;
    }
  }
  return sum + destroyed;
}

BENCH_NOINLINE void catch_and_throw_again(int value) {
  try {
    throw_if(value);
  } catch (int) {
    ++destroyed;
    throw;
  }
}

unsigned long rethrow(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      catch_and_throw_again(static_cast<int>(i));
    } catch (int value) {
      sum += value;
    }
  }
  return sum + destroyed;
}

struct root {
  int value;
  explicit root(int v) : value(v) {}
  virtual ~root() {}
};

template <int level>
struct derived : derived<level - 1> {
  explicit derived(int v) : derived<level - 1>(v) {}
};

template <>
struct derived<0> : root {
  explicit derived(int v) : root(v) {}
};

BENCH_NOINLINE void throw_derived(int value) {
  if (value != 0) throw derived<8>(value);
  BENCH_TOUCH(&value);
}

unsigned long catch_by_base(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      throw_derived(static_cast<int>(i));
    } catch (const root& caught) {
      sum += caught.value;
    }
  }
  return sum;
}

unsigned long nested_in_handler(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      throw_if(static_cast<int>(i));
    } catch (int outer) {
      try {
        throw_if(outer + 1);
      } catch (int inner) {
        sum += inner;
      }
      sum += outer;
    }
  }
  return sum;
}

const bench_case cases[] = {
    {"throw and catch in one function", 20, 1, same_function},
    {"throw through 5 frames with a destructor", 20, 1, through_frames<5>},
    {"throw through 20 frames with a destructor", 20, 1, through_frames<20>},
    {"rethrow", 20, 1, rethrow},
    {"catch by base, 9 classes up", 20, 1, catch_by_base},
    {"throw and catch inside a handler", 20, 1, nested_in_handler},
};

}  // namespace

BENCH_MAIN(cases)

// What a throw costs: in one function, through frames with and without an object to destroy, thrown again, caught by a
// distant base class, thrown by the library, inside a handler, from ten thousand places, and out of a deep recursion.
// Every frame is a function of its own, as in a real program, because table unwinding pays for each distinct one.
#include <stdexcept>
#include <string>

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

template <int depth> struct frames {
  static BENCH_NOINLINE void descend(int value) {
    guard local;
    BENCH_TOUCH(&local);
    frames<depth - 1>::descend(value);
  }
};

template <> struct frames<0> {
  static void descend(int value) { throw_if(value); }
};

template <int depth> struct plain_frames {
  static BENCH_NOINLINE void descend(int value) {
    plain_frames<depth - 1>::descend(value);
    BENCH_TOUCH(&value);
  }
};

template <> struct plain_frames<0> {
  static void descend(int value) { throw_if(value); }
};

template <class chain> unsigned long through(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  for (unsigned long i = 1; i <= iterations; ++i) {
    try {
      chain::descend(static_cast<int>(i));
    } catch (int value) {
      sum += value;
    }
  }
  return sum + destroyed;
}

BENCH_NOINLINE void recurse(int left) {
  guard local;
  BENCH_TOUCH(&local);
  throw_if(left == 0);
  recurse(left - 1);
  BENCH_TOUCH(&left);
}

unsigned long out_of_recursion(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    try {
      recurse(49999);
    } catch (int value) {
      sum += value;
    }
  }
  return sum + destroyed;
}

// A hundred functions with a hundred calls each, all with something to clean up: ten thousand return addresses.
#define PLACE(n)         \
  case n:                \
    throw_if(n + 1);     \
    BENCH_TOUCH(&local); \
    break;
#define PLACES(n) \
  PLACE(n)        \
  PLACE(n + 1) PLACE(n + 2) PLACE(n + 3) PLACE(n + 4) PLACE(n + 5) PLACE(n + 6) PLACE(n + 7) PLACE(n + 8) PLACE(n + 9)

template <int number> BENCH_NOINLINE void hundred_places(int place) {
  guard local;
  BENCH_TOUCH(&local);
  switch (place) {
    PLACES(0) PLACES(10) PLACES(20) PLACES(30) PLACES(40) PLACES(50) PLACES(60) PLACES(70) PLACES(80) PLACES(90)
  }
}

void (*places[100])(int);

template <int number> struct all_places {
  static void note() {
    places[number - 1] = hundred_places<number - 1>;
    all_places<number - 1>::note();
  }
};

template <> struct all_places<0> {
  static void note() {}
};

unsigned long from_many_places(unsigned long iterations) {
  unsigned long sum = 0;
  destroyed = 0;
  all_places<100>::note();
  for (unsigned long i = 0; i < iterations; ++i) {
    // A step that meets each place once before it comes back to the first.
    for (unsigned long k = 0, place = 0; k < 10000; ++k, place = (place + 7919) % 10000) {
      try {
        places[place / 100](static_cast<int>(place % 100));
      } catch (int value) {
        sum += value;
      }
    }
  }
  return sum + destroyed;
}

unsigned long from_the_library(unsigned long iterations) {
  const std::string text("text");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    try {
      sum += text.at(10 + i);
    } catch (const std::out_of_range &) {
      ++sum;
    }
  }
  return sum;
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

template <int level> struct derived : derived<level - 1> {
  explicit derived(int v) : derived<level - 1>(v) {}
};

template <> struct derived<0> : root {
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
    } catch (const root &caught) {
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
    {"throw and catch one frame up", 30, 1, through<plain_frames<0> >},
    {"throw through 5 frames with a destructor", 30, 1, through<frames<5> >},
    {"throw through 20 frames with a destructor", 50, 1, through<frames<20> >},
    {"throw through 20 frames without", 40, 1, through<plain_frames<20> >},
    {"rethrow", 30, 1, rethrow},
    {"catch by base, 9 classes up", 22, 1, catch_by_base},
    {"throw of the library's, caught by its class", 20, 1, from_the_library},
    {"throw and catch inside a handler", 20, 1, nested_in_handler},
    {"throw from 10,000 places in turn", 5, 10000, from_many_places},
    {"throw out of 50,000 frames, per frame", 20, 50000, out_of_recursion},
};

}  // namespace

BENCH_MAIN(cases)

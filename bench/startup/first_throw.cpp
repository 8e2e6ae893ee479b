// What is paid once: prints how long the first throw of the process takes, one frame up, and then a throw through 20
// frames that no throw has met before, in nanoseconds.
#include <stdio.h>
#include <time.h>

#define NOINLINE __attribute__((__noinline__))

static volatile int destroyed;

struct guard {
  ~guard() { destroyed = destroyed + 1; }
};

static double now() {
  timespec time;
  clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec * 1e9 + time.tv_nsec;
}

static NOINLINE void throw_if(int value) {
  if (value != 0) throw value;
}

template <int depth> struct frames {
  static NOINLINE void descend(int value) {
    guard local;
    frames<depth - 1>::descend(value);
  }
};

template <> struct frames<0> {
  static void descend(int value) { throw_if(value); }
};

static double time_of(void (*function)(int)) {
  const double start = now();
  try {
    function(1);
  } catch (int) {}
  return now() - start;
}

int main() {
  now();
  const double first = time_of(throw_if);
  printf("%.0f %.0f\n", first, time_of(frames<20>::descend));
  return 0;
}

// The random numbers of every test: the same on each machine, started from a seed. Valid C++98 and C89.
#ifndef TESTS_RANDOM_H
#define TESTS_RANDOM_H

#ifdef __GNUC__
#define RANDOM_UNUSED __attribute__((__unused__))
#else
#define RANDOM_UNUSED
#endif

static unsigned int random_state RANDOM_UNUSED = 20260101;

static RANDOM_UNUSED unsigned int random_below(unsigned int n) {
  random_state = random_state * 1664525u + 1013904223u;
  return (random_state >> 8) % n;
}

#endif

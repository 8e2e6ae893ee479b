// The random numbers of every test: the same on each machine, started from a seed. Valid C++98 and C89.
#ifndef TESTS_RANDOM_H
#define TESTS_RANDOM_H

static unsigned int random_state __attribute__((__unused__)) = 20260101;

static __attribute__((__unused__)) unsigned int random_below(unsigned int n) {
  random_state = random_state * 1664525u + 1013904223u;
  return (random_state >> 8) % n;
}

#endif

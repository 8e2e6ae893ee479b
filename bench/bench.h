/* The harness of the benchmark programs. Valid C89 and C++98, so that one harness serves C++ and generated C.
 *
 * A case is a function that does its work `iterations` times and returns a sum of what it computed. The sum of a fixed
 * small number of iterations is printed beside the time: run.sh compares it between the builds, so a build that did
 * other work, or none, is found out. What is measured is decided by the case alone; the harness starts no clock inside.
 *
 *   PROGRAM list             the cases: name, target ratio, tab-separated
 *   PROGRAM time CASE        one timed run: ns per operation, checksum
 *   PROGRAM repeat CASE N    exactly N iterations, for counting instructions
 */
#ifndef BENCH_H
#define BENCH_H

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

typedef unsigned long (*bench_body)(unsigned long iterations);

typedef struct bench_case {
  const char *name;
  double target;            /* the better peer's time by ours: what we want to reach; 1 is "no slower" */
  unsigned long operations; /* operations of one iteration; the printed time is divided by it */
  bench_body body;
} bench_case;

#define BENCH_CHECK_ITERATIONS 5
#define BENCH_TRIAL_NS 4e6
#define BENCH_RUN_NS 25e6

/* Functions that must stay calls. GCC would otherwise also clone them for constant arguments. */
#if defined(__clang__)
#define BENCH_NOINLINE __attribute__((noinline))
#else
#define BENCH_NOINLINE __attribute__((noinline, noclone))
#endif

/* The compiler must assume that the object behind `address` is read and written here. */
#define BENCH_TOUCH(address) __asm__ volatile("" : : "g"(address) : "memory")

/* The compiler must forget what it knows about the value of an integer or pointer variable. */
#define BENCH_OPAQUE(variable) __asm__ volatile("" : "+r"(variable))

/* The processor time of this process: what other processes do meanwhile counts little. */
static double bench_now(void) {
  struct timespec now;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return now.tv_sec * 1e9 + now.tv_nsec;
}

static double bench_elapsed(bench_body body, unsigned long iterations) {
  double start = bench_now();
  body(iterations);
  return bench_now() - start;
}

/* Doubles the iterations until a run is long enough to scale from, then makes one run of the full length. */
static double bench_time(const bench_case *one) {
  unsigned long iterations = 1;
  double elapsed = bench_elapsed(one->body, iterations);
  while (elapsed < BENCH_TRIAL_NS) {
    iterations *= 2;
    elapsed = bench_elapsed(one->body, iterations);
  }
  if (elapsed < BENCH_RUN_NS) {
    iterations = (unsigned long)(iterations * (BENCH_RUN_NS / elapsed));
    elapsed = bench_elapsed(one->body, iterations);
  }
  return elapsed / iterations / one->operations;
}

static int bench_main(int argc, char **argv, const bench_case *cases, int count) {
  const char *verb = argc > 1 ? argv[1] : "";
  int i;
  for (i = 0; i < count; ++i) {
    if (strcmp(verb, "list") == 0) printf("%s\t%g\n", cases[i].name, cases[i].target);
    if (argc > 2 && strcmp(argv[2], cases[i].name) == 0) {
      if (strcmp(verb, "time") == 0) {
        unsigned long checksum = cases[i].body(BENCH_CHECK_ITERATIONS);
        printf("%.3f\t%lu\n", bench_time(&cases[i]), checksum);
        return 0;
      }
      if (strcmp(verb, "repeat") == 0 && argc > 3) {
        cases[i].body(strtoul(argv[3], 0, 10));
        return 0;
      }
    }
  }
  if (strcmp(verb, "list") == 0) return 0;
  fprintf(stderr, "usage: %s list | time CASE | repeat CASE N\n", argv[0]);
  return 2;
}

#define BENCH_MAIN(cases) \
  int main(int argc, char **argv) { return bench_main(argc, argv, cases, (int)(sizeof(cases) / sizeof((cases)[0]))); }

#endif

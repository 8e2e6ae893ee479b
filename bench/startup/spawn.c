/* Measures how long programs take from fork to exit: runs each of the given programs in turn, ROUNDS times, with
 * standard output discarded, and prints the least and the median in microseconds and its name for each, in the order
 * given. PROGRAM:LIBRARY is a program for which this library is loaded by its path, at once, as the dynamic linker
 * finds what is installed for the system; a search path in the program would cost tens of system calls. All start
 * with an environment that is empty but for that.
 *
 *   spawn ROUNDS PROGRAM[:LIBRARY]...
 */
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double microseconds(void) {
  struct timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec * 1e6 + now.tv_nsec / 1e3;
}

static int by_value(const void *left, const void *right) {
  double difference = *(const double *)left - *(const double *)right;
  return (difference > 0) - (difference < 0);
}

static double run(char *program, char **environment) {
  double start = microseconds();
  int status;
  pid_t child = vfork();
  if (child == 0) {
    execle(program, program, (char *)0, environment);
    _exit(127);
  }
  if (child < 0 || waitpid(child, &status, 0) != child || status != 0) {
    fprintf(stderr, "spawn: %s failed\n", program);
    exit(1);
  }
  return microseconds() - start;
}

int main(int argc, char **argv) {
  int rounds = argc > 2 ? atoi(argv[1]) : 0, programs = argc - 2, round, i;
  double *times;
  char *environments[100][2] = {{0}}, *library;
  int output, discard;
  if (rounds < 1 || programs > 100) {
    fprintf(stderr, "usage: %s ROUNDS PROGRAM[:LIBRARY]...\n", argv[0]);
    return 2;
  }
  times = malloc(sizeof *times * rounds * programs);
  for (i = 0; i < programs; ++i) {
    library = strchr(argv[2 + i], ':');
    if (library == 0) continue;
    *library = 0;
    environments[i][0] = malloc(sizeof "LD_PRELOAD=" + strlen(library + 1));
    if (environments[i][0] == 0) return 1;
    strcat(strcpy(environments[i][0], "LD_PRELOAD="), library + 1);
  }
  output = dup(1);
  discard = open("/dev/null", O_WRONLY);
  if (times == 0 || output < 0 || discard < 0) return 1;
  dup2(discard, 1);
  for (round = 0; round < rounds; ++round)
    for (i = 0; i < programs; ++i) times[i * rounds + round] = run(argv[2 + i], environments[i]);
  dup2(output, 1);
  for (i = 0; i < programs; ++i) {
    qsort(times + i * rounds, rounds, sizeof *times, by_value);
    printf("%.0f %.0f %s\n", times[i * rounds], times[i * rounds + rounds / 2], argv[2 + i]);
  }
  return 0;
}

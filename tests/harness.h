/* The whole test harness, for C89 and C++98: checks that count and say where they failed, traces, and a way to run
 * a case that must abort or exit in a child process.
 *
 * A test is one program. It calls its cases from main and returns TEST_RESULT(), which is 0 only when no check failed
 * and at least one ran. A test that does not apply returns TEST_SKIP. */
#ifndef TESTS_HARNESS_H
#define TESTS_HARNESS_H

#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#define TEST_UNUSED __attribute__((__unused__))
#define TEST_SKIP 77

static int test_checks TEST_UNUSED;
static int test_failures TEST_UNUSED;

static TEST_UNUSED void test_report(int ok, const char *file, int line, const char *what) {
  ++test_checks;
  if (ok) return;
  ++test_failures;
  fprintf(stderr, "%s:%d: failed: %s\n", file, line, what);
}

static TEST_UNUSED void test_report_int(long got, long want, const char *file, int line, const char *what) {
  test_report(got == want, file, line, what);
  if (got != want) fprintf(stderr, "  got %ld, want %ld\n", got, want);
}

static TEST_UNUSED void test_report_text(const char *got, const char *want, const char *file, int line,
                                         const char *what) {
  int ok = got && want ? strcmp(got, want) == 0 : got == want;
  test_report(ok, file, line, what);
  if (!ok) fprintf(stderr, "  got  \"%s\"\n  want \"%s\"\n", got ? got : "(null)", want ? want : "(null)");
}

#define CHECK(condition) test_report((condition) ? 1 : 0, __FILE__, __LINE__, #condition)
#define CHECK_INT(got, want) test_report_int((long)(got), (long)(want), __FILE__, __LINE__, #got " == " #want)
#define CHECK_TEXT(got, want) test_report_text((got), (want), __FILE__, __LINE__, #got " == " #want)

static TEST_UNUSED int TEST_RESULT(void) {
  if (test_checks == 0) fprintf(stderr, "no check ran\n");
  if (test_failures) fprintf(stderr, "%d of %d checks failed\n", test_failures, test_checks);
  return test_failures != 0 || test_checks == 0;
}

/* A trace: what happened, in order, as words separated by blanks. */
static char test_trace[4096] TEST_UNUSED;

static TEST_UNUSED void trace(const char *format, ...) {
  size_t used = strlen(test_trace);
  va_list arguments;
  if (used && used + 1 < sizeof test_trace) test_trace[used++] = ' ';
  va_start(arguments, format);
  vsnprintf(test_trace + used, sizeof test_trace - used, format, arguments);
  va_end(arguments);
}

/* Compares the trace so far and empties it. */
#define CHECK_TRACE(want) (test_report_text(test_trace, (want), __FILE__, __LINE__, "trace"), (void)(test_trace[0] = 0))

/* Runs `body` in a child process. `status` becomes the exit status, or minus the number of the signal that ended the
 * child; `text` what it wrote to standard output and standard error. */
typedef struct test_child {
  int status;
  char text[4096];
} test_child;

static TEST_UNUSED test_child test_run_child(void (*body)(void)) {
  test_child child;
  char name[] = "/tmp/plx-test.XXXXXX";
  const int file = mkstemp(name);
  int status = 0;
  pid_t pid;
  memset(&child, 0, sizeof child);
  unlink(name);
  fflush(stdout);
  fflush(stderr);
  pid = fork();
  if (pid == 0) {
    dup2(file, 1);
    dup2(file, 2);
    close(file);
    alarm(60);
    body();
    fflush(stdout);
    _exit(0);
  }
  waitpid(pid, &status, 0);
  if (pread(file, child.text, sizeof child.text - 1, 0) < 0) perror(name);
  close(file);
  child.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  return child;
}

/* The child must end with `want_status`, and its text must hold `part`. */
static TEST_UNUSED void test_child_ends(void (*body)(void), int want_status, const char *part, const char *file,
                                        int line, const char *what) {
  test_child child = test_run_child(body);
  test_report_int(child.status, want_status, file, line, what);
  test_report(strstr(child.text, part) != 0, file, line, what);
  if (strstr(child.text, part) == 0) fprintf(stderr, "  text \"%s\"\n  lacks \"%s\"\n", child.text, part);
}
#define CHECK_ENDS(body, want_status, part) \
  test_child_ends(body, want_status, part, __FILE__, __LINE__, #body " ends with " #want_status)
#define CHECK_ABORTS(body, part) CHECK_ENDS(body, -SIGABRT, part)

#endif

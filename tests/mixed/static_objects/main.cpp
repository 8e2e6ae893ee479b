// Everything that ends with the program ends in the reverse order of its beginning: static objects of several C++
// files, local ones, std::atexit functions, records of generated C; the same by exit, by return from main, and when
// static objects are destroyed while exceptions are about.
// test-variants: -O0 | -O2 | -O1 -static
#include "statics.h"

#include <cstdlib>
#include <exception>

#include "../../harness.h"

static char building[1000];  // the names in order, each followed by a blank
static bool telling = false;

extern "C" void built(const char *name) {
  strcat(building, name);
  strcat(building, " ");
}
extern "C" void gone(const char *name) {
  if (!telling) return;
  fputs(name, stdout);
  fputc(' ', stdout);
  fflush(stdout);
}

static watched of_main("main-1");

static void at_exit_one() { gone("atexit-1"); }
static void at_exit_two() { gone("atexit-2"); }

static void begin_everything() {
  touch_two();
  built("atexit-1");
  std::atexit(at_exit_one);
  c_records_one();
  touch_one();
  c_registers_atexit();
  static watched local("main-local");
  c_records_function();
  built("atexit-2");
  std::atexit(at_exit_two);
  telling = true;
}

// The names of `building`, last first.
static const char *in_reverse() {
  static char text[1000];
  text[0] = 0;
  char copy[1000];
  strcpy(copy, building);
  while (copy[0]) {
    copy[strlen(copy) - 1] = 0;
    char *last = strrchr(copy, ' ');
    last = last ? last + 1 : copy;
    strcat(text, last);
    strcat(text, " ");
    *last = 0;
  }
  return text;
}

static void leave_by_exit() {
  begin_everything();
  exit(0);
}
static void leave_from_a_handler() {
  begin_everything();
  try {
    throw 1;
  } catch (int) {
    exit(0);
  }
}
static const char *program;
static void leave_by_return() {  // only a program of its own can return from main
  execl("/proc/self/exe", program, "return", (char *)0);
}
static void leave_later() {
  begin_everything();
  touch_two_later();
  exit(0);
}

int main(int argc, char **argv) {
  program = argv[0];
  if (argc > 1) {
    begin_everything();
    return 0;
  }
  // What runs before main, in the order of the files' own.
  CHECK(strstr(building, "one-1 one-2a one-2b one-3 ") != 0);
  CHECK(strstr(building, "template ") != 0);
  CHECK(strstr(building, "two-1 ") != 0);
  CHECK(strstr(building, "main-1 ") != 0);
  CHECK(strstr(building, "c-early ") != 0);
  CHECK(strstr(building, "local") == 0);

  char before_main[1000];
  strcpy(before_main, building);
  test_child by_exit = test_run_child(leave_by_exit);
  test_child from_handler = test_run_child(leave_from_a_handler);
  test_child by_return = test_run_child(leave_by_return);
  test_child later = test_run_child(leave_later);

  strcat(building, "two-local inline atexit-1 c-record one-local c-atexit main-local c-function atexit-2 ");
  CHECK_INT(by_exit.status, 0);
  CHECK_TEXT(by_exit.text, in_reverse());
  CHECK_INT(from_handler.status, 0);
  CHECK_TEXT(from_handler.text, in_reverse());
  CHECK_INT(by_return.status, 0);
  CHECK_TEXT(by_return.text, in_reverse());

  char expected[1100];
  sprintf(expected, "two-busy two-late-atexit %s", in_reverse());
  CHECK_INT(later.status, 0);
  CHECK_TEXT(later.text, expected);
  return TEST_RESULT();
}

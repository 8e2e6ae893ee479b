// bad_alloc has its text for as long as the program lives: in constructors of static objects, after main, and when all
// static objects are gone.

#include <new>

#include "../harness.h"

static void say(const char *when) {
  std::bad_alloc error;
  printf("%s: %s\n", when, error.what());
  fflush(stdout);
}

struct early {
  early() { say("before main"); }
  ~early() { say("static destructor"); }
};

static early one __attribute__((__init_priority__(101)));

__attribute__((__destructor__)) static void very_last() { say("last of all"); }

static void whole_life() {
  say("main");
  exit(0);
}

int main(int, char **argv) {
  if (getenv("PLX_TEST_LIFE")) whole_life();
  char command[1100];
  char line[200];
  int lines = 0;
  snprintf(command, sizeof command, "PLX_TEST_LIFE=1 '%s'", argv[0]);
  FILE *child = popen(command, "r");
  CHECK(child != 0);
  static const char *const want[] = {"before main: Allocation Failure\n", "main: Allocation Failure\n",
                                     "static destructor: Allocation Failure\n", "last of all: Allocation Failure\n"};
  while (child && lines < 4 && fgets(line, sizeof line, child)) {
    CHECK_TEXT(line, want[lines]);
    ++lines;
  }
  CHECK_INT(lines, 4);
  CHECK_INT(pclose(child), 0);
  return TEST_RESULT();
}

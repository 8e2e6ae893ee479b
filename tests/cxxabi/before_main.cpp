// Exceptions before main begins and after it has ended: in constructors and destructors of static objects, with the
// library's own exception classes, and uncaught there.
// test-variants: -O0 | -O2 -static
#include <exception>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "../harness.h"

struct noisy {
  const char *name;
  explicit noisy(const char *n) : name(n) {}
  ~noisy() { trace("~%s", name); }
};

static int thrown_and_caught(const char *text) {
  try {
    noisy local("local");
    throw std::runtime_error(text);
  } catch (std::exception &e) {
    trace("%s", e.what());
    return dynamic_cast<std::runtime_error *>(&e) ? 1 : 0;
  }
}
static int initialised_early = thrown_and_caught("early");

static int bad_alloc_text() {
  try {
    throw std::bad_alloc();
  } catch (std::bad_alloc &e) {
    return (int)strlen(e.what());
  }
}
static int early_length = bad_alloc_text();

struct handles_in_constructor {
  std::string text;
  handles_in_constructor() : text("constructed") {
    try {
      text.at(100);
    } catch (std::out_of_range &) {
      text = "caught";
    }
  }
  ~handles_in_constructor() {
    try {
      throw text;
    } catch (std::string &s) {
      if (telling) printf("late:%s\n", s.c_str());
    }
  }
  static bool telling;
};
bool handles_in_constructor::telling = false;
static handles_in_constructor object;

// A program of its own: its static initialiser throws and nobody catches.
static const char *mode = getenv("BEFORE_MAIN_THROWS");
static int fail_early() {
  if (mode) throw std::logic_error("before main");
  return 1;
}
static int early_failure = fail_early();

static void run_failing() {
  setenv("BEFORE_MAIN_THROWS", "1", 1);
  execl("/proc/self/exe", "before_main", (char *)0);
}
static void leave() {
  handles_in_constructor::telling = true;
  exit(0);
}

int main() {
  CHECK_TRACE("~local early");
  CHECK_INT(initialised_early, 1);
  CHECK(early_length > 0);
  CHECK_INT(early_failure, 1);
  CHECK_TEXT(object.text.c_str(), "caught");
  CHECK_ENDS(leave, 0, "late:caught");
#ifdef PLX_CONFIG_H
  CHECK_ABORTS(run_failing, "plx: uncaught exception of type std::logic_error: before main\n");
#else
  CHECK_ABORTS(run_failing, "");
#endif
  return TEST_RESULT();
}

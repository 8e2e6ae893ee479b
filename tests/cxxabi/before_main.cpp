// Exceptions before main begins and after it has ended: in constructors and destructors of static objects and of the
// program, with the library's own exception classes and their texts, and uncaught there.
// test-variants: -O0 | -O2 -static
#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "../harness.h"

static void throw_and_tell(const char *when) {
  struct local {
    const char *name;
    ~local() { printf("~%s ", name); }
  };
  try {
    local l = {when};
    if (*when == 'u') throw std::logic_error("before main");
    std::string("abc").at(100);
  } catch (std::out_of_range &e) {
    std::exception &base = e;
    printf(dynamic_cast<std::logic_error *>(&base) && e.what()[0] ? "range " : "wrong ");
  }
  fflush(stdout);
}
struct early {
  early() { throw_and_tell("early"); }
  ~early() { throw_and_tell("static"); }
};
static early one __attribute__((__init_priority__(101)));
__attribute__((__destructor__)) static void very_last() { throw_and_tell("last"); }

// A program of its own: its static initialiser throws and nobody catches.
static const char *mode = getenv("BEFORE_MAIN_THROWS");
static int failure = mode ? throw_and_tell("uncaught"), 1 : 2;
static void run_failing() {
  setenv("BEFORE_MAIN_THROWS", "1", 1);
  execl("/proc/self/exe", "before_main", (char *)0);
}
static void run_well() { execl("/proc/self/exe", "before_main", "child", (char *)0); }

int main(int count, char **) {
  if (count > 1) return 0;
  CHECK_INT(failure, 2);
  CHECK_ENDS(run_well, 0, "~early range ~static range ~last range ");
  CHECK_ABORTS(run_failing, "plx: uncaught exception of type std::logic_error: before main\n");
  return TEST_RESULT();
}

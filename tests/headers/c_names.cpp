// Jumps leave try blocks, and <cassert> follows NDEBUG at each inclusion.
// test-variants: -O0 -std=gnu++98 | -O2 -std=c++98 -D_FORTIFY_SOURCE=2 | -O1 -std=gnu++11 | -O2 -std=gnu++20
#undef NDEBUG
#include <cassert>
#include <csetjmp>

#include "harness.h"

static void fails() { assert(test_checks < 0); }
#define NDEBUG
#include <cassert>
static void passes() { assert(test_checks < 0); }

static std::jmp_buf place;
static volatile int visits;

// A function of the user's with a try block is left by the jump; the next exception must find its handler.
static void leave_a_try() {
  try {
    std::longjmp(place, visits == 1 ? 0 : 7);
  } catch (int) { CHECK(!"a handler of a frame that is gone"); }
}
static void jumps() {
  const int got = setjmp(place);
  visits = visits + 1;
  CHECK_INT(got, visits == 1 ? 0 : visits == 2 ? 1 : 7);  // a value of 0 becomes 1
  if (visits < 3) leave_a_try();
  try {
    throw 3;
  } catch (int k) { CHECK_INT(k, visits); }
}

int main() {
  jumps();
  CHECK_ABORTS(fails, "test_checks < 0");
  CHECK_ENDS(passes, 0, "");
  return TEST_RESULT();
}

// <cassert> follows NDEBUG at each inclusion.
// test-variants: -O0 -std=gnu++98 | -O2 -std=c++98 -D_FORTIFY_SOURCE=2 | -O1 -std=gnu++11 | -O2 -std=gnu++20
#undef NDEBUG
#include <cassert>

#include "harness.h"

static void fails() { assert(test_checks < 0); }
#define NDEBUG
#include <cassert>
static void passes() { assert(test_checks < 0); }

int main() {
  CHECK_ABORTS(fails, "test_checks < 0");
  CHECK_ENDS(passes, 0, "");
  return TEST_RESULT();
}

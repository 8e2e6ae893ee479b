// <cassert> follows NDEBUG as it stands at each inclusion.
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

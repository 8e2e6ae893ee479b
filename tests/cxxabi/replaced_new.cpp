// A program that replaces operator new and delete: the array and nothrow forms that it does not replace lead to those
// it does, and each block goes back where it came from.
// test-variants: -O0 | -O2 -static
#include "../fail_allocation.h"

#include <vector>

// Each form allocates, and gives back what it got.
static void *volatile block;
static void *keep(void *allocated) {
  block = allocated;
  return block;
}
static void plain() { ::operator delete(keep(new int)); }
static void array() { ::operator delete[](keep(new int[10])); }
static void nothrow() { ::operator delete(keep(new (std::nothrow) int), std::nothrow); }
static void nothrow_array() { ::operator delete[](keep(new (std::nothrow) int[10]), std::nothrow); }
static bool caught_from(void (*form)()) {
  try {
    form();
  } catch (std::bad_alloc &) { return true; }
  return false;
}
int main() {
  static const struct {
    void (*allocate)();
    bool is_quiet;
  } forms[] = {{plain, false}, {array, false}, {nothrow, true}, {nothrow_array, true}};
  for (int form = 0; form < 4; ++form) {
    const long calls = allocation_calls, live = live_blocks;
    CHECK_INT(caught_from(forms[form].allocate), 0);
    CHECK_INT(allocation_calls, calls + 1);
    CHECK_INT(live_blocks, live);
    allocation_to_fail = 1;
    CHECK_INT(caught_from(forms[form].allocate), !forms[form].is_quiet);
    CHECK(!forms[form].is_quiet || block == 0);
  }
  // What grows takes a block of the program's each time, though the library's own could be extended.
  const long calls = allocation_calls, live = live_blocks;
  {
    std::vector<int> numbers;
    for (int i = 0; i < 1000; ++i) numbers.push_back(i);
    CHECK(allocation_calls >= calls + 5 && live_blocks == live + 1 && numbers[500] == 500);
  }
  CHECK_INT(live_blocks, live);
  return TEST_RESULT();
}

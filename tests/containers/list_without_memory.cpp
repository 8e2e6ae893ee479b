// test-variants: -O2
// Lists sort without memory too: all tests of list, with the library's scratch memory replaced by none.

#include <plx/list_sort.h>

static int asked;
namespace __zor {
void *take_scratch(size_t) PLX_NOTHROW {
  ++asked;
  return 0;
}
void give_scratch(void *) PLX_NOTHROW {}
}  // namespace __zor

#define main test_lists
#include "list.cpp"
#undef main

int main() {
  test_lists();
  CHECK(asked > 100);
  return TEST_RESULT();
}

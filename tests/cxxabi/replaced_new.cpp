// A program that replaces operator new and delete: the array and nothrow forms that it does not replace lead to those it
// does, and each block goes back where it came from, also when constructors throw.
// test-variants: -O0 | -O2 -static
#include "../fail_allocation.h"

struct fragile {
  static volatile int left;
  double room[3];
  fragile() { if (left = left - 1, left == 0) throw 1; }
  ~fragile() {}
};
volatile int fragile::left;
static void *volatile block;

static void allocate(int form) {
  switch (form) {
    case 0: block = new int; ::operator delete(block); break;
    case 1: block = new int[10]; ::operator delete[](block); break;
    case 2: block = new (std::nothrow) int; ::operator delete(block, std::nothrow); break;
    case 3: block = new (std::nothrow) int[10]; ::operator delete[](block, std::nothrow); break;
    case 4: block = new fragile[4]; delete[] static_cast<fragile *>(block); break;
    case 5: block = new (std::nothrow) fragile[4]; delete[] static_cast<fragile *>(block); break;
    case 6: block = new fragile; delete static_cast<fragile *>(block); break;
  }
}
int main() {
  for (int form = 0; form < 7; ++form)
    for (int at = 0; at < 5; ++at) {
      const long calls = allocation_calls, live = live_blocks;
      int caught = 0;
      fragile::left = at;
      try { allocate(form); } catch (int n) { caught = n; }
      CHECK_INT(allocation_calls, calls + 1);
      CHECK_INT(live_blocks, live);
      CHECK_INT(caught, form >= 4 && at > 0 && (form < 6 || at == 1));
      fragile::left = 0;
      allocation_to_fail = 1, caught = 0;
      try { allocate(form); } catch (std::bad_alloc &) { caught = 2; }
      CHECK_INT(caught, form == 2 || form == 3 || form == 5 ? 0 : 2);
      CHECK(caught == 2 || block == 0);
    }
  return TEST_RESULT();
}

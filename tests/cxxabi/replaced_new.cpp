// A program that replaces operator new and delete: the array and nothrow forms that it does not replace lead to those
// it does, and each block goes back where it came from, also when constructors throw.
// test-variants: -O0 | -O2 -static
#include "../fail_allocation.h"

struct fragile {
  static volatile int left;
  double room[3];
  fragile() {
    left = left - 1;
    if (left == 0) throw 1;
  }
  ~fragile() {}
};
volatile int fragile::left;

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
template <class Type> static void release(Type *objects) { delete[] objects; }
static void fragile_array() { release(static_cast<fragile *>(keep(new fragile[4]))); }
static void fragile_nothrow() { release(static_cast<fragile *>(keep(new (std::nothrow) fragile[4]))); }
static void fragile_one() { delete static_cast<fragile *>(keep(new fragile)); }

static int caught_from(void (*form)()) {
  try {
    form();
  } catch (int n) { return n; } catch (std::bad_alloc &) {
    return 2;
  }
  return 0;
}
int main() {
  static const struct {
    void (*allocate)();
    bool is_quiet;
    int constructed;
  } forms[] = {{plain, false, 0},         {array, false, 0},          {nothrow, true, 0},     {nothrow_array, true, 0},
               {fragile_array, false, 4}, {fragile_nothrow, true, 4}, {fragile_one, false, 1}};
  for (int form = 0; form < 7; ++form)
    for (int at = 0; at < 5; ++at) {
      const long calls = allocation_calls, live = live_blocks;
      fragile::left = at;
      CHECK_INT(caught_from(forms[form].allocate), at > 0 && at <= forms[form].constructed);
      CHECK_INT(allocation_calls, calls + 1);
      CHECK_INT(live_blocks, live);
      fragile::left = 0;
      allocation_to_fail = 1;
      CHECK_INT(caught_from(forms[form].allocate), forms[form].is_quiet ? 0 : 2);
      CHECK(!forms[form].is_quiet || block == 0);
    }
  return TEST_RESULT();
}

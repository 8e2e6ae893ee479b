// test-variants: -O1 | -O2 -std=gnu++20
// The library's own array: exact blocks, growth by copying, shrinking in place, and failing copies and allocations.

#include "fail_allocation.h"

#include <plx/containers/lw_vector.h>

#include "tracked.h"

template class __zor::lw_vector<long>;
template class __zor::lw_vector<void *>;
typedef __zor::lw_vector<tracked> elements;

static void sizes() {
  const long before = live_blocks;
  elements v;
  CHECK(v.size() == 0 && live_blocks == before);
  v.resize(0, tracked(1));
  CHECK_INT(live_blocks, before);
  v.resize(5, tracked(7));
  CHECK(v.size() == 5 && v[0].key == 7 && v[4].key == 7);
  CHECK_INT(live_blocks, before + 1);
  const tracked *const block = &v[0];
  v.resize(3, tracked(0));
  CHECK(&v[0] == block && tracked::live == 3);
  const long calls = allocation_calls;
  v[1] = tracked(8);
  // A copy of one of its own.
  v.resize(4, v[1]);
  CHECK(v[0].key == 7 && v[1].key == 8 && v[3].key == 8);
  CHECK_INT(allocation_calls, calls + 1);
  CHECK_INT(live_blocks, before + 1);
  v.resize(4, tracked(9));
  CHECK_INT(allocation_calls, calls + 1);
  v.resize(0, tracked(0));
  CHECK(v.size() == 0 && live_blocks == before && tracked::live == 0);
  v.resize(2, tracked(3));
  const elements &constant = v;
  CHECK_INT(constant[1].key, 3);
}

struct growing {
  elements v;
  growing() { v.resize(3, tracked(4)); }
  void run() { v.resize(6, tracked(5)); }
  void check(bool failed) {
    CHECK_INT(v.size(), failed ? 3 : 6);
    CHECK(v[2].key == 4 && (failed || v[5].key == 5));
  }
};

static void failing_copies() {
  for (long n = 1;; ++n) {
    growing one;
    bool failed = false;
    tracked::copies_to_fail = n;
    try {
      one.run();
    } catch (const refused &) {
      failed = true;
    }
    tracked::copies_to_fail = 0;
    one.check(failed);
    if (!failed) {
      CHECK_INT(n, 7);
      return;
    }
  }
}

int main() {
  sizes();
  CHECK_INT(fail_each_allocation<growing>(), 1);
  failing_copies();
  CHECK_INT(tracked::live, 0);
  CHECK_INT(live_blocks, 0);
  return TEST_RESULT();
}

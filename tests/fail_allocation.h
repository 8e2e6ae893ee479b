// Replaces the program's operator new and operator delete: counts blocks, and fails the N-th allocation on request.
// Include it in one source file of a test. Valid C++98.
//
//   struct reserving {                      // a case: made anew for every N, before anything fails
//     std::string text;
//     void run() { text.reserve(100); }     // what may fail
//     void check(bool failed) { ... }       // what must hold after, whether or not it did
//   };
//   fail_each_allocation<reserving>();      // N = 1, 2, ... until run() ends without a failure
//
// After each attempt every block that it allocated must be free again.
#ifndef TESTS_FAIL_ALLOCATION_H
#define TESTS_FAIL_ALLOCATION_H

#include <stdlib.h>

#include <new>

#include "harness.h"

static long live_blocks;         // allocated and not freed
static long allocation_calls;    // so far
static long allocation_to_fail;  // counts down; 0: none
static bool allocation_failed;

#if __cplusplus >= 201103L
#define FAIL_ALLOCATION_MAY_THROW
#define FAIL_ALLOCATION_NOTHROW noexcept
#else
#define FAIL_ALLOCATION_MAY_THROW throw(std::bad_alloc)
#define FAIL_ALLOCATION_NOTHROW throw()
#endif

void *operator new(std::size_t bytes) FAIL_ALLOCATION_MAY_THROW {
  ++allocation_calls;
  if (allocation_to_fail != 0 && --allocation_to_fail == 0) {
    allocation_failed = true;
    throw std::bad_alloc();
  }
  void *block = malloc(bytes == 0 ? 1 : bytes);
  if (!block) throw std::bad_alloc();
  ++live_blocks;
  return block;
}

void operator delete(void *block) FAIL_ALLOCATION_NOTHROW {
  if (block) --live_blocks;
  free(block);
}
#if __cplusplus >= 201402L
void operator delete(void *block, std::size_t) noexcept { operator delete(block); }
#endif

// Returns how many allocations there were to fail.
template <class Case> int fail_each_allocation() {
  for (int n = 1;; ++n) {
    const long before = live_blocks;
    {
      Case one;
      bool failed = false;
      allocation_failed = false;
      allocation_to_fail = n;
      try {
        one.run();
      } catch (const std::bad_alloc &) { failed = true; }
      allocation_to_fail = 0;
      CHECK(failed == allocation_failed);
      one.check(failed);
    }
    CHECK_INT(live_blocks, before);
    if (!allocation_failed) return n - 1;
  }
}

#endif

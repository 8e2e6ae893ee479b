// Asks the processor for its instruction sets.

#include "processor.h"

#include <cpuid.h>

namespace __zor {

bool processor_has_sse2;
bool processor_has_popcnt;

namespace {

__attribute__((__constructor__)) void ask() {
  unsigned a, b, c, d;
  if (!__get_cpuid(1, &a, &b, &c, &d)) return;
  processor_has_sse2 = d & bit_SSE2;
  processor_has_popcnt = c & bit_POPCNT;
}

}  // namespace

}  // namespace __zor

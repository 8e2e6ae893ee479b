// Asks the processor for its instruction sets.

#include "processor.h"

#include <cpuid.h>

namespace __zor {

bool processor_has_sse2;

namespace {

__attribute__((__constructor__)) void ask() {
  unsigned a, b, c, d;
  processor_has_sse2 = __get_cpuid(1, &a, &b, &c, &d) && (d & bit_SSE2);
}

}  // namespace

}  // namespace __zor

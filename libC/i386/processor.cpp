// Asks the processor for its instruction sets.

#include "processor.h"

#include <cpuid.h>

namespace __zor {

unsigned char processor_features;

unsigned char ask_processor() {
  unsigned char features = processor_was_asked;
  unsigned a, b, c, d;
  if (__get_cpuid(1, &a, &b, &c, &d)) {
    if (d & bit_SSE2) features |= processor_sse2;
    if (c & bit_POPCNT) features |= processor_popcnt;
  }
  return processor_features = features;
}

}  // namespace __zor

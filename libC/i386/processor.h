// What the processor can do beyond the i686 that everything may count on. Asked at the first use and remembered, so
// that starting a program costs nothing, and code that runs before any constructor may ask too.
#pragma once

#include <plx/base/config.h>

// For functions whose callers have asked.
#define PLX_SSE2 __attribute__((__target__("sse2")))

namespace __zor {

enum processor_feature : unsigned char { processor_was_asked = 1, processor_sse2 = 2, processor_popcnt = 4 };

// The features, or 0 before the first question.
extern PLX_HIDDEN unsigned char processor_features;

// Fills in and returns `processor_features`.
PLX_HIDDEN PLX_COLD unsigned char ask_processor();

inline bool processor_has(processor_feature feature) {
  unsigned char features = processor_features;
  if (__builtin_expect(features == 0, 0)) features = ask_processor();
  return features & feature;
}

}  // namespace __zor

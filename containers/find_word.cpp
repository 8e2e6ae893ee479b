// find on arrays of 32-bit elements: in the library because only here is it known what the processor can do.

#include <plx/algorithms/search_algorithms.h>

#include "../libC/i386/processor.h"
#include "find_word_sse2.h"

namespace __zor {

PLX_REGPARM const unsigned int *_find_word(const unsigned int *first, const unsigned int *last,
                                           unsigned int word) PLX_NOTHROW {
  if (processor_has(processor_sse2)) {
    first = find_word_sse2(first, last, word);
  } else {
    for (; last - first >= 4; first += 4) {
      if (first[0] == word) return first;
      if (first[1] == word) return first + 1;
      if (first[2] == word) return first + 2;
      if (first[3] == word) return first + 3;
    }
  }
  while (first != last && *first != word) ++first;
  return first;
}

}  // namespace __zor

// Finding a pattern in three gears. The C library's memchr for the first character is the fastest while that character
// is rare; where it is met often, 16 places are compared at once; and where even that finds near misses only, the C
// library's memmem does it in linear time. Each gear is left as soon as its misses cost more than its way forward.

#include "find_pattern.h"

#include <string.h>

#include "../libC/i386/processor.h"

namespace __zor {

const char *find_pattern(const char *text, const char *end, const char *pattern, unsigned n) {
  const char *const begin = text;
  const char *const last = end - n;
  // Each miss restarts memchr: a few are allowed, then one in 64 characters of progress.
  const unsigned free_misses = 4, characters_by_miss = 64;
  unsigned misses = 0;
  while (misses <= free_misses + static_cast<unsigned>(text - begin) / characters_by_miss) {
    text = static_cast<const char *>(memchr(text, *pattern, static_cast<unsigned>(last - text) + 1));
    if (!text) return nullptr;
    if (text[1] == pattern[1] && memcmp(text, pattern, n) == 0) return text;
    if (text == last) return nullptr;
    ++text;
    misses += 1 + n / characters_by_miss;  // as if all had been compared
  }
  if (processor_has(processor_sse2)) {
    const char *found = find_pattern_sse2(text, end, pattern, n);
    if (!text) return found;
  }
  return static_cast<const char *>(memmem(text, static_cast<unsigned>(end - text), pattern, n));
}

}  // namespace __zor

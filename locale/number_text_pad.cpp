// Width and fill of a number's text, in place.

#include "number_text.h"

namespace __zor {

__attribute__((__regparm__(3))) char *pad_number(char *first, char *last, unsigned prefix, unsigned flags, int width,
                                                 char fill) noexcept {
  const unsigned pad = static_cast<unsigned>(width - (last - first));
  const unsigned adjust = flags & number_adjustfield;
  char *gap = last;
  if (adjust != number_left) {
    gap = first;
    if (adjust == number_internal) gap += prefix;
    memmove(gap + pad, gap, static_cast<size_t>(last - gap));
  }
  memset(gap, fill, pad);
  return first + width;
}

}  // namespace __zor

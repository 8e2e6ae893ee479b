// Width and fill of a number's text, in place.

#include "write.h"

namespace __zor {

PLX_HIDDEN PLX_REGPARM char *pad_number(char *first, char *last, unsigned prefix, unsigned flags, int width,
                                        char fill) noexcept {
  const unsigned pad = static_cast<unsigned>(width - (last - first));
  const unsigned adjust = flags & number_adjustfield;
  char *const gap = adjust == number_left ? last : adjust == number_internal ? first + prefix : first;
  // What follows the gap is nearly always short enough to be kept meanwhile, and then calls would cost more than the
  // work: the fill goes four characters at a time, over the gap's end, and is overwritten.
  char behind[pad_overrun];
  memcpy(behind, gap, sizeof behind);
  if (last - gap > static_cast<int>(pad_overrun)) memmove(gap + pad, gap, static_cast<size_t>(last - gap));
  const unsigned fills = static_cast<unsigned char>(fill) * 0x01010101u;
  for (unsigned i = 0; i < pad; i += 4) memcpy(gap + i, &fills, 4);
  memcpy(gap + pad, behind, sizeof behind);
  return first + width;
}

}  // namespace __zor

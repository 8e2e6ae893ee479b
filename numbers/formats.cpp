// The formats for printf that a stream's flags stand for.
#include "flags.h"

namespace __zor {

PLX_HIDDEN PLX_REGPARM void integer_format(char *format, char conversion, unsigned flags) noexcept {
  *format++ = '%';
  if (conversion != 'p') {
    if (flags & number_showpos) *format++ = '+';
    if (flags & number_showbase) *format++ = '#';
    *format++ = 'l';
    const unsigned base = flags & number_basefield;
    if (base == number_oct) conversion = 'o';
    if (base == number_hex) conversion = flags & number_uppercase ? 'X' : 'x';
  }
  *format++ = conversion;
  *format = '\0';
}

PLX_HIDDEN PLX_REGPARM void float_format(char *format, char modifier, unsigned flags) noexcept {
  const unsigned style = flags & number_floatfield;
  *format++ = '%';
  if (flags & number_showpos) *format++ = '+';
  if (flags & number_showpoint) *format++ = '#';
  *format++ = '.';
  *format++ = '*';
  if (modifier) *format++ = modifier;
  *format++ = style == number_fixed ? 'f' : style == number_scientific ? 'e' : 'g';
  *format = '\0';
}

}  // namespace __zor

// What numbers know of a stream: the format flags that matter to them, by name.
#pragma once

#include <plx/base/config.h>

namespace __zor {

// Bits of ios_base::fmtflags; locale/num_put.cpp compares them.
enum a_number_flag : unsigned {
  number_dec = 0x2,
  number_fixed = 0x4,
  number_hex = 0x8,
  number_internal = 0x10,
  number_left = 0x20,
  number_oct = 0x40,
  number_right = 0x80,
  number_scientific = 0x100,
  number_showbase = 0x200,
  number_showpoint = 0x400,
  number_showpos = 0x800,
  number_uppercase = 0x4000,
  number_basefield = number_dec | number_hex | number_oct,
  number_adjustfield = number_internal | number_left | number_right,
  number_floatfield = number_fixed | number_scientific
};

// The bits of each field that is exactly one of its flags; any other mixture stands for "as the prefix says" when a
// number is read, for decimal or general when it is written.
inline bool number_is_based(unsigned flags) {
  const unsigned base = flags & number_basefield;
  return base == number_hex || base == number_oct;
}

// The formats for printf, "%+#.*Lg" and "%+#lX" at their longest: 8 and 6 characters with the null character.
// `modifier` is 'L' or 0; `conversion` is 'd' or 'u', which a base in the flags replaces, or 'p', which takes no flags.
PLX_HIDDEN PLX_REGPARM void float_format(char *format, char modifier, unsigned flags) noexcept;
PLX_HIDDEN PLX_REGPARM void integer_format(char *format, char conversion, unsigned flags) noexcept;

}  // namespace __zor

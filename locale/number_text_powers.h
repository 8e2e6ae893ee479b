// Powers of ten for the texts of floating values.
#pragma once

#include "number_text_digits.h"

namespace __zor {

// 10^0 to 10^27 are exact in a long double: 5^27 has 63 bits. Beyond, 10^(27 i) is off by half a unit at most.
constexpr int exact_powers = 28;
constexpr int power_step = 27;
constexpr int power_steps = 14;

struct PLX_NUMBER_HIDDEN a_power_table {
  long double exact[exact_powers];
  long double step[power_steps];
};
extern PLX_NUMBER_HIDDEN const a_power_table powers_of_ten;

// 10^k for 32-bit work, and how to divide by it: (value >> before) * factor >> 32 >> after.
struct a_small_power {
  unsigned value;
  unsigned factor;
  unsigned char before, after;
};
constexpr unsigned small_powers = 10;
extern PLX_NUMBER_HIDDEN const a_small_power small_power[small_powers];

// The upper word of the double 10^(first + index), or of a double slightly below it.
constexpr int first_boundary = -307;
constexpr int boundaries = 308 + 307 + 1;
struct PLX_NUMBER_HIDDEN a_boundary_table {
  unsigned high[boundaries];
};
extern PLX_NUMBER_HIDDEN const a_boundary_table decimal_boundaries;

// The decimal exponent of a normal double from its upper word without sign; next to a power of ten it may be 1 too
// large.
inline int decimal_exponent(unsigned high) {
  const int binary = static_cast<int>(high >> 20) - 1023;
  const int least = binary * 78913 >> 18;  // 78913 / 2^18 = log10(2) as near as is needed
  return least + (high >= decimal_boundaries.high[least + 1 - first_boundary]);
}

}  // namespace __zor

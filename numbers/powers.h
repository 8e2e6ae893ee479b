// Powers of ten, for both directions.
#pragma once

#include "flags.h"

namespace __zor {

// 10^n for n up to 27 is exact in a long double: 5^27 has 63 bits. Negative powers, and 10^(28 n), are rounded once.
constexpr int most_exact_power = 27, power_step = 28, power_steps = 12;

struct PLX_HIDDEN a_power_table {
  long double near[2 * most_exact_power + 1];  // 10^-27 to 10^27
  long double far[2 * power_steps + 1];        // 10^-336 to 10^336
};
extern PLX_HIDDEN const a_power_table powers_of_ten;

// 10^n for n from -27 to 27, and 10^(28 n) for n from -12 to 12.
inline const long double &near_power(int n) { return powers_of_ten.near[most_exact_power + n]; }
inline const long double &far_power(int n) { return powers_of_ten.far[power_steps + n]; }

// 10^k for 32-bit work, and how to divide by it: (value >> before) * factor >> 32 >> after.
struct a_small_power {
  unsigned value;
  unsigned factor;
  unsigned char before, after;
};
constexpr unsigned small_powers = 10;
extern PLX_HIDDEN const a_small_power small_power[small_powers];

// The upper word of the double 10^(first + index), or of a double slightly below it.
constexpr int first_boundary = -307;
constexpr int boundaries = 308 + 307 + 1;
struct PLX_HIDDEN a_boundary_table {
  unsigned high[boundaries];
};
extern PLX_HIDDEN const a_boundary_table decimal_boundaries;

// The decimal exponent of a normal double from its upper word without sign; next to a power of ten it may be 1 too
// large.
inline int decimal_exponent(unsigned high) {
  const int binary = static_cast<int>(high >> 20) - 1023;
  const int least = binary * 78913 >> 18;  // 78913 / 2^18 = log10(2) as near as is needed
  return least + (high >= decimal_boundaries.high[least + 1 - first_boundary]);
}

}  // namespace __zor

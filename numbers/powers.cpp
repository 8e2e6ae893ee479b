// The tables of powers of ten, most of them made by the compiler.

#include "powers.h"

namespace __zor {

const a_power_table powers_of_ten = {
    {1e-27L, 1e-26L, 1e-25L, 1e-24L, 1e-23L, 1e-22L, 1e-21L, 1e-20L, 1e-19L, 1e-18L, 1e-17L, 1e-16L, 1e-15L, 1e-14L,
     1e-13L, 1e-12L, 1e-11L, 1e-10L, 1e-9L,  1e-8L,  1e-7L,  1e-6L,  1e-5L,  1e-4L,  1e-3L,  1e-2L,  1e-1L,  1e0L,
     1e1L,   1e2L,   1e3L,   1e4L,   1e5L,   1e6L,   1e7L,   1e8L,   1e9L,   1e10L,  1e11L,  1e12L,  1e13L,  1e14L,
     1e15L,  1e16L,  1e17L,  1e18L,  1e19L,  1e20L,  1e21L,  1e22L,  1e23L,  1e24L,  1e25L,  1e26L,  1e27L},
    {1e-336L, 1e-308L, 1e-280L, 1e-252L, 1e-224L, 1e-196L, 1e-168L, 1e-140L, 1e-112L, 1e-84L, 1e-56L, 1e-28L, 1e0L,
     1e28L,   1e56L,   1e84L,   1e112L,  1e140L,  1e168L,  1e196L,  1e224L,  1e252L,  1e280L, 1e308L, 1e336L}};

const a_small_power small_power[small_powers] = {{1, 0, 0, 0},                // not divided by
                                                 {10, 0xCCCCCCCD, 0, 3},      //
                                                 {100, 0x51EB851F, 0, 5},     //
                                                 {1000, 0x10624DD3, 0, 6},    //
                                                 {10000, 0xD1B71759, 0, 13},  //
                                                 {100000, 0x0A7C5AC5, 5, 7},  //
                                                 {1000000, 0x431BDE83, 0, 18},
                                                 {10000000, 0x6B5FCA6B, 0, 22},
                                                 {100000000, 0x55E63B89, 0, 25},
                                                 {1000000000, 0x00044B83, 9, 7}};

namespace {

// Truncated products of 64-bit mantissas: the error of 308 of them does not reach a bit of the upper word except next
// to a power of ten, and it is on the side that decimal_exponent allows.
struct a_scaled {
  unsigned long long mantissa;  // with its highest bit set
  int exponent;
};

constexpr a_scaled scaled_by_ten(a_scaled x) {
  // 10 = 1.25 * 8
  const unsigned long long quarter = x.mantissa >> 2;
  const unsigned long long sum = (x.mantissa >> 1) + (quarter >> 1);
  if (sum >> 63) return {sum, x.exponent + 4};
  return {sum << 1, x.exponent + 3};
}

constexpr a_scaled scaled_by_tenth(a_scaled x) {
  // 1 / 10 = 0.8 / 8
  const unsigned long long product = x.mantissa / 5 * 4;
  if (product >> 63) return {product, x.exponent - 3};
  return {product << 1, x.exponent - 4};
}

constexpr unsigned upper_word(a_scaled x) {
  return static_cast<unsigned>(x.exponent + 1023) << 20 | (static_cast<unsigned>(x.mantissa >> 43) & 0xFFFFF);
}

constexpr a_boundary_table make_boundaries() {
  a_boundary_table table{};
  a_scaled up{1ull << 63, 0};
  for (int k = 0; k <= 308; ++k, up = scaled_by_ten(up)) table.high[k - first_boundary] = upper_word(up);
  a_scaled down{1ull << 63, 0};
  for (int k = 0; k >= first_boundary; --k, down = scaled_by_tenth(down))
    table.high[k - first_boundary] = upper_word(down);
  return table;
}

constexpr a_boundary_table boundaries_made = make_boundaries();

}  // namespace

const a_boundary_table decimal_boundaries = boundaries_made;

}  // namespace __zor

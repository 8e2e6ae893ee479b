// numeric_limits where a constant is wanted, of types without limits, and in later dialects.
// test-variants: -O1 -std=c++98 | -O1 -std=gnu++20
#include <limits>

#include <climits>
#include <cfloat>

#include "harness.h"

struct no_number {
  no_number() : value(3) {}
  int value;
};
typedef char array_of_digits[std::numeric_limits<unsigned char>::digits];
template <bool is_signed> struct chosen {
  enum { value = 1 };
};
template <> struct chosen<false> {
  enum { value = 2 };
};

int main() {
  CHECK(!std::numeric_limits<no_number>::is_specialized && std::numeric_limits<no_number>::max().value == 3);
  CHECK(!std::numeric_limits<int>::is_modulo && std::numeric_limits<unsigned>::is_modulo &&
        !std::numeric_limits<bool>::is_modulo);
  CHECK(sizeof(array_of_digits) == 8 && chosen<std::numeric_limits<unsigned>::is_signed>::value == 2);
  // A signaling NaN has the bit clear that makes it quiet.
  const double signaling = std::numeric_limits<double>::signaling_NaN(),
               quiet = std::numeric_limits<double>::quiet_NaN();
  unsigned char bytes[2][8];
  memcpy(bytes[0], &signaling, 8);
  memcpy(bytes[1], &quiet, 8);
  CHECK((bytes[1][6] & 8) != 0 && bytes[0][7] == 0x7F && quiet != quiet);
#if __cplusplus >= 201103L
  static_assert(std::numeric_limits<int>::max() == INT_MAX && std::numeric_limits<const int>::digits == 31, "");
  static_assert(std::numeric_limits<int>::lowest() == INT_MIN && std::numeric_limits<double>::lowest() == -DBL_MAX, "");
  static_assert(std::numeric_limits<float>::max_digits10 == 9 && std::numeric_limits<long double>::max_digits10 == 21,
                "");
  CHECK_INT(std::numeric_limits<char32_t>::digits, 32);
#endif
  return TEST_RESULT();
}

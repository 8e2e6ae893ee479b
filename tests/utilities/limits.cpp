// numeric_limits of every arithmetic type against what arithmetic itself does; members as constants, and as objects
// with an address.
// test-variants: -O0 -std=gnu++98 | -O1 -std=c++98 | -O2 -std=gnu++11 | -O0 -std=gnu++17 | -O1 -std=gnu++20
#include <limits>

#include <cfloat>
#include <climits>

#include "harness.h"

static const int *address_of_int(const int &i) { return &i; }
static const bool *address_of_bool(const bool &b) { return &b; }

template <class T> static void test_integer(bool is_signed, int bits) {
  typedef std::numeric_limits<T> limits;
  CHECK(limits::is_specialized && limits::is_integer && limits::is_exact && limits::is_bounded);
  CHECK(limits::is_signed == is_signed && limits::radix == 2);
  CHECK_INT(limits::digits, bits - is_signed);
  unsigned long long top = 0;
  for (int i = 0; i < limits::digits; ++i) top = top * 2 + 1;
  CHECK(static_cast<unsigned long long>(limits::max()) == top);
  CHECK(is_signed ? limits::min() < 0 && static_cast<T>(limits::min() + 1) == static_cast<T>(-limits::max())
                  : limits::min() == 0);
  int decimal = 0;
  for (unsigned long long power = top; power >= 10; power /= 10) ++decimal;
  CHECK_INT(limits::digits10, decimal);
  CHECK(!limits::is_iec559 && !limits::has_infinity && !limits::has_quiet_NaN && limits::epsilon() == T());
  CHECK(limits::round_style == std::round_toward_zero && limits::has_denorm == std::denorm_absent);
  CHECK(limits::is_modulo == (!is_signed && bits > 1));
  CHECK(*address_of_int(limits::digits) == limits::digits && *address_of_bool(limits::is_exact));
  CHECK(*address_of_int(limits::max_exponent10) == 0);
}

template <class T> static void test_real(int digits, int digits10, int max_exponent, int max_exponent10) {
  typedef std::numeric_limits<T> limits;
  CHECK(limits::is_specialized && !limits::is_integer && !limits::is_exact && limits::is_bounded && limits::is_signed);
  CHECK(limits::digits == digits && limits::digits10 == digits10 && limits::radix == 2);
  CHECK(limits::max_exponent == max_exponent && limits::min_exponent == 3 - max_exponent);
  CHECK(limits::max_exponent10 == max_exponent10 && limits::min_exponent10 == 1 - max_exponent10);
  // Volatile, so that each step is rounded to the type.
  volatile T step = 1;
  for (int i = 1; i < digits; ++i) step = step / 2;
  volatile T more = 1 + step, half_more = 1 + step / 2;
  CHECK(limits::epsilon() == step && more > 1 && half_more == 1);
  volatile T top = limits::max(), doubled = top * 2;
  CHECK(doubled == limits::infinity() && top < limits::infinity() && -limits::infinity() < -top);
  volatile T least = limits::denorm_min(), halved = least / 2;
  CHECK(least > 0 && halved == 0 && least < limits::min());
  volatile T normal = limits::min();
  for (int i = 1; i < digits; ++i) normal = normal / 2;
  CHECK(normal == limits::denorm_min());
  volatile T nan = limits::quiet_NaN();
  CHECK(nan != nan);
  CHECK(limits::has_infinity && limits::has_quiet_NaN && limits::has_signaling_NaN && limits::is_iec559);
  CHECK(limits::has_denorm == std::denorm_present && limits::round_style == std::round_to_nearest);
  CHECK(limits::round_error() == T(0.5) && !limits::is_modulo);
  CHECK(*address_of_int(limits::min_exponent) == 3 - max_exponent && *address_of_bool(limits::has_infinity));
}

struct no_number {
  no_number() : value(3) {}
  int value;
};

// Constants where the language wants one.
typedef char array_of_digits[std::numeric_limits<unsigned char>::digits];
template <bool is_signed> struct chosen { enum { value = 1 }; };
template <> struct chosen<false> { enum { value = 2 }; };

int main() {
  test_integer<bool>(false, 1);
  test_integer<char>(true, 8);
  test_integer<signed char>(true, 8);
  test_integer<unsigned char>(false, 8);
  test_integer<wchar_t>(true, 32);
  test_integer<short>(true, 16);
  test_integer<unsigned short>(false, 16);
  test_integer<int>(true, 32);
  test_integer<unsigned int>(false, 32);
  test_integer<long>(true, 32);
  test_integer<unsigned long>(false, 32);
  test_integer<long long>(true, 64);
  test_integer<unsigned long long>(false, 64);
  test_real<float>(24, 6, 128, 38);
  test_real<double>(53, 15, 1024, 308);
  test_real<long double>(64, 18, 16384, 4932);
  CHECK(std::numeric_limits<long>::max() == LONG_MAX && std::numeric_limits<int>::min() == INT_MIN);
  CHECK(std::numeric_limits<double>::max() == DBL_MAX && std::numeric_limits<float>::min() == FLT_MIN);
  CHECK(std::numeric_limits<long double>::epsilon() == LDBL_EPSILON);
  CHECK(!std::numeric_limits<no_number>::is_specialized && std::numeric_limits<no_number>::max().value == 3);
  CHECK_INT(sizeof(array_of_digits), 8);
  CHECK_INT(chosen<std::numeric_limits<unsigned>::is_signed>::value, 2);
#if __cplusplus >= 201103L
  static_assert(std::numeric_limits<int>::max() == INT_MAX && std::numeric_limits<const int>::digits == 31, "");
  static_assert(std::numeric_limits<int>::lowest() == INT_MIN && std::numeric_limits<double>::lowest() == -DBL_MAX, "");
  static_assert(std::numeric_limits<float>::max_digits10 == 9 && std::numeric_limits<long double>::max_digits10 == 21, "");
  CHECK_INT(std::numeric_limits<char32_t>::digits, 32);
#endif
  return TEST_RESULT();
}

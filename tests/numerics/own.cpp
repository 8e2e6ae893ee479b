// test-variants: -O1 | -O2 -std=gnu++20
// What later standards have or 1998 leaves open in valarray and complex. Of a valarray each copy, assignment and
// comparison of an element may throw, and each allocation fail: all that was made is destroyed once.
#include "fail_allocation.h"

#include <limits.h>

#include <complex>
#include <valarray>

#include "tracked.h"

typedef std::valarray<tracked> numbers;
typedef std::valarray<size_t> places;
typedef std::valarray<int> ints;
typedef std::complex<double> complex;
typedef std::complex<float> complex_float;

static tracked operator+(const tracked &a, const tracked &b) { return tracked(a.key + b.key); }
static tracked operator-(const tracked &a) { return tracked(-a.key); }
static tracked &operator+=(tracked &a, const tracked &b) { return a = a + b; }
static tracked negated(const tracked &x) { return -x; }

static void operate(int which, numbers &a, numbers &b) {
  switch (which) {
    case 0: a = b; break;
    case 1: b = numbers(tracked(9), 4); break;
    case 2: a = tracked(1); break;
    case 3: a += a; break;
    case 4: a += tracked(2); break;
    case 5: a = a + a; break;
    case 6: b = tracked(7) + b; break;
    case 7: b = -b; break;
    case 8: a = a.shift(2); break;
    case 9: a = a.cshift(-1); break;
    case 10: a = a.apply(negated); break;
    case 11: a.resize(7, tracked(1)); break;
    case 12: a[std::slice(0, 2, 2)] = b[std::slice(1, 2, 1)]; break;
    case 13: b = a[std::slice(0, 2, 2)]; break;
    case 14: a[std::slice(0, 5, 1)] += a; break;
    case 15: a[a < tracked(4)] = tracked(6); break;
    case 16: b = a[places(2, 3)]; break;
    case 17: b = a[std::gslice(0, places(2, 2), places(1, 2))]; break;
    case 18: a = a + tracked(2) + -(a + a); break;
    case 19: a += tracked(1) + a; break;
    default: b[0] = a.sum() + (a.min)() + (a.max)(); break;
  }
}

static void failures() {
  long *const faults[] = {&tracked::copies_to_fail, &tracked::comparisons_to_fail, &allocation_to_fail};
  for (int which = 0; which <= 20; ++which)
    for (int fault = 0; fault < 3; ++fault) {
      bool fired = true;
      for (long n = 1; fired; ++n) {
        try {
          numbers a(tracked(3), 5), b(4);
          *faults[fault] = n;
          operate(which, a, b);
        } catch (const refused &) {
        } catch (const std::bad_alloc &) {}
        fired = *faults[fault] == 0;
        *faults[fault] = 0;
        CHECK(tracked::live == 0 && live_blocks == 0);
      }
    }
  // What fails while it makes its result leaves the arrays as they were.
  for (int which = 0; which < 2; ++which) {
    ints a(3, 2);
    const ints b(5, 4);
    bool failed = false;
    allocation_to_fail = 1;
    try {
      which ? a.resize(100) : void(a = b);
    } catch (const std::bad_alloc &) {
      failed = true;
    }
    allocation_to_fail = 0;
    CHECK(failed && a.size() == 2 && a[0] == 3 && a[1] == 3);
  }
  // A length whose size in bytes wraps is no small allocation.
  const size_t lengths[] = {0x40000001u, 0x80000000u, static_cast<size_t>(-1)};
  for (int i = 0; i < 3; ++i) {
    bool failed = false;
    try {
      ints a(lengths[i]);
    } catch (const std::bad_alloc &) {
      failed = true;
    }
    CHECK(failed);
  }
}

static std::string listed(const ints &values) {
  std::string text;
  for (size_t i = 0; i < values.size(); ++i) text += static_cast<char>('0' + values[i]);
  return text;
}
static bool near(const std::complex<long double> &a, const std::complex<long double> &b, long double steps) {
  return std::abs(a - b) <= steps * std::abs(b);
}

static void own_rules() {
  ints a(6);
  for (int i = 0; i < 6; ++i) a[static_cast<size_t>(i)] = i;
  const ints start(a);
  CHECK(listed(a.shift(INT_MAX)) == "000000" && listed(a.shift(INT_MIN)) == "000000" && listed(a.shift(7)) == "000000");
  CHECK(listed(a.cshift(8)) == "234501" && listed(a.cshift(-8)) == "450123" && listed(a.cshift(INT_MIN)) == "450123" &&
        listed(a.cshift(-12)) == "012345");
  // Values and parts of the array itself, sizes that change, other types.
  a += a[3];
  CHECK_TEXT(listed(a).c_str(), "345678");
  a = start;
  a[std::slice(1, 5, 1)] = a[std::slice(0, 5, 1)];
  CHECK_TEXT(listed(a).c_str(), "001234");
  a[std::slice(5, 6, static_cast<size_t>(-1))] = a;
  CHECK_TEXT(listed(a).c_str(), "432100");
  a = a[std::slice(1, 2, 2)];
  CHECK_TEXT(listed(a).c_str(), "31");
  a = start;
  CHECK_TEXT(listed(a).c_str(), "012345");
  a.resize(6, 7);
  CHECK_TEXT(listed(a).c_str(), "777777");
  CHECK(listed(start[std::gslice()]).empty() && (std::valarray<double>(1.5, 2) * 2 - 1)[1] == 2.0);
  const size_t sizes[] = {2, 0};
  CHECK(listed(start[std::gslice(0, std::valarray<size_t>(sizes, 2), std::valarray<size_t>(sizes, 2))]).empty());
  CHECK(ints().shift(1).size() == 0 && ints().cshift(1).size() == 0 && (ints() + ints()).size() == 0);
#if __cplusplus >= 201103L
  ints moved;
  swap(a, moved);
  for (int &each : moved) ++each;
  a = static_cast<ints &&>(moved);
  CHECK_TEXT(listed(a).c_str(), "888888");
#endif
  // Powers of zero, mixed types, and digits that many products or a logarithm would lose.
  CHECK(std::pow(complex(), complex()) == complex(1) && std::pow(complex(), complex(2, 1)) == complex() &&
        std::pow(complex(), 2.0) == complex());
  CHECK(std::pow(complex(3, 4), 2) == complex(-7, 24) && std::pow(complex(0, 1), 4) == complex(1) &&
        std::pow(complex(3, 4), 0) == complex(1));
  CHECK(near(std::pow(complex(1, 1e-9), 2000), std::pow(std::complex<long double>(1, 1e-9), 2000.0L), 1e-15L));
  CHECK(near(std::pow(complex_float(3, 1), complex_float(9, 1)),
             std::pow(std::complex<long double>(3, 1), std::complex<long double>(9, 1)), 1e-7L));
  CHECK(near(std::pow(complex(0, 2), 0.5f), complex(1, 1), 1e-15L) &&
        near(std::pow(2, complex(0.5)), sqrtl(2.0L), 1e-15L));
  CHECK(near(std::pow(complex_float(0, 2), complex(0.5)), complex(1, 1), 1e-15L) &&
        std::abs(complex(HUGE_VAL, HUGE_VAL) * complex(0, 1)) == HUGE_VAL);
  // The signs of zeros name the side of a cut.
  CHECK(std::sqrt(complex(-4, 0.0)) == complex(0, 2) && std::sqrt(complex(-4, -0.0)) == complex(0, -2) &&
        std::log(complex(-1, -0.0)).imag() < -3);
  complex z(3, 4);
  const complex &same = z;
  z *= same;
  z /= same;
  CHECK(z == complex(1) && std::complex<int>(1, 2) * std::complex<int>(3, 4) == std::complex<int>(-5, 10));
  CHECK(std::complex<int>(-5, 10) / std::complex<int>(3, 4) == std::complex<int>(1, 2) &&
        std::complex<int>(complex(3.5, -2.5)) == std::complex<int>(3, -2));
}

int main() {
  failures();
  own_rules();
  return TEST_RESULT();
}

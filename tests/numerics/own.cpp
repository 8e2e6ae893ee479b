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
typedef std::complex<int> whole;
typedef std::complex<long double> wide;

static tracked operator+(const tracked &a, const tracked &b) { return tracked(a.key + b.key); }
static tracked operator-(const tracked &a) { return tracked(-a.key); }
static tracked &operator+=(tracked &a, const tracked &b) { return a = a + b; }
static tracked negated(const tracked &x) { return -x; }

// What fails at any point leaves nothing behind.
static void operate() {
  numbers a(tracked(3), 5), b(4);
  a = b;
  b = numbers(tracked(9), 4);
  a += a.shift(2) + a.cshift(-1);
  a += tracked(2);
  a.resize(7, tracked(1));
  a[std::slice(0, 2, 2)] = b[std::slice(1, 2, 1)];
  b = a[std::slice(0, 2, 2)];
  a[a < tracked(4)] = tracked(6);
  b = a[places(2, 3)];
  b = a[std::gslice(0, places(2, 2), places(1, 2))];
  a = tracked(7) + a.apply(negated) + -(a + a);
  b[0] = a.sum() + (a.min)() + (a.max)();
}

static void failures() {
  long *const faults[] = {&tracked::copies_to_fail, &tracked::comparisons_to_fail, &allocation_to_fail};
  for (int fault = 0; fault < 3; ++fault) {
    bool fired = true;
    for (long n = 1; fired; ++n) {
      *faults[fault] = n;
      try {
        operate();
      } catch (const refused &) {
      } catch (const std::bad_alloc &) {}
      fired = *faults[fault] == 0;
      *faults[fault] = 0;
      CHECK(tracked::live == 0 && live_blocks == 0);
    }
  }
  // What fails while it makes its result leaves the arrays as they were; a length whose size in bytes wraps is no small
  // allocation.
  for (int which = 0; which < 5; ++which) {
    const size_t lengths[] = {100, 0, 0x40000001u, 0x80000000u, static_cast<size_t>(-1)};
    ints a(3, 2);
    const ints four(5, 4);
    allocation_to_fail = which < 2;
    try {
      which == 1 ? void(a = four) : a.resize(lengths[which]);
      CHECK(!"made");
    } catch (const std::bad_alloc &) {}
    allocation_to_fail = 0;
    CHECK(a.size() == 2 && a[0] == 3 && a[1] == 3);
  }
}

static std::string listed(const ints &values) {
  std::string text;
  for (size_t i = 0; i < values.size(); ++i) text += static_cast<char>('0' + values[i]);
  return text;
}
static bool near(const wide &a, const wide &b, long double steps) { return std::abs(a - b) <= steps * std::abs(b); }

static void arrays() {
  const int digits[] = {0, 1, 2, 3, 4, 5};
  const ints start(digits, 6);
  const int far[] = {INT_MAX, INT_MIN, 8, -8};
  std::string all;
  for (int i = 0; i < 4; ++i) all += listed(start.shift(far[i])) + listed(start.cshift(far[i])) + ' ';
  // Values and parts of the array itself, sizes that change, other types.
  ints a(start);
  a += a[3], all += listed(a);
  a[std::slice(5, 6, static_cast<size_t>(-1))] = a, all += ' ' + listed(a);
  a[std::slice(1, 5, 1)] = a[std::slice(0, 5, 1)], all += ' ' + listed(a);
  a = a[std::slice(1, 2, 2)], all += ' ' + listed(a);
  a = start, all += ' ' + listed(a);
  a.resize(6, 7), all += ' ' + listed(a);
  CHECK_TEXT(all.c_str(), "000000123450 000000450123 000000234501 000000450123 345678 876543 887654 86 012345 777777");
  const size_t sizes[] = {2, 0};
  const std::gslice none(0, places(sizes, 2), places(sizes, 2));
  CHECK(listed(start[std::gslice()]).empty() && listed(start[none]).empty() && (ints() + ints()).size() == 0);
  CHECK((std::valarray<double>(1.5, 2) * 2 - 1)[1] == 2.0 && ints().shift(1).size() + ints().cshift(1).size() == 0);
}

// Powers of zero, mixed types, and digits that many products or a logarithm would lose; the signs of zeros name the
// side of a cut.
static void complex_numbers() {
  CHECK(std::pow(complex(), complex()) == complex(1) && std::pow(complex(), complex(2, 1)) == complex() &&
        std::pow(complex(), 2.0) == complex() && std::pow(complex(3, 4), 0) == complex(1));
  CHECK(near(std::pow(complex(1, 1e-9), 2000), std::pow(wide(1, 1e-9), 2000.0L), 1e-15L));
  CHECK(near(std::pow(complex_float(3, 1), complex_float(9, 1)), std::pow(wide(3, 1), wide(9, 1)), 1e-7L));
  CHECK(near(std::pow(complex_float(0, 2), complex(0.5)), wide(1, 1), 1e-15L));
  CHECK(near(std::pow(complex(0, 2), 0.5f), wide(1, 1), 1e-15L) && near(std::pow(2, complex(0.5)), sqrtl(2), 1e-15L));
  CHECK(std::sqrt(complex(-4, 0.0)) == complex(0, 2) && std::sqrt(complex(-4, -0.0)) == complex(0, -2));
  CHECK(whole(1, 2) * whole(3, 4) == whole(-5, 10) && whole(-5, 10) / whole(3, 4) == whole(1, 2));
}

int main() {
  failures();
  arrays();
  complex_numbers();
  return TEST_RESULT();
}

// The texts of numbers are the C library's in every case: values that round either way, exact halves, ends of ranges,
// every precision, all rounding modes and other precisions of the processor. Seen through num_put in the "C" locale.
// test-variants: -O2

#include <fenv.h>
#include <locale.h>
#include <math.h>

#include <locale>
#include <ostream>

#include "../harness.h"

typedef std::ios_base base;
struct to_text : std::num_put<char, char *> {};

static unsigned long long random_state = 88172645463325252ull;
static unsigned long long random_bits() {
  random_state ^= random_state << 13;
  random_state ^= random_state >> 7;
  random_state ^= random_state << 17;
  return random_state * 2685821657736338717ull;
}
static unsigned below(unsigned n) { return static_cast<unsigned>(random_bits() >> 33) % n; }

static double from_bits(unsigned long long bits) {
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

// The values that programs print, and those that are hard to print.
static double random_double() {
  char text[64];
  switch (below(9)) {
    case 0: return from_bits(random_bits());
    case 1: return from_bits(random_bits() >> 12);                                // denormal
    case 2: return ldexp(2.0 * below(100000) + 1, -static_cast<int>(below(20)));  // halves of decimals
    case 3: return ldexp(1.0, static_cast<int>(below(2098)) - 1074);
    case 4: {  // powers of ten and their neighbours
      sprintf(text, "1e%d", static_cast<int>(below(617)) - 308);
      const double value = strtod(text, 0);
      unsigned long long bits;
      memcpy(&bits, &value, sizeof bits);
      return from_bits(bits + below(5) - 2);
    }
    case 5: return static_cast<double>(static_cast<long long>(random_bits() >> below(64)));
    case 6:  // a decimal whose last digit is half of a unit
      sprintf(text, "%u5e%d", below(1u << (below(31) + 1)), static_cast<int>(below(40)) - 25);
      return strtod(text, 0);
    case 7:  // nines
      sprintf(text, "%u%.*se%d", below(10), static_cast<int>(below(18)), "99999999999999999",
              static_cast<int>(below(30)) - 20);
      return strtod(text, 0);
    default: sprintf(text, "-%u.%u", below(100000), below(100000)); return strtod(text, 0);
  }
}

static long double random_long_double() {
  const unsigned long long mantissa = random_bits() | 1ull << 63;
  switch (below(20)) {
    case 0: return ldexpl(static_cast<long double>(mantissa), static_cast<int>(below(32000)) - 16300);
    case 1: return random_double() / 3.0L;
    default: return ldexpl(static_cast<long double>(mantissa), static_cast<int>(below(200)) - 150);
  }
}

struct number_stream : std::basic_ios<char> {
  number_stream() : std::basic_ios<char>(0) {}
};

static int different;

// The text of one value, made both ways. General precision 0 does not exist in streams.
template <class Float> static void compare(base &str, const char *size, Float value) {
  static const base::fmtflags styles[] = {base::fixed, base::scientific, 0};
  static char got[12000], want[12000];
  const to_text facet;
  const unsigned style = below(3);
  const base::fmtflags signs = below(4) ? 0 : base::showpos, points = below(4) ? 0 : base::showpoint;
  str.flags(styles[style] | signs | points);
  str.precision(below(3) ? below(20) : below(3) ? 6 : below(128));
  if (style != 0 && str.precision() == 0) str.precision(1);
  char format[12];
  sprintf(format, "%%%s%s.*%s%c", signs ? "+" : "", points ? "#" : "", size, "feg"[style]);
  sprintf(want, format, static_cast<int>(str.precision()), value);
  *facet.put(got, str, ' ', value) = 0;
  if (strcmp(got, want) == 0) return;
  if (++different < 10)
    fprintf(stderr, "%s, precision %d:\n  got  %s\n  want %s\n", format, static_cast<int>(str.precision()), got, want);
}

static void test_random_floats(unsigned doubles, unsigned long_doubles) {
  number_stream s;
  different = 0;
  for (unsigned i = 0; i < doubles; ++i) compare(s, "", random_double());
  for (unsigned i = 0; i < long_doubles; ++i) compare(s, "L", random_long_double());
  CHECK_INT(different, 0);
}

static void test_special_floats() {
  static const double values[] = {0.0,
                                  -0.0,
                                  HUGE_VAL,
                                  -HUGE_VAL,
                                  HUGE_VAL - HUGE_VAL,
                                  -(HUGE_VAL - HUGE_VAL),
                                  1,
                                  10,
                                  99999.95,
                                  999999.5,
                                  9999995,
                                  1234565,
                                  0.5,
                                  1.5,
                                  2.5,
                                  0.125,
                                  0.0001,
                                  0.00001,
                                  9.5e17};
  number_stream s;
  different = 0;
  for (unsigned i = 0; i < 200; ++i)
    for (unsigned v = 0; v < sizeof values / sizeof *values; ++v) {
      compare(s, "", values[v]);
      compare(s, "L", static_cast<long double>(values[v]));
    }
  CHECK_INT(different, 0);
}

// The C library rounds texts as the processor rounds; 24 or 53 bits of precision change nothing that is seen.
static void test_modes() {
  static const int modes[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};
  for (int i = 0; i < 3; ++i) {
    fesetround(modes[i]);
    test_random_floats(2000, 500);
    fesetround(FE_TONEAREST);
  }
  for (unsigned short precision = 0; precision <= 0x200; precision += 0x200) {
    unsigned short usual;
    __asm__ volatile("fnstcw %0" : "=m"(usual));
    const unsigned short control = static_cast<unsigned short>((usual & 0xFCFF) | precision);
    number_stream s;
    different = 0;
    for (int i = 0; i < 2000; ++i) {
      const double value = random_double();
      __asm__ volatile("fldcw %0" : : "m"(control));
      compare(s, "", value);
      __asm__ volatile("fldcw %0" : : "m"(usual));
    }
    CHECK_INT(different, 0);
  }
}

template <class Integer> static void compare_integer(base &str, base::fmtflags flags, char conversion, Integer value) {
  char format[12], got[40], want[40];
  const to_text facet;
  str.flags(flags);
  const int field = flags & base::basefield;
  if (field == base::oct) conversion = 'o';
  if (field == base::hex) conversion = flags & base::uppercase ? 'X' : 'x';
  sprintf(format, "%%%s%sl%c", flags & base::showpos ? "+" : "", flags & base::showbase ? "#" : "", conversion);
  sprintf(want, format, value);
  *facet.put(got, str, ' ', value) = 0;
  if (strcmp(got, want) != 0 && ++different < 10) fprintf(stderr, "%s: got %s, want %s\n", format, got, want);
}

static void test_integers() {
  static const int bases[] = {0, base::dec, base::hex, base::oct, base::hex | base::oct};
  number_stream s;
  different = 0;
  for (int i = 0; i < 60000; ++i) {
    long value = static_cast<long>(random_bits() >> 32) >> below(32);
    if (i < 2) value = i ? 0 : -2147483647l - 1;
    if (i >= 2 && i < 60) {  // where a digit more is needed
      value = 1;
      for (int k = 0; k < i / 6; ++k) value *= 10;
      value += i % 3 - 1;
    }
    const base::fmtflags flags =
        bases[below(5)] | static_cast<int>(random_bits() & (base::showbase | base::showpos | base::uppercase));
    compare_integer(s, flags, 'd', value);
    compare_integer(s, flags, 'u', static_cast<unsigned long>(value));
    char got[40], want[40];
    const to_text facet;
    *facet.put(got, s, ' ', reinterpret_cast<const void *>(value)) = 0;
    sprintf(want, "%p", reinterpret_cast<void *>(value));
    if (strcmp(got, want) != 0) ++different;
  }
  CHECK_INT(different, 0);
}

int main() {
  test_integers();
  test_special_floats();
  test_random_floats(250000, 20000);
  test_modes();
  return TEST_RESULT();
}

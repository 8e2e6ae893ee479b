// test-variants: -O2 -std=c++17 -Wno-unused-function
//
// The number engine by itself, compiled into the test: values must be the C library's to the last bit, for texts that
// lie on or next to the border between two results, denormal ones, long ones, and many random ones; in each rounding
// mode and each locale of the C library.
#include <fenv.h>
#include <locale.h>
#include <math.h>

#include <string>

#include "../../locale/digits.cpp"
#include "../../locale/number_value.cpp"
#include "../../locale/number_value_quick.cpp"
#include "named_locales.h"

namespace {

using namespace __zor;

unsigned long long random_state = 4;
unsigned int random_word() {
  random_state = random_state * 6364136223846793005ull + 1442695040888963407ull;
  return static_cast<unsigned int>(random_state >> 32);
}

void parse(const char *text, char **end, float &v) { v = strtof(text, end); }
void parse(const char *text, char **end, double &v) { v = strtod(text, end); }
void parse(const char *text, char **end, long double &v) { v = strtold(text, end); }

template <class Real> void check_one(const std::string &text) {
  Real want, got = 0;
  char *end;
  parse(text.c_str(), &end, want);
  const char *const stop = quick_real(text.data(), text.data() + text.size(), got);
  // Ten bytes of a long double mean something.
  const bool ok = stop && memcmp(&got, &want, sizeof(Real) == 12 ? 10 : sizeof(Real)) == 0;
  CHECK(ok);
  if (!ok) fprintf(stderr, "  %.200s: got %La, want %La\n", text.c_str(), (long double)got, (long double)want);
}

void check_all(const std::string &text) {
  check_one<float>(text);
  check_one<double>(text);
  check_one<long double>(text);
}

std::string written(const char *format, int precision, long double value) {
  char text[12000];
  snprintf(text, sizeof text, format, precision, value);
  return text;
}

// The number exactly between two neighbours, in all its digits, and texts that differ from it at the very end.
void check_border(long double a, long double b) {
  std::string text = written("%.*Le", 11000, (a + b) / 2);
  const size_t e = text.find('e');
  size_t last = text.find_last_not_of('0', e - 1);
  const std::string exponent = text.substr(e);
  text.resize(last + 1);
  check_all(text + exponent);
  check_all(text + "0000000000000000001" + exponent);
  check_all("-" + text + std::string(12000, '0') + "1" + exponent);
  --text[last];
  check_all(text + "99999999999999999999" + exponent);
  for (size_t digits = 14; digits < 24; ++digits) check_all(text.substr(0, digits) + exponent);
}

double from_bits(unsigned int high, unsigned int low) {
  const unsigned long long bits = (unsigned long long)high << 32 | low;
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

void check_borders() {
  static const double places[] = {1,
                                  0.1,
                                  9007199254740992.0,
                                  1.7976931348623157e308,
                                  2.2250738585072014e-308,
                                  5e-324,
                                  16777216,
                                  3.4028234663852886e38,
                                  1.1754943508222875e-38,
                                  1e23,
                                  1e27,
                                  1e28,
                                  1e-27,
                                  0.3};
  for (size_t i = 0; i < sizeof places / sizeof *places; ++i) {
    check_border(places[i], nextafter(places[i], 0));
    if (places[i] < 1e38) check_border((float)places[i], nextafterf((float)places[i], INFINITY));
    if (places[i] < 1e308) check_border(places[i], nextafter(places[i], INFINITY));
  }
  // Between the largest numbers and infinity; between 0 and the least ones.
  check_border(0x1.fffffffffffffp+1023L, 0x1p+1024L);
  check_border(0x1.fffffep+127L, 0x1p+128L);
  check_border(0, 0x1p-149L);
  check_border(0, 0x1p-1074L);
  for (int i = 0; i < 300; ++i) {
    const unsigned int high = random_word() % 0x7FE00000, low = random_word();
    check_border(from_bits(high, low), from_bits(high, low ^ 1));
  }
  // Half of the least long double has the most digits.
  std::string least = written("%.*Le", 11600, 0x1p-16445L);
  check_all(least);
  check_all("1" + std::string(20000, '0') + "1e-20000");
}

void check_random() {
  for (int i = 0; i < 120000; ++i) {
    const unsigned int word = random_word();
    char text[64];
    switch (word % 5) {
      case 0:
        snprintf(text, sizeof text, "%d.%02u", (int)random_word() >> random_word() % 31, random_word() % 100);
        break;
      case 1:
        snprintf(text, sizeof text, "%.*e", (int)(random_word() % 22),
                 from_bits(random_word() % 0x7FF00000, random_word()));
        break;
      case 2:
        snprintf(text, sizeof text, "%u%09ue%d", random_word(), random_word() % 1000000000,
                 (int)(random_word() % 80) - 40);
        break;
      case 3: snprintf(text, sizeof text, "0.%0*u%u", (int)(random_word() % 20), 0, random_word()); break;
      default:
        snprintf(text, sizeof text, "-%u.%uE%+d", random_word() >> random_word() % 32, random_word(),
                 (int)(random_word() % 700) - 350);
    }
    check_all(text);
  }
}

// Only where the parts meet does it matter which of the ways a text takes: every length, every place of the point.
void check_shapes() {
  const std::string digits = "98765432109876543210987";
  for (size_t n = 1; n <= digits.size(); ++n)
    for (size_t point = 0; point <= n; ++point)
      for (int zeros = 0; zeros < 3; ++zeros) {
        std::string text = std::string(zeros, '0') + digits.substr(0, n);
        text.insert(point, ".");
        check_all(text);
        check_all(text + "e-28");
        check_all("-" + text + "e5;");
      }
  static const char *const none[] = {"", "+", "-.", ".", "e1", " 1", "x", "+-1"};
  for (size_t i = 0; i < sizeof none / sizeof *none; ++i) {
    double value = 7;
    CHECK(!quick_real(none[i], none[i] + strlen(none[i]), value));
    CHECK(value == 7);
  }
  const char *const texts[] = {"1e", "1e+", "1.e+5x", "+.5 ", "1.2.3", "12,5", "0x1p3", "1e5e5"};
  const int stops[] = {2, 3, 5, 3, 3, 2, 1, 3};
  for (int i = 0; i < 8; ++i) {
    double value;
    CHECK_INT(quick_real(texts[i], texts[i] + strlen(texts[i]), value) - texts[i], stops[i]);
  }
}

void check_modes() {
  static const char *const texts[] = {"0.1", "-0.1", "1e23", "123456789012345678", "-3.3333333333333333333333333e-5"};
  static const int modes[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO, FE_TONEAREST};
  for (int i = 0; i < 4; ++i) {
    fesetround(modes[i]);
    for (int j = 0; j < 5; ++j) check_all(texts[j]);
  }
  // The mantissa of 53 bits that some programs set.
  unsigned short old, narrow;
  __asm__ volatile("fnstcw %0" : "=m"(old));
  narrow = (old & ~0x300) | 0x200;
  __asm__ volatile("fldcw %0" : : "m"(narrow));
  double got;
  quick_real("0.3", "0.3" + 3, got);
  CHECK(got == strtod("0.3", 0));
  __asm__ volatile("fldcw %0" : : "m"(old));
}

void check_comma() {
  if (!setlocale(LC_ALL, "xx_DE")) {
    CHECK(false);
    return;
  }
  CHECK(strtod("1,5", 0) == 1.5);
  double value = 0;
  // Each way that ends at the C library.
  const std::string texts[] = {"9007199254740993.00000000000000000001", "1.5e-310", "0." + std::string(400, '1')};
  double want[3];
  for (int i = 0; i < 3; ++i) {
    quick_real(texts[i].data(), texts[i].data() + texts[i].size(), value);
    setlocale(LC_ALL, "C");
    want[i] = strtod(texts[i].c_str(), 0);
    setlocale(LC_ALL, "xx_DE");
    CHECK(value == want[i]);
  }
  setlocale(LC_ALL, "C");
}

template <bool Signed, unsigned long Max>
void check_integer(const char *text, unsigned int flags, int stop, unsigned long value = 0) {
  unsigned long got = 77;
  const char *const end = quick_integer<Signed, Max>(text, text + strlen(text), flags, got);
  CHECK_INT(end ? end - text : -1, stop);
  CHECK_INT(got, stop < 0 ? 77 : value);
}

void check_integers() {
  const unsigned long all = 0xFFFFFFFFul;
  check_integer<true, all>("2147483647,", number_dec, 10, 2147483647ul);
  check_integer<true, all>("2147483648", number_dec, -1);
  check_integer<true, all>("-2147483648", number_dec, 11, 2147483648ul);
  check_integer<false, all>("4294967295", number_dec, 10, all);
  check_integer<false, all>("4294967296", number_dec, -1);
  check_integer<false, all>("00000000000000004294967295x", number_dec, 26, all);
  check_integer<false, all>("42949672950", number_dec, -1);
  check_integer<false, 0xFFFF>("-1", number_dec, 2, 0xFFFF);
  check_integer<false, 0xFFFF>("65536", number_dec, -1);
  check_integer<true, all>("- 1", number_dec, -1);
  check_integer<true, all>("", number_dec, -1);
  check_integer<true, all>("-", number_dec, -1);
  check_integer<true, all>("0x1A", number_dec, 1, 0);
  check_integer<true, all>("0x1Ag", number_hex, 4, 26);
  check_integer<true, all>("fF", number_hex, 2, 255);
  check_integer<true, all>("0x", number_hex, -1);
  check_integer<true, all>("0", number_hex, 1, 0);
  check_integer<false, all>("FFFFFFFF", number_hex, 8, all);
  check_integer<false, all>("100000000", number_hex, -1);
  check_integer<true, all>("0x1", number_oct, 1, 0);
  check_integer<false, all>("37777777777 ", number_oct, 11, all);
  check_integer<false, all>("40000000000", number_oct, -1);
  check_integer<true, all>("12", 0, -1);
  check_integer<true, all>("-012", number_basefield, 4, 0ul - 10);
  check_integer<true, all>("0X1a", 0, 4, 26);
}

}  // namespace

int main() {
  check_shapes();
  check_borders();
  check_random();
  check_modes();
  check_integers();
  if (named_locales_setup()) check_comma();
  return TEST_RESULT();
}

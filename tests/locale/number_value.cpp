// The values of numbers that streams read are the C library's to the last bit: for texts that lie on or next to the
// border between two results, denormal ones, long ones, and many random ones; where the buffer's window is read and
// where it is not; in each rounding mode and precision of the processor, and in each locale of the C library.
// test-variants: -O2
#include <fenv.h>
#include <locale.h>
#include <math.h>

#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "../buffers.h"
#include "../random.h"
#include "named_locales.h"

namespace {

void parse(const char *text, float &v) { v = strtof(text, 0); }
void parse(const char *text, double &v) { v = strtod(text, 0); }
void parse(const char *text, long double &v) { v = strtold(text, 0); }

std::istringstream quick;
struct getter : std::num_get<char, const char *> {};

template <class Real> void check_one(const std::string &text) {
  Real want, got[2] = {7, 7};
  parse(text.c_str(), want);
  quick.clear();
  quick.str(text + ";;;;;;;;;");
  quick >> got[0];
  std::ios_base::iostate err = std::ios_base::goodbit;
  getter().get(text.data(), text.data() + text.size(), quick, err, got[1]);
  const bool whole = quick.get() == ';' && err == std::ios_base::eofbit;
  if (!whole) fprintf(stderr, "  %.200s, %d\n", text.c_str(), int(err));
  CHECK(whole);
  for (int i = 0; i < 2; ++i) {
    const bool ok = memcmp(&got[i], &want, sizeof want == 12 ? 10 : sizeof want) == 0;  // ten bytes mean something
    CHECK(ok);
    if (!ok)
      fprintf(stderr, "  %d: %.200s: got %La, want %La\n", i, text.c_str(), (long double)got[i], (long double)want);
  }
}
void check_all(const std::string &text) {
  check_one<float>(text);
  check_one<double>(text);
  check_one<long double>(text);
}

// The number exactly between two neighbours, in all its digits, and texts that differ from it at the very end.
void check_border(long double a, long double b) {
  static char written[12000];
  snprintf(written, sizeof written, "%.*Le", 11000, (a + b) / 2);
  std::string text = written;
  const size_t e = text.find('e'), last = text.find_last_not_of('0', e - 1);
  const std::string exponent = text.substr(e);
  text.resize(last + 1);
  check_all(text + exponent);
  check_all(text + "0000000000000000001" + exponent);
  check_all("-" + text + std::string(12000, '0') + "1" + exponent);
  if (text[last] == '.') return;
  --text[last];
  check_all(text + "99999999999999999999" + exponent);
  for (size_t digits = 14; digits < 24; ++digits) check_all(text.substr(0, digits) + exponent);
}
void check_borders() {
  const char *at =
      "1 0.1 0.3 9007199254740992 1.7976931348623157e308 2.2250738585072014e-308 5e-324 16777216 3.4028234663852886e38 "
      "1.1754943508222875e-38 1e23 1e27 1e28 1e-27";
  for (char *end; *at; at = end) {
    const double place = strtod(at, &end);
    check_border(place, nextafter(place, 0));
    if (place < 1e38) check_border((float)place, nextafterf((float)place, INFINITY));
    if (place < 1e308) check_border(place, nextafter(place, INFINITY));
  }
  for (int k = 0; k < 24; ++k) {  // on both sides of what is denormal
    const double small = ldexp(1 + random_below(1 << 20) / 1048576.0, -1010 - k);
    check_border(small, nextafter(small, 1));
    const float tiny = ldexpf(1 + static_cast<float>(random_below(1 << 20)) / 1048576, -115 - k);
    check_border(tiny, nextafterf(tiny, 1));
  }
  for (int i = 0; i < 20000; ++i) {  // with one bit less
    char text[2][40];
    const double part = 1 + random_below(1 << 24) / 16777216.0 + random_below(1 << 24) * 0x1p-48;
    snprintf(text[0], 40, "%.*e", 14 + i % 5, ldexp(part, -1023));
    snprintf(text[1], 40, "%.*e", 8 + i % 11, ldexp(part, -127));
    check_one<double>(text[0]);
    check_one<float>(text[1]);
  }
  check_border(0x1.fffffffffffffp+1023L, 0x1p+1024L);
  check_border(0x1.fffffep+127L, 0x1p+128L);
  check_border(0, 0x1p-149L);
  check_border(0, 0x1p-1074L);
  for (int i = 0; i < 150; ++i) {
    const double any = ldexp(1 + random_below(1 << 24) / 16777216.0, static_cast<int>(random_below(2040)) - 1020);
    check_border(any, nextafter(any, INFINITY));
  }
}

// Half-way between the two smallest numbers of a type, which are 1 and 2 times 2 / 2^n: 3 / 2^n, in all of its digits.
template <class Real> void check_between_the_smallest(int n) {
  std::string digits("3");
  for (int i = 0; i < n; ++i) {
    int carry = 0;
    for (size_t d = digits.size(); d-- > 0; carry /= 10) {
      carry += (digits[d] - '0') * 5;
      digits[d] = static_cast<char>('0' + carry % 10);
    }
    if (carry) digits = static_cast<char>('0' + carry) + digits;
  }
  char exponent[20];
  sprintf(exponent, "e-%d", n);
  check_one<Real>(digits + exponent);
  check_one<Real>(digits + ".01" + exponent);
  *digits.rbegin() = '4';  // of a 5
  check_one<Real>(digits + exponent);
}

void check_random(int count) {
  for (int i = 0; i < count; ++i) {
    char text[64];
    const unsigned a = random_below(1 << 24) << 8 | random_below(256), c = random_below(1 << 24) * 256;
    switch (i % 5) {
      case 0: snprintf(text, sizeof text, "%d.%02u", static_cast<int>(a) >> random_below(31), c % 100); break;
      case 1:
        snprintf(text, sizeof text, "%.*e", static_cast<int>(random_below(22)),
                 ldexp(1 + a / 4294967296.0, static_cast<int>(random_below(2046)) - 1022));
        break;
      case 2:
        snprintf(text, sizeof text, "%u%09ue%d", a, c % 1000000000, static_cast<int>(random_below(80)) - 40);
        break;
      case 3: snprintf(text, sizeof text, "0.%0*u%u", static_cast<int>(random_below(20)), 0, a); break;
      default:
        snprintf(text, sizeof text, "-%u.%uE%+d", a >> random_below(32), c, static_cast<int>(random_below(700)) - 350);
    }
    check_all(text);
  }
}

// Only where the parts meet does it matter which of the ways a text takes: every length, every place of the point.
void check_shapes() {
  static const char *const digits[] = {"98765432109876543210987", "10000000000000000000000", "00000000999999999999999"};
  for (int k = 0; k < 3; ++k)
    for (size_t n = 1; n <= 23; ++n)
      for (size_t point = 0; point <= n; ++point) {
        std::string text(digits[k], n);
        text.insert(point, ".");
        check_all(text);
        check_all("00" + text + "e-28");
        check_all("-" + text + "e5");
        check_all(text + "e-00000000012");
      }
  check_all("1e99999999999999999999"), check_all("1e-99999999999999999999"), check_all("-1e4294967297");
  check_all("0." + std::string(5000, '0') + "1e5001"), check_all("1" + std::string(5000, '0') + "e-5000");
  check_all("1e999"), check_all("1e39"), check_all("-1e-999"), check_all("1." + std::string(5000, '0') + "e00001");
  check_all("18446744073709551615"), check_all("1" + std::string(20000, '0') + "1e-20000");
  check_all("9007199254740993." + std::string(5000, '0') + "1"), check_all("1.000000059604644776");
}

void check_modes() {
  static const int modes[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};
  for (int i = 0; i < 3; ++i) {
    fesetround(modes[i]);
    check_random(2000);
    check_all("0.1"), check_all("-0.1"), check_all("1e23"), check_all("123456789012345678");
    fesetround(FE_TONEAREST);
  }
  // The mantissa of 53 or 24 bits that some programs set.
  for (int bits = 0; bits <= 0x200; bits += 0x200)
    for (int i = 0; i < 2000; ++i) {
      char text[40];
      double want, got;
      snprintf(text, sizeof text, "%u.%ue-%u", random_below(1 << 24), random_below(1 << 24), random_below(30));
      unsigned short usual, narrow;
      __asm__ volatile("fnstcw %0" : "=m"(usual));
      narrow = static_cast<unsigned short>((usual & ~0x300) | bits);
      quick.clear();
      quick.str(text + std::string(";"));
      __asm__ volatile("fldcw %0" : : "m"(narrow));
      want = strtod(text, 0);
      quick >> got;
      __asm__ volatile("fldcw %0" : : "m"(usual));
      CHECK(memcmp(&want, &got, sizeof got) == 0);
    }
}

// Each way that ends at the C library, while that has a comma.
void check_comma() {
  const std::string texts[] = {"9007199254740993.00000000000000000001", "1.5e-310", "0." + std::string(400, '1')};
  for (int i = 0; i < 3; ++i) {
    const double want = strtod(texts[i].c_str(), 0);
    double got = 0;
    CHECK(setlocale(LC_ALL, "xx_DE") && strtod("1,5", 0) == 1.5);
    quick.clear();
    quick.str(texts[i] + ";");
    quick >> got;
    setlocale(LC_ALL, "C");
    CHECK(got == want);
  }
}

}  // namespace

int main() {
  check_shapes();
  check_borders();
  check_between_the_smallest<float>(150);
  check_between_the_smallest<double>(1075);
  check_between_the_smallest<long double>(16446);
  check_random(100000);
  check_modes();
  if (named_locales_setup()) check_comma();
  return TEST_RESULT();
}

// Extraction from buffers that show one character at a time and take none back, and into the array that is being read;
// numbers in an alphabet of the program's.
#include <bitset>
#include <complex>
#include <iomanip>
#include <iostream>
#include <locale>
#include <sstream>
#include <string>
#include <strstream>

#include "../harness.h"

struct one_way_buffer : std::streambuf {
  const char *at;
  explicit one_way_buffer(const char *text) : at(text) {}
  virtual int underflow() { return *at ? static_cast<unsigned char>(*at) : -1; }
  virtual int uflow() { return *at ? static_cast<unsigned char>(*at++) : -1; }
};

static void one_way() {
  one_way_buffer buffer("  ab101cd;3.5 (1,2)4 7x");
  std::istream in(&buffer);
  char text[3];
  std::bitset<9> bits;
  std::complex<double> a, b;
  std::string rest;
  long long wide = 0;
  in >> std::setw(3) >> text >> bits >> std::ws;
  CHECK(bits == 5);
  in.get(text, 3, ';');
  CHECK_TEXT(text, "cd");
  in.ignore(9, ';') >> a >> b >> wide;
  CHECK(in.good() && a == 3.5 && b == std::complex<double>(1, 2) && wide == 4);
  double number = 0;
  in >> number >> rest;
  CHECK(number == 7 && rest == "x");
}

static void in_place() {
  for (int ahead = 0; ahead < 40; ahead += 3)
    for (int n = 1; n < 1400; n += n < 40 ? 1 : 97)
      for (int what = 0; what < 4; ++what) {
        char array[2000];
        for (int i = 0; i < 2000; ++i) array[i] = static_cast<char>('a' + i * 7 % 26);
        const std::string want(array + ahead, n);
        std::istrstream in(array, 2000);
        in.ignore(ahead);
        if (what == 0) in.read(array, n);
        if (what == 1) in.readsome(array, n);
        if (what == 2) in.get(array, n + 1);
        if (what == 3) in.getline(array, n + 1);
        CHECK(want == std::string(array, n) && in.gcount() == n);
      }
}

struct coded : std::ctype<char> {
  virtual char do_widen(char c) const { return static_cast<char>(c ^ 0x40); }
  virtual const char *do_widen(const char *from, const char *end, char *to) const {
    while (from != end) *to++ = do_widen(*from++);
    return end;
  }
};

static void alphabet() {
  std::ostringstream out;
  out.imbue(std::locale(out.getloc(), new coded));
  out << 12 << -3.5 << true << std::hex << 0xabu;
  CHECK(out.str() == "qrms.uq!\"");
}

int main() {
  one_way();
  in_place();
  alphabet();
  return TEST_RESULT();
}

// Values and texts of numbers. num_put and the inserters: random values in random formats, widths and groupings,
// against printf and the rules by which its text is laid out. num_get and the extractors: texts on or next to the
// border between two values, long and random ones, against strtod and its kin; fuzz/num_get has more short ones. In
// each rounding mode and precision of the processor. iostream/faults has facets and buffers that fail.
// test-variants: -O2
#include <float.h>
#include <math.h>

#include "locale_check.h"
#include "read_number.h"

using std::string;
struct to_text : std::num_put<char, char *> {};

static char text[20000];

// ---- Values

// The processor's control word: upwards, downwards and towards zero, and with mantissas of 53 and 24 bits, as some
// programs have it.
static const unsigned short usual_mode = 0x37F, unusual_mode[] = {0xB7F, 0x77F, 0xF7F, 0x27F, 0x7F};
static void set_mode(unsigned short mode) { __asm__ volatile("fldcw %0" : : "m"(mode)); }

__extension__ typedef unsigned long long bits64;
static bits64 random_bits() {
  bits64 bits = 0;
  for (int i = 0; i < 4; ++i) bits = bits << 16 | random_below(1 << 16);
  return bits;
}
static int between(int least, int most) {
  return least + static_cast<int>(random_below(static_cast<unsigned>(most - least + 1)));
}

// What programs print, and what is hard to print and to read.
static double random_double() {
  static const double special[] = {0.0,    -0.0,    1,       10,      99999.95, 999999.5,  9.5e17,
                                   9.2e18, 9.25e18, DBL_MIN, DBL_MAX, HUGE_VAL, -HUGE_VAL, HUGE_VAL - HUGE_VAL,
                                   1e-4,   5e-324};
  const double bits53 = static_cast<double>(random_bits() >> 11);
  char number[64];
  switch (random_below(11)) {
    case 0: return ldexp(bits53, between(-1074, 970));
    case 1: return ldexp(bits53, between(-1127, -1075));                 // denormal
    case 2: return ldexp(bits53, between(-14, -3));                      // its last decimals are its last bits
    case 3: return ldexp(2.0 * between(0, 99999) + 1, between(-19, 0));  // halves of decimals
    case 4: return ldexp(1.0, between(-1074, 1023));
    case 5: return static_cast<double>(static_cast<long long>(random_bits() >> random_below(64)));
    case 6: return special[random_below(16)];
    case 7: sprintf(number, "1e%d", between(-308, 308)); return nextafter(strtod(number, 0), random_below(2) * 1e308);
    case 8: sprintf(number, "%u5e%d", random_below(1u << between(1, 23)), between(-25, 14)); break;  // half a unit
    case 9: sprintf(number, "%d%.*se%d", between(0, 9), between(0, 17), "99999999999999999", between(-20, 9)); break;
    default: sprintf(number, "-%d.%d", between(0, 99999), between(0, 99999));
  }
  return strtod(number, 0);
}
static long double random_long_double() {
  const long double bits = static_cast<long double>(random_bits() | 1ull << 63);
  const int kind = between(-2, 19), exponent = kind == 0 ? between(-16300, 15699) : between(-150, 49);
  return kind == -1 ? random_double() / 3.0L : kind == -2 ? random_double() : ldexpl(bits, exponent);
}

// ---- Texts of values

// An alphabet of the program's.
struct alphabet : std::ctype<char> {
  virtual char do_widen(char c) const { return static_cast<char>(c ^ 0x40); }
  virtual const char *do_widen(const char *from, const char *end, char *to) const {
    while (from != end) *to++ = do_widen(*from++);
    return end;
  }
};

struct a_format {
  int flags, width, precision;
};

// By printf, with the conversion "f" or "Lf", or what the flags make of it.
template <class T> string want(const a_format &f, string conversion, T value) {
  const int style = f.flags & base::floatfield,
            wanted = f.precision < (f.flags & base::fixed ? 0 : 1) ? 6 : f.precision,
            most = wanted < 127 ? wanted : 127;
  if (style != base::fixed) *conversion.rbegin() = style == base::scientific ? 'e' : 'g';
  const string format = string(f.flags & base::showpos ? "%+" : "%") + (f.flags & base::showpoint ? "#.*" : ".*");
  static char printed[12000];
  sprintf(printed, (format + conversion).c_str(), most, value);
  string all = printed;
  const size_t e = all.find('e') == string::npos ? all.size() : all.find('e');
  if (f.flags & base::uppercase && all.find('.') < e && e < all.size()) all[e] = 'E';
  all.insert(e, wanted - most, '0');
  const int adjust = f.flags & base::adjustfield;
  const size_t gap = adjust == base::left ? all.size() : adjust == base::internal ? all[0] == '-' || all[0] == '+' : 0;
  return int(all.size()) < f.width ? all.insert(gap, f.width - all.size(), '#') : all;
}

// What the facet writes, and what the inserter does.
template <class T> void check(const a_format &f, const std::locale &loc, T value, const string &want) {
  // With room for all, which the inserters' own way needs: strings have none where operator new is replaced.
  static scripted buffer("", 0, 5200);
  std::ostream out(&buffer);
  out.imbue(loc);
  out.fill('#');
  setlocale(LC_ALL, during);
  for (int how = 0; how < 2; ++how) {
    out.flags(base::fmtflags(f.flags)), out.width(f.width), out.precision(f.precision);
    how == 0 ? void(*to_text().put(text, out, '#', value) = 0) : void(out << value);
    const string inserted = buffer.taken(), got = how ? inserted : text;
    CHECK_TEXT(got.c_str(), want.c_str());
    CHECK(out.width() == (sizeof value == 1 ? f.width : 0));  // a bool leaves it
    if (got != want) fprintf(stderr, "  flags %x width %d precision %d\n", f.flags, f.width, f.precision);
    if (test_failures > 20) exit(TEST_RESULT());
  }
  setlocale(LC_ALL, "C");
}

static void texts(int count) {
  static const int styles[] = {0, base::fixed, base::scientific, base::fixed | base::scientific},
                   more[] = {base::showpos, base::showpoint, base::uppercase, base::left, base::internal};
  for (int round = 0; round < count; ++round) {
    a_format f = {styles[random_below(7) % 4], 0, 6};
    if (random_below(9) < 8) f.precision = random_below(4) ? between(0, 19) : between(-3, 136);
    for (int i = 0; i < 5; ++i)
      if (random_below(4) == 0) f.flags |= more[i];
    if (random_below(2)) f.width = between(0, 40);
    const double real = random_double();
    const long double longer = random_long_double();
    set_mode(round % 15 ? usual_mode : unusual_mode[round / 15 % 5]);
    check(f, std::locale::classic(), real, want(f, "f", real));
    if (round % 4 == 0 || round % 15 == 0) check(f, std::locale::classic(), longer, want(f, "Lf", longer));
    set_mode(usual_mode);
  }
}

// Layout, groups and the rest, by numpunct facets of the program and by name.
static void table() {
  for (rows row(__FILE__, "data/num_put"); row.next();) {
    const a_format f = {flags_of(row[1]), row.number(2), row.number(3)};
    const std::locale plain = locale_of(row[5], ';'),
                      loc = row[6] == "coded" ? std::locale(plain, new alphabet) : plain;
    const char *const value = row[4].c_str();
    const unsigned long integer = strtoul(value, 0, 0);
    if (row[0] == "long") check(f, loc, static_cast<long>(integer), row[7]);
    if (row[0] == "unsigned_long") check(f, loc, integer, row[7]);
    if (row[0] == "double") check(f, loc, strtod(value, 0), row[7]);
    if (row[0] == "long_double") check(f, loc, strtold(value, 0), row[7]);
    if (row[0] == "pointer") check(f, loc, reinterpret_cast<const void *>(integer), row[7]);
    if (row[0] == "bool") check(f, loc, integer != 0, row[7]);
  }
}

// A facet that the stream lets go of while it is asked lives on until the number is written.
struct leaving : std::numpunct<char> {
  std::ios &stream;
  explicit leaving(std::ios &of) : stream(of) { ++noted_alive; }
  virtual ~leaving() { --noted_alive; }
  virtual string do_grouping() const { return stream.imbue(std::locale::classic()), "\1"; }
  virtual char do_decimal_point() const { return noted_alive ? ';' : '!'; }
};

// What else the facet has: printf's formats, and the layout of a text that the program made.
static void own_members() {
  std::ios s(0);
  char made[] = "+77", price[] = "1234,50", formats[3][8];
  s.flags(base::internal | base::scientific | base::showpos | base::uppercase);
  to_text::int_fmt(formats[0], 'd', base::showpos | base::showbase | base::hex | base::uppercase);
  to_text::int_fmt(formats[1], 'p', base::showpos | base::hex);
  to_text::float_fmt(formats[2], 'L', s);
  CHECK(!strcmp(formats[0], "%+#lX") && !strcmp(formats[1], "%p") && !strcmp(formats[2], "%+.*Le"));
  s.width(5);
  setlocale(LC_ALL, "xx_DE");
  *to_text::print_float_type(to_text::print_integral_type(text, s, '_', made, 3), s, ' ', price, 3, 7) = 0;
  setlocale(LC_ALL, "C");
  CHECK_TEXT(text, "+__771234.50000");
  std::stringstream left;
  left.imbue(std::locale(std::locale::classic(), new leaving(left)));
  CHECK((left << 12.5) && left.str() == "1,2;5" && noted_alive == 0);
}

// ---- Values of texts

template <class Real> void check_one(const string &from) {
  static std::ios stream(0);
  static const chosen_punctuation plain("");
  must(check_number<Real>(stream, plain, from, 1 + from.size() / 5).empty(), "not a number", from);
}
static void check_all(const string &from) {
  check_one<float>(from), check_one<double>(from), check_one<long double>(from);
}

// Also the text that the facet keeps for the C library, in its room, where the last of many digits are dropped.
static void check_kept(const string &from) {
  std::istringstream stream(from);
  std::istreambuf_iterator<char> begin(stream), end;
  char kept[201];
  kept[200] = '#';
  const bool scanned = std::num_get<char>::scan_float_type(begin, end, stream, kept);
  must(scanned && kept[200] == '#' && strtof(kept, 0) == strtof(from.c_str(), 0), "not kept", from);
  check_all(from);
}

// The number exactly between two neighbours, in all its digits, and texts that differ from it at the very end.
static void check_border(long double a, long double b) {
  sprintf(text, "%.*Le", 11600, a + b);
  int rest = 0;
  for (char *digit = text; *digit != 'e'; ++digit) {
    if (*digit == '.') continue;
    rest = rest % 2 * 10 + *digit - '0';
    *digit = static_cast<char>('0' + rest / 2);
  }
  string all = text;
  const size_t e = all.find('e'), last = all.find_last_not_of('0', e - 1);
  const string exponent = all.substr(e);
  all.resize(last + 1);
  check_all(all + exponent), check_all(all + "0000000000000000001" + exponent);
  check_all("-" + all + string(12000, '0') + "1" + exponent);
  for (size_t digits = 14; digits < 24; ++digits) check_all(all.substr(0, digits) + exponent);
  if (all[last] == '.') return;
  --all[last];
  check_all(all + "99999999999999999999" + exponent);
}
static void borders() {
  for (int i = 0; i < 20; ++i) {
    const double any = fabs(random_double()), place = any < 1e300 ? any : DBL_MAX;
    check_border(place, nextafter(place, 0));
    const float nearest = place < 1e38 ? static_cast<float>(place) : FLT_MAX;
    check_border(nearest, nextafterf(nearest, 0));
    // Denormal ones with nearly all of their bits, and others on both sides.
    const double part = 1 + static_cast<double>(random_bits() >> 12) * 0x1p-52;
    const float tiny = static_cast<float>(ldexp(part, i % 2 ? between(-128, -127) : between(-138, -115)));
    const double small = ldexp(part, i % 2 ? between(-1024, -1023) : between(-1034, -1010));
    check_border(small, nextafter(small, 1)), check_border(tiny, nextafterf(tiny, 1));
  }
  check_border(DBL_MAX, 0x1p+1024L), check_border(FLT_MAX, 0x1p+128L);
  check_border(0x1p-149L, 0x1p-148L), check_border(0x1p-1074L, 0x1p-1073L), check_border(0x1p-16445L, 0x1p-16444L);
  for (int i = 0; i < 20000; ++i) {  // with one bit less
    const double part = 1 + static_cast<double>(random_bits() >> 12) * 0x1p-52;
    sprintf(text, "%.*e", 14 + i % 5, ldexp(part, -1023));
    check_one<double>(text);
    sprintf(text, "%.*e", 8 + i % 11, ldexp(part, -127));
    check_one<float>(text);
  }
}

static void random_texts(int count) {
  for (int i = 0; i < count; ++i) {
    const unsigned a = static_cast<unsigned>(random_bits()), c = random_below(1 << 24) * 256;
    long double value = i % 8 ? random_double() : random_long_double();
    if (value - value != 0) value = DBL_MIN;
    switch (i % 4) {
      case 0: sprintf(text, "%.*Le", between(0, 21), value); break;
      case 1: sprintf(text, "%u%09ue%d", a, c % 1000000000, between(-40, 39)); break;
      case 2: sprintf(text, "0.%0*u%u", between(0, 19), 0, a); break;
      default: sprintf(text, "-%u.%uE%+d", a >> random_below(32), c, between(-350, 349) >> random_below(9));
    }
    check_kept(text);
  }
}

static void far_texts() {
  const string zeros(20000, '0');
  std::istringstream all("0." + zeros + "1e20001 1." + zeros + "e00001 1" + zeros + "1e-20000 9007199254740993." +
                         zeros +
                         "1 1e99999999999999999999 -1e-99999999999999999999 -1e4294967297 1e999 1e39 -1e-999 "
                         "1.000000059604644776 18446744073709551615 987654321.9876543210987e-00000000012 "
                         "9007199254740993.00000000000000000001 0." +
                         string(400, '1'));
  for (string one; all >> one;) check_kept(one);
}

int main() {
  if (!named_locales_setup()) return TEST_SKIP;
  texts(40000);
  table();
  far_texts();
  borders();
  random_texts(40000);
  for (int i = 0; i < 5; ++i) set_mode(unusual_mode[i]), random_texts(2000);
  set_mode(usual_mode);
  own_members();
  during = "xx_DE";
  table();
  texts(1000);
  during = "xx_JP";  // whose point is of two bytes
  table();
  texts(1000);
  random_texts(2000);
  far_texts();
  return TEST_RESULT();
}

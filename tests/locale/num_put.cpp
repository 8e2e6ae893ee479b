// Values and texts of numbers. num_put and the inserters: random values in random formats, widths and groupings,
// against printf and the rules by which its text is laid out. num_get and the extractors: texts on or next to the
// border between two values, long and random ones, against strtod and its kin; fuzz/num_get has more short ones. In
// each rounding mode and precision of the processor. iostream/faults has facets and buffers that fail.
// test-variants: -O2
#include <float.h>
#include <math.h>

#include "locale_check.h"
#include "number_model.h"

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
  string sizes;
  char point, separator, code;  // the code is what an alphabet changes
  const char *name;             // of a locale; null is the program's own punctuation
  string coded(string text) const {
    for (size_t i = 0; i < text.size(); ++i) text[i] = static_cast<char>(text[i] ^ code);
    return text;
  }
  std::locale locale() const {
    if (name) return std::locale(name);
    const std::locale digits(std::locale::classic(), new chosen_punctuation(sizes, point));
    return code ? std::locale(digits, new alphabet) : digits;
  }
};

static string grouped(string rest, const a_format &f) {
  string made;
  for (unsigned i = 0; i < f.sizes.size();) {
    const int size = static_cast<signed char>(f.sizes[i]);
    if (size < 1 || size == 127 || static_cast<unsigned>(size) >= rest.size()) break;
    made = f.separator + rest.substr(rest.size() - size) + made;
    rest.resize(rest.size() - size);
    if (i + 1 < f.sizes.size() && f.sizes[i + 1] > 0) ++i;
  }
  return rest + made;
}

// In a field: sign or base, in no group; digits that are grouped; the rest.
static string laid_out(const string &front, const string &digits, const string &rest, const a_format &f) {
  const string made = grouped(f.coded(digits), f) + f.coded(rest);
  const int adjust = f.flags & base::adjustfield, pad = f.width - static_cast<int>(front.size() + made.size());
  const string fill(pad > 0 ? pad : 0, '#');
  if (adjust == base::left) return f.coded(front) + made + fill;
  return adjust == base::internal ? f.coded(front) + fill + made : fill + f.coded(front) + made;
}

// By printf, with the conversion "ld" or "lu", "f" or "Lf", or what the flags make of it.
template <class T> string want(const a_format &f, string conversion, T value) {
  const bool is_real = *conversion.rbegin() == 'f';
  const int style = f.flags & base::floatfield, field = f.flags & base::basefield,
            wanted = f.precision < (f.flags & base::fixed ? 0 : 1) ? 6 : f.precision,
            most = wanted < 127 ? wanted : 127;
  char &letter = *conversion.rbegin();
  if (is_real && style != base::fixed) letter = style == base::scientific ? 'e' : 'g';
  if (!is_real && field == base::oct) letter = 'o';
  if (!is_real && field == base::hex) letter = f.flags & base::uppercase ? 'X' : 'x';
  const string format = string(f.flags & base::showpos ? "%+" : "%") +
                        (f.flags & (is_real ? base::showpoint : base::showbase) ? "#.*" : ".*") + conversion;
  static char printed[12000];
  sprintf(printed, format.c_str(), is_real ? most : -1, value);
  const string all = printed;
  // In front of all fill: a sign, or "0x" or "0" of an integer.
  const bool is_signed = strchr("+-", all[0]), is_octal = !is_real && all.size() > 1 && all[0] == '0';
  const size_t front = is_octal && (all[1] | 32) == 'x' ? 2 : is_signed || is_octal;
  const size_t point = is_real ? all.find('.') : string::npos, whole = point == string::npos ? all.size() : point;
  string rest = all.substr(whole);
  const size_t e = rest.find('e') == string::npos ? rest.size() : rest.find('e');
  if (f.flags & base::uppercase && e < rest.size()) rest[e] = 'E';
  if (is_real) rest.insert(e, wanted - most, '0');
  if (point != string::npos) rest[0] = static_cast<char>(f.point ^ f.code);
  return laid_out(all.substr(0, front), all.substr(front, whole - front), rest, f);
}

// So that nothing right is found by chance in what calls left behind.
static __attribute__((__noinline__)) void soil_the_stack() {
  volatile char junk[8000];
  for (unsigned i = 0; i < sizeof junk; ++i) junk[i] = '~';
}

// What the facet writes, and what the inserter does.
template <class T> void check(const a_format &f, const std::locale &loc, T value, const string &want) {
  // With room for all, which the inserters' own way needs: strings have none where operator new is replaced.
  static scripted buffer("", 0, 12000);
  std::ostream out(&buffer);
  out.imbue(loc);
  out.fill('#');
  setlocale(LC_ALL, during);
  for (int how = 0; how < 2; ++how) {
    out.flags(base::fmtflags(f.flags)), out.width(f.width), out.precision(f.precision);
    soil_the_stack();
    how == 0 ? void(*to_text().put(text, out, '#', value) = 0) : void(out << value);
    const string inserted = buffer.taken(), got = how ? inserted : text;
    CHECK_TEXT(got.c_str(), want.c_str());
    CHECK(out.width() == 0);
    if (got != want) fprintf(stderr, "  flags %x width %d precision %d\n", f.flags, f.width, f.precision);
    if (test_failures > 20) exit(TEST_RESULT());
  }
  setlocale(LC_ALL, "C");
}

// Of the classic locale, with a program's punctuation (1), or with that of a name.
static a_format random_format(int kind) {
  static const int sides[] = {0, base::left, base::right, base::internal, base::left | base::right},
                   styles[] = {0, base::fixed, base::scientific, base::fixed | base::scientific},
                   bases[] = {0, base::dec, base::hex, base::oct, base::hex | base::oct},
                   more[] = {base::showpos, base::showbase, base::showpoint, base::uppercase},
                   widths[] = {63, 64, 65, 16, 17, 200};
  static const char *const sizes[] = {"\3", "\2\3", "\1", "\3\177", "\2\xFF", "\1\2\3", "\62", "\177", ""},
                           *const names[] = {"xx_DE", "xx_IN", "xx_FR"},
                           *const named_sizes[] = {"\3\3", "\3\2", "\3\3"};
  a_format f = {
      sides[random_below(5)] | styles[random_below(7) % 4] | bases[random_below(5)], 0, 6, "", '.', ',', 0, 0};
  if (random_below(2)) f.width = random_below(3) ? between(0, 29) : widths[random_below(6)];
  if (random_below(9) < 8) f.precision = random_below(4) ? between(0, 19) : between(-3, 136);
  if (kind == 1) f.sizes = sizes[random_below(9)], f.point = ';', f.code = random_below(3) ? 0 : 0x40;
  if (kind == 1 && random_below(4) == 0) f.sizes += string("\0\3", 2);  // which ends them
  if (kind > 1) f.name = names[kind - 2], f.sizes = named_sizes[kind - 2], f.point = kind == 3 ? '.' : ',';
  if (kind > 1) f.separator = ".,\xE2"[kind - 2];  // of three bytes the first
  for (int i = 0; i < 4; ++i)
    if (random_below(4) == 0) f.flags |= more[i];
  return f;
}

static void texts(int count, bool named) {
  for (int round = 0; round < count; ++round) {
    const int kind = named ? round % 4 + (round % 4 != 0) : round % 8 == 0;
    const a_format f = random_format(kind);
    const std::locale loc = kind ? f.locale() : std::locale::classic();
    const double real = random_double();
    const long double longer = random_long_double();
    // Where a digit more is needed, and others.
    const long near_power = static_cast<long>(pow(10, between(0, 9))) + between(-1, 1),
               integer = random_below(6) ? static_cast<long>(random_bits() >> 32) >> random_below(32) : near_power;
    const unsigned long natural = integer;
    set_mode(round % 15 ? usual_mode : unusual_mode[round / 15 % 5]);
    check(f, loc, real, want(f, "f", real));
    if (round % 4 == 0 || round % 15 == 0) check(f, loc, longer, want(f, "Lf", longer));
    set_mode(usual_mode);
    if (round % 4 == 1) check(f, loc, integer, want(f, "ld", integer));
    if (round % 4 == 2) check(f, loc, natural, want(f, "lu", natural));
    if (kind != 1 || round % 5 != 0) continue;
    // Pointers are filled in front with `left`, behind with `right`; bools never.
    const void *const at = reinterpret_cast<const void *>(natural);
    char printed[40];
    const int pad = f.width - sprintf(printed, "%p", at), adjust = f.flags & base::adjustfield;
    const string fill(pad > 0 ? pad : 0, '#');
    check(f, loc, at, (adjust == base::left ? fill : "") + f.coded(printed) + (adjust == base::right ? fill : ""));
    std::stringstream out;
    out.imbue(loc);
    out.flags(base::fmtflags(f.flags)), out.width(7);
    out << (natural % 2 == 0) << std::boolalpha << true << false;
    CHECK(out.str() == f.coded(natural % 2 ? "0" : "1") + "ouion ne sait pas" && out.width() == 7);
  }
}

// A facet that the stream lets go of while it is asked lives on until the number is written.
struct leaving : std::numpunct<char> {
  static int alive;
  std::ios &stream;
  explicit leaving(std::ios &of) : stream(of) { ++alive; }
  virtual ~leaving() { --alive; }
  virtual string do_grouping() const { return stream.imbue(std::locale::classic()), "\1"; }
  virtual char do_decimal_point() const { return alive ? ';' : '!'; }
};
int leaving::alive;
static void let_go() {
  std::stringstream s;
  s.imbue(std::locale(std::locale::classic(), new leaving(s)));
  s << 12.5;
  CHECK(s.str() == "1,2;5" && leaving::alive == 0);
}

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
}

// ---- Values of texts

template <class Real> void check_one(const string &from, Real (*parse)(const char *, char **)) {
  static std::ios stream(0);
  static const chosen_punctuation plain("");
  real(number_model(from, stream, plain, 1 + from.size() / 5), parse);
}
static void check_all(const string &from) {
  check_one(from, strtof), check_one(from, strtod), check_one(from, strtold);
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
    check_one(text, strtod);
    sprintf(text, "%.*e", 8 + i % 11, ldexp(part, -127));
    check_one(text, strtof);
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
    check_all(text);
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
  for (string one; all >> one;) check_all(one);
}

int main() {
  texts(60000, false);
  let_go();
  far_texts();
  borders();
  random_texts(40000);
  for (int i = 0; i < 5; ++i) set_mode(unusual_mode[i]), random_texts(2000);
  set_mode(usual_mode);
  if (!named_locales_setup()) return TEST_RESULT();
  own_members();
  texts(1000, true);
  during = "xx_DE";
  texts(1000, true);
  during = "xx_JP";  // whose point is of two bytes
  texts(1000, true);
  random_texts(2000);
  far_texts();
  return TEST_RESULT();
}

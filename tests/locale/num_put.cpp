// num_put and the inserters of numbers: random values in random formats, widths and groupings, in each rounding mode
// and precision of the processor, against printf and the rules by which its text is laid out; then what is a rule of
// plx's own: bools, pointers, formats, iterators that fail, facets that throw.
// test-variants: -O2
#include <fenv.h>
#include <float.h>
#include <locale.h>
#include <math.h>

#include <locale>
#include <sstream>
#include <string>

#include "../buffers.h"
#include "../fail_allocation.h"
#include "../random.h"
#include "named_locales.h"

typedef std::ios_base base;
struct to_text : std::num_put<char, char *> {};
__extension__ typedef unsigned long long bits64;

static char text[20000];

// What is asked of it may throw.
struct punctuation : std::numpunct<char> {
  static int throws;
  std::string sizes;
  char point, separator;
  punctuation(const std::string &grouping, char p, char s) : sizes(grouping), point(p), separator(s) {}
  virtual char do_decimal_point() const { return maybe(1), point; }
  virtual char do_thousands_sep() const { return maybe(2), separator; }
  virtual std::string do_grouping() const { return maybe(3), sizes; }
  virtual std::string do_truename() const { return maybe(4), std::string(100, 'y'); }
  static void maybe(int which) {
    if (which == throws) throw thrown();
  }
};
int punctuation::throws;

static bits64 random_bits() {
  bits64 bits = 0;
  for (int i = 0; i < 4; ++i) bits = bits << 16 | random_below(1 << 16);
  return bits;
}
static double from_bits(bits64 bits) {
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

// The values that programs print, and those that are hard to print.
static double random_double() {
  char number[64];
  switch (random_below(12)) {
    case 0: return from_bits(random_bits());
    case 1: return from_bits(random_bits() >> 12);                                              // denormal
    case 2: return ldexp(2.0 * random_below(100000) + 1, -static_cast<int>(random_below(20)));  // halves of decimals
    case 3: return ldexp(1.0, static_cast<int>(random_below(2098)) - 1074);
    case 4: {  // powers of ten and their neighbours
      sprintf(number, "1e%d", static_cast<int>(random_below(617)) - 308);
      const double value = strtod(number, 0);
      bits64 bits;
      memcpy(&bits, &value, sizeof bits);
      return from_bits(bits + random_below(5) - 2);
    }
    case 5: return static_cast<double>(static_cast<long long>(random_bits() >> random_below(64)));
    case 6:  // a decimal whose last digit is half of a unit
      sprintf(number, "%u5e%d", random_below(1u << (random_below(23) + 1)), static_cast<int>(random_below(40)) - 25);
      return strtod(number, 0);
    case 7:  // nines
      sprintf(number, "%u%.*se%d", random_below(10), static_cast<int>(random_below(18)), "99999999999999999",
              static_cast<int>(random_below(30)) - 20);
      return strtod(number, 0);
    case 8: return random_below(2) ? HUGE_VAL - HUGE_VAL : random_below(2) ? HUGE_VAL : -HUGE_VAL;
    case 9: {
      static const double special[] = {0.0,    -0.0,   1,    10,     99999.95, 999999.5,
                                       9.5e17, 0.0001, 9e18, 9.2e18, DBL_MIN,  DBL_MAX};
      return special[random_below(12)];
    }
    case 10:  // whose last decimals are the last of its bits
      return from_bits(static_cast<bits64>(1023 + 38 + random_below(12)) << 52 | random_bits() >> 12);
    default: sprintf(number, "-%u.%u", random_below(100000), random_below(100000)); return strtod(number, 0);
  }
}
static long double random_long_double() {
  const bits64 mantissa = random_bits() | 1ull << 63;
  switch (random_below(20)) {
    case 0: return ldexpl(static_cast<long double>(mantissa), static_cast<int>(random_below(32000)) - 16300);
    case 1: return random_double() / 3.0L;
    case 2: return random_double();
    default: return ldexpl(static_cast<long double>(mantissa), static_cast<int>(random_below(200)) - 150);
  }
}

struct a_format {
  int flags, width, precision;
  std::string sizes;
  char point, separator;
};

static std::string grouped(const std::string &digits, const a_format &f) {
  std::string rest = digits, made;
  for (unsigned i = 0; i < f.sizes.size();) {
    const int size = static_cast<signed char>(f.sizes[i]);
    if (size < 1 || size == 127 || static_cast<unsigned>(size) >= rest.size()) break;
    made = f.separator + rest.substr(rest.size() - size) + made;
    rest.resize(rest.size() - size);
    if (i + 1 < f.sizes.size() && f.sizes[i + 1] > 0) ++i;
  }
  return rest + made;
}

// printf's text: so much in front that no group counts, what is grouped, and the rest, in a field.
static std::string laid_out(const std::string &printed, std::string::size_type prefix, std::string::size_type whole,
                            const std::string &rest, const a_format &f) {
  std::string made = grouped(printed.substr(prefix, whole - prefix), f) + rest;
  const int adjust = f.flags & base::adjustfield, pad = f.width - static_cast<int>(prefix + made.size());
  const std::string fill(pad > 0 ? pad : 0, '#'), front = printed.substr(0, prefix);
  if (adjust == base::left) return front + made + fill;
  return adjust == base::internal ? front + fill + made : fill + front + made;
}

template <class T> std::string want_integer(const a_format &f, const char *conversion, T value) {
  const int field = f.flags & base::basefield;
  std::string format = "%";
  if (f.flags & base::showpos) format += '+';
  if (f.flags & base::showbase) format += '#';
  format += 'l';
  format += field == base::oct ? "o" : field != base::hex ? conversion : f.flags & base::uppercase ? "X" : "x";
  char printed[64];
  const unsigned n = sprintf(printed, format.c_str(), value);
  const unsigned prefix = *printed == '-' || *printed == '+' ? 1
                          : *printed != '0' || n < 2         ? 0
                          : (printed[1] | 32) == 'x'         ? 2
                                                             : 1;
  return laid_out(printed, prefix, n, "", f);
}

template <class T> std::string want_real(const a_format &f, const char *size, T value) {
  const int style = f.flags & base::floatfield;
  const int wanted = f.precision < ((f.flags & base::fixed) ? 0 : 1) ? 6 : f.precision,
            digits = wanted < 127 ? wanted : 127;
  std::string format = "%";
  if (f.flags & base::showpos) format += '+';
  if (f.flags & base::showpoint) format += '#';
  format += std::string(".*") + size + (style == base::fixed ? 'f' : style == base::scientific ? 'e' : 'g');
  static char printed[12000];
  sprintf(printed, format.c_str(), digits, value);
  const std::string all = printed, zeros(wanted - digits, '0');
  const std::string::size_type point = all.find('.'), whole = point == std::string::npos ? all.size() : point;
  std::string rest = zeros;
  if (point != std::string::npos) {
    rest = all.substr(point);
    rest[0] = f.point;
    std::string::size_type e = rest.find('e');
    if (e == std::string::npos)
      rest += zeros;
    else
      rest.insert(e, zeros)[e + zeros.size()] = f.flags & base::uppercase ? 'E' : 'e';
  }
  return laid_out(all, *printed == '-' || *printed == '+', whole, rest, f);
}

// So that nothing right is found by chance in what calls left behind.
static __attribute__((__noinline__)) void soil_the_stack() {
  volatile char junk[8000];
  for (unsigned i = 0; i < sizeof junk; ++i) junk[i] = '~';
}

// What the facet writes, and what the inserter does, are `want`.
template <class T> bool same(const a_format &f, const std::locale &loc, T value, const std::string &want) {
  // With room for all, which the inserters' own way needs: strings have none where operator new is replaced.
  static scripted buffer("", 0, 12000);
  std::ostream out(&buffer);
  out.imbue(loc);
  out.fill('#');
  const char *got = text;
  for (int how = 0; how < 2; ++how) {
    out.flags(base::fmtflags(f.flags));
    out.width(f.width);
    out.precision(f.precision);
    soil_the_stack();
    if (how == 0)
      *to_text().put(text, out, '#', value) = 0;
    else
      out << value;
    const std::string inserted = buffer.taken();
    if (how) got = inserted.c_str();
    const bool right = got == want && out.width() == 0;
    CHECK(right);
    if (!right)
      fprintf(stderr, "  flags %x width %d precision %d:\n  got  %s\n  want %s\n", f.flags, f.width, f.precision, got,
              want.c_str());
    if (!right) return false;
  }
  return true;
}

static a_format random_format(bool grouping) {
  static const int sides[] = {0, base::left, base::right, base::internal, base::left | base::right},
                   styles[] = {0, base::fixed, base::scientific, base::fixed | base::scientific},
                   bases[] = {0, base::dec, base::hex, base::oct, base::hex | base::oct};
  static const char *const sizes[] = {"\3", "\2\3", "\1", "\3\177", "\2\xFF", "\1\2\3", "\62", "\177", ""};
  static const int widths[] = {63, 64, 65, 16, 17, 200};
  a_format f;
  f.flags = sides[random_below(5)] | styles[random_below(7) % 4] | bases[random_below(5)];
  const int more[] = {base::showpos, base::showbase, base::showpoint, base::uppercase};
  for (int i = 0; i < 4; ++i)
    if (random_below(4) == 0) f.flags |= more[i];
  f.width = random_below(2) ? 0 : random_below(3) ? static_cast<int>(random_below(30)) : widths[random_below(6)];
  f.precision = random_below(3) ? random_below(20) : random_below(3) ? 6 : static_cast<int>(random_below(140)) - 3;
  if (random_below(8) == 0) f.precision = 4 + random_below(3);
  f.sizes = grouping ? sizes[random_below(9)] : "";
  f.point = grouping ? ';' : '.';
  f.separator = ',';
  return f;
}

static void against_printf() {
  static const int modes[] = {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO};
  for (int round = 0; round < 100000; ++round) {
    const bool groups = round % 8 == 0;
    const a_format f = random_format(groups);
    const std::locale loc = groups ? std::locale(std::locale::classic(), new punctuation(f.sizes, f.point, f.separator))
                                   : std::locale::classic();
    long integer = static_cast<long>(random_bits() >> 32) >> random_below(32);
    if (random_below(6) == 0) {  // where a digit more is needed
      integer = 1;
      for (int k = random_below(10); k > 0; --k) integer *= 10;
      integer += static_cast<long>(random_below(3)) - 1;
    }
    const double real = random_double();
    const long double longer = random_long_double();
    bool ok = true;
    if (round % 30 == 1) fesetround(modes[round / 30 % 3]);
    unsigned short usual, narrow;
    __asm__ volatile("fnstcw %0" : "=m"(usual));
    narrow = static_cast<unsigned short>((usual & 0xFCFF) | (round & 512));
    if (round % 30 == 2) __asm__ volatile("fldcw %0" : : "m"(narrow));
    const std::string want = want_real(f, "", real);
    ok &= same(f, loc, real, want);
    __asm__ volatile("fldcw %0" : : "m"(usual));
    if (round % 4 == 0) ok &= same(f, loc, longer, want_real(f, "L", longer));
    fesetround(FE_TONEAREST);
    if (round % 4 == 1) ok &= same(f, loc, integer, want_integer(f, "d", integer));
    if (round % 4 == 2) {
      const unsigned long natural = integer;
      ok &= same(f, loc, natural, want_integer(f, "u", natural));
    }
    if (!ok && test_failures > 10) return;
  }
}

// Filled in front with `left`, behind with `right`; bools never.
static void others() {
  for (int i = 0; i < 2000; ++i) {
    a_format f = random_format(i % 2);
    const std::locale loc(std::locale::classic(), new punctuation(f.sizes, '.', ','));
    const void *const at = reinterpret_cast<const void *>(random_bits() >> 32 >> random_below(33));
    char printed[40];
    const int pad = f.width - sprintf(printed, "%p", at), adjust = f.flags & base::adjustfield;
    const std::string fill(pad > 0 ? pad : 0, '#');
    same(f, loc, at, (adjust == base::left ? fill : "") + printed + (adjust == base::right ? fill : ""));
    std::stringstream out;
    out.imbue(loc);
    out.flags(base::fmtflags(f.flags));
    out.width(7);
    out << (i % 3 == 0) << std::boolalpha << true << false;
    CHECK(out.str() == (i % 3 == 0 ? "1" : "0") + std::string(100, 'y') + "false" && out.width() == 7);
  }
}

static void formats() {
  std::stringstream s;
  char format[8];
  to_text::int_fmt(format, 'd', base::showpos | base::showbase | base::hex | base::uppercase);
  CHECK_TEXT(format, "%+#lX");
  to_text::int_fmt(format, 'u', base::skipws | base::dec);
  CHECK_TEXT(format, "%lu");
  to_text::int_fmt(format, 'p', base::showpos | base::hex);
  CHECK_TEXT(format, "%p");
  s.flags(base::showpos | base::showpoint | base::scientific | base::uppercase);
  to_text::float_fmt(format, 'L', s);
  CHECK_TEXT(format, "%+#.*Le");
  s.flags(base::scientific | base::fixed);
  to_text::float_fmt(format, 0, s);
  CHECK_TEXT(format, "%.*g");
}

// An iterator of the program's, each of whose characters may be the last, a buffer that is full, and facets that throw:
// nothing leaks, and the width is left.
struct limited {
  std::string *to;
  unsigned most;
  limited &operator*() { return *this; }
  limited &operator++() { return *this; }
  limited &operator=(char c) {
    if (to->size() == most) throw thrown();
    *to += c;
    return *this;
  }
};
struct to_limited : std::num_put<char, limited> {};
static void failing() {
  const long before = live_blocks;
  {
    std::stringstream s;
    s.imbue(std::locale(std::locale::classic(), new punctuation("\3", '.', ',')));
    for (unsigned most = 0; most < 11; ++most) {
      std::string out;
      const limited to = {&out, most};
      s.width(9);
      int caught = 0;
      try {
        to_limited().put(to, s, '*', 1234.5);
      } catch (const thrown &) {
        caught = 1;
      }
      CHECK(out == std::string("**1,234.5").substr(0, most) && caught == (most < 9) && s.width() == (caught ? 9 : 0));
      scripted buffer;
      buffer.most = most;
      s.width(9);
      const std::num_put<char> &facet = std::use_facet<std::num_put<char> >(s.getloc());
      CHECK(facet.put(&buffer, s, '*', 1234.5).failed() == (most < 9) && s.width() == 0);
    }
    for (punctuation::throws = 1; punctuation::throws <= 4; ++punctuation::throws) {
      int caught = 0;
      s.flags(base::boolalpha);
      s.width(7);
      try {
        if (punctuation::throws < 4) to_text().put(text, s, ' ', 12.5);
        *to_text().put(text, s, ' ', true) = 0;
      } catch (const thrown &) {
        caught = 1;
      }
      CHECK(caught && s.width() == 7 && thrown::live == 0);
    }
    punctuation::throws = 0;
  }
  CHECK_INT(live_blocks, before);
}

// By name; the process's locale has no say, but for a text that the program had printf make.
static void named() {
  std::stringstream s;
  static const char *const names[] = {"xx_DE", "xx_IN", "xx_FR"}, *const sizes[] = {"\3\3", "\3\2", "\3\3"};
  for (int i = 0; i < 3000; ++i) {
    a_format f = random_format(true);
    f.sizes = sizes[i % 3];
    f.point = i % 3 == 1 ? '.' : ',';
    f.separator = ".,\xE2"[i % 3];  // of three bytes the first
    if (f.precision < 0) f.precision = 2;
    const double value = random_double();
    const std::string want = want_real(f, "", value);
    if (i % 2) setlocale(LC_ALL, "xx_DE");
    same(f, std::locale(names[i % 3]), value, want);
    setlocale(LC_ALL, "C");
    f.sizes = "", f.point = '.';
    const std::string plain = want_real(f, "", value);
    setlocale(LC_ALL, i % 2 ? "xx_DE" : "xx_FR");
    same(f, std::locale::classic(), value, plain);
    setlocale(LC_ALL, "C");
    if (test_failures) return;
  }
  setlocale(LC_ALL, "xx_DE");
  char made[40];
  const int length = sprintf(made, "%.2f", 1234.5);
  *to_text::print_float_type(text, s, ' ', made, 3, static_cast<unsigned>(length)) = 0;
  CHECK_TEXT(text, "1234.50000");
  setlocale(LC_ALL, "C");
  strcpy(made, "+77");
  s.flags(base::internal);
  s.width(5);
  *to_text::print_integral_type(text, s, '_', made, 3) = 0;
  CHECK_TEXT(text, "+__77");
}

int main() {
  against_printf();
  others();
  formats();
  failing();
  if (named_locales_setup())
    named();
  else
    fprintf(stderr, "skipped: there is no localedef\n");
  return TEST_RESULT();
}

// Random numbers in random formats through num_put, one line each. Only what the 1998 standard and plx agree on is
// asked for. Left out, because plx differs on purpose:
//   a width for bools and pointers             bools are never filled, pointers on the other side
//   signs and bases of bools                   "1" or "0" always
//   grouping of pointers                       there is none
//   null pointers                              "(nil)"
//   precision below 1 without `fixed`          is 6
//   precision above 127                        zeros follow
//   `uppercase` without a point in the text    the exponent's letter stays small, and so do inf and nan
//   grouping of texts without a point          the exponent is grouped too
//   `internal` with an octal prefix            the fill is behind the prefix
//   `fixed` and `scientific` together          hexadecimal in later standards
// prints: 200000 lines
#include <locale>
#include <ostream>
#include <streambuf>
#include <string>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef std::ios_base base;

static unsigned long long random_state = 88172645463325252ull;
static unsigned long long random_bits() {
  random_state ^= random_state << 13;
  random_state ^= random_state >> 7;
  random_state ^= random_state << 17;
  return random_state * 2685821657736338717ull;
}
static unsigned below(unsigned n) { return static_cast<unsigned>(random_bits() >> 33) % n; }

// Little room, so that the iterator needs overflow now and then.
struct collecting_buffer : std::streambuf {
  collecting_buffer() { setp(room_, room_ + sizeof room_); }
  std::string text() {
    const std::string all = taken_ + std::string(pbase(), pptr());
    taken_ = std::string();
    setp(room_, room_ + sizeof room_);
    return all;
  }
  virtual int overflow(int c) {
    taken_ += std::string(pbase(), pptr()) + static_cast<char>(c);
    setp(room_, room_ + sizeof room_);
    return c;
  }
  char room_[17];
  std::string taken_;
};

struct grouped : std::numpunct<char> {
  explicit grouped(const char *sizes, char point) : sizes_(sizes), point_(point) {}
  virtual std::string do_grouping() const { return sizes_; }
  virtual char do_thousands_sep() const { return '\''; }
  virtual char do_decimal_point() const { return point_; }
  virtual std::string do_truename() const { return "yes"; }
  std::string sizes_;
  char point_;
};

// Digits, signs and letters of another alphabet.
struct coded : std::ctype<char> {
  virtual char do_widen(char c) const { return static_cast<char>(c ^ 0x40); }
  virtual const char *do_widen(const char *from, const char *end, char *to) const {
    while (from != end) *to++ = do_widen(*from++);
    return end;
  }
};

// Adds a flag now and then. One at a time: compilers differ in the order in which they compute operands.
static void maybe_set(base &str, base::fmtflags one) {
  if (below(3) == 0) str.setf(one);
}

static void set_random_flags(base &str) {
  static const base::fmtflags bases[] = {base::dec, base::hex, base::oct, base::fmtflags(0)};
  static const base::fmtflags sides[] = {base::left, base::right, base::internal, base::fmtflags(0)};
  str.flags(bases[below(4)]);
  str.setf(sides[below(4)]);
  maybe_set(str, base::showpos);
  maybe_set(str, base::showbase);
  maybe_set(str, base::showpoint);
  maybe_set(str, base::boolalpha);
}

static double random_double(bool finite) {
  char text[64];
  if (!finite && below(50) == 0) return (below(2) ? 1 : -1) / 0.0;
  if (below(4) == 0) {
    unsigned long long bits;
    do bits = random_bits();
    while ((bits >> 52 & 0x7FF) == 0x7FF);
    double value;
    memcpy(&value, &bits, sizeof value);
    return value;
  }
  const unsigned whole = below(10000), fraction = below(100000);
  const int exponent = below(3) ? 0 : static_cast<int>(below(60)) - 30;
  sprintf(text, "%u.%ue%d", whole, fraction, exponent);
  return below(2) ? -strtod(text, 0) : strtod(text, 0);
}

int main() {
  static const char *const sizes[] = {"", "", "\3", "\2\3", "\1"};
  collecting_buffer buffer;
  for (int i = 0; i < 200000; ++i) {
    std::basic_ios<char> str(&buffer);
    const char *const grouping = sizes[below(5)];
    if (i % 4) str.imbue(std::locale(std::locale::classic(), new grouped(grouping, below(2) ? '.' : ',')));
    if (i % 16 > 13) str.imbue(std::locale(str.getloc(), new coded));
    const bool may_group = i % 4 && *grouping;
    set_random_flags(str);
    str.width(below(2) ? 0 : below(25));
    const char fill = below(2) ? ' ' : '*';
    const std::num_put<char> &facet = std::use_facet<std::num_put<char> >(str.getloc());
    const int kind = static_cast<int>(below(may_group ? 7 : 8));
    const base::fmtflags octal_internal = base::oct | base::internal | base::showbase;
    if (kind <= 2) {
      maybe_set(str, base::uppercase);
      if ((str.flags() & octal_internal) == octal_internal) str.unsetf(base::internal);
      const long value = static_cast<long>(random_bits() >> 32) >> below(32);
      if (kind == 0)
        facet.put(&buffer, str, fill, value);
      else
        facet.put(&buffer, str, fill, static_cast<unsigned long>(value));
    } else if (kind <= 5) {
      const int style = may_group ? 0 : below(3);
      str.precision(1 + below(below(8) ? 18 : 127));
      if (style == 0) {
        str.setf(base::fixed, base::floatfield);
        if (below(8) == 0) str.precision(0);
        if (may_group) str.setf(base::showpoint);
      } else if (style == 1) {
        str.setf(base::scientific, base::floatfield);
        maybe_set(str, base::uppercase);
      }
      const double value = random_double(may_group || (str.flags() & base::uppercase));
      if (kind == 3)
        facet.put(&buffer, str, fill, static_cast<long double>(value) / 3);
      else
        facet.put(&buffer, str, fill, value);
    } else {
      str.width(0);
      if (kind == 6) str.unsetf(base::showpos | base::showbase);
      if (kind == 6)
        facet.put(&buffer, str, fill, below(2) != 0);
      else
        facet.put(&buffer, str, fill, reinterpret_cast<const void *>(1 + below(1u << below(31))));
    }
    printf("%d %x %d %s\n", kind, i, static_cast<int>(str.precision()), buffer.text().c_str());
    if (str.width() != 0) printf("width %d\n", static_cast<int>(str.width()));
  }
  return 0;
}

// Every format of integers and floating values, texts with widths, and what is left in the stream afterwards: written
// to cout, to a string stream and to a file, which must all hold the same. Left out, because plx differs on purpose:
//   a width for characters                     a character is never padded
//   a C string with other than left or right   the fill is behind the text
//   a width for bools and pointers             bools are never filled, pointers on the other side
//   signs and bases of bools                   "1" or "0" always
//   null pointers                              "(nil)"
//   precision below 1 without `fixed`          is 6
//   precision above 127                        zeros follow
//   `uppercase` without a point in the text    the exponent's letter stays small, and so do inf and nan
//   `internal` with an octal prefix            the fill is behind the prefix
//   streams that have failed                   failbit again, and badbit by put; the widths
// and `fixed` with `scientific`, which is hexadecimal in later standards.
//
// prints: 49416 lines
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

typedef std::ios base;
typedef base::fmtflags flags;
__extension__ typedef long long longest;
__extension__ typedef unsigned long long unsigned_longest;

static unsigned_longest random_state = 88172645463325252ull;
static unsigned_longest random_bits() {
  random_state ^= random_state << 13;
  random_state ^= random_state >> 7;
  random_state ^= random_state << 17;
  return random_state * 2685821657736338717ull;
}
static unsigned below(unsigned n) { return static_cast<unsigned>(random_bits() >> 33) % n; }

// What is written, and how. It is chosen once, and then written to each of the streams.
enum a_kind {
  a_short,
  an_unsigned_short,
  an_int,
  an_unsigned,
  a_long,
  an_unsigned_long,
  a_longest,
  an_unsigned_longest,
  integer_kinds,
  a_float = integer_kinds,
  a_double,
  a_long_double,
  number_kinds,
  a_bool = number_kinds,
  a_pointer,
  a_character,
  a_c_string,
  a_signed_c_string,
  an_unsigned_c_string,
  a_string,
  a_block,
  all_kinds
};

struct a_case {
  unsigned number;
  int kind;
  flags format;
  int width, precision;
  char fill;
  longest integer;
  double real;
  std::string text;
};

static void insert(std::ostream &out, const a_case &c) {
  switch (c.kind) {
    case a_short: out << static_cast<short>(c.integer); break;
    case an_unsigned_short: out << static_cast<unsigned short>(c.integer); break;
    case an_int: out << static_cast<int>(c.integer); break;
    case an_unsigned: out << static_cast<unsigned>(c.integer); break;
    case a_long: out << static_cast<long>(c.integer); break;
    case an_unsigned_long: out << static_cast<unsigned long>(c.integer); break;
    case a_longest: out << c.integer; break;
    case an_unsigned_longest: out << static_cast<unsigned_longest>(c.integer); break;
    case a_float: out << static_cast<float>(c.real); break;
    case a_double: out << c.real; break;
    case a_long_double: out << static_cast<long double>(c.real) / 3; break;
    case a_bool: out << (c.integer % 2 != 0); break;
    case a_pointer: out << reinterpret_cast<const void *>(static_cast<unsigned>(c.integer) | 1); break;
    case a_character: out << c.text[0] << static_cast<signed char>('s') << static_cast<unsigned char>(c.fill); break;
    case a_c_string: out << c.text.c_str(); break;
    case a_signed_c_string: out << reinterpret_cast<const signed char *>(c.text.c_str()); break;
    case an_unsigned_c_string: out << reinterpret_cast<const unsigned char *>(c.text.c_str()); break;
    case a_string: out << c.text; break;
    default: out.write(c.text.data(), static_cast<std::streamsize>(c.text.size())).put(c.fill);
  }
}

static void write(std::ostream &out, const a_case &c) {
  out.flags(base::skipws | base::dec);
  out << c.number << ' ' << c.kind << " [";
  out << std::resetiosflags(base::dec) << std::setiosflags(c.format) << std::setfill(c.fill)
      << std::setprecision(c.precision) << std::setw(c.width);
  insert(out, c);
  const long width = static_cast<long>(out.width());  // a block leaves it
  out.flags(base::dec);
  out << std::setw(0) << "] " << width << ' ' << static_cast<int>(out.rdstate());
  if (c.number % 16 == 0)
    out << std::endl;
  else
    out.put('\n');
}

class all_streams {
public:
  explicit all_streams(const char *path) : count_(0), file_(path) {}
  void write_case(a_case &c) {
    c.number = ++count_;
    write(std::cout, c);
    write(text_, c);
    write(file_, c);
  }
  std::string text() const { return text_.str(); }
  bool close() {
    file_.close();
    return file_.good();
  }

private:
  unsigned count_;
  std::ostringstream text_;
  std::ofstream file_;
};

static longest random_integer() {
  static const longest special[] = {0, 1, -1, 9, 10, 99, 32767, -32768, 65535, 2147483647, -2147483647 - 1};
  if (below(6) == 0) return special[below(sizeof special / sizeof *special)];
  return static_cast<longest>(random_bits()) >> below(64);
}

static double random_real(bool finite) {  // as a float, too
  static const double special[] = {0, -0.0, 1, 0.5, 2.5, 999999.5, 1e6, 123456789, 1e-5, 1e38, 1e-40};
  if (!finite && below(20) == 0) return below(2) ? 1e300 * 1e300 : -1e300 * 1e300;
  if (below(6) == 0) return special[below(sizeof special / sizeof *special)];
  char text[64];
  const unsigned whole = below(10000), fraction = below(100000);
  sprintf(text, "%u.%ue%d", whole, fraction, below(2) ? 0 : static_cast<int>(below(68)) - 40);
  return below(2) ? -strtod(text, 0) : strtod(text, 0);
}

static const flags bases[] = {base::dec, base::hex, base::oct, flags(0), base::hex | base::oct};
static const flags sides[] = {flags(0), base::left, base::right, base::internal, base::left | base::right};
static const flags styles[] = {flags(0), base::fixed, base::scientific};

// The case without what the two disagree on.
static void make_comparable(a_case &c) {
  const flags octal_internal = base::oct | base::internal | base::showbase;
  if (c.kind < integer_kinds) {
    if ((c.format & base::basefield) == base::oct && (c.format & octal_internal) == octal_internal)
      c.format &= ~base::internal;
  } else if (c.kind < number_kinds) {
    const flags style = c.format & base::floatfield;
    if (c.precision < 1 && style != base::fixed) c.precision = 1;
    if (style == base::scientific || (c.format & base::showpoint)) return;
    c.format &= ~base::uppercase;
  } else if (c.kind == a_bool || c.kind == a_pointer || c.kind == a_character) {
    c.width = 0;
    if (c.kind == a_bool) c.format &= ~(base::showpos | base::showbase | base::basefield);
  } else if (c.kind == a_c_string || c.kind == a_signed_c_string || c.kind == an_unsigned_c_string) {
    if ((c.format & base::adjustfield) != base::left) c.format = (c.format & ~base::adjustfield) | base::right;
  }
}

static void choose_value(a_case &c) {
  c.integer = random_integer();
  c.real = random_real((c.format & base::uppercase) != 0);
  const unsigned limit = below(10) == 0 ? 6000 : below(3) == 0 ? 40 : 12, length = 1 + below(limit), first = below(26);
  c.text.resize(length);
  for (unsigned i = 0; i < length; ++i) c.text[i] = static_cast<char>('a' + (first + i) % 26);
  c.text[0] = static_cast<char>(11 + below(245));
}

// Each combination of flags, three widths, two of which may exceed the text, and each type of numbers.
static void all_formats(all_streams &out) {
  static const int widths[] = {0, 9, 30};
  a_case c;
  for (unsigned bits = 0; bits < 5 * 5 * 16; ++bits) {
    const flags extra = (bits & 1 ? base::showbase : flags(0)) | (bits & 2 ? base::showpos : flags(0)) |
                        (bits & 4 ? base::uppercase : flags(0)) | (bits & 8 ? base::showpoint : flags(0));
    for (unsigned width = 0; width < 3; ++width) {
      for (int kind = 0; kind < number_kinds; ++kind) {
        const flags field = kind < integer_kinds ? bases[bits / 16 % 5] : styles[bits / 16 % 3];
        c.kind = kind;
        c.format = field | sides[bits / 80] | extra;
        c.width = widths[width];
        c.precision = static_cast<int>(below(20));
        c.fill = below(2) ? '*' : ' ';
        make_comparable(c);
        choose_value(c);
        out.write_case(c);
      }
    }
  }
}

static void random_formats(all_streams &out) {
  a_case c;
  for (int i = 0; i < 11508; ++i) {
    c.kind = static_cast<int>(below(all_kinds));
    c.format = bases[below(5)];  // one at a time: compilers differ in the order in which they compute operands
    c.format |= sides[below(5)];
    c.format |= styles[below(3)];
    if (below(2)) c.format |= base::showbase;
    if (below(2)) c.format |= base::showpos;
    if (below(2)) c.format |= base::uppercase;
    if (below(2)) c.format |= base::showpoint;
    if (below(2)) c.format |= base::boolalpha;
    c.width = static_cast<int>(below(2) ? 0 : below(below(10) ? 40 : 5000));
    c.precision = static_cast<int>(below(below(8) ? 18 : 127));
    c.fill = static_cast<char>(below(2) ? ' ' : 33 + below(90));
    make_comparable(c);
    choose_value(c);
    out.write_case(c);
  }
}

// Whether the file holds exactly this text.
static bool holds(const char *path, const std::string &text) {
  std::string found;
  FILE *const file = fopen(path, "r");
  char block[4096];
  while (size_t n = file ? fread(block, 1, sizeof block, file) : 0) found.append(block, n);
  if (file) fclose(file);
  return found == text;
}

int main() {
  const char *const path = "written";
  all_streams out(path);
  all_formats(out);
  random_formats(out);
  std::cout.flush();
  const bool closed = out.close(), same = holds(path, out.text());
  remove(path);
  printf("%s%s", closed ? "" : "the file failed\n", same ? "" : "file and string stream differ\n");
  // What the string stream holds must be what cout wrote.
  fwrite(out.text().data(), 1, out.text().size(), stdout);
  return closed && same ? 0 : 1;
}

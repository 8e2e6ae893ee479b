// Random operations of streams: chosen once, done to several streams, each of which writes down what it gave, the
// state, the count and the width. What plx and the standard of 1998 agree on is chosen by `comparable`.
#ifndef TESTS_IOSTREAM_OPERATIONS_H
#define TESTS_IOSTREAM_OPERATIONS_H

#include <algorithm>
#include <bitset>
#include <complex>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <strstream>
#include <vector>

#include "../buffers.h"
#include "../harness.h"
#include "../random.h"
#include "../rows.h"

__extension__ typedef long long longest;
__extension__ typedef unsigned long long unsigned_longest;

// clang-format off
#define OPERATIONS \
  in_short, in_unsigned, in_longest, in_unsigned_longest, in_float, in_long_double, in_bool, in_pointer, in_bits, \
  in_complex, in_int, in_long, in_unsigned_short, in_unsigned_long, in_double, in_char, in_string, in_array, \
  get_string_line, get_string_part, get_one, get_into, peek_one, ignore_some, read_some, get_line, get_part, \
  skip_space, take_and_give, get_buffer, in_buffer, in_rest, enter, give_back, \
  out_short, out_unsigned_short, out_int, out_unsigned, out_long, out_unsigned_long, out_longest, \
  out_unsigned_longest, out_float, out_double, out_long_double, out_bool, out_pointer, out_char, out_c_string, \
  out_signed_c_string, out_unsigned_c_string, out_string, out_block, out_put, out_line, \
  out_buffer, out_copy, out_complex, leave, \
  move_get, move_put, tell_both, flush_out, sync_in, ready_some, give_other
#define FLAGS \
  internal, left, right, dec, hex, oct, fixed, scientific, boolalpha, showbase, showpoint, showpos, skipws, uppercase, \
  unitbuf
// clang-format on
enum a_kind { OPERATIONS, kinds };
const unsigned reads = give_back + 1, writes = leave + 1, comparable_reads = in_int, comparable_reads_end = in_buffer,
               comparable_writes_end = out_buffer;

typedef std::ios base;
struct flags : base {
  static const fmtflags all[];
};
const flags::fmtflags flags::all[] = {FLAGS};
struct an_operation {
  unsigned what;
  int n, width, precision;
  char c, fill;
  longest integer;
  double real;
  std::string text;
  base::fmtflags flags;
  explicit an_operation(unsigned kind = 0, int number = 0, base::fmtflags with = base::skipws | base::dec)
      : what(kind), n(number), width(number), precision(6), c('\n'), fill('*'), integer(0), real(0), flags(with) {}
};

namespace operations {

// The place of a name in a list of them; behind it, when it is not there.
inline unsigned place_of(const std::string &name, const std::string &list) {
  const std::string::size_type at = (", " + list + ",").find(", " + name + ",");
  return static_cast<unsigned>(std::count(list.begin(), list.begin() + std::min(at, list.size()), ',')) +
         (at > list.size());
}

inline longest random_integer() {
  static const longest special[] = {0, 1, -1, 9, 10, 99, 32767, -32768, 65535, 2147483647, -2147483647 - 1};
  unsigned_longest bits = random_below(1 << 24);
  for (int i = 0; i < 2; ++i) bits = bits << 24 | random_below(1 << 24);
  if (random_below(6) == 0) return special[random_below(11)];
  return static_cast<longest>(bits << 8) >> random_below(64);
}

inline double random_real(bool finite) {
  static const double special[] = {0, -0.0, 1, 0.5, 2.5, 999999.5, 1e6, 123456789, 1e-5, 1e38, 1e-40, 9.5, 99.5};
  if (!finite && random_below(20) == 0) return random_below(2) ? 1e300 * 1e300 : -1e300 * 1e300;
  if (random_below(6) == 0) return special[random_below(13)];
  char text[64];
  const unsigned whole = random_below(10000), fraction = random_below(100000);
  const int exponent = random_below(2) ? 0 : static_cast<int>(random_below(68)) - 40;
  sprintf(text, "%u.%ue%d", whole, fraction, exponent);
  return random_below(2) ? -strtod(text, 0) : strtod(text, 0);
}

// Without what plx does in its own way (docs/deviations.md): widths of characters, bools and pointers, C strings whose
// fill is in front, signs of bools, precisions below 1 without `fixed`, capitals of numbers without a point, and fill
// behind an octal prefix.
inline void make_comparable(an_operation &o) {
  const base::fmtflags prefixed = base::oct | base::internal | base::showbase;
  if (o.what <= out_unsigned_longest) {
    if ((o.flags & base::basefield) == base::oct && (o.flags & prefixed) == prefixed) o.flags &= ~base::internal;
  } else if (o.what <= out_long_double) {
    const base::fmtflags style = o.flags & base::floatfield;
    if (o.precision < 1 && style != base::fixed) o.precision = 1;
    if (o.precision < 0) o.precision = 0;
    if (o.precision > 127) o.precision = 127;
    if (style != base::scientific && !(o.flags & base::showpoint)) o.flags &= ~base::uppercase;
  } else if (o.what <= out_char || o.what == out_line) {
    o.width = 0;
    if (o.what == out_bool) o.flags &= ~(base::showpos | base::showbase | base::basefield);
    if (o.integer == 0) o.integer = 1;
  } else if (o.what <= out_unsigned_c_string && (o.flags & base::adjustfield) != base::left) {
    o.flags = (o.flags & ~base::adjustfield) | base::right;
  }
}

inline an_operation random_operation(unsigned first, unsigned last, bool comparable) {
  static const base::fmtflags bases[] = {base::dec, base::dec, base::hex, base::oct, base::fmtflags(0)},
                              sides[] = {base::fmtflags(0), base::left, base::right, base::internal},
                              styles[] = {base::fmtflags(0), base::fixed, base::scientific},
                              more[] = {base::showbase, base::showpos, base::uppercase, base::showpoint,
                                        base::boolalpha};
  static const int sizes[] = {0, 1, 2, 3, 15, 16, 17, 63, 64, 65, 511, 512, 513, 4095, 4096};
  an_operation o;  // one choice in a statement: compilers differ in the order of operands
  o.what = first + random_below(last - first);
  o.n = random_below(4) ? random_below(12) : random_below(4) ? random_below(300) : sizes[random_below(15)];
  if (!comparable && random_below(20) == 0) o.n = -1;
  o.c = " \n;,a0w3e"[random_below(9)];
  o.flags = bases[random_below(5)];
  o.flags |= sides[random_below(4)];
  o.flags |= styles[random_below(3)];
  for (int i = 0; i < 5; ++i)
    if (random_below(3) == 0) o.flags |= more[i];
  o.width = random_below(2) ? 0 : random_below(random_below(10) ? 40 : 5000);
  if (!comparable && random_below(30) == 0) o.width = -3;
  o.precision = random_below(random_below(8) ? 19 : 140);
  o.fill = static_cast<char>(random_below(2) ? ' ' : 33 + random_below(90));
  o.integer = random_integer();
  o.real = random_real((o.flags & base::uppercase) != 0);
  const int limit = random_below(10) == 0 ? 6000 : random_below(3) == 0 ? 80 : 12;
  const char letter = static_cast<char>('a' + random_below(26));
  o.text.assign(1 + random_below(limit), letter);
  for (unsigned i = 0; i < o.text.size(); i += 3) o.text[i] = static_cast<char>('A' + (i + limit) % 26);
  o.text[0] = static_cast<char>(11 + random_below(245));
  if (first < reads) o.flags = (comparable ? base::fmtflags(base::dec) : o.flags) | base::skipws;
  if (!comparable && random_below(8) == 0) o.flags &= ~base::skipws;
  if (comparable && o.what == skip_space) o.what = in_string;  // at the end it is failbit there
  if (comparable && o.what >= reads) make_comparable(o);
  return o;
}

// Numbers, words, lines and odd characters of data/texts, sometimes long.
inline std::string random_text(bool comparable) {
  static std::vector<std::string> parts;
  if (parts.empty())
    for (rows row(__FILE__, "data/texts"); row.next();) parts.push_back(row[0]);
  std::string text;
  for (unsigned n = random_below(60); n > 0; --n) {
    text += parts[random_below(comparable ? 26 : unsigned(parts.size()))];
    if (!comparable && random_below(30) == 0) text += '\0';
    if (!comparable && random_below(30) == 0) text.append(1 << (4 + random_below(3)), 'q').append(random_below(3), 'r');
  }
  if (random_below(8) == 0) text += std::string(random_below(9000), 'w') + " tail 1\n";
  return text;
}

inline std::string number(const char *format, longest value) {
  char text[40];
  sprintf(text, format, value);
  return text;
}

template <class T> std::string in_value(std::istream &in, bool comparable) {
  T value = T(77);
  std::ostringstream to;
  to.precision(30);
  if (in >> value || !comparable) to << value;
  return to.str();
}
// As OPERATIONS has them.
typedef std::bitset<7> bits;
typedef std::complex<float> complex;
typedef std::string (*a_reader)(std::istream &, bool);
const a_reader readers[] = {
    in_value<short>,          in_value<unsigned>,      in_value<longest>, in_value<unsigned_longest>,
    in_value<float>,          in_value<long double>,   in_value<bool>,    in_value<void *>,
    in_value<bits>,           in_value<complex>,       in_value<int>,     in_value<long>,
    in_value<unsigned short>, in_value<unsigned long>, in_value<double>};

template <class T> void out_number(std::ostream &out, const an_operation &o) {
  if (std::numeric_limits<T>::is_integer)
    out << static_cast<T>(o.integer);
  else
    out << static_cast<T>(static_cast<T>(o.real) / (sizeof(T) > 8 ? 3 : 1));
}
typedef void (*a_writer)(std::ostream &, const an_operation &);
const a_writer writers[] = {
    out_number<short>, out_number<unsigned short>, out_number<int>,        out_number<unsigned>,
    out_number<long>,  out_number<unsigned long>,  out_number<longest>,    out_number<unsigned_longest>,
    out_number<float>, out_number<double>,         out_number<long double>};

typedef std::istreambuf_iterator<char> from_buffer;
typedef std::ostreambuf_iterator<char> to_buffer;

inline std::string perform(std::iostream &s, const an_operation &o, bool comparable) {
  static char array[400000];
  const int n = o.n < 11990 ? o.n : 11990;
  std::string got;
  char c = '.';
  s.flags(o.flags);
  s.fill(o.fill);
  s.precision(o.precision);
  s.width(o.what < reads && (comparable || o.what < in_string) ? 0 : o.width);
  memset(array, '#', n < 300 ? 400 : 12000);
  if (o.what <= in_double) return readers[o.what](s, comparable);
  if (o.what >= out_short && o.what <= out_long_double) return writers[o.what - out_short](s, o), "";
  switch (o.what) {
    case in_char: s >> c; return std::string(1, c);
    case in_string:
    case get_string_line:
    case get_string_part: {
      // With a block of its own, or shared, or with a reference in use.
      if (!comparable) got.assign(o.precision, 'z');
      const std::string copy(o.n % 2 ? got : std::string()), before(copy.data(), copy.size());
      if (o.n % 3 == 0 && !got.empty()) got[0] = 'Z';
      if (s.width() > 0) s.width(1 + n);
      if (o.what == in_string) s >> got;
      if (o.what == get_string_line) std::getline(s, got);
      if (o.what == get_string_part) std::getline(s, got, o.c);
      // What was read may be shared again, though a reference was in use.
      const bool shares = comparable || !s || got.data() == std::string(got).data();
      return copy == before && shares && got.data()[got.size()] == 0 ? got : "spoilt";
    }
    case in_array:
      if (s.width() > 0) s.width(1 + (n < 0 ? 0 : n));
      if (comparable) array[0] = 0;
      s >> array;
      return std::string(array, strlen(array) + (comparable ? 0 : 3));
    case get_one: return number("%lld", s.get());
    case get_into: s.get(c); return std::string(1, c);
    case peek_one:
      if (comparable && s.peek() == -1) s.clear();
      return number("%lld", s.peek());
    case ignore_some: s.ignore(o.width % 100 == 9 ? 2147483647 : o.n, o.n % 2 ? o.c : -1); return "";
    case read_some: s.read(array, n); return std::string(array, s.gcount() + (comparable ? 0 : 2));
    case get_line:
      o.width % 2 ? s.getline(array, comparable ? 11000 : n, o.c) : s.getline(array, comparable ? n + 2 : n);
      return std::string(array, strlen(array) + (comparable ? 0 : 3));
    case get_part:
      !comparable &&o.width % 2 ? s.get(array, n) : s.get(array, comparable ? 11000 : n, o.c);
      return std::string(array, strlen(array) + (comparable ? 0 : 3));
    case skip_space: s >> std::ws; return "";
    case take_and_give:
      if (!s.good() || s.get() == -1) return "";
      if (o.n % 2 || comparable) return s.unget(), "unget";
      return s.unget(), got += static_cast<char>(s.get()), s.putback(got[0]), got;
    case give_back: s.unget(); return "";
    case get_buffer: {
      scripted to;
      to.most = comparable ? 11000 : n;
      o.c == '\n' ? s.get(to) : s.get(to, o.c);
      return to.taken();
    }
    case in_buffer: {
      scripted to;
      to.most = n;
      std::stringbuf whole;
      s >> (o.width % 4 ? static_cast<std::streambuf *>(&to) : o.width ? &whole : 0);
      return to.taken() + whole.str();
    }
    case in_rest: {
      if (o.width % 8) return "";
      std::ostringstream to;
      if (o.n % 3 == 0) to << std::string(from_buffer(s), from_buffer());
      if (o.n % 3 == 1) std::copy(from_buffer(s), from_buffer(), to_buffer(to));
      if (o.n % 3 == 2)
        for (std::istream_iterator<std::string> at(s), end; at != end; ++at) to << at->size() << *at;
      return to.str();
    }
    case enter: return std::istream::sentry(s, o.n % 2 != 0) ? "in" : "out";
    case out_bool: s << (o.integer % 2 != 0); break;
    case out_pointer: s << reinterpret_cast<const void *>(static_cast<unsigned>(o.integer) | comparable); break;
    case out_char: s << o.text[0] << static_cast<signed char>('s') << static_cast<unsigned char>(o.fill); break;
    case out_c_string: s << o.text.c_str(); break;
    case out_signed_c_string: s << reinterpret_cast<const signed char *>(o.text.c_str()); break;
    case out_unsigned_c_string: s << reinterpret_cast<const unsigned char *>(o.text.c_str()); break;
    case out_string: s << o.text; break;
    case out_block: s.write(o.text.data(), static_cast<std::streamsize>(o.text.size())); break;
    case out_put: s.put(o.text[0]); break;
    case out_line: s << "line" << std::endl << std::ends << std::flush; break;
    case out_buffer: {
      std::stringbuf from(o.width ? o.text : std::string(), std::ios::in);
      s << &from;
      return number("%lld", from.sgetc());
    }
    case out_copy: {
      std::istringstream from(o.text);
      std::copy(from_buffer(from), from_buffer(), to_buffer(s));
      break;
    }
    case out_complex: s << std::complex<double>(o.real, o.n); break;
    case leave: return std::ostream::sentry(s) ? "in" : "out";
    case move_get:
    case move_put: {
      // Also to the edges of stdio's buffers.
      const bool far = !comparable && o.c > ' ' && o.width % 3 == 1;
      const long to = far ? 4096 * (1 + o.width % 9) - 3 + n % 6 : n % 200 - (o.c > ' ' ? 0 : 100);
      const std::ios_base::seekdir way = o.c > ' ' ? base::beg : o.width ? base::cur : base::end;
      if (way == base::beg && n % 2)
        o.what == move_get ? void(s.seekg(std::streampos(to))) : void(s.seekp(std::streampos(to)));
      else
        o.what == move_get ? void(s.seekg(to, way)) : void(s.seekp(to, way));
      break;
    }
    case tell_both:
      got = number("%lld ", std::streamoff(s.tellg()));
      return got + number("%lld", std::streamoff(s.tellp()));
    case flush_out: s.flush(); break;
    case sync_in: return number("%lld", s.sync());
    case ready_some: got = number("%lld ", s.readsome(array, n)); return got + std::string(array, s.gcount());
    case give_other: s.putback(o.c); break;
  }
  return got;
}

// The same with what can be seen of the stream afterwards, as far as that can be compared. What comes next needs a good
// stream, but now and then where plx is its own witness.
inline std::string step(std::iostream &s, const an_operation &o, bool comparable) {
  std::string line = number("%lld ", o.what) + perform(s, o, comparable);
  const bool ends = !comparable || o.what != in_char || !s.fail();
  const bool counts = !comparable || (o.what >= get_one && o.what <= get_part);
  const bool writes_text = o.what >= reads && o.what < writes;
  line += number(" state %lld", s.rdstate() & (ends ? 7 : 7 & ~base::eofbit));
  line += number(" count %lld", counts ? s.gcount() : 0);
  line += number(" width %lld", !comparable || writes_text ? s.width() : 0);
  s.width(0);
  if (comparable || o.precision % 8) s.clear();
  return line;
}

}  // namespace operations

#endif

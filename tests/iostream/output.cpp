// What output does on purpose in its own way: where fill stands, whose width is used up, bases of short numbers, what a
// put area may hold behind a text, when buffers are synchronised; and the manipulators.
// test-variants: -O0 | -O2
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "../buffers.h"
#include "../harness.h"

namespace {

typedef std::ios b;
__extension__ typedef long long longest;
__extension__ typedef unsigned long long unsigned_longest;

// The text that is written, and the width that is left, into a buffer without room, with some, and with much.
#define ROW(written, want, left)                                 \
  for (int room = 0; room < 90; room += 1 + room * 7) {          \
    scripted buffer("", 0, room);                                \
    std::ostream out(&buffer);                                   \
    out.fill('*');                                               \
    out << written;                                              \
    CHECK(buffer.taken() == std::string(want, sizeof want - 1)); \
    CHECK(out.width() == left && out.good());                    \
  }

void rows() {
  using std::setw;
  const char *const none = 0;
  void *const p = reinterpret_cast<void *>(0x1a2b), *const null = 0;
  ROW(setw(5) << "ab" << std::internal << setw(4) << "cd" << std::setiosflags(b::left | b::right) << setw(3) << "k",
      "ab***cd**k**", 0);
  ROW(std::right << setw(4) << "ef" << setw(2) << "ghi" << setw(-3) << "j" << none << setw(3) << none, "**efghij***",
      0);
  ROW(setw(5) << std::string("ab") << std::left << setw(4) << std::string("c\0d", 3), "***abc\0d*", 0);
  ROW(std::internal << setw(3) << std::string() << setw(1) << std::string("efg"), "***efg", 0);
  ROW(setw(5) << 'x' << setw(5) << static_cast<unsigned char>('y') << static_cast<signed char>('z'), "xyz", 0);
  ROW(std::hex << std::showpos << std::showbase << true << setw(4) << true << std::boolalpha << false, "11false", 4);
  ROW(std::ends << setw(4) << std::endl, "\0\n", 4);
  ROW(std::hex << short(-1) << ' ' << -1 << std::oct << ' ' << short(-1) << std::dec << ' ' << short(-1)
               << std::setbase(2) << ' ' << short(-1) << ' ' << std::setiosflags(b::hex | b::oct) << 255,
      "ffff ffffffff 177777 -1 -1 255", 0);
  ROW(std::hex << std::showbase << std::uppercase << std::internal << setw(8) << 0xABC << setw(3) << 0 << std::oct
               << setw(6) << 8,
      "0X***ABC**00***10", 0);
  ROW(std::setprecision(0) << 1234567.0 << ' ' << std::fixed << 2.5 << ' ' << std::setprecision(-1) << 2.5,
      "1.23457e+06 2 2.500000", 0);
  ROW(std::uppercase << 1e20 << ' ' << 1.5e20 << ' ' << 1e300 * 1e300 << std::scientific << ' ' << 0.5,
      "1e+20 1.5E+20 inf 5.000000E-01", 0);
  ROW(setw(8) << p << std::left << setw(8) << p << std::right << setw(8) << p << ' ' << null,
      "0x1a2b**0x1a2b0x1a2b** (nil)", 0);
  ROW(std::showpos << longest(1) << ' ' << (longest(1) << 40) << ' ' << (unsigned_longest(1) << 40) << std::internal
                   << setw(15) << -(longest(1) << 40),
      "+1 +1099511627776 1099511627776-*1099511627776", 0);
  ROW(std::hex << longest(-1) << std::showbase << std::oct << ' ' << (longest(1) << 63) << ' ' << longest(42)
               << std::hex << std::internal << setw(16) << (longest(1) << 40),
      "ffffffffffffffff 01000000000000000000000 0520x***10000000000", 0);
}

// A position that its class has moved beyond the end of the put area is no room.
void beyond() {
  struct area : std::streambuf {
    std::string own, more;
    area() : own(9, '.') { setp(&own[0], &own[4]), pbump(6); }
    virtual int overflow(int c) { return more += static_cast<char>(c), c & 0xFF; }
  } a;
  std::ostream out(&a);
  out << "ab" << 'c' << 12 << 1.5 << std::setw(3) << "d" << std::setw(3) << 7 << std::string("s");
  out.put('e').write("fg", 2);
  CHECK(a.own == "........." && a.more == "abc121.5d    7sefg");
}

// What the parts of the old sentry do, and single characters of a stream that failed.
void states() {
  scripted buffer;
  std::ostream out(&buffer);
  out.setf(b::unitbuf);
  CHECK(out.opfx());
  out.osfx(), out.setstate(b::eofbit);
  CHECK(!out.opfx() && out.rdstate() == b::eofbit && buffer.calls[syncs] == 1);
  CHECK((out << 'c').rdstate() == (b::eofbit | b::failbit) && out.put('y').bad() && buffer.taken() == "");
}

// A file is copied behind itself, and from one buffer over it to another.
void buffers() {
  const own_file path("output", "0123456789");
  std::filebuf file;
  file.open(path.name(), b::in | b::out);
  std::ostream out(&file);
  file.pubseekpos(7);
  CHECK(out << &file && path.content().substr(0, 8) == "01234567" && path.content().size() >= 10);
  {  // each of whose characters is read where the one before was written
    FILE *const shared = fopen(path.name(), "w+");
    fputs("abcdefghij", shared);
    rewind(shared);
    static std::filebuf *const never_closed = new std::filebuf(shared);
    std::filebuf one(shared);
    std::ostream over(&one);
    CHECK(over << never_closed && one.sgetc() == -1 && one.pubseekoff(0, b::cur) == 10 && one.sputc('!') == '!');
  }
  CHECK_TEXT(path.content().c_str(), "abcdefghij!");
  // To ask what is left moves nothing.
  std::filebuf asked;
  asked.open(path.name(), b::in | b::out);
  CHECK(asked.sputn("AB", 2) == 2 && asked.in_avail() == 9 && asked.sputc('C') == 'C' && asked.sgetc() == 'd');
  CHECK(asked.close() && path.content() == "ABCdefghij!");
}

// What manipulators clear and set, and what those of one bit are undone by.
void manipulators() {
  typedef std::ios_base &(*a_manipulator)(std::ios_base &);
  const int adjust = b::adjustfield, base = b::basefield, form = b::floatfield, every = 0x7FFF;
  static const a_manipulator all[] = {std::internal,  std::left,    std::right,      std::dec,       std::hex,
                                      std::oct,       std::fixed,   std::scientific, std::boolalpha, std::showbase,
                                      std::showpoint, std::showpos, std::skipws,     std::uppercase, std::unitbuf},
                             undo[] = {std::noboolalpha, std::noshowbase,  std::noshowpoint, std::noshowpos,
                                       std::noskipws,    std::nouppercase, std::nounitbuf};
  static const int sets[] = {b::internal,  b::left,    b::right,      b::dec,       b::hex,
                             b::oct,       b::fixed,   b::scientific, b::boolalpha, b::showbase,
                             b::showpoint, b::showpos, b::skipws,     b::uppercase, b::unitbuf},
                   clears[] = {adjust, adjust, adjust, base, base, base, form, form};
  scripted buffer;
  std::iostream s(&buffer);
  for (int i = 0; i < 15; ++i) {
    s.flags(every), s << all[i];
    CHECK_INT(s.flags(), i < 8 ? (every & ~clears[i]) | sets[i] : every);
    s.flags(0), s >> all[i];
    CHECK_INT(s.flags(), sets[i]);
    s.flags(every);
    CHECK(i < 8 || ((s >> undo[i - 8]) && s.flags() == (every & ~sets[i])));
  }
  for (int i = -8; i <= 16; ++i) {
    s.flags(b::dec | b::showbase), s << std::setbase(i);
    CHECK_INT(s.flags(), (i == 8 ? b::oct : i == 10 ? b::dec : i == 16 ? b::hex : 0) | b::showbase);
  }
  CHECK(s >> std::setw(7) >> std::setprecision(-3) >> std::setfill(0x141));
  CHECK(s.width() == 7 && s.precision() == -3 && s.fill() == 0x41);
  s << std::setiosflags(b::hex | b::showbase) << std::resetiosflags(b::showbase);
  CHECK_INT(s.flags(), b::hex);
}

}  // namespace

int main() {
  rows();
  beyond();
  states();
  buffers();
  manipulators();
  // Room that a stream gives its buffer beforehand is no text: there is no position in it.
  std::stringstream fresh;
  CHECK(fresh.tellp() == std::streampos(-1) && fresh.tellg() == std::streampos(-1) && fresh.good());
  return TEST_RESULT();
}

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
#define ROW(written, want, left)                                  \
  for (int room = 0; room < 90; room += 1 + room * 7) {           \
    scripted buffer("", 0, room);                                 \
    std::ostream out(&buffer);                                    \
    out.fill('*');                                                \
    out << written;                                               \
    const std::string text = buffer.taken();                      \
    const bool same = text == std::string(want, sizeof want - 1); \
    if (!same) fprintf(stderr, "  %s\n", text.c_str());           \
    CHECK(same);                                                  \
    CHECK_INT(out.width(), left);                                 \
    CHECK(out.good());                                            \
  }

void rows() {
  using std::setw;
  const char *const none = 0;
  void *const p = reinterpret_cast<void *>(0x1a2b), *const null = 0;
  ROW(setw(5) << "ab", "ab***", 0);
  ROW(std::internal << setw(4) << "cd", "cd**", 0);
  ROW(std::right << setw(4) << "ef" << setw(2) << "ghi" << setw(-3) << "j", "**efghij", 0);
  ROW(std::setiosflags(b::left | b::right) << setw(3) << "k", "k**", 0);
  ROW(std::resetiosflags(b::adjustfield) << setw(5) << std::string("ab"), "***ab", 0);
  ROW(std::left << setw(4) << std::string("c\0d", 3), "c\0d*", 0);
  ROW(std::internal << setw(3) << std::string() << setw(1) << std::string("efg"), "***efg", 0);
  ROW(setw(5) << 'x' << setw(5) << static_cast<unsigned char>('y') << static_cast<signed char>('z'), "xyz", 0);
  ROW(none << setw(3) << none, "***", 0);
  ROW(setw(4) << true << std::boolalpha << false, "1false", 4);
  ROW(std::hex << std::showpos << std::showbase << true, "1", 0);
  ROW(std::ends << setw(4) << std::endl, "\0\n", 4);
  ROW(std::hex << short(-1) << ' ' << -1 << ' ' << std::oct << short(-1) << ' ' << std::dec << short(-1),
      "ffff ffffffff 177777 -1", 0);
  ROW(std::setbase(2) << short(-1) << ' ' << std::setiosflags(b::hex | b::oct) << 255, "-1 255", 0);
  ROW(std::hex << std::showbase << std::uppercase << std::internal << setw(8) << 0xABC << setw(3) << 0, "0X***ABC**0",
      0);
  ROW(std::oct << std::showbase << std::internal << setw(6) << 8, "0***10", 0);
  ROW(std::setprecision(0) << 1234567.0 << ' ' << std::fixed << 2.5 << ' ' << std::setprecision(-1) << 2.5,
      "1.23457e+06 2 2.500000", 0);
  ROW(std::uppercase << 1e20 << ' ' << 1.5e20 << ' ' << 1e300 * 1e300 << std::scientific << ' ' << 0.5,
      "1e+20 1.5E+20 inf 5.000000E-01", 0);
  ROW(setw(8) << p << std::left << setw(8) << p << std::right << setw(8) << p << ' ' << null,
      "0x1a2b**0x1a2b0x1a2b** (nil)", 0);
  ROW(std::showpos << longest(1) << ' ' << (longest(1) << 40) << ' ' << (unsigned_longest(1) << 40),
      "+1 +1099511627776 1099511627776", 0);
  ROW(std::hex << longest(-1) << ' ' << std::showbase << std::oct << (longest(1) << 63) << ' ' << longest(42),
      "ffffffffffffffff 01000000000000000000000 052", 0);
  ROW(std::internal << setw(15) << -(longest(1) << 40) << std::hex << std::showbase << setw(16) << (longest(1) << 40),
      "-*10995116277760x***10000000000", 0);
}

// Nothing behind a text is touched, a text that does not fit goes character by character, and a position that its class
// has moved beyond the end is no room.
struct area : std::streambuf {
  char own[80];
  std::string more;
  int blocks;
  area(int room, int next) : blocks(0) {
    memset(own, '.', sizeof own);
    setp(own, own + room);
    pbump(next);
  }
  virtual int overflow(int c) { return more += static_cast<char>(c), c & 0xFF; }
  virtual std::streamsize xsputn(const char *from, std::streamsize n) {
    return ++blocks, std::streambuf::xsputn(from, n);
  }
};
void areas() {
  for (int room = 0; room < 70; ++room)
    for (int how = 0; how < 8; ++how) {
      area a(room, 0);
      std::ostream out(&a);
      if (how > 3) out.width(9);
      switch (how) {
        case 0: out << 1234567; break;
        case 1: out << 1.0 / 3; break;
        case 2: out << "1234567"; break;
        case 3: out << std::string("1234567"); break;
        case 4: out << -12; break;
        case 5: out << "text"; break;
        case 6: out << std::right << "text"; break;
        case 7: out << std::left << std::string("text"); break;
      }
      static const char *const texts[] = {"1234567",   "0.333333",  "1234567",   "1234567",
                                          "      -12", "text     ", "     text", "text     "};
      const int n = static_cast<int>(strlen(texts[how])), begun = room < n ? room : n;
      CHECK(memcmp(a.own, texts[how], begun) == 0 && a.own[begun] == '.');
      CHECK_TEXT(a.more.c_str(), texts[how] + begun);
      CHECK_INT(a.blocks, how == 3 || how == 7);
    }
  area beyond(4, 6);
  std::ostream out(&beyond);
  out << "ab" << 'c' << 12 << 1.5 << std::setw(3) << "d" << std::setw(3) << 7 << std::string("s");
  out.put('e').write("fg", 2);
  CHECK(beyond.own[0] == '.' && beyond.own[6] == '.');
  CHECK_TEXT(beyond.more.c_str(), "abc121.5d    7sefg");
}

// Each operation flushes what is tied, and with unitbuf the buffer, whatever the state; moves do neither. Files and
// strings have quick ways.
void operate(std::ostream &out, int which) {
  switch (which) {
    case 0: out << 1; break;
    case 1: out << "x"; break;
    case 2: out << 'y'; break;
    case 3: out << std::string("z"); break;
    case 4: out << true; break;
    case 5: out << 1.5; break;
    case 6: out << static_cast<void *>(0); break;
    case 7: out << (1ll << 40); break;
    case 8: out << short(1); break;
    case 9: out.put('p'); break;
    case 10: out.write("q", 1); break;
    case 11: out << std::setw(9) << "w"; break;
    case 12: out << std::setw(9) << std::string("v"); break;
    case 13: out << std::setw(9) << 3; break;
    case 14: out << 4l; break;
  }
}
void synchronising() {
  const own_file path("output");
  for (int kind = 0; kind < 6; ++kind) {
    scripted buffer, waiting;
    std::filebuf file;
    std::stringbuf text;
    file.open(path.name(), b::out);
    std::streambuf *const all[] = {&buffer, &file, &text};
    std::ostream out(all[kind % 3]), tied(&waiting);
    const bool unit = kind > 2;
    unit ? void(out.setf(b::unitbuf)) : void(out.tie(&tied));
    const int &seen = unit ? buffer.calls[syncs] : waiting.calls[syncs];
    for (int i = 0; i < 15; ++i) {
      operate(out, i);
      CHECK(seen == i + 1 || (unit && kind != 3));
      if (kind == 4) CHECK_INT(path.content().size(), out.tellp());
    }
    if (unit && kind != 3) continue;
    out.seekp(0), out.tellp(), out.clear();
    CHECK_INT(seen, 15);
    out.flush(), out.setstate(b::failbit), out << 1;
    CHECK_INT(seen, unit ? 18 : 16);
    out.clear();
    if (std::ostream::sentry(out)) CHECK(out.opfx());
    out.osfx(), out.setstate(b::eofbit);
    CHECK(seen == (unit ? 20 : 18) && !out.opfx() && out.rdstate() == b::eofbit);
    out.clear();
    out.put('x').setstate(b::failbit);
    CHECK(out.put('y').rdstate() == (b::failbit | b::badbit));
    out.clear(), out.tie(&out), out << 1;
    CHECK(out.good());
  }
}

// A buffer that is inserted: what is refused stays, none at all is a failure, and a file is copied behind itself.
void buffers() {
  for (int kind = 0; kind < 2; ++kind) {
    scripted to, slow("abcdef");
    std::stringbuf quick("abcdef");
    std::streambuf &from = kind ? static_cast<std::streambuf &>(quick) : slow;
    std::ostream out(&to);
    to.most = 2;
    out << std::setw(9) << &from;
    CHECK(out.good() && out.width() == 9 && to.taken() == "ab" && from.sgetc() == 'c');
    out << &from;
    CHECK(out.rdstate() == b::failbit && from.sgetc() == 'c');
    out.clear();
    out << static_cast<std::streambuf *>(0);
    CHECK_INT(out.rdstate(), b::failbit);
  }
  const own_file path("output", "0123456789");
  std::filebuf file, full;
  file.open(path.name(), b::in | b::out);
  std::ostream out(&file);
  file.pubseekpos(7);
  out << &file;
  CHECK(out.good() && path.content().substr(0, 8) == "01234567" && path.content().size() >= 10);
  {  // two buffers over one file, each of whose characters is read where the one before was written
    FILE *const shared = fopen(path.name(), "w+");
    fputs("abcdefghij", shared);
    rewind(shared);
    std::filebuf one(shared);
    union {
      char place[sizeof(std::filebuf)];
      long align;
    } never_closed;
    std::ostream over(&one);
    over << new (never_closed.place) std::filebuf(shared);
    CHECK(over.good() && one.sgetc() == -1 && one.pubseekoff(0, b::cur) == 10 && one.sputc('!') == '!');
  }
  CHECK_TEXT(path.content().c_str(), "abcdefghij!");
  // To ask what is left moves nothing.
  std::filebuf asked;
  asked.open(path.name(), b::in | b::out);
  CHECK(asked.sputn("AB", 2) == 2 && asked.in_avail() == 9 && asked.sputc('C') == 'C' && asked.sgetc() == 'd');
  asked.close();
  CHECK_TEXT(path.content().c_str(), "ABCdefghij!");
  std::stringbuf text("text");
  std::ifstream closed;
  std::ostream nowhere(closed.rdbuf());
  nowhere << &text;
  CHECK(nowhere.rdstate() == b::failbit && text.sgetc() == 't');
}

// In an alphabet of the program's.
struct coded : std::ctype<char> {
  virtual char do_widen(char c) const { return static_cast<char>(c ^ 0x40); }
  virtual const char *do_widen(const char *from, const char *end, char *to) const {
    while (from != end) *to++ = do_widen(*from++);
    return end;
  }
};
void alphabet() {
  std::ostringstream out;
  out.imbue(std::locale(out.getloc(), new coded));
  out << 12 << -3.5 << true << std::hex << 0xabu;
  CHECK(out.str() == "qrms.uq!\"");
}

// Flags that a manipulator sets in its field, and those that it clears.
typedef std::ios_base &(*a_manipulator)(std::ios_base &);
void manipulators() {
  static const a_manipulator pairs[][2] = {{std::boolalpha, std::noboolalpha}, {std::showbase, std::noshowbase},
                                           {std::showpoint, std::noshowpoint}, {std::showpos, std::noshowpos},
                                           {std::skipws, std::noskipws},       {std::uppercase, std::nouppercase},
                                           {std::unitbuf, std::nounitbuf}};
  static const a_manipulator of_fields[] = {std::internal, std::left, std::right, std::dec,
                                            std::hex,      std::oct,  std::fixed, std::scientific};
  static const int flags[] = {b::boolalpha, b::showbase, b::showpoint, b::showpos, b::skipws, b::uppercase, b::unitbuf},
                   values[] = {b::internal, b::left, b::right, b::dec, b::hex, b::oct, b::fixed, b::scientific},
                   every = 0x7FFF, bases[][2] = {{8, b::oct}, {10, b::dec}, {16, b::hex}, {0, 0}, {2, 0}, {-8, 0}};
  scripted buffer;
  std::ostream out(&buffer);
  std::istream in(&buffer);
  for (int i = 0; i < 7; ++i) {
    out.flags(0), in.flags(every);
    out << pairs[i][0], in >> pairs[i][1];
    CHECK(out.flags() == flags[i] && in.flags() == (every & ~flags[i]));
  }
  for (int i = 0; i < 8; ++i) {
    out.flags(every);
    out << of_fields[i];
    CHECK_INT(out.flags(), (every & ~(i < 3 ? b::adjustfield : i < 6 ? b::basefield : b::floatfield)) | values[i]);
  }
  CHECK(&(out << std::setw(7) << std::setprecision(-3) << std::setfill(0x141)) == &out);
  CHECK(out.width() == 7 && out.precision() == -3 && out.fill() == 0x41);
  CHECK(&(in >> std::setw(9) >> std::setprecision(1) >> std::setfill('-')) == &in);
  CHECK(in.width() == 9 && in.precision() == 1 && in.fill() == '-');
  out.flags(b::skipws);
  out << std::setiosflags(b::hex | b::showbase) << std::resetiosflags(b::skipws);
  CHECK_INT(out.flags(), b::hex | b::showbase);
  for (int i = 0; i < 6; ++i) {
    out.flags(b::dec | b::showbase);
    out << std::setbase(bases[i][0]);
    CHECK_INT(out.flags(), bases[i][1] | b::showbase);
  }
}

}  // namespace

int main() {
  rows();
  areas();
  synchronising();
  buffers();
  alphabet();
  manipulators();
  // Room that a stream gives its buffer beforehand is no text: there is no position in it.
  std::stringstream fresh;
  CHECK(fresh.tellp() == std::streampos(-1) && fresh.tellg() == std::streampos(-1) && fresh.good());
  return TEST_RESULT();
}

// What input and output do on purpose in their own way, row by row: the steps of data/own, on a buffer of single
// characters and put areas of several sizes (peer/streams.cpp compares all the others with that one). Then counts,
// positions, iterators, manipulators, put areas that are not as they should be, and files that are copied onto
// themselves.
// test-variants: -O2 | -O2 -static
#include <limits.h>

#include <stdexcept>

#include "operations.h"

using namespace operations;

namespace {

typedef std::ios b;

// Does a step of a row, which is an operation with its number and width, its value and its precision; or sets flags or
// the state. Returns what it got.
std::string done(std::iostream &s, scripted &buffer, const std::string &step) {
  std::string part[4];
  std::istringstream parts(step);
  for (int i = 0; i < 4; ++i) std::getline(parts, part[i], ':');
  const int n = atoi(part[1].c_str());
  an_operation o(place_of(part[0], NAMES(OPERATIONS)), n, s.flags());
  o.text = part[2], o.integer = static_cast<longest>(strtoull(part[2].c_str(), 0, 0));
  o.real = strtod(part[2].c_str(), 0);
  if (!part[3].empty()) o.precision = atoi(part[3].c_str());
  std::stringbuf to;
  if (part[2] == "begin") o.c = 'b';
  if (part[0] == "none") s.flags(0);
  if (place_of(part[0], NAMES(FLAGS)) < 15) s.setf(flags::all[place_of(part[0], NAMES(FLAGS))]);
  if (part[0] == "eof") s.setstate(s.eofbit);
  if (part[0] == "fail") s.setstate(s.failbit);
  if (part[0] == "ignore_255") s.ignore(n, 255);
  if (part[0] == "get_buffer_e9") s.get(to, '\xe9');
  if (part[0] == "prefix") return s.ipfx(n) ? "in" : "out";
  if (part[0] == "seek_fails") buffer.let_fail(seeks, 0, false);
  if (part[0] == "asked") return buffer.asked == s.in ? "in" : "out";
  if (o.what >= kinds) return to.str();
  const std::string got = perform(s, o, false).c_str();
  return got.substr(0, got.find('#')) + (o.what == in_string || o.what == in_array ? number("%lld", s.width()) : "");
}
void table() {
  int count = 0;
  for (rows row(__FILE__, "data/own"); row.next(); ++count)
    for (int room = 0; room < 90; room += 1 + room * 7) {
      scripted buffer(row[1], 0, room);
      std::iostream s(&buffer);
      std::istringstream steps(row[0]);
      std::string got;
      for (std::string step; steps >> step;) got += done(s, buffer, step);
      got += std::string(" ") + (s.bad() ? "b" : "") + (s.eof() ? "e" : "") + (s.rdstate() & s.failbit ? "f" : "");
      CHECK_TEXT((got + number("%lld", s.gcount()) + " " + buffer.rest()).c_str(), row[2].c_str());
      const std::string written = buffer.taken();
      CHECK_TEXT(written.c_str(), row[3].c_str());
      CHECK(written == row[3] && (written.empty() || s.width() == row.number(4)));
    }
  CHECK_INT(count, 108);
}

// Counts of what never ends go to their largest value, and no further.
struct endless : std::streambuf {
  static char block[1 << 16];
  unsigned left;
  explicit endless(unsigned blocks) : left(blocks) {}
  virtual int underflow() { return left-- == 0 ? -1 : (setg(block, block, block + sizeof block), 0); }
  virtual int overflow(int c) { return setp(block, block + sizeof block), c; }
};
char endless::block[1 << 16];
void counts() {
  const unsigned blocks_of_2_31 = 1u << 15;
  endless from(blocks_of_2_31 + 1), to(0), ignored(blocks_of_2_31 + 1), wrapped(2 * blocks_of_2_31);
  std::istream in(&from);
  in.get(to, 'x');
  CHECK(in.gcount() == INT_MAX && in.rdstate() == b::eofbit);
  in.clear(), in.rdbuf(&ignored), in.ignore(INT_MAX, 'x');
  CHECK(in.gcount() == INT_MAX && in.rdstate() == b::eofbit);
  in.clear(), in.rdbuf(&wrapped), in >> &to;
  CHECK_INT(in.rdstate(), b::eofbit);
}

// Room that a stream gives its buffer beforehand is no text: there is no position in it. What fails is asked nothing.
void positions() {
  std::stringstream fresh;
  CHECK(fresh.tellp() == std::streampos(-1) && fresh.tellg() == std::streampos(-1) && fresh.good());
  scripted buffer("abc");
  std::iostream failed(&buffer);
  failed.setstate(b::failbit);
  CHECK(failed.seekg(0).tellg() == std::streampos(-1) && failed.seekp(0, b::beg).tellp() == std::streampos(-1));
  CHECK(buffer.calls[seeks] == 0 && std::istream(0).sync() == -1);
}

void iterators() {
  std::istringstream high("\xff\xfe\xfd|-");
  // In code that is small enough to have it inline.
  CHECK(high.peek() == 0xFF && high.gcount() == 0 && high.get() == 0xFF && high.gcount() == 1 && high.get() == 0xFE);
  std::istreambuf_iterator<char> in(high), end, none(0);
  CHECK(!in.equal(end) && in != end && none == end && *in == '\xfd' && *in++ == '\xfd');
  const std::istreambuf_iterator<char> second(in++);
  CHECK_INT(*second, '-');
  scripted two;
  two.most = 2;
  std::ostreambuf_iterator<char> out(&two), nowhere(static_cast<std::streambuf *>(0));
  for (int i = 0; i < 9; ++i) *out++ = 'o';
  CHECK(out.failed() && nowhere.failed() && two.calls[overflows] == 3);  // nothing after the first that fails
  const std::streampos place = std::streampos(5) + 2;
  CHECK(place - 3 == 4 && place - std::streampos(2) == 5 && place != 6 && sizeof place == 12 && place - 1ul + 2u == 8);
  struct plain : std::streambuf {
  } p;
  CHECK(p.pubseekoff(0, b::cur) == std::streampos(-1) && p.pubseekpos(0) == -1 && p.pubsetbuf(0, 0) == &p);
  CHECK(p.pubsync() == 0 && p.sgetc() == -1 && p.sbumpc() == -1 && p.sputc('c') == -1 && p.in_avail() == 0);
}

// A position that its class has moved beyond the end of the put area is no room. Null texts are empty, but
// a null buffer is none; and what the parts of the old sentry do. Texts and numbers are put one by one.
void output() {
  struct area : std::streambuf {
    std::string own, more;
    area() : own(9, '.') { setp(&own[0], &own[4]), pbump(6); }
    virtual int overflow(int c) { return more += static_cast<char>(c), c & 0xFF; }
    virtual int sync() { return more += '!', 0; }
  } a;
  const char *const none = 0;
  std::ostream out(&a);
  out << "ab" << 'c' << 12 << 1.5 << std::setw(3) << "d" << std::setw(3) << 7 << std::string("s");
  out.put('e').write("fg", 2) << none << std::setw(2) << none << std::setw(4) << std::ends;
  out.setf(b::unitbuf);
  CHECK(out.opfx() && out.width() == 4);
  out.osfx(), out.setstate(b::eofbit);
  CHECK(!out.opfx() && out.rdstate() == b::eofbit);
  scripted one_by_one;
  std::ostream puts(&one_by_one);
  CHECK((puts << "abc" << 'd' << 42) && one_by_one.calls[overflows] == 6 && one_by_one.calls[xsputns] == 0);
  CHECK_INT((puts << static_cast<std::streambuf *>(0)).rdstate(), b::failbit);
  CHECK(a.own == "........." && a.more == std::string("abc121.5d    7sefg  \0!", 22));
}

void tell(b::event what, std::ios_base &, int index) { trace("%d:%c", what, index); }
void refuse(b::event, std::ios_base &, int) { throw 1; }

// What a callback or the buffer throws passes: before a copy nothing has changed, after it only the mask has not. At
// the end it is discarded, and the older ones hear. A word has no negative place.
void bases() {
  struct refusing : std::streambuf {
    bool refuses;
    virtual void imbue(const std::locale &) { refuses ? throw 1 : 0; }
  } buffer;
  std::iostream from(&buffer), to(&buffer), also_to(&buffer);
  const std::locale other(std::locale::classic(), new std::ctype<char>);
  from.exceptions(b::eofbit);
  from.iword(0) = 1;
  from.register_callback(refuse, 0), to.register_callback(refuse, 0);
  for (int i = 0; i < 5; ++i) {
    std::iostream last(&buffer), &changed = i ? also_to : to;
    last.register_callback(tell, 'L');
    buffer.refuses = i == 3;
    try {
      i < 2 ? void(changed.copyfmt(from)) : i < 4 ? void((i == 2 ? to : last).imbue(other)) : void(from.iword(-1) = 1);
      CHECK(!"nothing was thrown");
    } catch (int) {
    } catch (const std::length_error &) { CHECK(i == 4 && from.good()); }
    CHECK(i > 1 || (changed.iword(0) == i && changed.exceptions() == 0));
    CHECK(i != 3 || (last.getloc() == other && buffer.getloc() == std::locale::classic()));
    last.register_callback(refuse, 0);
  }
  CHECK_TRACE("0:L 0:L 0:L 1:L 0:L 0:L");
  // A text of the program's own is kept whole; the base's copy ends at a null character.
  const b::failure own(std::string("a\0b", 3)), copied(own);
  CHECK_TEXT(copied.what(), "a");
}

// A file is copied behind itself, and from one buffer over it to another.
void buffers() {
  const own_file path("own", "0123456789");
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
}

}  // namespace

int main() {
  table();
  counts();
  positions();
  iterators();
  output();
  buffers();
  bases();
  return TEST_RESULT();
}

// The stream base: first state, state and exceptions, words, callbacks, copyfmt, and what a failed allocation leaves;
// and the buffer base: areas before virtual operations, what they do unless they are overridden.
#include <plx/iostream/basic_ios.h>
#include <streambuf>

#include "../fail_allocation.h"

namespace {

typedef std::ios b;

// "abc" in the get area, then 'x', 0xFF from uflow; room for three, then two by overflow.
struct three : std::streambuf {
  char from[4], to[4];
  int left, room, imbued;
  bool refuses;
  three() : left(2), room(2), imbued(0), refuses(false) {
    strcpy(from, "abc");
    setg(from, from, from + 3), setp(to, to + 3);
  }
  virtual void imbue(const std::locale &) {
    ++imbued;
    if (refuses) throw 1;
  }
  virtual int uflow() { return trace("u"), left ? "\xFFx"[--left] & 0xFF : -1; }
  virtual int overflow(int c) { return trace("o"), room-- > 0 ? c : -1; }
  virtual int pbackfail(int c) { return trace("%c", c == -1 ? '-' : c), -1; }
};
struct stream : b {
  explicit stream(std::streambuf *buffer) { init(buffer); }
};

void first_state() {
  three buffer;
  stream good(&buffer), bad(0);
  CHECK(good.flags() == (b::skipws | b::dec) && good.precision() == 6 && good.width() == 0 && good.fill() == ' ');
  CHECK(good && good.rdbuf() == &buffer && !good.tie() && bad.rdstate() == b::badbit && !bad);
  CHECK(good.setf(b::hex, b::basefield) == (b::skipws | b::dec) && good.flags() == (b::skipws | b::hex));
  const int first = b::xalloc();
  CHECK_INT(b::xalloc(), first + 1);
  int thrown = 0;
  good.exceptions(b::failbit);
  good.setstate(b::eofbit);
  for (int how = 0; how < 4; ++how) {
    try {
      if (how == 0) good.setstate(b::failbit);
      if (how == 1) good.exceptions(b::eofbit);  // looks at the state at once
      if (how == 2) good.exceptions(b::badbit), good.rdbuf(0);
      if (how == 3) good.iword(-1) = 1;
    } catch (const std::ios_base::failure &f) {
      CHECK_TEXT(f.what(), "Failure reported");
      ++thrown;
    } catch (const std::exception &) { thrown += 10; }
    CHECK(good.rdstate() == (how < 2 ? b::eofbit | b::failbit : b::badbit));
  }
  CHECK_INT(thrown, 13);
  // A text of the program's own is kept whole; the base's copy ends at a null character.
  const std::ios_base::failure own(std::string("a\0b", 3)), copied(own);
  CHECK_TEXT(copied.what(), "a");
}

void tell(std::ios_base::event what, std::ios_base &, int index) { trace("%d:%c", what, index); }
void refuse(std::ios_base::event, std::ios_base &, int) { throw 1; }

void callbacks() {
  three buffer;
  {
    stream s(&buffer), other(&buffer), empty(&buffer);
    for (int i = 0; i < 13; ++i) (i < 3 ? s : other).register_callback(tell, (i < 3 ? 'A' : 'a' - 3) + i);
    s.imbue(std::locale::classic());
    CHECK_TRACE("1:C 1:B 1:A");
    CHECK_INT(buffer.imbued, 1);
    long *const fifth = &other.iword(5);
    other.iword(2) = 7, other.pword(3) = &s;
    other.fill('*'), other.width(9), other.precision(3), other.exceptions(b::eofbit), other.flags(b::hex);
    s.copyfmt(other);
    CHECK_TRACE("0:C 0:B 0:A 2:j 2:i 2:h 2:g 2:f 2:e 2:d 2:c 2:b 2:a");
    CHECK(fifth == &other.iword(5) && s.iword(2) == 7 && s.pword(3) == &s && s.iword(5) == 0 && s.pword(9) == 0);
    CHECK(s.fill() == '*' && s.width() == 9 && s.precision() == 3 && s.flags() == b::hex);
    CHECK(s.exceptions() == b::eofbit && s.good());
    s.copyfmt(s), other.copyfmt(empty), s.copyfmt(empty);
    test_trace[0] = 0;
    other.register_callback(tell, 'X');
  }
  CHECK_TRACE("0:X");
  // Before the copy nothing has changed; after it only the mask has not. What a callback or the buffer throws passes.
  stream from(&buffer), to(&buffer), also_to(&buffer);
  const std::locale other(std::locale::classic(), new std::ctype<char>);
  from.exceptions(b::eofbit);
  from.iword(0) = 1;
  from.register_callback(refuse, 0), to.register_callback(refuse, 0);
  for (int i = 0; i < 4; ++i) {
    stream last(&buffer), &changed = i ? also_to : to;
    last.register_callback(tell, 'L');
    buffer.refuses = i == 3;
    try {
      i < 2 ? void(changed.copyfmt(from)) : void((i == 2 ? to : last).imbue(other));
      CHECK(!"nothing was thrown");
    } catch (int) {}
    CHECK(i > 1 || (changed.iword(0) == i && changed.exceptions() == 0));
    CHECK(i != 3 || (last.getloc() == other && buffer.getloc() == std::locale::classic()));
    last.register_callback(refuse, 0);
  }  // discarded there, and the older one hears
  CHECK_TRACE("0:L 0:L 0:L 1:L 0:L");
}

void buffer_base() {
  three a, c, d;
  char got[8] = "";
  CHECK(a.sgetn(got, 0) == 0 && a.sgetn(got, -3) == 0 && a.sputn("q", 0) == 0 && a.sputn("q", -1) == 0);
  CHECK(a.in_avail() == 3 && a.sgetn(got, 8) == 5 && std::string(got) == "abcx\xFF");
  CHECK(a.sputn("123\xFF-6789", 9) == 5 && memcmp(a.to, "123", 3) == 0);
  CHECK(c.sungetc() == -1 && c.snextc() == 'b' && c.sputbackc('z') == -1 && c.sputbackc('a') == 'a');
  CHECK_TRACE("u u u o o o - z");
  struct plain : std::streambuf {
  } p;
  CHECK(p.pubseekoff(0, b::cur) == std::streampos(-1) && p.pubseekpos(0) == -1 && p.pubsetbuf(0, 0) == &p);
  CHECK(p.pubsync() == 0 && p.sgetc() == -1 && p.sbumpc() == -1 && p.sputc('c') == -1 && p.in_avail() == 0);
  const std::streampos at = std::streampos(5) + 2;
  CHECK(at - 3 == 4 && at - std::streampos(2) == 5 && at != 6 && sizeof at == 12 && at - 1ul + 2u == 8);
  std::istreambuf_iterator<char> in(&d), end, none(0);
  CHECK(!in.equal(end) && in != end && none == end && *in == 'a' && *in++ == 'a');
  const std::istreambuf_iterator<char> second(in++);
  CHECK_INT(*second, 'c');
  std::ostreambuf_iterator<char> out(&d), nowhere(static_cast<std::streambuf *>(0));
  for (int i = 0; i < 9; ++i) *out++ = static_cast<char>('1' + i);
  CHECK(out.failed() && nowhere.failed());
  CHECK_TRACE("o o o");  // nothing after the first that fails
}

struct growing {
  three buffer;
  stream from, to;
  growing() : from(&buffer), to(&buffer) { to.iword(0) = 3; }
  void run() {
    from.iword(9) = 1, from.pword(4) = this;
    for (int i = 0; i < 6; ++i) from.register_callback(tell, 'a');
    std::string exposed(80, 'x');
    exposed[0] = 'A';
    std::ios_base::failure one(exposed), two(one);
    two = one;
    CHECK_TEXT(two.what(), exposed.c_str());
    to.copyfmt(from);
  }
  void check(bool failed) { CHECK_INT(to.iword(0), failed ? 3 : 0); }
};

}  // namespace

int main() {
  first_state();
  callbacks();
  buffer_base();
  CHECK(fail_each_allocation<growing>() >= 10);
  return TEST_RESULT();
}

// String buffers: what a derived class sees of its areas, the rules that differ from the standard's, positions, and
// what happens to a block that a derived class takes away or replaces. stringbuf_random has the combinations.
#include <sstream>

#include "../harness.h"

namespace {

const int in = std::ios_base::in, out = std::ios_base::out;

class probe : public std::stringbuf {
public:
  explicit probe(int mode) : std::stringbuf(mode) {}
  probe(const char *text, int mode) : std::stringbuf(std::string(text), mode) {}
  int room() const { return static_cast<int>(epptr() - pptr()); }
  int written() const { return static_cast<int>(pptr() - pbase()); }
  int at() const { return static_cast<int>(gptr() - eback()); }
  bool readable() const { return gptr() != 0; }
  using std::stringbuf::overflow;
  using std::stringbuf::pbackfail;
  using std::stringbuf::underflow;
  const char *block() const { return pbase(); }
  char *take_block() {
    char *const taken = pbase();
    setp(0, 0);
    setg(0, 0, 0);
    return taken;
  }
  void write_to(char *array, int n) { setp(array, array + n); }
};

void growing() {
  probe b(in | out);
  const char *block = 0;
  for (int i = 0; i < 200; ++i) {
    CHECK_INT(b.room(), 0);
    if (i == 1) block = b.block();
    if (0 < i && i < 64) CHECK(b.block() == block);
    CHECK_INT(b.sputc(static_cast<char>('a' + i % 26)), 'a' + i % 26);
    CHECK_INT(b.in_avail(), i + 1 - i / 10);
    if (i % 10 == 9) CHECK_INT(b.sbumpc(), 'a' + i / 10 % 26);  // the read position survives every new block
  }
  CHECK_INT(b.at(), 20);
  CHECK_INT(b.str().size(), 200);

  // Called with room left, overflow widens the area by a character that nobody wrote.
  probe c("abc", out);
  CHECK_INT(c.overflow('X'), 'X');
  CHECK_INT(c.room(), 3);
  CHECK(c.str() == "Xbc");
  CHECK_INT(c.pubseekoff(0, std::ios_base::end, out), 4);
  CHECK(c.str() == std::string("Xbc\0", 4));
}

void quirks() {
  probe b(in | out);
  CHECK_INT(b.overflow(-1), 0);
  CHECK_INT(b.overflow(300), 300);
  CHECK_INT(b.overflow(-7), -7);
  CHECK(b.str() == std::string("\0\0", 2));
  b.str("ab");
  CHECK_INT(b.underflow(), -1);  // with characters left
  b.sbumpc();
  b.sbumpc();
  CHECK_INT(b.sputbackc('\xFF'), -1);  // taken, and looks like eof
  CHECK_INT(b.sputbackc('\x80'), -128);
  CHECK_INT(b.sputbackc('x'), -1);
  CHECK(b.str() == "\x80\xFF");
  CHECK_INT(b.pbackfail(), -1);

  probe reader("ab\xFF", in);
  CHECK_INT(reader.overflow('c'), -1);
  CHECK_INT(reader.overflow(-1), 0);
  reader.pubseekoff(0, std::ios_base::end, in);
  CHECK_INT(reader.underflow(), -1);
  CHECK_INT(reader.pbackfail(0xFE), -1);
  CHECK_INT(reader.pbackfail(0xFF), 0xFF);
  CHECK_INT(reader.sputbackc('x'), -1);
  CHECK_INT(reader.pbackfail(), 0);
  CHECK_INT(reader.at(), 1);

  probe writer(out);
  writer.sputc('a');
  CHECK(!writer.readable());
  CHECK_INT(writer.sgetc(), -1);
  probe neither("abc", 0);
  CHECK_INT(neither.sputc('a'), -1);
  CHECK_INT(neither.sgetc(), -1);
  CHECK(neither.str() == "");
}

template <class Buffer> void positions() {
  Buffer b(in | out);
  CHECK_INT(b.pubseekoff(0, std::ios_base::cur, out), -1);  // no block yet
  b.str("hello");
  CHECK_INT(b.pubseekoff(0, std::ios_base::cur, in | out), -1);
  CHECK_INT(b.pubseekoff(-2, std::ios_base::end), 3);
  CHECK_INT(b.sgetc(), 'l');
  CHECK_INT(b.pubseekoff(1, std::ios_base::end), -1);
  CHECK_INT(b.pubseekoff(-6, std::ios_base::end), -1);
  CHECK_INT(b.pubseekoff(0x7FFFFFFF, std::ios_base::end), -1);
  CHECK_INT(b.pubseekoff(-0x7FFFFFFF - 1, std::ios_base::beg, in), -1);
  CHECK_INT(b.pubseekoff(1, std::ios_base::cur, in), 4);
  CHECK_INT(b.pubseekoff(0, std::ios_base::cur, out), 3);
  CHECK_INT(b.pubseekoff(0, std::ios_base::seekdir(3), in), -1);
  CHECK_INT(b.pubseekoff(0, std::ios_base::beg, 0), -1);
  b.sputn("123", 3);
  CHECK(b.str() == "hel123");
  CHECK_INT(b.pubseekpos(6, in), 6);
  CHECK_INT(b.sgetc(), -1);
  CHECK_INT(b.pubseekpos(7), -1);
  CHECK_INT(b.pubseekpos(-1), -1);
  b.pubseekpos(0, out);
  b.sputc('J');
  CHECK(b.str() == "Jel123");
  CHECK(b.pubsetbuf(0, 0) == &b);
  CHECK_INT(b.pubsync(), 0);
}

void texts() {
  probe b("123456789", out);
  const char *const block = b.block();
  b.str("ab");
  CHECK(b.block() == block && b.written() == 0 && b.room() == 2);
  b.str(std::string(64, 'x'));
  CHECK(b.block() == block);  // 64 characters fill the block
  b.str("");
  CHECK(!b.block());
  CHECK(b.str() == "");
  probe appending("abc", out | std::ios_base::app);
  appending.sputc('d');
  CHECK(appending.str() == "abcd");
  probe at_end("abc", out | std::ios_base::ate);
  at_end.sputc('d');
  CHECK(at_end.str() == "dbc");
}

// The block belongs to whoever has the areas.
void taken_blocks() {
  char array[4];
  {
    probe b("abcdef", in | out);
    char *const block = b.take_block();
    CHECK_TEXT(std::string(block, 6).c_str(), "abcdef");
    delete[] block;
    CHECK(b.str() == "");
    b.sputn("xyz", 3);
    CHECK(b.str() == "xyz");
    delete[] b.take_block();
    b.write_to(array, 4);
    CHECK_INT(b.sputn("1234", 4), 4);
    CHECK(b.str() == "1234");
    CHECK_INT(b.sputn("56789", 5), 5);  // moves to a block
    CHECK(b.block() != array);
    CHECK(b.str() == "123456789");
    b.write_to(array, 4);
  }
  CHECK(memcmp(array, "1234", 4) == 0);
}

// A plain buffer's block grows by more than it says.
void long_texts() {
  std::string want;
  std::stringbuf by_characters, by_blocks, written(out);
  for (int i = 0; i < 300000; ++i) {
    const char c = static_cast<char>('a' + i % 7 + i / 1000 % 11);
    want += c;
    by_characters.sputc(c);
    written.sputc(c);
  }
  for (unsigned i = 0, n = 1; i < want.size(); i += n, n = n % 5000 + 1) {
    if (n > want.size() - i) n = want.size() - i;
    CHECK_INT(by_blocks.sputn(want.data() + i, n), n);
  }
  CHECK(by_characters.str() == want && by_blocks.str() == want && written.str() == want);
  CHECK_INT(by_characters.in_avail(), 300000);
  std::string got(want.size(), '?');
  CHECK_INT(by_blocks.sgetn(&got[0], 300001), 300000);
  CHECK(got == want);
}

}  // namespace

int main() {
  growing();
  quirks();
  positions<std::stringbuf>();
  positions<probe>();
  texts();
  taken_blocks();
  long_texts();
  return TEST_RESULT();
}

// Character-array streams: growth as the allocation function sees it, freezing the other way round, positions, arrays
// that end where they are said to end.
#include <strstream>

#include <string>

#include "../harness.h"

namespace {

int released;
void *give(size_t n) {
  trace("%u", static_cast<unsigned>(n));
  return malloc(n);
}
void *refuse(size_t) { return 0; }
void take(void *p) {
  ++released;
  free(p);
}

class open_buffer : public std::strstreambuf {
public:
  open_buffer(void *(*palloc)(size_t), void (*pfree)(void *)) : std::strstreambuf(palloc, pfree) {}
  open_buffer(char *at, int n, char *pbeg) : std::strstreambuf(at, n, pbeg) {}
  using std::strstreambuf::underflow;
  long room() const { return epptr() - pptr(); }
  long read() const { return gptr() - eback(); }
  long readable() const { return egptr() - gptr(); }
};

void growing() {
  open_buffer b(give, take);
  for (int i = 0; i < 17; ++i) {
    CHECK_INT(b.sputc(static_cast<char>('a' + i)), 'a' + i);
    CHECK_INT(b.room(), 0);  // widened one by one
  }
  CHECK_TRACE("16 32");
  CHECK_INT(released, 1);
  CHECK_INT(b.pcount(), 17);
  CHECK(std::string(b.str(), 17) == "abcdefghijklmnopq");
  // Three of the five readable characters are read: two unread ones become the position when the array grows.
  CHECK_INT(b.sgetc(), 'a');
  for (int i = 0; i < 3; ++i) b.sbumpc();
  CHECK_INT(b.readable(), 14);
  while (b.pcount() < 32) b.sputc('x');
  b.sputc('y');
  CHECK_INT(b.read(), 14);
  CHECK_INT(b.readable(), 3);
  take(b.str());

  open_buffer none(refuse, take);
  CHECK_INT(none.sputc('a'), -1);
  CHECK_INT(none.sputn("ab", 2), 0);
  CHECK(none.str() == 0);

  std::ostrstream out;
  out << "a number: " << 42 << std::ends;
  CHECK_TEXT(out.str(), "a number: 42");
  CHECK_INT(out.pcount(), 13);
  std::strstreambuf::default_free(out.str());
}

void freezing() {
  open_buffer b(give, take);
  b.sputc('a');
  b.freeze(false);
  CHECK_INT(b.sputc('b'), -1);
  b.freeze(true);
  CHECK_INT(b.sputc('b'), 'b');
  take(b.str());
  char array[2];
  open_buffer fixed(array, 2, array);
  fixed.freeze(false);
  CHECK_INT(fixed.sputc('b'), 'b');
  test_trace[0] = 0;
}

void fixed_arrays() {
  char array[8] = "abc";
  open_buffer b(array, 4, array);
  for (int i = 0; i < 4; ++i) CHECK_INT(b.sputc('1'), '1');
  CHECK_INT(b.sputc('5'), -1);
  CHECK_INT(b.sgetc(), '1');

  char appended[16] = "abc";
  appended[6] = '#';
  std::ostrstream out(appended, 6, std::ios::app);
  out << "defgh";
  CHECK_TEXT(appended, "abcdef#");
  char full[4] = {'a', 'b', 'c', 'd'};
  std::ostrstream nowhere(full, 4, std::ios::out | std::ios::app);
  nowhere << 'x';
  CHECK(std::string(full, 4) == "abcd");
  std::strstream both(appended, 16, std::ios::in | std::ios::out | std::ios::app);
  both << 'X';
  CHECK_TEXT(appended, "abcdef#X");

  const char high[] = "\xff\x80";
  std::istrstream in(high, 1), long_one(high, -1);
  CHECK_INT(in.rdbuf()->sgetc(), 0xFF);  // from the area as it is; underflow itself goes through signed char
  char bytes[] = "\xff\x80";
  open_buffer direct(bytes, 2, bytes + 2);
  CHECK_INT(direct.underflow(), -1);
  direct.sbumpc();
  CHECK_INT(direct.underflow(), -128);
  CHECK_INT(long_one.rdbuf()->in_avail() > 0, 1);  // the end has not wrapped
  std::strstreambuf at_top(reinterpret_cast<const char *>(0xFFFFFFF0u), -1);
  CHECK_INT(at_top.in_avail(), 15);
}

void reading() {
  std::istrstream in("12 word 3.5");
  int n = 0;
  double d = 0;
  std::string word;
  in >> n >> word >> d;
  CHECK(n == 12 && word == "word" && d == 3.5 && in.eof());
  in.seekg(0);  // moves: the state is only eofbit
  CHECK(in.eof());
  CHECK_INT(in.rdbuf()->sgetc(), '1');
  in.setstate(std::ios::failbit);
  in.seekg(3, std::ios::beg);
  CHECK_INT(in.rdbuf()->sgetc(), '1');
  CHECK_INT(in.rdbuf()->sungetc(), -1);
  in.rdbuf()->sbumpc();
  CHECK_INT(in.rdbuf()->sputbackc('z'), -1);
  CHECK_INT(in.rdbuf()->sputbackc('1'), '1');
}

void positions() {
  char array[8] = "abcdefg";
  open_buffer b(array, 4, array + 4);
  CHECK_INT(b.pubseekoff(2, std::ios::beg), 2);
  CHECK_INT(b.sgetc(), 'c');
  CHECK_INT(b.pubseekoff(1, std::ios::cur, std::ios::out), 1 + 2);
  CHECK(b.pubseekoff(0, std::ios::cur) == -1);  // the get side counts, the put side refuses
  CHECK(b.pubseekoff(5, std::ios::beg, std::ios::in) == -1);
  CHECK(b.pubseekoff(-1, std::ios::end, std::ios::in) == 3);
  CHECK_INT(b.sgetc(), 'd');
  CHECK(b.pubseekpos(-1) == -1);
  CHECK(b.pubseekpos(5, std::ios::in) == -1);
  CHECK(b.pubseekpos(1, std::ios::in) == 1);
  CHECK(b.pubseekpos(9, std::ios::out) == -1);
  CHECK(b.pubseekpos(4, std::ios::in | std::ios::out) == 4);
}

}  // namespace

int main() {
  growing();
  freezing();
  fixed_arrays();
  reading();
  positions();
  return TEST_RESULT();
}

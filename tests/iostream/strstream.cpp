// Character arrays as streams: arrays that grow, given arrays and their bounds, and the rules that differ from the
// standard's: freeze is reversed, reading starts elsewhere after growth, 0xFF looks like the end, nothing is released.
#include <string>
#include <strstream>

#include <limits.h>
#include <sys/mman.h>

#include "../harness.h"

namespace {

const int in = std::ios_base::in, out = std::ios_base::out, app = std::ios_base::app;

char arena[4096];
bool refuse, throws;
int arena_used;

void *take(size_t n) {
  trace("+%u", static_cast<unsigned>(n));
  if (throws) throw 7;
  if (refuse) return 0;
  char *const at = arena + arena_used;
  arena_used += static_cast<int>(n);
  return at;
}
void give(void *p) { trace("-%d", static_cast<int>(static_cast<char *>(p) - arena)); }
void give_back(void *p) {
  trace("-");
  std::strstreambuf::default_free(p);
}

class probe : public std::strstreambuf {
public:
  explicit probe(int alsize) : std::strstreambuf(alsize) {}
  probe(void *(*palloc)(size_t), void (*pfree)(void *)) : std::strstreambuf(palloc, pfree) {}
  probe(char *array, int n, char *pbeg) : std::strstreambuf(array, n, pbeg) {}
  probe(const char *array, int n) : std::strstreambuf(array, n) {}
  int room() const { return static_cast<int>(epptr() - pptr()); }
  int at() const { return static_cast<int>(gptr() - eback()); }
  using std::strstreambuf::overflow;
  using std::strstreambuf::underflow;
};

void growing() {
  probe b(take, give);
  b.sputn("0123456789", 10);
  CHECK_TRACE("+16");
  CHECK_INT(b.room(), 0);
  CHECK_INT(b.sgetc(), '0');
  b.sbumpc();
  b.sbumpc();
  b.sbumpc();
  CHECK_INT(b.sputn("abcdef", 6), 6);
  CHECK_TRACE("");
  CHECK_INT(b.at(), 3);
  b.sputc('g');  // 7 of the 10 readable ones were not read
  CHECK_TRACE("+32 -0");
  CHECK_INT(b.at(), 7);
  CHECK_INT(b.sgetc(), '7');
  CHECK_INT(b.pcount(), 17);
  CHECK(memcmp(b.str(), "0123456789abcdefg", 17) == 0);
  b.sputn("0123456789abcde", 15);
  refuse = true;
  CHECK_INT(b.sputc('x'), -1);
  refuse = false;
  CHECK_TRACE("+48");
  throws = true;
  bool thrown = false;
  try {
    b.sputc('x');
  } catch (int) {
    thrown = true;
  }
  throws = false;
  CHECK(thrown);
  CHECK_TRACE("+48");
  CHECK_INT(b.pcount(), 32);
  CHECK_INT(b.sputn("xy", 2), 2);
  CHECK_TRACE("+48 -16");

  // A function to release alone sees every array that is left.
  probe released(0, give_back);
  for (int i = 0; i < 33; ++i) CHECK_INT(released.sputc('x'), 'x');
  CHECK_TRACE("- -");
  give_back(released.str());
  CHECK_TRACE("-");
  probe own(take, 0);
  own.sputc('x');
  CHECK_TRACE("+16");
}

void freezing() {
  std::ostrstream s;
  s << "abc";
  s.freeze(false);  // reversed: this forbids
  s << 'd';
  CHECK_INT(s.pcount(), 3);
  s.clear();
  s.freeze(true);
  s << 'd';
  CHECK_INT(s.pcount(), 4);
  CHECK(memcmp(s.str(), "abcd", 4) == 0);
  s << "0123456789012345";  // str() freezes nothing
  CHECK(s.pcount() == 20 && memcmp(s.str(), "abcd0123", 8) == 0);
  delete[] s.str();

  char array[4];
  std::strstreambuf given(array, 4, array);
  given.freeze(false);
  CHECK_INT(given.sputn("12345", 5), 4);
  CHECK_INT(given.sputc('5'), -1);
}

void signs() {
  const char array[] = {'\xFF', '\x80', 'a'};
  probe b(array, 3);
  CHECK(b.underflow() == -1 && b.sbumpc() == 0xFF && b.underflow() == -128);  // straight from the area 0xFF is one
  CHECK(b.sputbackc('x') == -1 && b.sungetc() == 0xFF && b.sungetc() == -1 && b.overflow(-1) == 0 &&
        b.sputc('x') == -1);
  unsigned char bytes[3] = {1, 2, 0};
  std::strstreambuf u(bytes, 2, bytes + 1);
  CHECK(u.sputn("xyz", 3) == 2 && u.sgetn(reinterpret_cast<char *>(bytes), 1) == 1);
}

void arrays() {
  char text[20] = "12 34";
  std::istrstream whole(text), part(text, 4);
  int i = 0, k = 0;
  whole >> i >> i;
  part >> k >> k;
  CHECK(i == 34 && whole.eof() && strcmp(whole.str(), "12 34") == 0 && k == 3 && part.eof());
  // seekg never changes the state, and does nothing to one that has failed.
  part.seekg(0);
  CHECK(part.eof() && part.rdbuf()->sgetc() == '1');
  part.seekg(-1, std::ios_base::end);
  CHECK_INT(part.rdbuf()->sgetc(), '3');
  part.seekg(9);
  CHECK(part.rdbuf()->sgetc() == '3' && !part.fail());
  part.clear(std::ios_base::failbit), part.seekg(0);
  CHECK_INT(part.rdbuf()->sgetc(), '3');
  static const struct {
    const char *before, *written, *after;
    int mode;
  } all[] = {{"", "abcdefghij", "abcdefgh####", out},
             {"ab", "123456789", "ab123456####", out | app},  // not beyond the eighth
             {0, "x", "############", out | app}};            // no terminator among the eight
  for (int n = 0; n < 3; ++n) {
    memset(text, '#', sizeof text);
    if (all[n].before) strcpy(text, all[n].before);
    std::ostrstream s(text, 8, all[n].mode);
    s << all[n].written;
    CHECK(memcmp(text, all[n].after, 12) == 0);
  }
  strcpy(text, "7 ");
  std::strstream both(text, 8, in | out | app);
  both << 42 << ' ';
  both >> i >> k;
  CHECK(i == 7 && k == 42 && both.pcount() == 3);
}

void positions() {
  char array[] = "0123456789";
  probe b(array, 4, array + 6);  // 0..5 readable, 6..9 to be written
  // The read position moves, also before the move fails.
  CHECK(b.pubseekoff(2, std::ios_base::beg, in) == 2 && b.pubseekoff(1, std::ios_base::cur, in | out) == -1 &&
        b.at() == 3);
  CHECK(b.pubseekoff(4, std::ios_base::beg) == 4 && b.at() == 4 && b.room() == 0);
  CHECK(b.pubseekoff(5, std::ios_base::beg) == -1 && b.at() == 5 && b.room() == 0);
  CHECK(b.pubseekoff(-1, std::ios_base::end, out) == 3 && b.pubseekoff(-1, std::ios_base::cur, out) == 2);
  CHECK(b.pubseekoff(INT_MAX, std::ios_base::cur, in) == -1 && b.pubseekoff(0, std::ios_base::seekdir(7), in) == -1);
  CHECK(b.pubseekpos(6) == 6 && b.at() == 6 && b.room() == 2);  // too far to write, not to read
  CHECK(b.pubseekpos(7) == -1 && b.pubseekpos(5, out) == -1 && b.pubseekpos(-1) == -1 && b.pubseekpos(0, out) == 0);
  std::strstreambuf empty;
  CHECK(empty.pubseekpos(0) == -1 && empty.pubseekoff(0, std::ios_base::end) == -1 && !empty.str() && !empty.pcount());
}

// An array without an end, near the top of what a program can have.
void endless() {
  const size_t page = 4096;
  char *high = static_cast<char *>(MAP_FAILED);
  for (size_t at = 0xFFFF0000u; at > 0xC0000000u && high == MAP_FAILED; at -= 16 * page)
    high = static_cast<char *>(mmap(reinterpret_cast<void *>(at), page, PROT_READ | PROT_WRITE,
                                    MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0));
  CHECK(high != MAP_FAILED);
  strcpy(high, "17 word ");
  std::istrstream s(high, -1);
  int i = 0;
  char word[9] = "";
  s >> i >> word;
  CHECK_INT(i, 17);
  CHECK_TEXT(word, "word");
  CHECK(s.rdbuf()->in_avail() > 1000);
  std::ostrstream o(high, -1, out | app);
  o << "more";
  CHECK(memcmp(high, "17 word more", 12) == 0);
  static char low[] = "5";
  std::istrstream l(low, -1);
  CHECK_INT(l.rdbuf()->in_avail(), INT_MAX);
}

}  // namespace

int main() {
  growing();
  freezing();
  signs();
  arrays();
  positions();
  endless();
  return TEST_RESULT();
}

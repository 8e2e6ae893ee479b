// Streams over memory, beyond what peer/streams.cpp compares. A program that replaced operator new[] sees every block
// of a string buffer, in the sizes of the rule, from plain and derived buffers alike; each may fail, and nothing may be
// lost then but what was to be written. Character arrays: freeze is reversed, reading starts elsewhere after growth,
// 0xFF looks like the end, nothing is released, and an array may have no known end.
#include <limits.h>

#include <sstream>
#include <strstream>

#include "../buffers.h"
#include "../fail_allocation.h"

static bool traced;

void *operator new[](std::size_t bytes) FAIL_ALLOCATION_MAY_THROW {
  if (traced) trace("%u", static_cast<unsigned>(bytes));
  return operator new(bytes);
}
void operator delete[](void *block) FAIL_ALLOCATION_NOTHROW {
  if (traced && block) trace("free");
  operator delete(block);
}

namespace {

const std::ios_base::seekdir beg = std::ios_base::beg, cur = std::ios_base::cur, end = std::ios_base::end;
const int in = std::ios_base::in, out = std::ios_base::out, app = std::ios_base::app;

// A derived object, whose areas follow the rule.
class derived : public std::stringbuf {
public:
  explicit derived(int mode) : std::stringbuf(mode) {}
  derived(const std::string &text, int mode) : std::stringbuf(text, mode) {}
  int room() const { return static_cast<int>(epptr() - pptr()); }
  const char *block() const { return pbase(); }
  char *take_block() {
    char *const taken = pbase();
    setp(0, 0), setg(0, 0, 0);
    return taken;
  }
  void write_to(char *array, int n) { setp(array, array + n); }
  using std::stringbuf::overflow;
};

// Characters, C strings and blocks to be written, or texts to be set, and what is taken and given back for each.
template <class Buffer> void sizes() {
  static const struct {
    char how;
    int n;
    const char *blocks;
  } rows[] = {{'c', 1, "64"},         {'b', 63, ""},
              {'c', 1, "128 free"},   {'b', 130, "192 free 256 free"},
              {'t', 125, "320 free"}, {'b', 135, "384 free 448 free 512 free"},
              {'s', 130, ""},         {'s', 0, "free"},
              {'s', 130, "192"},      {'s', 192, ""},
              {'s', 193, "free 256"}, {'c', 1, ""}};
  for (int mode = out; mode <= (out | in); mode += in) {
    Buffer b(mode);
    std::ostream s(&b);
    for (unsigned i = 0; i < sizeof rows / sizeof *rows; ++i) {
      const std::string text(rows[i].n, static_cast<char>('a' + i));
      traced = true;
      if (rows[i].how == 'c') s << text[0];
      if (rows[i].how == 't') s << text.c_str();
      if (rows[i].how == 'b') s << text;
      if (rows[i].how == 's') b.str(text);
      CHECK_TRACE(rows[i].blocks);
      traced = false;
    }
  }
}

struct writing {
  std::stringstream s;
  std::string text;
  writing() : text(30, 'x') { s.exceptions(std::ios_base::badbit); }
  void run() {
    try {
      for (int i = 0; i < 9; ++i) s << text << i << '.';
    } catch (const std::ios_base::failure &) { throw std::bad_alloc(); }
    s.str(text + text + text);
    std::istringstream one(s.str());
    std::ostringstream to(s.str());
    const std::stringstream both(s.str());
    std::stringbuf b(s.str());
    CHECK(one.str() == text + text + text && to.str() == one.str() && both.str() == b.str() && b.str() == to.str());
  }
  void check(bool) {
    s.clear(), s.exceptions(std::ios_base::goodbit);
    const std::string all = s.str();
    for (unsigned i = 0; i < all.size() && all.size() != 90; ++i)
      CHECK(all[i] == (i % 32 == 30 ? char('0' + i / 32) : i % 32 == 31 ? '.' : 'x'));
    s.seekp(0, end), s.clear();
    CHECK(s << "end" && s.str() == all + "end");
  }
};

void strings() {
  derived b("123456789", out), appending("abc", out | app), at_end("abc", out | std::ios_base::ate);
  const char *const block = b.block();
  b.str("ab");
  CHECK(b.block() == block && b.room() == 2);
  b.str(std::string(64, 'x'));  // which fill the block
  CHECK(b.block() == block && (b.str(""), !b.block()) && b.str() == "");
  CHECK(appending.sputc('d') == 'd' && appending.str() == "abcd" && at_end.sputc('d') == 'd' && at_end.str() == "dbc");
  // Called with room left, overflow makes the area longer by a null character.
  derived odd("abcdQ", in | out);
  odd.str("abcd");
  CHECK(odd.overflow('x') == 'x' && odd.sputn("yz", 2) == 2 && odd.pubseekpos(3, in) == 3);
  CHECK(odd.pubseekoff(0, end, out) == 5 && odd.str() == std::string("xyzd\0", 5) && odd.pubseekoff(1, cur) == -1);
  CHECK(odd.pubseekoff(1, beg) == 1 && odd.sgetc() == 'y' && odd.room() == 4);
  // At the end of its room, it makes a block for what was written; what was read of the old one is forgotten.
  derived smaller(std::string(191, 't'), in | out);
  CHECK(smaller.pubseekpos(191) == 191 && smaller.sputc('u') == 'u');
  CHECK(smaller.pubseekpos(0, out) == 0 && smaller.overflow('v') == 'v' && smaller.sgetc() == -1);
  // The block belongs to whoever has the areas; a move does not cut what was written into an array of the program's.
  char array[] = "....";
  {
    derived taken("abcdef", in | out);
    char *const first = taken.take_block();
    CHECK(memcmp(first, "abcdef", 6) == 0 && taken.str() == "" && taken.sputn("xyz", 3) == 3 && taken.str() == "xyz");
    delete[] first, delete[] taken.take_block();
    taken.write_to(array, 4);
    CHECK(taken.sputn("1234", 4) == 4 && taken.pubseekpos(1, out) == 1 && taken.str() == "1234");
    CHECK(taken.pubseekoff(0, end, out) == 4 && taken.sputn("56789", 5) == 5);
    CHECK(taken.block() != array && taken.str() == "123456789");  // moves to a block
    taken.write_to(array, 4);
  }
  CHECK(memcmp(array, "1234", 4) == 0);
}

char arena[4096];
bool refuse, throws;
int arena_used;

void *take(size_t n) {
  trace("+%u", static_cast<unsigned>(n));
  if (throws) throw 7;
  arena_used += static_cast<int>(n);
  return refuse ? 0 : arena + arena_used - n;
}
void give(void *p) { trace("-%d", static_cast<int>(static_cast<char *>(p) - arena)); }
void give_back(void *p) {
  trace("-");
  std::strstreambuf::default_free(p);
}

class probe : public std::strstreambuf {
public:
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
  CHECK(b.sputn("0123456789", 10) == 10 && b.room() == 0 && b.sbumpc() == '0' && b.sbumpc() == '1');
  CHECK(b.sbumpc() == '2' && b.sputn("abcdef", 6) == 6 && b.at() == 3);
  CHECK_TRACE("+16");
  CHECK(b.sputc('g') == 'g' && b.at() == 7 && b.sgetc() == '7' && b.pcount() == 17);  // 7 of 10 were not read
  CHECK(memcmp(b.str(), "0123456789abcdefg", 17) == 0 && b.sputn("0123456789abcde", 15) == 15);
  CHECK_TRACE("+32 -0");
  refuse = true;
  CHECK_INT(b.sputc('x'), -1);
  throws = true;
  try {
    b.sputc('x'), CHECK(!"nothing was thrown");
  } catch (int) {}
  refuse = throws = false;
  CHECK(b.pcount() == 32 && b.sputn("xy", 2) == 2);
  CHECK_TRACE("+48 +48 +48 -16");
  // A function to release alone sees every array that is left.
  probe released(0, give_back), own(take, 0);
  for (int i = 0; i < 33; ++i) CHECK_INT(released.sputc('x'), 'x');
  give_back(released.str());
  CHECK_INT(own.sputc('x'), 'x');
  CHECK_TRACE("- - - +16");

  std::ostrstream s;
  s << "abc";
  s.freeze(false);  // reversed: this forbids
  CHECK((s << 'd') && s.pcount() == 3);
  s.clear(), s.freeze(true);
  CHECK((s << 'd') && s.pcount() == 4 && memcmp(s.str(), "abcd", 4) == 0);
  CHECK((s << "0123456789012345") && s.pcount() == 20 && memcmp(s.str(), "abcd0123", 8) == 0);  // str() freezes nothing
  delete[] s.str();
}

void arrays() {
  char array[] = "0123456789", text[20] = "12 34";
  const char signs[] = {'\xFF', '\x80', 'a'};
  unsigned char bytes[3] = {1, 2, 0};
  probe b(signs, 3), given(array, 4, array);
  CHECK(b.underflow() == -1 && b.sbumpc() == 0xFF && b.underflow() == -128);  // straight from the area 0xFF is one
  CHECK(b.sputbackc('x') == -1 && b.sungetc() == 0xFF && b.sungetc() == -1 && b.overflow(-1) == 0);
  given.freeze(false);
  CHECK(b.sputc('x') == -1 && given.sputn("01235", 5) == 4 && given.sputc('5') == -1);
  std::strstreambuf u(bytes, 2, bytes + 1);
  CHECK(u.sputn("xyz", 3) == 2 && u.sgetn(reinterpret_cast<char *>(bytes), 1) == 1);

  std::istrstream whole(text), part(text, 4);
  int i = 0, k = 0;
  CHECK(whole >> i >> i && part >> k >> k && i == 34 && k == 3 && whole.eof() && part.eof() && whole.str() == text);
  // seekg never changes the state, and does nothing to one that has failed.
  CHECK(part.seekg(0).eof() && part.rdbuf()->sgetc() == '1' && part.seekg(9).eof());
  CHECK(part.seekg(-1, end).eof() && part.rdbuf()->sgetc() == '3' && part.seekg(9, beg).eof());
  part.clear(part.failbit);
  CHECK(part.seekg(0).rdstate() == part.failbit && part.rdbuf()->sgetc() == '3');
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
  // 0..5 readable, 6..9 to be written. The read position moves, also before the move fails.
  strcpy(array, "0123456789");
  probe p(array, 4, array + 6);
  CHECK(p.pubseekoff(2, beg, in) == 2 && p.pubseekoff(1, cur, in | out) == -1 && p.at() == 3);
  CHECK(p.pubseekoff(4, beg) == 4 && p.at() == 4 && p.room() == 0);
  CHECK(p.pubseekoff(5, beg) == -1 && p.at() == 5 && p.room() == 0);
  CHECK(p.pubseekoff(-1, end, out) == 3 && p.pubseekoff(-1, cur, out) == 2);
  CHECK(p.pubseekoff(INT_MAX, cur, in) == -1 && p.pubseekoff(0, std::ios_base::seekdir(7), in) == -1);
  CHECK(p.pubseekpos(6) == 6 && p.at() == 6 && p.room() == 2);  // too far to write, not to read
  CHECK(p.pubseekpos(7) == -1 && p.pubseekpos(5, out) == -1 && p.pubseekpos(-1) == -1 && p.pubseekpos(0, out) == 0);
  std::strstreambuf empty;
  CHECK(empty.pubseekpos(0) == -1 && empty.pubseekoff(0, end) == -1 && !empty.str() && !empty.pcount());
}

// An array without a known end is read no further than is asked for, and does not go round the end of memory.
struct edge : std::istrstream {
  edge(const char *text, bool low) : std::istrstream(before_nothing(text, low), -1) {}
};
void endless(bool low) {
  char text[64] = "", *const place = before_nothing("17........", low);
  static char five[] = "5";
  std::string one(40, '-'), two, three, line;
  int number = 0;
  double real = 0;
  edge first("two words ", low), second("a b", low), words("ab c ", low), lines("one\nb\n", low), part("abcdef", low),
      whole("  12 ", low), half("1.5 ", low);
  CHECK(first >> one && second >> two && words >> text >> three && whole >> number && half >> real);
  CHECK(one == "two" && two == "a" && strcmp(text, "ab") == 0 && three == "c" && number == 12 && real == 1.5);
  CHECK(std::getline(lines, line).getline(text, 64) && line == "one" && strcmp(text, "b") == 0);
  CHECK(part.ignore(1).get(text, 4).read(text + 4, 2) && strcmp(text, "bcd") == 0 && memcmp(text + 4, "ef", 2) == 0);
  CHECK(half.rdbuf()->in_avail() > 1000 && std::istrstream(five, -1).rdbuf()->in_avail() == INT_MAX);
  place[2] = 0;
  std::ostrstream appended(place, -1, out | app);
  CHECK(appended << "more" && memcmp(place, "17more", 6) == 0);
}

}  // namespace

int main() {
  strings();
  sizes<std::stringbuf>();
  sizes<derived>();
  CHECK(fail_each_allocation<writing>() >= 10);
  growing();
  arrays();
  endless(false);
  endless(true);
  return TEST_RESULT();
}

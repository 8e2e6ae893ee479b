// What input does on purpose in its own way, row by row, on a buffer of single characters (same.cpp compares all the
// others with that one): what was stored, the state, the count, and what is left. Then ties, sentries and iterators.
// test-variants: -O2 | -O2 -static
#include <limits.h>
#include <sys/mman.h>

#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <strstream>

#include "../buffers.h"
#include "../rows.h"

namespace {

std::string number(long double value) {  // of any type
  char text[40];
  sprintf(text, "%.20Lg", value);
  return text;
}

// `got` "b" badbit "e" eofbit "f" failbit, the count, and the rest.
std::string seen(const std::string &got, std::istream &in, scripted &buffer) {
  return got + " " + (in.bad() ? "b" : "") + (in.eof() ? "e" : "") + (in.rdstate() & std::ios::failbit ? "f" : "") +
         number(in.gcount()) + " " + buffer.rest();
}
// A row of data/input.
template <class T> std::string value(std::istream &in) {
  T v = static_cast<T>(77);
  in >> v;
  return number(v);
}
std::string taken(std::istream &in, std::string kind, int n) {
  char a[17] = "################";
  std::string text = "before";
  if (*kind.rbegin() == '=') kind.erase(kind.size() - 1), in.flags(in.skipws);
  in.width(kind == "word" || kind == "string" ? n : 0);
  if (kind == "short") return value<short>(in);
  if (kind == "unsigned_short") return value<unsigned short>(in);
  if (kind == "int") return value<int>(in);
  if (kind == "unsigned") return value<unsigned>(in);
  if (kind == "long_long") return value<long long>(in);
  if (kind == "unsigned_long_long") return value<unsigned long long>(in);
  if (kind == "bool") return value<bool>(in);
  if (kind == "double") return value<double>(in);
  if (kind == "string") return in >> text, text + number(in.width());
  if (kind == "word") return in >> a, a + number(in.width());
  kind == "get" ? in.get(a, n, '\n') : in.getline(a, n, '\n');
  CHECK(memchr(a + strlen(a) + 1, 0, 15 - strlen(a)) == 0);
  return a;
}
void table() {
  int count = 0;
  for (rows row(__FILE__, "data/input"); row.next(); ++count) {
    scripted buffer(row[2]);
    std::istream in(&buffer);
    const std::string got = taken(in, row[0], row.number(1));
    CHECK_TEXT(seen(got, in, buffer).c_str(), row[3].c_str());
  }
  CHECK_INT(count, 63);
}

#define ROW(text, body, want)                            \
  do {                                                   \
    scripted buffer(std::string(text, sizeof text - 1)); \
    std::istream in(&buffer);                            \
    std::string got;                                     \
    char a[9] = "........", c = '.';                     \
    body;                                                \
    (void)a, (void)c;                                    \
    CHECK_TEXT(seen(got, in, buffer).c_str(), want);     \
  } while (0)
void odd_rows() {
  ROW("ab", in >> c >> c >> c; got = c, "b f0 ");
  ROW("ab", in.setstate(in.eofbit); in.width(3); in >> a; got = a + number(in.width()), "0 ef0 ab");
  ROW("ab", in.setstate(in.eofbit); in.get(a, 4); got = a, " ef0 ab");
  ROW("ab", in.setstate(in.failbit); in.getline(a, 0); got = a, " f0 ab");
  ROW("a\xffz", in.ignore(9, -1), " e3 ");
  ROW("a\xffz", in.ignore(9, 0xFF), " 2 z");
  ROW("ab", in.ignore(0).ignore(-5), " 0 ab");
  ROW("  ", in >> std::ws; in >> std::ws, " e0 ");
  ROW("  x", in.setstate(in.failbit); in >> std::ws, " f0   x");
  ROW("a\xe9z", std::stringbuf to; in.get(to, '\xe9'); got = to.str(), "a 1 \xe9z");
  ROW("a  ", in.get(); in >> std::ws, " e1 ");
  ROW("ab", in.read(a, 0).read(a, -1), " 0 ab");
  ROW("ab", in.get(); in.ignore(9); in.unget(), " ef0 ");
  ROW("abc", got = number(in.readsome(a, 2)), "2 2 c");
  ROW(" ", std::istream::sentry s(in); got = s ? "in" : "out", "in 0 ");
  ROW(" x", std::istream::sentry s(in, true); got = s ? "in" : "out", "in 0  x");
  ROW(" x", in.setstate(in.eofbit); got = in.ipfx() ? "in" : "out", "out ef0  x");
  // In code that is small enough to have it inline.
  std::istringstream high("\xff\xfe");
  CHECK(high.peek() == 0xFF && high.gcount() == 0 && high.get() == 0xFF && high.gcount() == 1 && high.get() == 0xFE);
}

// istrstream(text, -1): an array without a known end is read no further than is asked for. Behind these texts there is
// no memory.
struct edge : std::istrstream {
  explicit edge(const char *text) : std::istrstream(before_nothing(text), -1) {}
  static char *before_nothing(const char *text) {
    const size_t page = 4096, n = strlen(text);
    char *const at = static_cast<char *>(mmap(reinterpret_cast<void *>(0x20000000), 2 * page, PROT_READ | PROT_WRITE,
                                              MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(at + page, page, PROT_NONE);
    return static_cast<char *>(memcpy(at + page - n, text, n));
  }
};
void endless_arrays() {
  char text[64] = "";
  std::string one(40, '-'), two, three, line;
  int number = 0;
  double real = 0;
  edge first("two words "), second("a b"), words("ab c "), lines("one\nb\n"), part("abcdef"), whole("  12 "),
      half("1.5 ");
  first >> one, second >> two, words >> text >> three, whole >> number, half >> real;
  CHECK(one == "two" && two == "a" && strcmp(text, "ab") == 0 && three == "c" && number == 12 && real == 1.5);
  std::getline(lines, line).getline(text, 64);
  CHECK(line == "one" && strcmp(text, "b") == 0);
  part.ignore(1).get(text, 4).read(text + 4, 2);
  CHECK(part.good() && strcmp(text, "bcd") == 0 && memcmp(text + 4, "ef", 2) == 0);
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
  CHECK(in.gcount() == INT_MAX && in.rdstate() == std::ios::eofbit);
  in.clear(), in.rdbuf(&ignored), in.ignore(INT_MAX, 'x');
  CHECK(in.gcount() == INT_MAX && in.rdstate() == std::ios::eofbit);
  in.clear(), in.rdbuf(&wrapped), in >> &to;
  CHECK(in.rdstate() == std::ios::eofbit);
}

// Words and lines of each length up to some blocks, in capacities as appending leaves them; a copy keeps its text.
void lengths() {
  for (int n = 1; n < 1600; n += n < 100 || (n > 505 && n < 520) ? 1 : 83)
    for (int how = 0; how < 12; ++how) {
      const int kind = how % 6;
      const std::string text(n, 'x'), all = text + (how % 2 ? "\n" : "\nyyyyyyyyyyyyyyyyyyyy");
      scripted one(all);
      std::istringstream whole(all);
      std::istream in(kind < 2 ? static_cast<std::streambuf *>(&one) : whole.rdbuf());
      const std::string before(how % 2 ? n % 90 : n - 1, 'b');
      std::string got = before, kept(kind < 4 ? got : "");
      if (kind >= 4) got[0u] = 'B';
      (kind % 3 != 0) == (how < 6) ? void(in >> got) : void(std::getline(in, got));
      CHECK(got == text && got.c_str()[n] == 0 && (kind >= 4 || kept == before));
      CHECK(in.rdstate() == 0 && got.capacity() > got.size());
    }
}

// A program's table decides what is white space, also for the null character, and its facet what ends a line.
struct newline : std::ctype<char> {
  explicit newline(const mask *table) : std::ctype<char>(table) {}
  virtual char do_widen(char c) const { return c == '\n' ? '|' : c; }
};
void own_classes() {
  static std::ctype_base::mask table[256];
  table[int('_')] = table[0] = std::ctype_base::space;
  std::istringstream in(std::string("__a_ b\0c|d|e|f", 14));
  in.imbue(std::locale(std::locale::classic(), new newline(table)));
  char text[9];
  std::string string;
  in >> text >> string;
  CHECK(strcmp(text, "a") == 0 && string == " b" && in.peek() == 0);
  in >> text;
  CHECK_TEXT(text, "c|d|e|f");
  in.clear(), in.seekg(8);
  std::getline(in, string);
  in.getline(text, 9);
  CHECK(string == "" && strcmp(text, "d") == 0);
  in.seekg(7), in.get(text, 9), in.get();
  CHECK_TEXT(text, "c");
  std::stringbuf to;
  in.get(to);
  CHECK(to.str() == "d");
  in.clear(), in.seekg(5), in >> text;
  CHECK(strcmp(text, "b") == 0 && in.peek() == 0);
  scripted out;
  std::ostream ends(&out);
  ends.imbue(in.getloc());
  ends << "x" << std::endl;
  CHECK(out.taken() == "x|");
}

// What is tied is flushed once an operation, unless nothing is read; circles come to an end; files that hold nothing
// back need no call, and others, with their own ties, are written out.
void ties() {
  scripted flushed;
  std::ostream tied(&flushed);
  std::istringstream in("1 2 word\nline\n xyz");
  in.tie(&tied);
  int n;
  std::string text;
  char c;
  in >> n, in.get(), in >> std::ws >> n >> text, std::getline(in, text), in.get(c), in.peek(), in.ignore(), in.unget();
  CHECK_INT(flushed.calls[syncs], 10);
  in.setstate(in.eofbit), in.get();
  CHECK_INT(flushed.calls[syncs], 10);

  scripted one, two;
  std::iostream a(&one), b(&two);
  a.tie(&a), a.get(), a.clear();
  CHECK_INT(one.calls[syncs], 1);
  a << 1 << std::flush;
  a.tie(&b), b.tie(&a);
  one.calls[syncs] = two.calls[syncs] = 0;
  a.get(), a.clear();
  CHECK(one.calls[syncs] == 1 && two.calls[syncs] >= 1);
  b.flush();
  one.let_fail(syncs, 0, false);
  a.exceptions(a.badbit);
  for (int i = 0; i < 2; ++i) {
    int failures = 0;
    a.exceptions(a.goodbit), a.clear(), a.exceptions(a.badbit);
    try {
      b.flush();
    } catch (const std::ios_base::failure &) {
      failures = 1;
    }
    CHECK_INT(failures, 1);
  }

  const own_file path("input");
  scripted outer;
  std::ostream before(&outer);
  std::ofstream file(path.name());
  for (int how = 0; how < 8; ++how) {
    std::istringstream source(" 12 word\nx");
    source.tie(&file);
    file.tie(how % 2 ? &before : 0);
    file << how;
    for (int again = 0; again < 2; ++again) {
      const int syncs_before = outer.calls[syncs];
      switch (how / 2) {
        case 0: source >> n; break;
        case 1: source >> text; break;
        case 2: source.get(); break;
        case 3: std::getline(source, text);
      }
      CHECK_INT(path.content().size(), how + 1);
      CHECK(how % 2 == 0 || outer.calls[syncs] > syncs_before);
    }
  }
  file.setstate(file.eofbit);
  in.clear(), in.tie(&file), in.get();
  CHECK_INT(file.rdstate(), file.eofbit | file.failbit);
  // A file that was read ahead is set to where the reader is, for those who share it.
  path.hold("0123456789");
  FILE *const shared = fopen(path.name(), "r+");
  {
    std::filebuf ahead(shared);
    std::ostream reader(&ahead);
    in.clear(), in.seekg(0), in.tie(&reader);
    CHECK(ahead.sbumpc() == '0' && lseek(fileno(shared), 0, SEEK_CUR) == 10);
    in >> n;
    CHECK_INT(lseek(fileno(shared), 0, SEEK_CUR), 1);
    in.tie(0);
  }
}

void positions() {
  scripted buffer("abc");
  std::iostream s(&buffer);
  s.setstate(s.eofbit);
  CHECK(std::streamoff(s.tellg()) == 7 && buffer.asked == s.in);
  s.seekg(std::streampos(5)).seekg(5, s.end);
  CHECK(buffer.asked == s.in && s.rdstate() == s.eofbit);
  CHECK(std::streamoff(s.tellp()) == 7 && buffer.asked == s.out);
  s.seekp(std::streampos(5));
  CHECK(buffer.asked == s.out);
  s.seekp(1, s.cur);
  CHECK(buffer.asked == s.out);
  buffer.let_fail(seeks, 0, false);
  s.seekg(0);
  CHECK_INT(s.rdstate(), s.eofbit | s.failbit);
  const int calls = buffer.calls[seeks];
  s.seekg(0), s.seekp(0);
  CHECK(s.tellg() == std::streampos(-1) && s.tellp() == std::streampos(-1) && buffer.calls[seeks] == calls);
  s.clear(), s.seekp(0);
  CHECK_INT(s.rdstate(), s.failbit);
  buffer.let_fail(syncs, 0, false);
  s.clear();
  CHECK(s.sync() == -1 && s.bad());
  std::istream none(0);
  CHECK_INT(none.sync(), -1);
}

void iterators() {
  std::istringstream numbers("1 2 3 x"), words("alpha beta");
  int sum = 0;
  for (std::istream_iterator<int> at(numbers), end; at != end; ++at) sum += *at;
  CHECK(sum == 6 && numbers.rdstate() == numbers.failbit);
  std::istream_iterator<std::string> at(words);
  CHECK(at->size() == 5 && *at++ == "alpha" && *at == "beta" && at == std::istream_iterator<std::string>(at));
  CHECK(++at == std::istream_iterator<std::string>());

  // Into a buffer that takes no more, or has none: the rest is dropped.
  for (int step = 0; step <= 9; step += 3) {
    scripted from("abcdefghi", step), to, thrower("abcdef");
    to.most = 5;
    CHECK(std::copy(std::istreambuf_iterator<char>(&from), std::istreambuf_iterator<char>(),
                    std::ostreambuf_iterator<char>(&to))
              .failed());
    CHECK(to.taken() == "abcde" && from.rest() == "" && to.calls[overflows] == 6);
    thrower.let_fail(underflows, 3, true);
    std::string kept = "kept";
    try {
      kept.assign(std::istreambuf_iterator<char>(&thrower), std::istreambuf_iterator<char>());
    } catch (const thrown &) {
      kept += '!';
    }
    CHECK(kept == "kept!" && thrower.rest() == "def");
  }
  // A buffer into itself: each character that is read makes one more, until the end is met.
  std::stringbuf circle("abc", std::ios::in | std::ios::out | std::ios::app);
  std::istreambuf_iterator<char> first(&circle), end;
  std::ostreambuf_iterator<char> out(&circle);
  for (int i = 0; i < 5 && first != end; ++i) *out++ = *first++;
  CHECK(circle.str() == "abcabcab");
}

}  // namespace

int main() {
  table();
  odd_rows();
  counts();
  endless_arrays();
  lengths();
  own_classes();
  ties();
  positions();
  iterators();
  return TEST_RESULT();
}

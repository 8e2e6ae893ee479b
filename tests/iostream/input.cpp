// What input does on purpose in its own way, row by row, on a buffer of single characters (same.cpp compares all the
// others with that one): what was stored, the state, the count, and what is left. Then ties, sentries and iterators.
// test-variants: -O0 | -O2 | -O2 -static
#include <limits.h>

#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

#include "../buffers.h"
#include "../harness.h"

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
#define ROW(text, body, want)                                 \
  do {                                                        \
    scripted buffer(std::string(text, sizeof text - 1));      \
    std::istream in(&buffer);                                 \
    std::string got;                                          \
    char a[16];                                               \
    memset(a, '#', sizeof a);                                 \
    body;                                                     \
    CHECK_TEXT(seen(got, in, buffer).c_str(), want);          \
    CHECK(memchr(a + strlen(a) + 1, 0, 15 - strlen(a)) == 0); \
  } while (0)
// An extraction of T, which held 77; an array, n of it, up to a new line.
#define READ(T, text, want) ROW(text, T v = static_cast<T>(77); in >> v; got = number(v); a[15] = 0, want)
#define BASED(T, text, want) \
  ROW(text, T v = static_cast<T>(77); in.flags(in.skipws); in >> v; got = number(v); a[15] = 0, want)
#define GET(text, n, want) ROW(text, in.get(a, n, '\n'); got = a, want)
#define LINE(text, n, want) ROW(text, in.getline(a, n, '\n'); got = a, want)
#define WORD(text, n, want) ROW(text, in.width(n); in >> a; got = a + number(in.width()), want)
#define STRING(text, n, want) ROW(text, in.width(n); in >> got; got += number(in.width()); a[15] = 0, want)

void numbers() {
  READ(int, " 42 x", "42 0  x");
  READ(int, "2147483648;", "2147483647 f0 ;");
  READ(int, "-2147483648;", "-2147483648 0 ;");
  READ(int, "x", "0 f0 x");
  READ(int, "  ", "0 ef0 ");
  READ(int, "- 12 ", "-12 0  ");
  READ(short, "40000 ", "-25536 f0  ");
  READ(short, "-32768", "-32768 e0 ");
  READ(unsigned short, "-1 ", "65535 0  ");
  READ(unsigned short, "65536 ", "65535 f0  ");
  READ(unsigned, "-1 ", "4294967295 0  ");
  READ(unsigned, "4294967296 ", "4294967295 f0  ");
  READ(bool, "2 ", "1 f0  ");
  BASED(int, "0x1A ", "26 0  ");
  BASED(int, "012 ", "10 0  ");
  BASED(int, "12 ", "0 f0 12 ");
  READ(long long, "-9223372036854775808 ", "-9223372036854775808 0  ");
  READ(long long, "9223372036854775807", "9223372036854775807 e0 ");
  READ(long long, "9223372036854775808 ", "9223372036854775807 f0  ");
  READ(long long, "+ 5,", "5 0 ,");
  READ(long long, "99999999999999999999999 ", "9223372036854775807 f0  ");
  READ(long long, "-", "0 ef0 ");
  READ(unsigned long long, "18446744073709551615 ", "18446744073709551615 0  ");
  READ(unsigned long long, "18446744073709551616 ", "18446744073709551615 f0  ");
  READ(unsigned long long, "-1 ", "18446744073709551615 0  ");
  READ(unsigned long long, "-9223372036854775809 ", "18446744073709551615 f0  ");
  BASED(unsigned long long, "0xffffffffffffffff1 ", "18446744073709551615 f0 1 ");
  BASED(long long, "0x ", "0 f0  ");
  BASED(long long, "0 ", "0 0  ");
  BASED(long long, "019 ", "1 0 9 ");
  READ(double, "abc", "77 f0 abc");
  READ(double, "-1e3", "-1000 e0 ");
  READ(double, "1e ", "1 0  ");
}

void texts() {
  GET("ab\nc", 10, "ab 2 \nc");
  GET("ab", 3, "ab 2 ");
  GET("ab", 4, "ab e2 ");
  GET("\nab", 4, " f0 \nab");
  GET("", 4, " ef0 ");
  GET("ab", 1, " f0 ab");
  GET("ab", 0, " f0 ab");
  GET("abcdef", INT_MIN, " f0 abcdef");
  LINE("ab\nc", 10, "ab 3 c");
  LINE("abcdef", 4, "abc f3 def");
  LINE("abc\nd", 4, "abc 4 d");
  LINE("abc", 4, "abc e3 ");
  LINE("", 4, " ef0 ");
  LINE("ab", 1, " f0 ab");
  LINE("\nb", 1, " 1 b");
  LINE("ab", 0, " f0 ab");
  LINE("ab", -1, " f0 ab");
  WORD("  abc def", 0, "abc0 0  def");
  WORD("abcdef", 4, "abc0 0 def");
  WORD("abc", 4, "abc0 0 ");
  WORD("abc", 5, "abc0 e0 ");
  WORD("abc", 1, "0 f0 abc");
  WORD("abc", -1, "abc0 e0 ");
  WORD("\0ab", 0, "0 f0 ab");
  WORD("a\0b", 0, "a0 0 b");
  WORD(" ", 0, "0 ef0 ");
  STRING("  abcdef gh", 3, "abc3 0 def gh");
  STRING("ab", 2, "ab2 0 ");
  STRING("ab", 0, "ab0 e0 ");
  STRING(" ", 0, "0 ef0 ");
  ROW("ab", char c = '.'; in >> c >> c >> c; got = c; a[15] = 0, "b f0 ");
  ROW("ab", in.setstate(in.eofbit); in.width(3); in >> a; got = a + number(in.width()), "0 ef0 ab");
  ROW("ab", in.setstate(in.eofbit); in.get(a, 4), " ef0 ab");
  ROW("ab", in.setstate(in.failbit); in.getline(a, 0), " f0 ab");
  ROW("a\xff"
      "b",
      in.ignore(9, -1);
      a[15] = 0, " e3 ");
  ROW("a\xff"
      "b",
      in.ignore(9, 0xFF);
      a[15] = 0, " 2 b");
  ROW("ab", in.ignore(0).ignore(-5); a[15] = 0, " 0 ab");
  ROW("  ", in >> std::ws; in >> std::ws; a[15] = 0, " e0 ");
  ROW("  x", in.setstate(in.failbit); in >> std::ws; a[15] = 0, " f0   x");
  ROW("a\xe9"
      "b",
      std::stringbuf to;
      in.get(to, '\xe9'); got = to.str(); a[15] = 0,
                                          "a 1 \xe9"
                                          "b");
  ROW("a  ", in.get(); in >> std::ws; a[15] = 0, " e1 ");
  ROW("ab", in.read(a, 0).read(a, -1); a[15] = 0, " 0 ab");
  ROW("ab", in.get(); in.ignore(9); in.unget(); a[15] = 0, " ef0 ");
  ROW("abc", got = number(in.readsome(a, 2)); a[2] = 0; memset(a + 3, '#', 13), "2 2 c");
  ROW(" x", std::istream::sentry s(in); got = s ? "in" : "out"; a[15] = 0, "in 0 x");
  ROW(" ", std::istream::sentry s(in); got = s ? "in" : "out"; a[15] = 0, "in 0 ");
  ROW(" x", std::istream::sentry s(in, true); got = s ? "in" : "out"; a[15] = 0, "in 0  x");
  ROW(" x", in.setstate(in.eofbit); got = in.ipfx() ? "in" : "out"; a[15] = 0, "out ef0  x");
  std::istringstream high("\xff\xfe");
  CHECK(high.peek() == 0xFF && high.gcount() == 0 && high.get() == 0xFF && high.gcount() == 1 && high.get() == 0xFE);
}

// No limit counts further than a streamsize goes.
struct endless : std::streambuf {
  char text[1 << 20];
  int left;
  endless() : left(2050) { memset(text, 'x', sizeof text); }
  virtual int underflow() { return left-- == 0 ? -1 : (setg(text, text, text + sizeof text), 'x'); }
};
void long_counts() {
  static endless text;
  std::istream in(&text);
  in.ignore(INT_MAX);
  CHECK(in.gcount() == INT_MAX && in.eof());
}

// Words and lines of each length up to some blocks, in capacities as appending leaves them; a copy keeps its text.
void lengths() {
  for (int n = 1; n < 1600; n += n < 100 || (n > 505 && n < 520) ? 1 : 83)
    for (int how = 0; how < 6; ++how) {
      const std::string text(n, 'x'), all = text + (how % 2 ? "\n" : "\nyyyyyyyyyyyyyyyyyyyy");
      scripted one(all);
      std::istringstream whole(all);
      std::istream in(how < 2 ? static_cast<std::streambuf *>(&one) : whole.rdbuf());
      const std::string before(how % 2 ? n % 90 : n - 1, 'b');
      std::string got = before, kept(how < 4 ? got : "");
      if (how >= 4) got[0u] = 'B';
      if (how % 3)
        in >> got;
      else
        std::getline(in, got);
      CHECK(got == text && got.c_str()[n] == 0 && (how >= 4 || kept == before));
      CHECK(in.rdstate() == 0 && got.capacity() > got.size());
      if (how < 2) CHECK_INT(got.capacity(), (n & ~31) + 32);
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

// A file that has grown is read on, by each means.
void growing() {
  const own_file path("input");
  std::ifstream in(path.name());
  std::ofstream out(path.name(), std::ios::app);
  std::string text;
  char block[9];
  for (int how = 0; how < 12; ++how) {
    out << "one\n" << std::flush;
    in.clear();
    switch (how % 4) {
      case 0: CHECK(in.read(block, 4)); break;
      case 1: CHECK(std::getline(in, text) && text == "one"); break;
      case 2: CHECK(in >> text && text == "one" && in.get() == '\n'); break;
      case 3: CHECK(in.get() == 'o' && in.ignore(3)); break;
    }
    CHECK(in.get() == -1);
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
  numbers();
  texts();
  long_counts();
  lengths();
  own_classes();
  ties();
  growing();
  positions();
  iterators();
  return TEST_RESULT();
}

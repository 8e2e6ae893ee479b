// Formatted input: which numbers, characters and C strings are read, what stays, and the states that result.
// test-variants: -O0 | -O2 | -O2 -static

#include <limits.h>

#include <fstream>
#include <sstream>

#include "input_buffers.h"

// The value, the state and what is left, over buffers that show one character, some, and all at once.
template <class T> void check_number(const char *text, T want, int state, const char *rest, int flags, int line) {
  for (int piece = 0; piece <= 40; piece = piece ? piece * 3 : 1) {
    slow_buffer one(text);
    piece_buffer some(text, piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    in.setf(flags, std::ios_base::basefield);
    T value = static_cast<T>(77);
    in >> value;
    test_report(value == want, __FILE__, line, text);
    test_report_int(in.rdstate(), state, __FILE__, line, text);
    test_report_text((piece ? some.rest() : one.rest()).c_str(), rest, __FILE__, line, text);
    CHECK_INT(in.gcount(), 0);
  }
}
#define CHECK_NUMBER(T, text, want, state, rest) check_number<T>(text, want, state, rest, std::ios_base::dec, __LINE__)
#define CHECK_PREFIXED(T, text, want, state, rest) check_number<T>(text, want, state, rest, 0, __LINE__)

static void test_integers() {
  CHECK_NUMBER(int, " 42 x", 42, good, " x");
  CHECK_NUMBER(int, "42", 42, eof, "");
  CHECK_NUMBER(int, "-2147483648;", INT_MIN, good, ";");
  CHECK_NUMBER(int, "2147483648;", INT_MAX, fail, ";");
  CHECK_NUMBER(int, "x", 0, fail, "x");
  CHECK_NUMBER(int, "  ", 0, eof | fail, "");
  CHECK_NUMBER(int, "- 12 ", -12, good, " ");
  CHECK_NUMBER(short, "40000 ", static_cast<short>(40000), fail, " ");
  CHECK_NUMBER(short, "-32768", -32768, eof, "");
  CHECK_NUMBER(unsigned short, "40000 ", 40000, good, " ");
  CHECK_NUMBER(unsigned short, "-1 ", 0xFFFF, good, " ");
  CHECK_NUMBER(unsigned int, "-1 ", 0xFFFFFFFFu, good, " ");
  CHECK_NUMBER(long, "7e5", 7, good, "e5");
  CHECK_NUMBER(unsigned long, "4294967296 ", 0xFFFFFFFFul, fail, " ");
  CHECK_NUMBER(bool, "1 ", true, good, " ");
  CHECK_NUMBER(bool, "2 ", true, fail, " ");  // left alone
  CHECK_PREFIXED(int, "0x1A ", 26, good, " ");
  CHECK_PREFIXED(int, "012 ", 10, good, " ");
}

// Our own.
static void test_long_long() {
  CHECK_NUMBER(long long, "-9223372036854775808 ", LLONG_MIN, good, " ");
  CHECK_NUMBER(long long, "9223372036854775807", LLONG_MAX, eof, "");
  CHECK_NUMBER(long long, "9223372036854775808 ", LLONG_MAX, fail, " ");
  CHECK_NUMBER(long long, "+ 5,", 5, good, ",");
  CHECK_NUMBER(long long, "99999999999999999999999 ", LLONG_MAX, fail, " ");  // decimal digits are read to their end
  CHECK_NUMBER(long long, "-", 0, eof | fail, "");
  CHECK_NUMBER(unsigned long long, "18446744073709551615 ", ULLONG_MAX, good, " ");
  CHECK_NUMBER(unsigned long long, "-1 ", ULLONG_MAX, good, " ");
  CHECK_NUMBER(unsigned long long, "-9223372036854775809 ", ULLONG_MAX, fail, " ");
  CHECK_PREFIXED(long long, "0x7fffffffffffffff ", LLONG_MAX, good, " ");
  CHECK_PREFIXED(long long, "0x ", 0, fail, " ");
  CHECK_PREFIXED(long long, "0 ", 0, good, " ");
  CHECK_PREFIXED(long long, "019 ", 1, good, "9 ");
}

static void test_reals() {
  CHECK_NUMBER(double, " 3.25x", 3.25, good, "x");
  CHECK_NUMBER(double, "-1e3", -1000.0, eof, "");
  CHECK_NUMBER(float, ".5 ", 0.5f, good, " ");
  CHECK_NUMBER(long double, "1e-3 ", 1e-3L, good, " ");
  CHECK_NUMBER(double, "abc", 77, fail, "abc");  // left alone
  void *p = 0;
  slow pointer("0x1f ");
  pointer.in >> p;
  CHECK(p == reinterpret_cast<void *>(0x1f));
}

// Numbers of any length, of which most digits may not matter, through buffers of any kind.
template <class T> void check_long(std::istream &in, T want, int state, int line) {
  T value = T();
  in >> value;
  test_report(value == want, __FILE__, line, "value");
  test_report_int(in.rdstate(), state, __FILE__, line, "state");
  in.clear();
  test_report_int(in.get(), '|', __FILE__, line, "what follows");
}
template <class T> void check_long(const std::string &text, T want, int state, int line) {
  slow one(text + "|");
  check_long(one.in, want, state, line);
  over_text<std::stringbuf> string(text + "|");
  check_long(string.in, want, state, line);
  char path[64];
  sprintf(path, "extraction.%d.tmp", static_cast<int>(getpid()));
  std::fstream file(path, std::ios_base::in | std::ios_base::out | std::ios_base::trunc);
  remove(path);
  file << text << '|';
  file.seekg(0);
  check_long(file, want, state, line);
}
static void test_long_numbers() {
  const std::string zeros(5000, '0'), nines(5000, '9');
  check_long("-" + zeros + "42", -42, good, __LINE__);
  check_long(nines, INT_MAX, fail, __LINE__);
  check_long("-" + nines, INT_MIN, fail, __LINE__);
  check_long(nines, ULONG_MAX, fail, __LINE__);
  check_long(zeros + "123456789012", 123456789012ll, good, __LINE__);
  check_long("1" + zeros + "e-5000", 1.0, good, __LINE__);
  check_long("." + zeros + "25e5001", 2.5f, good, __LINE__);
  check_long(nines + "." + nines + "e-5000", 1.0, good, __LINE__);
  check_long("9007199254740993." + zeros + "1", 9007199254740994.0, good, __LINE__);  // above the middle by a little
  check_long("9007199254740993." + zeros, 9007199254740992.0, good, __LINE__);
  check_long("1." + zeros + "e" + zeros + "1", 10.0L, good, __LINE__);
}

static void test_characters() {
  slow text(" ab");
  char c = '.';
  signed char s = '.';
  unsigned char u = '.';
  text.in >> c >> s;
  CHECK_INT(c, 'a');
  CHECK_INT(s, 'b');
  text.in >> u;
  CHECK_INT(u, '.');
  CHECK_INT(text.in.rdstate(), fail);  // the end is no news here
  slow blank("  ");
  blank.in.unsetf(std::ios_base::skipws);
  blank.in >> c;
  CHECK_INT(c, ' ');
}

static void check_word(const char *text, unsigned int n, int width, const char *want, int state, const char *rest,
                       int line) {
  for (int piece = 0; piece <= 40; piece = piece ? piece * 3 : 1) {
    const std::string all(text, n);
    slow_buffer one(all);
    piece_buffer some(all, piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    char word[16];
    memset(word, '#', sizeof word);
    in.width(width);
    in >> word;
    test_report_text(word, want, __FILE__, line, text);
    test_report_int(word[strlen(want) + 1], '#', __FILE__, line, text);
    test_report_int(in.rdstate(), state, __FILE__, line, text);
    test_report_text((piece ? some.rest() : one.rest()).c_str(), rest, __FILE__, line, text);
    CHECK_INT(in.width(), 0);
  }
}
#define CHECK_WORD(text, width, want, state, rest) check_word(text, sizeof text - 1, width, want, state, rest, __LINE__)

static void test_words() {
  CHECK_WORD("  abc def", 0, "abc", good, " def");
  CHECK_WORD("abcdef", 4, "abc", good, "def");
  CHECK_WORD("abc", 4, "abc", good, "");  // full: the end is not met
  CHECK_WORD("abc", 5, "abc", eof, "");
  CHECK_WORD("abc", 1, "", fail, "abc");
  CHECK_WORD("abc", -1, "abc", eof, "");
  CHECK_WORD("\0ab", 0, "", fail, "ab");
  CHECK_WORD("a\0b", 0, "a", good, "b");
  CHECK_WORD(" ", 0, "", eof | fail, "");

  // What is refused is made empty all the same.
  slow text("abc");
  text.in.setstate(eof);
  text.in.width(3);
  char word[4] = "xyz";
  text.in >> word;
  CHECK_TEXT(word, "");
  CHECK_INT(text.in.width(), 0);
  CHECK_INT(text.in.rdstate(), eof | fail);
}

int main() {
  test_integers();
  test_long_long();
  test_reals();
  test_long_numbers();
  test_characters();
  test_words();
  return TEST_RESULT();
}

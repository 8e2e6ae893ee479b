// Unformatted input: what is taken, counted, given back and left, and the states that result; what it writes into
// arrays.
// test-variants: -O0 | -O2

#include <limits.h>

#include <strstream>

#include "input_buffers.h"

static void test_get() {
  slow text(std::string("a\0\xff", 3));
  char c = '.';
  CHECK_INT(text.in.get(), 'a');
  CHECK_INT(text.in.gcount(), 1);
  CHECK_INT(text.in.get(), 0);
  text.in.get(c);
  CHECK_INT(c, '\xff');
  CHECK_INT(text.in.rdstate(), good);
  text.in.get(c);
  CHECK_INT(c, '\xff');
  CHECK_INT(text.in.gcount(), 0);
  CHECK_INT(text.in.rdstate(), eof | fail);
  text.in.clear(eof);
  CHECK_INT(text.in.get(), EOF);
  CHECK_INT(text.in.rdstate(), eof | fail);
}

typedef std::istream &(std::istream::*into_array)(char *, std::streamsize, char);
static const into_array get = &std::istream::get, getline_ = &std::istream::getline;

// One call over each kind of buffer; nothing is written behind the terminator.
static void check_array(into_array f, const char *text, int n, const char *want, int count, int state, const char *rest,
                        int line) {
  for (int piece = 0; piece <= 40; piece = piece ? piece * 3 : 1) {
    slow_buffer one(text);
    piece_buffer some(text, piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    char array[16];
    memset(array, '#', sizeof array);
    (in.*f)(array, n, '\n');
    test_report_text(array, want, __FILE__, line, text);
    test_report_int(array[strlen(want) + 1], '#', __FILE__, line, "behind the terminator");
    test_report_int(in.gcount(), count, __FILE__, line, text);
    test_report_int(in.rdstate(), state, __FILE__, line, text);
    test_report_text((piece ? some.rest() : one.rest()).c_str(), rest, __FILE__, line, text);
  }
}
#define CHECK_ARRAY(f, text, n, want, count, state, rest) check_array(f, text, n, want, count, state, rest, __LINE__)

static void test_arrays() {
  CHECK_ARRAY(get, "ab\nc", 10, "ab", 2, good, "\nc");
  CHECK_ARRAY(get, "abc", 3, "ab", 2, good, "c");
  CHECK_ARRAY(get, "ab", 3, "ab", 2, good, "");  // full: the end is not met
  CHECK_ARRAY(get, "ab", 4, "ab", 2, eof, "");
  CHECK_ARRAY(get, "\nab", 4, "", 0, fail, "\nab");
  CHECK_ARRAY(get, "", 4, "", 0, eof | fail, "");
  CHECK_ARRAY(get, "ab", 1, "", 0, fail, "ab");
  CHECK_ARRAY(get, "ab", 0, "", 0, fail, "ab");
  CHECK_ARRAY(get, "abcdef", -3, "", 0, fail, "abcdef");
  CHECK_ARRAY(get, "abcdef", INT_MIN, "", 0, fail, "abcdef");

  CHECK_ARRAY(getline_, "ab\nc", 10, "ab", 3, good, "c");
  CHECK_ARRAY(getline_, "abcdef", 4, "abc", 3, fail, "def");
  CHECK_ARRAY(getline_, "abc\nd", 4, "abc", 4, good, "d");  // the delimiter needs no place
  CHECK_ARRAY(getline_, "abc", 4, "abc", 3, eof, "");
  CHECK_ARRAY(getline_, "\nx", 4, "", 1, good, "x");
  CHECK_ARRAY(getline_, "", 4, "", 0, eof | fail, "");
  CHECK_ARRAY(getline_, "ab", 1, "", 0, fail, "ab");
  CHECK_ARRAY(getline_, "\nb", 1, "", 1, good, "b");
  CHECK_ARRAY(getline_, "ab", 0, "", 0, fail, "ab");
  CHECK_ARRAY(getline_, "ab", -1, "", 0, fail, "ab");

  // A stream that is not good: still an empty text.
  slow text("ab");
  char array[4] = "xyz";
  text.in.setstate(eof);
  text.in.get(array, 4);
  CHECK_TEXT(array, "");
  memcpy(array, "xyz", 4);
  text.in.getline(array, 0);
  CHECK_TEXT(array, "");
  text.in.clear();
  text.in.getline(array, 4);
  CHECK_TEXT(array, "ab");
}

static void test_peek_and_back() {
  slow text("abc");
  CHECK_INT(text.in.peek(), 'a');
  CHECK_INT(text.in.gcount(), 0);
  text.in.ignore();
  text.in.putback('a');
  CHECK_INT(text.in.get(), 'a');
  text.in.unget();
  CHECK_INT(text.in.gcount(), 0);
  CHECK_TEXT(text.buffer.rest().c_str(), "abc");
  text.in.unget();
  CHECK_INT(text.in.rdstate(), bad);
  text.in.clear();
  text.in.ignore(100);
  CHECK_INT(text.in.gcount(), 3);
  CHECK_INT(text.in.rdstate(), eof);
  text.in.clear();
  CHECK_INT(text.in.peek(), EOF);
  CHECK_INT(text.in.rdstate(), eof);
  text.in.unget();
  CHECK_INT(text.in.rdstate(), eof | fail);
}

static void test_ignore() {
  slow text("ab;cd;ef;\xffgh");
  text.in.ignore(10, ';');
  CHECK_INT(text.in.gcount(), 3);
  text.in.ignore(INT_MAX, ';');
  CHECK_INT(text.in.gcount(), 3);
  text.in.ignore(0);
  text.in.ignore(-5);
  CHECK_TEXT(text.buffer.rest().c_str(), "ef;\xffgh");
  text.in.ignore(2, ';');
  CHECK_INT(text.in.rdstate(), good);
  text.in.ignore(2, ';');
  CHECK_TEXT(text.buffer.rest().c_str(), "\xffgh");
  text.in.ignore(2);  // eof is no character
  CHECK_TEXT(text.buffer.rest().c_str(), "h");
  text.in.ignore(INT_MAX);
  CHECK_INT(text.in.rdstate(), eof);
}

static void test_read() {
  slow text("abcdef");
  char array[8] = "#######";
  text.in.read(array, 3);
  CHECK_TEXT(array, "abc####");
  CHECK_INT(text.in.gcount(), 3);
  text.in.read(array, 0).read(array, -1);
  CHECK_INT(text.in.rdstate(), good);
  text.in.read(array, 4);
  CHECK_TEXT(array, "def####");
  CHECK_INT(text.in.gcount(), 3);
  CHECK_INT(text.in.rdstate(), eof | fail);

  piece_buffer pieces("abcdef", 4);
  std::istream in(&pieces);
  CHECK_INT(in.readsome(array, 5), 0);  // nothing is known to be there
  in.peek();
  CHECK_INT(in.readsome(array, 3), 3);
  CHECK_INT(in.readsome(array, 5), 1);
  CHECK_INT(in.gcount(), 1);
  struct ended_buffer : std::streambuf {
    virtual std::streamsize showmanyc() { return -1; }
  } ended;
  in.rdbuf(&ended);
  CHECK_INT(in.readsome(array, 5), 0);
  CHECK_INT(in.rdstate(), eof);
  CHECK_INT(in.readsome(array, 5), 0);
  CHECK_INT(in.rdstate(), eof | fail);
}

// Takes `room` characters.
struct small_buffer : std::streambuf {
  explicit small_buffer(int room) : room(room) {}
  virtual int overflow(int c) {
    if (room == 0) return EOF;
    --room;
    taken += static_cast<char>(c);
    return c;
  }
  int room;
  std::string taken;
};

// Into the array that is being read, where it was read already.
static void test_in_place() {
  for (int ahead = 0; ahead < 40; ahead += 3)
    for (int n = 1; n < 1400; n += n < 40 ? 1 : 97)
      for (int what = 0; what < 4; ++what) {
        char array[2000];
        for (int i = 0; i < 2000; ++i) array[i] = static_cast<char>('a' + i * 7 % 26);
        const std::string want(array + ahead, n);
        std::istrstream in(array, 2000);
        in.ignore(ahead);
        if (what == 0) in.read(array, n);
        if (what == 1) in.readsome(array, n);
        if (what == 2) in.get(array, n + 1);
        if (what == 3) in.getline(array, n + 1);
        CHECK(want == std::string(array, n) && in.gcount() == n);
      }
}

static void test_into_buffer() {
  for (int piece = 0; piece <= 9; piece += 3) {
    slow_buffer one("ab\ncd");
    piece_buffer some("ab\ncd", piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    small_buffer line(100), rest(2), none(0);
    in.get(line);
    CHECK_TEXT(line.taken.c_str(), "ab");
    CHECK_INT(in.gcount(), 2);
    in.get(line, '\n');
    CHECK_INT(in.rdstate(), fail);
    in.clear();
    in.get(none, 'd');
    CHECK_INT(in.rdstate(), fail);
    in.clear();
    in.unsetf(std::ios_base::skipws);
    in >> &rest;
    CHECK_TEXT(rest.taken.c_str(), "\nc");
    CHECK_INT(in.rdstate(), good);
    in >> static_cast<std::streambuf *>(0);
    CHECK_INT(in.rdstate(), fail);
    in.clear();
    rest.room = 5;
    in >> &rest;
    CHECK_TEXT(rest.taken.c_str(), "\ncd");
    CHECK_INT(in.rdstate(), eof);
  }
}

// Positions do not mind the end of the input, and a refused move is a failure.
static void test_positions() {
  struct seeking_buffer : slow_buffer {
    seeking_buffer() : slow_buffer("abc"), synced(0) {}
    virtual std::streampos seekoff(std::streamoff off, std::ios_base::seekdir way, std::ios_base::openmode which) {
      trace("off %ld %d %d", off, way, which);
      return off < 0 ? -1 : off + 100;
    }
    virtual std::streampos seekpos(std::streampos at, std::ios_base::openmode which) {
      trace("pos %ld %d", static_cast<long>(at), which);
      return at;
    }
    virtual int sync() { return synced; }
    int synced;
  } buffer;
  std::istream in(&buffer);
  in.setstate(eof);
  CHECK_INT(std::streamoff(in.tellg()), 100);
  in.seekg(std::streampos(7)).seekg(5, std::ios_base::end);
  CHECK_TRACE("off 0 2 8 pos 7 8 off 5 4 8");
  CHECK_INT(in.rdstate(), eof);
  in.seekg(-1, std::ios_base::cur);
  CHECK_INT(in.rdstate(), eof | fail);
  CHECK_INT(std::streamoff(in.tellg()), -1);
  in.seekg(0);
  CHECK_TRACE("off -1 2 8");
  CHECK_INT(in.sync(), 0);
  buffer.synced = -1;
  CHECK_INT(in.sync(), -1);
  CHECK(in.bad());
  in.rdbuf(0);
  CHECK_INT(in.sync(), -1);
}

int main() {
  test_get();
  test_arrays();
  test_peek_and_back();
  test_ignore();
  test_read();
  test_in_place();
  test_into_buffer();
  test_positions();
  return TEST_RESULT();
}

// The frame of input: the sentry and what it skips, ties, states, manipulators, old forms, and the stream iterators.
// test-variants: -O0 | -O2

#include <algorithm>
#include <bitset>
#include <complex>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "input_buffers.h"

static void test_sentry() {
  slow blanks(" \t\n\v\f\r");
  {
    std::istream::sentry ok(blanks.in);
    CHECK(ok);  // the extractor will meet the end itself
  }
  CHECK_INT(blanks.in.rdstate(), good);
  CHECK_TEXT(blanks.buffer.rest().c_str(), "");

  slow word("  x");
  {
    std::istream::sentry raw(word.in, true);
    CHECK(raw);
    CHECK_TEXT(word.buffer.rest().c_str(), "  x");
    word.in.unsetf(std::ios_base::skipws);
    std::istream::sentry unskipped(word.in);
    CHECK_TEXT(word.buffer.rest().c_str(), "  x");
    word.in.setf(std::ios_base::skipws);
    CHECK(word.in.ipfx());
    word.in.isfx();
    CHECK_TEXT(word.buffer.rest().c_str(), "x");
  }
  CHECK_INT(word.in.get(), 'x');
  CHECK_INT(word.in.gcount(), 1);
  { std::istream::sentry again(word.in); }
  CHECK_INT(word.in.gcount(), 0);
  word.in.setstate(eof);
  CHECK(!word.in.ipfx(true));
  CHECK_INT(word.in.rdstate(), eof | fail);

  std::istream none(0);
  { CHECK(!std::istream::sentry(none)); }
  CHECK_INT(none.rdstate(), bad | fail);
}

// A table of the program's own decides what is white space.
static void test_own_white_space() {
  static std::ctype_base::mask table[256];
  table[static_cast<int>('_')] = std::ctype_base::space;
  std::locale own(std::locale::classic(), new std::ctype<char>(table));
  slow words("__a_ b");
  words.in.imbue(own);
  char text[8];
  words.in >> text;
  CHECK_TEXT(text, "a");
  std::string next;
  words.in >> next;
  CHECK_TEXT(next.c_str(), " b");
  CHECK_INT(words.in.rdstate(), eof);
}

struct flushed_buffer : std::streambuf {
  flushed_buffer() : flushes(0), result(0) {}
  virtual int sync() {
    ++flushes;
    return result;
  }
  int flushes, result;
};

static void test_tie() {
  flushed_buffer out;
  std::ostream tied(&out);
  slow text("1 2 word\nline\n");
  text.in.tie(&tied);
  int n;
  text.in >> n;
  CHECK_INT(out.flushes, 1);
  text.in.get();
  CHECK_INT(out.flushes, 2);
  text.in >> std::ws >> n;
  CHECK_INT(out.flushes, 4);
  std::string word;
  text.in >> word;
  std::getline(text.in, word);
  CHECK_INT(out.flushes, 6);
  text.in.setstate(eof);
  text.in.get();
  CHECK_INT(out.flushes, 6);  // not when nothing is read
}

// Streams tied to themselves, or in a circle, flush each buffer and come to an end.
static void test_circles() {
  flushed_buffer first, second;
  std::iostream a(&first), b(&second);
  a.tie(&a);
  a.get();
  CHECK_INT(first.flushes, 1);
  a.clear();
  a << 1 << std::flush;
  CHECK_INT(first.flushes, 2);
  a.tie(&b);
  b.tie(&a);
  first.flushes = second.flushes = 0;
  a.get();
  CHECK(first.flushes == 1 && second.flushes >= 1);
  a.clear();
  b.flush();
  CHECK(first.flushes >= 2 && second.flushes >= 2);

  // What a flush throws by the stream's own mask leaves no trace of the circle.
  first.result = -1;
  a.exceptions(bad);
  int thrown = 0;
  for (int i = 0; i < 2; ++i) {
    a.clear();
    try {
      b.flush();
    } catch (const std::ios_base::failure &) {
      ++thrown;
    }
  }
  CHECK_INT(thrown, 2);
}

static void test_ws() {
  slow text(" \n a ");
  text.in >> std::ws;
  CHECK_INT(text.in.get(), 'a');
  text.in >> std::ws;
  CHECK_INT(text.in.rdstate(), eof);
  CHECK_INT(text.in.gcount(), 1);  // not an operation of its own
  text.in >> std::ws;
  CHECK_INT(text.in.rdstate(), eof);  // nothing to complain of
}

static std::ios_base &hex(std::ios_base &s) {
  s.setf(std::ios_base::hex, std::ios_base::basefield);
  return s;
}
static std::ios &wide(std::ios &s) {
  s.width(3);
  return s;
}

// A buffer that shows its characters one by one and takes none back loses none, whatever is extracted.
struct one_way_buffer : std::streambuf {
  const char *at;
  explicit one_way_buffer(const char *text) : at(text) {}
  virtual int underflow() { return *at ? static_cast<unsigned char>(*at) : -1; }
  virtual int uflow() { return *at ? static_cast<unsigned char>(*at++) : -1; }
};
static void test_one_way() {
  one_way_buffer buffer("  ab101cd;3.5 (1,2)4 7x");
  std::istream in(&buffer);
  char text[3];
  std::bitset<9> bits;
  std::complex<double> a, b;
  std::string rest;
  long long wide = 0;
  in >> std::setw(3) >> text >> bits >> std::ws;
  CHECK(bits == 5);
  in.get(text, 3, ';');
  CHECK_TEXT(text, "cd");
  in.ignore(9, ';') >> a >> b >> wide;
  CHECK(in.good() && a == 3.5 && b == std::complex<double>(1, 2) && wide == 4);
  double number = 0;
  in >> number >> rest;
  CHECK(number == 7 && rest == "x");
}

static void test_manipulators() {
  slow text("ff abcdef");
  int n = 0;
  char word[8];
  text.in >> hex >> n >> wide >> word;
  CHECK_INT(n, 255);
  CHECK_TEXT(word, "ab");
  CHECK_INT(text.in.width(), 0);
}

static void test_iterators() {
  slow numbers("1 2 3 x");
  int sum = 0, count = 0;
  for (std::istream_iterator<int> at(numbers.in), end; at != end; ++at, ++count) sum += *at;
  CHECK_INT(sum, 6);
  CHECK_INT(count, 3);
  CHECK_INT(numbers.in.rdstate(), fail);

  slow words("alpha beta");
  std::istream_iterator<std::string> at(words.in);
  CHECK_INT(at->size(), 5);
  CHECK_TEXT((*at++).c_str(), "alpha");
  CHECK_TEXT(at->c_str(), "beta");
  CHECK(at == std::istream_iterator<std::string>(at));
  CHECK(++at == std::istream_iterator<std::string>());
}

// Takes `room` characters.
struct small_destination : std::streambuf {
  explicit small_destination(int room) : room(room) {}
  virtual int overflow(int c) {
    if (room == 0) return EOF;
    --room;
    taken += static_cast<char>(c);
    return c & 0xFF;
  }
  int room;
  std::string taken;
};

// All that is left becomes a string by blocks, where the buffer shows any, and the position is the end.
static void test_rest_of_buffer() {
  typedef std::istreambuf_iterator<char> iterator;
  std::string text;
  for (int i = 0; i < 70000; ++i) text += static_cast<char>(i * 7);
  slow_buffer one(text);
  piece_buffer some(text, 48);
  std::stringbuf all(text);
  char path[64];
  sprintf(path, "istream.%d.tmp", static_cast<int>(getpid()));
  std::filebuf file;
  file.open(path, std::ios_base::in | std::ios_base::out | std::ios_base::trunc);
  remove(path);
  file.sputn(text.data(), text.size());
  file.pubseekpos(0);
  std::streambuf *const buffers[] = {&one, &some, &all, &file};
  for (int i = 0; i < 4; ++i) {
    iterator first(buffers[i]), end;
    ++first;
    CHECK_INT(*first, text[1]);
    CHECK(std::string(first, first) == "" && std::string(end, first) == "");
    std::string rest = "before";
    rest.append(first, end);
    CHECK(rest == "before" + text.substr(1));
    CHECK_INT(buffers[i]->sgetc(), EOF);
    CHECK(std::string(iterator(buffers[i]), end) == "");
  }

  // The same into another buffer, or one that takes no more.
  small_destination full(5);
  for (int i = 0; i < 8; ++i) {
    slow_buffer again(text);
    std::stringbuf whole(text), into;
    file.pubseekpos(0);
    std::streambuf *const from = i % 4 == 0 ? &again : i % 4 == 1 ? &whole : static_cast<std::streambuf *>(&file);
    if (i < 4) {
      CHECK(!std::copy(iterator(from), iterator(), std::ostreambuf_iterator<char>(&into)).failed());
      CHECK(into.str() == text);
    } else {
      CHECK(std::copy(iterator(from), iterator(), std::ostreambuf_iterator<char>(&full)).failed());
    }
    CHECK_INT(from->sgetc(), EOF);  // what is not taken is dropped
  }
  CHECK(full.taken == text.substr(0, 5));
  throwing_buffer throwing("abcdef", at_underflow, 3);
  std::string kept = "kept";
  int passed = 0;
  try {
    kept.assign(iterator(&throwing), iterator());
  } catch (const thrown &) {
    passed = 1;
  }
  CHECK_INT(passed, 1);
  CHECK_TEXT(kept.c_str(), "kept");
  CHECK_TEXT(throwing.rest().c_str(), "def");
}

int main() {
  test_sentry();
  test_own_white_space();
  test_tie();
  test_circles();
  test_ws();
  test_one_way();
  test_manipulators();
  test_iterators();
  test_rest_of_buffer();
  return TEST_RESULT();
}

// What input does on purpose in its own way, row by row, on a buffer of single characters (peer/streams.cpp compares
// all the others with that one): what was stored, the state, the count, and what is left. Then facets, positions,
// iterators.
// test-variants: -O2 | -O2 -static
#include <limits.h>

#include <iostream>
#include <iterator>
#include <sstream>
#include <string>

#include "../buffers.h"
#include "../rows.h"

namespace {

std::string number(long double value) {  // of any type
  char text[40];
  sprintf(text, "%.20Lg", value);
  return text;
}
template <class T> std::string value(std::istream &in) {
  T v = static_cast<T>(77);
  in >> v;
  return number(v);
}
// Does a step of a row of data/input, and returns what it got.
std::string taken(std::istream &in, const std::string &step, int n, int &delim) {
  char a[17] = "################", c = '.';
  std::string text = "before";
  std::stringbuf to;
  in.width(step == "word" || step == "string" ? n : 0);
  if (step == "any") in.flags(in.skipws);
  if (step == "eof") in.setstate(in.eofbit);
  if (step == "fail") in.setstate(in.failbit);
  if (step == "delim") delim = n;
  if (step == "short") return value<short>(in);
  if (step == "unsigned_short") return value<unsigned short>(in);
  if (step == "int") return value<int>(in);
  if (step == "unsigned") return value<unsigned>(in);
  if (step == "long_long") return value<long long>(in);
  if (step == "unsigned_long_long") return value<unsigned long long>(in);
  if (step == "bool") return value<bool>(in);
  if (step == "double") return value<double>(in);
  if (step == "string") return in >> text, text + number(in.width());
  if (step == "word") return in >> a, a + number(in.width());
  if (step == "char") return in >> c, std::string(1, c);
  if (step == "one") return std::string(1, static_cast<char>(in.get()));
  if (step == "some") return std::string(a, in.readsome(a, n));
  if (step == "buffer") return in.get(to, static_cast<char>(delim)), to.str();
  if (step == "ignore") in.ignore(n, delim);
  if (step == "read") in.read(a, n);
  if (step == "unget") in.unget();
  if (step == "ws") in >> std::ws;
  if (step == "sentry") return std::istream::sentry(in, n != 0) ? "in" : "out";
  if (step == "prefix") return in.ipfx(n) ? "in" : "out";
  if (step != "get" && step != "line") return "";
  step == "get" ? in.get(a, n, '\n') : in.getline(a, n, '\n');
  CHECK(memchr(a + strlen(a) + 1, 0, 15 - strlen(a)) == 0);
  return a;
}
void table() {
  int count = 0;
  for (rows row(__FILE__, "data/input"); row.next(); ++count) {
    scripted buffer(row[1]);
    std::istream in(&buffer);
    std::istringstream steps(row[0]);
    int delim = -1;
    std::string got;
    for (std::string step; steps >> step;) {
      const std::string::size_type colon = step.find(':');
      got += taken(in, step.substr(0, colon), colon + 1 ? atoi(step.c_str() + colon + 1) : 0, delim);
    }
    got += std::string(" ") + (in.bad() ? "b" : "") + (in.eof() ? "e" : "") + (in.rdstate() & in.failbit ? "f" : "");
    CHECK_TEXT((got + number(in.gcount()) + " " + buffer.rest()).c_str(), row[2].c_str());
  }
  CHECK_INT(count, 83);
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
  CHECK_INT(in.rdstate(), std::ios::eofbit);
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
  std::stringbuf to;
  scripted out;
  std::ostream ends(&out);
  CHECK(in >> text >> string && strcmp(text, "a") == 0 && string == " b" && in.peek() == 0);
  CHECK(in >> text && strcmp(text, "c|d|e|f") == 0);
  in.clear(), in.seekg(8);
  CHECK(std::getline(in, string).getline(text, 9) && string == "" && strcmp(text, "d") == 0);
  CHECK(in.seekg(7).get(text, 9) && strcmp(text, "c") == 0 && in.get() == '|' && in.get(to) && to.str() == "d");
  CHECK(in.seekg(5) >> text && strcmp(text, "b") == 0 && in.peek() == 0);
  ends.imbue(in.getloc());
  ends << "x" << std::endl;
  CHECK(out.taken() == "x|");
}

// A stream at its end moves and tells; one that failed asks its buffer nothing. Each move is one of its own direction.
void positions() {
  scripted buffer("abc");
  std::iostream s(&buffer);
  for (int how = 0; how < 16; ++how) {
    const bool failed = how / 8 != 0;
    std::streamoff at = -1;
    buffer.let_fail(failed ? seeks : buffer_calls, 0, false), buffer.asked = 0;
    s.clear(s.eofbit);
    switch (how % 8) {
      case 0: at = s.tellg(); break;
      case 1: at = s.tellp(); break;
      case 2: s.seekg(std::streampos(5)); break;
      case 3: s.seekp(std::streampos(5)); break;
      case 4: s.seekg(5, s.end); break;
      case 5: s.seekp(5, s.cur); break;
      case 6: s.seekg(0); break;
      case 7: s.seekp(0); break;
    }
    CHECK(buffer.asked == (how % 2 ? s.out : s.in) && at == (how % 8 < 2 && !failed ? 7 : -1));
    CHECK_INT(s.rdstate(), failed && how % 8 > 1 ? s.eofbit | s.failbit : s.eofbit);
  }
  s.setstate(s.failbit);
  const int calls = buffer.calls[seeks];
  CHECK(s.seekg(0).tellg() == std::streampos(-1) && s.seekp(0).tellp() == std::streampos(-1));
  CHECK(s.seekg(0, s.beg) == s.seekp(0, s.beg) && buffer.calls[seeks] == calls);
  buffer.let_fail(syncs, 0, false);
  s.clear();
  CHECK(s.sync() == -1 && s.bad() && std::istream(0).sync() == -1);
}

void iterators() {
  std::istringstream numbers("1 2 3 x"), words("alpha beta"), high("\xff\xfe");
  int sum = 0;
  for (std::istream_iterator<int> at(numbers), end; at != end; ++at) sum += *at;
  CHECK(sum == 6 && numbers.rdstate() == numbers.failbit);
  std::istream_iterator<std::string> at(words);
  CHECK(at->size() == 5 && *at++ == "alpha" && *at == "beta" && at == std::istream_iterator<std::string>(at));
  CHECK(++at == std::istream_iterator<std::string>());
  // In code that is small enough to have it inline.
  CHECK(high.peek() == 0xFF && high.gcount() == 0 && high.get() == 0xFF && high.gcount() == 1 && high.get() == 0xFE);
  // What is read into a string may be shared again, though a reference was in use.
  std::istringstream text("a line\na_word_that_is_longer_than_sixteen short ");
  std::string got("block");
  for (int how = 0; how < 3; ++how) {
    got[0] = 'B';
    how ? void(text >> got) : void(std::getline(text, got));
    CHECK(text && got.data() == std::string(got).data());
  }
  // Into a buffer that takes no more, or has none: the rest is dropped.
  for (int step = 0; step <= 9; step += 3) {
    typedef std::istreambuf_iterator<char> from_buffer;
    scripted from("abcdefghi", step), to, thrower("abcdef");
    to.most = 5;
    CHECK(std::copy(from_buffer(&from), from_buffer(), std::ostreambuf_iterator<char>(&to)).failed());
    CHECK(to.taken() == "abcde" && from.rest() == "" && to.calls[overflows] == 6);
    thrower.let_fail(underflows, 3, true);
    std::string kept = "kept";
    try {
      kept.assign(from_buffer(&thrower), from_buffer());
    } catch (const thrown &) { kept += '!'; }
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
  counts();
  own_classes();
  positions();
  iterators();
  return TEST_RESULT();
}

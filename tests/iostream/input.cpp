// What input does on purpose in its own way, row by row, on a buffer of single characters (peer/streams.cpp compares
// all the others with that one): what was stored, the state, the count, and what is left. Then positions, iterators.
// test-variants: -O2 | -O2 -static
#include <limits.h>

#include "../buffers.h"
#include "../rows.h"
#include "operations.h"

using namespace operations;

namespace {

// Does a step of a row of data/input, and returns what it got.
std::string taken(std::iostream &in, const std::string &step, int n) {
  const an_operation o = {place_of(step, NAMES(OPERATIONS)), n, n, 2, '\n', ' ', 0, 0, "", in.flags()};
  std::stringbuf to;
  if (step == "any") in.flags(in.skipws);
  if (step == "eof") in.setstate(in.eofbit);
  if (step == "fail") in.setstate(in.failbit);
  if (step == "ignore_255") in.ignore(n, 255);
  if (step == "get_buffer_e9") in.get(to, '\xe9');
  if (step == "prefix") return in.ipfx(n) ? "in" : "out";
  if (o.what >= kinds) return to.str();
  const std::string got = perform(in, o, false).c_str();
  return got.substr(0, got.find('#')) + (o.what == in_string || o.what == in_array ? number("%lld", in.width()) : "");
}
void table() {
  int count = 0;
  for (rows row(__FILE__, "data/input"); row.next(); ++count) {
    scripted buffer(row[1]);
    std::iostream in(&buffer);
    std::istringstream steps(row[0]);
    std::string got;
    for (std::string step; steps >> step;) {
      const std::string::size_type colon = step.find(':');
      got += taken(in, step.substr(0, colon), colon + 1 ? atoi(step.c_str() + colon + 1) : 0);
    }
    got += std::string(" ") + (in.bad() ? "b" : "") + (in.eof() ? "e" : "") + (in.rdstate() & in.failbit ? "f" : "");
    CHECK_TEXT((got + number("%lld", in.gcount()) + " " + buffer.rest()).c_str(), row[2].c_str());
  }
  CHECK_INT(count, 82);
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

// A stream at its end moves, each in its own direction, and tells; one that failed asks its buffer nothing.
void positions() {
  scripted buffer("abc");
  std::iostream s(&buffer);
  for (unsigned how = 0; how < 8; ++how) {
    const an_operation o = {how % 2 ? move_put : move_get, int(how / 2 % 2), 0, 6, 'a', ' ', 0, 0, "", s.flags()};
    buffer.let_fail(how / 4 ? seeks : buffer_calls, 0, false), buffer.asked = 0;
    s.clear(s.eofbit);
    perform(s, o, false);
    CHECK(buffer.asked == (how % 2 ? s.out : s.in) && s.rdstate() == (how / 4 ? s.eofbit | s.failbit : s.eofbit));
    CHECK((how % 2 ? s.tellg() : s.tellp()) == std::streampos(how / 4 ? -1 : 7));
    CHECK(how / 4 || buffer.asked == (how % 2 ? s.in : s.out));
  }
  s.setstate(s.failbit);
  const int calls = buffer.calls[seeks];
  CHECK(s.seekg(0).tellg() == std::streampos(-1) && s.seekp(0).tellp() == std::streampos(-1));
  CHECK(s.seekg(0, s.beg) == s.seekp(0, s.beg) && buffer.calls[seeks] == calls && std::istream(0).sync() == -1);
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
  // Nothing is assigned when what is to be assigned throws.
  scripted thrower("abcdef");
  thrower.let_fail(underflows, 3, true);
  try {
    got = "kept";
    got.assign(std::istreambuf_iterator<char>(&thrower), std::istreambuf_iterator<char>());
  } catch (const thrown &) { got += '!'; }
  CHECK(got == "kept!" && thrower.rest() == "def");
}

}  // namespace

int main() {
  table();
  counts();
  positions();
  iterators();
  return TEST_RESULT();
}

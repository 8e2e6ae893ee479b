// istrstream(text, -1): an array without a known end is read no further than is asked for. Behind these texts there is
// no memory. And counts of what never ends go to their largest value, and no further.
#include <istream>
#include <string>
#include <strstream>

#include <sys/mman.h>

#include "../harness.h"

namespace {

const unsigned page = 4096;

struct edge {
  std::istrstream in;
  explicit edge(const char *text) : in(before_nothing(text), -1) {}
  static char *before_nothing(const char *text) {
    char *const at = static_cast<char *>(mmap(0, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(at + page, page, PROT_NONE);
    const size_t n = strlen(text);
    return static_cast<char *>(memcpy(at + page - n, text, n));
  }
};

// The same 64 kB, over and over.
struct endless : std::streambuf {
  static char block[1 << 16];
  unsigned left;
  explicit endless(unsigned blocks) : left(blocks) {}
  virtual int underflow() {
    if (left == 0) return -1;
    --left;
    setg(block, block, block + sizeof block);
    return static_cast<unsigned char>(*block);
  }
  virtual int overflow(int c) {
    setp(block, block + sizeof block);
    return c;
  }
};
char endless::block[1 << 16];

void counts() {
  const unsigned blocks_of_2_31 = 1u << 15;
  endless from(blocks_of_2_31 + 1), to(0), ignored(blocks_of_2_31 + 1), wrapped(2 * blocks_of_2_31);
  std::istream in(&from);
  in.get(to, 'x');
  CHECK(in.gcount() == 0x7fffffff && in.rdstate() == std::ios::eofbit);
  in.clear();
  in.rdbuf(&ignored);
  in.ignore(0x7fffffff, 'x');
  CHECK(in.gcount() == 0x7fffffff && in.rdstate() == std::ios::eofbit);
  in.clear();
  in.rdbuf(&wrapped);
  in >> &to;
  CHECK(in.rdstate() == std::ios::eofbit);
}

}  // namespace

int main() {
  char text[64] = "";
  std::string string(40, '-');
  int number = 0;
  double real = 0;
  edge two("two words "), one("a b"), integer("  12 "), floating("1.5 ");
  two.in >> string;
  CHECK_TEXT(string.c_str(), "two");
  one.in >> string;
  CHECK_TEXT(string.c_str(), "a");
  edge words("ab c ");
  words.in >> text;
  CHECK_TEXT(text, "ab");
  words.in >> text;
  CHECK_TEXT(text, "c");
  integer.in >> number;
  CHECK_INT(number, 12);
  floating.in >> real;
  CHECK(real == 1.5);
  edge lines("one\nb\n");
  std::getline(lines.in, string);
  CHECK_TEXT(string.c_str(), "one");
  lines.in.getline(text, 64);
  CHECK_TEXT(text, "b");
  edge part("abcdef");
  part.in.ignore(1).get(text, 4);
  CHECK_TEXT(text, "bcd");
  part.in.read(text, 2);
  CHECK(part.in.good());
  counts();
  return TEST_RESULT();
}

// istrstream(text, -1): an array without a known end is read no further than is asked for. Behind these texts there is
// no memory.
#include <istream>
#include <string>
#include <strstream>

#include <sys/mman.h>

#include "../harness.h"

namespace {

const unsigned page = 4096;

bool low;

struct edge {
  std::istrstream in;
  explicit edge(const char *text) : in(before_nothing(text), -1) {}
  static char *before_nothing(const char *text) {
    // High in memory and low: what is left to its end is counted in another way.
    char *const hint = reinterpret_cast<char *>(low ? 0x20000000 : 0);
    char *const at =
        static_cast<char *>(mmap(hint, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(at + page, page, PROT_NONE);
    const size_t n = strlen(text);
    return static_cast<char *>(memcpy(at + page - n, text, n));
  }
};

void read_all() {
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
}

}  // namespace

int main() {
  read_all();
  low = true;
  read_all();
  return TEST_RESULT();
}

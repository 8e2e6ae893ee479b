// A program that replaced operator new[] sees every block of a string buffer, in the sizes of the rule, from plain and
// derived buffers alike; and each of them may fail. Nothing may be lost then but what was to be written, and
// constructors leave nothing behind.
#include <locale>
#include <sstream>
#include <strstream>

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

const int in = std::ios_base::in, out = std::ios_base::out;

// A derived object, whose areas follow the rule.
class derived : public std::stringbuf {
public:
  explicit derived(int mode) : std::stringbuf(mode) {}
  derived(const char *text, int mode) : std::stringbuf(std::string(text), mode) {}
  int room() const { return static_cast<int>(epptr() - pptr()); }
  const char *block() const { return pbase(); }
  char *take_block() {
    char *const taken = pbase();
    setp(0, 0);
    setg(0, 0, 0);
    return taken;
  }
  void write_to(char *array, int n) { setp(array, array + n); }
  using std::stringbuf::overflow;
};

template <class Buffer> void sizes() {
  const std::string longer(130, 'x'), shorter(129, 'y');
  for (int mode = std::ios_base::out; mode <= (std::ios_base::out | std::ios_base::in); mode += std::ios_base::in) {
    {
      Buffer b(mode);
      std::ostream s(&b);
      traced = true;
      s << 'a';
      CHECK_TRACE("64");
      s << "bcd" << 12345 << longer.substr(0, 55).c_str();
      CHECK_TRACE("");  // 64 characters now
      s << 7;
      CHECK_TRACE("128 free");
      s.write(longer.data(), 130);
      CHECK_TRACE("192 free 256 free");
      s << longer << longer.c_str();
      CHECK_TRACE("320 free 384 free 448 free 512 free");
      b.str(longer);
      CHECK_TRACE("");
      b.str("");
      CHECK_TRACE("free");
      b.str(longer);
      CHECK_TRACE("192");
      b.str(std::string(192, 'z'));
      CHECK_TRACE("");
      b.str(std::string(193, 'z'));
      CHECK_TRACE("free 256");
      CHECK(b.str() == std::string(193, 'z'));
    }
    CHECK_TRACE("free");
    traced = false;
  }
}

struct writing {
  std::stringstream s;
  std::string text;
  writing() : text(30, 'x') { s.exceptions(std::ios_base::badbit); }
  void run() {
    try {
      for (int i = 0; i < 9; ++i) s << text << i << '.';
    } catch (const std::ios_base::failure &) {
      throw std::bad_alloc();
    }
    s.str(text + text + text);
  }
  void check(bool failed) {
    allocation_to_fail = 0;
    s.clear();
    s.exceptions(std::ios_base::goodbit);
    const std::string all = s.str();
    if (failed)
      for (unsigned i = 0; i < all.size(); ++i)
        CHECK(all[i] == (i % 32 == 30 ? char('0' + i / 32) : i % 32 == 31 ? '.' : 'x'));
    s.seekp(0, std::ios_base::end);
    s.clear();
    s << "end";
    CHECK(s.str() == all + "end");
  }
};

struct making {
  std::string text;
  making() : text(100, 'x') {}
  void run() {
    std::istringstream in(text);
    std::ostringstream to(text);
    const std::stringstream both(text);
    std::stringbuf b(text);
    CHECK(in.str() == text && to.str() == text && both.str() == text && b.str() == text);
  }
  void check(bool) {}
};

void texts() {
  derived b("123456789", out);
  const char *const block = b.block();
  b.str("ab");
  CHECK(b.block() == block && b.room() == 2);
  b.str(std::string(64, 'x'));
  CHECK(b.block() == block);  // 64 characters fill the block
  b.str("");
  CHECK(!b.block());
  CHECK(b.str() == "");
  derived appending("abc", out | std::ios_base::app);
  appending.sputc('d');
  CHECK(appending.str() == "abcd");
  derived at_end("abc", out | std::ios_base::ate);
  at_end.sputc('d');
  CHECK(at_end.str() == "dbc");
  // Called with room left, overflow makes the area longer by a null character.
  derived odd("abcdQ", in | out);
  odd.str("abcd");
  CHECK(odd.overflow('x') == 'x' && odd.sputn("yz", 2) == 2 && odd.pubseekpos(3, in) == 3);
  derived only("ab", out);
  CHECK(only.overflow('x') == 'x' && only.sputn("yz", 2) == 2 && only.pubseekpos(0, out) == 0 && only.str() == "xyz");
  CHECK(odd.pubseekoff(0, std::ios_base::end, out) == 5 && odd.str() == std::string("xyzd\0", 5));
}

// Called at the end of its room, it makes a block for what was written; what was read of the old one is forgotten, as
// far as the new one does not reach.
void smaller_block() {
  derived b(std::string(191, 't').c_str(), in | out);
  CHECK(b.pubseekpos(191, in) == 191 && b.pubseekpos(191, out) == 191 && b.sputc('u') == 'u');
  CHECK(b.pubseekpos(0, out) == 0 && b.overflow('v') == 'v' && b.sgetc() == -1);
  for (int i = 1; i < 80; ++i) b.sputc(static_cast<char>(i));
  CHECK(b.sgetc() == 64 && b.in_avail() == 16 && b.str().size() == 80);
}

// The block belongs to whoever has the areas.
void taken_blocks() {
  char array[4];
  {
    derived b("abcdef", in | out);
    char *const block = b.take_block();
    CHECK_TEXT(std::string(block, 6).c_str(), "abcdef");
    delete[] block;
    CHECK(b.str() == "");
    b.sputn("xyz", 3);
    CHECK(b.str() == "xyz");
    delete[] b.take_block();
    b.write_to(array, 4);
    CHECK_INT(b.sputn("1234", 4), 4);
    CHECK(b.str() == "1234");
    CHECK_INT(b.sputn("56789", 5), 5);  // moves to a block
    CHECK(b.block() != array);
    CHECK(b.str() == "123456789");
    b.write_to(array, 4);
  }
  CHECK(memcmp(array, "1234", 4) == 0);
}

}  // namespace

int main() {
  texts();
  smaller_block();
  taken_blocks();
  sizes<std::stringbuf>();
  sizes<derived>();
  CHECK(fail_each_allocation<writing>() >= 5);
  CHECK(fail_each_allocation<making>() >= 8);
  return TEST_RESULT();
}

// The buffer base: areas before virtual operations, blocks in turns, giving back, the two iterators.
#include <streambuf>

#include "../harness.h"

namespace {

class three : public std::streambuf {  // "abc" in the area, then x, y from uflow; room for three, then two by overflow
public:
  char in_[4], out_[4];
  int left_, room_;
  three() : left_(2), room_(2) {
    strcpy(in_, "abc");
    setg(in_, in_, in_ + 3);
    setp(out_, out_ + 3);
  }
  int written() const { return static_cast<int>(pptr() - pbase()); }

protected:
  virtual int uflow() {
    trace("uflow");
    return left_ ? 'x' + 2 - left_-- : -1;
  }
  virtual int overflow(int c) {
    trace("overflow:%c", c);
    return room_-- > 0 ? c : -1;
  }
  virtual int pbackfail(int c) {
    trace("pbackfail:%d", c);
    return -1;
  }
};

class plain : public std::streambuf {};

void blocks() {
  three b;
  char got[8] = "";
  CHECK_INT(b.sgetn(got, 0), 0);
  CHECK_INT(b.sgetn(got, -3), 0);
  CHECK_INT(b.sputn("q", 0), 0);
  CHECK_INT(b.sputn("q", -1), 0);
  CHECK_TRACE("");
  CHECK_INT(b.in_avail(), 3);
  CHECK_INT(b.sgetn(got, 8), 5);
  CHECK_TEXT(got, "abcxy");
  CHECK_TRACE("uflow uflow uflow");
  CHECK_INT(b.sputn("123456789", 9), 5);
  CHECK_INT(b.written(), 3);
  CHECK_TRACE("overflow:4 overflow:5 overflow:6");
}

void giving_back() {
  three b;
  CHECK_INT(b.sungetc(), -1);
  CHECK_INT(b.snextc(), 'b');
  CHECK_INT(b.sputbackc('z'), -1);
  CHECK_INT(b.sputbackc('a'), 'a');
  CHECK_INT(b.sbumpc(), 'a');
  CHECK_TRACE("pbackfail:-1 pbackfail:122");
}

void plain_base() {
  plain b;
  CHECK(b.pubseekoff(0, std::ios_base::cur) == std::streampos(-1));
  CHECK(b.pubseekpos(0) == -1);
  CHECK(b.pubsetbuf(0, 0) == &b);
  CHECK_INT(b.pubsync(), 0);
  CHECK_INT(b.sgetc(), -1);
  CHECK_INT(b.sputc('c'), -1);
  CHECK_INT(b.in_avail(), 0);
  const std::streampos at = std::streampos(5) + 2;
  CHECK(at - 3 == 4 && at - std::streampos(2) == 5 && at != 6 && sizeof at == 12);
  const long long wide = 1;
  CHECK(at + sizeof(int) * 2u - 5u + 2ul - wide + wide == 12 && at - 1ul == 6);
}

void iterators() {
  three b;
  std::istreambuf_iterator<char> in(&b), end;
  CHECK(!in.equal(end) && in != end && std::istreambuf_iterator<char>() == end);
  CHECK_INT(*in, 'a');
  CHECK_INT(*in++, 'a');
  std::istreambuf_iterator<char> second(in++);
  CHECK_INT(*second, 'c');
  std::ostreambuf_iterator<char> out(&b);
  for (int i = 0; i < 9; ++i) *out++ = static_cast<char>('1' + i);
  CHECK(out.failed());
  CHECK_TRACE("overflow:4 overflow:5 overflow:6");  // nothing after the first that fails
  CHECK(std::ostreambuf_iterator<char>(static_cast<std::streambuf *>(0)).failed());
}

}  // namespace

int main() {
  blocks();
  giving_back();
  plain_base();
  iterators();
  return TEST_RESULT();
}

// Random operations on string buffers against a model that keeps offsets and follows the rules to the letter: on a
// derived object, of which every pointer is compared after each step, and on plain ones, of which only what anybody can
// see is. Of all of them the private fields must stay within the block.
#include <sstream>

#include "../harness.h"
#include "../random.h"

namespace __zor {

// The library's own way in.
struct _buffer_access {
  static bool is_sound(const std::stringbuf &b) {
    const char *const begin = b._block_, *const end = b._room_end_;
    if (!begin) return !end && !b._buffer_end_ && !b._written_ && !b._wide_ && !b.gptr() && !b.pptr();
    const bool written = begin <= b._written_ && b._written_ <= end;
    const bool reads = !b.gptr() || (begin <= b.eback() && b.eback() <= b.egptr() && b.egptr() <= end);
    const bool writes = !b.pptr() || (begin == b.pbase() && b.pptr() <= b.epptr() && b.epptr() <= end);
    const bool hidden = b.gptr() == b.egptr() && b.epptr() == end;
    return begin <= b._buffer_end_ && b._buffer_end_ <= end && written && reads && writes && (!b._wide_ || hidden);
  }
};

}  // namespace __zor

namespace {

const int in = std::ios_base::in, out = std::ios_base::out, app = std::ios_base::app;

class model {
public:
  int mode, room;
  bool get, put;
  int g, eg, p, ep, high;
  int bytes[4096];  // -1: nobody wrote it

  explicit model(int m) : mode(m) { clear(); }
  void clear() {
    room = g = eg = p = ep = high = 0;
    get = put = false;
  }
  void str(const std::string &s) {
    const int n = static_cast<int>(s.size());
    if (n == 0 || !(mode & (in | out))) return clear();
    if (n > room || !(get || put)) {
      room = (n & ~63) + 64;
      for (int i = 0; i < room; ++i) bytes[i] = -1;
    }
    for (int i = 0; i < n; ++i) bytes[i] = static_cast<unsigned char>(s[i]);
    get = mode & in;
    put = mode & out;
    g = p = 0;
    eg = get ? n : 0;
    ep = put ? n : 0;
    high = n;
    if (put && (mode & app)) p = n;
  }
  std::string str() const {
    int end = eg;
    if (put && end < high) end = high;
    if (put && end < p) end = p;
    std::string s;
    for (int i = 0; i < end; ++i) s += static_cast<char>(bytes[i]);
    return s;
  }
  void note() {
    if (high < p) high = p;
  }
  int overflow(int c) {
    if (c == -1) return 0;
    if (!(mode & out)) return -1;
    if (ep < room) {
      if (p < ep) bytes[ep] = 0;
      ++ep;
    } else {
      const int used = p, size = (used & ~63) + 64;
      for (int i = used; i < size; ++i) bytes[i] = -1;
      room = size;
      put = true;
      high = used;
      ep = used + 1;
      get = mode & in;
      if (g > size) g = size;
    }
    bytes[p++] = c < 0 || c > 255 ? 0 : c;
    if (mode & in) eg = p;
    note();
    return c;
  }
  int sputc(int c) {
    if (p >= ep) return overflow(c);
    bytes[p++] = c;
    note();
    return c;
  }
  int sputn(const std::string &s) {
    for (unsigned i = 0; i < s.size(); ++i)
      if (sputc(static_cast<unsigned char>(s[i])) == -1) return i;
    return static_cast<int>(s.size());
  }
  int underflow() {
    if (!get || !(mode & out) || g < eg || p <= eg) return -1;
    eg = p;
    return g < eg ? bytes[g] : -1;
  }
  int sgetc() { return g < eg ? bytes[g] : underflow(); }
  int sbumpc() {
    const int c = sgetc();
    if (c != -1) ++g;
    return c;
  }
  int pbackfail(int c) {
    if (!get || g == 0) return -1;
    if (c != -1 && (mode & out)) {
      bytes[--g] = c < 0 || c > 255 ? 0 : c;
      return static_cast<signed char>(bytes[g]);
    }
    if (c != -1 && bytes[g - 1] != c) return -1;
    --g;
    return c == -1 ? 0 : c;
  }
  int sputbackc(int c) { return g > 0 && bytes[g - 1] == c ? bytes[--g] : pbackfail(c); }
  int sungetc() { return g > 0 ? bytes[--g] : pbackfail(-1); }
  int seekoff(int off, int way, int which) {
    const bool both = (which & in) && (which & out) && get && put;
    const bool reads = (which & in) && get, writes = (which & out) && put;
    if ((!reads && !writes) || (both && way == std::ios_base::cur)) return -1;
    const int last = both || !reads ? ep : eg;
    const int at = off + (way == std::ios_base::beg ? 0 : way == std::ios_base::end ? last : reads ? g : p);
    if (at < 0 || at > last) return -1;
    note();
    if (both || reads) g = at;
    if (both || !reads) p = at;
    return at;
  }
  int seekpos(int at, int which) {
    if (at < 0) return -1;
    note();
    if (get && put && p > eg) eg = p;
    bool moved = false;
    if ((which & in) && get && at <= eg) moved = true, g = at;
    if ((which & out) && put && at <= ep) moved = true, p = at;
    return moved ? at : -1;
  }
};

class probe : public std::stringbuf {
public:
  explicit probe(int mode) : std::stringbuf(mode) {}
  probe(const char *text, int mode) : std::stringbuf(std::string(text), mode) {}
  int room() const { return static_cast<int>(epptr() - pptr()); }
  const char *block() const { return pbase(); }
  char *take_block() {
    char *const taken = pbase();
    setp(0, 0);
    setg(0, 0, 0);
    return taken;
  }
  void write_to(char *array, int n) { setp(array, array + n); }
  int call_overflow(int c) { return overflow(c); }
  int call_underflow() { return underflow(); }
  int call_pbackfail(int c) { return pbackfail(c); }
  void check(const model &m) const {
    CHECK_INT(gptr() != 0, m.get);
    CHECK_INT(pptr() != 0, m.put);
    if (m.get) {
      CHECK_INT(gptr() - eback(), m.g);
      CHECK_INT(egptr() - eback(), m.eg);
    }
    if (m.put) {
      CHECK_INT(pptr() - pbase(), m.p);
      CHECK_INT(epptr() - pbase(), m.ep);
    }
    if (m.get && m.put) CHECK(eback() == pbase());
  }
};

int any(int n) { return static_cast<int>(random_below(static_cast<unsigned>(n))); }

std::string text() {
  std::string s;
  const int kind = any(8);
  for (int n = kind == 0 ? 0 : any(kind < 5 ? 6 : 150); n > 0; --n) s += static_cast<char>(any(256));
  return s;
}

int direction() { return any(3) == 0 ? in | out : any(2) ? in : out; }

void same(int got, int want, bool known, int op) {
  if (known && got != want) {
    CHECK_INT(got, want);
    fprintf(stderr, "  operation %d\n", op);
  }
}

void run(std::stringbuf &b, probe *seen, int mode) {
  model m(mode);
  std::ostream out_stream(&b);
  std::istream in_stream(&b);
  for (int step = 0; step < 120 && !test_failures; ++step) {
    const int op = any(seen ? 19 : 16), c = any(4) ? 'a' + any(3) : any(256);
    // What stands behind all characters has no value to compare.
    const bool here = m.g >= m.eg || m.bytes[m.g] != -1, before = m.g == 0 || m.bytes[m.g - 1] != -1;
    switch (op) {
      case 0: {
        const std::string s = text();
        if (any(3)) break;
        b.str(s);
        m.str(s);
        break;
      }
      case 1:
      case 2: same(b.sputc(static_cast<char>(c)), m.sputc(c), true, op); break;
      case 3:
      case 4: {
        const std::string s = text();
        out_stream.clear();
        if (m.p < 2000 && op == 3) same(b.sputn(s.data(), static_cast<int>(s.size())), m.sputn(s), true, op);
        if (m.p < 2000 && op == 4) out_stream.write(s.data(), static_cast<int>(s.size())), m.sputn(s);
        break;
      }
      case 5: same(b.sgetc(), m.sgetc(), here, op); break;
      case 6: same(b.sbumpc(), m.sbumpc(), here, op); break;
      case 7: {
        const int w = m.sbumpc() == -1 ? -1 : m.sgetc();
        same(b.snextc(), w, here, op);
        break;
      }
      case 8:
        if (before) same(b.sputbackc(static_cast<char>(c)), m.sputbackc(c), true, op);
        break;
      case 9: same(b.sungetc(), m.sungetc(), before, op); break;
      case 10: {
        const int off = any(40) - 20, way = 1 << any(3), which = direction();
        same(b.pubseekoff(off, way, which), m.seekoff(off, way, which), true, op);
        break;
      }
      case 11: {
        const int at = any(m.ep + 5) - 2, which = direction();
        same(b.pubseekpos(at, which), m.seekpos(at, which), true, op);
        break;
      }
      case 12: same(b.in_avail(), m.g < m.eg ? m.eg - m.g : 0, true, op); break;
      case 13: {
        char got[200];
        int n = any(200);
        if (m.eg - m.g > 0 && n > m.eg - m.g) n = m.eg - m.g;
        if (m.g > m.eg) break;
        n = b.sgetn(got, n);
        for (int i = 0; i < n; ++i) same(static_cast<unsigned char>(got[i]), m.sbumpc(), true, op);
        break;
      }
      case 14: {
        char digits[12];
        const int n = any(2) ? any(100) : any(100000000);
        sprintf(digits, "%d", n);
        out_stream.clear();
        if (m.p < 2000) {
          out_stream << n;
          m.sputn(digits);
        }
        break;
      }
      case 15:
        in_stream.clear();
        if (here) same(in_stream.get(), m.sbumpc(), true, op);
        break;
      case 16: {
        const int what = any(5) ? c : any(3) * 300 - 300;
        same(seen->call_overflow(what), m.overflow(what), true, op);
        break;
      }
      case 17: same(seen->call_underflow(), m.underflow(), here, op); break;
      case 18:
        if (before) same(seen->call_pbackfail(c), m.pbackfail(c), true, op);
        break;
    }
    CHECK(b.str() == m.str());
    CHECK(__zor::_buffer_access::is_sound(b));
    if (seen) seen->check(m);
    if (test_failures) fprintf(stderr, "  step %d, operation %d, mode %d\n", step, op, mode);
  }
}

void texts() {
  probe b("123456789", out);
  const char *const block = b.block();
  b.str("ab");
  CHECK(b.block() == block && b.room() == 2);
  b.str(std::string(64, 'x'));
  CHECK(b.block() == block);  // 64 characters fill the block
  b.str("");
  CHECK(!b.block());
  CHECK(b.str() == "");
  probe appending("abc", out | std::ios_base::app);
  appending.sputc('d');
  CHECK(appending.str() == "abcd");
  probe at_end("abc", out | std::ios_base::ate);
  at_end.sputc('d');
  CHECK(at_end.str() == "dbc");
}

// The block belongs to whoever has the areas.
void taken_blocks() {
  char array[4];
  {
    probe b("abcdef", in | out);
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

// A plain buffer's block grows by more than it says.
void long_texts() {
  std::string want;
  std::stringbuf by_characters, by_blocks, written(out);
  for (int i = 0; i < 300000; ++i) {
    const char c = static_cast<char>('a' + i % 7 + i / 1000 % 11);
    want += c;
    by_characters.sputc(c);
    written.sputc(c);
  }
  for (unsigned i = 0, n = 1; i < want.size(); i += n, n = n % 5000 + 1) {
    if (n > want.size() - i) n = want.size() - i;
    CHECK_INT(by_blocks.sputn(want.data() + i, n), n);
  }
  CHECK(by_characters.str() == want && by_blocks.str() == want && written.str() == want);
  CHECK_INT(by_characters.in_avail(), 300000);
  std::string got(want.size(), '?');
  CHECK_INT(by_blocks.sgetn(&got[0], 300001), 300000);
  CHECK(got == want);
}

}  // namespace

int main() {
  const int modes[] = {in, out, in | out, out | app, in | out | app, 0};
  for (int i = 0; i < 12000 && !test_failures; ++i) {
    const int mode = modes[i % 6];
    probe derived(mode);
    run(derived, &derived, mode);
    std::stringbuf plain(mode);
    run(plain, 0, mode);
    std::stringstream within(mode);
    run(*within.rdbuf(), 0, mode);
  }
  texts();
  taken_blocks();
  long_texts();
  return TEST_RESULT();
}

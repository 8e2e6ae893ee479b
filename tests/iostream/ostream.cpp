// Output streams that work: texts, padding, widths, numbers of every type, buffers inserted, ties, unitbuf, sentries.
// Deliberate differences from the standard are here too. Failures have a test of their own.
// test-variants: -O0 | -O2
#include <iomanip>
#include <ostream>

#include "../harness.h"
#include "buffers.h"

namespace {

// The C strings pad behind unless told otherwise; strings as the standard says; characters never.
template <class Buffer> void paddings() {
  Buffer b;
  std::ostream out(&b);
  out.fill('*');
  out << std::setw(5) << "ab";
  CHECK_TEXT(b.taken(), "ab***");
  CHECK_INT(out.width(), 0);
  out << std::left << std::setw(4) << "ab" << std::internal << std::setw(4) << "cd" << std::right << std::setw(4)
      << "ef" << std::setw(2) << "ghi" << std::setw(-3) << "j";
  CHECK_TEXT(b.taken(), "ab**cd****efghij");
  CHECK_INT(out.width(), 0);
  out.setf(std::ios::left | std::ios::right, std::ios::adjustfield);
  out << std::setw(3) << "k";
  CHECK_TEXT(b.taken(), "k**");
  out.unsetf(std::ios::adjustfield);
  out << std::setw(5) << std::string("ab") << std::left << std::setw(4) << std::string("c\0d", 3) << std::internal
      << std::setw(3) << std::string() << std::setw(1) << std::string("efg");
  CHECK(memcmp(b.taken(), "***abc\0d****efg", 16) == 0);
  CHECK_INT(out.width(), 0);
  out << std::setw(5) << 'x' << std::setw(5) << static_cast<unsigned char>('y') << static_cast<signed char>('z');
  CHECK_TEXT(b.taken(), "xyz");
  CHECK_INT(out.width(), 0);
  const unsigned char u[] = "unsigned";
  const signed char s[] = "signed";
  out << u << s << static_cast<const char *>(0) << std::setw(3) << static_cast<char *>(0);
  CHECK_TEXT(b.taken(), "unsignedsigned***");
  out << std::setw(4);
  out.put('c').write("w\0x", 3).write("", 0);
  CHECK(memcmp(b.taken(), "cw\0x", 5) == 0);
  CHECK_INT(out.width(), 4);
  out << true << std::boolalpha << false;
  CHECK_TEXT(b.taken(), "1false");
  CHECK_INT(out.width(), 4);
  out << 7;
  CHECK_TEXT(b.taken(), "***7");
  CHECK_INT(out.width(), 0);
  out << std::endl << std::ends << std::flush;
  CHECK(memcmp(b.taken(), "\n\0", 3) == 0);
  CHECK(out.good());
}

// The same with a put area, in which texts are made at once.
class taking_area : public area {
public:
  taking_area() : area(63) {}
  const char *taken() {
    const int end = n();
    text[end] = 0;
    setp(text, text + 63);
    return text;
  }
};

void numbers() {
  taking b;
  std::ostream out(&b);
  out << 0 << ' ' << -2147483647 - 1 << ' ' << 4294967295u << ' ' << static_cast<short>(-32768) << ' '
      << static_cast<unsigned short>(65535) << ' ' << -5L << ' ' << 5ul;
  CHECK_TEXT(b.taken(), "0 -2147483648 4294967295 -32768 65535 -5 5");
  out << std::hex << static_cast<short>(-1) << ' ' << -1 << ' ' << std::oct << static_cast<short>(-1) << ' ' << std::dec
      << static_cast<short>(-1) << ' ' << std::setbase(2) << static_cast<short>(-1);
  CHECK_TEXT(b.taken(), "ffff ffffffff 177777 -1 -1");
  out << std::setiosflags(std::ios::hex | std::ios::showbase | std::ios::uppercase) << std::setfill('0')
      << std::internal << std::setw(8) << 0xABC << std::setw(3) << 0;
  CHECK_TEXT(b.taken(), "0X000ABC000");
  out << std::dec << std::setw(70) << -1;
  CHECK_INT(strlen(b.taken()), 70);
  CHECK(b.text[0] == '-' && b.text[1] == '0' && b.text[69] == '1');
  out.flags(std::ios::dec);
  out << 0.1f << ' ' << 1e300 << ' ' << 2.5L << ' ' << std::setprecision(0) << 1234567.0 << ' ' << std::fixed << 2.5
      << ' ' << std::setprecision(3) << -1e-9;
  CHECK_TEXT(b.taken(), "0.1 1e+300 2.5 1.23457e+06 2 -0.000");
  out << std::uppercase << std::scientific << 0.5 << ' ' << std::setprecision(200) << std::fixed << 1.0;
  CHECK_INT(strlen(b.taken()), 10 + 202);
  CHECK(strncmp(b.text, "5.000E-01 1.000", 15) == 0);
  out.flags(std::ios::left);
  out.fill('#');
  void *p = reinterpret_cast<void *>(0x1a2b);
  out << p << ' ' << std::setw(8) << p << ' ' << static_cast<void *>(0);
  CHECK_TEXT(b.taken(), "0x1a2b ##0x1a2b (nil)");
}

// What no long holds is formatted by the same rules; what one holds is a long.
void long_longs() {
  taking b;
  std::ostream out(&b);
  __extension__ const long long least = -9223372036854775807LL - 1, million_million = 1000000000000LL;
  __extension__ const unsigned long long most = 18446744073709551615ULL;
  out << least << ' ' << million_million << ' ' << most << ' ' << std::showpos << million_million << ' ' << most;
  CHECK_TEXT(b.taken(), "-9223372036854775808 1000000000000 18446744073709551615 +1000000000000 18446744073709551615");
  __extension__ const long long two_to_31 = 2147483648LL, minus_one = -1LL, small = 42LL;
  out << std::noshowpos << two_to_31 << ' ' << -two_to_31 << ' ' << small << ' ' << minus_one << ' ' << std::hex
      << minus_one << ' ' << std::showbase << std::oct << least << ' ' << small;
  CHECK_TEXT(b.taken(), "2147483648 -2147483648 42 -1 ffffffffffffffff 01000000000000000000000 052");
  out << std::dec << std::setfill('*') << std::internal << std::setw(15) << -million_million << std::hex
      << std::uppercase << std::setw(16) << million_million;
  CHECK_TEXT(b.taken(),
             "-*1000000000000"
             "0X****E8D4A51000");
  CHECK_INT(out.width(), 0);
}

// Nothing behind a text is touched, and what does not fit goes through overflow, character by character.
void put_areas() {
  area b(4);
  std::ostream out(&b);
  out << 123 << "" << 'x';
  CHECK(memcmp(b.text, "123x....................", 24) == 0);
  area c(40);
  std::ostream out2(&c);
  out2 << -7 << 1.5 << std::hex << 255 << std::setw(6) << "ab" << true;
  CHECK(memcmp(c.text, "-71.5ffab    1....................", 34) == 0);
  area d(5);
  std::ostream out3(&d);
  out3 << 1234567;  // the rest is dropped, which num_put's inserter does not notice
  CHECK(memcmp(d.text, "12345....", 9) == 0);
  CHECK(out3.good());
  // A position that its class has moved past the end is no room.
  struct past_end : taking {
    char own[16];
    past_end() {
      memset(own, '.', sizeof own);
      setp(own, own + 4);
      pbump(6);
    }
  } e;
  std::ostream out4(&e);
  out4 << "ab" << 'c' << 12 << 1.5 << std::setw(3) << "d" << std::setw(3) << 7;
  out4.put('e').write("fg", 2);
  CHECK(memcmp(e.own, "................", 16) == 0);
  CHECK_TEXT(e.taken(), "abc121.5d    7efg");
}

class counting_sync : public taking {
public:
  int syncs;
  counting_sync() : syncs(0) {}

protected:
  virtual int sync() {
    ++syncs;
    return 0;
  }
};

void ties_and_unitbuf() {
  counting_sync a, b;
  std::ostream first(&a), second(&b);
  second.tie(&first);
  second << 1 << "x" << 'y' << std::string("z");
  second.put('p').write("q", 1).flush();
  CHECK_INT(a.syncs, 7);
  CHECK_INT(b.syncs, 1);
  second.seekp(0);
  CHECK_INT(a.syncs, 7);
  second.setstate(std::ios::failbit);  // the seek has failed; nothing is flushed for a stream that is not good
  second << 1;
  CHECK_INT(a.syncs, 7);
  second.clear();
  second.tie(0);
  second.setf(std::ios::unitbuf);
  second << 1 << "x" << 'y' << std::string("z") << true << 1.5;
  second.put('p').write("q", 1);
  CHECK_INT(b.syncs, 9);
  second.setstate(std::ios::failbit);
  second << 1;  // the end of the frame does not ask for the state
  CHECK_INT(b.syncs, 10);
  second.clear();
  {
    std::ostream::sentry s(second);
    CHECK(s);
    CHECK_INT(b.syncs, 10);
  }
  CHECK_INT(b.syncs, 11);
  CHECK(second.opfx());
  second.osfx();
  CHECK_INT(b.syncs, 12);
  second.tie(&second);  // does not end in flushing itself
  second << 1;
  CHECK(second.good());
}

class source : public std::streambuf {  // `in` in an area, then `more` characters from underflow, one at a time
public:
  char text_[8], one_;
  int more_;
  explicit source(const char *in, int more = 0) : more_(more) {
    strcpy(text_, in);
    setg(text_, text_, text_ + strlen(in));
  }
  const char *left() {
    *egptr() = 0;
    return gptr();
  }

protected:
  virtual int underflow() {
    if (more_ == 0) return -1;
    one_ = static_cast<char>('0' + more_--);
    setg(&one_, &one_, &one_ + 1);
    return static_cast<unsigned char>(one_);
  }
};

void inserted_buffers() {
  taking b(5);
  std::ostream out(&b);
  source in("ab\xff", 2), more("xy"), none("");
  out << std::setw(9) << &in;
  CHECK(out.good());
  CHECK_INT(out.width(), 9);
  CHECK_TEXT(b.taken(),
             "ab\xff"
             "21");
  b.room = 1;
  out << &more;  // what was refused is not taken from the source
  CHECK(out.good());
  CHECK_TEXT(b.taken(), "x");
  CHECK_TEXT(more.left(), "y");
  out << &none;
  CHECK_INT(out.rdstate(), std::ios::failbit);
  out.clear();
  b.room = 0;
  out << &more;
  CHECK_INT(out.rdstate(), std::ios::failbit);
  CHECK_TEXT(more.left(), "y");
  out.clear();
  out << static_cast<std::streambuf *>(0);
  CHECK_INT(out.rdstate(), std::ios::failbit);
}

struct point {
  int x, y;
};

std::ostream &operator<<(std::ostream &out, const point &p) {
  std::ostream::sentry s(out);
  if (s) out << '(' << p.x << ',' << p.y << ')';
  return out;
}

void users_operators() {
  taking b;
  std::ostream out(&b);
  const point p = {1, -2};
  out << p << std::setw(3) << p;
  CHECK_TEXT(b.taken(), "(1,-2)(1,-2)");
  out.setstate(std::ios::eofbit);
  out << p;
  CHECK_INT(out.rdstate(), std::ios::eofbit | std::ios::failbit);
  CHECK_TEXT(b.taken(), "");
}

}  // namespace

int main() {
  paddings<taking>();
  paddings<taking_area>();
  numbers();
  long_longs();
  put_areas();
  ties_and_unitbuf();
  inserted_buffers();
  users_operators();
  return TEST_RESULT();
}

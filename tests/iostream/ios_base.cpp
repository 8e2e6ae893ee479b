// The stream base: first state, state and exceptions, words, callbacks, copyfmt, and what a failed allocation leaves.
#include <plx/iostream/basic_ios.h>
#include <typeinfo>

#include "../fail_allocation.h"

namespace {

class sink : public std::streambuf {
public:
  int imbued;
  sink() : imbued(0) {}

protected:
  virtual void imbue(const std::locale &) { ++imbued; }
};

class stream : public std::ios {
public:
  explicit stream(std::streambuf *buffer) { init(buffer); }
};

void first_state() {
  sink buffer;
  stream good(&buffer), bad(0);
  CHECK_INT(good.flags(), 0x1002);
  CHECK_INT(good.precision(), 6);
  CHECK_INT(good.width(), 0);
  CHECK_INT(good.fill(), ' ');
  CHECK(good.tie() == 0 && good.good() && good && good.rdbuf() == &buffer);
  CHECK_INT(bad.rdstate(), std::ios::badbit);
  CHECK(!bad && bad.bad() && bad.fail() && !bad.eof());
  CHECK_INT(good.setf(std::ios::hex, std::ios::basefield), 0x1002);
  CHECK_INT(good.flags(), 0x1008);
}

void states_and_exceptions() {
  sink buffer;
  stream s(&buffer);
  s.exceptions(std::ios::failbit);
  s.setstate(std::ios::eofbit);
  CHECK(s.eof() && !s.fail());
  int thrown = 0;
  try {
    s.setstate(std::ios::failbit);
  } catch (const std::ios_base::failure &f) {
    CHECK_TEXT(f.what(), "Failure reported");
    ++thrown;
  }
  CHECK_INT(s.rdstate(), std::ios::failbit | std::ios::eofbit);
  try {
    s.exceptions(std::ios::eofbit);  // looks at the state at once
  } catch (const std::exception &) {
    ++thrown;
  }
  s.exceptions(std::ios::badbit);
  try {
    s.rdbuf(0);
  } catch (const std::ios_base::failure &) {
    ++thrown;
  }
  CHECK_INT(thrown, 3);
  // A text of the program's own is kept whole; the base's copy ends at a null character.
  const std::ios_base::failure own(std::string("a\0b", 3)), copied(own);
  CHECK_TEXT(copied.what(), "a");
}

void words() {
  sink buffer;
  stream s(&buffer);
  CHECK_INT(s.iword(5), 0);
  long *fifth = &s.iword(5);
  s.iword(2) = 7;
  CHECK(fifth == &s.iword(5));
  CHECK(s.pword(3) == 0);
  bool refused = false;
  try {
    s.iword(-1) = 1;
  } catch (const std::exception &) {
    refused = true;
  }
  CHECK(refused);
  CHECK_INT(s.iword(2), 7);
  const int first = std::ios_base::xalloc();
  CHECK_INT(std::ios_base::xalloc(), first + 1);
}

void tell(std::ios_base::event what, std::ios_base &, int index) { trace("%d:%c", what, index); }
void refuse(std::ios_base::event, std::ios_base &, int) { throw 1; }

void callbacks() {
  sink buffer;
  {
    stream s(&buffer), other(&buffer);
    s.register_callback(tell, 'A');
    s.register_callback(tell, 'B');
    s.register_callback(tell, 'C');
    s.imbue(std::locale::classic());
    CHECK_TRACE("1:C 1:B 1:A");
    CHECK_INT(buffer.imbued, 1);
    for (int i = 0; i < 10; ++i) other.register_callback(tell, 'a' + i);
    other.iword(1) = 5;
    other.fill('*');
    other.exceptions(std::ios::eofbit);
    s.copyfmt(other);
    CHECK_TRACE("0:C 0:B 0:A 2:j 2:i 2:h 2:g 2:f 2:e 2:d 2:c 2:b 2:a");
    CHECK_INT(s.iword(1), 5);
    CHECK_INT(s.fill(), '*');
    CHECK_INT(s.exceptions(), std::ios::eofbit);
    s.copyfmt(s);
    stream empty(&buffer);
    other.copyfmt(empty);
    s.copyfmt(empty);
    test_trace[0] = 0;
    other.register_callback(tell, 'X');
  }
  CHECK_TRACE("0:X");
  {
    stream s(&buffer);
    s.register_callback(tell, 'A');
    s.register_callback(refuse, 0);
    bool thrown = false;
    try {
      s.imbue(std::locale::classic());
    } catch (int) {
      thrown = true;
    }
    CHECK(thrown);
  }  // discarded there, and the older one hears
  CHECK_TRACE("0:A");
  // Before the copy nothing has changed; after it only the mask has not.
  stream from(&buffer), to(&buffer), also_to(&buffer);
  from.exceptions(std::ios::eofbit);
  from.iword(0) = 1;
  from.register_callback(refuse, 0);
  to.register_callback(refuse, 0);
  stream *const refused[] = {&to, &also_to};
  for (int i = 0; i < 2; ++i) {
    bool thrown = false;
    try {
      refused[i]->copyfmt(from);
    } catch (int) {
      thrown = true;
    }
    CHECK(thrown);
    CHECK_INT(refused[i]->iword(0), i);
    CHECK_INT(refused[i]->exceptions(), 0);
  }
  // What the buffer throws passes as well, and the stream has the locale by then.
  struct refusing : std::streambuf {
    virtual void imbue(const std::locale &) { throw 1; }
  } no;
  stream s(&no);
  const std::locale other(std::locale::classic(), new std::ctype<char>);
  bool thrown = false;
  try {
    s.imbue(other);
  } catch (int) {
    thrown = true;
  }
  CHECK(thrown && s.getloc() == other && no.getloc() == std::locale::classic());
}

struct growing {
  sink buffer;
  stream from, to;
  growing() : from(&buffer), to(&buffer) { to.iword(0) = 3; }
  void run() {
    from.iword(9) = 1;
    from.pword(4) = this;
    for (int i = 0; i < 6; ++i) from.register_callback(tell, 'a');
    to.copyfmt(from);
  }
  void check(bool failed) {
    CHECK_INT(to.iword(0), failed ? 3 : 0);
    test_trace[0] = 0;
  }
};

struct failing_failure {
  void run() {
    std::string exposed("a text that is too long for a small block, so that it takes one of its own");
    exposed[0] = 'A';
    std::ios_base::failure one(exposed), two(one);
    two = one;
    CHECK_TEXT(two.what(), exposed.c_str());
  }
  void check(bool) {}
};

}  // namespace

int main() {
  first_state();
  states_and_exceptions();
  words();
  callbacks();
  CHECK(fail_each_allocation<growing>() >= 6);
  test_trace[0] = 0;
  CHECK(fail_each_allocation<failing_failure>() >= 4);
  return TEST_RESULT();
}

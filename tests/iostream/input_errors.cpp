// What user buffers and facets throw from each virtual operation: it becomes badbit, or failure when exceptions() asks
// for it, and for words into strings it passes. No exception is lost, no memory leaks, no character goes missing.

#include <locale>

#include "input_buffers.h"

#include "../fail_allocation.h"

static char array[16];

static void get_char(std::istream &in) { in.get(); }
static void get_array(std::istream &in) { in.get(array, 16); }
static void get_line(std::istream &in) { in.getline(array, 16, ';'); }
static void get_string(std::istream &in) {
  std::string text;
  std::getline(in, text);
}
static void number(std::istream &in) {
  int n;
  in >> n;
}
static void large_number(std::istream &in) {
  long long n;
  in >> n;
}
static void real(std::istream &in) {
  double d;
  in >> d;
}
static void into_buffer(std::istream &in) {
  slow_buffer none("");
  in.get(none);
}
static void all_into_buffer(std::istream &in) {
  slow_buffer none("");
  in >> &none;
}
static void character(std::istream &in) {
  char c;
  in >> c;
}
static void word(std::istream &in) { in >> array; }
static void skip(std::istream &in) { in >> std::ws; }
static void ignore(std::istream &in) { in.ignore(100); }
static void peek(std::istream &in) { in.peek(); }
static void read(std::istream &in) { in.read(array, 3); }
static void read_some(std::istream &in) { in.readsome(array, 3); }
static void putback(std::istream &in) { in.putback('x'); }
static void unget(std::istream &in) { in.unget(); }
static void tell(std::istream &in) { in.tellg(); }
static void seek_to(std::istream &in) { in.seekg(std::streampos(1)); }
static void seek_by(std::istream &in) { in.seekg(1, std::ios_base::cur); }
static void sync(std::istream &in) { in.sync(); }

static void test_throwing_buffers() {
  static const struct {
    void (*read)(std::istream &);
    operation what;
    int calm;  // calls that go well before
  } cases[] = {{get_char, at_uflow, 0},
               {get_array, at_uflow, 2},
               {get_line, at_uflow, 2},
               {get_string, at_uflow, 2},
               {number, at_uflow, 0},
               {number, at_underflow, 1},
               {large_number, at_uflow, 1},
               {character, at_uflow, 0},
               {character, at_uflow, 1},
               {word, at_uflow, 2},
               {word, at_pbackfail, 0},
               {skip, at_uflow, 0},
               {skip, at_pbackfail, 0},
               {ignore, at_uflow, 2},
               {peek, at_underflow, 0},
               {read, at_xsgetn, 0},
               {read, at_uflow, 2},
               {read_some, at_showmanyc, 0},
               {read_some, at_xsgetn, 0},
               {putback, at_pbackfail, 0},
               {unget, at_pbackfail, 0},
               {tell, at_seekoff, 0},
               {seek_to, at_seekpos, 0},
               {seek_by, at_seekoff, 0},
               {sync, at_sync, 0},
               {real, at_uflow, 1},
               {into_buffer, at_underflow, 0},
               {all_into_buffer, at_uflow, 0}};
  for (unsigned int i = 0; i < sizeof cases / sizeof *cases; ++i)
    for (int mask = 0; mask < 8; ++mask) {
      const long blocks = live_blocks;
      {
        throwing_buffer buffer("12 345", cases[i].what, cases[i].calm);
        std::istream in(&buffer);
        in.exceptions(mask);
        bool failed = false;
        try {
          cases[i].read(in);
        } catch (const std::ios_base::failure &e) {
          failed = true;
          CHECK_TEXT(e.what(), "Failure reported");
        } catch (const thrown &) {
          test_report(0, __FILE__, i, "the buffer's exception passed");
        }
        test_report(in.bad(), __FILE__, i, "badbit");
        CHECK_INT(thrown::live, 0);
        CHECK_INT(failed, (in.rdstate() & mask) != 0);
      }
      CHECK_INT(live_blocks, blocks);
    }
}

// After the sentry, words into strings are outside of the frame; but whole blocks are kept.
static void test_words_pass() {
  const long blocks = live_blocks;
  {
    throwing_buffer buffer(std::string(2000, 'x'), at_uflow, 1500);
    std::istream in(&buffer);
    std::string text;
    int passed = 0;
    try {
      in >> text;
    } catch (const thrown &) {
      passed = 1;
    }
    CHECK_INT(passed, 1);
    CHECK_INT(in.rdstate(), good);
    CHECK_INT(text.size(), 1024);
    CHECK_INT(thrown::live, 0);

    throwing_buffer early("  x", at_uflow);
    in.rdbuf(&early);
    in >> text;  // in the sentry
    CHECK_INT(in.rdstate(), bad);
  }
  CHECK_INT(live_blocks, blocks);
}

// A locale whose ctype was taken away by one that throws is not to be had; a facet that throws is.
struct throwing_ctype : std::ctype<char> {
  virtual char do_widen(char) const { throw thrown(); }
};

static void test_facets() {
  slow text("ab\ncd");
  text.in.imbue(std::locale(std::locale::classic(), new throwing_ctype));
  char line[8] = "xyz";
  text.in.getline(line, 8);
  CHECK_TEXT(line, "");
  CHECK_INT(text.in.rdstate(), bad | fail);
  text.in.clear();
  text.in.getline(line, 8, '\n');
  CHECK_TEXT(line, "ab");
  std::string string;
  std::getline(text.in, string);
  CHECK(text.in.bad());
  CHECK_INT(thrown::live, 0);
}

struct throwing_num_get : std::num_get<char> {
  virtual iter_type do_get(iter_type in, iter_type, std::ios_base &, std::ios_base::iostate &err, long &v) const {
    v = 5;
    err |= std::ios_base::eofbit;
    if (*in == '1') throw thrown();
    return ++in;
  }
};

static void test_num_get() {
  slow text("12");
  text.in.imbue(std::locale(std::locale::classic(), new throwing_num_get));
  int n = 0;
  text.in >> n;
  CHECK_INT(text.in.rdstate(), bad | eof);  // what it had reported counts
  CHECK_INT(n, 0);
  text.in.clear();
  text.in.get();
  text.in >> n;
  CHECK_INT(n, 5);
  CHECK_INT(text.in.rdstate(), eof);
}

// A destination that throws, or takes no more, loses no character.
struct throwing_destination : std::streambuf {
  explicit throwing_destination(int room) : room(room) {}
  virtual int overflow(int c) {
    if (room-- == 0) throw thrown();
    taken += static_cast<char>(c);
    return c;
  }
  int room;
  std::string taken;
};

static void test_destinations() {
  for (int piece = 0; piece <= 9; piece += 3) {
    slow_buffer one("abcdef");
    piece_buffer some("abcdef", piece);
    std::istream in(piece ? static_cast<std::streambuf *>(&some) : &one);
    throwing_destination first(2), second(1);
    in >> &first;
    CHECK_INT(in.rdstate(), bad);
    CHECK_TEXT(first.taken.c_str(), "ab");
    in.clear();
    in.get(second, 'x');
    CHECK_INT(in.rdstate(), bad);
    CHECK_INT(in.gcount(), 1);
    CHECK_TEXT(second.taken.c_str(), "c");
    in.clear();
    in.getline(array, 16);
    CHECK_TEXT(array, "def");
  }
}

// Without memory a line becomes badbit, and the string still holds something whole.
struct reading_line {
  reading_line() : buffer(std::string(200, 'x') + "\ny", 64), in(&buffer) {}
  void run() { std::getline(in, line); }
  void check(bool) {
    CHECK_INT(in.rdstate(), allocation_failed ? bad : good);
    CHECK_INT(line.size(), allocation_failed ? strlen(line.c_str()) : 200);
  }
  piece_buffer buffer;
  std::istream in;
  std::string line;
};

static void test_memory() {
  for (int n = 1;; ++n) {
    const long before = live_blocks;
    {
      reading_line one;
      allocation_failed = false;
      allocation_to_fail = n;
      one.run();
      allocation_to_fail = 0;
      one.check(allocation_failed);
    }
    CHECK_INT(live_blocks, before);
    if (!allocation_failed) {
      CHECK(n > 1);
      break;
    }
  }
}

int main() {
  std::locale::classic();  // its blocks stay
  test_throwing_buffers();
  test_words_pass();
  test_facets();
  test_num_get();
  test_destinations();
  test_memory();
  return TEST_RESULT();
}

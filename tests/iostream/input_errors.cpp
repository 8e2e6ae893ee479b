// What user buffers and facets throw from each virtual operation: it becomes badbit, or failure when exceptions() asks
// for it. No exception is lost, no memory leaks, no character goes missing.

#include <locale>
#include <sstream>

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
struct taking_all : std::streambuf {
  virtual int overflow(int c) { return c; }
};
static void into_buffer(std::istream &in) {
  taking_all to;
  in.get(to);
}
static void all_into_buffer(std::istream &in) {
  taking_all to;
  in >> &to;
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
               {character, at_underflow, 0},
               {word, at_uflow, 1},
               {word, at_underflow, 3},
               {skip, at_underflow, 0},
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
               {all_into_buffer, at_uflow, 3}};
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

// A word into a string keeps what was taken before the buffer threw, in blocks and beyond, and can be read on.
static void test_words() {
  static const int lengths[] = {0, 3, 511, 512, 1500};
  for (unsigned int i = 0; i < sizeof lengths / sizeof *lengths; ++i)
    for (int mask = 0; mask < 8; ++mask) {
      const long blocks = live_blocks;
      {
        // The first character is looked at twice, by the sentry, too.
        throwing_buffer buffer(std::string(2000, 'x'), at_underflow, lengths[i] + 1);
        std::istream in(&buffer);
        in.exceptions(mask);
        std::string text = "before", rest;
        bool failed = false;
        try {
          in >> text;
        } catch (const std::ios_base::failure &) {
          failed = true;
        }
        CHECK_INT(in.rdstate(), lengths[i] ? bad : bad | fail);
        CHECK_INT(failed, (in.rdstate() & mask) != 0);
        CHECK_INT(text.size(), lengths[i]);
        CHECK_INT(thrown::live, 0);
        in.exceptions(good);
        in.clear();
        in >> rest;
        CHECK_INT(text.size() + rest.size(), 2000);
        CHECK_INT(in.rdstate(), eof);
      }
      CHECK_INT(live_blocks, blocks);
    }

  // The sentry's exception leaves the string alone.
  throwing_buffer early("  x", at_uflow);
  std::istream in(&early);
  std::string text = "before";
  in >> text;
  CHECK_INT(in.rdstate(), bad);
  CHECK_TEXT(text.c_str(), "before");
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

// Without memory a line or a word becomes badbit; the string holds something whole, and the buffer the rest.
// Buffers show all at once, pieces, or single characters.
static void read_without_memory(bool whole_line, int piece, int n) {
  const std::string text = std::string(200, 'x') + "\ny";
  std::stringbuf all(text, std::ios_base::in);
  piece_buffer some(text, piece);
  slow_buffer one(text);
  std::istream in(piece == 0   ? static_cast<std::streambuf *>(&all)
                  : piece == 1 ? static_cast<std::streambuf *>(&one)
                               : &some);
  std::string first, rest;
  allocation_failed = false;
  allocation_to_fail = n;
  if (whole_line)
    std::getline(in, first);
  else
    in >> first;
  allocation_to_fail = 0;
  CHECK_INT(in.rdstate() & ~fail, allocation_failed ? bad : good);
  CHECK_INT(first.size(), strlen(first.c_str()));
  in.clear();
  if (allocation_failed) std::getline(in, rest);
  // A word's single characters wait in a block, which may be lost.
  CHECK(first.size() + rest.size() == 200 || (allocation_failed && !whole_line && piece == 1));
}

static void test_memory() {
  for (int kind = 0; kind < 6; ++kind)
    for (int n = 1;; ++n) {
      const long before = live_blocks;
      read_without_memory(kind % 2, kind / 2 == 2 ? 64 : kind / 2, n);
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
  test_words();
  test_facets();
  test_num_get();
  test_destinations();
  test_memory();
  return TEST_RESULT();
}

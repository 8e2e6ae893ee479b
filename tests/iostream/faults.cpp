// What goes wrong: each operation of streams meets each call of its buffer that fails or throws, each facet that throws
// or is missing, and each allocation that fails, with each mask of exceptions. Only failure is ever thrown, when the
// mask asks for it; what was thrown becomes badbit, nothing leaks, and no character goes missing.
// test-variants: -O0 | -O2
#include <bitset>
#include <complex>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <strstream>
#include <typeinfo>

#include "../buffers.h"
#include "../fail_allocation.h"

namespace {

enum { good = 0, bad = std::ios::badbit, eof = std::ios::eofbit, fails = std::ios::failbit };

template <class T> void insert(std::iostream &s) { s << T(); }
template <class T> void extract(std::iostream &s) {
  T value = T();
  s >> value;
}
char array[16];
void longest_out(std::iostream &s) { s << (1ll << 40); }
void text_out(std::iostream &s) { s << "text"; }
void string_out(std::iostream &s) { s << std::string("string"); }
void wide_string_out(std::iostream &s) { s << std::setw(9) << std::left << std::string("string"); }
void put_char(std::iostream &s) { s.put('c'); }
void block_out(std::iostream &s) { s.write("block", 5); }
void flush(std::iostream &s) { s.flush(); }
void end_line(std::iostream &s) { s << std::endl; }
void seek_out(std::iostream &s) { s.seekp(3); }
void move_out(std::iostream &s) { s.seekp(3, std::ios::cur); }
void tell_out(std::iostream &s) { s.tellp(); }
void buffer_out(std::iostream &s) {
  std::stringbuf from("xy");
  s << &from;
}
void get_char(std::iostream &s) { s.get(); }
void get_array(std::iostream &s) { s.get(array, 16); }
void get_line(std::iostream &s) { s.getline(array, 16, ';'); }
void get_newline(std::iostream &s) { s.getline(array, 16); }
void string_line(std::iostream &s) {
  std::string text;
  std::getline(s, text);
}
void given_line(std::iostream &s) {
  std::string text;
  std::getline(s, text, '\n');
}
void word(std::iostream &s) { s >> std::setw(16) >> array; }
void skip(std::iostream &s) { s >> std::ws; }
void ignore(std::iostream &s) { s.ignore(5); }
void peek(std::iostream &s) { s.peek(); }
void read(std::iostream &s) { s.read(array, 3); }
void read_ready(std::iostream &s) { s.peek(), s.readsome(array, 5); }
void put_back(std::iostream &s) { s.get(), s.putback('x'); }
void unget(std::iostream &s) { s.get(), s.unget(); }
void seek_in(std::iostream &s) { s.seekg(1); }
void move_in(std::iostream &s) { s.seekg(1, std::ios::cur); }
void tell_in(std::iostream &s) { s.tellg(); }
void sync_in(std::iostream &s) { s.sync(); }
void into_buffer(std::iostream &s) {
  std::stringbuf to;
  s.get(to);
}
void all_into_buffer(std::iostream &s) {
  std::stringbuf to;
  s >> &to;
}
// A codecvt is asked when a file is written.
void file_out(std::iostream &s) {
  std::ofstream out("/dev/null");
  out.imbue(s.getloc());
  out.exceptions(s.exceptions());
  try {
    out.write("abc", 3);
  } catch (...) {
    s.exceptions(good);
    s.setstate(out.rdstate());
    throw;
  }
  s.setstate(out.rdstate());
}

// Which call of the buffer it stands on, and what it says when that fails; whether it counts what it takes; and what
// becomes of it without facets of numbers, without ctype and with skipws, and without skipws: '-' as ever, 'b' badbit,
// 'p' bad_cast passes.
const struct an_operation {
  void (*run)(std::iostream &);
  a_buffer_call call;
  int says;
  bool counts;
  const char *without;
} operations[] = {{insert<int>, overflows, good, false, "bbb"},
                  {insert<short>, overflows, good, false, "bbb"},
                  {insert<unsigned>, overflows, good, false, "bbb"},
                  {insert<double>, overflows, good, false, "bbb"},
                  {insert<long double>, overflows, good, false, "bbb"},
                  {insert<bool>, overflows, good, false, "b--"},
                  {insert<void *>, overflows, good, false, "b--"},
                  {longest_out, overflows, good, false, "bbb"},
                  {insert<std::complex<double> >, buffer_calls, good, false, "bbb"},
                  {insert<char>, overflows, good, false, "---"},
                  {text_out, overflows, good, false, "---"},
                  {string_out, xsputns, fails, false, "---"},
                  {wide_string_out, overflows, fails, false, "---"},
                  {put_char, overflows, bad, false, "---"},
                  {block_out, xsputns, bad, false, "---"},
                  {flush, syncs, bad, false, "---"},
                  {end_line, syncs, bad, false, "-pp"},
                  {seek_out, seeks, fails, false, "---"},
                  {move_out, seeks, fails, false, "---"},
                  {tell_out, seeks, good, false, "---"},
                  {buffer_out, overflows, fails, false, "---"},
                  {file_out, buffer_calls, good, false, "-bb"},
                  {get_char, uflows, eof | fails, true, "---"},
                  {get_array, uflows, eof | fails, true, "-bb"},
                  {get_line, uflows, eof | fails, true, "---"},
                  {get_newline, uflows, eof | fails, true, "-bb"},
                  {string_line, uflows, eof | fails, false, "-bb"},
                  {given_line, uflows, eof | fails, false, "---"},
                  {extract<int>, underflows, eof | fails, false, "bbb"},
                  {extract<unsigned short>, underflows, eof | fails, false, "bbb"},
                  {extract<long long>, uflows, eof | fails, false, "-bb"},
                  {extract<double>, underflows, eof | fails, false, "bbb"},
                  {extract<bool>, underflows, eof | fails, false, "bbb"},
                  {extract<void *>, underflows, eof | fails, false, "bbb"},
                  {extract<char>, uflows, fails, false, "-b-"},
                  {extract<std::string>, uflows, eof | fails, false, "-bp"},
                  {word, uflows, eof | fails, false, "-bb"},
                  {extract<std::bitset<3> >, uflows, eof | fails, false, "-b-"},
                  {extract<std::complex<float> >, underflows, eof | fails, false, "bbb"},
                  {skip, uflows, eof, false, "-bb"},
                  {ignore, uflows, eof, true, "---"},
                  {peek, underflows, eof, false, "---"},
                  {read, xsgetns, eof | fails, false, "---"},
                  {read_ready, xsgetns, good, false, "---"},
                  {read_ready, showmanycs, eof, false, "---"},
                  {put_back, pbackfails, bad, false, "---"},
                  {unget, pbackfails, bad, false, "---"},
                  {seek_in, seeks, fails, false, "---"},
                  {move_in, seeks, fails, false, "---"},
                  {tell_in, seeks, good, false, "---"},
                  {sync_in, syncs, bad, false, "---"},
                  {into_buffer, underflows, eof | fails, false, "-bb"},
                  {all_into_buffer, uflows, eof | fails, false, "-b-"}};
const unsigned operation_count = sizeof operations / sizeof *operations;

enum { nothing, failure, a_thrown, missing };

// What the operation throws.
int thrown_by(const an_operation &o, std::iostream &s) {
  try {
    o.run(s);
  } catch (const std::ios_base::failure &f) {
    CHECK_TEXT(f.what(), "Failure reported");
    return failure;
  } catch (const thrown &) {
    return a_thrown;
  } catch (const std::bad_cast &e) {
    CHECK_TEXT(e.what(), "Facet not present\n");
    return missing;
  }
  return nothing;
}

bool says(bool holds, const char *what, unsigned operation, int a, int b) {
  CHECK(holds);
  if (!holds) fprintf(stderr, "  operation %u, %d, %d: %s\n", operation, a, b, what);
  return holds;
}

void buffers() {
  for (unsigned i = 0; i < operation_count; ++i) {
    const an_operation &o = operations[i];
    int reached = 0;
    for (int call = 0; call <= buffer_calls; ++call)
      for (int variant = 0; variant < 8 * 2 * 4 * 2; ++variant) {
        const int mask = variant % 8, calm = variant / 16 % 4;
        const bool throws = variant / 8 % 2 != 0;
        const long before = live_blocks;
        {
          scripted buffer(variant & 64 ? "12 (345,1)\n" : "  10 (3,4)\n", variant & 64 ? 0 : 2, 0);
          std::iostream s(&buffer);
          buffer.let_fail(a_buffer_call(call), calm, throws);
          s.exceptions(mask);
          const int got = thrown_by(o, s);
          says(got == ((s.rdstate() & mask) ? failure : nothing), "failure by the mask alone", i, call, variant);
          if (throws && buffer.has_failed()) says(s.bad(), "badbit", i, call, variant);
          if (o.counts && call == underflows) says(int(buffer.position()) == s.gcount(), "the count", i, call, variant);
          if (throws && (o.call == call || (o.call == uflows && call == underflows))) reached += buffer.has_failed();
        }
        if (!says(live_blocks == before && thrown::live == 0, "a leak", i, call, variant)) return;
      }
    if (o.call == buffer_calls) continue;
    says(reached != 0, "the call was not reached", i, o.call, 0);
    // Without skipping, so that the first call is the operation's own.
    const bool ends = o.call == uflows || o.call == underflows;
    scripted buffer(ends ? "" : "12 (345,1)\n");
    std::iostream s(&buffer);
    s.unsetf(std::ios::skipws);
    s.width(3);
    if (!ends) buffer.let_fail(o.call, 0, false);
    thrown_by(o, s);
    says(s.rdstate() == o.says, "the state", i, s.rdstate(), o.says);
  }
}

// Streams that are not good are refused, without a look at the buffer; each without a buffer is bad.
void refused() {
  for (unsigned i = 0; i < operation_count; ++i) {
    const an_operation &o = operations[i];
    if (o.call == buffer_calls || o.call == seeks || o.run == sync_in || o.run == skip || o.run == put_back ||
        o.run == unget || o.run == read_ready)
      continue;
    scripted buffer("12");
    std::iostream s(&buffer), none(0);
    s.setstate(eof);
    s.width(2), none.width(2);
    thrown_by(o, s), thrown_by(o, none);
    const int put = o.run == put_char || o.run == end_line ? int(bad) : int(good);
    says(s.rdstate() == (eof | fails | put), "refused", i, s.rdstate(), 0);
    says(none.rdstate() == (bad | fails), "no buffer", i, none.rdstate(), 0);
    for (int c = 0; c < syncs; ++c) says(buffer.calls[c] == 0, "asked", i, c, 0);
    const bool resets = o.run == insert<char> || o.run == word;
    if (o.run != wide_string_out && o.run != word) says(none.width() == (resets ? 0 : 2), "width", i, none.width(), 0);
  }
}

// The name of the operation of a facet that throws, once.
const char *armed = "";
void at(const char *name) {
  if (strcmp(name, armed) != 0) return;
  armed = "";
  throw thrown();
}
template <class T> T from(const char *name, T value) { return at(name), value; }

struct digits : std::numpunct<char> {
  virtual char do_decimal_point() const { return from("point", '.'); }
  virtual char do_thousands_sep() const { return from("separator", ','); }
  virtual std::string do_grouping() const { return from("grouping", std::string("\3")); }
  virtual std::string do_truename() const { return from("true", std::string(60, 'y')); }
  virtual std::string do_falsename() const { return from("false", std::string(60, 'n')); }
};
struct letters : std::ctype<char> {
  virtual char do_widen(char c) const { return from("widen", c); }
  virtual const char *do_widen(const char *lo, const char *hi, char *to) const {
    return at("widen all"), std::ctype<char>::do_widen(lo, hi, to);
  }
  virtual char do_narrow(char c, char) const { return from("narrow", c); }
};
typedef std::ostreambuf_iterator<char> out_iterator;
typedef std::istreambuf_iterator<char> in_iterator;
#define PUT(type) \
  virtual out_iterator do_put(out_iterator out, std::ios_base &, char, type) const { return from("put " #type, out); }
struct writer : std::num_put<char> {
  PUT(bool) PUT(long) PUT(unsigned long) PUT(double) PUT(long double) PUT(const void *)
};
#define GET(type)                                                                                                    \
  virtual in_iterator do_get(in_iterator in, in_iterator, std::ios_base &, std::ios_base::iostate &, type &) const { \
    return from("get " #type, in);                                                                                   \
  }
struct reader : std::num_get<char> {
  GET(bool) GET(unsigned short) GET(long) GET(float) GET(double) GET(void *)
};
struct converter : std::codecvt<char, char, int> {
  virtual result do_out(int &, const char *, const char *, const char *&, char *, char *, char *&) const {
    return from("out", noconv);
  }
  virtual bool do_always_noconv() const { return from("always_noconv", false); }
  virtual int do_max_length() const { return from("max_length", 1); }
};

std::locale of_own(bool numbers) {
  std::locale made(std::locale(std::locale::classic(), new digits), new letters);
  made = std::locale(made, new converter);
  return numbers ? std::locale(std::locale(made, new writer), new reader) : made;
}

void facets() {
  static const char *const names[] = {
      "point",    "separator",          "grouping",          "true",       "false",           "widen",
      "put bool", "put long",           "put unsigned long", "put double", "put long double", "put const void *",
      "get bool", "get unsigned short", "get long",          "get float",  "get double",      "get void *",
      "out",      "always_noconv",      "max_length"};
  for (unsigned n = 0; n < sizeof names / sizeof *names; ++n) {
    int reached = 0;
    for (unsigned i = 0; i < 2 * 8 * operation_count; ++i) {
      const an_operation &o = operations[i / 16];
      const int mask = i % 8;
      const long before = live_blocks;
      {
        scripted buffer("1.5 (345,1)\nx");
        std::iostream s(&buffer);
        s.imbue(of_own(i / 8 % 2));
        s.setf(std::ios::boolalpha);
        s.exceptions(mask);
        armed = names[n];
        const int got = thrown_by(o, s);
        if (!*armed) {
          ++reached;
          const bool open = o.run == end_line;
          says(open || s.bad(), names[n], i / 16, mask, s.rdstate());
          says(got == (open ? a_thrown : (s.rdstate() & mask) ? failure : nothing), names[n], i / 16, mask, got);
        }
        armed = "";
        s.exceptions(good);
        s.clear();
        says((s << "on").good(), "works on", i / 16, mask, 0);
      }
      says(live_blocks == before && thrown::live == 0, "a leak", i, mask, 0);
    }
    if (!reached) fprintf(stderr, "nobody asks for \"%s\"\n", names[n]);
    CHECK(reached != 0);
  }
}

// Locales that lack facets, as only generated code can make one.
void missing_facets() {
  const int all = std::locale::all, lacks[] = {all & ~std::locale::numeric, all & ~std::locale::ctype};
  for (unsigned i = 0; i < operation_count; ++i)
    for (int which = 0; which < 3; ++which) {
      const long before = live_blocks;
      {
        std::locale::imp *imp = new std::locale::imp("C", lacks[which != 0]);
        std::locale &bare = *reinterpret_cast<std::locale *>(&imp);
        std::stringstream s("12 (1,2)\n", std::ios::in | std::ios::out);
        s.imbue(bare);
        s.setstate(good);
        if (which != 1) s.unsetf(std::ios::skipws);
        const int got = thrown_by(operations[i], s);
        const char outcome = got == missing ? 'p' : s.bad() ? 'b' : '-';
        if (operations[i].call != pbackfails)
          says(outcome == operations[i].without[which], "without", i, which, outcome);
        bare._release();
      }
      CHECK_INT(live_blocks, before);
    }
}

// Where the program makes a stream, or calls a facet itself, what is thrown passes, and nothing is left of the stream.
template <class T> struct part_of : T {
  part_of() {}
  explicit part_of(const std::string &text) : T(text) {}
  explicit part_of(const char *path) : T(path) {}
  explicit part_of(std::streambuf *none) : T(none) {}
};
template <class T, class A> void make(const A &argument) { T made(argument); }
void make_one(int kind) {
  const std::string text(200, 'x');
  std::streambuf *const none = 0;
  switch (kind) {
    case 0: return make<std::istream>(none);
    case 1: return make<std::ostream>(none);
    case 2: return make<std::iostream>(none);
    case 3: return make<part_of<std::istream> >(none);
    case 4: return make<std::ofstream>("/dev/null");
    case 5: return make<part_of<std::fstream> >("/dev/null");
    case 6: return make<std::ifstream>("/dev/null");
    case 7: return make<std::istringstream>(text);
    case 8: return make<part_of<std::ostringstream> >(text);
    case 9: return make<std::stringstream>(text);
    case 10: return make<part_of<std::stringstream> >(text);
    case 11: return make<std::istrstream>("text");
    case 12: return make<part_of<std::istrstream> >("text");
    case 13: std::ostringstream(); break;
    case 14: part_of<std::strstream>(); break;
    case 15: std::ostrstream(); break;
  }
}
void constructors() {
  const std::locale before = std::locale::global(of_own(false));
  const long blocks = live_blocks;
  for (int kind = 0; kind < 16; ++kind) {
    int passed = 0;
    armed = "widen";
    try {
      make_one(kind);
    } catch (const thrown &) {
      passed = 1;
    }
    says(passed, "passes", kind, 0, 0);
    says(live_blocks == blocks && thrown::live == 0, "a leak", kind, 0, 0);
  }
  std::locale::global(before);
}

// The tied stream's flush: what it throws by its own mask passes through an output stream that waits, and makes an
// input stream bad. unitbuf: the synchronisation at the end fails like any other part, but not while something is on
// its way.
void ties_and_ends() {
  for (int throws = 0; throws < 2; ++throws) {
    scripted broken, fine("x");
    std::ostream tied(&broken);
    std::iostream s(&fine);
    broken.let_fail(syncs, 0, throws != 0);
    s.tie(&tied);
    s << 1;
    CHECK(s.good() && tied.bad());
    tied.clear();
    tied.exceptions(bad);
    CHECK_INT(thrown_by(operations[0], s), failure);
    CHECK(s.good());
    tied.exceptions(good), tied.clear(), tied.exceptions(bad);
    CHECK(s.get() == -1 && s.rdstate() == (bad | fails));
    s.clear(), tied.exceptions(good), tied.clear(), tied.exceptions(bad);
    s >> std::ws;
    CHECK_INT(s.rdstate(), bad);

    std::ostream out(&broken);
    out.setf(std::ios::unitbuf);
    out << 1 << "x";
    CHECK_INT(out.rdstate(), bad | fails);
    out.clear();
    out.exceptions(bad);
    int caught = 0;
    try {
      std::ostream::sentry end(out);
    } catch (const std::ios_base::failure &) {
      ++caught;
    }
    out.exceptions(good), out.clear(), out.exceptions(bad);
    try {
      std::ostream::sentry end(out);
      throw 5;
    } catch (int) {
      ++caught;
    }
    CHECK(caught == 2 && out.rdstate() == bad && thrown::live == 0);
  }
  // The flush changed the stream that waits: it is not written to.
  struct turning : std::streambuf {
    std::ios *other;
    virtual int sync() { return other->setstate(eof), 0; }
  } turn;
  scripted fine;
  std::ostream tied(&turn), out(&fine), none(0);
  turn.other = &out;
  out.tie(&tied);
  out << 7;
  CHECK(fine.taken() == "" && out.rdstate() == (eof | fails));
  none.setf(std::ios::unitbuf);
  none.clear();
  none << "";
  CHECK(none.bad());
}

struct writes_at_the_end {
  std::ostream &out;
  explicit writes_at_the_end(std::ostream &o) : out(o) {}
  ~writes_at_the_end() { out << 1 << "text" << 'c'; }
};
void while_unwinding() {
  scripted throwing, fine;
  throwing.let_fail(overflows, 0, true);
  std::ostream broken(&throwing), out(&fine);
  try {
    writes_at_the_end first(out), second(broken);
    throw 3;
  } catch (int) {}
  CHECK(fine.taken() == "1textc" && broken.rdstate() == (bad | fails) && thrown::live == 0);
}

// A word or a line keeps what came before the buffer threw; a destination that throws or is full loses nothing; and a
// refusal, even of one character, ends a C string and its fill.
void nothing_is_lost() {
  static const int lengths[] = {0, 3, 511, 512, 1500};
  for (int i = 0; i < 15; ++i) {
    scripted source(std::string(2000, 'x'), i % 3 == 2 ? 7 : 0);
    std::istream s(&source);
    // Where it shows no characters, a look comes before each is taken.
    source.let_fail(underflows, i % 3 == 2 ? lengths[i / 3] / 7 : lengths[i / 3] + (i % 3 == 0), true);
    std::string text = "before", rest;
    if (i % 3)
      std::getline(s, text);
    else
      s >> text;
    CHECK(s.bad() && thrown::live == 0);
    const std::size_t kept = s.fail() && text == "before" ? 0 : text.size();
    CHECK_INT(kept, source.position());
    if (i % 3 < 2) CHECK(int(kept) >= lengths[i / 3] - 1 && int(kept) <= lengths[i / 3] + 1);
  }
  for (int step = 0; step <= 9; step += 3)
    for (int throws = 0; throws < 2; ++throws) {
      scripted source("abcdef", step), first, second;
      std::iostream s(&source);
      first.let_fail(overflows, 2, throws != 0);
      second.let_fail(overflows, 1, throws != 0);
      s >> &first;
      CHECK_INT(s.rdstate(), throws ? bad : good);
      s.clear();
      s.get(second, 'x');
      CHECK(first.taken() == "ab" && second.taken() == "c" && s.gcount() == 1 && source.rest() == "def");
      std::iostream out(&first);
      first.let_fail(overflows, 1, throws != 0);
      s.clear();
      out << &source;
      CHECK(first.taken() == "d" && source.rest() == "ef");
    }
  for (int right = 0; right < 2; ++right) {
    scripted to;
    std::ostream out(&to);
    to.let_fail(overflows, 2, false, true);
    out << (right ? std::right : std::left) << std::setw(9) << "abcde";
    CHECK(out.good() && to.taken() == (right ? "  " : "ab"));
    to.let_fail(overflows, 2, false, true);
    out << std::setw(5) << std::string("abc");
    CHECK_INT(out.rdstate(), fails);
  }
}

// Without memory a line or a word becomes badbit; the string holds something whole, and the buffer the rest.
void memory() {
  for (int kind = 0; kind < 6; ++kind)
    for (int n = 1;; ++n) {
      const long before = live_blocks;
      {
        const std::string text = std::string(200, 'x') + "\ny";
        scripted shown(text, kind / 2 * 32);
        std::stringbuf whole(text, std::ios::in);
        std::istream s(kind / 2 == 1 ? static_cast<std::streambuf *>(&whole) : &shown);
        std::string first, rest;
        allocation_failed = false;
        allocation_to_fail = n;
        if (kind % 2)
          std::getline(s, first);
        else
          s >> first;
        allocation_to_fail = 0;
        CHECK_INT(s.rdstate() & ~fails, allocation_failed ? bad : good);
        CHECK_INT(first.size(), strlen(first.c_str()));
        s.clear();
        if (allocation_failed) std::getline(s, rest);
        // A word's single characters wait in a block, which may be lost.
        CHECK(first.size() + rest.size() == 200 || (allocation_failed && kind == 0));
      }
      CHECK_INT(live_blocks, before);
      if (!allocation_failed) {
        CHECK(n > 1);
        break;
      }
    }
  // Numbers and frames need no memory.
  scripted to;
  std::iostream s(&to);
  s << "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" << 1.5;
  to.taken();
  const long before = allocation_calls;
  std::ostream none(0);
  none << 1 << 2.5 << "t" << 'c' << true << 1ll;
  CHECK_INT(allocation_calls, before);
}

}  // namespace

int main() {
  std::locale::classic();  // its blocks stay
  std::ofstream("/dev/null");
  buffers();
  refused();
  facets();
  missing_facets();
  constructors();
  ties_and_ends();
  while_unwinding();
  nothing_is_lost();
  memory();
  return TEST_RESULT();
}

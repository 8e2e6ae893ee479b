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
#include <vector>

#include "../buffers.h"
#include "../fail_allocation.h"
#include "operations.h"

using namespace operations;

namespace {

enum { good = 0, bad = std::ios::badbit, eof = std::ios::eofbit, fails = std::ios::failbit };

// Beside those of operations.h.
enum { flush_all = kinds, sync_in, file_out };

// Which call of the buffer operations stand on, and what they say when that fails; how often they flush the tied
// stream, and whether they count what they take; and what becomes of them without facets of numbers, without ctype and
// with skipws, and without skipws: '-' as ever, 'b' badbit, 'p' bad_cast passes.
const struct a_row {
  int first, last, width;
  a_buffer_call call;
  int says, flushes;
  bool counts;
  const char *without;
} table[] = {{out_short, out_long_double, 0, overflows, good, 1, false, "bbb"},
             {out_bool, out_pointer, 0, overflows, good, 1, false, "b--"},
             {out_complex, out_complex, 0, buffer_calls, good, 1, false, "bbb"},
             {out_char, out_char, 0, overflows, good, 3, false, "---"},
             {out_c_string, out_unsigned_c_string, 9, overflows, good, 1, false, "---"},
             {out_string, out_string, 0, xsputns, fails, 1, false, "---"},
             {out_string, out_string, 9, overflows, fails, 1, false, "---"},
             {out_block, out_block, 0, xsputns, bad, 1, false, "---"},
             {out_put, out_put, 0, overflows, bad, 1, false, "---"},
             {flush_all, flush_all, 0, syncs, bad, 1, false, "---"},
             {out_line, out_line, 0, syncs, bad | fails, 5, false, "-pp"},
             {out_buffer, out_buffer, 1, overflows, fails, 1, false, "---"},
             {file_out, file_out, 0, buffer_calls, good, 0, false, "-bb"},
             {move_get, move_put, 0, seeks, fails, 0, false, "---"},
             {tell_both, tell_both, 0, seeks, good, 0, false, "---"},
             {sync_in, sync_in, 0, syncs, bad, 0, false, "---"},
             {get_one, get_into, 0, uflows, eof | fails, 1, true, "---"},
             {get_part, get_part, 1, uflows, eof | fails, 1, true, "-bb"},
             {get_part, get_part, 0, uflows, eof | fails, 1, true, "---"},
             {get_line, get_line, 1, uflows, eof | fails, 1, true, "---"},
             {get_line, get_line, 0, uflows, eof | fails, 1, true, "-bb"},
             {get_string_line, get_string_line, 0, uflows, eof | fails, 1, false, "-bb"},
             {get_string_part, get_string_part, 0, uflows, eof | fails, 1, false, "---"},
             {in_int, in_double, 0, underflows, eof | fails, 1, false, "bbb"},
             {in_short, in_unsigned, 0, underflows, eof | fails, 1, false, "bbb"},
             {in_longest, in_unsigned_longest, 0, uflows, eof | fails, 1, false, "-bb"},
             {in_float, in_pointer, 0, underflows, eof | fails, 1, false, "bbb"},
             {in_char, in_char, 0, uflows, fails, 1, false, "-b-"},
             {in_string, in_string, 0, uflows, eof | fails, 1, false, "-bp"},
             {in_array, in_array, 9, uflows, eof | fails, 1, false, "-bb"},
             {in_bits, in_bits, 0, uflows, eof | fails, 1, false, "-b-"},
             {in_complex, in_complex, 0, underflows, eof | fails, 3, false, "bbb"},
             {skip_space, skip_space, 0, uflows, eof, 1, false, "-bb"},
             {ignore_some, ignore_some, 0, uflows, eof, 1, true, "---"},
             {peek_one, peek_one, 0, underflows, eof, 1, false, "---"},
             {read_some, read_some, 0, xsgetns, eof | fails, 1, false, "---"},
             {ready_some, ready_some, 0, xsgetns, good, 1, false, "---"},
             {ready_some, ready_some, 0, showmanycs, eof, 1, false, "---"},
             {give_back, give_back, 0, pbackfails, bad, 1, false, "---"},
             {give_other, give_other, 0, pbackfails, bad, 1, false, "---"},
             {get_buffer, get_buffer, 0, underflows, eof | fails, 1, false, "---"},
             {in_buffer, in_buffer, 4, uflows, eof | fails, 1, false, "-b-"}};
struct a_case : a_row {
  int what;
};
std::vector<a_case> cases;

void expand_table() {
  for (unsigned i = 0; i < sizeof table / sizeof *table; ++i)
    for (int what = table[i].first; what <= table[i].last; ++what) {
      a_case one;
      static_cast<a_row &>(one) = table[i];
      one.what = what;
      cases.push_back(one);
    }
}

// A codecvt is asked when a file is written.
void write_file(std::iostream &s) {
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

void run(const a_case &c, std::iostream &s) {
  an_operation o = {unsigned(c.what), 5, c.width, 6, ';', ' ', 1LL << 40, 1.5, "text", s.flags() | std::ios::left};
  if (c.what == out_bool) o.integer = 1;
  switch (c.what) {
    case flush_all: s.flush(); break;
    case sync_in: s.sync(); break;
    case file_out: write_file(s); break;
    default: perform(s, o, false);
  }
}

enum { nothing, failure, a_thrown, missing };

// What the operation throws.
int thrown_by(const a_case &c, std::iostream &s) {
  try {
    run(c, s);
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
  for (unsigned i = 0; i < cases.size(); ++i) {
    const a_case &o = cases[i];
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
  for (unsigned i = 0; i < cases.size(); ++i) {
    const a_case &o = cases[i];
    if (o.call >= seeks || o.call == pbackfails || o.what == skip_space || o.what == ready_some) continue;
    scripted buffer("12");
    std::iostream s(&buffer), none(0);
    s.setstate(eof);
    thrown_by(o, s), thrown_by(o, none);
    const int put = o.what == out_put ? int(bad) : int(good);
    says(s.rdstate() == (eof | fails | put), "refused", i, s.rdstate(), 0);
    says(none.rdstate() == (bad | fails), "no buffer", i, none.rdstate(), 0);
    for (int c = 0; c < syncs; ++c) says(buffer.calls[c] == 0, "asked", i, c, 0);
    says(none.width() == (o.what == out_char || o.what == in_array ? 0 : o.width), "width", i, none.width(), 0);
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
    for (unsigned i = 0; i < 2 * 8 * cases.size(); ++i) {
      const a_case &o = cases[i / 16];
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
          const bool open = o.what == out_line;
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
  for (unsigned i = 0; i < cases.size(); ++i)
    for (int which = 0; which < 3; ++which) {
      const long before = live_blocks;
      {
        std::locale::imp *imp = new std::locale::imp("C", lacks[which != 0]);
        std::locale &bare = *reinterpret_cast<std::locale *>(&imp);
        std::stringstream s("12 (1,2)\n", std::ios::in | std::ios::out);
        s.imbue(bare);
        s.setstate(good);
        if (which != 1) s.unsetf(std::ios::skipws);
        const int got = thrown_by(cases[i], s);
        const char outcome = got == missing ? 'p' : s.bad() ? 'b' : '-';
        if (cases[i].call != pbackfails) says(outcome == cases[i].without[which], "without", i, which, outcome);
        bare._release();
      }
      CHECK_INT(live_blocks, before);
    }
}

// Where the program makes a stream, what is thrown passes, and nothing is left of the stream.
template <class T> struct part_of : T {
  explicit part_of(const std::string &text) : T(text) {}
  explicit part_of(const char *path) : T(path) {}
  explicit part_of(std::streambuf *none) : T(none) {}
};
template <class T, class A> void make(A argument) {
  const long blocks = live_blocks;
  int passed = 0;
  armed = "widen";
  try {
    T made(argument);
  } catch (const thrown &) {
    passed = 1;
  }
  CHECK(passed && live_blocks == blocks && thrown::live == 0);
}
void constructors() {
  std::streambuf *const none = 0;
  const std::string text(200, 'x');
  const std::locale before = std::locale::global(of_own(false));
  make<std::istream>(none), make<part_of<std::ostream> >(none), make<std::iostream>(none);
  make<std::istringstream>(text), make<part_of<std::ostringstream> >(text), make<std::stringstream>(text);
  make<std::ofstream>("/dev/null"), make<part_of<std::fstream> >("/dev/null"), make<std::ifstream>("/dev/null");
  make<std::istrstream>("text"), make<part_of<std::istrstream> >("text");
  std::locale::global(before);
}

// Each operation flushes what is tied so often, whatever its buffer, and does not when the stream is not good; output
// with unitbuf synchronises as often, a file and all else.
void flushes() {
  const own_file path("faults", "-2 (3,4)\n");
  for (unsigned i = 0; i < 6 * cases.size(); ++i) {
    const a_case &o = cases[i / 6];
    const bool unit = i / 3 % 2, refused = i % 3 == 2;
    scripted buffer("12 (3,4)\n"), flushed;
    std::stringbuf text("12 (3,4)\n");
    std::filebuf file;
    file.open(path.name(), std::ios::in | std::ios::out);
    std::streambuf *const all[] = {&buffer, &text, &buffer, &buffer, &file, &buffer};
    std::iostream s(all[i % 6]);
    std::ostream tied(&flushed);
    if (unit)
      s.setf(std::ios::unitbuf);
    else
      s.tie(&tied);
    if (refused) s.setstate(eof);
    thrown_by(o, s);
    if (!unit) says(flushed.calls[syncs] == (refused ? 0 : o.flushes), "flushes", i / 6, i % 6, flushed.calls[syncs]);
    if (o.what < out_short || o.what > out_put) continue;
    if (i % 6 == 3) says(buffer.calls[syncs] == o.flushes, "synchronised", i / 6, i % 6, buffer.calls[syncs]);
    if (i % 6 == 4) says(path.content()[0] != '-', "waits", i / 6, i % 6, 0);
    path.hold("-2 (3,4)\n");
  }
}

// What the tied stream's flush throws by its own mask passes through an output stream that waits, and makes an input
// stream bad. unitbuf: the synchronisation at the end fails like any other part, but not while something is on its way.
void ties_and_ends() {
  for (int throws = 0; throws < 2; ++throws) {
    scripted broken, fine("x");
    std::ostream tied(&broken), out(&broken);
    std::iostream s(&fine);
    broken.let_fail(syncs, 0, throws != 0);
    s.tie(&tied);
    CHECK((s << 1).good() && tied.bad());
    for (int how = 0; how < 3; ++how) {
      tied.exceptions(good), tied.clear(), tied.exceptions(bad), s.clear();
      if (how == 0) CHECK(thrown_by(cases[0], s) == failure && s.good());
      if (how == 1) CHECK(s.get() == -1 && s.rdstate() == (bad | fails));
      if (how == 2) CHECK((s >> std::ws).rdstate() == bad);
    }
    out.setf(std::ios::unitbuf);
    CHECK_INT((out << 1 << "x").rdstate(), bad | fails);
    int caught = 0;
    for (int on_its_way = 0; on_its_way < 2; ++on_its_way) {
      out.exceptions(good), out.clear(), out.exceptions(bad);
      try {
        std::ostream::sentry end(out);
        if (on_its_way) throw 5;
      } catch (const std::ios_base::failure &) {
        ++caught;
      } catch (int) {
        caught += 10;
      }
    }
    CHECK(caught == 11 && out.rdstate() == bad && thrown::live == 0);
  }
  // The flush changed the stream that waits: it is not written to. Nobody's buffer is synchronised.
  struct turning : std::streambuf {
    std::ios *other;
    virtual int sync() { return other->setstate(eof), 0; }
  } turn;
  scripted fine, throwing;
  std::ostream tied(&turn), out(&fine), none(0), last(&fine), broken(&throwing);
  turn.other = &out;
  out.tie(&tied);
  CHECK((out << 7).rdstate() == (eof | fails) && fine.taken() == "");
  none.setf(std::ios::unitbuf), none.clear();
  CHECK((none << "").bad());
  // In destructors, while something is on its way.
  struct writes_at_the_end {
    std::ostream &out;
    ~writes_at_the_end() { out << 1 << "text" << 'c'; }
  };
  throwing.let_fail(overflows, 0, true);
  try {
    const writes_at_the_end first = {last}, second = {broken};
    throw &first.out == &second.out ? 4 : 3;
  } catch (int) {}
  CHECK(fine.taken() == "1textc" && broken.rdstate() == (bad | fails) && thrown::live == 0);
  // Circles come to an end, also after a failure.
  scripted one, two;
  std::iostream a(&one), b(&two);
  a.tie(&a), a.get(), a.clear();
  CHECK_INT(one.calls[syncs], 1);
  a << 1 << std::flush;
  a.tie(&b), b.tie(&a), one.calls[syncs] = two.calls[syncs] = 0;
  a.get(), a.clear();
  CHECK(one.calls[syncs] == 1 && two.calls[syncs] >= 1);
  one.let_fail(syncs, 0, false);
  for (int i = 0; i < 2; ++i) {
    a.exceptions(good), a.clear(), a.exceptions(bad);
    try {
      b.flush(), CHECK(!"nothing was thrown");
    } catch (const std::ios_base::failure &) {}
  }
}

// A tied file that holds nothing back needs no call; others, and those with a tie of their own, are written out, or set
// to where the reader is, for those who share them.
void tied_files() {
  const own_file path("faults");
  scripted outer, source(" 12 word\nx");
  std::ostream before(&outer);
  std::ofstream file(path.name());
  std::istringstream in(" 12 12 12 12");
  static const int reading[] = {in_int, in_string, get_one, get_string_line, get_line, in_char, peek_one, ignore_some};
  in.tie(&file);
  for (int how = 0; how < 16; ++how) {
    an_operation o = {unsigned(reading[how / 2]), 5, 0, 6, ';', ' ', 0, 0, "", in.flags()};
    std::stringstream text("1 2\nx 3");
    text.tie(&file);
    file.tie(how % 2 ? &before : 0);
    file << "c";
    for (int again = 0; again < 2; ++again) {
      const int syncs_before = outer.calls[syncs];
      perform(text, o, false);
      CHECK_INT(path.content().size(), how + 1);
      CHECK(how % 2 == 0 || outer.calls[syncs] > syncs_before);
    }
  }
  file.setstate(eof);
  in.get();
  CHECK_INT(file.rdstate(), eof | fails);
  path.hold("0123456789");
  FILE *const shared = fopen(path.name(), "r+");
  std::filebuf ahead(shared);
  std::ostream reader(&ahead);
  int n = 0;
  in.tie(&reader);
  CHECK(ahead.sbumpc() == '0' && lseek(fileno(shared), 0, SEEK_CUR) == 10);
  CHECK(in >> n && lseek(fileno(shared), 0, SEEK_CUR) == 1);
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
    std::string text = "before";
    i % 3 ? void(std::getline(s, text)) : void(s >> text);
    const std::size_t kept = s.fail() && text == "before" ? 0 : text.size();
    CHECK(s.bad() && !s.eof() && thrown::live == 0 && kept == source.position());
    if (i % 3 < 2) CHECK(int(kept) >= lengths[i / 3] - 1 && int(kept) <= lengths[i / 3] + 1);
  }
  for (int step = 0; step <= 9; step += 3)
    for (int throws = 0; throws < 2; ++throws) {
      scripted source("abcdef", step), first, second;
      std::iostream s(&source), out(&first);
      first.let_fail(overflows, 2, throws != 0);
      second.let_fail(overflows, 1, throws != 0);
      CHECK_INT((s >> &first).rdstate(), throws ? bad : good);
      s.clear();
      s.get(second, 'x');
      CHECK(first.taken() == "ab" && second.taken() == "c" && s.gcount() == 1 && source.rest() == "def");
      first.let_fail(overflows, 1, throws != 0);
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
    CHECK_INT((out << std::setw(5) << std::string("abc")).rdstate(), fails);
  }
}

// Without memory a line or a word becomes badbit; the string holds something whole, and the buffer the rest.
void memory() {
  for (int kind = 0; kind < 6; ++kind)
    for (int n = 1, again = 1; again; ++n) {
      const long before = live_blocks;
      {
        const std::string text = std::string(200, 'x') + "\ny";
        scripted shown(text, kind / 2 * 32);
        std::stringbuf whole(text, std::ios::in);
        std::istream s(kind / 2 == 1 ? static_cast<std::streambuf *>(&whole) : &shown);
        std::string first, rest;
        allocation_failed = false;
        allocation_to_fail = n;
        kind % 2 ? void(std::getline(s, first)) : void(s >> first);
        allocation_to_fail = 0;
        CHECK(s.rdstate() == (allocation_failed ? s.rdstate() | bad : good) && first.size() == strlen(first.c_str()));
        s.clear();
        if (allocation_failed) std::getline(s, rest);
        // A word's single characters wait in a block, which may be lost.
        CHECK(first.size() + rest.size() == 200 || (allocation_failed && kind == 0));
      }
      CHECK_INT(live_blocks, before);
      again = allocation_failed;
      CHECK(again || n > 1);
    }
  // Numbers and frames need no memory.
  scripted to;
  std::ostream s(&to), none(0);
  s << "xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx" << 1.5;
  const long before = allocation_calls;
  none << 1 << 2.5 << "t" << 'c' << true << 1ll;
  CHECK_INT(allocation_calls, before);
}

}  // namespace

int main() {
  std::locale::classic();  // its blocks stay
  std::ofstream("/dev/null");
  expand_table();
  buffers();
  refused();
  facets();
  missing_facets();
  constructors();
  flushes();
  ties_and_ends();
  tied_files();
  nothing_is_lost();
  memory();
  return TEST_RESULT();
}

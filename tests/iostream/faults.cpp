// What goes wrong: each operation of streams meets each call of its buffer that fails or throws, each facet that throws
// or is missing, and each allocation that fails, with each mask of exceptions. Only failure is ever thrown, when the
// mask asks for it; what was thrown becomes badbit, nothing leaks, and no character goes missing. data/faults has the
// operations. And what is tied is flushed so often, and no more.
// test-variants: -O0 | -O2
#include <typeinfo>

#include "../fail_allocation.h"
#include "operations.h"

using namespace operations;

namespace {

typedef std::ios b;
enum { good = 0, bad = b::badbit, eof = b::eofbit, fails = b::failbit };

// A row of data/faults, of one operation.
struct a_case {
  unsigned what;
  int width;
  a_buffer_call call;
  int says, flushes;
  bool counts;
  std::string name, without;
};
std::vector<a_case> cases;

void read_cases() {
  for (rows row(__FILE__, "data/faults"); row.next();) {
    std::istringstream names(row[0]);
    a_case one = {0,    row.number(1), a_buffer_call(place_of(row[2], NAMES(BUFFER_CALLS))),
                  good, row.number(4), row[5] == "yes",
                  "",   row[6]};
    for (unsigned i = 0; i < row[3].size(); ++i) one.says |= row[3][i] == 'b' ? bad : row[3][i] == 'e' ? eof : fails;
    while (names >> one.name) one.what = place_of(one.name, NAMES(OPERATIONS)), cases.push_back(one);
  }
}

enum { nothing, failure, a_thrown, missing, no_memory };

// What the operation throws, and what it got.
int thrown_by(const a_case &c, std::iostream &s, std::string *got = 0) {
  try {
    an_operation o(c.what, 5, s.flags() | b::left);
    o.width = c.width, o.integer = c.what == out_bool ? 1 : 1LL << 40, o.real = 1.5, o.c = ';', o.text = "text";
    std::string result;
    (got ? *got : result) = perform(s, o, false);
  } catch (const b::failure &f) {
    CHECK_TEXT(f.what(), "Failure reported");
    return failure;
  } catch (const thrown &) { return a_thrown; } catch (const std::bad_alloc &) {
    return no_memory;
  } catch (const std::bad_cast &e) {
    CHECK_TEXT(e.what(), "Facet not present\n");
    return missing;
  }
  return nothing;
}

bool says(bool holds, const char *what, const a_case &c, int a, int b) {
  CHECK(holds);
  if (!holds) fprintf(stderr, "  %s %d, %d, %d: %s\n", c.name.c_str(), c.width, a, b, what);
  return holds;
}

// In its scope nothing leaks.
struct a_balance {
  const long before;
  a_balance() : before(live_blocks) {}
  ~a_balance() { CHECK(live_blocks == before && thrown::live == 0); }
};

// Does it with that mask. What leaves is failure, as the mask says.
int masked(const a_case &o, std::iostream &s, int mask, int call, int variant, std::string *text = 0) {
  s.exceptions(mask);
  const int got = thrown_by(o, s, text);
  says(got == ((s.rdstate() & mask) ? failure : nothing), "failure by the mask", o, call, variant);
  return got;
}

// What an extractor must have got when so much was taken: no white space before it, no delimiter behind it.
std::string meant(unsigned what, std::string text) {
  const bool line = what == get_line || what == get_string_line;
  if (what == in_string || what == in_array || what == in_buffer)
    text.erase(0, text.find_first_not_of(' ') + 1 ? text.find_first_not_of(' ') : text.size());
  if (line && !text.empty() && *text.rbegin() == '\n') text.erase(text.size() - 1);
  return text;
}

void buffers() {
  const std::string
      texts[] = {"  10 (3,4)\n", "12 (345,1)\n", std::string(1500, 'x') + "\ny"},
      readers = "in_string, get_string_line, get_string_part, in_array, get_line, get_part, in_buffer, get_buffer";
  static const int calms[] = {0, 1, 2, 3, 511, 512, 513, 1400};
  for (unsigned i = 0; i < cases.size() && !test_failures; ++i) {
    const a_case &o = cases[i];
    int reached = 0, without_memory = 0;
    for (int call = 0; call <= buffer_calls; ++call)
      for (int variant = 0; variant < 8 * 2 * 3 * 4; ++variant) {
        const int mask = variant % 8, kind = variant / 16 % 3, calm = calms[variant / 48 + (kind == 2 ? 4 : 0)];
        const bool throws = variant / 8 % 2 != 0;
        const a_balance balance;
        const bool gets = place_of(o.name, readers) < 8, gets_string = place_of(o.name, readers) < 3;
        const bool in_window = gets_string && kind == 2 && call == buffer_calls;
        scripted buffer(texts[kind], kind == 0 ? 2 : 0, 0);
        std::stringbuf window(texts[kind]);
        std::iostream s(in_window ? static_cast<std::streambuf *>(&window) : &buffer);
        std::string text = "zzzzzz";
        buffer.let_fail(a_buffer_call(call), calm, throws, call == overflows);
        // Without a fault of the buffer, strings may get no memory, once the test has its own three blocks. What says
        // so needs none.
        allocation_to_fail = gets_string && call == buffer_calls && throws && mask <= bad ? 4 + variant / 48 : 0;
        allocation_failed = false;
        const int got = masked(o, s, mask, call, variant, &text);
        allocation_to_fail = 0, without_memory += allocation_failed;
        const std::size_t taken = in_window ? texts[kind].size() - window.in_avail() : buffer.position(),
                          written = buffer.taken().size();
        if ((throws && buffer.has_failed()) || allocation_failed) says(s.bad(), "badbit", o, call, variant);
        if (o.counts && call == underflows) says(int(taken) == s.gcount(), "the count", o, call, variant);
        if (throws && (o.call == call || (o.call == uflows && call == underflows))) reached += buffer.has_failed();
        text.erase(text.find('\0') + 1 ? text.find('\0') : text.size());
        const bool in_pieces = o.what == in_string && kind == 1;  // which may be lost without memory
        if (gets && (call == underflows || (allocation_failed && !in_pieces)) && text != "zzzzzz")
          says(text == meant(o.what, texts[kind].substr(0, taken)), "what was taken", o, call, variant);
        if (o.what == out_buffer && got == nothing)
          says(text == number("%lld", written < 4 ? "text"[written] : -1), "what was refused", o, call, variant);
        if (call == overflows && o.flushes == 1 && buffer.has_failed())
          says(int(written) == calm, "nothing behind a refusal", o, call, variant);
      }
    if (place_of(o.name, readers) < 3) says(without_memory != 0, "there was memory", o, 0, 0);
    if (o.call == buffer_calls) continue;
    says(reached != 0, "the call was not reached", o, o.call, 0);
    // Without skipping, so that the first call is the operation's own.
    const bool ends = o.call == uflows || o.call == underflows;
    scripted buffer(ends ? "" : "12 (345,1)\n");
    std::iostream s(&buffer);
    s.unsetf(b::skipws);
    if (!ends) buffer.let_fail(o.call, 0, false);
    thrown_by(o, s);
    says(s.rdstate() == o.says, "the state", o, s.rdstate(), o.says);
  }
}

// Each operation flushes what is tied so often, whatever its buffer; a tied file that holds something back is written
// out, and one with a tie of its own is flushed, too, though it holds nothing. What the tied stream's flush throws by
// its own mask passes through an output stream that waits, and makes an input stream bad; what it does to the stream
// that waits is seen. Output with unitbuf synchronises as often, a file and all else. A stream that is not good is
// refused, without a flush or a look at the buffer; one without a buffer is bad.
struct a_tied_buffer : scripted {
  std::ios *ended;
  virtual int sync() {
    if (ended) ended->setstate(eof);
    return scripted::sync();
  }
};
void flushes() {
  enum { characters, string, at_end, ends, broken, unit, unit_file, none, over_file, over_both, kinds };
  const own_file path("faults"), tied_path("tied");
  for (unsigned i = 0; i < kinds * cases.size(); ++i) {
    const a_case &o = cases[i / kinds];
    const int kind = i % kinds;
    const bool writes_text = o.what >= reads && o.what <= out_put, writes_any = o.what >= reads && o.what < writes;
    const bool waits = o.flushes && o.what != skip_space && o.what != flush_out;
    path.hold("--2 (3,4)\n");
    scripted buffer("12 (3,4)\n");
    a_tied_buffer flushed;
    std::stringbuf text("12 (3,4)\n");
    std::filebuf file;
    file.open(path.name(), b::in | b::out);
    file.sputc('-');  // stdio has its buffer
    std::streambuf *const all[] = {&buffer, &text, &buffer, &buffer, &buffer, &buffer, &file, 0, &text, &text};
    std::iostream s(all[kind]);
    std::ostream tied(&flushed);
    std::ofstream tied_file(tied_path.name());
    if (kind == over_file) tied_file << 'c';
    if (kind == over_both) tied_file.tie(&tied);
    if (kind < unit) s.tie(&tied);
    if (kind == unit || kind == unit_file || kind == none) s.setf(b::unitbuf);
    if (kind >= over_file) s.tie(&tied_file);
    if (kind == at_end) s.setstate(eof);
    flushed.ended = kind == ends ? &s : 0;
    if (kind == broken) flushed.let_fail(syncs, 0, i % 2), tied.exceptions(bad);
    const int got = thrown_by(o, s);
    const int seen = flushed.calls[syncs], held = 1 - static_cast<int>(tied_path.content().size());
    if (kind == broken && waits)
      says(writes_any ? got == failure && s.good() : got == nothing && s.bad(), "what is tied fails", o, got,
           s.rdstate());
    if (kind < ends) says(seen == (kind == at_end ? 0 : o.flushes), "flushes", o, kind, seen);
    if (kind == unit && writes_text) says(buffer.calls[syncs] == o.flushes, "synchronises", o, kind, 0);
    if (kind == unit_file && writes_text) says(path.content()[1] != '-', "is written", o, kind, 0);
    if (kind == over_file) says(held == !o.flushes, "a tied file is written", o, kind, held);
    if (kind == over_both) says((seen != 0) == (o.flushes != 0), "what is tied to it is flushed", o, kind, seen);
    if (!waits || (kind != at_end && kind != none && (kind != ends || !writes_any))) continue;
    const int state = (kind == none ? bad : eof) | fails | (o.what == out_put || o.what == out_line ? bad : good);
    says(s.rdstate() == state, "refused", o, kind, s.rdstate());
    says(s.width() == (o.what == out_char || o.what == in_array ? 0 : o.width), "width", o, kind, s.width());
    for (int c = 0; c < syncs; ++c) says(buffer.calls[c] == 0, "asked", o, kind, c);
  }
}

// So many calls of facets go well, then one throws.
const int always = 1 << 30;
int calm = always;
template <class T> T from(T value) { return calm-- == 0 ? throw thrown() : value; }

struct digits : std::numpunct<char> {
  virtual char do_decimal_point() const { return from('.'); }
  virtual std::string do_grouping() const { return from(std::string("\3")); }
  virtual std::string do_truename() const { return from(std::string(60, 'y')); }
};
struct letters : std::ctype<char> {
  virtual char do_widen(char c) const { return from(c); }
};
typedef std::ostreambuf_iterator<char> out_iterator;
typedef std::istreambuf_iterator<char> in_iterator;
#define PUT(type) \
  virtual out_iterator do_put(out_iterator out, std::ios_base &, char, type) const { return from(out); }
struct writer : std::num_put<char> {
  PUT(bool) PUT(long) PUT(unsigned long) PUT(double) PUT(long double) PUT(const void *)
};
#define GET(type)                                                                                        \
  virtual in_iterator do_get(in_iterator in, in_iterator, std::ios_base &, b::iostate &, type &) const { \
    return from(in);                                                                                     \
  }
struct reader : std::num_get<char> {
  GET(bool) GET(unsigned short) GET(long) GET(float) GET(double) GET(void *)
};
struct converter : std::codecvt<char, char, int> {
  virtual result do_out(int &, const char *, const char *, const char *&, char *, char *, char *&) const {
    return from(noconv);
  }
  virtual bool do_always_noconv() const { return from(false); }
  virtual int do_max_length() const { return from(1); }
};

std::locale of_own(bool numbers) {
  std::locale made(std::locale(std::locale::classic(), new digits), new letters);
  return numbers ? std::locale(std::locale(std::locale(made, new writer), new reader), new converter) : made;
}

// Each buffer is a file's with the facets of numbers, since files ask for a codecvt.
void facets() {
  const own_file path("faults", "1.5 (345,1)\nx");
  int reached = 0;
  for (unsigned i = 0; i < 2 * 8 * cases.size(); ++i)
    for (int n = 0, threw = cases[i / 16].what != out_line; threw; ++n) {  // endl asks before it begins
      const a_case &o = cases[i / 16];
      const a_balance balance;
      scripted buffer("1.5 (345,1)\nx");
      std::filebuf file;
      file.open(path.name(), b::in | b::out);
      std::iostream s(i / 8 % 2 ? static_cast<std::streambuf *>(&file) : &buffer);
      s.imbue(of_own(i / 8 % 2));
      s.setf(b::boolalpha);
      calm = n;
      masked(o, s, i % 8, n, i);
      threw = calm < 0;
      calm = always;
      reached += threw;
      if (threw) says(s.bad(), "badbit by a facet", o, n, i);
      s.exceptions(good), s.clear();
      says((s << "on").good(), "works on", o, n, i);
    }
  CHECK(reached > 2000);
}

// Locales that lack facets, as only generated code can make one.
void missing_facets() {
  const int all = std::locale::all, lacks[] = {all & ~std::locale::numeric, all & ~std::locale::ctype};
  for (unsigned i = 0; i < 3 * cases.size(); ++i) {
    const a_case &o = cases[i / 3];
    const a_balance balance;
    std::locale::imp *imp = new std::locale::imp("C", lacks[i % 3 != 0]);
    std::locale &bare = *reinterpret_cast<std::locale *>(&imp);
    std::stringstream s("12 (1,2)\n", b::in | b::out);
    s.imbue(bare);
    s.setstate(good);
    if (i % 3 != 1) s.unsetf(b::skipws);
    const int got = thrown_by(o, s);
    const char outcome = got == missing ? 'p' : s.bad() ? 'b' : '-';
    if (o.call != pbackfails) says(outcome == o.without[i % 3], "without", o, i % 3, outcome);
    bare._release();
  }
}

// Where the program makes a stream, what is thrown passes, and nothing is left of the stream.
template <class T, class A> void make(A argument) {
  const a_balance balance;
  calm = 0;
  try {
    delete new T(argument);
    CHECK(!"nothing was thrown");
  } catch (const thrown &) {}
  calm = always;
}
void constructors() {
  std::streambuf *const none = 0;
  const std::string text(200, 'x');
  const char *const path = "/dev/null";
  const std::locale before = std::locale::global(of_own(false));
  make<std::istream>(none), make<std::ostream>(none), make<std::iostream>(none), make<std::istrstream>(path);
  make<std::istringstream>(text), make<std::ostringstream>(text), make<std::stringstream>(text);
  make<std::ofstream>(path), make<std::fstream>(path), make<std::ifstream>(path);
  std::locale::global(before);
}

// unitbuf: the synchronisation at the end fails like any other part, but not while something is on its way, when all
// else is as ever.
struct at_the_end {
  std::ostream &out;
  ~at_the_end() { out << 1 << "text" << 'c'; }
};
void ties_and_ends() {
  scripted broken, fine, throwing;
  std::ostream out(&broken), to(&fine), thrower(&throwing);
  broken.let_fail(syncs, 0, true), throwing.let_fail(overflows, 0, true);
  out.setf(b::unitbuf);
  CHECK_INT((out << 1 << "x").rdstate(), bad | fails);
  std::string caught;
  for (int i = 0; i < 2; ++i) {
    out.exceptions(good), out.clear(), out.exceptions(bad);
    try {
      const at_the_end first = {to}, second = {thrower};
      std::ostream::sentry end(out);
      if (i == 1) throw 5;
    } catch (const b::failure &) { caught += 'f'; } catch (int) {
      caught += 'i';
    }
  }
  CHECK(caught == "fi" && out.rdstate() == bad && fine.taken() == "1textc1textc");
  CHECK(thrower.rdstate() == (bad | fails) && thrown::live == 0);
  // Circles come to an end, also after a failure.
  scripted one, two;
  std::iostream a(&one), b(&two);
  a.tie(&a), a << 1, a.get(), a.clear();
  CHECK_INT(one.calls[syncs], 1);
  a.tie(&b), b.tie(&a), a.get();
  CHECK(one.calls[syncs] == 2 && two.calls[syncs] >= 1);
  one.let_fail(syncs, 0, false);
  for (int i = 0; i < 2; ++i) {
    a.exceptions(good), a.clear(), a.exceptions(bad);
    try {
      b.flush(), CHECK(!"nothing was thrown");
    } catch (const b::failure &) {}
  }
  // A file that was read ahead is set to where the reader is, for those who share it.
  const own_file path("faults", "0123456789");
  FILE *const shared = fopen(path.name(), "r+");
  std::filebuf ahead(shared);
  std::ostream reader(&ahead);
  std::istringstream in("12 34");
  int n = 0;
  in.tie(&reader);
  CHECK(ahead.sbumpc() == '0' && lseek(fileno(shared), 0, SEEK_CUR) == 10);
  CHECK(in >> n && lseek(fileno(shared), 0, SEEK_CUR) == 1);
  reader.setstate(eof);
  CHECK(in.get() == ' ' && reader.rdstate() == (eof | fails));
}

}  // namespace

int main() {
  std::locale::classic();  // its blocks stay
  std::ofstream("/dev/null");
  read_cases();
  CHECK_INT(cases.size(), 66);
  buffers();
  flushes();
  facets();
  missing_facets();
  constructors();
  ties_and_ends();
  return TEST_RESULT();
}

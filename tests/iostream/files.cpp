// File buffers and streams: the table of modes and what it refuses, positions, both directions in one file, a codecvt
// that converts. What devices refuse is in file_failures.cpp.
#include <fstream>
#include <locale>
#include <string>

#include "../harness.h"

using std::ios_base;

namespace {

char path[64];

std::string content() {
  std::string text;
  FILE *f = fopen(path, "r");
  if (!f) return "(none)";
  for (int c; (c = getc(f)) != EOF;) text += static_cast<char>(c);
  fclose(f);
  return text;
}
void make(const char *text) {
  FILE *f = fopen(path, "w");
  fputs(text, f);
  fclose(f);
}

const ios_base::openmode in = ios_base::in, out = ios_base::out, app = ios_base::app, ate = ios_base::ate,
                         trunc = ios_base::trunc, binary = ios_base::binary;

// One mode, on a file that is not there and on one that holds "old": "-" refused, else what the file holds after "new"
// was written, and in brackets what was read first.
std::string tried(ios_base::openmode mode, const char *before) {
  if (before)
    make(before);
  else
    remove(path);
  std::filebuf b;
  if (!b.open(path, mode)) return "-";
  std::string got = "[";
  for (int c; (c = b.sbumpc()) != -1;) got += static_cast<char>(c);
  b.sputn("new", 3);
  CHECK(b.close() == &b);
  return got + "]" + content();
}
void check_mode(ios_base::openmode mode, const char *absent, const char *present) {
  for (int i = 0; i < 2; ++i, mode |= binary) {
    CHECK_TEXT(tried(mode, 0).c_str(), absent);
    CHECK_TEXT(tried(mode, "old!").c_str(), present);
  }
}

void modes() {
  check_mode(out, "[]new", "[]new");
  check_mode(out | app, "[]new", "[]old!new");
  check_mode(out | trunc, "[]new", "[]new");
  check_mode(in, "-", "[old!]old!");
  check_mode(in | out, "-", "[old!]old!new");
  check_mode(in | out | trunc, "[]new", "[]new");
  // At the end: an existing file is kept, a missing one is made.
  check_mode(out | ate, "[]new", "[]old!new");
  check_mode(in | ate, "-", "[]old!");
  check_mode(in | out | ate, "-", "[]old!new");
  static const ios_base::openmode refused[] = {
      0, app, trunc, ate | trunc | out, in | app, in | trunc, in | out | app, out | app | trunc, out | app | ate};
  for (unsigned i = 0; i < sizeof refused / sizeof *refused; ++i) check_mode(refused[i], "-", "-");
  CHECK_TEXT(content().c_str(), "old!");
}

void opening() {
  make("kept");
  std::filebuf b;
  CHECK(!b.is_open() && !b.close() && !b.pubsetbuf(0, 0));
  CHECK(b.open(path, in) && b.pubsetbuf(0, 0) == &b);
  CHECK(!b.open("/dev/null", in));
  CHECK_INT(b.sgetc(), 'k');

  std::ifstream none("/no such file");
  CHECK(none.rdstate() == ios_base::failbit && !none.is_open());
  none.open(path);
  CHECK(none.good());
  none.open(path);
  CHECK(none.fail());
  none.clear();
  none.close();
  CHECK(none.good() && !none.is_open());
  none.close();
  CHECK(none.fail());
  none.clear();
  none.exceptions(ios_base::failbit);
  try {
    none.open("/no such file");
    CHECK(!"thrown");
  } catch (const ios_base::failure &) {
    CHECK(none.fail());
  }
}

void constructors() {
  remove(path);
  {
    std::fstream f(path, out);
    f << "made";
  }
  CHECK_TEXT(content().c_str(), "made");
  {
    std::fstream f(path, out);
    f << "M";
    std::string s;
    f >> s;
    CHECK_TEXT(s.c_str(), "ade");
  }  // in was added
  CHECK_TEXT(content().c_str(), "Made");
  {
    std::ofstream f(path, app);
    f << "!";
    CHECK_INT(f.tellp(), 5);
  }
  CHECK_TEXT(content().c_str(), "Made!");
  {
    std::ifstream f(path, out);
    f.seekg(4);
    CHECK_INT(f.get(), '!');
    CHECK(f.rdbuf()->sputc('?') == '?');
  }
  CHECK_TEXT(content().c_str(), "Made!?");
  {
    std::fstream f;
    f.open(path, out);
  }  // as it is
  CHECK_TEXT(content().c_str(), "");
}

void closed() {
  std::filebuf b;
  CHECK_INT(b.sputc('x'), -1);
  CHECK_INT(b.sputn("x", 1), 0);
  char c;
  CHECK_INT(b.sgetn(&c, 1), 0);
  CHECK(b.sgetc() == -1 && b.sbumpc() == -1 && b.sungetc() == -1 && b.sputbackc('x') == -1 && b.in_avail() == -1);
  CHECK(b.pubseekoff(0, ios_base::beg) == -1 && b.pubseekpos(0) == -1);
  CHECK_INT(b.pubsync(), 0);
}

void positions() {
  make("0123456789");
  std::filebuf b;
  b.open(path, in | out);
  CHECK_INT(b.in_avail(), 10);
  CHECK_INT(b.pubseekoff(4, ios_base::beg), 4);
  CHECK_INT(b.pubseekoff(-1, ios_base::beg), -1);
  CHECK_INT(b.pubseekoff(5, ios_base::end), -1);
  CHECK_INT(b.pubseekoff(-5, ios_base::cur), -1);
  CHECK_INT(b.pubseekpos(-1), -1);
  CHECK_INT(b.pubseekoff(0x7fffffff, ios_base::cur), -1);
  CHECK_INT(b.sbumpc(), '4');
  CHECK_INT(b.sungetc(), 0);
  CHECK_INT(b.snextc(), '5');
  CHECK_INT(b.sputbackc('x'), 'x');
  CHECK_INT(b.pubseekoff(0, ios_base::cur), 4);
  CHECK_INT(b.sbumpc(), 'x');
  CHECK_INT(b.sbumpc(), '5');
  CHECK_INT(b.in_avail(), 4);
  CHECK_INT(b.pubseekoff(-1, ios_base::end), 9);
  CHECK_INT(b.sbumpc(), '9');
  CHECK_INT(b.in_avail(), -1);
  CHECK_INT(b.sbumpc(), -1);
  CHECK_INT(b.pubseekoff(0x7fffffff, ios_base::beg), 0x7fffffff);
  CHECK_INT(b.pubseekoff(1, ios_base::cur), -1);
  CHECK_INT(b.pubseekoff(0, ios_base::cur), 0x7fffffff);
  std::filebuf standard(stdout);
  CHECK(standard.close() == &standard && fileno(stdout) == 1 && fflush(stdout) == 0);
}

// A file is read on when it has grown.
void growing() {
  make("one\n");
  std::ifstream f(path);
  std::string line;
  while (std::getline(f, line)) {}
  std::ofstream more(path, app);
  more << "two\n" << std::flush;
  f.clear();
  CHECK(std::getline(f, line) && line == "two");
}

// A file that is read through, with looks elsewhere: positions and text stay right when blocks get larger.
void reading_through() {
  std::string model;
  while (model.size() < 200000) model += "line " + std::string(model.size() % 97, 'x') + '\n';
  make(model.c_str());
  std::ifstream f(path);
  std::string line;
  std::string::size_type at = 0;
  for (int i = 0; std::getline(f, line); ++i) {
    if (model.compare(at, line.size(), line) != 0) CHECK(!"the line");
    at += line.size() + 1;
    if (i % 100 == 99) CHECK_INT(f.tellg(), at);
    if (i % 700 == 699) {
      f.unget();
      CHECK_INT(f.get(), '\n');
      const std::string::size_type elsewhere = at * 7919 % model.size();
      f.seekg(elsewhere);
      CHECK_INT(f.get(), model[elsewhere]);
      f.seekg(at);
    }
    if (i % 700 == 10) f.rdbuf()->sputbackc('\n'), f.get();
  }
  CHECK_INT(at, model.size());
}

// Drops '-', doubles '*', makes 30 of '3', refuses '!', leaves '?' incomplete; null characters pass.
class doubling : public std::codecvt<char, char, int> {
  virtual bool do_always_noconv() const { return false; }
  virtual result do_out(int &, const char *from, const char *end, const char *&next, char *to, char *to_end,
                        char *&to_next) const {
    for (next = from, to_next = to; next != end; ++next) {
      if (*next == '!') return error;
      if (*next == '?') return partial;
      if (*next == '#') return noconv;
      const int n = *next == '-' ? 0 : *next == '*' ? 2 : *next == '3' ? 30 : 1;
      if (to_end - to_next < n) return partial;
      for (int i = 0; i < n; ++i) *to_next++ = *next;
    }
    return ok;
  }
  virtual result do_in(int &, const char *from, const char *, const char *&next, char *to, char *,
                       char *&to_next) const {
    next = from;
    to_next = to;
    return error;
  }
};

void converting() {
  std::filebuf b;
  b.open(path, out);
  b.pubimbue(std::locale(std::locale::classic(), new doubling));
  CHECK_INT(b.sputc('*'), '*');
  CHECK_INT(b.sputc('-'), '-');
  CHECK_INT(b.sputc('\0'), 0);
  CHECK(b.sputc('!') == -1 && b.sputc('?') == -1 && b.sputc('#') == '#');
  CHECK_INT(b.sputn("a-\0*", 4), 4);
  CHECK_INT(b.sputn("ab!", 3), 0);
  CHECK_INT(b.sputn("ab?", 3), 0);
  CHECK_INT(b.sputn("-", 1), 1);
  const std::string threes(1000, '3');
  CHECK_INT(b.sputn(threes.data(), 1000), 1000);
  b.close();
  CHECK(content() == std::string("**\0#a\0**", 8) + std::string(30000, '3'));

  // Reading converts nothing.
  std::ifstream f;
  f.imbue(std::locale(std::locale::classic(), new doubling));
  f.open(path);
  std::string text;
  std::getline(f, text, 'a');
  CHECK(text == std::string("**\0#", 4) && f.get() == 0 && f.peek() == '*' && f.good());
}

// Capital letters stand between '<' and '>', as small ones. What the text ends in is ended by close, by moves, by
// another locale and by the destructor, but not by asking for the position.
class shifting : public std::codecvt<char, char, std::mbstate_t> {
public:
  explicit shifting(bool ends = true) : ends_(ends) {}

private:
  virtual bool do_always_noconv() const { return false; }
  static int &shifted(std::mbstate_t &state) { return reinterpret_cast<int &>(state); }
  virtual result do_out(std::mbstate_t &state, const char *from, const char *end, const char *&next, char *to,
                        char *to_end, char *&to_next) const {
    for (next = from, to_next = to; next != end; ++next) {
      const bool capital = *next >= 'A' && *next <= 'Z';
      if (to_end - to_next < 2) return partial;
      if (capital != (shifted(state) != 0)) *to_next++ = capital ? '<' : '>';
      shifted(state) = capital;
      *to_next++ = static_cast<char>(capital ? *next + 32 : *next);
    }
    return ok;
  }
  virtual result do_unshift(std::mbstate_t &state, char *to, char *, char *&to_next) const {
    if (!ends_) return error;
    to_next = to;
    if (shifted(state)) *to_next++ = '>';
    shifted(state) = 0;
    return ok;
  }
  const bool ends_;
};

void shifted() {
  const std::locale shifts(std::locale::classic(), new shifting);
  {
    std::filebuf b;
    b.pubimbue(shifts);
    b.open(path, out);
    CHECK(b.sputn("aB", 2) == 2 && b.sputc('C') == 'C');
    CHECK_INT(b.pubseekoff(0, ios_base::cur), 4);
    CHECK(b.sputc('D') == 'D' && b.close() == &b);
    CHECK_TEXT(content().c_str(), "a<bcd>");
    b.open(path, out);
    b.sputc('E');
    CHECK_INT(b.pubseekpos(0), 0);
    b.sputc('F');
    b.pubimbue(std::locale::classic());
    b.sputc('G');
    b.pubimbue(shifts);
    b.sputc('H');
    CHECK_INT(b.pubseekoff(0, ios_base::end), 7);
    b.sputc('I');
  }
  CHECK_TEXT(content().c_str(), "<f>G<h><i>");
  std::ofstream refused;
  refused.imbue(std::locale(std::locale::classic(), new shifting(false)));
  refused.open(path);
  refused << 'K';
  refused.seekp(0);
  CHECK(refused.fail());
  refused.clear();
  refused << 'L';
  refused.close();
  CHECK(refused.fail());
  CHECK_TEXT(content().c_str(), "<k<l");
}

// Streams never go round what a derived class overrides.
class upper : public std::filebuf {
public:
  int syncs;
  upper() : syncs(0) {}

protected:
  virtual int overflow(int c) { return std::filebuf::overflow(c >= 'a' && c <= 'z' ? c - 32 : c); }
  virtual int uflow() {
    const int c = std::filebuf::uflow();
    return c >= 'A' && c <= 'Z' ? c + 32 : c;
  }
  virtual int underflow() {
    const int c = std::filebuf::underflow();
    return c >= 'A' && c <= 'Z' ? c + 32 : c;
  }
  virtual int sync() {
    ++syncs;
    return std::filebuf::sync();
  }
};

void derived() {
  upper b;
  b.open(path, in | out | trunc);
  std::ostream o(&b);
  o << "word " << 'c' << std::hex << 255 << ' ' << true << " end";
  o.put('z') << std::endl << std::flush;
  CHECK_INT(b.syncs, 2);
  CHECK_TEXT(content().c_str(), "WORD CFF 1 ENDZ\n");
  std::istream i(&b);
  i.seekg(0);
  std::string word;
  char rest[20];
  i >> word;
  CHECK_TEXT(word.c_str(), "word");
  i.get();
  CHECK(i.get() == 'c' && i.peek() == 'f');
  i >> std::hex;
  int n = 0;
  i >> n;
  CHECK_INT(n, 255);
  i.getline(rest, sizeof rest);
  CHECK_TEXT(rest, " 1 endz");
}

}  // namespace

int main() {
  sprintf(path, "files.%d.tmp", static_cast<int>(getpid()));
  modes();
  opening();
  constructors();
  closed();
  positions();
  growing();
  reading_through();
  converting();
  shifted();
  derived();
  remove(path);
  return TEST_RESULT();
}

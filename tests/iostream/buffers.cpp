// Buffers of files and of memory, beyond what peer/streams.cpp compares.
// Files: the table of modes, positions at the ends of what there is, codecvts that convert; and what the system
// refuses, which becomes a state, at the latest in close: a full device, a directory, a closed descriptor, a broken
// pipe, positions and files beyond 2 GB. Memory: a program that replaced operator new[] sees every block of a string
// buffer, in the sizes of the rule, from plain and derived buffers alike; each may fail, and nothing may be lost then
// but what was to be written. Character arrays: freeze is reversed, reading starts elsewhere after growth, 0xFF looks
// like the end, nothing is released, and an array may have no known end.
#include <fcntl.h>
#include <limits.h>
#include <malloc.h>
#include <sys/stat.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <strstream>

#include "../buffers.h"
#include "../fail_allocation.h"
#include "../rows.h"

using std::ios_base;

static bool traced;

void *operator new[](std::size_t bytes) FAIL_ALLOCATION_MAY_THROW {
  if (traced) trace("%u", static_cast<unsigned>(bytes));
  return operator new(bytes);
}
void operator delete[](void *block) FAIL_ALLOCATION_NOTHROW {
  if (traced && block) trace("free");
  operator delete(block);
}

namespace {

const int in = ios_base::in, out = ios_base::out, app = ios_base::app, ate = ios_base::ate, trunc = ios_base::trunc;
const ios_base::seekdir beg = ios_base::beg, cur = ios_base::cur, end = ios_base::end;

own_file *file;

// One mode, on a file that is not there and on one that holds "old!": "-" refused, else in brackets what was read, and
// what the file holds after "new" was written.
void modes() {
  static const char *const names[] = {"in", "out", "app", "ate", "trunc"};
  static const int bits[] = {in, out, app, ate, trunc};
  std::string want[2][128];
  for (rows row(__FILE__, "data/modes"); row.next();) {
    int mode = 0;
    for (int i = 0; i < 5; ++i) mode |= row[0].find(names[i]) != std::string::npos ? bits[i] : 0;
    for (int i = 0; i < 2; ++i) want[i][mode] = want[i][mode | ios_base::binary] = row[i + 1];
  }
  for (int i = 0; i < 2 * 128; ++i) {
    const bool present = i % 2 != 0;
    std::filebuf b;
    std::string got;
    present ? file->hold("old!") : void(remove(file->name()));
    if (b.open(file->name(), i / 2)) {
      got = "[" + std::string(std::istreambuf_iterator<char>(&b), std::istreambuf_iterator<char>()) + "]";
      b.sputn("new", 3);
      CHECK(b.close() == &b);
      got += file->content();
    }
    CHECK_TEXT(got.c_str(), want[present][i / 2].c_str());
  }
}

template <class Stream> void written(int mode, const char *before, const char *want) {
  file->hold(before);
  Stream(file->name(), mode).rdbuf()->sputc('N');
  CHECK_TEXT(file->content().c_str(), want);
}
void opening() {
  written<std::fstream>(out, "old", "Nld");  // in was added
  written<std::ofstream>(app, "old", "oldN");
  written<std::ifstream>(out, "old", "Nld");
  std::filebuf b;
  char c;
  CHECK(!b.is_open() && !b.close() && !b.pubsetbuf(0, 0) && b.sputc('x') == -1 && b.sputn("x", 1) == 0);
  CHECK(b.sgetn(&c, 1) == 0 && b.sgetc() == -1 && b.sbumpc() == -1 && b.sungetc() == -1 && b.sputbackc('x') == -1);
  CHECK(b.in_avail() == -1 && b.pubseekoff(0, ios_base::beg) == -1 && b.pubseekpos(0) == -1 && b.pubsync() == 0);
  CHECK(b.open(file->name(), in) && b.pubsetbuf(0, 0) == &b && !b.open("/dev/null", in) && b.sgetc() == 'N');

  std::ifstream none("/no such file");
  CHECK(none.rdstate() == ios_base::failbit && !none.is_open());
  for (int step = 0; step < 4; ++step) {  // opened and closed, each twice
    if (step == 2) none.clear();
    step < 2 ? none.open(file->name()) : none.close();
    CHECK(none.fail() == (step % 2 != 0) && none.is_open() == (step < 2));
  }
  std::fstream as_it_is;
  as_it_is.open(file->name(), out);
  CHECK_TEXT(file->content().c_str(), "");
}

void positions() {
  file->hold("0123456789");
  std::filebuf b, standard(stdout);
  b.open(file->name(), in | out);
  CHECK_INT(b.pubseekoff(0x7fffffff, ios_base::beg), 0x7fffffff);
  CHECK(b.pubseekoff(1, ios_base::cur) == -1 && b.pubseekoff(1, ios_base::end) == -1);
  CHECK(b.pubseekpos(-1) == -1 && b.pubseekoff(0, ios_base::cur) == 0x7fffffff && b.in_avail() == -1);
  CHECK(standard.close() == &standard && fileno(stdout) == 1 && fflush(stdout) == 0);
  int ends[2];
  CHECK_INT(pipe(ends), 0);
  std::filebuf pipe_end(fdopen(ends[0], "r"));
  CHECK(write(ends[1], "ab", 2) == 2 && pipe_end.sbumpc() == 'a' && pipe_end.sputbackc('z') == 'z');
  CHECK(pipe_end.pubseekoff(0, ios_base::cur) == -1 && pipe_end.in_avail() == -1 && pipe_end.pubsync() == 0);
  CHECK(pipe_end.sbumpc() == 'z' && pipe_end.sbumpc() == 'b' && close(ends[1]) == 0 && pipe_end.sgetc() == -1);
}

// A file that is read through, with looks elsewhere, while stdio gets a larger buffer, of which fclose frees the block
// and no other: in the C library's flags, _IO_USER_BUF is the bit 1. Then it has grown: each means reads on.
void reading_on() {
  std::string all, line;
  size_t at = 0;
  char block[9];
  while (all.size() < 150000) all += "line " + std::string(all.size() % 97, 'x') + '\n';
  file->hold(all);
  const int before = static_cast<int>(mallinfo2().uordblks);
  {
    FILE *const over = fopen(file->name(), "r");
    std::filebuf b(over);
    std::istream f(&b);
    for (int i = 0; std::getline(f, line); ++i) {
      CHECK(all.compare(at, line.size() + 1, line + '\n') == 0);
      at += line.size() + 1;
      const size_t other = at * 7919 % all.size();
      if (i % 100 == 99) CHECK(f.tellg() == std::streampos(at) && f.unget().get() == '\n');
      if (i % 300 == 299) CHECK(f.seekg(other).get() == all[other] && f.seekg(at));
    }
    CHECK(at == all.size() && over->_IO_buf_end - over->_IO_buf_base == 1 << 15 && !(over->_flags & 3));
    f.clear();
    CHECK(feof(over) && f.unget() && !feof(over) && f.get() == '\n');
    std::ofstream more(file->name(), app);
    for (int how = 0; how < 12; ++how) {
      more << "one\n" << std::flush;
      f.clear();
      if (how % 3 == 0) CHECK(f.read(block, 4));
      if (how % 3 == 1) CHECK(std::getline(f, line) && line == "one");
      if (how % 3 == 2) CHECK(f.get() == 'o' && f >> line && line == "ne" && f.ignore(1));
      CHECK(f.get() == -1);
    }
  }
  CHECK(static_cast<int>(mallinfo2().uordblks) - before < 1 << 12);
  FILE *const own = fopen(file->name(), "r");  // a buffer of the program's is left alone
  setvbuf(own, block, _IOFBF, sizeof block);
  std::filebuf over(own);
  for (int i = 0; i < 100; ++i) CHECK_INT(over.sbumpc(), all[i]);
  CHECK(own->_IO_buf_base == block && (own->_flags & 3) == 1);
  setvbuf(own, 0, _IONBF, 0);
  CHECK(over.sbumpc() != -1 && (own->_flags & 2));
}

// What a codecvt refuses is not written; the state of a conversion goes on until close, a move, another locale or the
// destructor ends it, of each file by itself.
void conversions() {
  const std::locale loc(std::locale::classic(), new converting(true)), refusing(loc, new converting(true, false));
  {
    std::ofstream f(file->name()), other("/dev/null");
    f.imbue(loc), other.imbue(loc);
    f << '*' << '-' << '\0';
    other << 'Y';
    std::streambuf &b = *f.rdbuf();
    CHECK(b.sputc('*') == '*' && b.sputc('-') == '-' && b.sputc('\0') == 0 && b.sputc('!') == -1);
    CHECK(b.sputc('?') == -1 && b.sputc('#') == '#' && b.sputn("a-\0*", 4) == 4 && b.sputn("ab!", 3) == 0);
    CHECK(b.sputn("ab?", 3) == 0 && b.sputn("-", 1) == 1);
  }
  CHECK(file->content() == std::string("**\0**\0#a\0**", 11));
  std::filebuf f;  // what is read is not converted
  f.pubimbue(loc);
  CHECK(f.open(file->name(), in) && f.sbumpc() == '*' && f.sbumpc() == '*' && f.sbumpc() == 0);
  {
    std::filebuf b;
    b.pubimbue(loc);
    b.open(file->name(), out);
    CHECK(b.sputn("aB", 2) == 2 && b.sputc('C') == 'C' && b.pubseekoff(0, ios_base::cur) == 4);
    CHECK(b.sputc('D') == 'D' && b.close() == &b && file->content() == "a<bcd>");
    b.open(file->name(), out);
    CHECK(b.sputc('E') == 'E' && b.pubseekpos(0) == 0 && b.sputc('F') == 'F');
    b.pubimbue(std::locale::classic());
    b.sputc('G');
    b.pubimbue(loc);
    CHECK(b.sputc('H') == 'H' && b.pubseekoff(0, ios_base::end) == 7 && b.sputc('I') == 'I');
  }
  CHECK_TEXT(file->content().c_str(), "<f>G<h><i>");
  std::filebuf refused;
  refused.pubimbue(refusing);
  CHECK(refused.open(file->name(), out) && refused.sputc('K') == 'K' && refused.pubseekpos(0) == -1);
  CHECK(refused.sputc('L') == 'L' && !refused.close() && file->content() == "<k<l");
}

// Inserters of numbers, characters and C strings do not look at what is refused; flush and close tell, once, also where
// stdio holds nothing back.
void full_device() {
  const std::string much(100000, 'x');
  FILE *const unbuffered = fopen("/dev/full", "w");
  setvbuf(unbuffered, 0, _IONBF, 0);
  std::ofstream f("/dev/full");
  std::filebuf over(unbuffered);
  std::ostream direct(&over);
  CHECK(f.write(much.data(), 100000).bad());
  f.clear();
  for (int how = 0; how < 12; ++how) {
    std::ostream &to = how % 2 ? direct : f;
    if (how / 2 == 0) to << 'c';
    if (how / 2 == 1) to << 12345678;
    if (how / 2 == 2) to << much.c_str();
    if (how / 2 == 3) to << 2.5;
    if (how / 2 == 4) to.put('p');
    if (how / 2 == 5) to << std::string("s");
    CHECK(to.rdstate() == (how == 9 ? to.badbit : how == 11 ? to.failbit : to.goodbit));
    CHECK(to.flush().bad() == (how != 11));
    to.clear();
    CHECK(to.flush().good() || how == 9 || how % 2 == 0);
    to.clear();
  }
  f << "more";
  for (int how = 0; how < 3; ++how) {
    f.close();
    CHECK(f.fail() == (how < 2) && !f.is_open());
    f.clear();
    f.open(how ? "/dev/null" : "/dev/full");
    if (!how) f << much.c_str();
  }
  std::ifstream directory("/"), read_only("/dev/zero");
  CHECK(!(directory >> f.rdbuf()) && std::ofstream("/").fail() && directory.get() == -1);
  std::ostream lost(read_only.rdbuf());
  CHECK(lost << "text" << std::flush);
}

void closed_descriptor() {
  close(1), close(0);
  std::cout << "text" << std::endl;
  int n;
  _exit(std::cout.bad() && !(std::cin >> n) ? 7 : 8);
}

void broken_pipe() {
  signal(SIGPIPE, SIG_IGN);
  int ends[2];
  if (pipe(ends) != 0) _exit(9);
  close(ends[0]), dup2(ends[1], 1);
  const bool before = (std::cout << "text").good();
  _exit(before && std::cout.flush().bad() ? 7 : 8);
}

// A standard stream may be redirected from a file of any size: it is read, only positions are refused.
void large_input() {
  const int fd = open(file->name(), O_RDONLY | O_LARGEFILE);
  lseek64(fd, 0x7ffffffeLL, SEEK_SET);
  dup2(fd, 0);
  std::string one, two;
  std::filebuf &b = static_cast<std::filebuf &>(*std::cin.rdbuf());
  bool ok = std::cin.tellg() == 0x7ffffffe && b.in_avail() == 10 && b.pubseekoff(0, ios_base::end) == -1;
  ok &= std::cin.tellg() == 0x7ffffffe && std::cin >> one && one == "tail" && std::cin.tellg() == -1;
  std::cin.clear();
  ok &= std::cin.seekg(1, ios_base::cur).fail();
  std::cin.clear();
  _exit(ok && std::cin >> two && two == "last" ? 7 : 8);
}
void large_files() {
  const int fd = open(file->name(), O_CREAT | O_RDWR | O_LARGEFILE | O_TRUNC, 0600);
  CHECK(pwrite64(fd, "tail\nlast\n", 10, 0x7ffffffeLL) == 10 && close(fd) == 0);
  std::ifstream f(file->name());
  std::ofstream g(file->name(), app);
  CHECK(!f.is_open() && f.fail() && !g.is_open() && g.fail());
  CHECK_ENDS(large_input, 7, "");
  // One that was opened by name does not grow beyond what positions can say.
  remove(file->name());
  g.open(file->name());
  CHECK(g.seekp(0x7ffffffe).good() && (g << "abcdef" << std::flush).bad());
}

// What may be written but not read is not emptied by asking for its end, also when root is refused.
void unreadable() {
  char folder[] = "/tmp/unreadable.XXXXXX";
  struct stat status;
  if (!mkdtemp(folder) || chmod(folder, 0777) != 0 || chdir(folder) != 0) _exit(9);
  close(open("kept", O_CREAT | O_WRONLY, 0666));
  if (truncate("kept", 5) != 0 || chmod("kept", 0222) != 0 || (geteuid() == 0 && seteuid(65534) != 0)) _exit(9);
  const bool ok = std::ofstream("kept", out | ate).fail() && stat("kept", &status) == 0 && status.st_size == 5;
  if (getuid() == 0 && seteuid(0) != 0) _exit(9);
  remove("kept"), rmdir(folder);
  _exit(ok ? 7 : 8);
}

// A derived object, whose areas follow the rule, and can be seen.
template <class Buffer> struct shown : Buffer {
  template <class A> explicit shown(A a) : Buffer(a) {}
  template <class A, class B> shown(A a, B b) : Buffer(a, b) {}
  template <class A, class B, class C> shown(A a, B b, C c) : Buffer(a, b, c) {}
  int room() const { return static_cast<int>(this->epptr() - this->pptr()); }
  int at() const { return static_cast<int>(this->gptr() - this->eback()); }
  using Buffer::overflow;
  using Buffer::pbase;
  using Buffer::setg;
  using Buffer::setp;
  using Buffer::underflow;
};
typedef shown<std::stringbuf> derived;
typedef shown<std::strstreambuf> probe;

// Characters, C strings and blocks to be written, or texts to be set, and what is taken and given back for each.
template <class Buffer> void sizes() {
  for (int mode = out; mode <= (out | in); mode += in) {
    Buffer b(mode);
    std::ostream s(&b);
    char next = 'a';
    for (rows row(__FILE__, "data/sizes"); row.next(); ++next) {
      const std::string text(row.number(1), next);
      traced = true;
      if (row[0] == "character") s << next;
      if (row[0] == "text") s << text.c_str();
      if (row[0] == "block") s << text;
      if (row[0] == "set") b.str(text);
      CHECK_TRACE(row[2].c_str());
      traced = false;
    }
  }
}

void ignore(ios_base::event, ios_base &, int) {}
struct writing {
  std::stringstream s, copied;
  std::string text;
  writing() : text(30, 'x') {
    s.exceptions(ios_base::badbit);
    copied.iword(0) = 3;
  }
  void run() {
    try {
      for (int i = 0; i < 9; ++i) s << text << i << '.';
    } catch (const ios_base::failure &) { throw std::bad_alloc(); }
    s.str(text + text + text);
    std::istringstream one(s.str());
    std::ostringstream to(s.str());
    const std::stringstream both(s.str());
    std::stringbuf b(s.str());
    CHECK(one.str() == text + text + text && to.str() == one.str() && both.str() == b.str() && b.str() == to.str());
    s.iword(9) = 1, s.pword(4) = this;
    for (int i = 0; i < 6; ++i) s.register_callback(ignore, i);
    text[0] = 'X';
    ios_base::failure failed(text), other(failed);
    other = failed;
    CHECK_TEXT(other.what(), text.c_str());
    copied.copyfmt(s);
  }
  void check(bool failed) {
    CHECK_INT(copied.iword(0), failed ? 3 : 0);
    s.clear(), s.exceptions(ios_base::goodbit);
    const std::string all = s.str();
    for (unsigned i = 0; i < all.size() && all.size() != 90; ++i)
      CHECK(all[i] == (i % 32 == 30 ? char('0' + i / 32) : i % 32 == 31 ? '.' : 'x'));
    s.seekp(0, end), s.clear();
    CHECK(s << "end" && s.str() == all + "end");
  }
};

void strings() {
  derived b("123456789", out), appending("abc", out | app), at_end("abc", out | ios_base::ate);
  const char *const block = b.pbase();
  b.str("ab");
  CHECK(b.pbase() == block && b.room() == 2);
  b.str(std::string(64, 'x'));  // which fill the block
  CHECK(b.pbase() == block && (b.str(""), !b.pbase()) && b.str() == "");
  CHECK(appending.sputc('d') == 'd' && appending.str() == "abcd" && at_end.sputc('d') == 'd' && at_end.str() == "dbc");
  // Called with room left, overflow makes the area longer by a null character.
  derived odd("abcdQ", in | out);
  odd.str("abcd");
  CHECK(odd.overflow('x') == 'x' && odd.sputn("yz", 2) == 2 && odd.pubseekpos(3, in) == 3);
  CHECK(odd.pubseekoff(0, end, out) == 5 && odd.str() == std::string("xyzd\0", 5) && odd.pubseekoff(1, cur) == -1);
  CHECK(odd.pubseekoff(1, beg) == 1 && odd.sgetc() == 'y' && odd.room() == 4);
  // At the end of its room, it makes a block for what was written; what was read of the old one is forgotten.
  derived smaller(std::string(191, 't'), in | out);
  CHECK(smaller.pubseekpos(191) == 191 && smaller.sputc('u') == 'u');
  CHECK(smaller.pubseekpos(0, out) == 0 && smaller.overflow('v') == 'v' && smaller.sgetc() == -1);
  // The block belongs to whoever has the areas; a move does not cut what was written into an array of the program's.
  char array[] = "....";
  {
    derived taken("abcdef", in | out);
    char *const first = taken.pbase();
    taken.setp(0, 0), taken.setg(0, 0, 0);
    CHECK(memcmp(first, "abcdef", 6) == 0 && taken.str() == "" && taken.sputn("xyz", 3) == 3 && taken.str() == "xyz");
    delete[] first, delete[] taken.pbase();
    taken.setg(0, 0, 0), taken.setp(array, array + 4);
    CHECK(taken.sputn("1234", 4) == 4 && taken.pubseekpos(1, out) == 1 && taken.str() == "1234");
    CHECK(taken.pubseekoff(0, end, out) == 4 && taken.sputn("56789", 5) == 5);
    CHECK(taken.pbase() != array && taken.str() == "123456789");  // moves to a block
    taken.setp(array, array + 4);
  }
  CHECK(memcmp(array, "1234", 4) == 0);
}

char arena[4096];
bool refuse, throws;
int arena_used;

void *take(size_t n) {
  trace("+%u", static_cast<unsigned>(n));
  if (throws) throw 7;
  arena_used += static_cast<int>(n);
  return refuse ? 0 : arena + arena_used - n;
}
void give(void *p) { trace("-%d", static_cast<int>(static_cast<char *>(p) - arena)); }
void give_back(void *p) {
  trace("-");
  std::strstreambuf::default_free(p);
}

void growing() {
  probe b(take, give);
  CHECK(b.sputn("0123456789", 10) == 10 && b.room() == 0 && b.sbumpc() == '0' && b.sbumpc() == '1');
  CHECK(b.sbumpc() == '2' && b.sputn("abcdef", 6) == 6 && b.at() == 3);
  CHECK_TRACE("+16");
  CHECK(b.sputc('g') == 'g' && b.at() == 7 && b.sgetc() == '7' && b.pcount() == 17);  // 7 of 10 were not read
  CHECK(memcmp(b.str(), "0123456789abcdefg", 17) == 0 && b.sputn("0123456789abcde", 15) == 15);
  CHECK_TRACE("+32 -0");
  refuse = true;
  CHECK_INT(b.sputc('x'), -1);
  throws = true;
  try {
    b.sputc('x'), CHECK(!"nothing was thrown");
  } catch (int) {}
  refuse = throws = false;
  CHECK(b.pcount() == 32 && b.sputn("xy", 2) == 2);
  CHECK_TRACE("+48 +48 +48 -16");
  // A function to release alone sees every array that is left.
  void *(*const no_take)(size_t) = 0;
  void (*const no_give)(void *) = 0;
  probe released(no_take, give_back), own(take, no_give);
  for (int i = 0; i < 33; ++i) CHECK_INT(released.sputc('x'), 'x');
  give_back(released.str());
  CHECK_INT(own.sputc('x'), 'x');
  CHECK_TRACE("- - - +16");

  std::ostrstream s;
  s << "abc";
  s.freeze(false);  // reversed: this forbids
  CHECK((s << 'd') && s.pcount() == 3);
  s.clear(), s.freeze(true);
  CHECK((s << 'd') && s.pcount() == 4 && memcmp(s.str(), "abcd", 4) == 0);
  CHECK((s << "0123456789012345") && s.pcount() == 20 && memcmp(s.str(), "abcd0123", 8) == 0);  // str() freezes nothing
  delete[] s.str();
}

void arrays() {
  char array[] = "0123456789", text[20] = "12 34";
  const char signs[] = {'\xFF', '\x80', 'a'};
  unsigned char bytes[3] = {1, 2, 0};
  probe b(signs, 3), given(array, 4, array);
  CHECK(b.underflow() == -1 && b.sbumpc() == 0xFF && b.underflow() == -128);  // straight from the area 0xFF is one
  CHECK(b.sputbackc('x') == -1 && b.sungetc() == 0xFF && b.sungetc() == -1 && b.overflow(-1) == 0);
  given.freeze(false);
  CHECK(b.sputc('x') == -1 && given.sputn("01235", 5) == 4 && given.sputc('5') == -1);
  std::strstreambuf u(bytes, 2, bytes + 1);
  CHECK(u.sputn("xyz", 3) == 2 && u.sgetn(reinterpret_cast<char *>(bytes), 1) == 1);

  std::istrstream whole(text), part(text, 4);
  int i = 0, k = 0;
  CHECK(whole >> i >> i && part >> k >> k && i == 34 && k == 3 && whole.eof() && part.eof() && whole.str() == text);
  // seekg never changes the state, and does nothing to one that has failed.
  CHECK(part.seekg(0).eof() && part.rdbuf()->sgetc() == '1' && part.seekg(9).eof());
  CHECK(part.seekg(-1, end).eof() && part.rdbuf()->sgetc() == '3' && part.seekg(9, beg).eof());
  part.clear(part.failbit);
  CHECK(part.seekg(0).rdstate() == part.failbit && part.rdbuf()->sgetc() == '3');
  static const struct {
    const char *before, *written, *after;
    int mode;
  } all[] = {{"", "abcdefghij", "abcdefgh####", out},
             {"ab", "123456789", "ab123456####", out | app},  // not beyond the eighth
             {0, "x", "############", out | app}};            // no terminator among the eight
  for (int n = 0; n < 3; ++n) {
    memset(text, '#', sizeof text);
    if (all[n].before) strcpy(text, all[n].before);
    std::ostrstream s(text, 8, all[n].mode);
    s << all[n].written;
    CHECK(memcmp(text, all[n].after, 12) == 0);
  }
  // 0..5 readable, 6..9 to be written. The read position moves, also before the move fails.
  strcpy(array, "0123456789");
  probe p(array, 4, array + 6);
  CHECK(p.pubseekoff(2, beg, in) == 2 && p.pubseekoff(1, cur, in | out) == -1 && p.at() == 3);
  CHECK(p.pubseekoff(4, beg) == 4 && p.at() == 4 && p.room() == 0);
  CHECK(p.pubseekoff(5, beg) == -1 && p.at() == 5 && p.room() == 0);
  CHECK(p.pubseekoff(-1, end, out) == 3 && p.pubseekoff(-1, cur, out) == 2);
  CHECK(p.pubseekoff(INT_MAX, cur, in) == -1 && p.pubseekoff(0, ios_base::seekdir(7), in) == -1);
  CHECK(p.pubseekpos(6) == 6 && p.at() == 6 && p.room() == 2);  // too far to write, not to read
  CHECK(p.pubseekpos(7) == -1 && p.pubseekpos(5, out) == -1 && p.pubseekpos(-1) == -1 && p.pubseekpos(0, out) == 0);
  std::strstreambuf empty;
  CHECK(empty.pubseekpos(0) == -1 && empty.pubseekoff(0, end) == -1 && !empty.str() && !empty.pcount());
}

// An array without a known end is read no further than is asked for, and does not go round the end of memory.
struct edge : std::istrstream {
  edge(const char *text, bool low) : std::istrstream(before_nothing(text, low), -1) {}
};
void endless(bool low) {
  char text[64] = "", *const place = before_nothing("17........", low);
  static char five[] = "5";
  std::string one(40, '-'), two, three, line;
  int number = 0;
  double real = 0;
  edge first("two words ", low), second("a b", low), words("ab c ", low), lines("one\nb\n", low), part("abcdef", low),
      whole("  12 ", low), half("1.5 ", low);
  CHECK(first >> one && second >> two && words >> text >> three && whole >> number && half >> real);
  CHECK(one == "two" && two == "a" && strcmp(text, "ab") == 0 && three == "c" && number == 12 && real == 1.5);
  CHECK(std::getline(lines, line).getline(text, 64) && line == "one" && strcmp(text, "b") == 0);
  CHECK(part.ignore(1).get(text, 4).read(text + 4, 2) && strcmp(text, "bcd") == 0 && memcmp(text + 4, "ef", 2) == 0);
  CHECK(half.rdbuf()->in_avail() > 1000 && std::istrstream(five, -1).rdbuf()->in_avail() == INT_MAX);
  place[2] = 0;
  std::ostrstream appended(place, -1, out | app);
  CHECK(appended << "more" && memcmp(place, "17more", 6) == 0);
}

}  // namespace

int main() {
  own_file one("buffers");  // children use the same name
  file = &one;
  modes();
  opening();
  positions();
  reading_on();
  conversions();
  full_device();
  CHECK_ENDS(closed_descriptor, 7, "");
  CHECK_ENDS(broken_pipe, 7, "");
  CHECK_ENDS(unreadable, 7, "");
  large_files();
  strings();
  sizes<std::stringbuf>();
  sizes<derived>();
  CHECK(fail_each_allocation<writing>() >= 10);
  growing();
  arrays();
  endless(false);
  endless(true);
  return TEST_RESULT();
}

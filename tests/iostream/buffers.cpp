// Buffers of files and of memory, beyond what peer/streams.cpp compares.
// Files: the table of modes, positions at the ends of what there is, codecvts that convert; and what the system
// refuses, which becomes a state, at the latest in close: a full device, a directory, positions and files beyond 2 GB.
// Memory: a program that replaced operator new[] sees every block of a string buffer, in the sizes of the rule, from
// plain and derived buffers alike; each may fail, and nothing may be lost then but what was to be written. Character
// arrays: freeze is reversed, reading starts elsewhere after growth, 0xFF looks like the end, nothing is released, and
// an array may have no known end.
#include <fcntl.h>
#include <limits.h>
#include <malloc.h>
#include <sys/stat.h>

#include "../fail_allocation.h"
#include "operations.h"

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

int mode_of(const std::string &text) {
  static const char *const names[] = {"in", "out", "app", "ate", "trunc"};
  static const int bits[] = {in, out, app, ate, trunc};
  int mode = 0;
  for (int i = 0; i < 5; ++i) mode |= text.find(names[i]) != std::string::npos ? bits[i] : 0;
  return mode;
}

// One mode, on a file that is not there and on one that holds "old!": "-" refused, else in brackets what was read, and
// what the file holds after "new" was written.
void modes() {
  std::string want[2][128];
  for (rows row(__FILE__, "data/modes"); row.next();) {
    const int mode = mode_of(row[0]);
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

void pipe_positions() {
  std::filebuf standard(stdout);
  CHECK(standard.close() == &standard && fileno(stdout) == 1 && fflush(stdout) == 0);
  int ends[2];
  CHECK_INT(pipe(ends), 0);
  std::filebuf pipe_end(fdopen(ends[0], "r"));
  CHECK(write(ends[1], "ab", 2) == 2 && pipe_end.sbumpc() == 'a' && pipe_end.sputbackc('z') == 'z');
  char none[2];
  std::istream from(&pipe_end);
  CHECK(from.readsome(none, 2) == 0 && from.rdstate() == ios_base::eofbit);
  CHECK(pipe_end.pubseekoff(0, cur) == -1 && pipe_end.in_avail() == -1 && pipe_end.pubsync() == 0);
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

char arena[4096];
int arena_used;
std::string allocation;

void *take(size_t n) {
  trace("+%u", static_cast<unsigned>(n));
  if (allocation == "throws") throw thrown();
  arena_used += static_cast<int>(n);
  return allocation == "fails" ? 0 : arena + arena_used - n;
}
void give(void *p) { trace("-%d", static_cast<int>(static_cast<char *>(p) - arena)); }
void give_back(void *p) {
  trace("-");
  std::strstreambuf::default_free(p);
}

std::string number(long n) { return operations::number("%lld", n); }
std::string character(int c) { return c > ' ' && c < 127 ? std::string(1, static_cast<char>(c)) : number(c); }

// Does a step of a row, which is an operation with its arguments, and says what it gave.
std::string done(std::streambuf &b, const std::string &step) {
  std::string part[4];
  std::istringstream parts(step);
  for (int i = 0; i < 4; ++i) std::getline(parts, part[i], ':');
  const std::string &what = part[0], &text = part[1], &which = part[what == "seekoff" ? 3 : 2];
  const int n = atoi(text.c_str()), mode = which.empty() ? in | out : mode_of(which);
  const int way = part[2] == "beg" ? beg : part[2] == "cur" ? cur : part[2] == "end" ? end : 7;
  std::stringbuf *const string = dynamic_cast<std::stringbuf *>(&b);
  derived *const own = dynamic_cast<derived *>(&b);
  probe *const array = dynamic_cast<probe *>(&b);
  std::filebuf *const over = dynamic_cast<std::filebuf *>(&b);
  static std::filebuf other;
  std::ostream stream(&b);
  if (what == "sputc") return character(b.sputc(text[0]));
  if (what == "sputn") return number(b.sputn(text.data(), static_cast<int>(text.size())));
  traced = true;
  if (what == "<<") stream << text[0];
  if (what == "C_string") stream << std::string(n, 'c').c_str();
  if (what == "block") stream << std::string(n, 'b');
  if (what == "set") string->str(text);
  if (what == "set_block") string->str(std::string(n, 's'));
  traced = false;
  if (what == "sgetc") return character(b.sgetc());
  if (what == "sbumpc") return character(b.sbumpc());
  if (what == "sungetc") return character(b.sungetc());
  if (what == "sputbackc") return character(b.sputbackc(text[0]));
  if (what == "in_avail") return number(b.in_avail());
  if (what == "sync") return number(b.pubsync());
  if (what == "seekoff") return number(std::streamoff(b.pubseekoff(n, ios_base::seekdir(way), mode)));
  if (what == "seekpos") return number(std::streamoff(b.pubseekpos(n, mode)));
  if (what == "setbuf") return number(b.pubsetbuf(0, 0) == &b);
  if (what == "open") return number(over->open(file->name(), mode_of(text)) == &b);
  if (what == "close") return number(over->close() == &b);
  if (what == "other") other.pubimbue(b.getloc()), other.open("/dev/null", out), other.sputc(text[0]);
  if (what == "classic") b.pubimbue(std::locale::classic());
  if (what == "converting") b.pubimbue(std::locale(std::locale::classic(), new converting(true, text.empty())));
  if (what == "room") return number(own ? own->room() : array->room());
  if (what == "overflow") return character(own ? own->overflow(text[0]) : array->overflow(n));
  if (what == "str") return string ? string->str() : std::string(array->str() ? array->str() : "", array->pcount());
  if (what == "at") return number(array->at());
  if (what == "underflow") return character(array->underflow());
  if (what == "freeze") array->freeze(n != 0);
  if (what == "pcount") return number(array->pcount());
  if (what == "allocation") allocation = text;
  const std::string all = std::string("[") + test_trace + ']';
  if (what == "trace") test_trace[0] = 0;
  return what == "trace" ? all : "";
}

void table() {
  int count = 0;
  for (rows row(__FILE__, "data/buffers"); row.next(); ++count) {
    char text[20] = "";
    row[1].copy(text, sizeof text);
    file->hold(row[1]);
    std::istringstream kind(row[0]), steps(row[2]);
    std::string name, got;
    int n = 0, at = 0;
    kind >> name >> n >> at;
    std::filebuf *const over = name == "file" ? new std::filebuf : 0;
    std::streambuf *b = over;
    if (name == "string") b = new derived(row[1], mode_of(row[0]));
    if (name == "plain_string") b = new std::stringbuf(row[1], ios_base::openmode(mode_of(row[0])));
    if (name == "array") b = new probe(text, n, text + at);
    if (name == "given") b = new probe(static_cast<const char *>(text), n);
    if (name == "grown") b = new probe(take, give);
    if (over) over->open(file->name(), mode_of(row[0]));
    for (std::string step; steps >> step;) {
      std::string gave;
      try {
        gave = done(*b, step);
      } catch (const thrown &) { gave = "thrown"; }
      if (!gave.empty()) got += gave + ' ';
    }
    delete b;
    test_trace[0] = 0;
    CHECK_TEXT(got.c_str(), row[3].c_str());
    const std::string left = name == "file" ? file->content() : std::string(text, row[4].size());
    if (!row[4].empty()) CHECK_TEXT(left.c_str(), row[4].c_str());
    CHECK(row[4].empty() || left == row[4]);
  }
  CHECK_INT(count, 25);
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

// The block belongs to whoever has the areas; a move does not cut what was written into an array of the program's.
void taken_blocks() {
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

void arrays() {
  // A function to release alone sees every array that is left.
  void *(*const no_take)(size_t) = 0;
  void (*const no_give)(void *) = 0;
  probe released(no_take, give_back), own(take, no_give);
  for (int i = 0; i < 33; ++i) CHECK_INT(released.sputc('x'), 'x');
  give_back(released.str());
  CHECK_INT(own.sputc('x'), 'x');
  CHECK_TRACE("- - - +16");
  unsigned char bytes[3] = {1, 2, 0};
  std::strstreambuf u(bytes, 2, bytes + 1);
  CHECK(u.sputn("xyz", 3) == 2 && u.sgetn(reinterpret_cast<char *>(bytes), 1) == 1);
  char text[20] = "12 34";
  std::istrstream whole(text), part(text, 4);
  int i = 0, k = 0;
  CHECK(whole >> i >> i && part >> k >> k && i == 34 && k == 3 && whole.eof() && part.eof() && whole.str() == text);
  // seekg never changes the state, and does nothing to one that has failed.
  CHECK(part.seekg(0).eof() && part.rdbuf()->sgetc() == '1' && part.seekg(9).eof());
  CHECK(part.seekg(-1, end).eof() && part.rdbuf()->sgetc() == '3' && part.seekg(9, beg).eof());
  part.clear(part.failbit);
  CHECK(part.seekg(0).rdstate() == part.failbit && part.rdbuf()->sgetc() == '3');
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
  pipe_positions();
  reading_on();
  full_device();
  CHECK_ENDS(unreadable, 7, "");
  large_files();
  table();
  CHECK(fail_each_allocation<writing>() >= 10);
  taken_blocks();
  arrays();
  endless(false);
  endless(true);
  return TEST_RESULT();
}

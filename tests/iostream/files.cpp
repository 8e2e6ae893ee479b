// File buffers and streams: the table of modes, positions at the ends of what there is, codecvts that convert; and what
// the system refuses, which becomes a state, at the latest in close: a full device, a directory, a closed descriptor, a
// broken pipe, positions and files beyond 2 GB. What one does to a file in any order is in peer/streams.cpp.
#include <fcntl.h>
#include <malloc.h>
#include <sys/stat.h>

#include <fstream>
#include <iostream>
#include <locale>
#include <string>

#include "../buffers.h"
#include "../harness.h"

using std::ios_base;

namespace {

const int in = ios_base::in, out = ios_base::out, app = ios_base::app, ate = ios_base::ate, trunc = ios_base::trunc;

own_file *file;

// One mode, on a file that is not there and on one that holds "old!": "-" refused, else in brackets what was read, and
// what the file holds after "new" was written.
void modes() {
  static const struct {
    int mode;
    const char *absent, *present;
  } all[] = {{out, "[]new", "[]new"},
             {out | app, "[]new", "[]old!new"},
             {out | trunc, "[]new", "[]new"},
             {in, "-", "[old!]old!"},
             {in | out, "-", "[old!]old!new"},
             {in | out | trunc, "[]new", "[]new"},
             // At the end: an existing file is kept, a missing one is made.
             {out | ate, "[]new", "[]old!new"},
             {in | ate, "-", "[]old!"},
             {ate, "-", "[]old!"},
             {in | out | ate, "-", "[]old!new"}};
  for (int mode = 0; mode < 128; ++mode) {
    const char *want[] = {"-", "-"};
    for (int i = 0; i < 10; ++i)
      if ((mode & ~ios_base::binary) == all[i].mode) want[0] = all[i].absent, want[1] = all[i].present;
    for (int present = 0; present < 2; ++present) {
      std::filebuf b;
      std::string got = "-";
      present ? file->hold("old!") : void(remove(file->name()));
      if (b.open(file->name(), mode)) {
        got = "[" + std::string(std::istreambuf_iterator<char>(&b), std::istreambuf_iterator<char>()) + "]";
        b.sputn("new", 3);
        CHECK(b.close() == &b);
        got += file->content();
      }
      CHECK_TEXT(got.c_str(), want[present]);
    }
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
      if (i % 100 == 99) CHECK(f.tellg() == std::streampos(at) && f.unget().get() == '\n');
      if (i % 300 == 299) CHECK(f.seekg(at * 7919 % all.size()).get() == all[at * 7919 % all.size()] && f.seekg(at));
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

}  // namespace

int main() {
  own_file one("files");  // children use the same name
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
  return TEST_RESULT();
}

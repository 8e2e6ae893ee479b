// What the system refuses becomes a state, at the latest in close: a full device, a directory, a closed descriptor, a
// broken pipe, positions and files beyond 2 GB. The standard streams meet them in children.
#include <fcntl.h>
#include <sys/stat.h>

#include <fstream>
#include <iostream>
#include <string>

#include "../harness.h"

using std::ios_base;

namespace {

const char *big() {
  static char path[64];
  if (!path[0]) sprintf(path, "big.%d.tmp", static_cast<int>(getpid()));
  return path;
}

void full_device() {
  std::ofstream f("/dev/full");
  f << "text";
  CHECK(f.good());  // it is in stdio's buffer
  f.flush();
  CHECK(f.bad());
  f.clear();
  const std::string much(100000, 'x');
  f.write(much.data(), 100000);
  CHECK(f.bad());
  f.clear();
  f << "more";
  f.close();
  CHECK(f.fail() && !f.is_open());

  // Inserters of C strings do not look at what is refused; flush and close tell, once.
  f.clear();
  f.open("/dev/full");
  f << much.c_str();
  CHECK(f.good());
  f.flush();
  CHECK(f.bad());
  f.clear();
  f.flush();
  CHECK(f.good());
  f << much.c_str();
  f.close();
  CHECK(f.fail());
}

void directory() {
  std::ifstream f("/");
  std::string s;
  CHECK(!(f >> s) && f.eof());
  f.clear();
  CHECK(f.get() == -1 && f.fail());
  std::ofstream g("/");
  CHECK(!g.is_open() && g.fail());
}

void closed_descriptor() {
  close(1);
  close(0);
  std::cout << "text" << std::endl;
  int n;
  _exit(std::cout.bad() && !(std::cin >> n) ? 7 : 8);
}

void broken_pipe() {
  signal(SIGPIPE, SIG_IGN);
  int ends[2];
  if (pipe(ends) != 0) _exit(9);
  close(ends[0]);
  dup2(ends[1], 1);
  std::cout << "text";
  const bool before = std::cout.good();
  std::cout.flush();
  _exit(before && std::cout.bad() ? 7 : 8);
}

// With exceptions(badbit) the last flush has nobody to throw to.
void full_at_exit() {
  dup2(open("/dev/full", O_WRONLY), 1);
  std::cout.exceptions(ios_base::badbit);
  std::cout << "text";
  exit(7);
}

void make_big() {
  const int fd = open(big(), O_CREAT | O_RDWR | O_LARGEFILE, 0600);
  if (fd < 0 || pwrite64(fd, "tail\nlast\n", 10, 0x7ffffffeLL) != 10) _exit(9);
  close(fd);
}

void too_large() {
  std::ifstream f(big());
  CHECK(!f.is_open() && f.fail());
  std::ofstream g(big(), ios_base::app);
  CHECK(!g.is_open() && g.fail());
}

// A standard stream may be redirected from a file of any size: it is read, only positions are refused.
void large_input() {
  const int fd = open(big(), O_RDONLY | O_LARGEFILE);
  lseek64(fd, 0x7ffffffeLL, SEEK_SET);
  dup2(fd, 0);
  std::string one, two;
  bool ok = std::cin.tellg() == 0x7ffffffe && std::cin.rdbuf()->in_avail() == 10;
  ok &= std::cin.rdbuf()->pubseekoff(0, ios_base::end) == -1;
  ok &= std::cin.tellg() == 0x7ffffffe;
  std::cin >> one;
  ok &= one == "tail" && std::cin.tellg() == -1;
  std::cin.clear();
  std::cin.seekg(1, ios_base::cur);
  ok &= std::cin.fail();
  std::cin.clear();
  std::cin >> two;
  ok &= two == "last";
  _exit(ok ? 7 : 8);
}

// A file opened by name does not grow beyond what positions can say.
void growing_too_large() {
  std::ofstream f(big(), ios_base::out | ios_base::trunc);
  CHECK(f.is_open());
  f.seekp(0x7ffffffe);
  CHECK(f.good());
  f << "abcdef" << std::flush;
  CHECK(f.bad());
}

// What may be written but not read is not emptied by asking for its end.
void unreadable() {
  make_big();
  chmod(big(), 0222);
  if (geteuid() == 0 && seteuid(65534) != 0) _exit(9);
  std::ofstream f(big(), ios_base::out | ios_base::ate);
  _exit(f.fail() ? 7 : 8);
}

}  // namespace

int main() {
  big();  // children use the same name
  full_device();
  directory();
  CHECK_ENDS(closed_descriptor, 7, "");
  CHECK_ENDS(broken_pipe, 7, "");
  CHECK_ENDS(full_at_exit, 7, "");
  make_big();
  too_large();
  CHECK_ENDS(large_input, 7, "");
  CHECK_ENDS(unreadable, 7, "");
  if (geteuid() != 0) chmod(big(), 0600);
  remove(big());
  growing_too_large();
  remove(big());
  return TEST_RESULT();
}

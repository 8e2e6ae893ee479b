// Whatever begins ends in the reverse order: static objects of several files of C++ and one of generated C, local ones,
// std::atexit functions, by return, by exit, out of a handler, and with new ones while the program ends. All of it prints by
// the standard streams, mixed with stdio, from the first constructor to the last destructor. Then what Init does.
// test-variants: -O0 | -O2 | -O2 -static
#include "life.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "../../harness.h"

void touch_busy();
static watched of_main("main");
static void at_exit() { ended("atexit"); }
static void __attribute__((__destructor__)) after_all() {  // the last Init is gone, and the streams with it
  std::cout << "after " << 7 << std::hex << 255 << std::endl;
  std::printf("last\n");
}

static void run(const char *how) {
  std::cout << "main is " << 4 << 2;
  std::printf(" printf ");
  std::cout << 'c';
  std::putchar('p');
  std::cerr << "<cerr>";  // flushes cout first
  std::clog << "<clog>";  // not flushed by itself, but stderr has no buffer
  std::fputs("\n", stdout);
  std::cout.write("block\n", 6);
  touch_other();
  began("atexit"), std::atexit(at_exit);
  c_registers();
  static watched local("main-local");
  if (*how == 'l') touch_busy();
  if (*how == 'e' || *how == 'l') exit(0);
  if (*how == 'h') {
    try {
      throw 1;
    } catch (int) {
      exit(0);
    }
  }
}
static const char *how;
static void in_own_process() { execl("/proc/self/exe", "life", how, (char *)0); }

static void in_reverse() {
  const test_child child = test_run_child(in_own_process);
  std::vector<std::string> alive;
  unsigned most = 0;
  CHECK_INT(child.status, 0);
  CHECK(strstr(child.text, "main is 42 printf cp<cerr><clog>\nblock\n+"));
  CHECK(strstr(child.text, "\nafter 7ff\nlast\n"));
  for (const char *line = child.text; *line; line = strchr(line, '\n') + 1) {
    const std::string name(line + 1, strchr(line, '\n') - line - 1);
    if (*line == '+') alive.push_back(name);
    if (*line == '-') CHECK_TEXT(alive.empty() ? "none" : alive.back().c_str(), name.c_str()), alive.pop_back();
    if (alive.size() > most) most = alive.size();
  }
  CHECK(alive.empty());
  CHECK_INT(most, *how == 'l' ? 15 : 13);
}

static void erased(std::ios_base::event what, std::ios_base &stream, int) {
  if (what == std::ios_base::erase_event) trace(&stream == &std::cout ? "cout" : "other");
}
// The streams go with the last Init and come again with the next.
static void initialisation() {
  typedef std::ios_base::Init Init;
  CHECK(std::cout.rdbuf() == __vexil_fout && std::cin.rdbuf() == __vexil_fin);
  CHECK(std::cerr.rdbuf() == __vexil_ferr && std::clog.rdbuf() == __vexil_ferr);
  CHECK(std::cin.tie() == &std::cout && std::cerr.tie() == &std::cout && std::clog.tie() == &std::cout && !std::cout.tie());
  CHECK((std::cerr.flags() & std::ios_base::unitbuf) && !(std::clog.flags() & std::ios_base::unitbuf));
  const int count = Init::init_cnt;
  CHECK_INT(count, 3 + 3);  // the library's and those of the three units here
  {
    Init another;
    CHECK_INT(Init::init_cnt, count + 1);
  }
  std::cout.register_callback(erased, 0);
  std::cerr.register_callback(erased, 0);
  std::cout.exceptions(std::ios_base::badbit);
  Init::init_cnt = 1;
  union {
    int word;
    char bytes[sizeof(Init)];
  } here;
  Init *const init = new (&here) Init;
  init->~Init();
  CHECK_TRACE("");
  init->~Init();
  CHECK_TRACE("other cout");
  CHECK_INT(Init::init_cnt, 0);
  CHECK(std::cout.good() && std::cout.exceptions() == 0);  // still to be used
  new (&here) Init;
  CHECK(std::cout.rdbuf() == __vexil_fout && std::cout.good());
  Init::init_cnt = count;
}

int main(int count, char **words) {
  static const char *const ways[] = {"return", "exit", "handler", "late"};
  if (count > 1) {
    run(words[1]);
    return 0;
  }
  initialisation();
  for (int i = 0; i < 4; ++i) how = ways[i], in_reverse();
  return TEST_RESULT();
}

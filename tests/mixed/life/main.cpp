// Whatever begins ends in the reverse order: static objects of several files of C++ and one of generated C, local ones,
// std::atexit functions, by return, by exit, out of a handler, and with new ones while the program ends. All of it prints by
// the standard streams, mixed with stdio, from the first constructor to the last destructor.
// test-variants: -O0 | -O2 | -O2 -static
#include "life.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "../../harness.h"

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
  touch_other();
  began("atexit");
  std::atexit(at_exit);
  c_registers();
  static watched local("main-local");
  if (*how == 'l') touch_busy();
  if (*how == 'e' || *how == 'l') exit(0);
  if (*how == 'h') try { throw 1; } catch (int) { exit(0); }
}
static const char *how;
static void in_own_process() { execl("/proc/self/exe", "life", how, (char *)0); }

static void in_reverse() {
  const test_child child = test_run_child(in_own_process);
  std::vector<std::string> alive;
  unsigned most = 0;
  CHECK_INT(child.status, 0);
  CHECK(strstr(child.text, "main is 42 printf cp<cerr><clog>\n+"));
  CHECK(strstr(child.text, "\nafter 7ff\nlast\n"));
  for (const char *line = child.text; *line; line = strchr(line, '\n') + 1) {
    const std::string name(line + 1, strchr(line, '\n') - line - 1);
    if (*line == '+') alive.push_back(name);
    if (*line == '-') {
      CHECK_TEXT(alive.empty() ? "none" : alive.back().c_str(), name.c_str());
      alive.pop_back();
    }
    if (alive.size() > most) most = alive.size();
  }
  CHECK(alive.empty());
  CHECK_INT(most, *how == 'l' ? 15 : 13);
}

int main(int count, char **words) {
  static const char *const ways[] = {"return", "exit", "handler", "late"};
  if (count > 1) {
    run(words[1]);
    return 0;
  }
  for (int i = 0; i < 4; ++i) {
    how = ways[i];
    in_reverse();
  }
  return TEST_RESULT();
}

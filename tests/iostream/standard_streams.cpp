// The standard streams after their end: what runs later than every static object finds streams that work, and may make
// them again and end them again; nothing is lost or written twice, and a failing flush at the end throws nothing.
#include <fcntl.h>

#include <iostream>

#include "../harness.h"

static bool in_child;

static void tell(const char *where) {
  std::cout << where << (std::cin.tie() == &std::cout && std::cerr.tie() == &std::cout && std::clog.tie() == &std::cout)
            << !!(std::cerr.flags() & std::ios::unitbuf) << !(std::clog.flags() & std::ios::unitbuf) << ' ';
}

static void hear(std::ios_base::event what, std::ios_base &, int) {
  if (what == std::ios_base::erase_event) fputs("erased ", stdout);
}

__attribute__((__destructor__)) static void last() {
  if (!in_child) return;
  tell("late");
  std::cout.register_callback(hear, 0);
  for (int i = 0; i < 3; ++i) {
    {
      const std::ios_base::Init first, second;
      tell("again");
      std::cerr << "e ";
      std::clog << "l ";
      if (i == 1) std::cout.exceptions(std::ios::badbit);
    }
    CHECK(std::cout.exceptions() == 0);
    tell("after");
  }
}

static void ending() {
  in_child = true;
  tell("main");
  exit(0);
}
static void full() {
  dup2(open("/dev/full", O_WRONLY), 1);
  std::cout.exceptions(std::ios::badbit);
  std::cout << "text";
  exit(7);
}

int main() {
  CHECK_TEXT(test_run_child(ending).text,
             "main111 late111 erased again111 e l after111 again111 e l after111 again111 e l after111 ");
  CHECK_ENDS(full, 7, "");
  return TEST_RESULT();
}

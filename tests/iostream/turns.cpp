// cin and cout in turns: a flush that cin owes cout may wait while input is ready, but a prompt is there before the
// program waits, whoever reads then and whatever became of cout; and what streams and C functions write in any order
// stands in that order.
#include <poll.h>
#include <pty.h>
#include <stdio_ext.h>
#include <termios.h>

#include <fstream>

#include "../buffers.h"
#include "../harness.h"
#include "operations.h"

namespace {

int next() {
  int value = 0;
  std::cin >> value;
  return value;
}

// Reads what comes behind the prompt, in one of these ways, or after one of these changes.
const int last_acts = 9;
void last_act(int which) {
  static char block[5000];
  std::string line;
  int value = 0;
  switch (which) {
    case 0: break;
    case 1:
      while (line != "5") getline(std::cin, line);
      return;
    case 2: std::cin.rdbuf()->sgetn(block, sizeof block); return;
    case 3:
      while (value != 5 && scanf("%d", &value) == 1) continue;
      return;
    case 4:
      while (getchar() != '5') continue;
      return;
    case 5: std::istream(new std::filebuf(stdin)).ignore(5); return;
    case 6: std::cin.tie(0); break;
    case 7: std::cout.setstate(std::ios::badbit); break;
    case 8: std::cout.rdbuf(0); break;
  }
  next(), next();
}

void play(int act, bool buffered) {
  if (!buffered) setvbuf(stdin, 0, _IONBF, 0);
  next();
  std::cout << "promp";
  next();
  std::cout << 't';
  next();
  last_act(act);
  _exit(0);
}

// The text that there is to read until it ends with `end`, or nothing has come for five seconds.
std::string text_until(int from, const std::string &end) {
  std::string text;
  pollfd ready = {from, POLLIN, 0};
  char c;
  while ((text.size() < end.size() || text.substr(text.size() - end.size()) != end) && poll(&ready, 1, 5000) > 0 &&
         read(from, &c, 1) == 1)
    text += c;
  return text;
}

void prompts() {
  for (unsigned way = 0; way < 4; ++way)
    for (int act = 0; act < last_acts; ++act) {
      const bool at_terminal = way & 1, buffered = way & 2;
      int to[2], from[2];
      if (at_terminal) {
        termios quiet = termios();
        quiet.c_lflag = ICANON;
        quiet.c_cc[VEOF] = 4;
        CHECK(openpty(&to[1], &to[0], 0, &quiet, 0) == 0);
        from[0] = dup(to[1]), from[1] = dup(to[0]);
      } else {
        CHECK(pipe(to) == 0 && pipe(from) == 0);
      }
      const pid_t child = fork();
      if (child == 0) {
        alarm(20);
        dup2(to[0], 0), dup2(from[1], 1);
        for (int i = 0; i < 2; ++i) close(to[i]), close(from[i]);
        play(act, buffered);
      }
      CHECK(write(to[1], "1 2 3 4\n", 8) == 8);
      const std::string got = text_until(from[0], "prompt");
      CHECK_TEXT(got.c_str(), "prompt");
      if (got != "prompt") fprintf(stderr, "  with last act %d, way %u\n", act, way);
      CHECK(write(to[1], "5\n\4", at_terminal ? 3 : 2) > 1);
      if (!at_terminal) close(to[1]);
      int status = -1;
      CHECK(waitpid(child, &status, 0) == child && status == 0);
      close(to[0]), close(from[0]), close(from[1]);
      if (at_terminal) close(to[1]);
    }
}

// Everything goes to one file, which is what was written in the order in which it was written.
void any_order() {
  std::string numbers, wanted;
  for (int i = 0; i < 60000; ++i) numbers += operations::number("%lld", i) + ' ';
  const own_file input("turns.input", numbers), output("turns.output");
  CHECK(freopen(input.name(), "r", stdin) && freopen(output.name(), "a", stdout));
  const own_file other("turns.other");
  std::ofstream to(other.name());
  std::ostream *const tied = std::cin.tie(&to);
  to << "text";
  int read = next(), wrong = read++;
  CHECK_TEXT(other.content().c_str(), "text");
  std::cin.tie(tied);
  const int errors = dup(2);
  dup2(fileno(stdout), 2);
  for (int i = 0; i < 60000; ++i) {
    const std::string text = operations::number("%lld", i) + '\n';
    int value;
    switch (random_below(16)) {
      case 0: scanf("%d", &value), wrong += value != read++; continue;
      case 1: printf("%s", text.c_str()); break;
      case 2: puts(text.substr(0, text.size() - 1).c_str()); break;
      case 3: std::cerr << text; break;
      case 4: std::clog << i << std::endl; break;
      case 5: i % 64 ? std::cout << text : std::cout << text << std::flush; break;
      case 6: putchar('\n'), wanted += '\n'; continue;
      case 7:
      case 8:
      case 9: std::cout << i << '\n'; break;
      default: wrong += next() != read++; continue;
    }
    wanted += text;
  }
  std::cout.flush();
  dup2(errors, 2);
  CHECK_INT(wrong, 0);
  CHECK(output.content() == wanted && read > 10000);
  CHECK(!__flbf(stdout) && !__flbf(stdin));
}

}  // namespace

int main() {
  prompts();
  any_order();
  return TEST_RESULT();
}

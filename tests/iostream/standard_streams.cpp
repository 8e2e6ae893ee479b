// The standard streams: megabytes from cin to cout through pipes, by each means of streams and of stdio and by all in
// turns, byte for byte and in order, with cerr and clog between them. A flush that cin owes cout may wait while input
// is ready, but a prompt is there before the program waits, whoever reads then and whatever became of cout; what stdio
// holds back, in each of its ways of buffering, and no more, is held back. And after their end: what runs later than
// every static object finds streams that work, and may make them again and end them again; nothing is lost or written
// twice, and a failing flush at the end throws nothing.
#include <ctype.h>
#include <fcntl.h>
#include <pty.h>
#include <stdio_ext.h>
#include <termios.h>

#include <fstream>
#include <iostream>
#include <string>

#include "../buffers.h"
#include "../harness.h"
#include "../random.h"

using std::cin;
using std::cout;

namespace {

// Lines of all lengths up to 3000 of every byte value, with numbers of the digits from 1 to 9 in front, and a last line
// without an end.
std::string make_text() {
  std::string text;
  while (text.size() < 1200000) {
    const unsigned first = random_below(256), length = random_below(random_below(2) ? 3000 : 60);
    for (unsigned i = random_below(8); i > 0; --i) text += static_cast<char>('1' + (first + i) % 9);
    text += ' ';
    for (unsigned i = 0; i < length; ++i) {
      const char c = static_cast<char>(first + i * 37);
      text += c >= '+' && c <= '9' ? '.' : c;
    }
    text += '\n';
  }
  return text + "no end";
}

// clang-format off
enum { characters, blocks, lines, numbers, errors, by_stdio, stdio_blocks, buffer_out, buffer_in, all, means };
// clang-format on

void filter(int which) {
  static char block[70001];
  std::string line;
  for (unsigned i = 0; cin.good(); ++i) {
    const int n = i % 7 ? 1 + int(random_below(9000)) : int(sizeof block);
    switch (which == all ? int(random_below(buffer_out)) : which) {
      case characters:
        if (i % 2 ? cin.get(*block).fail() : (*block = static_cast<char>(cin.get()), cin.fail())) return;
        i % 5 ? cout.put(*block) : cout << *block;
        break;
      case blocks:
        cin.read(block, n);
        i % 2 ? cout.write(block, cin.gcount()) : cout << std::string(block, cin.gcount());
        break;
      case lines:
        if (std::getline(cin, line)) cout << line << (cin.eof() ? "" : "\n");
        if (cin.getline(block, sizeof block)) cout.write(block, cin.gcount() - !cin.eof()) << (cin.eof() ? "" : "\n");
        break;
      case numbers: {
        int value = cin.peek();
        if (!isdigit(value)) {
          if (cin.get(*block)) putchar(*block);
        } else if (i % 2) {
          cin >> value, cout << value;
        } else {
          printf("%d", scanf("%d", &value) == 1 ? value : 0);
        }
        break;
      }
      case errors:
        if (cin.get(*block)) (i % 2 ? std::cerr : std::clog) << *block << std::flush;
        break;
      case by_stdio:
        if ((*block = static_cast<char>(i % 2 ? getchar() : cin.rdbuf()->sbumpc()), feof(stdin))) return;
        i % 3 ? putchar(*block) : cout.rdbuf()->sputc(*block);
        break;
      case stdio_blocks:
        fwrite(block, 1, fread(block, 1, n, stdin), stdout);
        if (feof(stdin)) return;
        break;
      case buffer_out: cout << cin.rdbuf(); return;
      case buffer_in: cin >> cout.rdbuf(); return;
    }
  }
}

// What this program puts out between two pipes.
std::string filtered(const char *self, int which, const std::string &text) {
  const own_file in("filter.in", text), out("filter.out");
  const std::string letter(1, static_cast<char>('a' + which));
  const std::string command = "cat " + in.path + " | " + self + " " + letter + " 2>&1 | cat > " + out.path;
  return system(command.c_str()) == 0 ? out.content() : "(failed)";
}

int next() {
  int value = 0;
  cin >> value;
  return value;
}

// Reads what comes behind the prompt, in one of these ways, or after one of these changes.
enum { usual, by_line, by_block, by_scanf, by_getchar, by_other_buffer, untied, failed, unbuffered, last_acts };
void last_act(int which) {
  static char block[5000];
  std::string line;
  int value = 0;
  switch (which) {
    case by_line:
      while (line != "5") getline(cin, line);
      return;
    case by_block: cin.rdbuf()->sgetn(block, sizeof block); return;
    case by_scanf:
      while (value != 5 && scanf("%d", &value) == 1) continue;
      return;
    case by_getchar:
      while (getchar() != '5') continue;
      return;
    case by_other_buffer: std::istream(new std::filebuf(stdin)).ignore(5); return;
    case untied: cin.tie(0); break;
    case failed: cout.setstate(std::ios::badbit); break;
    case unbuffered: cout.rdbuf(0); break;
  }
  next(), next();
}

// Through pipes and at a terminal, with an input that is buffered and one that is not.
void prompts() {
  for (int way = 0; way < 4 * last_acts; ++way) {
    const bool at_terminal = way & 1;
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
      if (way & 2) setvbuf(stdin, 0, _IONBF, 0);
      next();
      cout << "promp";
      next();
      cout << 't';
      next();
      last_act(way / 4);
      _exit(0);
    }
    close(to[0]), close(from[1]);
    CHECK(write(to[1], "1 2 3 4\n", 8) == 8);
    char got[7] = "";
    for (char *at = got; at < got + 6 && read(from[0], at, 1) == 1; ++at) continue;
    CHECK_TEXT(got, "prompt");
    if (test_failures) return void(fprintf(stderr, "  with last act %d, way %d\n", way / 4, way % 4));
    CHECK(write(to[1], "5\n\4", at_terminal ? 3 : 2) > 1);
    if (!at_terminal) close(to[1]);
    int status = -1;
    CHECK(waitpid(child, &status, 0) == child && status == 0);
    close(from[0]);
    if (at_terminal) close(to[1]);
  }
}

// The flush of another file does not wait, whatever cout holds back.
void other_file() {
  const own_file input("standard.in", "1 2"), other("standard.out");
  std::ofstream to(other.name());
  CHECK(freopen(input.name(), "r", stdin) && next() == 1);
  cin.tie(&to);
  to << "text", cout << "held back\n";
  CHECK(next() == 2 && other.content() == "text");
  cin.tie(&cout);
}

// What stdio holds back, and no more, is held back: all, lines that have not ended, or nothing.
int buffering;
void interleaved() {
  setvbuf(stdout, 0, buffering, BUFSIZ);
  CHECK(std::ios_base::sync_with_stdio(false));
  cout << "ab" << 'c' << 1 << '\n' << std::string("d");
  fputs("|", stderr);
  putchar('e'), printf("%d", 2);
  cout.put('\n').write("f\ng", 3) << 1.5;
  fputs("|", stderr);
}

bool in_child;

void tell(const char *where) {
  cout << where << (cin.tie() == &cout && std::cerr.tie() == &cout && std::clog.tie() == &cout)
       << !!(std::cerr.flags() & std::ios::unitbuf) << !(std::clog.flags() & std::ios::unitbuf) << ' ';
}
void hear(std::ios_base::event what, std::ios_base &, int) {
  if (what == std::ios_base::erase_event) fputs("erased ", stdout);
}
__attribute__((__destructor__)) void last() {
  if (!in_child) return;
  tell("late");
  cout.register_callback(hear, 0);
  for (int i = 0; i < 3; ++i) {
    {
      const std::ios_base::Init first, second;
      tell("again");
      std::cerr << "e ";
      std::clog << "l ";
      if (i == 1) cout.exceptions(std::ios::badbit);
    }
    CHECK(cout.exceptions() == 0);
    tell("after");
  }
}
void ending() {
  in_child = true;
  tell("main");
  exit(0);
}
void full() {
  dup2(open("/dev/full", O_WRONLY), 1);
  cout.exceptions(std::ios::badbit);
  cout << "text";
  exit(7);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc > 1) {
    filter(*argv[1] - 'a');
    cout.flush();
    if (__flbf(stdout) || __flbf(stdin)) cout << "left to be flushed by lines";
    return 0;
  }
  const std::string text = make_text();
  for (int i = 0; i < means; ++i) {
    CHECK(filtered(argv[0], i, text) == text && filtered(argv[0], i, "") == "");
    if (test_failures) return fprintf(stderr, "  by means %d\n", i), 1;
  }
  prompts();
  static const char *const texts[] = {"||abc1\nde2\nf\ng1.5", "abc1\n|de2\nf\n|g1.5", "abc1\nd|e2\nf\ng1.5|"};
  static const int ways[] = {_IOFBF, _IOLBF, _IONBF};
  for (int i = 0; i < 3; ++i) {
    buffering = ways[i];
    CHECK_TEXT(test_run_child(interleaved).text, texts[i]);
  }
  CHECK_TEXT(test_run_child(ending).text,
             "main111 late111 erased again111 e l after111 again111 e l after111 again111 e l after111 ");
  CHECK_ENDS(full, 7, "");
  other_file();
  return TEST_RESULT();
}

// Megabytes from cin to cout through pipes, by each means and by all in turns, byte for byte; cout interleaved with
// stdio, in order, in each of its ways of buffering. And the standard streams after their end: what runs later than
// every static object finds streams that work, and may make them again and end them again; nothing is lost or written
// twice, and a failing flush at the end throws nothing.
#include <fcntl.h>

#include <iostream>
#include <string>

#include "../buffers.h"
#include "../harness.h"
#include "../random.h"

using std::cin;
using std::cout;

namespace {

// Every byte value, lines of all lengths up to 3000, and a last one without an end.
std::string make_text() {
  std::string text;
  while (text.size() < 1200000) {
    const unsigned first = random_below(256), length = random_below(random_below(2) ? 3000 : 60);
    for (unsigned i = 0; i < length; ++i) text += static_cast<char>(first + i * 37);
    text += '\n';
  }
  return text + "no end";
}

enum { characters, blocks, lines, iterators, by_stdio, stdio_blocks, buffer_out, buffer_in, all, means };

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
      case iterators: {
        std::istreambuf_iterator<char> from(cin), end;
        std::ostreambuf_iterator<char> to(cout);
        for (int k = 0; from != end && k < n; ++k, ++from) *to = *from;
        if (from == end) return;
        break;
      }
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
  const std::string number(1, static_cast<char>('0' + which));
  const std::string command = "cat " + in.path + " | " + self + " " + number + " | cat > " + out.path;
  return system(command.c_str()) == 0 ? out.content() : "(failed)";
}

// What stdio holds back, and no more, is held back: all, lines that have not ended, or nothing.
int buffering;
void interleaved() {
  setvbuf(stdout, 0, buffering, BUFSIZ);
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
  if (argc > 1) return filter(atoi(argv[1])), 0;
  const std::string text = make_text();
  for (int i = 0; i < means; ++i) {
    CHECK(filtered(argv[0], i, text) == text && filtered(argv[0], i, "") == "");
    if (test_failures) return fprintf(stderr, "  by means %d\n", i), 1;
  }
  static const char *const texts[] = {"||abc1\nde2\nf\ng1.5", "abc1\n|de2\nf\n|g1.5", "abc1\nd|e2\nf\ng1.5|"};
  static const int ways[] = {_IOFBF, _IOLBF, _IONBF};
  for (int i = 0; i < 3; ++i) {
    buffering = ways[i];
    CHECK_TEXT(test_run_child(interleaved).text, texts[i]);
  }
  CHECK_TEXT(test_run_child(ending).text,
             "main111 late111 erased again111 e l after111 again111 e l after111 again111 e l after111 ");
  CHECK_ENDS(full, 7, "");
  return TEST_RESULT();
}

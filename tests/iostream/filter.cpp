// Megabytes from cin to cout through pipes, by each means, byte for byte; and cout interleaved with stdio, in order,
// in each of its ways of buffering.
#include <iostream>
#include <string>

#include "../buffers.h"
#include "../harness.h"

using std::cin;
using std::cout;

namespace {

// Every byte value, lines of all lengths up to 3000, and a last one without an end.
std::string make_text() {
  std::string text;
  unsigned seed = 7;
  while (text.size() < 1200000) {
    seed = seed * 1103515245 + 12345;
    const unsigned length = (seed >> 16) % ((seed & 1024) ? 3000 : 60);
    for (unsigned i = 0; i < length; ++i) text += static_cast<char>((seed >> 8) + i * 37);
    text += '\n';
  }
  return text + "no end";
}

void characters() {
  char c = 0;
  for (int i = 0; i++ % 2 ? !cin.get(c).fail() : (c = static_cast<char>(cin.get()), !cin.fail());)
    i % 5 ? cout.put(c) : cout << c;
}
void blocks() {
  static char block[70001];
  while (cin.read(block, sizeof block) || cin.gcount()) cout.write(block, cin.gcount());
}
void lines() {
  std::string line;
  while (std::getline(cin, line)) {
    cout << line;
    if (!cin.eof()) cout << '\n';
  }
}
void array_lines() {
  static char line[4000];
  while (cin.getline(line, sizeof line)) {
    cout.write(line, cin.eof() ? cin.gcount() : cin.gcount() - 1);
    if (!cin.eof()) cout << '\n';
  }
}
void buffer_out() { cout << cin.rdbuf(); }
void buffer_in() { cin >> cout.rdbuf(); }
void iterators() {
  std::istreambuf_iterator<char> from(cin), end;
  for (std::ostreambuf_iterator<char> to(cout); from != end; ++from) *to = *from;
}
void with_stdio() {  // both sides of both files by turns
  for (int i = 0;; ++i) {
    const int c = i % 3 == 0 ? getchar() : i % 3 == 1 ? cin.get() : cin.rdbuf()->sbumpc();
    if (c == -1) break;
    if (i % 2)
      putchar(c);
    else
      cout.put(static_cast<char>(c));
  }
}
void blocks_with_stdio() {  // shorter and longer than stdio's buffer
  static char block[9000];
  for (unsigned i = 0; cin.read(block, static_cast<int>(1 + i * 611 % sizeof block)) || cin.gcount(); ++i) {
    const unsigned n = static_cast<unsigned>(cin.gcount());
    if (i % 3 == 0)
      fwrite(block, 1, n, stdout);
    else if (i % 3 == 1)
      cout.write(block, cin.gcount());
    else
      cout << std::string(block, n);
  }
}
void (*const all[])() = {characters, blocks,    lines,      array_lines,      buffer_out,
                         buffer_in,  iterators, with_stdio, blocks_with_stdio};
const unsigned count = sizeof all / sizeof *all;

// Runs this program between two pipes; returns its output.
std::string filtered(const char *self, unsigned which, const std::string &text) {
  const own_file in("filter.in", text), out("filter.out");
  const std::string number(1, static_cast<char>('0' + which));
  const std::string command = "cat " + in.path + " | " + self + " " + number + " | cat > " + out.path;
  return system(command.c_str()) == 0 ? out.content() : "(failed)";
}

void interleaved() {
  cout << "a" << 1;
  printf("b%d", 2);
  cout.put('c').write("de", 2);
  fputs("f", stdout);
  cout << std::string("g") << 1.5;
  putchar('h');
  cout << "i\n";
}

// What stdio holds back, and no more, is held back: lines that have not ended, or nothing.
void by_lines() {
  setvbuf(stdout, 0, _IOLBF, BUFSIZ);
  cout << "ab" << 'c' << 1 << '\n' << std::string("d");
  fputs("|", stderr);
  cout.put('\n').write("e\nf", 3);
  fputs("|", stderr);
}
void unbuffered() {
  setvbuf(stdout, 0, _IONBF, 0);
  cout << "a" << 'b';
  fputs("|", stderr);
  cout << 1 << std::string("c");
  fputs("|", stderr);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc > 1) {
    all[atoi(argv[1])]();
    return 0;
  }
  const std::string text = make_text();
  for (unsigned i = 0; i < count; ++i) {
    const bool same = filtered(argv[0], i, text) == text;
    CHECK(same);
    if (!same) fprintf(stderr, "  by means %u\n", i);
    CHECK(filtered(argv[0], i, "") == "");
  }
  CHECK_TEXT(test_run_child(interleaved).text, "a1b2cdefg1.5hi\n");
  CHECK_TEXT(test_run_child(by_lines).text, "abc1\n|d\ne\n|f");
  CHECK_TEXT(test_run_child(unbuffered).text, "ab|1c|");
  return TEST_RESULT();
}

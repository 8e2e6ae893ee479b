// Random input operations over random text: a string buffer, a file buffer and a buffer of single characters must give
// the same values, states and counts, and each step is printed, so that two libraries can be compared. What is
// deliberately different in plx is not shown, such as exponents without a number, the values of numbers that failed,
// and eofbit where a character was wanted.
// prints: 45000 lines
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include <fstream>
#include <iomanip>
#include <istream>
#include <sstream>
#include <string>

static unsigned int state = 20;
static unsigned int below(unsigned int limit) {
  state = state * 1664525u + 1013904223u;
  return (state >> 8) % limit;
}

// Goes back for unget, but takes no character back: extractors only look at what they leave.
class single_buffer : public std::streambuf {
public:
  explicit single_buffer(const std::string &text) : text_(text), at_(0) {}

protected:
  virtual int underflow() { return at_ < text_.size() ? static_cast<unsigned char>(text_.data()[at_]) : EOF; }
  virtual int uflow() { return at_ < text_.size() ? static_cast<unsigned char>(text_.data()[at_++]) : EOF; }
  virtual int pbackfail(int c) {
    if (at_ == 0 || c != EOF) return EOF;
    return static_cast<unsigned char>(text_.data()[--at_]);
  }

private:
  std::string text_;
  std::string::size_type at_;
};

// Numbers, words, odd characters, lines, sometimes long.
static std::string random_text() {
  static const char *const parts[] = {"7",     "-42",     "+13",       "65535 ", "2147483647", "99999999999", "3.25",
                                      "-1,3",  ".5",      "1.",        "abc",    "x-y",        "\n",          "\n\n",
                                      "  ",    " \t ",    ";",         "hullo",  " ",          "\n",          "0",
                                      "12 34", " 5 6 7 ", "\xe9t\xe9", "f9",     "0x1f"};
  std::string text;
  for (unsigned int n = below(60); n > 0; --n) text += parts[below(sizeof parts / sizeof *parts)];
  if (below(8) == 0) text += std::string(below(9000), 'w') + " tail 1\n";
  return text;
}

static void print_text(char *&to, const std::string &text) {
  to += sprintf(to, " %u:", static_cast<unsigned int>(text.size()));
  for (unsigned int i = 0; i < text.size() && i < 40; ++i)
    to += sprintf(to, text[i] < ' ' ? "\\%02x" : "%c", static_cast<unsigned char>(text[i]));
}

template <class T> static void number(std::istream &in, char *&to, const char *format) {
  T value = T();
  if (in >> value) to += sprintf(to, format, value);
}

static void step(std::istream &in, unsigned int what, unsigned int n, char *to) {
  static char array[10000];
  char c = '.';
  std::string text;
  memset(array, 0, 64);
  to += sprintf(to, "%u", what);
  bool ends = true;
  switch (what) {
    case 0: number<int>(in, to, " %d"); break;
    case 1: number<long>(in, to, " %ld"); break;
    case 2: number<unsigned short>(in, to, " %u"); break;
    case 3: number<double>(in, to, " %.17g"); break;
    case 4: number<unsigned long>(in, to, " %lu"); break;
    case 5:
      in >> c;
      to += sprintf(to, " %d", c);
      ends = !in.fail();
      break;
    case 6:
      in >> text;
      print_text(to, text);
      break;
    case 7:
      std::getline(in, text);
      print_text(to, text);
      break;
    case 8:
      std::getline(in, text, ';');
      print_text(to, text);
      break;
    case 9: to += sprintf(to, " %d", in.get()); break;
    case 10:
      in.get(c);
      to += sprintf(to, " %d", c);
      break;
    case 11: to += sprintf(to, " %d", in.peek()); break;
    case 12: in.ignore(n, n % 2 ? '\n' : EOF); break;
    case 13:
      in.read(array, n);
      print_text(to, std::string(array, in.gcount()));
      break;
    case 14:
      in.getline(array, n + 2);
      print_text(to, array);
      break;
    case 15:
      in.get(array, 10000, 'a' + n % 26);
      print_text(to, array);
      break;
    case 16: in >> std::ws; break;
    case 17:
      if (in.good() && in.get() != EOF) in.unget();
      break;
    case 18:
      in >> array;
      print_text(to, array);
      break;
    case 20:
      in >> std::setw(n + 1) >> text;
      in.width(0);
      print_text(to, text);
      break;
    default: {
      std::stringbuf line;
      in.get(line, n % 2 ? '\n' : ' ');
      print_text(to, line.str());
    }
  }
  to += sprintf(to, " s%d%d%d", in.bad(), ends && in.eof(), in.fail());
  if ((what >= 9 && what < 16) || what == 19) sprintf(to, " g%d", static_cast<int>(in.gcount()));
}

int main() {
  char path[] = "/tmp/input.XXXXXX";
  const int file = mkstemp(path);
  if (file < 0) return 2;
  close(file);
  int differences = 0;
  for (int round = 0; round < 1500; ++round) {
    const std::string text = random_text();
    FILE *const out = fopen(path, "w");
    fwrite(text.data(), 1, text.size(), out);
    fclose(out);
    std::istringstream strings(text);
    std::ifstream files(path);
    single_buffer singles(text);
    std::istream one_by_one(&singles);
    std::istream *const streams[] = {&strings, &files, &one_by_one};
    for (int i = 0; i < 30; ++i) {
      const unsigned int what = below(21), n = below(4) ? below(12) : below(300);
      char got[3][2000];
      for (int s = 0; s < 3; ++s) {
        step(*streams[s], what, n, got[s]);
        if (!streams[s]->good()) streams[s]->clear();
      }
      puts(got[0]);
      for (int s = 1; s < 3; ++s)
        if (strcmp(got[0], got[s]) != 0) {
          ++differences;
          printf("but %s: %s\n", s == 1 ? "file" : "one by one", got[s]);
        }
    }
  }
  remove(path);
  return differences != 0;
}

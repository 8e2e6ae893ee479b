// Reading and writing of one file in any order, without a seek in between: what the streams do by themselves in stdio's
// buffer gives the same as the buffer's virtual operations, which a class derived from it still goes through. A write
// after a character was put back used to crash, and a string that a file did not take was not noticed.
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>

#include "../harness.h"

namespace {

struct derived : std::filebuf {};

unsigned long seed;
unsigned any(unsigned n) {
  seed = seed * 1103515245 + 12345;
  return static_cast<unsigned>(seed >> 16 & 0x7FFF) % n;
}

void step(std::iostream &s, std::string &log) {
  static const std::string large(9000, 'L');
  char text[64] = "";
  std::string word;
  int n = -7;
  switch (any(32)) {
    case 0: s << 42; break;
    case 1: s << "text"; break;
    case 2: s << std::string("string"); break;
    case 3: s.put('\xFF'); break;
    case 4: s << '\xFF'; break;
    case 5: s.write("a block", 7); break;
    case 6: s << 2.5; break;
    case 7: s << std::setw(20) << 77; break;
    case 8: s << std::setw(20) << "wide"; break;
    case 9: n = s.get(); break;
    case 10:
      s.read(text, 7);
      n = s.gcount();
      break;
    case 11: std::getline(s, word); break;
    case 12: s >> word; break;
    case 13: s >> n; break;
    case 14: s.putback('Q'); break;
    case 15: s.unget(); break;
    case 16: s.seekg(any(6000)); break;
    case 17: n = static_cast<int>(std::streamoff(s.tellp())); break;
    case 18: s.write(large.data(), 100 + any(8900)); break;
    case 19: n = s.peek(); break;
    case 20: s.ignore(5); break;
    case 21: s.flush(); break;
    case 22: s.seekp(any(6000)); break;
    case 23: s.seekp(-static_cast<int>(any(5)), std::ios::cur); break;
    case 24: s.seekp(0, std::ios::end); break;
    case 25: s.getline(text, 10); break;
    case 26: s.get(text, 10, ' '); break;
    case 27: s >> text[0]; break;
    case 28: s >> std::setw(9) >> text; break;
    case 29: n = s.readsome(text, 5); break;
    case 30: s.ignore(3000, '\n'); break;
    case 31: s >> std::ws; break;
  }
  s.width(0);
  log += text + word + static_cast<char>(n) + static_cast<char>(n >> 8) + static_cast<char>('0' + s.rdstate());
  s.clear();
}

template <class Buffer> std::string run(unsigned long which) {
  static const unsigned sizes[] = {10, 5000, 20000};
  FILE *file = tmpfile();
  for (unsigned i = 0; i < sizes[which % 3]; ++i) putc("abcdefghij 12345\n"[i % 17], file);
  fflush(file);
  char name[40];
  sprintf(name, "/proc/self/fd/%d", fileno(file));
  std::string log;
  {
    Buffer buffer;
    seed = which;
    static const int modes[] = {std::ios::in | std::ios::out, std::ios::in, std::ios::out,
                                std::ios::out | std::ios::app, std::ios::in | std::ios::out | std::ios::trunc};
    CHECK(buffer.open(name, modes[any(5)]) != 0);
    std::iostream s(&buffer);
    for (int i = 0; i < 40; ++i) step(s, log);
  }
  rewind(file);
  for (int c; (c = getc(file)) != EOF;) log += static_cast<char>(c);
  fclose(file);
  return log;
}

}  // namespace

int main() {
  for (unsigned long which = 1; which <= 400; ++which) {
    const bool same = run<std::filebuf>(which) == run<derived>(which);
    if (!same) fprintf(stderr, "sequence %lu\n", which);
    CHECK(same);
  }
  return TEST_RESULT();
}

// A file that is read and written in any order ends where an array does: the same random operations of a stream, over
// the library's file buffer, over a class derived from it, which the streams' quick paths leave alone, and over an
// array with a position and with characters that were put back. Many moves go to the edges of stdio's buffers.
#include <fstream>
#include <iomanip>
#include <iostream>
#include <string>

#include "../harness.h"
#include "../random.h"

using std::ios;

namespace {

// What was put back stands before the position, but never before the beginning; a move, a write and sync drop it.
class array_file : public std::streambuf {
public:
  array_file(const std::string &content, int mode)
      : text((mode & ios::trunc) || mode == ios::out ? "" : content),
        mode_(mode),
        at_(mode & ios::app ? text.size() : 0) {}
  std::string text;

protected:
  virtual int underflow() {
    if (!(mode_ & ios::in)) return -1;
    if (!back_.empty()) return static_cast<unsigned char>(back_[back_.size() - 1]);
    return at_ < text.size() ? static_cast<unsigned char>(text[at_]) : -1;
  }
  virtual int uflow() {
    const int c = underflow();
    if (c == -1) return c;
    if (back_.empty())
      ++at_;
    else
      back_.erase(back_.size() - 1);
    return c;
  }
  virtual int pbackfail(int c) {
    if (c == -1) return go(place() - 1) == -1 ? -1 : 0;
    if (!(mode_ & ios::in)) return -1;
    back_ += static_cast<char>(c);
    return c;
  }
  virtual int overflow(int c) {
    if (!(mode_ & ios::out)) return -1;
    go(mode_ & ios::app ? static_cast<long>(text.size()) : place());
    if (at_ > text.size()) text.resize(at_);
    text.replace(at_++, 1, 1, static_cast<char>(c));
    return c;
  }
  virtual std::streampos seekoff(std::streamoff by, ios::seekdir way, ios::openmode) {
    if (way == ios::cur && by == 0) return place();
    if ((way == ios::beg && by < 0) || (way == ios::end && by > 0)) return -1;
    return go(by + (way == ios::beg ? 0 : way == ios::cur ? place() : static_cast<long>(text.size())));
  }
  virtual std::streampos seekpos(std::streampos to, ios::openmode) { return go(to); }
  virtual int sync() {
    go(place());
    return 0;
  }
  virtual std::streamsize showmanyc() {
    const long left = static_cast<long>(text.size()) - place();
    return left > 0 ? left : -1;
  }

private:
  long place() const { return at_ < back_.size() ? 0 : static_cast<long>(at_ - back_.size()); }
  long go(long to) {
    if (to < 0) return -1;
    at_ = to;
    back_ = "";
    return to;
  }

  const int mode_;
  std::string::size_type at_;
  std::string back_;
};

long somewhere() { return random_below(2) ? random_below(6000) : 4096L * (1 + random_below(9)) - 3 + random_below(6); }

// One operation; what it gave is appended to the log.
void step(std::iostream &s, std::string &log) {
  static const std::string large(40000, 'L');
  char text[64] = "";
  std::string word;
  long n = -7;
  switch (random_below(41)) {
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
      word.resize(random_below(2) ? 7 : random_below(9000));
      s.read(&word[0], word.size());
      word.resize(n = s.gcount());
      break;
    case 11: std::getline(s, word); break;
    case 12: s >> word; break;
    case 13: s >> n; break;
    case 14: s.putback('Q'); break;
    case 15: s.unget(); break;
    case 16: s.seekg(somewhere()); break;
    case 17: n = std::streamoff(s.tellp()); break;
    case 18: s.write(large.data(), random_below(random_below(4) ? 300 : 9000)); break;
    case 19: n = s.peek(); break;
    case 20: s.ignore(5); break;
    case 21: s.flush(); break;
    case 22: s.seekp(somewhere()); break;
    case 23: s.seekp(-static_cast<long>(random_below(5)), ios::cur); break;
    case 24: s.seekp(-static_cast<long>(random_below(9)), ios::end); break;
    case 25: s.getline(text, 10); break;
    case 26: s.get(text, 10, ' '); break;
    case 27: s >> text[0]; break;
    case 28: s >> std::setw(9) >> text; break;
    case 29: n = s.readsome(text, 5); break;
    case 30: s.ignore(3000, '\n'); break;
    case 31: s >> std::ws; break;
    case 32: n = s.sync(); break;
    case 33: s.seekg(random_below(7) - 3L, ios::cur); break;
    case 34: n = std::streamoff(s.tellg()); break;
    // The character that was read goes back, or another one, or both.
    case 35:
    case 36:
    case 37:
      n = s.get();
      if (n != -1 && random_below(2)) s.putback(static_cast<char>(n));
      if (random_below(2)) s.putback('#');
      break;
    // At the edge of a buffer, and across it.
    case 38:
      s.seekg(somewhere());
      n = s.peek();
      s.putback("Q\n5"[random_below(3)]);
      break;
    case 39:
      s.ignore(somewhere());
      n = s.gcount();
      break;
    default:
      for (int i = random_below(6); i > 0; --i) s.putback(static_cast<char>('0' + i));
  }
  s.width(0);
  char end[60];
  sprintf(end, "|%s|%ld|%d\n", text, n, static_cast<int>(s.rdstate()));
  log += word + end;
  s.clear();
}

std::string run(std::streambuf &buffer, unsigned seed) {
  std::iostream s(&buffer);
  std::string log;
  random_state = seed;
  for (int i = 0; i < 50; ++i) step(s, log);
  return log;
}

template <class Buffer> void compare(const std::string &content, ios::openmode mode, unsigned seed, const char *kind) {
  FILE *file = tmpfile();
  fwrite(content.data(), 1, content.size(), file);
  fflush(file);
  char name[40];
  sprintf(name, "/proc/self/fd/%d", fileno(file));
  Buffer buffer;
  CHECK(buffer.open(name, mode) != 0);
  array_file model(content, mode);
  const std::string got = run(buffer, seed), want = run(model, seed);
  buffer.close();
  std::string end;
  rewind(file);
  for (int c; (c = getc(file)) != EOF;) end += static_cast<char>(c);
  fclose(file);
  CHECK(got == want && end == model.text);
  if (got == want && end == model.text) return;
  std::string::size_type at = 0;
  while (at < got.size() && at < want.size() && got[at] == want[at]) ++at;
  at = at == 0 ? 0 : want.rfind('\n', at - 1) + 1;
  fprintf(stderr, "seed %u, mode %d, %s\n  got  %s\n  want %s\n", seed, static_cast<int>(mode), kind,
          got.substr(at, 90).c_str(), want.substr(at, 90).c_str());
}

struct derived : std::filebuf {};

}  // namespace

int main() {
  static const unsigned sizes[] = {10, 5000, 20000, 70000};
  static const ios::openmode modes[] = {ios::in | ios::out,
                                        ios::in | ios::out,
                                        ios::in | ios::out,
                                        ios::in,
                                        ios::out,
                                        ios::out | ios::app,
                                        ios::in | ios::out | ios::trunc};
  for (unsigned seed = 1; seed <= 500 && !test_failures; ++seed) {
    std::string content;
    for (unsigned i = 0; i < sizes[seed % 4]; ++i) content += "abcdefghij 12345\n"[i % 17];
    const ios::openmode mode = modes[seed / 4 % 7];
    compare<std::filebuf>(content, mode, seed, "a file buffer");
    compare<derived>(content, mode, seed, "a derived one");
  }
  return TEST_RESULT();
}

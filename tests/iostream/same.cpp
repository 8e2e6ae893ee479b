// The same random operations on buffers of every kind: one that shows single characters and has no quick way, pieces of
// several sizes, strings, files, arrays, each also as a derived class, files with a codecvt. Each must give the same
// values, states, counts and widths, leave the same to be read, and hold the same in the end.
// test-variants: -O0 | -O2
#include <fstream>
#include <strstream>

#include "../buffers.h"
#include "../harness.h"
#include "operations.h"

using namespace operations;

namespace {

struct derived_string : std::stringbuf {
  derived_string(const std::string &text, int mode) : std::stringbuf(text, mode) {}
};
struct derived_file : std::filebuf {};
struct derived_array : std::strstreambuf {
  derived_array() {}
  derived_array(const char *text, int n) : std::strstreambuf(text, n) {}
};

// Leaves everything as it is, but says so only when it is asked.
struct silent : std::codecvt<char, char, int> {
  virtual bool do_always_noconv() const { return false; }
};
// Writes '*' for each small letter, and nothing for some characters; and may need several calls for one text.
struct masking : std::codecvt<char, char, int> {
  static std::string of(const std::string &text) {
    std::string made;
    for (unsigned i = 0; i < text.size(); ++i) made += is_small(text[i]) ? std::string("*") : std::string(2, text[i]);
    return made;
  }
  static bool is_small(char c) { return c >= 'a' && c <= 'z'; }
  virtual bool do_always_noconv() const { return false; }
  virtual int do_max_length() const { return 2; }
  virtual result do_out(int &, const char *from, const char *end, const char *&next, char *to, char *to_end,
                        char *&to_next) const {
    next = from, to_next = to;
    for (int most = 1000; next != end; ++next) {
      const std::string one = of(std::string(1, *next));
      if (to_end - to_next < 2 || most-- == 0) return partial;
      for (unsigned i = 0; i < one.size(); ++i) *to_next++ = one[i];
    }
    return ok;
  }
};

bool differs(const std::string &got, const std::string &want, const char *name, int round, int at) {
  CHECK(got == want);
  if (got == want) return false;
  fprintf(stderr, "round %d, step %d, %s:\n  got  %.300s\n  want %.300s\n", round, at, name, got.c_str(), want.c_str());
  return true;
}

const int in = std::ios_base::in, out = std::ios_base::out, app = std::ios_base::app, trunc = std::ios_base::trunc;

void reading(int round, const own_file &path) {
  const std::string text = random_text(false);
  path.hold(text);
  scripted one(text), two(text, 1), three(text, 3), some(text, 2 + random_below(60));
  std::stringbuf string(text, in), both(text);
  derived_string derived(text, in);
  std::filebuf file;
  derived_file other_file;
  file.open(path.name(), in);
  other_file.open(path.name(), in);
  std::strstreambuf array(text.data(), static_cast<int>(text.size()));
  derived_array other_array(text.data(), static_cast<int>(text.size()));
  struct {
    const char *name;
    std::streambuf *buffer;
  } const kinds[] = {
      {"by characters", &one},       {"pieces of 1", &two},     {"pieces of 3", &three},        {"pieces", &some},
      {"string", &string},           {"string of both", &both}, {"derived string", &derived},   {"file", &file},
      {"derived file", &other_file}, {"array", &array},         {"derived array", &other_array}};
  const int count = text.empty() ? 9 : 11;  // an array without characters is one without an end
  std::iostream *streams[11];
  scripted flushed[11];
  std::ostream *tied[11];
  for (int k = 0; k < count; ++k) {
    streams[k] = new std::iostream(kinds[k].buffer);
    streams[k]->tie(tied[k] = new std::ostream(&flushed[k]));
    if (round % 4) streams[k]->tie(0);
  }
  bool stop = false;
  for (int i = 0; i < 40 && !stop; ++i) {
    const an_operation o = random_operation(0, reads, false);
    one.calls[pbackfails] = 0;
    const std::string want = step(*streams[0], o);
    CHECK(o.what == take_and_give || o.what == give_back || one.calls[pbackfails] == 0);
    for (int k = 1; k < count; ++k) stop |= differs(step(*streams[k], o), want, kinds[k].name, round, i);
    // A null character or an end that is met later changes the number of looks, not of flushes.
    for (int k = 1; k < count; ++k) CHECK_INT(flushed[k].calls[syncs], flushed[0].calls[syncs]);
  }
  const std::string rest = one.rest();
  for (int k = 0; k < count; ++k) {
    const std::istreambuf_iterator<char> from(kinds[k].buffer), end;
    differs(std::string(from, end), rest, kinds[k].name, round, -1);
    delete streams[k], delete tied[k];
  }
}

void writing(int round, const own_file *path) {
  scripted one, small("", 0, 7), larger("", 0, 64);
  std::stringbuf string(out), both;
  derived_string derived("", out);
  std::strstreambuf array;
  std::filebuf file, quiet_file, masked;
  derived_file other_file;
  quiet_file.pubimbue(std::locale(std::locale::classic(), new silent));
  masked.pubimbue(std::locale(std::locale::classic(), new masking));
  std::filebuf *const files[] = {&file, &other_file, &quiet_file, &masked};
  for (int i = 0; i < 4; ++i) files[i]->open(path[i].name(), out);
  struct {
    const char *name;
    std::streambuf *buffer;
  } const kinds[] = {{"by characters", &one},
                     {"room for 7", &small},
                     {"room for 64", &larger},
                     {"string", &string},
                     {"string of both", &both},
                     {"derived string", &derived},
                     {"array", &array},
                     {"file", &file},
                     {"derived file", &other_file},
                     {"file with a codecvt", &quiet_file},
                     {"masked file", &masked}};
  std::iostream *streams[11];
  std::string wants[11];
  for (int k = 0; k < 11; ++k) streams[k] = new std::iostream(kinds[k].buffer);
  bool stop = false;
  for (int i = 0; i < 40 && !stop; ++i) {
    const an_operation o = random_operation(reads, writes, false);
    if (round % 3 == 0)
      for (int k = 0; k < 11; ++k) streams[k]->setf(std::ios_base::unitbuf);
    const std::string want = step(*streams[0], o);
    for (int k = 1; k < 11; ++k) stop |= differs(step(*streams[k], o), want, kinds[k].name, round, i);
  }
  for (int i = 0; i < 4; ++i) CHECK(files[i]->close() == files[i]);
  const std::string all = one.taken();
  const std::string ends[] = {
      small.taken(),     larger.taken(),    string.str(),
      both.str(),        derived.str(),     std::string(array.str() ? array.str() : "", array.pcount()),
      path[0].content(), path[1].content(), path[2].content()};
  for (int k = 0; k < 9; ++k) differs(ends[k], all, kinds[k + 1].name, round, -1);
  differs(path[3].content(), masking::of(all), "masked file", round, -1);
  std::strstreambuf::default_free(array.str());
  for (int k = 0; k < 11; ++k) delete streams[k];
}

// A file that is read and written in any order ends where an array does.
// What was put back stands before the position, but never before the beginning; a move, a write and sync drop it.
class array_file : public std::streambuf {
public:
  array_file(const std::string &content, int mode)
      : text((mode & std::ios_base::trunc) || mode == std::ios_base::out ? "" : content),
        mode_(mode),
        at_(mode & std::ios_base::app ? text.size() : 0) {}
  std::string text;

protected:
  virtual int underflow() {
    if (!(mode_ & in)) return -1;
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
    if (!(mode_ & in)) return -1;
    back_ += static_cast<char>(c);
    return c;
  }
  virtual int overflow(int c) {
    if (!(mode_ & out)) return -1;
    go(mode_ & std::ios_base::app ? static_cast<long>(text.size()) : place());
    if (at_ > text.size()) text.resize(at_);
    text.replace(at_++, 1, 1, static_cast<char>(c));
    return c;
  }
  virtual std::streampos seekoff(std::streamoff by, std::ios_base::seekdir way, std::ios_base::openmode) {
    if (way == std::ios_base::cur && by == 0) return place();
    if ((way == std::ios_base::beg && by < 0) || (way == std::ios_base::end && by > 0)) return -1;
    return go(by + (way == std::ios_base::beg   ? 0
                    : way == std::ios_base::cur ? place()
                                                : static_cast<long>(text.size())));
  }
  virtual std::streampos seekpos(std::streampos to, std::ios_base::openmode) { return go(to); }
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

// Reading, writing and moving in any order, as far as a class and one derived from it can be compared; and files with
// the model.
void both_ways(int round, const own_file *path) {
  static const int modes[] = {in | out, in | out | app, out, in, in | out, in | out | trunc, out | app};
  const int mode = modes[round % 7], size = round % 3 ? random_below(300) : random_below(2) ? 20000 : 70000;
  std::string text = random_text(false).substr(0, random_below(300));
  if (size > 300)
    for (int i = 0; i < size; ++i) text += "abcdefghij 12345\n"[i % 17];
  std::stringbuf string(text, mode);
  derived_string other(text, mode);
  std::filebuf file;
  derived_file other_file;
  std::strstreambuf array;
  derived_array other_array;
  const int file_mode = mode == (in | out | app) ? in | out : mode;
  array_file model(text, file_mode);
  std::streambuf *sets[][3] = {{&string, &other, 0}, {&array, &other_array, 0}, {&model, &file, &other_file}};
  for (int i = 0; i < 2; ++i) {
    path[i].hold(text);
    CHECK(static_cast<std::filebuf *>(sets[2][i + 1])->open(path[i].name(), file_mode) != 0);
  }
  for (int p = 0; p < 3; ++p) {
    if (p < 2 && size > 300) continue;
    std::iostream one(sets[p][0]), two(sets[p][1]), three(sets[p][2]);
    bool stop = false;
    for (int i = 0; i < 60 && !stop; ++i) {
      const an_operation o = random_operation(0, random_below(3) ? unsigned(kinds) : unsigned(reads), false);
      const an_operation &moved = random_below(3) ? o : random_operation(writes, kinds, false);
      const std::string want = step(one, moved);
      stop |= differs(step(two, moved), want, p == 2 ? "file" : p ? "array" : "string", round, i);
      if (p == 2) stop |= differs(step(three, moved), want, "derived file", round, i);
      if (p == 0) stop |= differs(string.str(), other.str(), "text", round, i);
    }
  }
  file.close(), other_file.close();
  for (int i = 0; i < 2; ++i) differs(path[i].content(), model.text, "file", round, -1);
  std::strstreambuf::default_free(array.str()), std::strstreambuf::default_free(other_array.str());
}

// What is read into the place it is read from, by each means, with each distance.
void in_place() {
  for (int distance = -40; distance <= 40; ++distance)
    for (int length = 0; length < 1400; length += length < 60 ? 7 : 300)
      for (int how = 0; how < 8; ++how) {
        char text[3000];
        for (int i = 0; i < 3000; ++i) text[i] = static_cast<char>('a' + i % 23);
        if (how < 6) text[50 + length] = '\n';
        const std::string want(text + 50, length);
        std::strstreambuf buffer(text + 50, 2900);
        std::istream s(&buffer);
        char *const to = text + 50 + distance;
        switch (how) {
          case 0: s.getline(to, 2000); break;
          case 1: s.get(to, 2000); break;
          case 2: s.getline(to, 2000, '\n'); break;
          case 3: s.getline(to, length + 1); break;
          case 4: s.get(to, length + 1, '|'); break;
          case 5: s.getline(to, length + 2, '\n'); break;
          case 6: s.read(to, length); break;
          case 7: s.readsome(to, length); break;
        }
        if (how < 6) CHECK_INT(to[length], 0);
        if (want != std::string(to, length)) fprintf(stderr, "distance %d, length %d, by %d\n", distance, length, how);
        CHECK(want == std::string(to, length));
      }
}

}  // namespace

int main() {
  const own_file paths[] = {own_file("same.a"), own_file("same.b"), own_file("same.c"), own_file("same.d")};
  for (int round = 0; round < 200 && !test_failures; ++round) reading(round, paths[0]);
  for (int round = 0; round < 100 && !test_failures; ++round) writing(round, paths);
  for (int round = 0; round < 500 && !test_failures; ++round) both_ways(round, paths);
  in_place();
  return TEST_RESULT();
}

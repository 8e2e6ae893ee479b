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

const int in = std::ios_base::in, out = std::ios_base::out;

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
    const std::string want = step(*streams[0], o);
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

// Reading, writing and moving in any order, as far as a class and one derived from it can be compared.
void both_ways(int round, const own_file *path) {
  const std::string text = random_text(false).substr(0, random_below(300));
  static const int modes[] = {in | out, in | out | std::ios_base::app, out, in, in | out};
  const int mode = modes[round % 5];
  std::stringbuf string(text, mode);
  derived_string other(text, mode);
  std::filebuf file;
  derived_file other_file;
  std::streambuf *pairs[][2] = {{&string, &other}, {&file, &other_file}};
  for (int i = 0; i < 2; ++i) {
    path[i].hold(text);
    static_cast<std::filebuf *>(pairs[1][i])->open(path[i].name(), round % 5 == 1 ? in | out : mode);
  }
  for (int p = 0; p < 2; ++p) {
    std::iostream one(pairs[p][0]), two(pairs[p][1]);
    for (int i = 0; i < 60; ++i) {
      const an_operation o = random_operation(0, random_below(3) ? unsigned(kinds) : unsigned(reads), false);
      const an_operation &moved = random_below(3) ? o : random_operation(writes, kinds, false);
      const std::string got = step(one, moved);
      if (differs(got, step(two, moved), p ? "file" : "string", round, i)) break;
      if (p == 0 && differs(string.str(), other.str(), "text", round, i)) break;
    }
  }
  file.close(), other_file.close();
  differs(path[0].content(), path[1].content(), "file", round, -1);
}

// Lines that are read into the place they are read from, by each means, with each distance.
void in_place() {
  for (int distance = -40; distance <= 40; ++distance)
    for (int length = 0; length < 60; length += 7)
      for (int how = 0; how < 6; ++how) {
        char text[300];
        for (int i = 0; i < 300; ++i) text[i] = static_cast<char>('a' + i % 23);
        text[50 + length] = '\n';
        const std::string want(text + 50, length);
        struct memory : std::streambuf {
          memory(char *first, char *last) { setg(first, first, last); }
        } buffer(text + 50, text + 290);
        std::istream s(&buffer);
        char *const to = text + 50 + distance;
        switch (how) {
          case 0: s.getline(to, 100); break;
          case 1: s.get(to, 100); break;
          case 2: s.getline(to, 100, '\n'); break;
          case 3: s.getline(to, length + 1); break;
          case 4: s.get(to, length + 1, '|'); break;
          case 5: s.getline(to, 200, '\n'); break;
        }
        if (want != to) fprintf(stderr, "distance %d, length %d, by %d\n", distance, length, how);
        CHECK_TEXT(to, want.c_str());
      }
}

}  // namespace

int main() {
  const own_file paths[] = {own_file("same.a"), own_file("same.b"), own_file("same.c"), own_file("same.d")};
  for (int round = 0; round < 300 && !test_failures; ++round) reading(round, paths[0]);
  for (int round = 0; round < 120 && !test_failures; ++round) writing(round, paths);
  for (int round = 0; round < 400 && !test_failures; ++round) both_ways(round, paths);
  in_place();
  return TEST_RESULT();
}

// Reading through streams: numbers, words, lines, characters and blocks, from a file, a string stream and cin. Each
// iteration reads a text to its end; times are per item. The texts are larger than any buffer, so that every iteration
// reads its file again.
#include "streams.h"

// Not unnamed: a template argument of 1998 needs external linkage.
namespace streams {

const int count = 40000;

template <int kind> const std::string &numbers() {
  static std::string text;
  if (text.empty()) {
    bench_random random(3);
    char item[64];
    for (int i = 0; i < count; ++i) {
      const int n = static_cast<int>(random.next() % 2000000) - 1000000;
      if (kind == 0)
        snprintf(item, sizeof item, "%d%c", n, i % 8 == 7 ? '\n' : ' ');
      else if (kind == 1)
        snprintf(item, sizeof item, "%.2f%c", n / 100.0, i % 8 == 7 ? '\n' : ' ');
      else
        snprintf(item, sizeof item, "%.17g%c", n / 1234.5, i % 8 == 7 ? '\n' : ' ');
      text += item;
    }
  }
  return text;
}

const std::string &prose() {
  static std::string text;
  if (text.empty()) {
    static const char *const words[] = {"the", "streams", "of", "characters", "a", "which", "nobody", "counted", "in"};
    bench_random random(5);
    for (int i = 0; i < count; ++i) {
      text += words[random.next() % 9];
      text += i % 10 == 9 ? '\n' : ' ';
    }
  }
  return text;
}

unsigned long ints(std::istream &in) {
  unsigned long sum = 0;
  int n;
  while (in >> n) sum += n;
  return sum;
}

unsigned long doubles(std::istream &in) {
  double n, sum = 0;
  while (in >> n) sum += n;
  return static_cast<unsigned long>(static_cast<long>(sum / 1000));
}

unsigned long words(std::istream &in) {
  unsigned long sum = 0;
  std::string word;
  while (in >> word) sum += word.size();
  return sum;
}

unsigned long lines(std::istream &in) {
  unsigned long sum = 0;
  std::string line;
  while (std::getline(in, line)) sum += line.size();
  return sum;
}

unsigned long array_lines(std::istream &in) {
  unsigned long sum = 0;
  char line[256];
  while (in.getline(line, sizeof line)) sum += line[0];
  return sum;
}

unsigned long characters(std::istream &in) {
  unsigned long sum = 0;
  char c;
  while (in.get(c)) sum += c;
  return sum;
}

unsigned long returned_characters(std::istream &in) {
  unsigned long sum = 0;
  int c;
  while ((c = in.get()) != -1) sum += c;
  return sum;
}

unsigned long blocks(std::istream &in) {
  unsigned long sum = 0;
  char block[4096];
  while (in.read(block, sizeof block) || in.gcount()) sum += in.gcount() + block[0];
  return sum;
}

unsigned long rest(std::istream &in) {
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return text.size() + text[text.size() / 2];
}

unsigned long iterated(std::istream &in) {
  unsigned long sum = 0;
  for (std::istreambuf_iterator<char> at(in), end; at != end; ++at) sum += *at;
  return sum;
}

const unsigned long prose_size = 232159;
const unsigned long prose_blocks = 57;

#define FROM_ALL(what, text, read, target, cin_target, n)            \
  {what " from a file", target, n, from_file<text, read>},           \
      {what " from a string", target, n, from_string<text, read>}, { \
    what " from cin", cin_target, n, from_cin<text, read>            \
  }

const bench_case cases[] = {
    FROM_ALL("int", numbers<0>, ints, 4, 8, count),
    FROM_ALL("double, 2 decimals", numbers<1>, doubles, 4, 4, count),
    FROM_ALL("double, 17 digits", numbers<2>, doubles, 4, 4, count),
    FROM_ALL("word", prose, words, 2, 2, count),
    FROM_ALL("getline into a string", prose, lines, 2, 2, count / 10),
    FROM_ALL("getline into an array", prose, array_lines, 2, 2, count / 10),
    FROM_ALL("get(char)", prose, characters, 2, 2, prose_size),
    {"get() from a file", 2, prose_size, from_file<prose, returned_characters>},
    {"istreambuf_iterator from a file", 1, prose_size, from_file<prose, iterated>},
    {"istreambuf_iterator from cin", 1, prose_size, from_cin<prose, iterated>},
    FROM_ALL("rest into a string", prose, rest, 1, 1, prose_size),
    FROM_ALL("block of 4 KB", prose, blocks, 1, 1, prose_blocks),
};

}  // namespace streams

BENCH_MAIN(streams::cases)

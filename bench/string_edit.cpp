// Taking strings apart and putting them together: substr, insert, erase and replace in the middle, a + b + c, and loops
// over operator[] and iterators, whose non-const forms must be able to hand out a reference to write through.
#include <string>

#include "bench.h"

namespace {

template <int length, int part> unsigned long substring(unsigned long iterations) {
  const std::string text(length, 'x');
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string taken(text.substr(i & 7, part));
    BENCH_TOUCH(&taken);
    sum += taken.size();
  }
  return sum;
}

template <int length> unsigned long insert_and_erase(unsigned long iterations) {
  std::string text(length, 'x');
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    text.insert(length / 2, "0123456789", 10);
    sum += text.size();
    text.erase(length / 2, 10);
    BENCH_TOUCH(&text);
  }
  return sum + text.size();
}

unsigned long replace_part(unsigned long iterations) {
  std::string text(100, 'x');
  const std::string parts[2] = {"12345678", "abcdefgh"};
  for (unsigned long i = 0; i < iterations; ++i) {
    text.replace(40, 8, parts[i & 1]);
    BENCH_TOUCH(&text);
  }
  return static_cast<unsigned long>(text[44]);
}

unsigned long erase_only(unsigned long iterations) {
  std::string text(2048, 'x');
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    text.erase(512, 8);
    text.append("01234567", 8);
    BENCH_TOUCH(&text);
    sum += text.size();
  }
  return sum;
}

unsigned long concatenate(const std::string &a, const std::string &b, const std::string &c, unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string joined(a + b + c);
    BENCH_TOUCH(&joined);
    sum += joined.size();
  }
  return sum;
}

unsigned long concatenate_short(unsigned long iterations) { return concatenate("ab", "cd", "ef", iterations); }

unsigned long concatenate_lines(unsigned long iterations) {
  return concatenate(std::string(30, 'a'), std::string(30, 'b'), std::string(30, 'c'), iterations);
}

unsigned long concatenate_path(unsigned long iterations) {
  const std::string folder("/usr/share/doc"), name("changelog");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string path(folder + "/" + name);
    BENCH_TOUCH(&path);
    sum += path.size();
  }
  return sum;
}

BENCH_NOINLINE unsigned long sum_of(const std::string &text) {
  unsigned long sum = 0;
  for (std::string::size_type i = 0; i < text.size(); ++i) sum += text[i];
  return sum;
}

BENCH_NOINLINE void next_letters(std::string &text) {
  for (std::string::size_type i = 0; i < text.size(); ++i) text[i] = static_cast<char>(text[i] ^ 1);
}

BENCH_NOINLINE void next_letters_by_iterator(std::string &text) {
  for (std::string::iterator at = text.begin(); at != text.end(); ++at) *at = static_cast<char>(*at ^ 1);
}

unsigned long const_index(unsigned long iterations) {
  const std::string text(1000, 'x');
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&text);
    sum += sum_of(text);
  }
  return sum;
}

template <void (*change)(std::string &)> unsigned long change_letters(unsigned long iterations) {
  std::string text(1000, 'x');
  for (unsigned long i = 0; i < iterations; ++i) {
    change(text);
    BENCH_TOUCH(&text);
  }
  return sum_of(text);
}

const bench_case cases[] = {
    {"substr, 8 of 100 characters", 0.8, 1, substring<100, 8>},
    {"substr, 80 of 100 characters", 1, 1, substring<100, 80>},
    {"insert and erase in the middle of 100", 1, 2, insert_and_erase<100>},
    {"insert and erase in the middle of 1,024", 1, 2, insert_and_erase<1024>},
    {"replace 8 of 100 by as many", 1, 1, replace_part},
    {"erase in the middle, append at the end", 1, 2, erase_only},
    {"a + b + c, 6 characters in all", 1, 1, concatenate_short},
    {"a + b + c, 90 characters in all", 1, 1, concatenate_lines},
    {"folder + \"/\" + name", 1, 1, concatenate_path},
    {"operator[] in a loop, const", 1, 1000, const_index},
    {"operator[] in a loop, for writing", 0.9, 1000, change_letters<next_letters>},
    {"iterators in a loop, for writing", 0.9, 1000, change_letters<next_letters_by_iterator>},
};

}  // namespace

BENCH_MAIN(cases)

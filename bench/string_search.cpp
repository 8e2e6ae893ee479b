// Searching: a character, a pattern and a set in 1 MB of made-up prose, the same in a short line, and comparing.
// The prose has the letter frequencies of words, so that a pattern's first letter is met often; what is looked for
// stands at the end only.
#include <string>

#include "bench.h"

namespace {

const unsigned long text_length = 1048576;

// 1 MB of words, ending in a sentence that occurs nowhere else. Built with append(block) alone.
const std::string &prose() {
  static std::string text;
  if (text.empty()) {
    static const char *const words[] = {"the ",   "night ", "was ",   "thin ",  "and ",   "that ", "tower ", "there ",
                                        "stood ", "by ",    "water ", "under ", "these ", "old ",  "trees ", "then "};
    static const char ending[] = "the night watchman, at last";
    char buffer[65536];
    unsigned long used = 0, seed = 1, total = 0;
    while (total < text_length) {
      seed = seed * 1103515245 + 12345;
      const char *word = words[(seed >> 16) & 15];
      unsigned long size = strlen(word);
      if (size > text_length - total) size = text_length - total;
      if (used + size > sizeof buffer) {
        text.append(buffer, used);
        used = 0;
      }
      memcpy(buffer + used, word, size);
      used += size;
      total += size;
    }
    text.append(buffer, used);
    text.append(ending, sizeof ending - 1);
  }
  return text;
}

const std::string &short_line() {
  static const std::string line("name=value and some more words, the rest");
  return line;
}

unsigned long find_character(unsigned long iterations) {
  const std::string &text = prose();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&text);
    sum += text.find(',');
  }
  return sum;
}

unsigned long find_pattern(unsigned long iterations) {
  const std::string &text = prose();
  const std::string pattern("the night watchman");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&text);
    sum += text.find(pattern);
  }
  return sum;
}

unsigned long find_rare_pattern(unsigned long iterations) {
  const std::string &text = prose();
  const std::string pattern("man, at last");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&text);
    sum += text.find(pattern);
  }
  return sum;
}

unsigned long find_set(unsigned long iterations) {
  const std::string &text = prose();
  const std::string set(",;:!?");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&text);
    sum += text.find_first_of(set);
  }
  return sum;
}

unsigned long find_all_in_line(unsigned long iterations) {
  const std::string &line = short_line();
  const std::string pattern("words");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&line);
    sum += line.find('=') + line.find(pattern);
  }
  return sum;
}

unsigned long rfind_character(unsigned long iterations) {
  const std::string &line = short_line();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&line);
    sum += line.rfind('=');
  }
  return sum;
}

unsigned long find_set_in_line(unsigned long iterations) {
  const std::string &line = short_line();
  const std::string set(",;:!?");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&line);
    sum += line.find_first_of(set);
  }
  return sum;
}

// Each operation sees strings that the compiler knows nothing of, or it would compute one result for all three.
template <int length> unsigned long compare(unsigned long iterations) {
  std::string left(length, 'x');
  std::string right(length, 'x');
  left += 'a';
  right += 'b';
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&left);
    BENCH_TOUCH(&right);
    sum += left.compare(right) < 0;
    BENCH_TOUCH(&left);
    BENCH_TOUCH(&right);
    sum += 2 * (left == right);
    BENCH_TOUCH(&left);
    BENCH_TOUCH(&right);
    sum += 4 * (left < right);
  }
  return sum;
}

const bench_case cases[] = {
    {"find a character in 1 MB", 1, 1, find_character},
    {"find a pattern in 1 MB", 3, 1, find_pattern},
    {"find a pattern with a rare first letter in 1 MB", 1, 1, find_rare_pattern},
    {"find_first_of a set in 1 MB", 3, 1, find_set},
    {"find a character and a pattern in a line", 1, 1, find_all_in_line},
    {"rfind a character in a line", 1, 1, rfind_character},
    {"find_first_of a set in a line", 1, 1, find_set_in_line},
    {"compare, == and < at 8 characters", 1, 3, compare<8>},
    {"compare, == and < at 1,024 characters", 1, 3, compare<1024>},
};

}  // namespace

BENCH_MAIN(cases)

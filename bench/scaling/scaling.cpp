// Time per operation as things grow: containers, sorting, strings and streams from 10 to 10,000,000 elements, throws
// out of up to 100,000 frames, up to 10,000 exceptions alive at once, a file of up to 4 GB in blocks of 4 KB.
//
// Prints a line for each case and size: the case, the size, nanoseconds of processor time per operation
// (tab-separated). What is small is done often enough to take 200,000 operations.
#include <malloc.h>

#include <algorithm>
#include <deque>
#include <fstream>
#include <list>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "../bench.h"

namespace {

unsigned long state = 1;
int random_int() {
  state = state * 1664525ul + 1013904223ul;
  return static_cast<int>(state >> 4 & 0xFFFFFFF);
}

template <class Sequence> void append(unsigned long n) {
  Sequence elements;
  for (unsigned long i = 0; i < n; ++i) elements.push_back(static_cast<typename Sequence::value_type>(i));
  BENCH_TOUCH(&elements);
}

void fill_map(unsigned long n) {
  std::map<int, int> elements;
  for (unsigned long i = 0; i < n; ++i) elements[random_int()] = static_cast<int>(i);
  BENCH_TOUCH(&elements);
}

void sort_ints(unsigned long n) {
  std::vector<int> elements(n);
  std::generate(elements.begin(), elements.end(), random_int);
  std::sort(elements.begin(), elements.end());
  BENCH_TOUCH(&elements);
}

void write_and_read(unsigned long n) {
  std::stringstream text;
  for (unsigned long i = 0; i < n; ++i) text << i << ' ';
  unsigned long value, sum = 0;
  while (text >> value) sum += value;
  BENCH_TOUCH(&sum);
}

void write_blocks(unsigned long n) {
  static char block[4096];
  std::ofstream out("/dev/null");
  for (unsigned long i = 0; i < n; ++i) out.write(block, sizeof block);
}

struct a_local {
  ~a_local() { BENCH_TOUCH(this); }
};
BENCH_NOINLINE void throw_from(unsigned long depth) {
  a_local local;
  BENCH_TOUCH(&local);
  if (depth == 0) throw 1;
  throw_from(depth - 1);
}
void throw_out_of(unsigned long n) {
  try {
    throw_from(n);
  } catch (int) {}
}

BENCH_NOINLINE void keep_alive(unsigned long n) {
  try {
    throw n;
  } catch (unsigned long left) {
    if (left > 1) keep_alive(left - 1);
  }
}

const struct {
  const char *name;
  void (*body)(unsigned long n);
  unsigned long most;
} cases[] = {
    {"vector: push_back", append<std::vector<int> >, 10000000},
    {"deque: push_back", append<std::deque<int> >, 10000000},
    {"list: push_back", append<std::list<int> >, 10000000},
    {"string: push_back", append<std::string>, 10000000},
    {"map: insert", fill_map, 10000000},
    {"sort", sort_ints, 10000000},
    {"string stream: write and read", write_and_read, 1000000},
    {"file: block of 4 KB", write_blocks, 1000000},
    {"throw: frame with a destructor", throw_out_of, 100000},
    {"exceptions alive", keep_alive, 10000},
};

}  // namespace

int main() {
  for (unsigned int i = 0; i < sizeof cases / sizeof *cases; ++i)
    for (unsigned long n = 10; n <= cases[i].most; n *= 10) {
      malloc_trim(0);  // what the case before freed is not sorted in this one's time
      const unsigned long times = n < 200000 ? 200000 / n : 1;
      const double start = bench_now();
      for (unsigned long k = 0; k < times; ++k) cases[i].body(n);
      printf("%s\t%lu\t%.2f\n", cases[i].name, n, (bench_now() - start) / times / n);
    }
  return 0;
}

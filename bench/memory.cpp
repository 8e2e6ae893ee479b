// operator new and operator delete of 16 bytes: a block at a time, and 1,000 blocks that are freed in the order of
// their allocation.
#include "bench.h"

namespace {

struct block {
  unsigned long words[16 / sizeof(unsigned long)];
};

unsigned long one_at_a_time(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    block *one = new block;
    one->words[0] = i;
    BENCH_TOUCH(one);
    sum += one->words[0];
    delete one;
  }
  return sum;
}

unsigned long many(unsigned long iterations) {
  static block *blocks[1000];
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (int k = 0; k < 1000; ++k) {
      blocks[k] = new block;
      blocks[k]->words[0] = k;
    }
    BENCH_TOUCH(blocks);
    for (int k = 0; k < 1000; ++k) {
      sum += blocks[k]->words[0];
      delete blocks[k];
    }
  }
  return sum;
}

const bench_case cases[] = {
    {"new and delete of 16 bytes", 1, 1, one_at_a_time},
    {"new and delete of 16 bytes, 1,000 alive", 1, 1000, many},
};

}  // namespace

BENCH_MAIN(cases)

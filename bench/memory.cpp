// operator new and operator delete: of 16 bytes, a block at a time and 1,000 blocks that are freed in the order of
// their allocation; of a large block; of an array of objects.
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

unsigned long large(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    char *one = static_cast<char *>(operator new(1 << 20));
    one[0] = static_cast<char>(i);
    BENCH_TOUCH(one);
    sum += one[0];
    operator delete(one);
  }
  return sum;
}

unsigned long destroyed;
struct counted {
  int value;
  counted() : value(3) {}
  ~counted() { destroyed += value; }
};

unsigned long array(unsigned long iterations) {
  destroyed = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    counted *all = new counted[10];
    BENCH_TOUCH(all);
    delete[] all;
  }
  return destroyed;
}

const bench_case cases[] = {
    {"new and delete of 16 bytes", 1, 1, one_at_a_time},
    {"new and delete of 16 bytes, 1,000 alive", 1, 1000, many},
    {"new and delete of 1 MB", 1, 1, large},
    {"new and delete of an array of 10 objects", 1, 1, array},
};

}  // namespace

BENCH_MAIN(cases)

// Sets of 20, 64, 128, 256 and 4,096 bits: counting, shifting, combining, testing, and to and from text. Right shifts
// are by whole words, where plx and its peers agree on the result.
#include <bitset>
#include <string>

#include "bench.h"

namespace {

template <size_t N> std::bitset<N> pattern(unsigned step) {
  std::bitset<N> set;
  for (size_t i = 0; i < N; i += step) set.set(i);
  return set;
}

// Changes one bit and hides the rest, so that no result can be kept from one iteration to the next.
template <size_t N> inline void change(std::bitset<N> &set, unsigned long i) {
  set.flip(i & 15);
  BENCH_TOUCH(&set);
}

template <size_t N> unsigned long count(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    sum += set.count();
  }
  return sum;
}

template <size_t N> unsigned long shift_left(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  unsigned long sum = 0;
  size_t by = 5;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    BENCH_OPAQUE(by);
    std::bitset<N> result = set << by;
    BENCH_TOUCH(&result);
    sum += result[N - 1];
  }
  return sum;
}

template <size_t N> unsigned long shift_in_place(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  unsigned long sum = 0;
  size_t by = 1;
  for (unsigned long i = 0; i < iterations; ++i) {
    set[0] = i & 1;
    BENCH_OPAQUE(by);
    set <<= by;
    BENCH_TOUCH(&set);
    sum += set[N - 1];
  }
  return sum;
}

template <size_t N> unsigned long shift_right(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  unsigned long sum = 0;
  size_t by = N < 64 ? 7 : 32;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    BENCH_OPAQUE(by);
    std::bitset<N> result = set >> by;
    BENCH_TOUCH(&result);
    sum += result[1];
  }
  return sum;
}

template <size_t N> unsigned long intersect(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  std::bitset<N> other = pattern<N>(2);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    std::bitset<N> result = set & other;
    BENCH_TOUCH(&result);
    sum += result[6];
  }
  return sum;
}

template <size_t N> unsigned long unite(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  std::bitset<N> other = pattern<N>(2);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    other |= set;
    BENCH_TOUCH(&other);
    sum += other[N / 2];
  }
  return sum;
}

template <size_t N> unsigned long complement(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    std::bitset<N> result = ~set;
    BENCH_TOUCH(&result);
    sum += result[0];
  }
  return sum;
}

template <size_t N> unsigned long compare(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  std::bitset<N> other = set;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&set);
    BENCH_TOUCH(&other);
    sum += set == other;
  }
  return sum;
}

template <size_t N> unsigned long none(unsigned long iterations) {
  std::bitset<N> set;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&set);
    sum += set.none();
  }
  return sum;
}

template <size_t N> unsigned long test_and_set(unsigned long iterations) {
  const size_t mask = N < 64 ? 15 : 63;
  std::bitset<N> set;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    const size_t pos = (i * 7) & mask;
    sum += set.test(pos);
    set.set((i * 5) & mask).flip(pos);
    BENCH_TOUCH(&set);
  }
  return sum;
}

template <size_t N> unsigned long text(unsigned long iterations) {
  std::bitset<N> set = pattern<N>(3);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    change(set, i);
    const std::string written = set.template to_string<char, std::char_traits<char>, std::allocator<char> >();
    const std::bitset<N> read(written);
    BENCH_TOUCH(&read);
    sum += read[i & 15];
  }
  return sum;
}

const bench_case cases[] = {
    {"bitset<20> count", 1, 1, count<20>},
    {"bitset<20> shift left", 1, 1, shift_left<20>},
    {"bitset<20> shift right", 1, 1, shift_right<20>},
    {"bitset<20> and", 1, 1, intersect<20>},
    {"bitset<20> test, set, flip", 1, 1, test_and_set<20>},
    {"bitset<20> to text and back", 1.3, 1, text<20>},
    {"bitset<64> count", 1, 1, count<64>},
    {"bitset<64> shift left", 1, 1, shift_left<64>},
    {"bitset<64> and", 1, 1, intersect<64>},
    {"bitset<64> shift right", 1, 1, shift_right<64>},
    {"bitset<64> test, set, flip", 1, 1, test_and_set<64>},
    {"bitset<128> count", 1, 1, count<128>},
    {"bitset<128> shift left", 1, 1, shift_left<128>},
    {"bitset<128> shift right", 1, 1, shift_right<128>},
    {"bitset<128> and", 1, 1, intersect<128>},
    {"bitset<256> shift left", 1, 1, shift_left<256>},
    {"bitset<256> shift right", 1, 1, shift_right<256>},
    {"bitset<256> and", 1, 1, intersect<256>},
    {"bitset<256> test, set, flip", 1, 1, test_and_set<256>},
    {"bitset<4096> count", 1.3, 1, count<4096>},
    {"bitset<4096> shift left", 1.3, 1, shift_left<4096>},
    {"bitset<4096> shift left in place", 1.3, 1, shift_in_place<4096>},
    {"bitset<4096> shift right", 1.3, 1, shift_right<4096>},
    {"bitset<4096> and", 1.3, 1, intersect<4096>},
    {"bitset<4096> |=", 1.3, 1, unite<4096>},
    {"bitset<4096> complement", 1.3, 1, complement<4096>},
    {"bitset<4096> ==", 1, 1, compare<4096>},
    {"bitset<4096> none", 1, 1, none<4096>},
    {"bitset<4096> test, set, flip", 1, 1, test_and_set<4096>},
    {"bitset<4096> to text and back", 1.3, 1, text<4096>},
};

}  // namespace

BENCH_MAIN(cases)

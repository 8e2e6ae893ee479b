// Algorithms: sorts of random, ordered and repeated keys, selections, searches, and what walks over a deque. A sort's
// time is that of copying the unsorted range and sorting the copy, for each element.
#include <algorithm>
#include <deque>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "bench.h"

namespace {

enum { million = 1000000, words = 100000 };

unsigned next_random() {
  static unsigned long long state = 88172645463325252ull;
  state ^= state << 13;
  state ^= state >> 7;
  state ^= state << 17;
  return static_cast<unsigned>(state >> 16);
}

// Random numbers below a limit.
std::vector<int> numbers(int n, unsigned limit) {
  std::vector<int> made;
  made.reserve(n);
  for (int i = 0; i < n; ++i) made.push_back(static_cast<int>(next_random() % limit));
  return made;
}

const std::vector<int> &random_million() {
  static const std::vector<int> range = numbers(million, 1u << 30);
  return range;
}

const std::vector<int> &few_keys() {
  static const std::vector<int> range = numbers(million, 100);
  return range;
}

const std::vector<int> &ordered() {
  static std::vector<int> range;
  if (range.empty())
    for (int i = 0; i < million; ++i) range.push_back(i);
  return range;
}

const std::vector<std::string> &random_words() {
  static std::vector<std::string> range;
  if (range.empty()) {
    range.reserve(words);
    for (int i = 0; i < words; ++i) {
      std::string word;
      for (unsigned k = 4 + next_random() % 12; k != 0; --k) word += static_cast<char>('a' + next_random() % 26);
      range.push_back(word);
    }
  }
  return range;
}

unsigned long sum_of(const std::vector<int> &range) {
  unsigned long sum = 0;
  for (unsigned i = 0; i < range.size(); i += 101) sum = sum * 31 + static_cast<unsigned long>(range[i]);
  return sum;
}

unsigned long sum_of(const std::vector<std::string> &range) {
  unsigned long sum = 0;
  for (unsigned i = 0; i < range.size(); i += 101) sum = sum * 31 + static_cast<unsigned char>(range[i][1]);
  return sum;
}

struct sorting {
  template <class Range> static void run(Range &range) { std::sort(range.begin(), range.end()); }
};
struct stable_sorting {
  template <class Range> static void run(Range &range) { std::stable_sort(range.begin(), range.end()); }
};
struct sorting_downward {
  template <class Range> static void run(Range &range) {
    std::sort(range.begin(), range.end(), std::greater<typename Range::value_type>());
  }
};
// An order that the library cannot know.
struct by_mixed_bits {
  bool operator()(int a, int b) const { return (a ^ 0x2AAAAAAA) < (b ^ 0x2AAAAAAA); }
};
struct sorting_by_object {
  template <class Range> static void run(Range &range) { std::sort(range.begin(), range.end(), by_mixed_bits()); }
};
struct stable_sorting_by_object {
  template <class Range> static void run(Range &range) {
    std::stable_sort(range.begin(), range.end(), by_mixed_bits());
  }
};
struct selecting {
  template <class Range> static void run(Range &range) {
    std::nth_element(range.begin(), range.begin() + range.size() / 3, range.end());
    range.resize(range.size() / 3 + 1);
    range.erase(range.begin(), range.end() - 1);
  }
};
struct partially_sorting {
  template <class Range> static void run(Range &range) {
    std::partial_sort(range.begin(), range.begin() + 1000, range.end());
    range.resize(1000);
  }
};
struct uniquing {
  template <class Range> static void run(Range &range) {
    range.erase(std::unique(range.begin(), range.end()), range.end());
  }
};
// Two halves in order, merged back.
struct merging {
  static void run(std::vector<int> &range) {
    const std::vector<int> halves(range);
    const std::vector<int>::const_iterator middle = halves.begin() + halves.size() / 2;
    std::merge(halves.begin(), middle, middle, halves.end(), range.begin());
    uniquing::run(range);
  }
};
struct removing {
  template <class Range> static void run(Range &range) {
    range.erase(std::remove(range.begin(), range.end(), 0), range.end());
  }
};
struct heaping {
  template <class Range> static void run(Range &range) {
    std::make_heap(range.begin(), range.end());
    std::sort_heap(range.begin(), range.end());
  }
};
struct turning {
  template <class Range> static void run(Range &range) {
    std::rotate(range.begin(), range.begin() + range.size() / 3, range.end());
    std::reverse(range.begin(), range.end());
  }
};

template <class Range, const Range &(*source)(), class Work> unsigned long changed(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    Range range(source());
    Work::run(range);
    BENCH_TOUCH(&range);
    sum += sum_of(range);
  }
  return sum;
}

const std::vector<int> &bits() {
  static const std::vector<int> range = numbers(million, 2);
  return range;
}

// Many ranges in turn: the processor would learn the branches of one that is sorted again and again.
template <int n> unsigned long sort_in_turn(unsigned long iterations) {
  const unsigned ranges = 20000 / n;
  const std::vector<int> &numbers = random_million();
  std::vector<int> range(n);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    const std::vector<int>::const_iterator from = numbers.begin() + i % ranges * n;
    std::copy(from, from + n, range.begin());
    std::sort(range.begin(), range.end());
    BENCH_TOUCH(&range[0]);
    sum += static_cast<unsigned long>(range[n / 2]);
  }
  return sum;
}

const std::vector<int> &descending() {
  static std::vector<int> range;
  if (range.empty())
    for (int i = million; i != 0; --i) range.push_back(i);
  return range;
}

template <int n> unsigned long find_int(unsigned long iterations) {
  std::vector<int> range(n, 1);
  range[n - 1] = 2;
  int wanted = 2;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_OPAQUE(wanted);
    sum += static_cast<unsigned long>(std::find(range.begin(), range.end(), wanted) - range.begin());
    BENCH_TOUCH(&range[0]);
  }
  return sum;
}

unsigned long find_char(unsigned long iterations) {
  std::vector<char> range(1000, 'x');
  range[999] = 'y';
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    sum += static_cast<unsigned long>(std::find(range.begin(), range.end(), 'y') - range.begin());
    BENCH_TOUCH(&range[0]);
  }
  return sum;
}

template <const std::vector<int> &(*source)(), int lookups> unsigned long lower_bounds(unsigned long iterations) {
  static std::vector<int> range;
  if (range.empty()) {
    range = source();
    std::sort(range.begin(), range.end());
  }
  const int top = range.back();
  unsigned key = 12345;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i)
    for (int k = 0; k < lookups; ++k) {
      key = key * 1103515245u + 12345u;
      const int value = static_cast<int>((key >> 1) % static_cast<unsigned>(top));
      sum += static_cast<unsigned long>(std::lower_bound(range.begin(), range.end(), value) - range.begin());
    }
  return sum;
}

const std::vector<int> &thousand() {
  static const std::vector<int> range = numbers(1000, 1u << 30);
  return range;
}

const std::deque<int> &long_deque() {
  static const std::deque<int> range(random_million().begin(), random_million().begin() + 10000);
  return range;
}

unsigned long accumulate_deque(unsigned long iterations) {
  const std::deque<int> &range = long_deque();
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    sum += static_cast<unsigned long>(std::accumulate(range.begin(), range.end(), 0u));
    BENCH_TOUCH(&range);
  }
  return sum;
}

unsigned long copy_deque(unsigned long iterations) {
  const std::deque<int> &range = long_deque();
  std::deque<int> other(range.size() + 7);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::copy(range.begin(), range.end(), other.begin() + 5);
    BENCH_TOUCH(&other);
    sum += static_cast<unsigned long>(other[100]);
  }
  return sum;
}

unsigned long copy_deque_to_vector(unsigned long iterations) {
  const std::deque<int> &range = long_deque();
  std::vector<int> other(range.size());
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::copy(range.begin(), range.end(), other.begin());
    BENCH_TOUCH(&other[0]);
    sum += static_cast<unsigned long>(other[100]);
  }
  return sum;
}

unsigned long fill_ints(unsigned long iterations) {
  std::vector<int> range(10000);
  for (unsigned long i = 0; i < iterations; ++i) {
    std::fill(range.begin(), range.end(), static_cast<int>(i & 3));
    BENCH_TOUCH(&range[0]);
  }
  return static_cast<unsigned long>(range[99]);
}

// Two ordered halves with equal elements.
const std::vector<int> &halves() {
  static std::vector<int> range;
  if (range.empty()) {
    range = numbers(20000, 20000);
    std::sort(range.begin(), range.begin() + 10000);
    std::sort(range.begin() + 10000, range.end());
  }
  return range;
}

typedef std::vector<int> ints;
typedef std::vector<std::string> strings;

const bench_case cases[] = {
    {"sort 1 M ints", 1.3, million, changed<ints, random_million, sorting>},
    {"sort 1 M ints downward", 1.3, million, changed<ints, random_million, sorting_downward>},
    {"sort 1 M ints of 100 values", 1.3, million, changed<ints, few_keys, sorting>},
    {"sort 1 M ordered ints", 1.3, million, changed<ints, ordered, sorting>},
    {"sort 1 M ints by an object", 1, million, changed<ints, random_million, sorting_by_object>},
    {"sort 1 M descending ints", 1.3, million, changed<ints, descending, sorting>},
    {"sort 1000 ints", 1.1, 1000, sort_in_turn<1000>},
    {"sort 1000 ints, the same each time", 1, 1000, changed<ints, thousand, sorting>},
    {"sort 20 ints", 1.1, 20, sort_in_turn<20>},
    {"sort 100 k strings", 1.3, words, changed<strings, random_words, sorting>},
    {"stable_sort 1 M ints", 1.3, million, changed<ints, random_million, stable_sorting>},
    {"stable_sort 1 M ints by an object", 1, million, changed<ints, random_million, stable_sorting_by_object>},
    {"stable_sort 100 k strings", 1.3, words, changed<strings, random_words, stable_sorting>},
    {"nth_element of 1 M ints", 1.3, million, changed<ints, random_million, selecting>},
    {"partial_sort 1000 of 1 M ints", 1, million, changed<ints, random_million, partially_sorting>},
    {"heap of 1 M ints, made and sorted", 1, million, changed<ints, random_million, heaping>},
    {"unique of 1 M bits", 1.3, million, changed<ints, bits, uniquing>},
    {"merge and unique of 20 k ints", 1, 20000, changed<ints, halves, merging>},
    {"remove from 1 M bits", 1.3, million, changed<ints, bits, removing>},
    {"rotate and reverse 1 M ints", 1, million, changed<ints, random_million, turning>},
    {"find among 10 ints", 1, 10, find_int<10>},
    {"find among 10 k ints", 1.3, 10000, find_int<10000>},
    {"find among 1000 chars", 1, 1000, find_char},
    {"lower_bound in 1000 ints", 1.3, 1000, lower_bounds<thousand, 1000>},
    {"lower_bound in 1 M ints", 1.3, 1000, lower_bounds<random_million, 1000>},
    {"accumulate over a deque", 1, 10000, accumulate_deque},
    {"copy a deque to a deque", 1, 10000, copy_deque},
    {"copy a deque to a vector", 1, 10000, copy_deque_to_vector},
    {"fill 10 k ints", 1, 10000, fill_ints},
};

}  // namespace

BENCH_MAIN(cases)

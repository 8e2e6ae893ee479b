// What algorithms promise beyond their results: how often they compare, what is left when a comparison, a copy or an
// allocation fails at any point, that orders which are none lead nowhere outside of the range, and which names they
// use.
// test-variants: -O1 | -O2 -std=gnu++17
#include "fail_allocation.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

#include "archetypes.h"
#include "random.h"
#include "tracked.h"

// The nothrow form fails beyond a size, or counts as any other: the buffers of the stable algorithms come from it.
static std::size_t most_bytes = static_cast<std::size_t>(-1);
void *operator new(std::size_t bytes, const std::nothrow_t &) FAIL_ALLOCATION_NOTHROW {
  if (bytes > most_bytes) return 0;
  void *block = malloc(bytes);
  if (block) ++live_blocks;
  return block;
}
void operator delete(void *block, const std::nothrow_t &) FAIL_ALLOCATION_NOTHROW { operator delete(block); }

enum { count = 150, most = 3000, procedures = 22, permuting = 5 };

// ---- Calls

// The first ones keep each element in one place, whatever throws, where elements move as bytes; as strings do.
template <class T, class Less> static void run(int which, T *first, T *last, Less less) {
  typedef archetype<T, std::forward_iterator_tag> stepping;
  typedef archetype<T, std::bidirectional_iterator_tag> both_ways;
  static char room[count * sizeof(T)] __attribute__((__aligned__(8)));
  T *const middle = first + (last - first) / 3, *const raw = reinterpret_cast<T *>(room);
  switch (which) {
    case 0: std::sort(first, last, less); break;
    case 1: std::stable_sort(first, last, less); break;
    case 2: std::inplace_merge(first, middle, last, less); break;
    case 3: std::partial_sort(first, middle, last, less); break;
    case 4: std::nth_element(first, middle, last, less); break;
    case 5: std::make_heap(first, last, less); break;
    case 6: std::sort_heap(first, last, less); break;
    case 7: std::equal_range(stepping(first), stepping(last), *middle, less); break;
    case 8: std::inplace_merge(both_ways(first), both_ways(middle), both_ways(last), less); break;
    case 9: std::stable_partition(first, last, less); break;
    case 10: std::stable_partition(both_ways(first), both_ways(last), less); break;
    case 11: std::partition(first, last, less); break;
    case 12: std::rotate(first, middle, last); break;
    case 13: std::unique(first, last, less); break;
    case 14: std::random_shuffle(first, last); break;
    case 15: std::rotate(stepping(first), stepping(middle), stepping(last)); break;
    case 16: std::partition(stepping(first), stepping(last), less); break;
    case 17: std::next_permutation(first, last, less); break;
    case 18: std::uninitialized_copy(first, last, raw); break;
    case 19: std::uninitialized_copy(stepping(first), stepping(last), stepping(raw)); break;
    case 20: std::uninitialized_fill(stepping(raw), stepping(raw + count), *first); break;
    default: std::uninitialized_fill_n(raw, static_cast<int>(count), *first);
  }
  for (int i = 0; which > 17 && i < count; ++i) raw[i].~T();
}
// What the call wants to find.
template <class T> static void prepare(int which, T *range, int n) {
  if (which == 6) std::make_heap(range, range + n);
  if (which != 2 && which != 7 && which != 8) return;
  std::sort(range, which == 7 ? range + n : range + n / 3);
  if (which != 7) std::sort(range + n / 3, range + n);
}

// An order, and of one element whether it is even.
struct throwing_less {
  template <class T> bool operator()(const T &a, const T &b) const {
    return tracked::may_fail(tracked::comparisons_to_fail), a < b;
  }
  bool operator()(const tracked &e) const { return !(e == tracked(e.key / 2 * 2 + 1)); }
  bool operator()(const std::string &s) const { return !(*this)(s, std::string("k")); }
};

// ---- Comparisons

static void comparisons() {
  // So many times n log n, n, log n, and so many more.
  static const int limits[][4] = {{2, 0, 0, 60}, {1, 0, 0, 1}, {0, 1, 0, 0}, {4, 0, 0, 60},
                                  {4, 0, 0, 60}, {0, 3, 0, 0}, {2, 2, 0, 0}, {0, 0, 2, 5}};
  static tracked range[most];
  for (int n = 0; n <= most; n = n < 5 ? n + 1 : n * 3)
    for (int round = 0; round < 64; ++round) {
      const int pattern = round / 8, which = round % 8, *const limit = limits[which];
      for (int i = 0; i < n; ++i) {
        const int any = static_cast<int>(random_below(1u << 23)), last = i == n - 1;
        const int keys[] = {any, any % 5, i, n - i, i % 37, i < n / 2 ? i : n - i, 7, last ? 0 : i + 1};
        range[i] = tracked(keys[pattern], i);
      }
      prepare(which, range, n);
      tracked::comparisons = 0;
      run(which, range, range + n, throwing_less());
      const double log_n = n < 2 ? 0 : std::log(static_cast<double>(n)) / std::log(2.0);
      CHECK(tracked::comparisons <= (limit[0] * n + limit[2]) * log_n + limit[1] * n + limit[3]);
      CHECK(which != 4 || pattern != 0 || tracked::comparisons <= 12 * n + 60);
    }
}

// An adversary gives each element its rank only when it must, so that pivots are as bad as they can be.
static int fixed[most], fixed_count, candidate;
static long asked;
static bool adversary(int a, int b) {
  if (fixed[a] == most && fixed[b] == most) fixed[a == candidate ? a : b] = fixed_count++;
  if (fixed[a] == most || fixed[b] == most) candidate = fixed[a] == most ? a : b;
  ++asked;
  return fixed[a] < fixed[b];
}

// With an order that is none nothing outside the range may be touched, and no element may be lost.
struct bad_order {
  bool always;
  bool operator()(int, int) const { return always || random_below(2) != 0; }
  bool operator()(int) const { return always || random_below(2) != 0; }
};

static void bad_orders() {
  static int order[most], space[most + 200];
  for (int i = 0; i < most; ++i) order[i] = i, fixed[i] = most;
  std::sort(order, order + most, adversary);
  CHECK(asked < 4L * most * 12);
  for (int round = 0; round < 60; ++round) {
    const int n = round < 30 ? round * 3 : most / (60 - round);
    for (int i = 0; i < n + 200; ++i) space[i] = i - 100;
    int *const first = space + 100;
    const bad_order before = {round % 2 == 0};
    for (int which = 0; n > 0 && which < 13; ++which) run(which, first, first + n, before);
    std::sort(first, first + n);
    for (int i = 0; i < n + 200; ++i) CHECK(space[i] == i - 100);
  }
}

// ---- Failures

static void make(tracked &e, int i) { e = tracked(static_cast<int>(random_below(40)), i); }
static void make(std::string &s, int) { s.assign(1 + random_below(60), static_cast<char>('a' + random_below(20))); }
static bool is_whole(const tracked &e) { return e.key >= 0 && e.key < 40; }
static bool is_whole(const std::string &s) { return s.size() <= 60; }  // of what was moved from nothing is said

template <class T> static void make_range(int which, T *range) {
  for (int i = 0; i < count; ++i) make(range[i], i);
  prepare(which, range, count);
}

// A fault at the N-th copy or comparison, until it does not come.
template <class T> static void failing(bool as_bytes) {
  for (int which = 0; which < procedures; ++which)
    for (int comparing = as_bytes; comparing < 2; ++comparing) {
      bool failed = true;
      for (int n = 1; failed; n += 1 + n / 7) {
        const long before = tracked::live, blocks = live_blocks;
        {
          std::vector<T> range(count);
          make_range(which, &range[0]);
          std::vector<T> want(range);
          (comparing ? tracked::comparisons_to_fail : tracked::copies_to_fail) = n;
          try {
            run(which, &range[0], &range[0] + count, throwing_less());
            failed = false;
          } catch (const refused &) {}
          tracked::comparisons_to_fail = tracked::copies_to_fail = 0;
          CHECK(as_bytes || tracked::live == before + 2 * count);
          for (unsigned int i = 0; i < count; ++i) CHECK(is_whole(range[i]));
          std::sort(range.begin(), range.end());
          std::sort(want.begin(), want.end());
          CHECK(!as_bytes || which >= permuting || range == want);
        }
        CHECK(tracked::live == before && live_blocks == blocks);
      }
    }
}

// Buffers of every size below the wanted one, and none: the result is the same.
static void little_memory() {
  for (std::size_t bytes = 0; bytes < count * sizeof(tracked); bytes = bytes * 3 + 7) {
    int numbers[400], sorted[400];
    for (int i = 0; i < 400; ++i) sorted[i] = numbers[i] = static_cast<int>(random_below(1000));
    std::sort(sorted, sorted + 400);
    most_bytes = bytes;
    std::stable_sort(numbers, numbers + 400);
    const std::pair<int *, std::ptrdiff_t> part = std::get_temporary_buffer<int>(1000000);
    CHECK(part.second * sizeof(int) <= bytes && (part.second > 0 || bytes < sizeof(int)));
    CHECK(std::equal(numbers, numbers + 400, sorted));
    std::return_temporary_buffer(part.first);
    for (int which = 1; which < 11; ++which) {
      static tracked range[count], want[count];
      make_range(which, want);
      std::copy(want, want + count, range);
      most_bytes = static_cast<std::size_t>(-1);
      run(which, want, want + count, throwing_less());
      most_bytes = bytes;
      run(which, range, range + count, throwing_less());
      for (int i = 0; i < count; ++i) CHECK(range[i].key == want[i].key && range[i].rank == want[i].rank);
    }
    most_bytes = static_cast<std::size_t>(-1);
  }
}

// ---- Names, and plain types whose copies are not bytes after all

namespace other {
struct thing {
  int value;
};
static int swaps;
void swap(thing &a, thing &b) {
  ++swaps;
  std::swap(a.value, b.value);
}
bool operator<(const thing &a, const thing &b) { return a.value < b.value; }
}  // namespace other
struct by_template {
  int value;
  template <class U> by_template &operator=(U &from) {
    value = from.value + 1000;
    return *this;
  }
};
static void names_and_types() {
  other::thing things[30];
  for (int i = 0; i < 30; ++i) things[i].value = i;
  std::reverse(things, things + 30);
  CHECK_INT(other::swaps, 15);
  std::stable_sort(things, things + 30);
  std::rotate(things, things + 7, things + 30);
  CHECK_INT(things[29].value, 6);
  by_template c[2] = {{1}, {2}}, d[2];
  std::copy(c, c + 2, d);
  bool flags[5];
  std::fill(flags, flags + 5, 256);
  CHECK(d[1].value == 1002 && flags[0] && flags[4]);
  // Later standards' results.
  int numbers[20], sums[20] = {0};
  CHECK(std::fill_n(numbers, 20, 5) == numbers + 20 && std::rotate(numbers, numbers + 2, numbers + 5) == numbers + 3);
  CHECK(std::generate_n(numbers, 3, rand) == numbers + 3);
  // A shuffle leaves no element and no place out.
  typedef archetype<int, std::random_access_iterator_tag> jumping;
  for (int round = 0; round < 2000; ++round) {
    for (int i = 0; i < 20; ++i) numbers[i] = i;
    std::random_shuffle(jumping(numbers), jumping(numbers + 20));
    for (int i = 0; i < 20; ++i) sums[i] += numbers[i];
  }
  for (int i = 0; i < 20; ++i) CHECK(sums[i] > 17500 && sums[i] < 20500);
}

int main() {
  comparisons();
  bad_orders();
  failing<tracked>(false);
  failing<std::string>(true);
  little_memory();
  names_and_types();
  return TEST_RESULT();
}

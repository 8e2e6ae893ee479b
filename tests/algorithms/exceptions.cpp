// Algorithms whose comparison, copy or allocation fails at every point: nothing is leaked or destroyed twice, every
// element stays usable, and without memory for a buffer the result is the same.
// test-variants: -O0 | -O2 | -O2 -std=gnu++17
#include <algorithm>
#include <functional>
#include <memory>
#include <new>
#include <numeric>
#include <string>

#include "archetypes.h"
#include "fail_allocation.h"

// The nothrow form fails beyond a size, or counts as any other: the buffers of the stable algorithms come from it.
static std::size_t most_bytes = static_cast<std::size_t>(-1);
void *operator new(std::size_t bytes, const std::nothrow_t &) FAIL_ALLOCATION_NOTHROW {
  if (bytes > most_bytes) return 0;
  void *block = malloc(bytes);
  if (block) ++live_blocks;
  return block;
}
void operator delete(void *block, const std::nothrow_t &) FAIL_ALLOCATION_NOTHROW { operator delete(block); }

enum { count = 150 };

static bool is_even(const element &e) {
  count_down(comparison_to_fail);
  return e.key % 2 == 0;
}
static bool same_parity(const element &a, const element &b) {
  count_down(comparison_to_fail);
  return a.key % 2 == b.key % 2;
}

typedef random_archetype<element> wrapped;
typedef bidirectional_archetype<element> stepping;

enum { procedures = 16 };
static void run(int which, element *first, element *last) {
  element *const middle = first + (last - first) / 3;
  switch (which) {
    case 0: std::sort(first, last); break;
    case 1: std::stable_sort(first, last); break;
    case 2: std::partial_sort(first, middle, last); break;
    case 3: std::nth_element(first, middle, last); break;
    case 4: std::inplace_merge(first, middle, last); break;
    case 5: std::stable_partition(first, last, is_even); break;
    case 6: std::partition(first, last, is_even); break;
    case 7: std::make_heap(first, last); break;
    case 8: std::rotate(first, middle, last); break;
    case 9: std::unique(first, last, same_parity); break;
    case 10: std::random_shuffle(first, last); break;
    case 11: std::sort(wrapped(first), wrapped(last)); break;
    case 12: std::stable_sort(wrapped(first), wrapped(last)); break;
    case 13: std::inplace_merge(stepping(first), stepping(middle), stepping(last)); break;
    case 14: std::stable_partition(stepping(first), stepping(last), is_even); break;
    default: std::next_permutation(first, last);
  }
}

// A fault at the N-th copy or comparison, for many N until it does not come.
static void test_faults() {
  for (int which = 0; which < procedures; ++which)
    for (int comparing = 0; comparing < 2; ++comparing) {
      bool failed = true;
      for (int n = 1; failed; n += 1 + n / 7) {
        const long before = live_elements, blocks = live_blocks;
        {
          element *const range = new element[count];
          for (int i = 0; i < count; ++i) range[i] = element(static_cast<int>(random_below(40)), i);
          (comparing ? comparison_to_fail : copy_to_fail) = n;
          failed = false;
          try {
            run(which, range, range + count);
          } catch (const fault &) {
            failed = true;
          }
          comparison_to_fail = copy_to_fail = 0;
          CHECK_INT(live_elements, before + count);
          for (int i = 0; i < count; ++i) CHECK(range[i].key >= 0 && range[i].key < 40);
          delete[] range;
        }
        CHECK_INT(live_elements, before);
        CHECK_INT(live_blocks, blocks);
      }
    }
}

// Strings are sorted by their bytes: a comparison that throws must find each of them in one place again.
static bool throwing_less(const std::string &a, const std::string &b) {
  count_down(comparison_to_fail);
  return a < b;
}

static void test_faults_among_strings() {
  for (int which = 0; which < 5; ++which) {
    bool failed = true;
    for (int n = 1; failed; n += 1 + n / 9) {
      const long blocks = live_blocks;
      {
        std::string range[count], want[count];
        for (int i = 0; i < count; ++i) {
          range[i].assign(1 + random_below(60), static_cast<char>('a' + random_below(20)));
          want[i] = range[i];
        }
        std::string *const last = range + count, *const middle = range + 50;
        if (which == 4) {
          std::sort(range, middle);
          std::sort(middle, last);
        }
        comparison_to_fail = n;
        failed = false;
        try {
          switch (which) {
            case 0: std::sort(range, last, throwing_less); break;
            case 1: std::stable_sort(range, last, throwing_less); break;
            case 2: std::partial_sort(range, middle, last, throwing_less); break;
            case 3: std::nth_element(range, middle, last, throwing_less); break;
            default: std::inplace_merge(range, middle, last, throwing_less);
          }
        } catch (const fault &) {
          failed = true;
        }
        comparison_to_fail = 0;
#if !defined(__GLIBCXX__)  // where a string that is held when the comparison throws is lost
        std::sort(range, last);
        std::sort(want, want + count);
        CHECK(std::equal(range, last, want));
#endif
      }
      CHECK_INT(live_blocks, blocks);
    }
  }
}

// Buffers of every size below the wanted one, and none.
static void test_little_memory() {
  for (std::size_t bytes = 0; bytes < count * sizeof(element); bytes = bytes * 3 + 7)
    for (int which = 0; which < 5; ++which) {
      static element range[count], want[count];
      most_bytes = static_cast<std::size_t>(-1);
      for (int round = 0; round < 2; ++round) {
        element *const to = round ? range : want;
        random_state = 99;
        for (int i = 0; i < count; ++i) to[i] = element(static_cast<int>(random_below(30)), i);
        if (which == 1 || which == 2) {
          std::sort(to, to + 50);
          std::sort(to + 50, to + count);
        }
        switch (which) {
          case 0: std::stable_sort(to, to + count); break;
          case 1: std::inplace_merge(to, to + 50, to + count); break;
          case 2: std::inplace_merge(stepping(to), stepping(to + 50), stepping(to + count)); break;
          case 3: std::stable_partition(to, to + count, is_even); break;
          default: std::stable_partition(stepping(to), stepping(to + count), is_even);
        }
        most_bytes = bytes;
      }
      bool same = true;
      for (int i = 0; i < count; ++i) same = same && range[i].key == want[i].key && range[i].rank == want[i].rank;
      CHECK(same);
      int numbers[400];
      for (int i = 0; i < 400; ++i) numbers[i] = static_cast<int>(random_below(1000));
      std::stable_sort(numbers, numbers + 400);
      for (int i = 1; i < 400; ++i) CHECK(numbers[i - 1] <= numbers[i]);
    }
  const std::pair<int *, std::ptrdiff_t> part = std::get_temporary_buffer<int>(1000000);
  CHECK(part.second > 0 && part.second * sizeof(int) <= most_bytes);
  std::return_temporary_buffer(part.first);
  most_bytes = static_cast<std::size_t>(-1);
}

// What is made in raw memory goes again when the next one cannot be made.
static void test_uninitialized() {
  const element source[5];
  static char raw[5 * sizeof(element)] __attribute__((__aligned__(8)));
  element *const room = reinterpret_cast<element *>(raw);
  const long before = live_elements;
  for (int which = 0; which < 4; ++which)
    for (int n = 1; n <= 5; ++n) {
      copy_to_fail = n;
      bool failed = false;
      try {
        typedef forward_archetype<element> forward;
        switch (which) {
          case 0: std::uninitialized_copy(source, source + 5, room); break;
          case 1: std::uninitialized_fill(forward(room), forward(room + 5), source[0]); break;
          case 2: std::uninitialized_fill_n(room, 5, source[0]); break;
          default: std::uninitialized_copy(source, source + 5, forward(room));
        }
      } catch (const fault &) {
        failed = true;
      }
      copy_to_fail = 0;
      CHECK(failed);
      CHECK_INT(live_elements, before);
    }
}

int main() {
  test_faults();
  test_faults_among_strings();
  test_little_memory();
  test_uninitialized();
  return TEST_RESULT();
}

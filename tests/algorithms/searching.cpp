// Algorithms that look and change nothing, binary search, sets, heaps, permutations, minima and <numeric>: against loops
// over indices, through iterators of the weakest category that each takes, with the comparisons that are allowed.
// test-variants: -O0 | -O2 | -O2 -std=gnu++17
#include <algorithm>
#include <functional>
#include <numeric>
#include <string>

#include "archetypes.h"

enum { most = 200 };
typedef forward_archetype<int> forward;
typedef input_archetype<int> input;

static int a[most], b[most], out_want[2 * most], out_got[2 * most];
static const int *at_a, *at_b;
static int *written;

static void make(int *range, int n, unsigned limit) {
  for (int i = 0; i < n; ++i) range[i] = static_cast<int>(random_below(limit));
}
// The beginning of a range starts a new pass; its end is only compared with.
static input first_a() { return input((at_a = a), &at_a); }
static input first_b() { return input((at_b = b), &at_b); }
static input at_of_a(int i) { return input(a + i, &at_a); }
static input at_of_b(int i) { return input(b + i, &at_b); }

static bool is_three(int i) { return i == 3; }
static bool near_by(int i, int k) { return i - k <= 1 && k - i <= 1; }
static bool counted_less(int i, int k) {
  ++comparisons;
  return i < k;
}
static bool counted_equal(int i, int k) {
  ++comparisons;
  return i == k;
}

// All element types that have a road of their own, at every place, with hits and without.
template <class T> static void test_find_in() {
  static T range[most];
  for (int n = 0; n < 100; ++n)
    for (int first = 0; first < 20; first += 3) {
      for (int i = 0; i < most; ++i) range[i] = T(5);
      CHECK(std::find(range + first, range + first + n, T(3)) == range + first + n);
      for (int k = 0; k < n; k += 1 + k / 4) {
        range[first + k] = T(3);
        CHECK(std::find(range + first, range + first + n, T(3)) == range + first + k);
        const T *fixed = range;
        CHECK(std::find(fixed + first, fixed + first + n, T(3)) == range + first + k);
        range[first + k] = T(5);
      }
      range[first + n] = T(3);
      CHECK(std::find(range + first, range + first + n, T(3)) == range + first + n);
    }
}

static void test_find_conversions() {
  const signed char bytes[] = {1, -1, 2, 3};
  CHECK(std::find(bytes, bytes + 4, 255) == bytes + 4);
  CHECK(std::find(bytes, bytes + 4, -1) == bytes + 1);
  const int numbers[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
  CHECK(std::find(numbers, numbers + 10, 6.5) == numbers + 10);
  CHECK(std::find(numbers, numbers + 10, 7L) == numbers + 7);
  int *pointers[10];
  for (int i = 0; i < 10; ++i) pointers[i] = a + i;
  CHECK(std::find(pointers, pointers + 10, a + 8) == pointers + 8);
  const double reals[] = {1, -0.0, 2};
  CHECK(std::find(reals, reals + 3, 0.0) == reals + 1);
  const std::string text("one, two");
  CHECK(std::find(text.begin(), text.end(), ',') == text.begin() + 3);
  CHECK(std::find(text.rbegin(), text.rend(), 'o').base() == text.end());
}

static void test_looking() {
  for (int round = 0; round < 400; ++round) {
    const int n = static_cast<int>(random_below(30)), m = static_cast<int>(random_below(5));
    make(a, n, 4);
    make(b, m, 4);
    int k = 0, count = 0;
    while (k < n && a[k] != 3) ++k;
    for (int i = 0; i < n; ++i) count += a[i] == 3;
    CHECK(std::find(first_a(), at_of_a(n), 3) == at_of_a(k));
    CHECK(std::find_if(first_a(), at_of_a(n), is_three) == at_of_a(k));
    CHECK_INT(std::count(first_a(), at_of_a(n), 3), count);
    CHECK_INT(std::count_if(first_a(), at_of_a(n), is_three), count);

    for (k = 0; k + 1 < n && a[k] != a[k + 1];) ++k;
    if (k + 1 >= n) k = n;
    CHECK(std::adjacent_find(forward(a), forward(a + n)).base() == a + k);
    for (k = 0; k < n && std::count(b, b + m, a[k]) == 0;) ++k;
    CHECK(std::find_first_of(forward(a), forward(a + n), forward(b), forward(b + m)).base() == a + k);
    CHECK(std::find_first_of(a, a + n, b, b + m, std::equal_to<int>()) == a + k);

    int first = n, last = n;
    for (int i = n - m; i >= 0; --i) {
      int equal = 0;
      while (equal < m && a[i + equal] == b[equal]) ++equal;
      if (equal != m) continue;
      if (last == n) last = i;
      first = i;
    }
    CHECK(std::search(forward(a), forward(a + n), forward(b), forward(b + m)).base() == a + first);
    comparisons = 0;
    CHECK(std::search(forward(a), forward(a + n), b, b + m, counted_equal).base() == a + first);
    CHECK(comparisons <= n * m);
    if (m == 0) last = n;
    CHECK(std::find_end(forward(a), forward(a + n), forward(b), forward(b + m)).base() == a + last);
    CHECK(std::find_end(a, a + n, b, b + m, std::equal_to<int>()) == a + last);

    make(a, n, 2);
    for (int wanted = -1; wanted < 6; ++wanted) {
      for (k = 0; k < n; ++k) {
        int run = 0;
        while (k + run < n && run < wanted && a[k + run] == 1) ++run;
        if (run >= wanted) break;
      }
      if (wanted <= 0) k = 0;
      CHECK(std::search_n(forward(a), forward(a + n), wanted, 1).base() == a + k);
      comparisons = 0;
      CHECK(std::search_n(a, a + n, static_cast<short>(wanted), 1, counted_equal) == a + k);
      CHECK(comparisons <= n);
    }

    make(a, n, 3);
    std::copy(a, a + n, b);
    if (n > 0 && round % 2) b[random_below(static_cast<unsigned>(n))] = 7;
    for (k = 0; k < n && a[k] == b[k];) ++k;
    CHECK(std::equal(first_a(), at_of_a(n), first_b()) == (k == n));
    CHECK(std::equal(a, a + n, b) == (k == n));
    CHECK(std::equal(a, a + n, b, near_by) == (k == n || near_by(a[k], 7)));
    std::pair<input, input> differ = std::mismatch(first_a(), at_of_a(n), first_b());
    CHECK(differ.first == at_of_a(k) && differ.second == at_of_b(k));
    CHECK(std::mismatch(a, a + n, b, counted_equal).second == b + k);
    CHECK(std::lexicographical_compare(first_a(), at_of_a(n), first_b(), at_of_b(n)) == (k < n));
    CHECK(!std::lexicographical_compare(b, b + n, a, a + n));
    CHECK(std::lexicographical_compare(b, b + n, a, a + n, std::greater<int>()) == (k < n));
    CHECK(std::lexicographical_compare(a, a + k, a, a + n) == (k < n));
  }
  const unsigned char low[] = {1, 127}, high[] = {1, 128};
  CHECK(std::lexicographical_compare(low, low + 2, high, high + 2));
  const signed char minus[] = {1, -1}, plus[] = {1, 1};
  CHECK(std::lexicographical_compare(minus, minus + 2, plus, plus + 2));
  const double zero[] = {0.0}, minus_zero[] = {-0.0};
  CHECK(std::equal(zero, zero + 1, minus_zero));
}

static int logarithm_of(int n) { return n < 1 ? 0 : 32 - __builtin_clz(static_cast<unsigned>(n)); }

template <class T, class Before> static void test_bounds_of(Before before) {
  static T range[most];
  for (int n = 0; n < 70; ++n)
    for (unsigned limit = 3; limit < 100; limit *= 4) {
      for (int i = 0; i < n; ++i) range[i] = T(random_below(limit));
      std::sort(range, range + n, before);
      for (unsigned v = 0; v <= limit; ++v) {
        const T value = T(v);
        int lower = 0, upper = 0;
        for (int i = 0; i < n; ++i) {
          lower += before(range[i], value);
          upper += !before(value, range[i]);
        }
        CHECK(std::lower_bound(range, range + n, value, before) == range + lower);
        CHECK(std::upper_bound(range, range + n, value, before) == range + upper);
        CHECK(std::binary_search(range, range + n, value, before) == (lower != upper));
        std::pair<T *, T *> both = std::equal_range(range, range + n, value, before);
        CHECK(both.first == range + lower && both.second == range + upper);
      }
    }
}

static bool shorter(const std::string &text, unsigned n) { return text.size() < n; }
static bool is_below(unsigned n, const std::string &text) { return n < text.size(); }

static void test_bounds() {
  test_bounds_of<int>(std::less<int>());
  test_bounds_of<int>(std::greater<int>());
  test_bounds_of<double>(std::less<double>());
  test_bounds_of<element>(std::less<element>());
  for (int n = 0; n < most; ++n) {
    make(a, n, 100);
    std::sort(a, a + n);
    const int value = static_cast<int>(random_below(101));
    comparisons = 0;
    forward found = std::lower_bound(forward(a), forward(a + n), value, counted_less);
    CHECK(comparisons <= logarithm_of(n));
    CHECK(found.base() == std::lower_bound(a, a + n, value));
    comparisons = 0;
    found = std::upper_bound(forward(a), forward(a + n), value, counted_less);
    CHECK(comparisons <= logarithm_of(n));
    CHECK(found.base() == std::upper_bound(a, a + n, value));
    comparisons = 0;
    CHECK(std::equal_range(forward(a), forward(a + n), value, counted_less).second == found);
    CHECK(comparisons <= 2 * logarithm_of(n) + 1);
  }
  // The value's type differs from the elements'.
  const std::string words[] = {"", "a", "bb", "cc", "ddd"};
  CHECK(std::lower_bound(words, words + 5, 2u, shorter) == words + 2);
  CHECK(std::upper_bound(words, words + 5, 2u, is_below) == words + 4);
  const int numbers[] = {1, 2, 3};
  CHECK(std::lower_bound(numbers, numbers + 3, 1.5) == numbers + 1);
}

// Sets with repeated elements: an element's number in the result follows from its numbers in both.
static void test_sets() {
  for (int round = 0; round < 300; ++round) {
    const int m = static_cast<int>(random_below(20)), n = static_cast<int>(random_below(20));
    make(a, m, 8);
    make(b, n, 8);
    std::sort(a, a + m);
    std::sort(b, b + n);
    int *end[4] = {out_want, out_want + 100, out_want + 200, out_want + 300};
    bool all = true;
    for (int v = 0; v < 8; ++v) {
      const int in_first = static_cast<int>(std::count(a, a + m, v)), in_second = static_cast<int>(std::count(b, b + n, v));
      const int both = std::min(in_first, in_second);
      const int numbers[4] = {std::max(in_first, in_second), both, in_first - both, in_first + in_second - 2 * both};
      for (int k = 0; k < 4; ++k) end[k] = (std::fill_n(end[k], numbers[k], v), end[k] + numbers[k]);
      all = all && in_first >= in_second;
    }
    typedef output_archetype<int> out;
    comparisons = 0;
    for (int k = 0; k < 4; ++k) {
      int *const want = out_want + 100 * k;
      for (int ordered = 0; ordered < 2; ++ordered) {
        const out to(out_got, &written);
#define SETS first_a(), at_of_a(m), first_b(), at_of_b(n), to
        if (ordered == 0)
          k == 0   ? std::set_union(SETS)
          : k == 1 ? std::set_intersection(SETS)
          : k == 2 ? std::set_difference(SETS)
                   : std::set_symmetric_difference(SETS);
        else
          k == 0   ? std::set_union(SETS, counted_less)
          : k == 1 ? std::set_intersection(SETS, counted_less)
          : k == 2 ? std::set_difference(SETS, counted_less)
                   : std::set_symmetric_difference(SETS, counted_less);
        CHECK(written - out_got == end[k] - want && std::equal(want, end[k], out_got));
      }
    }
    CHECK(comparisons <= 4 * std::max(0, 2 * (m + n) - 1));
    CHECK(std::includes(first_a(), at_of_a(m), first_b(), at_of_b(n)) == all);
    CHECK(std::includes(a, a + m, b, b + n, std::less<int>()) == all);
  }
}

static bool is_heap_of(const element *first, int n) {
  for (int i = 1; i < n; ++i)
    if (first[(i - 1) / 2].key < first[i].key) return false;
  return true;
}

static void test_heaps() {
  static element heap[most];
  typedef random_archetype<element> random;
  const random first(heap);
  for (int n = 0; n < most; n += 1 + n / 8) {
    const int log_n = logarithm_of(n);
    for (int i = 0; i < n; ++i) {
      heap[i] = element(random_below(50));
      comparisons = 0;
      std::push_heap(first, random(heap + i + 1));
      CHECK(comparisons <= logarithm_of(i + 1));
      CHECK(is_heap_of(heap, i + 1));
    }
    for (int i = n; i > 0; --i) {
      const int top = heap[0].key;
      comparisons = 0;
      std::pop_heap(first, random(heap + i));
      CHECK(comparisons <= 2 * logarithm_of(i));
      CHECK(heap[i - 1].key == top && is_heap_of(heap, i - 1));
    }
    std::random_shuffle(first, first + n);
    comparisons = 0;
    std::make_heap(first, first + n);
    CHECK(comparisons <= 3 * n);
    CHECK(is_heap_of(heap, n));
    comparisons = 0;
    std::sort_heap(first, first + n);
    CHECK(comparisons <= 2 * n * log_n);
    for (int i = 1; i < n; ++i) CHECK(heap[i - 1].key <= heap[i].key);
  }
}

static void test_permutations() {
  typedef bidirectional_archetype<int> bidirectional;
  int values[6] = {1, 2, 2, 3, 4, 5}, before[6];
  int count = 1;
  for (std::copy(values, values + 6, before); std::next_permutation(bidirectional(values), bidirectional(values + 6));
       std::copy(values, values + 6, before), ++count) {
    CHECK(std::lexicographical_compare(before, before + 6, values, values + 6));
    int back[6];
    std::copy(values, values + 6, back);
    CHECK(std::prev_permutation(back, back + 6) && std::equal(back, back + 6, before));
  }
  CHECK_INT(count, 360);
  CHECK(values[0] == 1 && values[5] == 5);
  CHECK(!std::prev_permutation(values, values + 6) && values[0] == 5);
  CHECK(std::next_permutation(values, values + 6, std::greater<int>()) && values[4] == 1 && values[5] == 2);
  CHECK(!std::next_permutation(values, values) && !std::prev_permutation(values, values + 1));
}

static void test_extremes() {
  const element equal[] = {element(2, 0), element(1, 1), element(2, 2), element(1, 3)};
  typedef forward_archetype<const element> fixed;
  CHECK_INT(std::min_element(fixed(equal), fixed(equal + 4))->rank, 1);
  CHECK_INT(std::max_element(fixed(equal), fixed(equal + 4))->rank, 0);
  CHECK_INT(std::max_element(equal, equal + 4, std::less<element>())->rank, 0);
  CHECK(std::min_element(equal, equal) == equal);
  CHECK(&std::min(equal[0], equal[2]) == equal && &std::max(equal[0], equal[2]) == equal);
  CHECK_INT(std::min(3, 4, std::greater<int>()), 4);
  CHECK_INT(std::max(3, 4, std::greater<int>()), 3);
}

static void test_numeric() {
  make(a, 10, 50);
  make(b, 10, 50);
  int sum = 100, product = 0;
  for (int i = 0; i < 10; ++i) {
    sum += a[i];
    product += a[i] * b[i];
  }
  CHECK_INT(std::accumulate(first_a(), at_of_a(10), 100), sum);
  CHECK_INT(std::accumulate(a, a + 10, 100, std::plus<int>()), sum);
  CHECK_INT(std::inner_product(first_a(), at_of_a(10), first_b(), 0), product);
  CHECK_INT(std::inner_product(a, a + 10, b, 0, std::plus<int>(), std::multiplies<int>()), product);
  const std::string words[] = {"a", "b", "c"};
  CHECK(std::accumulate(words, words + 3, std::string(">")) == ">abc");
  int sums[10], differences[10];
  output_archetype<int> to(sums, &written);
  CHECK(std::partial_sum(first_a(), at_of_a(10), to).base() == sums + 10);
  for (int i = 0, so_far = 0; i < 10; ++i) CHECK_INT(sums[i], so_far += a[i]);
  output_archetype<int> to_differences(differences, &written);
  CHECK(std::adjacent_difference(sums, sums + 10, to_differences).base() == differences + 10);
  CHECK(std::equal(a, a + 10, differences));
  std::partial_sum(differences, differences + 10, differences);
  CHECK(std::equal(sums, sums + 10, differences));
  std::adjacent_difference(differences, differences + 10, differences, std::minus<int>());
  CHECK(std::equal(a, a + 10, differences));
  CHECK(std::partial_sum(a, a, sums, std::multiplies<int>()) == sums && std::adjacent_difference(a, a, sums) == sums);
  const unsigned char small[] = {200, 100};
  CHECK_INT(std::accumulate(small, small + 2, 0), 300);
}

static int calls;
struct summing {
  int sum;
  void operator()(int i) { sum += i; }
};
static unsigned long below(unsigned long n) { return ++calls % n; }

static void test_shuffle() {
  int values[100];
  for (int i = 0; i < 100; ++i) values[i] = i;
  std::random_shuffle(values, values + 100);
  int moved = 0;
  for (int i = 0; i < 100; ++i) moved += values[i] != i;
  CHECK(moved > 50);
  random_archetype<int> first(values);
  std::random_shuffle(first, first + 100, below);
  CHECK(calls >= 99);
  std::sort(values, values + 100);
  for (int i = 0; i < 100; ++i) CHECK_INT(values[i], i);
  const summing zero = {0};
  CHECK_INT(std::for_each(values, values + 100, zero).sum, 4950);
}

int main() {
  test_find_in<char>();
  test_find_in<unsigned char>();
  test_find_in<short>();
  test_find_in<int>();
  test_find_in<unsigned long>();
  test_find_in<long long>();
  test_find_in<double>();
  test_find_conversions();
  test_looking();
  test_bounds();
  test_sets();
  test_heaps();
  test_permutations();
  test_extremes();
  test_numeric();
  test_shuffle();
  return TEST_RESULT();
}

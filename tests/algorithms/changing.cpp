// Algorithms that copy and change ranges: against loops over indices, through iterators that allow what their category
// promises and through the pointers of plain types, which take other roads; with ranges that overlap.
// test-variants: -O0 | -O2 | -O2 -std=gnu++17
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "archetypes.h"

enum { most = 90 };

template <class T> struct ranges {
  T start[most], want[most], got[most];
  int n;
  void make(int size) {
    n = size;
    for (int i = 0; i < most; ++i) want[i] = got[i] = start[i] = T(random_below(6));
  }
  bool same() const {
    for (int i = 0; i < most; ++i)
      if (!(want[i] == got[i])) return false;
    return true;
  }
};

static bool is_odd(int i) { return i % 2 != 0; }
static bool both_odd(int a, int b) { return (a + b) % 2 == 0; }
static int twice(int i) { return i * 2 % 100; }
static int sum_of(int a, int b) { return a + b; }
struct counter {
  int next;
  int operator()() { return next++ % 100; }
};

// copy and copy_backward within one range: by every distance that each direction allows.
template <class T, class Iterator> static void test_overlap() {
  static ranges<T> r;
  for (int n = 0; n < 40; n += 3)
    for (int shift = 0; shift < 40; ++shift) {
      r.make(n);
      for (int i = 0; i < n; ++i) r.want[i] = r.start[i + shift];
      CHECK(base_of(std::copy(Iterator(r.got + shift), Iterator(r.got + shift + n), Iterator(r.got))) == r.got + n);
      CHECK(r.same());
      r.make(n);
      for (int i = 0; i < n; ++i) r.want[i + shift] = r.start[i];
      CHECK(base_of(std::copy_backward(Iterator(r.got), Iterator(r.got + n), Iterator(r.got + shift + n))) ==
            r.got + shift);
      CHECK(r.same());
    }
}

// What works on a range in place, with iterators of one category.
template <class T, class Iterator> static void test_in_place() {
  static ranges<T> r;
  for (int n = 0; n <= 40; ++n) {
    r.make(n);
    const Iterator first(r.got), last(r.got + n);
    std::fill(first, last, T(3));
    std::fill(r.want, r.want + n, T(9));
    for (int i = 0; i < n; ++i) r.want[i] = T(3);
    CHECK(r.same());
    std::fill_n(first, static_cast<unsigned char>(n / 2), T(4));
    for (int i = 0; i < n / 2; ++i) r.want[i] = T(4);
    CHECK(r.same());

    r.make(n);
    std::replace(first, last, T(2), T(5));
    std::replace_if(first, last, is_odd, T(0));
    for (int i = 0; i < n; ++i)
      if (r.want[i] == T(2) || is_odd(r.want[i])) r.want[i] = T(0);
    CHECK(r.same());

    r.make(n);
    int kept = 0;
    for (int i = 0; i < n; ++i)
      if (!(r.start[i] == T(1))) r.want[kept++] = r.start[i];
    CHECK(base_of(std::remove(first, last, T(1))) == r.got + kept);
    CHECK(std::equal(r.want, r.want + kept, r.got));

    r.make(n);
    kept = 0;
    for (int i = 0; i < n; ++i)
      if (!is_odd(r.start[i])) r.want[kept++] = r.start[i];
    CHECK(base_of(std::remove_if(first, last, is_odd)) == r.got + kept);
    CHECK(std::equal(r.want, r.want + kept, r.got));

    r.make(n);
    kept = 0;
    for (int i = 0; i < n; ++i)
      if (i == 0 || !(r.start[i] == r.start[i - 1])) r.want[kept++] = r.start[i];
    CHECK(base_of(std::unique(first, last)) == r.got + kept);
    CHECK(std::equal(r.want, r.want + kept, r.got));

    r.make(n);
    kept = 0;
    for (int i = 0; i < n; ++i)
      if (i == 0 || !both_odd(r.want[kept - 1], r.start[i])) r.want[kept++] = r.start[i];
    CHECK(base_of(std::unique(first, last, both_odd)) == r.got + kept);
    CHECK(std::equal(r.want, r.want + kept, r.got));

    r.make(n);
    counter next = {3};
    std::generate(first, last, next);
    for (int i = 0; i < n; ++i) r.want[i] = T(next());
    CHECK(r.same());
    next.next = 50;
    std::generate_n(first, n / 2, next);
    for (int i = 0; i < n / 2; ++i) r.want[i] = T(next());
    CHECK(r.same());

    r.make(n / 2);
    CHECK(base_of(std::swap_ranges(first, Iterator(r.got + n / 2), Iterator(r.got + 40))) == r.got + 40 + n / 2);
    for (int i = 0; i < n / 2; ++i) {
      r.want[i] = r.start[40 + i];
      r.want[40 + i] = r.start[i];
    }
    CHECK(r.same());

    for (int k = 0; k <= n; k += 1 + n / 9) {
      r.make(n);
      std::rotate(first, Iterator(r.got + k), last);
      for (int i = 0; i < n; ++i) r.want[i] = r.start[(i + k) % n];
      CHECK(r.same());
    }

    r.make(n);
    Iterator border = std::partition(first, last, is_odd);
    int odd = 0;
    for (int i = 0; i < n; ++i) odd += is_odd(r.start[i]);
    CHECK(base_of(border) == r.got + odd);
    for (int i = 0; i < n; ++i) CHECK(is_odd(r.got[i]) == (i < odd));
    std::sort(r.got, r.got + n);
    std::sort(r.want, r.want + n);
    CHECK(r.same());
  }
}

template <class T, class Iterator> static void test_bidirectional() {
  static ranges<T> r;
  for (int n = 0; n <= 40; ++n) {
    const Iterator first(r.got), last(r.got + n);
    r.make(n);
    std::reverse(first, last);
    for (int i = 0; i < n; ++i) r.want[i] = r.start[n - 1 - i];
    CHECK(r.same());
    r.make(n);
    int at = 0;
    for (int i = 0; i < n; ++i)
      if (is_odd(r.start[i])) r.want[at++] = r.start[i];
    const int odd = at;
    for (int i = 0; i < n; ++i)
      if (!is_odd(r.start[i])) r.want[at++] = r.start[i];
    CHECK(base_of(std::stable_partition(first, last, is_odd)) == r.got + odd);
    CHECK(r.same());
  }
}

// What reads once and writes once.
static void test_copying() {
  static ranges<int> r;
  typedef input_archetype<int> in;
  typedef output_archetype<int> out;
  for (int n = 0; n <= 40; ++n) {
    const int *at, *at_2;
    int *written;
#define FIRST (at = r.start, in(r.start, &at))
#define LAST in(r.start + n, &at)
#define OUT out(r.got, &written)
    r.make(n);
    CHECK(std::copy(FIRST, LAST, OUT).base() == r.got + n && written == r.got + n);
    CHECK(r.same());
    CHECK(std::transform(FIRST, LAST, OUT, twice).base() == r.got + n);
    for (int i = 0; i < n; ++i) r.want[i] = twice(r.start[i]);
    CHECK(r.same());
    at_2 = r.start + 1;
    CHECK(std::transform(FIRST, LAST, in(r.start + 1, &at_2), OUT, sum_of).base() == r.got + n);
    for (int i = 0; i < n; ++i) r.want[i] = r.start[i] + r.start[i + 1];
    CHECK(r.same());
    CHECK(std::replace_copy(FIRST, LAST, OUT, 3, 77).base() == r.got + n);
    for (int i = 0; i < n; ++i) r.want[i] = r.start[i] == 3 ? 77 : r.start[i];
    CHECK(r.same());
    CHECK(std::replace_copy_if(FIRST, LAST, OUT, is_odd, 78).base() == r.got + n);
    for (int i = 0; i < n; ++i) r.want[i] = is_odd(r.start[i]) ? 78 : r.start[i];
    CHECK(r.same());
    r.make(n);
    int kept = 0;
    for (int i = 0; i < n; ++i)
      if (r.start[i] != 4) r.want[kept++] = r.start[i];
    CHECK(std::remove_copy(FIRST, LAST, OUT, 4).base() == r.got + kept);
    CHECK(r.same());
    r.make(n);
    kept = 0;
    for (int i = 0; i < n; ++i)
      if (!is_odd(r.start[i])) r.want[kept++] = r.start[i];
    CHECK(std::remove_copy_if(FIRST, LAST, OUT, is_odd).base() == r.got + kept);
    CHECK(r.same());
    for (int by_forward = 0; by_forward < 2; ++by_forward) {
      r.make(n);
      kept = 0;
      for (int i = 0; i < n; ++i)
        if (kept == 0 || !both_odd(r.want[kept - 1], r.start[i])) r.want[kept++] = r.start[i];
      if (by_forward)
        CHECK(std::unique_copy(forward_archetype<int>(r.start), forward_archetype<int>(r.start + n), OUT, both_odd)
                  .base() == r.got + kept);
      else
        CHECK(std::unique_copy(FIRST, LAST, OUT, both_odd).base() == r.got + kept);
      CHECK(r.same());
    }
    r.make(n);
    CHECK(std::reverse_copy(bidirectional_archetype<int>(r.start), bidirectional_archetype<int>(r.start + n), OUT)
              .base() == r.got + n);
    for (int i = 0; i < n; ++i) r.want[i] = r.start[n - 1 - i];
    CHECK(r.same());
    CHECK(std::rotate_copy(forward_archetype<int>(r.start), forward_archetype<int>(r.start + n / 3),
                           forward_archetype<int>(r.start + n), OUT)
              .base() == r.got + n);
    for (int i = 0; i < n; ++i) r.want[i] = r.start[(i + n / 3) % n];
    CHECK(r.same());
    std::fill_n(OUT, n, 7);
    CHECK(written == r.got + n);
    counter next = {9};
    std::generate_n(OUT, n, next);
    CHECK(written == r.got + n);
  }
}

// Plain types whose copies are not bytes after all, or must be seen.
struct counted_copies {
  int value;
  static int assigned;
  counted_copies &operator=(const counted_copies &other) {
    value = other.value;
    ++assigned;
    return *this;
  }
};
int counted_copies::assigned;

struct with_template_assignment {
  int value;
  template <class U> with_template_assignment &operator=(U &other) {
    value = other.value + 1000;
    return *this;
  }
};

static void test_roads() {
  counted_copies a[4] = {{1}, {2}, {3}, {4}}, b[4];
  std::copy(a, a + 4, b);
  CHECK_INT(counted_copies::assigned, 4);
  CHECK_INT(b[3].value, 4);
#if !defined(__GLIBCXX__)  // which copies bytes here
  with_template_assignment c[2] = {{1}, {2}}, d[2];
  std::copy(c, c + 2, d);
  CHECK_INT(d[1].value, 1002);
#endif
  volatile int port[3] = {1, 2, 3};
  int from_port[3];
  std::copy(port, port + 3, from_port);
  std::fill(port, port + 3, 9);
  CHECK_INT(from_port[2], 3);
  CHECK_INT(port[2], 9);
  short narrow[3];
  const int wide[3] = {1, -2, 65537};
  std::copy(wide, wide + 3, narrow);
  CHECK_INT(narrow[2], 1);
  bool flags[5];
  std::fill(flags, flags + 5, 256);
  CHECK(flags[0] && flags[4]);
  char text[5] = "abcd";
  std::fill(text, text + 2, 'x');
  std::fill_n(text + 2, 2u, 'y');
  CHECK_TEXT(text, "xxyy");
  // The value is an element of the range.
  int numbers[5] = {1, 2, 3, 4, 5};
  std::fill(numbers, numbers + 5, numbers[2]);
  CHECK_INT(numbers[4], 3);
#if !defined(__GLIBCXX__)
  CHECK(std::fill_n(numbers, 2, 5) == numbers + 2 && std::rotate(numbers, numbers + 2, numbers + 5) == numbers + 3);
  const counter from_one = {1};
  CHECK(std::generate_n(numbers, 3, from_one) == numbers + 3);
#endif
  const int *none = 0;
  CHECK(std::copy(none, none, numbers) == numbers);
  std::vector<bool> bits(10, false);
  bits[3] = true;
  std::reverse(bits.begin(), bits.end());
  CHECK(bits[6] && !bits[3]);
  std::rotate(bits.begin(), bits.begin() + 6, bits.end());
  CHECK(bits[0]);
  std::iter_swap(bits.begin(), bits.begin() + 1);
  CHECK(!bits[0] && bits[1]);
}

// A swap of the element's own namespace is used; a function of the same name as an internal one is not.
namespace other {
struct thing {
  int value;
};
static int swaps;
void swap(thing &a, thing &b) {
  ++swaps;
  const int held = a.value;
  a.value = b.value;
  b.value = held;
}
template <class A, class B, class C> void copy(A, B, C) { CHECK(!"found by the arguments"); }
template <class A, class B> void distance(A, B) { CHECK(!"found by the arguments"); }
template <class A, class B, class C> void lower_bound(A, B, C, int) { CHECK(!"found by the arguments"); }
bool operator<(const thing &a, const thing &b) { return a.value < b.value; }
}  // namespace other

static void test_names() {
  other::thing things[30];
  for (int i = 0; i < 30; ++i) things[i].value = i;
  std::reverse(things, things + 30);
  CHECK_INT(other::swaps, 15);
  std::stable_sort(things, things + 30);
  std::rotate(things, things + 7, things + 30);
  CHECK_INT(things[29].value, 6);
  std::pair<other::thing *, other::thing *> range = std::equal_range(things, things + 23, things[4]);
  CHECK(range.first == things + 4 && range.second == things + 5);
}

// A program's own functions, called with iterators of the library, are not in competition with internal ones.
namespace own {
static int calls;
template <class I, class Order> void insertion_sort(I, I, Order) { ++calls; }
template <class I, class Order> void merge_sort(I, I, Order) { ++calls; }
template <class I> void destroy(I, I) { ++calls; }
template <class I> void reverse_range(I, I) { ++calls; }
template <class I, class Out> void move_range(I, I, Out) { ++calls; }
template <class I> void move_from(I) { ++calls; }
}  // namespace own

static void test_unqualified_calls() {
  using namespace std;
  using namespace own;
  std::vector<int> v(5, 1);
  std::string text(3, 'x');
  less<int> order;
  insertion_sort(v.begin(), v.end(), order);
  merge_sort(text.begin(), text.end(), order);
#if __cplusplus < 201703L  // where the host's std::destroy is another one
  destroy(v.begin(), v.end());
#else
  own::destroy(v.begin(), v.end());
#endif
  reverse_range(text.begin(), text.end());
  move_range(v.begin(), v.end(), v.begin());
  move_from(v.begin());
  CHECK_INT(own::calls, 6);
  CHECK(lower_bound(v.begin(), v.end(), 1, order) == v.begin() && upper_bound(v.begin(), v.end(), 1, order) == v.end());
  make_heap(v.begin(), v.end(), order);
  push_heap(v.begin(), v.end(), order);
  pop_heap(v.begin(), v.end(), order);
  sort_heap(v.begin(), v.end(), order);
  inplace_merge(v.begin(), v.begin() + 1, v.end(), order);
  bool (*odd)(int) = is_odd;
  CHECK(stable_partition(v.begin(), v.end(), odd) == v.end() && partition(v.begin(), v.end(), odd) == v.end());
}

int main() {
  test_unqualified_calls();
  test_overlap<int, int *>();
  test_overlap<element, element *>();
  test_overlap<int, bidirectional_archetype<int> >();
  test_overlap<char, random_archetype<char> >();
  test_in_place<int, int *>();
  test_in_place<char, char *>();
  test_in_place<double, double *>();
  test_in_place<int, forward_archetype<int> >();
  test_in_place<int, bidirectional_archetype<int> >();
  test_in_place<int, random_archetype<int> >();
  test_bidirectional<int, int *>();
  test_bidirectional<int, bidirectional_archetype<int> >();
  test_bidirectional<int, random_archetype<int> >();
  test_copying();
  test_roads();
  test_names();
  return TEST_RESULT();
}

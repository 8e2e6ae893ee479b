// Every algorithm whose result the standard fixes, over random ranges of all sizes: through iterators that allow only
// what their category promises, and through pointers of types that go other roads; the host's library says what is
// right.
// prints: 1904 lines
#include <stdio.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "../../archetypes.h"
#include "../../random.h"

enum { room = 2400 };

// What is printed of a number: doubles by their value, strings by their length and last character.
static unsigned int hash_of(long long value) { return static_cast<unsigned int>(value * 2654435761u); }
static unsigned int hash_of(const std::string &s) {
  return static_cast<unsigned int>(s.size() * 256 + (s.empty() ? 0 : static_cast<unsigned char>(s[s.size() - 1])));
}
template <class It> static void print(It first, It last, long long result) {
  unsigned int hash = 5381;
  for (; first != last; ++first) hash = hash * 33 + hash_of(*first);
  printf(" %lld:%u", result, hash);
}
template <class T> static void print_up_to(const T *first, const T *last) { print(first, last, last - first); }
#define NOTE(value) printf(" %ld", static_cast<long>(value))
#define HASH(value) NOTE(hash_of(value))
#define PLACE(iterator) NOTE(base_of(iterator) - r.got)
// The result without and with a predicate.
#define BOTH(show, predicate, name, ...) show(std::name(__VA_ARGS__)), show(std::name(__VA_ARGS__, predicate))

template <class T> static T value_of(unsigned int n) { return static_cast<T>(n); }
template <> std::string value_of<std::string>(unsigned int n) {
  return std::string(n % 7, 'a') + static_cast<char>('a' + n % 5);
}

static unsigned int number_of(const std::string &s) { return static_cast<unsigned int>(s.size()); }
template <class T> static unsigned int number_of(const T &value) { return static_cast<unsigned int>(value); }

template <class T> static bool is_odd(const T &value) { return number_of(value) % 2 != 0; }
template <class T> static bool alike(const T &a, const T &b) { return number_of(a) % 3 == number_of(b) % 3; }
template <class T> static bool by_half(const T &a, const T &b) { return number_of(a) / 2 < number_of(b) / 2; }
template <class T> static T next_value() {
  static unsigned int n;
  return value_of<T>(++n % 100);
}
template <class T> static T added(T a, T b) { return static_cast<T>(a + b); }

template <class T> struct ranges {
  T start[room], got[room];
  unsigned int n;
  void make(unsigned int size, unsigned int kinds) {
    n = size;
    for (unsigned int i = 0; i < room; ++i) start[i] = value_of<T>(random_below(kinds));
    again();
  }
  void again() { std::copy(start, start + room, got); }
};

// ---- One pass from input to output

template <class By, class T> static void passes(ranges<T> &r) {
  const T v = r.start[r.n / 2], w = value_of<T>(5);
  const T *at, *at_2;
  T *written;
#define FIRST By::in(r.start, &at)
#define LAST By::in(r.start + r.n, &at)
#define BEGIN (at = r.start, FIRST)
#define SECOND (at_2 = r.start + 1, By::in(r.start + 1, &at_2))
#define OUT By::out(r.got, &written)
#define SHOW(call) print(r.got, r.got + r.n + 2, base_of(call) - r.got)
  const typename By::input first = BEGIN;
  SHOW(std::copy(first, LAST, OUT));
  SHOW(std::replace_copy(BEGIN, LAST, OUT, v, w));
  SHOW(std::replace_copy_if(BEGIN, LAST, OUT, is_odd<T>, w));
  SHOW(std::remove_copy(BEGIN, LAST, OUT, v));
  SHOW(std::remove_copy_if(BEGIN, LAST, OUT, is_odd<T>));
  SHOW(std::transform(BEGIN, LAST, SECOND, OUT, added<T>));
  SHOW(std::transform(BEGIN, LAST, OUT, std::bind2nd(std::plus<T>(), w)));
  SHOW(std::merge(BEGIN, LAST, SECOND, By::in(r.start + 1 + r.n / 2, &at_2), OUT));
  BOTH(SHOW, alike<T>, unique_copy, BEGIN, LAST, OUT);
  BOTH(SHOW, added<T>, partial_sum, BEGIN, LAST, OUT);
  BOTH(HASH, added<T>, accumulate, BEGIN, LAST, T());
  BOTH(NOTE, alike<T>, equal, BEGIN, LAST, SECOND);
  BOTH(NOTE, by_half<T>, lexicographical_compare, BEGIN, LAST, SECOND, By::in(r.start + 1 + r.n, &at_2));
  NOTE(std::lexicographical_compare(SECOND, By::in(r.start + 1 + r.n, &at_2), BEGIN, LAST));
  NOTE((std::find(BEGIN, LAST, v), at - r.start));
  NOTE((std::find_if(BEGIN, LAST, is_odd<T>), at - r.start));
  NOTE(std::count(BEGIN, LAST, v));
  NOTE(std::count_if(BEGIN, LAST, is_odd<T>));
  NOTE((std::mismatch(BEGIN, LAST, SECOND), at - r.start));
  NOTE((std::mismatch(BEGIN, LAST, SECOND, alike<T>), at_2 - r.start));
  printf("\n");
}
template <class T> struct by_steps {
  typedef input_archetype<T> input;
  static input in(const T *at, const T **reached) { return input(at, reached); }
  static output_archetype<T> out(T *at, T **written) { return output_archetype<T>(at, written); }
};
template <class T> struct by_pointer {
  typedef const T *input;
  static input in(const T *at, const T **) { return at; }
  static T *out(T *at, T **) { return at; }
};

// ---- In place

template <class T, class It> static void forward(ranges<T> &r) {
  const It first(r.got), last(r.got + r.n);
  const T v = r.start[r.n / 2], w = value_of<T>(3);
  const unsigned int k = r.n == 0 ? 0 : random_below(r.n + 1);
#define IN_PLACE(statement, result) r.again(), statement, print(r.got, r.got + r.n + 2, result)
#define KEPT(call) r.again(), print_up_to(r.got, base_of(call))
  IN_PLACE(std::fill(first, last, r.got[r.n / 3]), 0);
  IN_PLACE(std::fill_n(first, static_cast<signed char>(static_cast<int>(r.n % 100) - 1), w), 0);
  IN_PLACE(std::replace(first, last, v, w), 0);
  IN_PLACE(std::replace_if(first, last, is_odd<T>, w), 0);
  IN_PLACE(std::generate(first, last, next_value<T>), 0);
  IN_PLACE(std::generate_n(first, r.n / 2, next_value<T>), 0);
  KEPT(std::remove(first, last, v));
  KEPT(std::remove_if(first, last, is_odd<T>));
  BOTH(KEPT, alike<T>, unique, first, last);
  IN_PLACE(std::rotate(first, It(r.got + k), last), k);
  IN_PLACE(std::swap_ranges(first, It(r.got + r.n / 2), It(r.got + r.n / 2 + 1)), 0);
  IN_PLACE(std::iter_swap(first, It(r.got + k)), 0);
  // The order after a partition is open, where the border is not.
  r.again();
  T *const border = base_of(std::partition(first, last, is_odd<T>));
  PLACE(border), NOTE(std::count_if(r.got, border, is_odd<T>)), NOTE(std::count_if(border, r.got + r.n, is_odd<T>));
  std::sort(r.got, r.got + r.n);
  print(r.got, r.got + r.n, 0);

  // Looking, in a range with another one like it at a place.
  r.again();
  const unsigned int m = random_below(r.n < 3 ? r.n + 1 : 4);
  const unsigned int at = random_below(r.n - m + 1);
  const It other(r.got + at), other_last(r.got + at + m);
  T apart[4];
  std::copy(r.got + at, r.got + at + m, apart);
  if (r.n % 3 == 0) apart[0] = value_of<T>(99);
  BOTH(PLACE, alike<T>, search, first, last, other, other_last);
  BOTH(PLACE, alike<T>, search, first, last, apart, apart + m);
  BOTH(PLACE, alike<T>, find_end, first, last, apart, apart + m);
  BOTH(PLACE, alike<T>, find_first_of, first, last, apart, apart + m);
  BOTH(PLACE, alike<T>, adjacent_find, first, last);
  BOTH(PLACE, alike<T>, search_n, first, last, m, v);
  BOTH(PLACE, by_half<T>, min_element, first, last);
  BOTH(PLACE, by_half<T>, max_element, first, last);
  PLACE(std::find(first, last, v));

  // Ordered ranges: borders, and operations on sets in which elements are repeated.
  std::sort(r.got, r.got + r.n);
  std::sort(r.got + r.n / 2, r.got + r.n);
  for (unsigned int i = 0; i < 5; ++i) {
    const T x = i == 0 ? v : value_of<T>(i * 3);
    const std::pair<It, It> halves = std::equal_range(first, last, x, by_half<T>);
    PLACE(halves.first), PLACE(halves.second);
    BOTH(PLACE, by_half<T>, lower_bound, first, last, x);
    BOTH(PLACE, by_half<T>, upper_bound, first, last, x);
    BOTH(NOTE, by_half<T>, binary_search, first, last, x);
  }
  static T out[2 * room], rest[room];
  T *const rest_end = std::copy(r.start, r.start + r.n / 2, rest);
  std::sort(rest, rest_end);
#define SET(call) print_up_to(out, call)
  BOTH(SET, by_half<T>, set_union, first, last, rest, rest_end, out);
  BOTH(SET, by_half<T>, set_intersection, first, last, rest, rest_end, out);
  BOTH(SET, by_half<T>, set_difference, first, last, rest, rest_end, out);
  BOTH(SET, by_half<T>, set_symmetric_difference, first, last, rest, rest_end, out);
  BOTH(SET, by_half<T>, merge, first, last, rest, rest_end, out);
  BOTH(NOTE, by_half<T>, includes, first, last, rest, rest_end);
  SET(std::rotate_copy(first, It(r.got + k), last, out));
  printf("\n");
}

template <class T, class It> static void backward(ranges<T> &r) {
  const It first(r.got), last(r.got + r.n);
  const unsigned int k = r.n == 0 ? 0 : random_below(r.n + 1), shift = random_below(20);
  IN_PLACE(std::reverse(first, last), 0);
  IN_PLACE(std::reverse_copy(It(r.start), It(r.start + r.n), r.got + 1), 0);
  IN_PLACE(std::stable_partition(first, last, is_odd<T>), 0);
  IN_PLACE(std::copy(It(r.got + shift), It(r.got + shift + r.n), first), 0);
  r.again();
  const long back = base_of(std::copy_backward(first, last, It(r.got + shift + r.n))) - r.got;
  print(r.got, r.got + r.n + shift, back);
#define STEP(call) (r.again(), more = call, print(r.got, r.got + r.n, more))
  bool more;
  BOTH(STEP, by_half<T>, next_permutation, first, It(r.got + r.n % 8));
  BOTH(STEP, by_half<T>, prev_permutation, first, last);
  std::next_permutation(first, last), print(r.got, r.got + r.n, 0);
  r.again();
  std::stable_sort(r.got, r.got + k, by_half<T>);
  std::stable_sort(r.got + k, r.got + r.n, by_half<T>);
  std::inplace_merge(first, It(r.got + k), last, by_half<T>);
  print(r.got, r.got + r.n, k);
  std::sort(r.got + k, r.got + r.n);
  std::sort(r.got, r.got + k);
  std::inplace_merge(first, It(r.got + k), last);
  print(r.got, r.got + r.n, k);
  printf("\n");
}

template <class T, class It> static void random_access(ranges<T> &r) {
  const It first(r.got), last(r.got + r.n);
  const unsigned int k = random_below(r.n + 1);
  static T out[room];
#define SORT(call) IN_PLACE(call, 0)
  BOTH(SORT, std::greater<T>(), sort, first, last);
  BOTH(SORT, std::greater<T>(), stable_sort, first, last);
  SORT(std::stable_sort(first, last, by_half<T>));
  r.again();
  std::partial_sort(first, first + k, last);
  print(r.got, r.got + k, k);
  T *const end = out + k / 2 + (r.n % 3 == 0 ? r.n : 0);
  BOTH(SET, std::greater<T>(), partial_sort_copy, r.start, r.start + r.n, out, end);
  r.again();
  if (k != r.n) std::nth_element(first, first + k, last);
  const bool is_parted =
      k == r.n || *std::max_element(r.got, r.got + k + 1) == *std::min_element(r.got + k, r.got + r.n);
  print(r.got + k, r.got + k + 1, is_parted);
  // A heap's tops come in order, whatever it looks like.
  r.again();
  std::make_heap(first, first + k);
  for (unsigned int i = k; i < r.n; ++i) std::push_heap(first, first + (i + 1));
  for (unsigned int i = r.n; i > r.n / 2; --i) std::pop_heap(first, first + i), out[r.n - i] = r.got[i - 1];
  print(out, out + (r.n - r.n / 2), 0);
  std::sort_heap(first, first + r.n / 2);
  print(r.got, r.got + r.n, 0);
  printf("\n");
}

template <class T> static void by_pointers(unsigned int most) {
  static ranges<T> r;
  for (unsigned int n = 0; n <= most; n = n < 70 ? n + 1 : n + n / 3) {
    r.make(n, n % 4 == 0 ? 4 : n % 4 == 1 ? 20 : n % 4 == 2 ? 120 : 30000);
    passes<by_pointer<T> >(r);
    forward<T, T *>(r);
    backward<T, T *>(r);
    random_access<T, T *>(r);
  }
}

static void by_archetypes() {
  static ranges<int> r;
  for (unsigned int n = 0; n <= 300; n = n < 40 ? n + 1 : n + n / 3) {
    r.make(n, n % 2 == 0 ? 6 : 300);
    passes<by_steps<int> >(r);
    typedef input_archetype<int> input;
    const int *at = r.start, *at_2 = r.start + 9, *const end = at + n;
    NOTE(std::inner_product(input(at, &at), input(end, &at), input(at_2, &at_2), 7));
    int *written;
    r.again(), at = r.start;
    PLACE(std::adjacent_difference(input(at, &at), input(end, &at), output_archetype<int>(r.got, &written)));
    print(r.got, written, std::inner_product(r.got, written, r.start, 7, std::minus<int>(), added<int>));
    PLACE(std::adjacent_difference(r.got, r.got + n, r.got, std::multiplies<int>()));
    forward<int, archetype<int, std::forward_iterator_tag> >(r);
    forward<int, archetype<int, std::bidirectional_iterator_tag> >(r);
    backward<int, archetype<int, std::bidirectional_iterator_tag> >(r);
    random_access<int, archetype<int, std::random_access_iterator_tag> >(r);
  }
}

// Deques go block by block: every offset and length around the borders of blocks, between deques and arrays, within
// one, with blocks that lie side by side and others that do not.
template <class T> static void by_blocks(unsigned int size) {
  std::deque<T> start, between;
  for (unsigned int i = 0; i < size; ++i) {
    for (unsigned int k = 0; i % 70 == 0 && k < 25; ++k) between.push_back(value_of<T>(k));
    start.push_back(value_of<T>(i % 100));
  }
  static T out[room];
#define BLOCKS(result) print(d.begin(), d.end(), result)
  for (unsigned int f = 0; f < 45; f += 4)
    for (unsigned int n = 0; f + n + 50 <= size; n = n < 45 ? n + 1 + f % 3 : n + 37) {
      typedef typename std::deque<T>::iterator iterator;
      std::deque<T> d(start), other(between.begin(), between.end());
      const iterator first = d.begin() + f, last = first + n;
      other.insert(other.end(), d.begin(), d.end());
      T *const end = std::copy(first, last, out);
      print(out, end, end - out);
      BLOCKS(std::copy(out, end, d.begin() + 3) - d.begin());
      BLOCKS(std::copy_backward(out, end, d.end()) - d.begin());
      BLOCKS(std::copy(other.begin() + f, other.begin() + f + n, d.begin() + 9) - d.begin());
      BLOCKS(std::copy_backward(other.begin() + f, other.begin() + f + n, d.end() - 7) - d.begin());
      BLOCKS(std::copy(first, last, d.begin() + f / 2) - d.begin());
      BLOCKS(std::copy_backward(first, last, first + n + 13) - d.begin());
      std::fill_n(d.begin() + n, f, value_of<T>(4));
      std::fill(first + n / 3, last, value_of<T>(3));
      BLOCKS(std::find(first, last, value_of<T>(3)) - d.begin());
      d[f + n] = value_of<T>(6);
      NOTE(std::find(first, d.end(), value_of<T>(6)) - first);
      NOTE(std::find(start.begin() + f, start.begin() + f + n, value_of<T>(99)) - start.begin());
      BOTH(HASH, std::plus<T>(), accumulate, first, last + 1, T());
      NOTE(std::equal(first, last, start.begin() + f));
      std::rotate(d.begin(), first, d.end());
      BLOCKS(0);
      std::stable_sort(d.begin() + n / 2, d.end());
      BLOCKS(std::unique(d.begin(), d.end()) - d.begin());
      printf("\n");
    }
}

int main() {
  by_archetypes();
  by_pointers<int>(1300);
  by_pointers<signed char>(700);
  by_pointers<std::string>(100);
  by_blocks<int>(300);
  by_blocks<std::string>(131);
  return 0;
}

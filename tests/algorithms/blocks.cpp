// Algorithms over deques, which go block by block: every offset and length around the borders of blocks, between deques
// and arrays, within one deque, and with elements that are not plain. A vector goes the plain road beside it.
// test-variants: -O0 | -O2 | -O2 -std=gnu++17
#include <algorithm>
#include <deque>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "harness.h"

template <class T> static T value_of(int i);
template <> int value_of<int>(int i) { return i; }
template <> std::string value_of<std::string>(int i) { return std::string(static_cast<std::size_t>(i % 7), 'a') + "b"; }

// Some blocks of which lie side by side and some do not: others are taken from the same pool in between.
template <class T> static std::deque<T> scattered(int n, std::deque<T> &between) {
  std::deque<T> made;
  for (int i = 0; i < n; ++i) {
    if (i % 70 == 0)
      for (int k = 0; k < 25; ++k) between.push_back(value_of<T>(k));
    made.push_back(value_of<T>(i));
  }
  return made.size() % 2 ? made : std::deque<T>(made);
}

template <class T> static bool same(const std::deque<T> &a, const std::vector<T> &b) {
  if (a.size() != b.size()) return false;
  for (typename std::deque<T>::size_type i = 0; i < a.size(); ++i)
    if (!(a[i] == b[i])) return false;
  return true;
}

template <class T> static void test_roads(int size) {
  std::deque<T> between;
  const std::deque<T> start = scattered<T>(size, between);
  const std::vector<T> plain(start.begin(), start.end());
  CHECK(same(start, plain));
  for (int first = 0; first < 45; first += 4)
    for (int n = 0; first + n <= size - 50; n = n < 45 ? n + 1 + first % 3 : n + 37) {
      std::deque<T> blocks(start);
      std::vector<T> want(plain);
      // To an array and back, and between deques.
      std::vector<T> out(static_cast<std::size_t>(n + 1), T());
      CHECK(std::copy(start.begin() + first, start.begin() + first + n, out.begin()) == out.begin() + n);
      CHECK(std::equal(out.begin(), out.begin() + n, plain.begin() + first) && out.back() == T());
      CHECK(std::copy(plain.begin() + first, plain.begin() + first + n, blocks.begin() + 3) == blocks.begin() + 3 + n);
      std::copy(plain.begin() + first, plain.begin() + first + n, want.begin() + 3);
      CHECK(same(blocks, want));
      CHECK(std::copy_backward(plain.begin() + first, plain.begin() + first + n, blocks.end()) == blocks.end() - n);
      std::copy_backward(plain.begin() + first, plain.begin() + first + n, want.end());
      CHECK(same(blocks, want));
      CHECK(std::copy(start.begin() + first, start.begin() + first + n, blocks.begin() + 9) == blocks.begin() + 9 + n);
      std::copy(plain.begin() + first, plain.begin() + first + n, want.begin() + 9);
      CHECK(same(blocks, want));
      // Within one deque, in the direction that is allowed.
      std::copy(blocks.begin() + first, blocks.begin() + first + n, blocks.begin() + first / 2);
      std::copy(want.begin() + first, want.begin() + first + n, want.begin() + first / 2);
      CHECK(same(blocks, want));
      std::copy_backward(blocks.begin() + first, blocks.begin() + first + n, blocks.begin() + first + n + 13);
      std::copy_backward(want.begin() + first, want.begin() + first + n, want.begin() + first + n + 13);
      CHECK(same(blocks, want));
      std::fill(blocks.begin() + first, blocks.begin() + first + n, value_of<T>(3));
      std::fill(want.begin() + first, want.begin() + first + n, value_of<T>(3));
      std::fill_n(blocks.begin() + n, first, value_of<T>(4));
      std::fill_n(want.begin() + n, first, value_of<T>(4));
      CHECK(same(blocks, want));
      CHECK(std::accumulate(blocks.begin() + first, blocks.begin() + first + n, T()) ==
            std::accumulate(want.begin() + first, want.begin() + first + n, T()));
      CHECK(std::accumulate(blocks.begin(), blocks.begin() + n, T(), std::plus<T>()) ==
            std::accumulate(want.begin(), want.begin() + n, T()));
      blocks[static_cast<unsigned>(first + n)] = value_of<T>(6);
      want[static_cast<unsigned>(first + n)] = value_of<T>(6);
      CHECK(std::find(blocks.begin() + first, blocks.end(), value_of<T>(6)) - blocks.begin() ==
            std::find(want.begin() + first, want.end(), value_of<T>(6)) - want.begin());
      CHECK(std::find(start.begin() + first, start.begin() + first + n, T()) - start.begin() ==
            std::find(plain.begin() + first, plain.begin() + first + n, T()) - plain.begin());
    }
}

static void test_whole_algorithms() {
  std::deque<int> numbers;
  for (int i = 0; i < 1000; ++i) {
    numbers.push_back(i * 7919 % 1009);
    numbers.push_front(i * 104729 % 997);
  }
  std::vector<int> want(numbers.begin(), numbers.end());
  std::stable_sort(numbers.begin(), numbers.end());
  std::sort(want.begin(), want.end());
  CHECK(same(numbers, want));
  std::rotate(numbers.begin(), numbers.begin() + 333, numbers.end());
  std::rotate(want.begin(), want.begin() + 333, want.end());
  CHECK(same(numbers, want));
  std::sort(numbers.begin(), numbers.end(), std::greater<int>());
  CHECK(numbers.front() == *std::max_element(want.begin(), want.end()) && numbers.back() == 0);
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  CHECK(numbers.size() <= 1009);
}

int main() {
  test_roads<int>(300);
  test_roads<std::string>(131);
  test_whole_algorithms();
  return TEST_RESULT();
}

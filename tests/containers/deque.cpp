// test-variants: -O0 | -O2 | -O2 -std=gnu++20
// deque: random runs against an array at both ends and in the middle, with the map checked after each step; the places of
// the first elements; use as a queue; limits.
// test-peer: gnu++98

#include <stdexcept>

#include "containers/sequence_check.h"

template <class T> static void ends(int steps) {
  typedef made_of<T> made;
  std::deque<T> d;
  model m;
  m.n = 0;
  for (int i = 0; i < steps && test_failures < 10; ++i) {
    // Tides: now it grows mostly at one end, then at the other.
    const unsigned int tide = static_cast<unsigned int>(i / 150) % 4, kind = random_below(8);
    const int number = static_cast<int>(random_below(100)) + 1;
    const bool back = kind < 6 ? tide % 2 == 0 : kind == 6;
    const bool growing = m.n == 0 || (m.n < 900 && random_below(100) < (tide < 2 ? 75u : 30u));
    if (growing && back) d.push_back(made::make(number)), m.insert(m.n, 1, number);
    if (growing && !back) d.push_front(made::make(number)), m.insert(0, 1, number);
    if (!growing && back) d.pop_back(), --m.n;
    if (!growing && !back) d.pop_front(), m.erase(0, 1);
    CHECK(same(d, m));
  }
}

static void first_places() {
#if defined(PLX_CONFIG_H)
  std::deque<int> d;
  for (int i = 0; i < 21; ++i) d.push_back(i);
  std::deque<int>::iterator first = d.begin(), end = d.end();
  CHECK_INT(first._cur - *first._node, 10);
  CHECK_INT((&d[20] - *end._node), 10);
  CHECK_INT(end._node - first._node, 1);
  std::deque<char> at_front;
  for (int i = 0; i < 11; ++i) at_front.push_front(static_cast<char>(i));
  CHECK_INT(at_front.begin()._cur - *at_front.begin()._node, 19);
  CHECK_INT(at_front.end()._node - at_front.begin()._node, 1);
#endif
  // References survive what happens at the ends, until their element goes.
  std::deque<std::string> s(1, "kept");
  const std::string *kept = &s[0];
  for (int i = 0; i < 1000; ++i) s.push_front("a"), s.push_back("b");
  CHECK(kept == &s[1000] && *kept == "kept");
  for (int i = 0; i < 1000; ++i) s.pop_front(), s.pop_back();
  CHECK(kept == &s.front());
}

static void as_queue() {
  std::deque<int> d;
  int next = 0, wanted = 0;
  for (int i = 0; i < 100000; ++i) {
    d.push_back(next++);
    if (d.size() > static_cast<unsigned int>(i % 97)) {
      if (d.front() != wanted) CHECK_INT(d.front(), wanted);
      d.pop_front();
      ++wanted;
    }
  }
  while (!d.empty()) {
    if (d.front() != wanted) CHECK_INT(d.front(), wanted);
    d.pop_front();
    ++wanted;
  }
  CHECK_INT(wanted, next);
}

static void limits() {
  std::deque<int> d(3, 1);
  int caught = 0;
  try {
    d.at(3) = 1;
  } catch (const std::out_of_range &) {
    ++caught;
  }
  try {
    d.insert(d.begin() + 1, 0x40000001u, 7);
  } catch (const std::length_error &) {
    ++caught;
  }
  try {
    d.resize(0xFFFFFFFFu);
  } catch (const std::length_error &) {
    ++caught;
  }
  try {
    std::deque<std::string> s(0xFFFFFFFFu, std::string());
  } catch (const std::length_error &) {
    ++caught;
  }
  CHECK_INT(caught, 4);
  CHECK(d.size() == 3 && d.at(2) == 1);

  const std::deque<int> none;
  CHECK(none.empty() && none.size() == 0 && none.begin() == none.end() && none.end() - none.begin() == 0);
  std::deque<int> copy(none), other(5, 2);
  copy = none;
  copy.swap(other);
  CHECK(other.empty() && copy.size() == 5);
  other.clear();
  other.erase(other.begin(), other.end());
  other.insert(other.end(), copy.begin(), copy.end());
  CHECK(other == copy);
}

struct large {
  int number;
  char rest[3000];
};
struct aligned {
  int number;
} __attribute__((__aligned__(16)));

// Blocks that the pool does not serve.
template <class T> static void other_blocks() {
  std::deque<T> d;
  for (int i = 0; i < 100; ++i) {
    T one = T();
    one.number = i;
    d.push_back(one);
    d.push_front(one);
  }
  for (unsigned int i = 0; i < 100; ++i) {
    CHECK_INT(d[i].number, 99 - i);
    CHECK(reinterpret_cast<unsigned int>(&d[i]) % __alignof__(T) == 0);
  }
}

int main() {
  random_run<std::deque<int> >(4000);
  random_run<std::deque<char> >(2000);
  random_run<std::deque<std::string> >(3000);
  random_run<std::deque<tracked> >(4000);
  ends<int>(4000);
  ends<tracked>(3000);
  CHECK_INT(tracked::live, 0);
  first_places();
  as_queue();
  limits();
  other_blocks<large>();
  other_blocks<aligned>();
#if __cplusplus >= 201103L
  std::deque<int> list{3, 4};
  for (int &each : list) each *= 2;
  std::deque<int> moved(static_cast<std::deque<int> &&>(list));
  CHECK(moved.size() == 2 && moved[1] == 8);
#endif
  return TEST_RESULT();
}

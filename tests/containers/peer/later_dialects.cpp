// Containers as later dialects have them, in random runs of elements that can only be moved, printed and compared with
// the host's library.
// test-variants: -std=gnu++11 | -O2 -std=gnu++20
// prints: 19050 lines
#include <algorithm>
#include <deque>
#include <list>
#include <map>
#include <queue>
#include <set>
#include <stack>
#include <string>
#include <vector>

#include "harness.h"
#include "random.h"

namespace {

// Owns a number in memory of its own, and knows its place: nobody may move it as bytes.
class only_moved {
public:
  only_moved() : only_moved(0) {}
  explicit only_moved(int n) : number_(new int(n)), self_(this) { ++living; }
  only_moved(only_moved &&from) : number_(from.number_), self_(this) {
    from.number_ = nullptr;
    ++living;
  }
  only_moved &operator=(only_moved &&from) {
    std::swap(number_, from.number_);
    return *this;
  }
  ~only_moved() {
    CHECK(self_ == this);
    delete number_;
    --living;
  }
  int value() const { return self_ == this && number_ ? *number_ : -1; }
  bool operator<(const only_moved &other) const { return value() < other.value(); }
  static int living;

private:
  int *number_;
  only_moved *self_;
};
int only_moved::living;

int number_of(long n) { return static_cast<int>(n); }
int number_of(const only_moved &n) { return n.value(); }
template <class K, class T> int number_of(const std::pair<K, T> &both) {
  return number_of(both.first) * 31 + number_of(both.second);
}
int below(int n) { return static_cast<int>(random_below(static_cast<unsigned>(n))); }

template <class Iterator> Iterator moved_on(Iterator at, int n) {
  std::advance(at, n);
  return at;
}
// Looks where it is after the operation that gave it: arguments may be evaluated in any order.
template <class C> int index_of(C &c, typename C::iterator at) {
  return static_cast<int>(std::distance(c.begin(), at));
}

template <class C> void print(const C &c, int result) {
  unsigned hash = static_cast<unsigned>(c.size());
  for (const auto &each : c) hash = hash * 33 + static_cast<unsigned>(number_of(each));
  if (!c.empty()) hash = hash * 31 + static_cast<unsigned>(number_of(*c.crbegin()) * 7 + number_of(*c.cbegin()));
  printf("%d %u: %u\n", result, unsigned(c.size()), hash);
}

template <class T> void push_front(std::vector<T> &to, int n) { to.emplace(to.cbegin(), n); }
template <class Sequence> void push_front(Sequence &to, int n) {
  n % 2 ? to.push_front(typename Sequence::value_type(n)) : (void)to.emplace_front(n);
}
template <class Sequence> void shrink(Sequence &s) { s.shrink_to_fit(); }
template <class T> void shrink(std::list<T> &l) {
  l.sort(), l.merge(std::list<T>()), l.splice(l.cend(), std::list<T>());
}

template <class Sequence> void random_sequence() {
  typedef typename Sequence::value_type element;
  Sequence s;
  for (int step = 0; step < 3000; ++step) {
    const int size = static_cast<int>(s.size()), at = below(size + 1), n = 1 + below(1000);
    const auto place = moved_on(s.cbegin(), at);
    int result = 0;
    switch (random_below(13)) {
      case 0: s.push_back(element(n)); break;
      case 1: s.emplace_back(n); break;
      case 2: push_front(s, n); break;
      case 3:
      case 4: result = number_of(*s.insert(place, element(n))); break;
      case 5: result = number_of(*s.emplace(place, n)); break;
      case 6:
        if (at != size) result = index_of(s, s.erase(place));
        break;
      case 7: result = index_of(s, s.erase(place, moved_on(place, below(size - at + 1) / 2))); break;
      case 8: s.resize(size + at % 5); break;
      case 9: s.resize(size - at / 8); break;
      case 10: {
        Sequence other(std::move(s)), third(3);
        result = s.empty();
        third = std::move(other);
        s.swap(third);
        break;
      }
      case 11: shrink(s); break;
      default:
        if (size > 300) s.clear();
    }
    print(s, result);
  }
}

// What was moved from is empty, and as good as new.
template <class C> int moved_away(C &c, int n) {
  C other(std::move(c)), third;
  const int empty = c.empty() + 2 * (c.begin() == c.end()) + 4 * (c.size() == 0);
  if (n % 2) c.emplace(n, n);
  third.emplace(1, 2);
  third = std::move(c);
  c = std::move(other);
  return empty + 8 * static_cast<int>(third.size()) + 64 * (other.begin() == other.end());
}
// Equal keys are told apart by their values.
template <class C> int placed(C &c, typename C::iterator at) { return index_of(c, at); }
template <class C, class I> int placed(C &c, const std::pair<I, bool> &at) {
  return index_of(c, at.first) * 2 + at.second;
}
int indexed(std::map<int, only_moved> &map, int key, int value) {
  const int had = map.count(key) ? map.at(key).value() : -2;
  map[key] = only_moved(value);
  return had;
}
template <class C> int indexed(C &, int, int) { return 0; }

template <class C> void random_order() {
  typedef typename C::key_type key_type;
  typedef typename C::mapped_type value_type;
  C c;
  for (int step = 0; step < 2000; ++step) {
    const int n = below(100), size = static_cast<int>(c.size()), at = below(size + 1);
    const key_type key(n);
    int result = 0;
    switch (random_below(10)) {
      case 0: result = placed(c, c.emplace(n, step)); break;
      case 1: result = placed(c, c.insert(std::make_pair(key_type(n), value_type(step)))); break;
      case 2:
      case 3: result = placed(c, c.emplace_hint(c.cend(), n, step)); break;
      case 4: result = indexed(c, n, step); break;
      case 5: result = moved_away(c, n); break;
      case 6: result = index_of(c, c.lower_bound(key)) + 999 * static_cast<int>(c.count(key)); break;
      case 7: result = static_cast<int>(c.erase(key)); break;
      case 8:
        if (at != size) result = index_of(c, c.erase(moved_on(c.cbegin(), at)));
        break;
      default:
        if (size > 150) result = index_of(c, c.erase(moved_on(c.cbegin(), at / 2), moved_on(c.cbegin(), at)));
    }
    print(c, result);
  }
}

void adaptors() {
  struct fixed {
    fixed() : n(3) {}
    fixed(const fixed &) = delete;
    int n;
  };
  std::map<int, fixed> made_in_place;
  CHECK_INT(made_in_place[1].n, 3);
  std::map<int, only_moved> map;
  CHECK(map.insert(std::pair<const int, only_moved>(1, only_moved(2))).second && map.at(1).value() == 2);
  std::set<only_moved> set;
  CHECK(set.insert(only_moved(3)).second && !set.emplace(3).second && set.erase(set.cbegin()) == set.end());
  set = std::set<only_moved>();
  std::stack<only_moved> stack;
  std::queue<only_moved> queue;
  std::priority_queue<only_moved> heap;
  for (int i = 0; i < 50; ++i) {
    stack.push(only_moved(i)), stack.emplace(i + 1), stack.pop();
    queue.push(only_moved(i)), queue.emplace(i + 1), queue.pop();
    heap.push(only_moved(i * 7 % 50)), heap.emplace(i * 3 % 50);
    if (i % 3 == 0) heap.pop();
    printf("%d %d %d\n", stack.top().value(), queue.front().value(), heap.top().value());
  }
}

}  // namespace

int main() {
  random_sequence<std::vector<only_moved> >(), random_sequence<std::deque<only_moved> >();
  random_sequence<std::list<only_moved> >(), random_sequence<std::vector<long> >(), random_sequence<std::deque<int> >();
  random_order<std::map<int, only_moved> >(), random_order<std::multimap<only_moved, int> >();
  adaptors();
  CHECK_INT(only_moved::living, 0);
  return test_failures != 0;
}

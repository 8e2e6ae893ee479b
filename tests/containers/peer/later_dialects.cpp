// Containers as later dialects have them, in random runs of elements that can only be moved, printed and compared with
// the host's library.
// test-variants: -std=gnu++11 | -O2 -std=gnu++20
// prints: 15050 lines
#include "../sequence_operations.h"

#include <map>
#include <queue>
#include <set>
#include <stack>

// What it was moved from is worth nothing any more.
struct only_moved : tracked {
  explicit only_moved(int n = 0) : tracked(n) {}
  only_moved(only_moved &&from) : tracked(int(from)) { from.key = -1; }
  only_moved &operator=(only_moved &&from) {
    check();
    key = int(from);
    if (&from != this) from.key = -1;
    return *this;
  }
  explicit operator int() const { return check(), key; }
};

static int below(int n) { return static_cast<int>(random_below(static_cast<unsigned>(n))); }

template <class T> static void add_in_front(std::vector<T> &to, int n) { to.emplace(to.cbegin(), n); }
template <class S> static void add_in_front(S &to, int n) {
  n % 2 ? to.push_front(typename S::value_type(n)) : (void)to.emplace_front(n);
}
template <class S> static void shrink(S &s) { s.shrink_to_fit(); }
template <class T> static void shrink(std::list<T> &l) {
  l.sort(), l.merge(std::list<T>()), l.splice(l.cend(), std::list<T>());
}

template <class S> static void random_sequence() {
  typedef typename S::value_type element;
  S s;
  const S &view = s;
  for (int step = 0; step < 3000; ++step) {
    const int size = size_of(s), at = below(size + 1), n = 1 + below(1000);
    const auto here = place(view, at);
    int result = 0;
    switch (random_below(13)) {
      case 0: s.push_back(element(n)); break;
      case 1: s.emplace_back(n); break;
      case 2: add_in_front(s, n); break;
      case 3:
      case 4: result = int(*s.insert(here, element(n))); break;
      case 5: result = int(*s.emplace(here, n)); break;
      case 6: result = at == size ? 0 : index_of(s, s.erase(here)); break;
      case 7: result = index_of(s, s.erase(here, place(view, at + below(size - at + 1) / 2))); break;
      case 8: s.resize(size + at % 5); break;
      case 9: s.resize(size - at / 8); break;
      case 10: {
        S other(std::move(s)), third(3);
        result = s.empty();
        third = std::move(other);
        s.swap(third);
        break;
      }
      case 11: shrink(s); break;
      default:
        if (size > 300) s.clear();
    }
    printf("%d %d: %u\n", result, size_of(s), hash_of(s));
  }
}

static void others() {
  std::map<int, only_moved> map;
  CHECK(map.insert(std::pair<const int, only_moved>(1, only_moved(2))).second && int(map.at(1)) == 2);
  map[1] = only_moved(7);
  map.emplace(3, 4), map.emplace_hint(map.cend(), 5, 6);
  std::map<int, only_moved> moved(std::move(map));
  map = std::move(moved);
  CHECK(int(map.at(1)) == 7 && int(map[9]) == 0 && int(map[3]) == 4 && int(map[5]) == 6 && map.size() == 4);
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
    printf("%d %d %d\n", int(stack.top()), int(queue.front()), int(heap.top()));
  }
}

int main() {
  random_sequence<std::vector<only_moved> >(), random_sequence<std::deque<only_moved> >();
  random_sequence<std::list<only_moved> >(), random_sequence<std::vector<long> >(), random_sequence<std::deque<int> >();
  others();
  CHECK_INT(tracked::live, 0);
  return test_failures != 0;
}

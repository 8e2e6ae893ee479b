// vector, also of bits, deque, the adaptors that stand over it, and list: random runs of every operation, nodes that
// move between two lists and within them, and sorts of every length around a run, also without memory for it; elements
// that can only be moved, and what else later dialects have; printed and compared with the host's library. Each kind in
// the old dialect or in the later ones, strings in a vector in all.
// prints: 47109 lines
// test-variants: -O1 | -O2 -std=gnu++20 | -O0 -std=gnu++11
#include "../sequence_operations.h"

#include <functional>
#include <map>
#include <queue>
#include <set>
#include <stack>

template class std::stack<std::string>;
template class std::queue<std::string>;
template class std::priority_queue<std::string>;

#if __cplusplus < 201103L
// What stays is where it was, at whichever end something comes or goes.
static void ends() {
  const int more[] = {7, 8, 9};
  for (unsigned int size = 1; size < 45; ++size)
    for (int n = 0; n < static_cast<int>(size); ++n) {
      std::deque<int> d(size, 1), e(size, 1);
      const int *const last = &d.back(), *const first = &e.front();
      d.erase(d.begin(), d.begin() + n), d.insert(d.begin(), more, more + 3);
      e.erase(e.end() - n, e.end()), e.insert(e.end(), more, more + 3);
      for (int i = 0; i < n; ++i) d.push_front(i), e.push_back(i);
      for (int i = 0; i < n; ++i) d.pop_front(), e.pop_back();
      CHECK(last == &d.back() && first == &e.front() && d[2] == 9 && e[e.size() - 3] == 7);
    }
}

template <class A> static int compared(const A &a, const A &b) {
  return (a == b) + 2 * (a != b) + 4 * (a < b) + 8 * (a > b) + 16 * (a <= b) + 32 * (a >= b);
}
template <class Stack, class Queue, class Heap, class Before> static void adaptors() {
  int numbers[40];
  for (int i = 0; i < 40; ++i) numbers[i] = static_cast<int>(random_below(1000));
  Stack s, s_copy;
  Queue q, q_copy;
  Heap h(numbers, numbers + 40), h_copy((Before()), typename Heap::container_type(numbers, numbers + 40));
  for (int i = 0; i < 2000; ++i) {
    const int value = static_cast<int>(random_below(100));
    const bool push = s.empty() || random_below(2);
    push ? (s.push(value), q.push(value), h.push(value), h_copy.push(value))
         : (s.pop(), q.pop(), h.pop(), h_copy.pop());
    printf("adaptors %d: %d %d %d %d%d", i, size_of(s), size_of(q), size_of(h), s.empty(), h.empty());
    if (!s.empty()) printf(" %d %d %d %d %d", s.top(), q.front(), q.back(), h.top(), h_copy.top());
    if (i % 50 == 0 && !s.empty()) s_copy = s, q_copy = q, ++s.top(), ++q.front(), ++q.back();
    printf(" %d %d\n", compared(s, s_copy), compared(q, q_copy));
  }
}

#else
static int below(int n) { return static_cast<int>(random_below(static_cast<unsigned>(n))); }

// Bits by iterators, in jumps over words, and by references.
static void bits() {
  for (int i = 0; i < 2000; ++i) {
    std::vector<bool> b(random_below(150) + 1);
    const int n = size_of(b), k = below(n), m = below(n);
    for (int j = 0; j < n; ++j) b[static_cast<unsigned int>(j)] = random_below(3) == 0;
    std::vector<bool>::iterator at = b.begin() + k;
    const bool ordered =
        (at < b.begin() + m) == (k < m) && (at += m - k) - b.begin() == m && at - (m - k) - k == b.begin();
    *at = b[static_cast<unsigned int>(k)];
    b[static_cast<unsigned int>(k)].flip();
    std::vector<bool>::swap(b[0], b[static_cast<unsigned int>(m)]);
    if (i % 2) b.flip();
    printf("bits %d: %d %u\n", i, ordered, hash_of(b));
  }
}

static bool has_scratch;
#ifdef PLX_CONFIG_H
namespace __zor {
void *_take_scratch(size_t bytes) PLX_NOTHROW { return has_scratch ? malloc(bytes) : 0; }
void _give_scratch(void *block) PLX_NOTHROW { free(block); }
}  // namespace __zor
#endif

static bool odd(const tracked &e) { return e.key % 2 != 0; }
static bool near(const tracked &a, const tracked &b) { return b.key - a.key < 2 && a.key - b.key < 2; }
static bool greater(const tracked &a, const tracked &b) { return b < a; }

// Equal keys are told apart by their ranks.
static void moving_nodes() {
  std::list<tracked> both[2];
  for (int i = 0; i < 12000; ++i) {
    const unsigned int which = random_below(2), kind = random_below(13);
    has_scratch = random_below(2);
    std::list<tracked> &a = both[which], &b = random_below(3) ? both[1 - which] : a;
    const int to = below(size_of(a) + 1), n = size_of(b), first = below(n + 1), last = first + below(n - first + 1);
    const tracked key(below(8), i % 1000);
    switch (kind) {
      case 0: a.push_front(key); break;
      case 1:
        if (&a != &b) a.splice(place(a, to), b);
        break;
      case 2:
        if (first != n) a.splice(place(a, to), b, place(b, first));
        break;
      case 3:
        if (&a != &b || to < first || to >= last) a.splice(place(a, to), b, place(b, first), place(b, last));
        break;
      case 4:  // the value is one of those that go
        if (!a.empty()) a.remove(*place(a, to == size_of(a) ? 0 : to));
        break;
      case 5: a.remove_if(odd); break;
      case 6: a.unique(); break;
      case 7: a.unique(near); break;
      case 8: a.reverse(); break;
      case 9:
      case 10:
        kind == 9 ? a.sort() : a.sort(greater);
        if (&a == &b) break;
        kind == 9 ? b.sort() : b.sort(greater);
        kind == 9 ? a.merge(b) : a.merge(b, greater);
        break;
      case 11: a.swap(b); break;
      default: a.push_back(key);
    }
    while (both[0].size() + both[1].size() > 350) (a.empty() ? b : a).pop_back();
    printf("%d, %u: %u of %u, %u of %u\n", i, kind, unsigned(both[0].size()), hash_of(both[0]),
           unsigned(both[1].size()), hash_of(both[1]));
  }
}

// Runs, keys that travel beside the nodes, and strings with common beginnings.
static void sorting() {
  for (unsigned int n = 0; n < 2500; n = n < 40 ? n + 1 : n * 5 / 4) {
    std::list<tracked> elements;
    std::list<int> numbers;
    std::list<std::string> texts;
    for (unsigned int i = 0; i < n; ++i) {
      const unsigned int key = random_below(n / 3 + 1);
      elements.push_back(tracked(static_cast<int>(key), static_cast<int>(i)));
      numbers.push_back(static_cast<int>(key * 2654435761u));
      texts.push_back(std::string(random_below(6), static_cast<char>(key * 37)) + static_cast<char>(key));
    }
    has_scratch = n % 2;
    elements.sort(), texts.sort(), numbers.sort();
    printf("%u: %u %u %u", n, hash_of(elements), hash_of(texts), hash_of(numbers));
    has_scratch = !has_scratch;
    texts.sort(std::greater<std::string>()), numbers.sort(std::greater<int>());
    printf(" %u %u\n", hash_of(texts), hash_of(numbers));
  }
}

// ---- Elements that can only be moved, and what later dialects have

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

#endif

int main() {
  random_run<std::vector<std::string> >("texts", 3000);
#if __cplusplus < 201103L
  random_run<std::vector<int> >("numbers", 20109), random_run<std::vector<bool> >("bits", 8000);
  random_run<std::deque<int> >("numbers", 4000), random_run<std::deque<std::string> >("texts", 3000);
  random_run<std::deque<tracked> >("elements", 5000);
  ends();
  adaptors<std::stack<int>, std::queue<int>, std::priority_queue<int>, std::less<int> >();
  adaptors<std::stack<int, std::vector<int> >, std::queue<int, std::list<int> >,
           std::priority_queue<int, std::deque<int>, std::greater<int> >, std::greater<int> >();
#else
  random_run<std::vector<tracked> >("elements", 5000), random_run<std::list<tracked> >("elements", 4000);
  random_run<std::list<int> >("numbers", 4000), random_run<std::list<std::string> >("texts", 2000);
  bits();
  moving_nodes();
  sorting();
  random_sequence<std::vector<only_moved> >(), random_sequence<std::deque<only_moved> >();
  random_sequence<std::list<only_moved> >(), random_sequence<std::vector<long> >(), random_sequence<std::deque<int> >();
  others();
#endif
  CHECK_INT(tracked::live, 0);
  return test_failures != 0;
}

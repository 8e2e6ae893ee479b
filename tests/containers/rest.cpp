// Ordered containers: hints that save comparisons, allocators with a state, erasing that returns what follows, classes
// that hold containers of themselves. The adaptors over their sequences, and the random generator against its
// recurrence.
// test-variants: -O1 | -O2 -std=gnu++20
#include <deque>
#include <functional>
#include <list>
#include <map>
#include <queue>
#include <set>
#include <stack>
#include <string>
#include <vector>

#include <plx/base/random_generator.h>

#include "random.h"
#include "tracked.h"

template class std::stack<std::string>;
template class std::queue<std::string>;
template class std::priority_queue<std::string>;

// Right beside the hint two or three comparisons are enough, whatever the size; a wrong hint still finds the place.
static void hints() {
  std::map<tracked, int> map;
  std::multimap<tracked, int> many;
  for (int i = 0; i < 1000; ++i) {
    map.insert(map.end(), std::make_pair(tracked(2 * i), i));
    many.insert(many.end(), std::make_pair(tracked(i / 100), i));
  }
  for (int i = 0; i < 1000; i += 2) {
    const std::map<tracked, int>::iterator behind = map.lower_bound(tracked(2 * i + 2)),
                                           before = map.find(tracked(2 * i));
    const std::pair<const tracked, int> odd(tracked(2 * i + 1), -1);
    tracked::comparisons = 0;
    CHECK(map.insert(i % 4 ? before : behind, odd)->first.key == 2 * i + 1 && tracked::comparisons <= 4);
    const std::pair<const tracked, int> there(tracked(2 * i), -1);
    CHECK(map.insert(i % 8 ? behind : map.begin(), there)->second == i && map.insert(map.end(), there)->second == i);
  }
  CHECK_INT(map.size(), 1500);
  // As near to the hint as the order allows.
  const std::pair<const tracked, int> five(tracked(5), -5);
  std::multimap<tracked, int>::iterator middle = many.lower_bound(tracked(5));
  std::advance(middle, 50);
  tracked::comparisons = 0;
  std::multimap<tracked, int>::iterator put = many.insert(middle, five);
  CHECK(tracked::comparisons <= 4 && ++put == middle);
  put = many.insert(many.begin(), five);
  CHECK(put == many.lower_bound(tracked(5)));
  put = many.insert(many.end(), five);
  CHECK(++put == many.upper_bound(tracked(5)));
}

// An allocator of 1998, with a state: containers ask it for everything, and nothing else.
struct account {
  int blocks, values;
};
template <class T> struct counted : std::allocator<T> {
  template <class U> struct rebind { typedef counted<U> other; };
  explicit counted(account *to) : books(to) {}
  template <class U> counted(const counted<U> &other) : books(other.books) {}
  T *allocate(std::size_t n, const void * = 0) {
    ++books->blocks;
    return static_cast<T *>(malloc(n * sizeof(T)));
  }
  void deallocate(T *block, std::size_t) {
    --books->blocks;
    free(block);
  }
  void construct(T *place, const T &value) {
    ++books->values;
    ::new (static_cast<void *>(place)) T(value);
  }
  void destroy(T *object) {
    --books->values;
    object->~T();
  }
  account *books;
};
static void allocators() {
  account books = {0, 0}, others = {0, 0};
  {
    typedef std::multimap<int, std::string, std::less<int>, counted<std::pair<const int, std::string> > > counted_map;
    counted_map map((std::less<int>()), counted<int>(&books)), assigned((std::less<int>()), counted<int>(&others));
    for (int i = 0; i < 8; ++i) map.insert(counted_map::value_type(i / 2, "text"));
    CHECK(books.values == 8 && books.blocks == 9);
    counted_map copy(map);
    copy.erase(1);
    CHECK(books.values == 14 && copy.get_allocator().books == &books);
    assigned = copy;  // each container keeps to its own
    CHECK(others.values == 6 && assigned == copy);
    copy.clear();
    CHECK_INT(books.values, 8);
  }
  CHECK(books.blocks == 0 && books.values == 0 && others.blocks == 0 && others.values == 0);
}

struct folder {
  explicit folder(int n = 0) : size(n) {}
  int size;
  std::vector<folder> in_vector;
  std::list<folder> in_list;
  std::deque<folder> in_deque;
  std::map<std::string, folder> in_map;
  std::map<std::string, folder>::iterator chosen;
  int total() const {
    int sum = size;
    for (unsigned i = 0; i < in_vector.size(); ++i) sum += in_vector[i].total();
    for (std::list<folder>::const_iterator i = in_list.begin(); i != in_list.end(); ++i) sum += i->total();
    for (unsigned i = 0; i < in_deque.size(); ++i) sum += in_deque[i].total();
    for (std::map<std::string, folder>::const_iterator i = in_map.begin(); i != in_map.end(); ++i)
      sum += i->second.total();
    return sum;
  }
};
static bool is_constant(const int *) { return true; }
static bool is_constant(int *) { return false; }
static void recursive() {
  folder root(1);
  for (int i = 0; i < 20; ++i) {
    root.in_vector.push_back(folder(10));
    root.in_vector.back().in_list.push_back(folder(100));
    root.in_vector.back().in_list.front().in_deque.push_back(folder(1000));
    root.in_vector.back().in_list.front().in_deque.front().in_map["a"].in_vector.push_back(folder(10000));
  }
  root.in_list.push_back(root);
  root.in_vector.erase(root.in_vector.begin() + 1, root.in_vector.end());
  CHECK_INT(root.total(), 1 + 20 * 11110 + 1 + 11110);
  std::set<int> set;
  for (int i = 0; i < 5; ++i) set.insert(i);
  CHECK(is_constant(&*set.begin()));
  CHECK(*set.erase(set.begin()) == 1 && set.erase(set.begin(), set.end()) == set.end() && set.empty());
}

// Thousands of nodes of many sizes come and go: each size has its own store.
template <int bytes> struct block {
  int key;
  char rest[bytes];
  explicit block(int k) : key(k) { memset(rest, k, bytes); }
  bool operator<(const block &other) const { return key < other.key; }
};
template <int bytes> static void sizes() {
  std::set<block<bytes> > some, others;
  std::list<block<bytes> > list;
  for (int i = 0; i < 3000; ++i) {
    (i % 2 ? some : others).insert(block<bytes>(static_cast<int>(random_below(500))));
    list.push_back(block<bytes>(i));
    if (i % 3 == 0) (i % 2 ? others : some).erase(block<bytes>(static_cast<int>(random_below(500)))), list.pop_front();
  }
  for (typename std::set<block<bytes> >::iterator at = some.begin(); at != some.end(); ++at) {
    const block<bytes> fresh(at->key);
    CHECK(memcmp(at->rest, fresh.rest, bytes) == 0);
  }
  for (; !list.empty(); list.pop_back())
    CHECK(memcmp(list.back().rest, block<bytes>(list.back().key).rest, bytes) == 0);
}

// Each with a sequence that does the same.
template <class Stack, class Queue> static void adaptors() {
  Stack s, s_copy;
  Queue q, q_copy;
  std::deque<int> stacked, queued;
  for (int i = 0; i < 3000; ++i) {
    const int value = static_cast<int>(random_below(100));
    if (random_below(2) || stacked.empty()) {
      s.push(value), stacked.push_back(value);
      q.push(value), queued.push_back(value);
    } else {
      s.pop(), stacked.pop_back();
      q.pop(), queued.pop_front();
    }
    CHECK(s.size() == stacked.size() && q.size() == queued.size() && s.empty() == stacked.empty() &&
          q.empty() == queued.empty());
    if (stacked.empty()) continue;
    CHECK(s.top() == stacked.back() && q.front() == queued.front() && q.back() == queued.back());
    if (i % 50 == 0) s_copy = s, q_copy = q, ++s.top(), ++stacked.back(), ++q.front(), ++queued.front();
    CHECK((s == s_copy) != (s < s_copy || s > s_copy) && (s != s_copy) == !(s == s_copy) &&
          (s <= s_copy) == !(s > s_copy) && (s >= s_copy) == !(s < s_copy));
    CHECK((q == q_copy) != (q < q_copy || q > q_copy) && (q != q_copy) == !(q == q_copy) &&
          (q <= q_copy) == !(q > q_copy) && (q >= q_copy) == !(q < q_copy));
  }
}
template <class Queue, class Before> static void heaps() {
  int numbers[40];
  std::multiset<int, Before> want;
  for (int i = 0; i < 40; ++i) want.insert(numbers[i] = static_cast<int>(random_below(1000)));
  Queue q(numbers, numbers + 40), copied((Before()), typename Queue::container_type(numbers, numbers + 40));
  for (int i = 0; i < 4000; ++i) {
    const int value = static_cast<int>(random_below(1000));
    if (random_below(2) || want.empty())
      q.push(value), copied.push(value), want.insert(value);
    else
      q.pop(), copied.pop(), want.erase(--want.end());
    CHECK(q.size() == want.size() && q.empty() == want.empty() &&
          (q.empty() || (q.top() == *--want.end() && copied.top() == q.top())));
  }
}

// The table as it is seeded, and then x[n] = x[n - 55] - x[n - 24]; the first draw of the program is made before main.
static const unsigned long drawn_first = std::__vexil_rd._next();
static void check_sequence(unsigned int seed, std::__random_generator &drawn, unsigned int from) {
  static unsigned int t[55 + 1000];
  unsigned int k = 1, j = t[54] = seed;
  for (int i = 0; i < 55; ++i) {
    t[21 * i % 55] = k;
    k = j - k;
    j = t[21 * i % 55];
  }
  for (int pass = 0; pass < 4; ++pass)
    for (int i = 0; i < 55; ++i) t[i] -= t[(i + 31) % 55];
  for (int n = 55; n < 1055; ++n) t[n] = t[n - 55] - t[n - 24];
  if (from) CHECK(drawn_first == t[55]);
  for (unsigned int i = 55 + from; i < 1055; ++i) CHECK(drawn._next() == t[i]);
}
static void generator() {
  check_sequence(161803398, std::__vexil_rd, 1);
  std::__random_generator one(5);
  check_sequence(5, one, 0);
  one._next();
  one.seed(42);
  check_sequence(42, one, 0);
  // Even draws, also below a limit that does not divide 2^32.
  int counts[6] = {0, 0, 0, 0, 0, 0}, low = 0;
  for (int i = 0; i < 60000; ++i) {
    const unsigned long drawn = one(6), large = one(0xC0000000u);
    CHECK(drawn < 6 && large < 0xC0000000u && one(1) == 0);
    ++counts[drawn % 6];
    low += large < 0x40000000u;
  }
  for (int i = 0; i < 6; ++i) CHECK(counts[i] > 9600 && counts[i] < 10400);
  CHECK(low > 19300 && low < 20700);
}

int main() {
  hints();
  allocators();
  recursive();
  adaptors<std::stack<int>, std::queue<int> >();
  adaptors<std::stack<int, std::vector<int> >, std::queue<int, std::list<int> > >();
  heaps<std::priority_queue<int>, std::less<int> >();
  heaps<std::priority_queue<int, std::deque<int>, std::greater<int> >, std::greater<int> >();
  generator();
  sizes<1>();
  sizes<4>();
  sizes<17>();
  sizes<100>();
  sizes<490>();
  sizes<900>();
  CHECK_INT(tracked::live, 0);
  return TEST_RESULT();
}

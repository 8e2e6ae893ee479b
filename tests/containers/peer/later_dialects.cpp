// test-variants: -std=gnu++11 | -O2 -std=gnu++20
// prints: 15039 lines
// Containers and string as later dialects have them, printed and compared with the host's library: elements that can
// only be moved, in random runs; braces wherever there is a list of elements; what is lost when a copy throws.
#include <algorithm>
#include <deque>
#include <list>
#include <map>
#include <queue>
#include <set>
#include <stack>
#include <stdexcept>
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
    int *const taken = from.number_;
    from.number_ = nullptr;
    delete number_;
    number_ = taken;
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
template <class K, class T> int number_of(const std::pair<K, T> &both) { return both.second; }
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

void ordered() {
  std::map<int, only_moved> map;
  std::multimap<only_moved, int> multi;
  std::vector<std::map<int, only_moved> > maps(1);
  struct fixed {
    fixed() : n(3) {}
    fixed(const fixed &) = delete;
    int n;
  };
  for (int i = 0; i < 500; ++i) {
    const int key = below(100);
    const bool there = map.count(key) != 0;
    switch (i % 5) {
      case 0: CHECK_INT(map.emplace(key, i).second, !there); break;
      case 1: CHECK_INT(map.insert(std::make_pair(key, only_moved(i))).second, !there); break;
      case 2: CHECK_INT(map.insert(std::pair<const int, only_moved>(key, only_moved(i))).second, !there); break;
      case 3: CHECK_INT(map.emplace_hint(map.cend(), key, only_moved(i))->first, key); break;
      default: map[key] = only_moved(i);
    }
    CHECK_INT(map.at(key).value() == i, !there || i % 5 == 4);
    multi.insert(std::make_pair(only_moved(key), i));
    CHECK_INT(multi.emplace(only_moved(key), i)->second, i);
    if (i % 50 == 49) {
      // What was moved from is empty, and as good as new.
      std::map<int, only_moved> other(std::move(map));
      CHECK(map.empty() && map.begin() == map.end() && map.find(key) == map.end());
      if (i % 100 == 99) map[key] = only_moved(7);
      maps.push_back(std::move(map));
      map = std::move(other);
      CHECK(other.empty() && other.insert(std::make_pair(1, only_moved(2))).second);
      CHECK_INT(maps.back().size(), i % 100 == 99);
    }
  }
  CHECK_INT(multi.size(), 1000);
  for (int key = 0; key < 100; ++key) {
    const only_moved wanted(key);
    CHECK(multi.find(wanted) == (multi.count(wanted) ? multi.lower_bound(wanted) : multi.end()));
  }
  const std::map<int, only_moved>::iterator second = ++map.begin();
  CHECK(map.erase(map.cbegin()) == second);
  std::map<int, fixed> made_in_place;
  CHECK_INT(made_in_place[1].n, 3);
  std::set<only_moved> set;
  CHECK(set.insert(only_moved(3)).second && !set.emplace(3).second && set.erase(set.cbegin()) == set.end());
  std::stack<only_moved> stack;
  std::queue<only_moved> queue;
  std::priority_queue<only_moved> heap;
  for (int i = 0; i < 50; ++i) {
    stack.push(only_moved(i)), stack.emplace(i + 1), stack.pop();
    queue.push(only_moved(i)), queue.emplace(i + 1), queue.pop();
    heap.push(only_moved(i * 7 % 50)), heap.emplace(i * 3 % 50);
  }
  CHECK_INT(stack.top().value(), 49);
  CHECK_INT(queue.front().value(), 25);
  for (int last = 50; !heap.empty(); heap.pop()) CHECK(heap.top().value() <= last), last = heap.top().value();
}

template <class Sequence> void braced_sequence() {
  Sequence s{3, 4};
  print(s, 0);
  s = {5, 6, 7};
  print(s, *s.insert(s.cbegin(), {1, 2}));
  s.assign({8, 9});
  print(s, *s.insert(s.cend(), 2u, 4));
  const int more[] = {1, 1};
  print(s, *s.insert(s.cbegin(), more, more + 2));
  print(Sequence(3), 0), print(Sequence{}, 0);
}
template <class Set> void braced_set() {
  Set s{3, 1, 3};
  print(s, 0);
  s = {5};
  s.insert({4, 6});
  print(s, 0);
}
template <class Map> void braced_map() {
  Map m{{"a", 1}, {"b", 2}, {"a", 3}};
  print(m, m.find("a")->second);
  m = {{"c", 4}};
  m.insert({"d", 5});
  m.insert({{"e", 6}, {"f", 7}});
  print(m, (--m.end())->second);
}
void braced_string() {
  for (const std::string &each : {std::string{'a', 'b'}, std::string{"abc"}, std::string{}, std::string{"abc", 2},
                                  std::string("ab") += {'c', 'd'}, std::string("ab").append({'c'}),
                                  std::string("ab").assign({'c'}), std::string("ab") = {'x', 'y'}})
    print(each, 0);
  std::string s("abc");
  print(s, *s.insert(s.begin() + 1, 2u, 'x'));
  print(s, *s.insert(s.cend(), 'y'));
  print(s, *s.insert(s.cbegin(), {'1', '2'}));
  print(s, *s.erase(s.cbegin()));
  s.replace(s.cbegin(), s.cbegin() + 1, {'Z', 'Y'});
  print(s, *s.crbegin());
}

// Moves by a function that does not promise anything: a vector that grows must copy, or a failure would lose elements.
struct failing {
  explicit failing(int n) : value(n) {}
  failing(const failing &from) : value(from.value) {
    if (--until_failure == 0) throw std::runtime_error("no copy");
  }
  failing(failing &&from) : value(from.value) { from.value = -1; }
  failing &operator=(const failing &) = default;
  int value;
  static int until_failure;
};
int failing::until_failure;

template <class Sequence> void keeps_elements() {
  for (int n = 1, done = 0; !done; ++n) {
    Sequence s;
    failing::until_failure = 0;
    for (int i = 0; i < 16; ++i) s.emplace_back(i);
    s.shrink_to_fit();
    failing::until_failure = n;
    try {
      s.emplace_back(16);
      done = 1;
    } catch (const std::runtime_error &) {}
    failing::until_failure = 0;
    CHECK_INT(s.size(), 16 + done);
    for (int i = 0; i < 16; ++i) CHECK_INT(s[i].value, i);
  }
}

// Memory of one allocator is never given to another one.
template <class T> struct arena {
  typedef T value_type, *pointer, &reference;
  typedef const T *const_pointer, &const_reference;
  typedef std::size_t size_type;
  typedef std::ptrdiff_t difference_type;
  template <class U> struct rebind { typedef arena<U> other; };
  explicit arena(int i) : id(i) {}
  template <class U> arena(const arena<U> &from) : id(from.id) {}
  T *allocate(std::size_t n, const void * = nullptr) {
    int *const block = static_cast<int *>(::operator new(n * sizeof(T) + 16));
    *block = id;
    return reinterpret_cast<T *>(block + 4);
  }
  void deallocate(T *at, std::size_t) {
    int *const block = reinterpret_cast<int *>(at) - 4;
    CHECK_INT(*block, id);
    ::operator delete(block);
  }
  std::size_t max_size() const { return 0x7FFFFFFF / sizeof(T) - 16; }
  void destroy(T *at) { at->~T(); }
  bool operator==(const arena &other) const { return id == other.id; }
  bool operator!=(const arena &other) const { return id != other.id; }
  int id;
};
template <class Container> void moves_between_allocators() {
  typedef typename Container::allocator_type allocator;
  Container from(allocator(1)), to(allocator(2));
  for (int i = 0; i < 30; ++i) from.insert(from.end(), only_moved(i)), to.insert(to.end(), only_moved(100 + i));
  to = std::move(from);
  CHECK_INT(to.size(), 30);
  CHECK_INT(to.begin()->value(), 0);
}

}  // namespace

int main() {
  random_sequence<std::vector<only_moved> >(), random_sequence<std::deque<only_moved> >();
  random_sequence<std::list<only_moved> >(), random_sequence<std::vector<long> >(), random_sequence<std::deque<int> >();
  ordered();
  braced_sequence<std::vector<int> >(), braced_sequence<std::deque<int> >(), braced_sequence<std::list<int> >();
  braced_set<std::set<int> >(), braced_set<std::multiset<int> >();
  braced_map<std::map<std::string, int> >(), braced_map<std::multimap<std::string, int> >();
  braced_string();
  CHECK_INT(only_moved::living, 0);
  keeps_elements<std::vector<failing> >(), keeps_elements<std::deque<failing> >();
  moves_between_allocators<std::vector<only_moved, arena<only_moved> > >();
  moves_between_allocators<std::deque<only_moved, arena<only_moved> > >();
  moves_between_allocators<std::list<only_moved, arena<only_moved> > >();
  return test_failures != 0;
}

// What plx says of containers and the standard does not: growth, errors and their texts, where a deque begins, hints
// that save comparisons, allocators with a state, classes that hold containers of themselves, nodes of every size, and
// the random generator against its recurrence.
// test-variants: -O1 | -O2 -std=gnu++20
#include <map>
#include <set>
#include <stdexcept>

#include <plx/base/random_generator.h>

#include "containers/sequence_operations.h"

template class std::vector<bool>;

// An allocator of 1998, with a state: containers ask it for everything, and nothing else.
struct account {
  long elements, values;
};
static account common;
template <class T> struct counted : std::allocator<T> {
  template <class U> struct rebind { typedef counted<U> other; };
  explicit counted(account *to = &common) : books(to) {}
  template <class U> counted(const counted<U> &other) : books(other.books) {}
  T *allocate(std::size_t n, const void * = 0) {
    books->elements += static_cast<long>(n);
    return static_cast<T *>(malloc(n * sizeof(T)));
  }
  void deallocate(T *block, std::size_t n) {
    books->elements -= static_cast<long>(n);
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

template <class S> static void counts() {
  account books = {0, 0}, others = {0, 0};
  {
    S s((counted<int>(&books))), assigned((counted<int>(&others)));
    std::vector<std::string> same;
    for (int i = 0; i < 2000; ++i) {
      const unsigned int kind = random_below(s.size() > 200 ? 13 : 9) + (s.size() > 200 ? 5 : 0), seed = random_state;
      const int p = static_cast<int>(random_below(unsigned(s.size()) + 1));
      if (kind >= 19 || kind == 9) continue;
      change(s, kind, p, i % 40, i % 100 + 1);
      change(same, kind, p, i % 40, i % 100 + 1);
      random_state = seed;
      CHECK(hash_of(s) == hash_of(same) && books.values == size_of(s) && books.elements >= books.values);
    }
    S copy(s);
    CHECK(copy.get_allocator().books == &books && books.values == 2 * size_of(s));
    assigned = copy;  // each container keeps to its own
    CHECK(others.values == size_of(s) && assigned == s);
  }
  CHECK(books.elements == 0 && books.values == 0 && others.elements == 0 && others.values == 0);
  CHECK(common.elements == 0 && common.values == 0);
}

static void counting_allocators() {
  counts<std::vector<std::string, counted<std::string> > >();
  counts<std::deque<std::string, counted<std::string> > >();
  counts<std::list<std::string, counted<std::string> > >();
  account books = {0, 0}, others = {0, 0};
  {
    const std::vector<bool, counted<bool> > bits(100, true, counted<bool>(&books));
    CHECK(books.elements == 4 && books.values == 0);
    typedef std::multimap<int, std::string, std::less<int>, counted<std::pair<const int, std::string> > > counted_map;
    counted_map map((std::less<int>()), counted<int>(&books)), assigned((std::less<int>()), counted<int>(&others));
    for (int i = 0; i < 8; ++i) map.insert(counted_map::value_type(i / 2, "text"));
    CHECK(books.values == 8 && books.elements == 4 + 9);
    counted_map copy(map);
    copy.erase(1);
    CHECK(books.values == 14 && copy.get_allocator().books == &books);
    assigned = copy;
    CHECK(others.values == 6 && assigned == copy);
    copy.clear();
    CHECK_INT(books.values, 8);
  }
  CHECK(books.elements == 0 && books.values == 0 && others.elements == 0 && others.values == 0);
}

// Errors by number: 1 a length error, 2 out of range, with their texts.
template <class S> static int error_of(S &s, int which, unsigned int n) {
  const S &view = s;
  const typename S::value_type value = s.front();
  try {
    if (which == 0) s.insert(s.begin(), n, value);
    if (which == 1) s.resize(n);
    if (which == 2) S(n, value);
    if (which == 3) s.assign(n, value);
    if (which == 4) view[n];
    if (which == 5) s.at(n) = view.at(n / 2);
    if (which == 6) view.at(n);
  } catch (const std::length_error &e) {
    return strcmp(e.what(), "Length exception occurred") == 0;
  } catch (const std::out_of_range &e) {
    return strcmp(e.what(), "Out of range exception occurred") == 0 ? 2 : 3;
  }
  return 0;
}
template <class S> static void errors(bool is_vector) {
  S s(33);
  const unsigned int size = sizeof(typename S::value_type),
                     wraps[] = {0xFFFFFFFFu, 0xFFFFFFF0u, 0xFFFFFFFFu / size + 2};
  for (int i = 0; i < (size > 1 ? 3 : 2); ++i)
    for (int which = 0; which < (is_vector ? 4 : 3); ++which) CHECK_INT(error_of(s, which, wraps[i]), 1);
  for (unsigned int n = 30; n < 36; ++n)
    CHECK(error_of(s, 5, n) == (n < 33 ? 0 : 2) && error_of(s, 6, n) == (n < 33 ? 0 : 2));
  CHECK(error_of(s, 6, ~0u) == 2 && s.size() == 33 && s.max_size() > 1000);
}

// A full vector grows to twice its size, an empty one to 10 elements; reserving is exact.
static void growth() {
  std::vector<int> v;
  for (unsigned int n = 1, capacity = 10; n < 200; ++n) {
    v.push_back(1);
    if (n > capacity) capacity *= 2;
    CHECK_INT(v.capacity(), capacity);
  }
  v.reserve(1000);
  const int *const block = &v[0];
  v.insert(v.begin(), 801, 3);
  CHECK(v.capacity() == 1000 && &v[0] == block);
  std::vector<tracked> few(3, tracked(1));
  few.insert(few.begin() + 1, tracked(2));
  CHECK(few.capacity() == 6 && few[1].key == 2);
  few.reserve(7);
  CHECK_INT(few.capacity(), 7);
  bool reported = false;
  try {
    v.reserve(0x40000001u);
  } catch (const std::length_error &) {
    reported = true;
  }
  CHECK(reported);
}

// Blocks of deques that the pool does not serve; the first element goes into the middle of its block.
struct large {
  int number;
  char rest[3000];
};
struct aligned {
  int number;
} __attribute__((__aligned__(16)));
template <class T> static void blocks() {
  std::deque<T> d;
  for (int i = 0; i < 100; ++i) {
    T one = T();
    one.number = i;
    d.push_back(one), d.push_front(one);
  }
  for (unsigned int i = 0; i < 100; ++i)
    CHECK(d[i].number == 99 - static_cast<int>(i) && reinterpret_cast<unsigned int>(&d[i]) % __alignof__(T) == 0);
}
static void starts() {
  std::deque<int> d;
  for (int i = 0; i < 21; ++i) d.push_back(i);
  CHECK(d.begin()._cur - *d.begin()._node == 10 && &d[20] - *d.end()._node == 10 &&
        d.end()._node - d.begin()._node == 1);
  // Undefined in the standard; nothing here.
  std::list<int> l(3, 1);
  l.splice(l.begin(), l);
  l.merge(l);
  l.splice(l.begin(), l, l.begin(), l.end());
  l.splice(l.begin(), l, l.begin());
  CHECK(l.size() == 3 && valid(l));
}

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
    const std::pair<const tracked, int> odd(tracked(2 * i + 1), -1), there(tracked(2 * i), -1);
    tracked::comparisons = 0;
    CHECK(map.insert(i % 4 ? before : behind, odd)->first.key == 2 * i + 1 && tracked::comparisons <= 4);
    CHECK(map.insert(i % 8 ? behind : map.begin(), there)->second == i && map.insert(map.end(), there)->second == i);
  }
  CHECK_INT(map.size(), 1500);
  // As near to the hint as the order allows.
  for (int key = 0; key <= 10; key += 5)
    for (int place = 0; place <= 1000; place += 50) {
      std::multimap<tracked, int> some(many);
      const std::multimap<tracked, int>::iterator put =
          some.insert(::place(some, place), std::make_pair(tracked(key), -1));
      const int low = key * 100, high = key == 10 ? 1000 : low + 100;
      CHECK_INT(index_of(some, put), place < low ? low : place > high ? high : place);
    }
}

struct folder {
  explicit folder(int n = 0) : size(n) {}
  int size;
  std::vector<folder> in_vector;
  std::list<folder> in_list;
  std::deque<folder> in_deque;
  std::map<std::string, folder> in_map;
  std::map<std::string, folder>::iterator chosen;
  template <class C> static int sum_of(const C &c) {
    int sum = 0;
    for (typename C::const_iterator i = c.begin(); i != c.end(); ++i) sum += total(*i);
    return sum;
  }
  static int total(const folder &f) {
    return f.size + sum_of(f.in_vector) + sum_of(f.in_list) + sum_of(f.in_deque) + sum_of(f.in_map);
  }
  static int total(const std::pair<const std::string, folder> &f) { return total(f.second); }
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
  CHECK_INT(folder::total(root), 1 + 20 * 11110 + 1 + 11110);
  std::set<int> set;
  for (int i = 0; i < 5; ++i) set.insert(i);
  CHECK(is_constant(&*set.begin()) && !is_constant(&root.size));
  CHECK(*set.erase(set.begin()) == 1 && set.erase(set.begin(), set.end()) == set.end() && set.empty());
}

// Thousands of nodes of many sizes come and go: each size has its own store.
template <int bytes> struct block {
  int key;
  char rest[bytes];
  explicit block(int k) : key(k) { memset(rest, k, bytes); }
  bool operator<(const block &other) const { return key < other.key; }
  bool whole() const { return memcmp(rest, block(key).rest, bytes) == 0; }
};
template <int bytes> static void sizes() {
  std::set<block<bytes> > some, others;
  std::list<block<bytes> > list;
  for (int i = 0; i < 3000; ++i) {
    (i % 2 ? some : others).insert(block<bytes>(static_cast<int>(random_below(500))));
    list.push_back(block<bytes>(i));
    if (i % 3 == 0) (i % 2 ? others : some).erase(block<bytes>(static_cast<int>(random_below(500)))), list.pop_front();
  }
  for (typename std::set<block<bytes> >::iterator at = some.begin(); at != some.end(); ++at) CHECK(at->whole());
  for (; !list.empty(); list.pop_back()) CHECK(list.back().whole());
}

// The table as it is seeded, and then x[n] = x[n - 55] - x[n - 24]; the first draw of the program is made before main.
static const unsigned long drawn_first = std::__vexil_rd.next();
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
  for (unsigned int i = 55 + from; i < 1055; ++i) CHECK(drawn.next() == t[i]);
}
static void generator() {
  check_sequence(161803398, std::__vexil_rd, 1);
  std::__random_generator one(5);
  check_sequence(5, one, 0);
  one.next();
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
  counting_allocators();
  errors<std::vector<int> >(true), errors<std::vector<std::string> >(true), errors<std::vector<bool> >(true);
  errors<std::deque<int> >(false);
  growth();
  blocks<large>(), blocks<aligned>();
  starts();
  hints();
  recursive();
  sizes<1>(), sizes<4>(), sizes<17>(), sizes<100>(), sizes<490>(), sizes<900>();
  generator();
  CHECK_INT(tracked::live, 0);
  return TEST_RESULT();
}

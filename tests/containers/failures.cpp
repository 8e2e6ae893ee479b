// Every operation of the containers with each of its copies, comparisons and allocations failing in turn: nothing
// leaks, the container stays usable, and what the standard promises to leave alone is as before.
// test-variants: -O1 | -O2 -std=gnu++20
#include "fail_allocation.h"

#include <map>
#include <set>

#include <plx/containers/lw_vector.h>

#include "containers/tree_rules.h"
#include "containers/sequence_operations.h"

static long *const faults[] = {&tracked::copies_to_fail, &tracked::comparisons_to_fail, &allocation_to_fail};

// A case is copied for each failure and made anew; `kind` says which it is of its sort. The sum of what failed.
struct failing {
  unsigned int kind;
};
template <class Case> static int fail_each(const Case &of) {
  int sum = 0;
  for (int fault = 0; fault < 3 && test_failures < 5; ++fault)
    for (long n = 1;; ++n, ++sum) {
      const long live = tracked::live, blocks = live_blocks;
      bool failed = false;
      {
        Case one(of);
        one.make();
        try {
          one.run(faults[fault], n);
        } catch (const refused &) { failed = true; } catch (const std::bad_alloc &) {
          failed = true;
        }
        const bool fired = *faults[fault] == 0;
        *faults[fault] = 0;
        const bool good = one.good(failed) && fired == failed;
        if (!good) fprintf(stderr, "%s, kind %u: failure %ld of %d\n", __PRETTY_FUNCTION__, of.kind, n, fault);
        CHECK(good);
      }
      CHECK(tracked::live == live && live_blocks == blocks);
      if (!failed) break;
    }
  return sum;
}

// ---- Sequences

#if __cplusplus >= 201103L
// Moves by a function that promises nothing, and leaves nothing behind: a vector that grows must copy.
struct moving : tracked {
  moving(int k = 0, int r = 0) : tracked(k, r) {}
  moving(const moving &) = default;
  moving(moving &&from) : tracked(from) { from.key = -1; }
  moving &operator=(const moving &) = default;
};
template <> struct made_of<moving> : made_of<tracked> {
  static moving make(int n) { return moving(n, n * 3); }
};
#endif

// What leaves the sequence unchanged: whatever adds one element at an end, all insertions into a list, insertions of
// what moves as bytes, and what a vector appends of a range that can be read once.
template <class T> static bool is_strong(const std::vector<T> &, unsigned int kind, int p, int size) {
  return kind == 0 || kind == 2 || (kind == 8 && p == size);
}
static bool is_strong(const std::vector<std::string> &, unsigned int kind, int, int) { return kind < adds; }
template <class T> static bool is_strong(const std::deque<T> &, unsigned int kind, int p, int size) {
  return kind <= 2 || (kind <= 4 && (p == size || p == 0));
}
template <class T> static bool is_strong(const std::list<T> &, unsigned int kind, int, int) { return kind < adds; }

template <class S> struct changed : failing {
  typedef made_of<typename S::value_type> made;
  unsigned int before;
  int size, spare, p, some;
  S s;
  void make() {
    for (int i = 0; i < size + spare; ++i) s.push_back(made::make(i % 100 + 1));
    for (int i = 0; i < spare; ++i) s.pop_back();
    before = hash_of(s);
  }
  void run(long *armed, long n) { change(s, kind, p, some, 50, armed, n); }
  bool good(bool failed) {
    const bool strong = is_strong(s, kind, p, size) && (size != 0 || kind <= 2);
    const bool good = !failed || !strong || hash_of(s) == before;
    change(s, 0, 0, 0, 5);  // it goes on as if nothing had been
    change(s, 1, 0, 0, 6);
    return good && hash_of(s) != before && made::number(s.front()) == made::number(made::make(6));
  }
};
template <class S> static void all_changes() {
  changed<S> one = changed<S>();
  for (one.kind = 0; one.kind < kinds; ++one.kind)
    for (one.size = 0; one.size <= 40; one.size += one.size == 0 ? 1 : 39)
      for (one.spare = 0; one.spare <= 40; one.spare += 40)
        for (int quarter = 0; quarter < 5; quarter += quarter == 1 ? 2 : 1)
          for (one.some = 4; one.some < 40; one.some += 29) {
            one.p = one.size * quarter / 4;
            fail_each(one);
          }
}

// Bits that cannot be read: the reader fails as copies do.
struct reader : input_archetype<int> {
  reader(const int *at, const int **reached) : input_archetype<int>(at, reached) {}
  int operator*() const { return tracked::may_fail(tracked::copies_to_fail), input_archetype<int>::operator*(); }
};
struct bits : failing {
  std::vector<bool> v;
  void make() { v.assign(40, true); }
  void run(long *armed, long n) {
    const int from[9] = {0}, *reached = from;
    *armed = n;
    v.insert(v.begin() + kind, reader(from, &reached), reader(from + 9, 0));
  }
  bool good(bool failed) {
    return valid(v) && (failed ? v == std::vector<bool>(40, true) : v.size() == 49 && !v[kind + 8]);
  }
};

// Whichever comparison fails, every element is in one of the lists afterwards, with memory for the keys or without.
static bool has_scratch = true;
namespace __zor {
void *_take_scratch(size_t bytes) PLX_NOTHROW { return has_scratch ? malloc(bytes) : 0; }
void _give_scratch(void *block) PLX_NOTHROW { free(block); }
}  // namespace __zor
static bool greater(const tracked &a, const tracked &b) { return b < a; }
struct sorted : failing {
  std::list<tracked> a, b;
  void make() {
    for (int i = 0; i < 211; ++i) a.push_back(tracked(i * 37 % 211)), b.push_back(tracked(i));
  }
  void run(long *armed, long n) {
    *armed = n;
    kind % 2 ? (a.sort(greater), b.reverse(), a.merge(b, greater)) : (a.sort(), a.merge(b));
  }
  bool good(bool failed) {
    int sum = 0;
    const bool good = std::distance(a.begin(), a.end()) + std::distance(b.begin(), b.end()) == 422 &&
                      a.size() + b.size() == 422 && (failed || b.empty());
    a.splice(a.end(), b);
    for (; !a.empty(); a.pop_back()) sum += a.back().key;
    return good && sum == 211 * 210;
  }
};

// ---- Trees

template <class K> static K element_of(const K *, int n) { return made_of<K>::make(n); }
template <class K, class T> static std::pair<const K, T> element_of(const std::pair<const K, T> *, int n) {
  return std::pair<const K, T>(made_of<K>::make(n), made_of<T>::make(n));
}
template <class C, class K> static void index_by(C &, const K &) {}
template <class K, class T> static void index_by(std::map<K, T> &map, const K &key) { map[key]; }

enum { tree_operations = 9, into_range = 3 };

template <class C> struct tree : failing {
  typedef made_of<typename C::key_type> as;
  C c, other, before;
  static typename C::value_type element(int n) { return element_of(static_cast<typename C::value_type *>(0), n); }
  void make() {
    for (int i = 0; i < 20; ++i) c.insert(element(i * 7 % 20));
    for (int i = 15; i < 25; ++i) other.insert(element(i));
    before = c;
  }
  void run(long *armed, long n) {
    const typename C::value_type nine(element(9)), last(element(30));
    const typename C::key_type key(as::make(9)), absent(as::make(25));
    *armed = n;
    switch (kind) {
      case 0: c.insert(nine); break;
      case 1: c.insert(c.end(), last); break;
      case 2: c.insert(c.begin(), last); break;
      case into_range: c.insert(other.begin(), other.end()); break;
      case 4: C(c).size(); break;
      case 5: C(c.begin(), c.end()).size(); break;
      case 6: c = other; break;
      case 7: c.erase(key); break;
      default: index_by(c, absent);
    }
  }
  bool good(bool failed) {
    const bool good = whole(c) && whole(other) && (!failed || kind == into_range || c == before);
    c.insert(element(27));
    return good && whole(c) && c.count(as::make(27)) == 1;
  }
};
template <class C> static int all_operations() {
  int sum = 0;
  tree<C> one = tree<C>();
  for (one.kind = 0; one.kind < tree_operations; ++one.kind) sum += fail_each(one);
  return sum;
}

// ---- The library's own array: exact blocks, growth by copying, shrinking in place.

template class __zor::lw_vector<long>;
template class __zor::lw_vector<void *>;

struct own_array : failing {
  __zor::lw_vector<tracked> v;
  own_array() {}
  own_array(const own_array &) : failing() {}
  void make() { v.resize(5, tracked(4)), v.resize(3, tracked(0)), v[1] = tracked(8); }
  void run(long *armed, long n) { *armed = n, v.resize(6, v[1]); }  // a copy of one of its own
  bool good(bool failed) {
    return v[2].key == 4 && v[1].key == 8 && v.size() == (failed ? 3 : 6) && (failed || v[5].key == 8);
  }
};

// Every block comes from the program's own operator new, and goes back to it, whatever the road. A queue uses its room
// again.
static void own_operator_new() {
  std::vector<int> numbers;
  std::deque<int> queue;
  std::list<int> list;
  std::set<int> set;
  const long blocks = live_blocks, calls = allocation_calls;
  for (int i = 0; i < 1000; ++i) numbers.push_back(i), list.push_back(i), set.insert(i), queue.push_front(i);
  CHECK(allocation_calls - calls > 2050 && live_blocks - blocks > 2050);
  const long now = live_blocks, then = allocation_calls;
  for (int i = 0; i < 10000; ++i) queue.push_back(i), queue.pop_front();
  CHECK(live_blocks - now < 5 && queue.front() == 9000 && allocation_calls - then >= 500);
}

int main() {
  const long blocks = live_blocks;
  own_operator_new();
  CHECK_INT(live_blocks, blocks);
  all_changes<std::vector<tracked> >(), all_changes<std::deque<tracked> >(), all_changes<std::list<tracked> >();
  all_changes<std::vector<std::string> >(), all_changes<std::deque<std::string> >();
#if __cplusplus >= 201103L
  all_changes<std::vector<moving> >(), all_changes<std::deque<moving> >();
#endif
  for (bits one = bits(); one.kind <= 40; one.kind += 20) CHECK(fail_each(one) >= 9);
  for (sorted both = sorted(); both.kind < 4; ++both.kind) {
    has_scratch = both.kind < 2;
    CHECK(fail_each(both) > 300);
  }
  CHECK(all_operations<std::set<tracked> >() > 150 && all_operations<std::multiset<tracked> >() > 150);
  CHECK((all_operations<std::map<tracked, std::string> >() > 180));
  CHECK((all_operations<std::multimap<tracked, tracked> >() > 200));
  CHECK((all_operations<std::map<std::string, std::string> >() > 50));
  CHECK(all_operations<std::multiset<std::string> >() > 50 && fail_each(own_array()) == 7);
  CHECK_INT(tracked::live, 0);
  return TEST_RESULT();
}

// Every operation of the containers with each of its copies, comparisons and allocations failing in turn: nothing
// leaks, the container stays usable, and what the standard promises to leave alone is as before. Also the untyped core
// of the trees, with nodes made by hand.
// test-variants: -O1 | -O2 -std=gnu++20
#include "fail_allocation.h"

#include <algorithm>
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

// The untyped tree core, which serves compiled programs as it stands: random operations on nodes made by hand, also
// copies that end half-way, against a model; and the order of its virtual functions.
struct int_node : __zor::rb_tree_node_base {
  int value;
};

// Public doors to what the core expects of a typed tree.
class int_tree : public __zor::rb_tree_base {
public:
  int_tree() { __initialize(); }
  ~int_tree() { __destroy(); }

  static int value_of(const _node *n) { return static_cast<const int_node *>(n)->value; }
  virtual void destroy_node(_node *n) { operator delete(n); }
  virtual _node *create_node(const void *value) {
    int_node *made = static_cast<int_node *>(operator new(sizeof(int_node)));
    memset(static_cast<void *>(made), 0x5A, sizeof *made);  // whatever the core does not set shows
    if (value) made->value = *static_cast<const int *>(value);
    return made;
  }
  // Part of the contract: destroy_node is the first of the virtual functions, create_node the second.
  void insert(int value) {
    typedef _node *(*maker)(int_tree *, const void *);
    _node *parent = header, *right_of = 0;
    for (_node *at = header->parent; at; at = right_of ? at->right : at->left)
      parent = at, right_of = value < value_of(at) ? 0 : at;
    _node *const made = reinterpret_cast<maker>((*reinterpret_cast<void ***>(this))[1])(this, &value);
    CHECK(__finish_insert(made, parent, right_of) == made);
  }
  _node *place(unsigned n) {
    _node *at = leftmost;
    while (n-- != 0) at = __next(at);
    return at;
  }
  bool holds(const std::vector<int> &values) const {
    const _node *at = header->parent ? leftmost : header;
    for (unsigned i = 0; i < values.size() && at != header; ++i, at = __next(at))
      if (value_of(at) != values[i]) return false;
    return at == header && node_count == values.size() && tree_rules(*this).hold();
  }
};

// Where the n-th node cannot be made, the rest hangs below the header, and nothing is lost.
static void copy_core(const int_tree &from, int n, const std::vector<int> &values) {
  int_tree to;
  const long before = live_blocks;
  allocation_to_fail = n;
  try {
    to.__copy(from, sizeof(__zor::rb_tree_node_base));
    CHECK(to.holds(values));
  } catch (const std::bad_alloc &) { CHECK(live_blocks == before + n - 1 && n <= static_cast<int>(from.node_count)); }
  allocation_to_fail = 0;
  to.__clear();
  CHECK(live_blocks == before && to.holds(std::vector<int>()));
}
static void untyped_core() {
  int_tree tree;
  std::vector<int> model;
  for (int i = 0; i < 6000; ++i) {
    const unsigned size = tree.node_count, kind = random_below(size > 60 ? 8 : 20);
    const unsigned first = random_below(size + 1), last = first + random_below((size - first) / 3 + 1);
    __zor::rb_tree_node_base *const from = tree.place(first), *const to = tree.place(last);
    if (kind == 0 && random_below(9) == 0) {
      tree.__clear(), model.clear();
    } else if (kind < 3) {
      CHECK(tree.__count(from, to) == last - first && tree.__erase(from, to) == last - first);
      model.erase(model.begin() + first, model.begin() + last);
    } else if (kind < 8) {
      if (first != size) tree.__erase(from), model.erase(model.begin() + first);
    } else if (kind == 8) {
      copy_core(tree, static_cast<int>(first) + 1, model);
    } else {
      const int value = static_cast<int>(random_below(50));
      tree.insert(value), model.insert(std::upper_bound(model.begin(), model.end(), value), value);
    }
    CHECK(tree.holds(model));
  }
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
  untyped_core();
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

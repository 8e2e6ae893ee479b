// test-variants: -O2
//
// Long random runs of every operation of the four ordered containers beside a sorted array that does the same in the
// plainest way; after each change the tree's rules are checked, and often all elements. Keys are of the kinds that trees
// compare in different ways: integers, strings, and what only a comparison of the program's can order.
// test-peer: gnu++98
#include <map>
#include <set>
#include <string>

#include "harness.h"
#include "random.h"

#if defined(PLX_CONFIG_H)
#include "containers/rb_tree_validator.h"
#else
template <class Container> int validate(const Container &) { return 0; }
#endif

namespace {

// Keys from a number: few enough that many meet.
void make_key(unsigned int n, int &key) { key = static_cast<int>(n * 2654435761u); }

// Common beginnings of all lengths around the 8 characters that a node remembers, and some that are much longer; null
// and high characters.
void make_key(unsigned int n, std::string &key) {
  key.assign(n % 12 * (n % 7 == 0 ? 4 : 1), 'q');
  if (n / 12 % 5 == 0) return;
  key += static_cast<char>(n / 12 % 5 == 1 ? '\0' : n / 12 % 5 == 2 ? '\xF0' : 'a' + n / 60 % 3);
  if (n / 12 % 5 == 4) key += std::string(n / 60 % 4, '\0');
}

struct word {
  unsigned int letters;
};
struct by_low_half {
  bool operator()(const word &a, const word &b) const { return (a.letters & 0xFFFF) < (b.letters & 0xFFFF); }
};
void make_key(unsigned int n, word &key) { key.letters = n * 40503u; }

const int key_count = 180;
const int room = 400;

// A sorted array of pairs. Keys that are equal stay in the order in which they came.
template <class Key, class Compare> struct model {
  std::pair<Key, int> entries[room];
  int size;
  Compare less;

  model() : size(0) {}
  int lower(const Key &key) const {
    int i = 0;
    while (i < size && less(entries[i].first, key)) ++i;
    return i;
  }
  int upper(const Key &key) const {
    int i = lower(key);
    while (i < size && !less(key, entries[i].first)) ++i;
    return i;
  }
  void insert(int at, const Key &key, int value) {
    for (int i = size++; i > at; --i) entries[i] = entries[i - 1];
    entries[at] = std::pair<Key, int>(key, value);
  }
  void erase(int first, int last) {
    for (int i = last; i < size; ++i) entries[first + i - last] = entries[i];
    size -= last - first;
  }
};

// What the four containers do not have in common.
template <class Key, class Compare> struct map_kind {
  typedef std::map<Key, int, Compare> container;
  enum { unique = 1 };
  static std::pair<const Key, int> element(const Key &key, int value) { return std::pair<const Key, int>(key, value); }
  static const Key &key(const std::pair<const Key, int> &element) { return element.first; }
  static bool same_value(const std::pair<const Key, int> &element, int value) { return element.second == value; }
  static typename container::iterator insert(container &in, const Key &k, int v) { return in.insert(element(k, v)).first; }
};
template <class Key, class Compare> struct multimap_kind : map_kind<Key, Compare> {
  typedef std::multimap<Key, int, Compare> container;
  enum { unique = 0 };
  static typename container::iterator insert(container &in, const Key &k, int v) {
    return in.insert(map_kind<Key, Compare>::element(k, v));
  }
};
template <class Key, class Compare> struct set_kind {
  typedef std::set<Key, Compare> container;
  enum { unique = 1 };
  static const Key &element(const Key &key, int) { return key; }
  static const Key &key(const Key &element) { return element; }
  static bool same_value(const Key &, int) { return true; }
  static typename container::iterator insert(container &in, const Key &k, int) { return in.insert(k).first; }
};
template <class Key, class Compare> struct multiset_kind : set_kind<Key, Compare> {
  typedef std::multiset<Key, Compare> container;
  enum { unique = 0 };
  static typename container::iterator insert(container &in, const Key &k, int) { return in.insert(k); }
};

template <class Kind, class Key, class Compare> class run {
  typedef typename Kind::container container;
  typedef typename container::iterator iterator;
  typedef typename container::const_iterator const_iterator;

  container tree_;
  model<Key, Compare> model_;

  iterator nth(int n) {
    iterator at = tree_.begin();
    while (n-- > 0) ++at;
    return at;
  }
  int index(const_iterator of) const {
    int n = 0;
    for (const_iterator at = tree_.begin(); at != of; ++at) ++n;
    return n;
  }

  bool same_elements(const container &tree) const {
    if (static_cast<int>(tree.size()) != model_.size) return false;
    int i = 0;
    for (const_iterator at = tree.begin(); at != tree.end(); ++at, ++i) {
      const Key &key = Kind::key(*at);
      if (model_.less(key, model_.entries[i].first) || model_.less(model_.entries[i].first, key)) return false;
      if (!Kind::same_value(*at, model_.entries[i].second)) return false;
    }
    return true;
  }

  void insert(const Key &key, int value) {
    const int lower = model_.lower(key), upper = model_.upper(key);
    if (model_.size == room) return;
    const iterator at = Kind::insert(tree_, key, value);
    CHECK_INT(index(at), Kind::unique ? lower : upper);
    if (!Kind::unique || lower == upper) model_.insert(upper, key, value);
  }

  // As near to the hint as the order allows.
  void insert_near(int hint, const Key &key, int value) {
    const int lower = model_.lower(key), upper = model_.upper(key);
    if (model_.size == room) return;
    int place = hint < lower ? lower : hint > upper ? upper : hint;
    if (Kind::unique) place = lower;
    const iterator at = tree_.insert(nth(hint), Kind::element(key, value));
#if !defined(PLX_CONFIG_H)
    if (!Kind::unique) place = index(at);  // a liberty of 1998
#endif
    CHECK_INT(index(at), place);
    if (!Kind::unique || lower == upper) model_.insert(place, key, value);
  }

  void search(const Key &key) {
    const container &tree = tree_;
    const int lower = model_.lower(key), upper = model_.upper(key);
    CHECK_INT(index(tree.lower_bound(key)), lower);
    CHECK_INT(index(tree.upper_bound(key)), upper);
    CHECK(tree.equal_range(key).first == tree.lower_bound(key));
    CHECK(tree.equal_range(key).second == tree.upper_bound(key));
    CHECK_INT(tree.count(key), upper - lower);
    const int found = index(tree.find(key));
    CHECK_INT(found, lower == upper ? model_.size : lower);
  }

  void step(bool growing) {
    Key key;
    make_key(random_below(key_count), key);
    const int value = static_cast<int>(random_below(1000));
    const unsigned int choice = random_below(100);
    if (choice < (growing ? 45u : 20u)) {
      insert(key, value);
    } else if (choice < (growing ? 60u : 30u)) {
      // Half of the hints are right.
      const int near = random_below(2) ? model_.lower(key) : static_cast<int>(random_below(model_.size + 1));
      insert_near(near, key, value);
    } else if (choice < 75) {
      const int first = model_.lower(key), last = model_.upper(key);
      CHECK_INT(tree_.erase(key), last - first);
      model_.erase(first, last);
    } else if (choice < 90) {
      if (model_.size == 0) return;
      const int at = static_cast<int>(random_below(model_.size));
      tree_.erase(nth(at));
      model_.erase(at, at + 1);
    } else if (choice < 92) {
      const int first = static_cast<int>(random_below(model_.size + 1));
      int last = first + static_cast<int>(random_below(9));
      if (last > model_.size) last = model_.size;
      tree_.erase(nth(first), nth(last));
      model_.erase(first, last);
    } else if (choice < 98) {
      search(key);
    } else if (choice < 99) {
      container copy(tree_);
      CHECK(copy == tree_ || model_.size < 0);
      CHECK_INT(validate(copy), 0);
      container assigned;
      assigned = copy;
      CHECK(same_elements(assigned));
      tree_.swap(assigned);
    } else if (random_below(20) == 0) {
      tree_.clear();
      model_.size = 0;
    }
  }

public:
  void go(int steps) {
    for (int i = 0; i < steps; ++i) {
      step(i / 400 % 2 == 0);
      const int broken = validate(tree_);
      if (broken) return CHECK_INT(broken, 0);
      if (i % 16 == 0 && !same_elements(tree_)) return CHECK(!"the elements are those of the model");
    }
    CHECK(same_elements(tree_));
  }
};

bool operator==(const word &a, const word &b) { return a.letters == b.letters; }

template <class Key, class Compare> void run_all(int steps) {
  static run<map_kind<Key, Compare>, Key, Compare> map;
  map.go(steps);
  static run<multimap_kind<Key, Compare>, Key, Compare> multimap;
  multimap.go(steps);
  static run<set_kind<Key, Compare>, Key, Compare> set;
  set.go(steps);
  static run<multiset_kind<Key, Compare>, Key, Compare> multiset;
  multiset.go(steps);
}

}  // namespace

int main() {
  run_all<int, std::less<int> >(20000);
  run_all<int, std::greater<int> >(8000);
  run_all<std::string, std::less<std::string> >(15000);
  run_all<std::string, std::greater<std::string> >(5000);
  run_all<word, by_low_half>(10000);
  return TEST_RESULT();
}

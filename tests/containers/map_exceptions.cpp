// Every operation of the ordered containers with each of its allocations, copies and comparisons failing in turn:
// nothing is lost, and the container is as it was before, but for range insertions, which keep what went in.
// test-peer: gnu++98
#include <map>
#include <set>
#include <string>

#include "fail_allocation.h"

#if defined(PLX_CONFIG_H)
#include "containers/rb_tree_validator.h"
enum { assignment_is_all_or_nothing = 1 };
#else
enum { assignment_is_all_or_nothing = 0 };  // more than the standard asks for
template <class Container> int validate(const Container &) { return 0; }
#endif

namespace {

struct refused {};

long steps_to_fail;  // copies and comparisons; counts down; 0: none
bool step_failed;
long live_keys;

void maybe_fail() {
  if (steps_to_fail == 0 || --steps_to_fail != 0) return;
  step_failed = true;
  throw refused();
}

// An element whose copies and comparisons fail on request.
struct key {
  int value;
  explicit key(int v) : value(v) { ++live_keys; }
  key(const key &other) : value(other.value) {
    maybe_fail();
    ++live_keys;
  }
  ~key() { --live_keys; }
  key &operator=(const key &other) {
    maybe_fail();
    value = other.value;
    return *this;
  }
};
bool operator<(const key &a, const key &b) {
  maybe_fail();
  return a.value < b.value;
}

typedef std::set<key> key_set;
typedef std::multiset<key> key_multiset;
typedef std::map<key, std::string> key_map;
typedef std::multimap<key, key> key_multimap;

const int count = 20;

// What the container is made of, and what of it may be lost on the way.
template <class Container> std::string listed(const Container &of) {
  std::string text;
  for (typename Container::const_iterator at = of.begin(); at != of.end(); ++at)
    text += static_cast<char>('a' + reinterpret_cast<const key &>(*at).value);
  return text;
}

key_set::value_type element_of(key_set *, int n) { return key(n); }
key_multiset::value_type element_of(key_multiset *, int n) { return key(n); }
key_map::value_type element_of(key_map *, int n) { return key_map::value_type(key(n), "a text of some characters"); }
key_multimap::value_type element_of(key_multimap *, int n) { return key_multimap::value_type(key(n), key(n)); }

template <class C> struct operation {
  C container;
  std::string before, after;  // its elements; nothing is said of an empty `after`
  bool all_or_nothing;

  operation() : all_or_nothing(true) {
    for (int i = 0; i < count; ++i) container.insert(element_of(static_cast<C *>(0), i * 7 % count));
    before = listed(container);
  }
  static typename C::value_type element(int n) { return element_of(static_cast<C *>(0), n); }
};

template <class C> struct insert_one : operation<C> {
  typename C::value_type added;
  insert_one() : added(this->element(9)) {}
  void run() { this->container.insert(added); }
};
template <class C> struct insert_hinted : operation<C> {
  typename C::value_type added;
  insert_hinted() : added(this->element(count)) { this->after = this->before + static_cast<char>('a' + count); }
  void run() { this->container.insert(this->container.end(), added); }
};
template <class C> struct insert_badly_hinted : insert_hinted<C> {
  void run() { this->container.insert(this->container.begin(), this->added); }
};
template <class C> struct insert_range : operation<C> {
  C other;
  insert_range() {
    this->all_or_nothing = false;
    for (int i = 15; i < 25; ++i) other.insert(this->element(i));
  }
  void run() { this->container.insert(other.begin(), other.end()); }
};
template <class C> struct copy_whole : operation<C> {
  void run() {
    C copy(this->container);
    CHECK(copy.size() == this->container.size());
  }
};
template <class C> struct build_from_range : operation<C> {
  void run() { C built(this->container.begin(), this->container.end()); }
};
template <class C> struct assign : operation<C> {
  C other;
  assign() {
    for (int i = 20; i < 28; ++i) other.insert(this->element(i));
    this->after = listed(other);
    this->all_or_nothing = assignment_is_all_or_nothing;
  }
  void run() { this->container = other; }
};
template <class C> struct erase_key : operation<C> {
  key wanted;
  erase_key() : wanted(9) {
    this->after = this->before;
    this->after.erase(9, 1);
  }
  void run() { this->container.erase(wanted); }
};
template <class C> struct search : operation<C> {
  key wanted;
  search() : wanted(9) {}
  void run() {
    C &c = this->container;
    CHECK(c.find(wanted) != c.end() && c.count(wanted) == 1 && c.lower_bound(wanted) != c.upper_bound(wanted) &&
          c.equal_range(wanted).first != c.end());
  }
};
template <class C> struct swap_and_clear : operation<C> {
  C other;
  void run() {
    this->container.swap(other);
    CHECK(this->container.empty());
    other.swap(this->container);
    other.clear();
  }
};
struct index_operator : operation<key_map> {
  key wanted;
  index_operator() : wanted(25) {}
  void run() { container[wanted]; }
};

// Runs the operation with its n-th step failing, n = 1, 2, ..., until it does not fail; a step is an allocation, or a
// copy or comparison of an element.
template <class Operation> int fail_each(bool allocations) {
  for (int n = 1;; ++n) {
    const long blocks = live_blocks, keys = live_keys;
    bool failed = false;
    {
      Operation one;
      step_failed = allocation_failed = false;
      (allocations ? allocation_to_fail : steps_to_fail) = n;
      try {
        one.run();
      } catch (const refused &) {
        failed = true;
      } catch (const std::bad_alloc &) {
        failed = true;
      }
      allocation_to_fail = steps_to_fail = 0;
      CHECK_INT(failed, step_failed || allocation_failed);
      CHECK_INT(validate(one.container), 0);
      if (failed && one.all_or_nothing) CHECK_TEXT(listed(one.container).c_str(), one.before.c_str());
      if (!failed && !one.after.empty()) CHECK_TEXT(listed(one.container).c_str(), one.after.c_str());
      // And it can still be used.
      one.container.insert(one.element(27));
      CHECK_INT(validate(one.container), 0);
    }
    CHECK_INT(live_blocks, blocks);
    CHECK_INT(live_keys, keys);
    if (!failed) return n - 1;
  }
}

// How many steps there must at least be to fail.
template <class Operation> void check(int allocations, int steps) {
  CHECK(fail_each<Operation>(true) >= allocations);
  CHECK(fail_each<Operation>(false) >= steps);
}

template <class C> void check_all() {
  check<insert_one<C> >(0, 4);
  check<insert_hinted<C> >(1, 2);
  check<insert_badly_hinted<C> >(1, 6);
  check<insert_range<C> >(4, 20);
  check<copy_whole<C> >(count, count);
  check<build_from_range<C> >(count, 2 * count - 1);
  check<assign<C> >(assignment_is_all_or_nothing ? 8 : 0, 8);
  check<erase_key<C> >(0, 4);
  check<search<C> >(0, 16);
  check<swap_and_clear<C> >(0, 0);
}

// Strings as keys take another road through the tree.
struct string_map {
  std::map<std::string, std::string> container;
  std::string name;
  string_map() : name("a name that is longer than any buffer within a string object") {
    container["x"] = "1";
    container["y"] = "2";
  }
  void run() {
    container[name] = "3";
    const std::map<std::string, std::string> copy(container);
    container.insert(copy.begin(), copy.end());
  }
  void check(bool failed) {
    CHECK_INT(validate(container), 0);
    CHECK(failed ? container.size() <= 3 : container[name] == "3");
    CHECK(container["x"] == "1" && container["y"] == "2");
  }
};

}  // namespace

int main() {
  check_all<key_set>();
  check_all<key_multiset>();
  check_all<key_map>();
  check_all<key_multimap>();
  check<index_operator>(1, 6);
  CHECK(fail_each_allocation<string_map>() >= 5);
  CHECK_INT(live_keys, 0);
  return TEST_RESULT();
}

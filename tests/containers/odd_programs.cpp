// test-variants: -O2 | -O1 -std=gnu++20
// test-peer: gnu++98
// Containers in programs whose types have operators, functions and limits that a library must not stumble over: each
// row is valid in 1998, or has been accepted everywhere since.
#include <bitset>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <queue>
#include <set>
#include <sstream>
#include <stack>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "harness.h"

namespace foreign {

// Operators and functions for everything, beside the types that containers hold.
template <class T> bool operator!=(const T &a, const T &b) { return !(a == b); }
template <class T> T *address_of(T &x) { return &x; }
template <class A, class T> void destroy_range(A &, T *, T *) {}

struct element {
  int value;
  element(int n = 0) : value(n) {}
};
bool operator<(const element &a, const element &b) { return a.value < b.value; }
bool operator==(const element &a, const element &b) { return a.value == b.value; }

// Its address is a secret, and by its operator & it is another one's.
struct hidden {
  unsigned char value;
  hidden(int n = 0) : value(static_cast<unsigned char>(n)) {}
  bool operator<(const hidden &other) const { return value < other.value; }
  const char *operator&() const { return "zz"; }
};
struct secret {
  int value;
  secret(int n = 0) : value(n) {}
  secret(const secret &other) : value(other.value) {}
  secret &operator=(const secret &other) {
    value = other.value;
    return *this;
  }
  ~secret() {}
  bool operator<(const secret &other) const { return value < other.value; }

private:
  void operator&() const;
};

}  // namespace foreign

namespace {

template <class Sequence> std::string shown(const Sequence &s) {
  std::string text;
  for (typename Sequence::const_iterator i = s.begin(); i != s.end(); ++i) text += static_cast<char>('0' + i->value);
  return text;
}

template <class Sequence> void changes() {
  typedef typename Sequence::value_type element;
  Sequence s(2, element(1));
  s.insert(s.end(), 2, element(2));
  s.insert(s.begin(), 2, element(3));
  s.insert(s.begin(), element(4));
  s.push_back(element(5));
  Sequence copy(s);
  copy = s;
  copy.resize(9, element(6));
  CHECK_TEXT(shown(copy).c_str(), "433112256");
  copy.assign(3, element(7));
  copy.erase(copy.begin());
  CHECK_TEXT(shown(copy).c_str(), "77");
}
template <class Element> void holds() {
  changes<std::vector<Element> >();
  changes<std::deque<Element> >();
  changes<std::list<Element> >();
  std::set<Element> set;
  set.insert(Element(3)), set.insert(Element(1));
  CHECK_TEXT(shown(set).c_str(), "13");
  std::map<Element, int> map;
  map[Element(1)] = 2;
  CHECK(map.count(Element(1)) == 1 && map.begin()->second == 2);
  std::list<Element> list;
  for (int i = 0; i < 200; ++i) list.push_back(Element(i * 7 % 10));
  list.sort();
  CHECK_INT(list.front().value, 0);
  CHECK_INT(list.back().value, 9);
}

// With std::rel_ops in sight.
template <class Container> int steps(Container c) {
  using namespace std::rel_ops;
  int n = 0;
  for (typename Container::iterator i = c.begin(); i != c.end(); ++i) ++n;
  for (typename Container::const_iterator i = c.begin(), end = c.end(); i != end; ++i) ++n;
  return n + (c != Container());
}

// A comparison may be a function of plain references.
bool by_value(foreign::element &a, foreign::element &b) { return a.value < b.value; }
bool same_value(foreign::element &a, foreign::element &b) { return a.value == b.value; }
bool by_number(int &a, int &b) { return a < b; }

void comparisons_by_reference() {
  std::list<foreign::element> some(3), more(2);
  some.front().value = 5;
  some.sort(by_value);
  some.merge(more, by_value);
  some.unique(same_value);
  CHECK_TEXT(shown(some).c_str(), "05");
  std::list<int> numbers(3, 4);
  numbers.push_back(1);
  numbers.sort(by_number);
  CHECK_INT(numbers.front(), 1);
}

// An allocator that can neither be assigned nor made of nothing.
template <class T> struct strict : std::allocator<T> {
  template <class U> struct rebind { typedef strict<U> other; };
  explicit strict(int) {}
  strict(const strict &from) : std::allocator<T>(from) {}
  template <class U> strict(const strict<U> &) {}

private:
  strict &operator=(const strict &);
};
void strict_allocators() {
  typedef std::map<int, int, std::less<int>, strict<std::pair<const int, int> > > map_type;
  map_type a(std::less<int>(), strict<int>(1)), b(std::less<int>(), strict<int>(1));
  a[1] = 2;
  a.swap(b);
  CHECK(a.empty() && b.size() == 1);
#if defined(PLX_CONFIG_H)
  std::list<int, strict<int> > list((strict<int>(1)));
  for (int i = 0; i < 100; ++i) list.push_back(i * 7 % 100);
  list.sort();
  CHECK(list.front() == 0 && list.back() == 99);
#endif
}

#if defined(PLX_CONFIG_H) || __cplusplus >= 201103L
struct constant {
  const int value;
  constant(int n) : value(n) {}
};
void elements_without_assignment() {
  std::stack<constant> stack;
  std::queue<constant> queue;
  for (int i = 0; i < 50; ++i) stack.push(constant(i)), queue.push(constant(i));
  stack.pop(), queue.pop();
  CHECK_INT(stack.top().value * 100 + queue.front().value, 4801);
  std::deque<constant> some(30, constant(2)), copy(some);
  copy.resize(45, constant(3));
  std::vector<constant> row(1, constant(2));
  row.resize(30, row[0]);
  CHECK_INT(row[29].value, 2);
  CHECK(copy.size() == 45 && copy[29].value == 2 && copy[44].value == 3);
}
#else
void elements_without_assignment() {}
#endif

enum amount { few = 3 };

void ranges_and_counts() {
  volatile int registers[] = {1, 2, 3};
  std::vector<int> v(few, 0);
  v.insert(v.begin(), few, 7);
  v.assign(few, 1);
  CHECK_INT(v.size(), 3);
  CHECK_INT(v.data()[2], 1);
#if defined(PLX_CONFIG_H)
  v.assign(registers, registers + 3);
  std::vector<int> w(registers, registers + 3);
  std::list<int> l(registers, registers + 3);
  std::deque<int> d(registers, registers + 3);
  CHECK(w == v && l.back() == 3 && d.back() == 3);
  CHECK_INT(std::vector<int>(few, few).size(), 3);
#endif
  const std::map<int, int> map;
  bool reported = false;
  try {
    map.at(1);
  } catch (const std::out_of_range &) {
    reported = true;
  }
  CHECK(reported);
}

void failures_that_leave_all() {
  std::vector<bool> bits(3, true);
  bool reported = false;
  try {
    bits.assign(static_cast<std::size_t>(-1), false);
  } catch (const std::length_error &) {
    reported = true;
  }
  CHECK(reported);
#if defined(PLX_CONFIG_H)
  CHECK(bits.size() == 3 && bits[2]);
#endif
  // The value is there before the exception leaves.
  std::istringstream in("101");
  in.exceptions(std::ios_base::eofbit);
  std::bitset<5> set;
  try {
    in >> set;
    reported = false;
  } catch (const std::ios_base::failure &) {}
  CHECK(reported && set.to_ulong() == 5);
}

}  // namespace

int main() {
  holds<foreign::element>();
  holds<foreign::hidden>();
  holds<foreign::secret>();
  CHECK_INT(steps(std::vector<int>(3)), 7);
  CHECK_INT(steps(std::vector<bool>(3)), 7);
  CHECK_INT(steps(std::deque<int>(3)), 7);
  CHECK_INT(steps(std::list<int>(3)), 7);
  CHECK_INT(steps(std::string("abc")), 7);
  CHECK_INT(steps(std::set<int>()), 0);
  comparisons_by_reference();
  strict_allocators();
  elements_without_assignment();
  ranges_and_counts();
  failures_that_leave_all();
  return TEST_RESULT();
}

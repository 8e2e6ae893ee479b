// Long random runs of vector, deque and list against a plain array: after every step the contents, both directions of
// iteration and the structure must be right. Steps may be told to fail, at the N-th copy of an element or the N-th
// allocation; then nothing may leak, the container must be usable, and where the standard promises it, unchanged.
// Valid C++98, and for the host's library too.
#ifndef TESTS_SEQUENCE_CHECK_H
#define TESTS_SEQUENCE_CHECK_H

#include <deque>
#include <list>
#include <string>
#include <vector>

#include "harness.h"

static unsigned int sequence_state = 1;
static TEST_UNUSED unsigned int random_below(unsigned int limit) {
  sequence_state = sequence_state * 1664525u + 1013904223u;
  return (sequence_state >> 8) % limit;
}

struct copy_failed {};

// An element that knows where it lives, is counted, and whose copies fail on request.
class tracked {
public:
  static long live;
  static long copies_to_fail;  // counts down; 0: none

  tracked(int v = 0) : value_(v), self_(this) { ++live; }
  tracked(const tracked &other) : value_(other.value()), self_(this) {
    may_fail();
    ++live;
  }
  tracked &operator=(const tracked &other) {
    may_fail();
    value_ = other.value();
    return *this;
  }
  ~tracked() {
    CHECK(self_ == this);
    self_ = 0;
    --live;
  }
  int value() const {
    if (self_ != this) CHECK(self_ == this);
    return value_;
  }
  bool operator==(const tracked &other) const { return value() == other.value(); }
  bool operator<(const tracked &other) const { return value() < other.value(); }

private:
  static void may_fail() {
    if (copies_to_fail != 0 && --copies_to_fail == 0) throw copy_failed();
  }
  int value_;
  const tracked *self_;
};
long tracked::live;
long tracked::copies_to_fail;

// Elements from numbers and back.
template <class T> struct made_of {
  static T make(int n) { return T(n); }
  static int number(const T &value) { return static_cast<int>(value); }
};
template <> struct made_of<tracked> {
  static tracked make(int n) { return tracked(n); }
  static int number(const tracked &value) { return value.value(); }
};
template <> struct made_of<std::string> {
  static std::string make(int n) { return std::string(static_cast<std::string::size_type>(n % 60 + 1), 'a') + static_cast<char>(n); }
  static int number(const std::string &value) { return static_cast<unsigned char>(value[value.size() - 1]); }
};

enum { model_room = 1000 };
struct model {
  int at[model_room];
  int n;

  void insert(int place, int count, int value) {
    memmove(at + place + count, at + place, static_cast<size_t>(n - place) * sizeof(int));
    for (int i = 0; i < count; ++i) at[place + i] = value;
    n += count;
  }
  void erase(int place, int count) {
    memmove(at + place, at + place + count, static_cast<size_t>(n - place - count) * sizeof(int));
    n -= count;
  }
};

// An iterator of input category: each element can be read once.
template <class T> class once {
public:
  typedef std::input_iterator_tag iterator_category;
  typedef T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef const T *pointer;
  typedef const T &reference;
  explicit once(const T *at) : at_(at) {}
  const T &operator*() const { return *at_; }
  once &operator++() {
    ++at_;
    return *this;
  }
  once operator++(int) {
    once before = *this;
    ++at_;
    return before;
  }
  bool operator==(const once &other) const { return at_ == other.at_; }
  bool operator!=(const once &other) const { return at_ != other.at_; }

private:
  const T *at_;
};

template <class Sequence> typename Sequence::iterator place(Sequence &s, int n) {
  typename Sequence::iterator at = s.begin();
  std::advance(at, n);
  return at;
}

template <class Sequence> void read_back(const Sequence &s, model &m) {
  m.n = 0;
  for (typename Sequence::const_iterator at = s.begin(); at != s.end() && m.n < model_room; ++at)
    m.at[m.n++] = made_of<typename Sequence::value_type>::number(*at);
}

// ---- Structure

template <class T> bool validate(const std::vector<T> &v) {
  return v.size() <= v.capacity() && static_cast<typename std::vector<T>::size_type>(v.end() - v.begin()) == v.size();
}

// The blocks of a deque, through its iterators: every element lies in the block of its map entry.
template <class T> bool validate(const std::deque<T> &d) {
#if defined(PLX_CONFIG_H)
  typedef typename std::deque<T>::const_iterator iterator;
  const iterator first = d.begin(), end = d.end();
  if (first._last != *first._node + 20 || end._last != *end._node + 20) return false;
  if (first._cur < *first._node || first._cur >= first._last || end._cur < *end._node || end._cur >= end._last)
    return false;
  int n = 0;
  for (T **node = first._node; node <= end._node; ++node)
    n += static_cast<int>((node == end._node ? end._cur : *node + 20) - (node == first._node ? first._cur : *node));
  if (n != static_cast<int>(d.size())) return false;
#endif
  // Steps and jumps agree.
  typename std::deque<T>::const_iterator at = d.begin();
  for (int i = 0, size = static_cast<int>(d.size()); i < size; i += 7, at += i < size ? 7 : 0)
    if (&*at != &d[static_cast<unsigned int>(i)] || at - d.begin() != i || &*(d.end() + (i - size)) != &*at) return false;
  return d.end() - d.begin() == static_cast<int>(d.size());
}

template <class T> bool validate(const std::list<T> &l) {
#if defined(PLX_CONFIG_H)
  const __zor::list_links *const end = l.end()._node, *at = end;
  unsigned int n = 0;
  do {
    if (at->next->_prev != at || at->_prev->next != at) return false;
    at = at->next;
    ++n;
  } while (at != end && n <= l.size() + 1);
  return n == l.size() + 1;
#else
  return static_cast<unsigned int>(std::distance(l.begin(), l.end())) == l.size();
#endif
}

template <class Sequence> bool same(const Sequence &s, const model &m) {
  typedef made_of<typename Sequence::value_type> made;
  if (static_cast<int>(s.size()) != m.n || s.empty() != (m.n == 0) || !validate(s)) return false;
  int i = 0;
  for (typename Sequence::const_iterator at = s.begin(); at != s.end(); ++at, ++i)
    if (i == m.n || made::number(*at) != m.at[i]) return false;
  if (i != m.n) return false;
  for (typename Sequence::const_reverse_iterator at = s.rbegin(); at != s.rend(); ++at)
    if (i == 0 || made::number(*at) != m.at[--i]) return false;
  return i == 0 && (m.n == 0 || (made::number(s.front()) == m.at[0] && made::number(s.back()) == m.at[m.n - 1]));
}

enum { step_kinds = 21 };

// One operation on both. Element numbers stay in 1..100, so that every element type can hold them.
template <class Sequence> void step(Sequence &s, model &m, unsigned int kind, int p, int q, int number) {
  typedef typename Sequence::value_type T;
  typedef made_of<T> made;
  // Numbers: of a range of equal and different elements.
  int numbers[40];
  for (int i = 0; i < 40; ++i) numbers[i] = (number + i * 7) % 100 + 1;
  const int some = q % 40;
  const long armed = tracked::copies_to_fail;
  tracked::copies_to_fail = 0;
  T values[40];
  for (int i = 0; i < some; ++i) values[i] = made::make(numbers[i]);
  const T value = made::make(number);
  tracked::copies_to_fail = armed;
  switch (kind) {
    case 0:
    case 1:
    case 2: s.push_back(value); m.insert(m.n, 1, number); break;
    case 3:
      if (m.n == 0) break;
      s.pop_back();
      --m.n;
      break;
    case 4: {
      typename Sequence::iterator at = s.insert(place(s, p), value);
      m.insert(p, 1, number);
      CHECK(at == place(s, p));
      break;
    }
    case 5: s.insert(s.begin(), value); m.insert(0, 1, number); break;
    case 6: s.insert(place(s, p), static_cast<typename Sequence::size_type>(some), value); m.insert(p, some, number); break;
    case 7:
    case 8:
      if (kind == 7)
        s.insert(place(s, p), values, values + some);
      else
        s.insert(place(s, p), once<T>(values), once<T>(values + some));
      for (int i = 0; i < some; ++i) m.insert(p + i, 1, numbers[i]);
      break;
    case 9:  // an element of its own
      if (m.n == 0) break;
      s.insert(place(s, p), *place(s, q % m.n));
      m.insert(p, 1, m.at[q % m.n]);
      break;
    case 10:
      if (m.n == 0) break;
      s.insert(place(s, p), 5, *place(s, q % m.n));
      m.insert(p, 5, m.at[q % m.n]);
      break;
    case 11:
      if (m.n == 0) break;
      s.push_back(s.front());
      m.insert(m.n, 1, m.at[0]);
      break;
    case 12:
    case 13: {
      if (p == m.n) break;
      typename Sequence::iterator at = s.erase(place(s, p));
      m.erase(p, 1);
      CHECK(at == place(s, p));
      break;
    }
    case 14: {
      const int end = p + (m.n - p) * (some + 1) / 41;
      typename Sequence::iterator at = s.erase(place(s, p), place(s, end));
      m.erase(p, end - p);
      CHECK(at == place(s, p));
      break;
    }
    case 15: {
      const int n = p * 3 / 2;
      s.resize(static_cast<typename Sequence::size_type>(n), value);
      if (n > m.n)
        m.insert(m.n, n - m.n, number);
      else
        m.n = n;
      break;
    }
    case 16: s.assign(static_cast<typename Sequence::size_type>(some), value); m.n = 0; m.insert(0, some, number); break;
    case 17:
    case 18:
      if (kind == 17)
        s.assign(values, values + some);
      else
        s.assign(once<T>(values), once<T>(values + some));
      m.n = some;
      memcpy(m.at, numbers, sizeof numbers);
      break;
    case 19: {
      Sequence copy(s);
      CHECK(copy == s);
      copy.push_back(value);
      CHECK(copy != s && s < copy && copy > s && s <= copy && copy >= s);
      s.swap(copy);
      m.insert(m.n, 1, number);
      copy = s;
      CHECK(copy == s);
      const Sequence shorter(values, values + some);
      copy = shorter;
      CHECK(copy == shorter);
      s = *&s;
      break;
    }
    case 20:
      if (q % 4 == 0) s.clear(), m.n = 0;
      break;
  }
}

template <class Sequence> void random_run(int steps) {
  Sequence s;
  model m;
  m.n = 0;
  for (int i = 0; i < steps && test_failures < 10; ++i) {
    unsigned int kind = random_below(step_kinds);
    if (m.n > 700) kind = 14;
    const int p = static_cast<int>(random_below(static_cast<unsigned int>(m.n) + 1));
    step(s, m, kind, p, static_cast<int>(random_below(1000)), static_cast<int>(random_below(100)) + 1);
    const bool good = same(s, m);
    if (!good) fprintf(stderr, "step %d, kind %u at %d of %d\n", i, kind, p, m.n);
    CHECK(good);
  }
}

#endif

// vector, deque and list: long random runs of every operation against a plain array, with contents, both directions and
// the structure checked after each; then every operation with each of its copies and allocations failing: nothing
// leaks, the container stays usable, and what the standard promises to leave alone is as before. Then what only one of
// them has.
// test-variants: -O1 -DVECTOR | -O2 -DDEQUE | -O1 -DLIST | -O2 -DLIST -DWITHOUT_SCRATCH | -O2 -std=gnu++20 -DDEQUE -DVECTOR -DLIST
#include "fail_allocation.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <list>
#include <stdexcept>
#include <string>
#include <vector>

#include "random.h"
#include "tracked.h"

// Elements from numbers of 1 to 127 and back.
template <class T> struct made_of {
  static T make(int n) { return T(n); }
  static int number(const T &value) { return static_cast<int>(value); }
};
template <> struct made_of<bool> {
  static bool make(int n) { return n % 2 != 0; }
  static int number(bool value) { return value; }
};
template <> struct made_of<tracked> {
  static tracked make(int n) { return tracked(n); }
  static int number(const tracked &value) { return value.check(), value.key; }
};
template <> struct made_of<std::string> {
  static std::string make(int n) {
    return std::string(static_cast<unsigned int>(n % 60 + 1), 'a') + static_cast<char>(n);
  }
  static int number(const std::string &value) { return value[value.size() - 1]; }
};

struct model {
  enum { room = 1000 };
  int at[room], n;

  model() : n(0) {}
  void insert(int place, int count, int value) {
    memmove(at + place + count, at + place, static_cast<size_t>(n - place) * sizeof(int));
    for (int i = 0; i < count; ++i) at[place + i] = value;
    n += count;
  }
  void erase(int place, int count) {
    n -= count;
    memmove(at + place, at + place + count, static_cast<size_t>(n - place) * sizeof(int));
  }
};

// An iterator of input category: each element can be read once.
template <class T> struct once {
  typedef std::input_iterator_tag iterator_category;
  typedef T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef const T *pointer;
  typedef const T &reference;
  explicit once(const T *a) : at(a) {}
  const T &operator*() const { return *at; }
  once &operator++() { return ++at, *this; }
  once operator++(int) { return once(at++); }
  bool operator==(const once &other) const { return at == other.at; }
  bool operator!=(const once &other) const { return at != other.at; }
  const T *at;
};

template <class Sequence> static typename Sequence::iterator place(Sequence &s, int n) {
  typename Sequence::iterator at = s.begin();
  std::advance(at, n);
  return at;
}

// Looks where it is after the operation that gave it: operands of == may be evaluated in any order.
template <class S> bool is_at(S &s, typename S::iterator given, int p) { return given == place(s, p); }

// ---- Structure

template <class T, class A> static bool valid(const std::vector<T, A> &v) {
  return v.size() <= v.capacity() && v.end() - v.begin() == static_cast<int>(v.size());
}
// The bits behind the last are zero: that is what comparing by words stands on.
template <class A> static bool valid(const std::vector<bool, A> &v) {
  return v.end() - v.begin() == static_cast<int>(v.size()) &&
         (v.size() % 32 == 0 || *v.end()._word >> v.size() % 32 == 0);
}
// Every element lies in the block of its map entry; steps and jumps agree, also in their order.
template <class T, class A> static bool valid(const std::deque<T, A> &d) {
  typedef typename std::deque<T, A>::const_iterator iterator;
  const iterator first = d.begin(), end = d.end();
  const int size = static_cast<int>(d.size());
  if (first._last != *first._node + 20 || end._last != *end._node + 20 || first._cur < *first._node ||
      first._cur >= first._last || end._cur < *end._node || end._cur >= end._last || end - first != size)
    return false;
  int n = 0;
  for (T **node = first._node; node <= end._node; ++node)
    n += static_cast<int>((node == end._node ? end._cur : *node + 20) - (node == first._node ? first._cur : *node));
  iterator at = first, back = end;
  for (int i = 0; i < size; ++i, ++at) {
    const iterator jumped = end + (i - size), other = first + (i * 7919 % (size + 1));
    if (&*at != &d[static_cast<unsigned int>(i)] || jumped != at || &*jumped != &*at || at - first != i) return false;
    if ((at < other) != (i < i * 7919 % (size + 1)) || other + (at - other) != at) return false;
  }
  for (int i = size; i-- > 0;)
    if (&*--back != &d[static_cast<unsigned int>(i)]) return false;
  return n == size;
}
template <class T, class A> static bool valid(const std::list<T, A> &l) {
  const __zor::list_links *const end = l.end()._node, *at = end;
  unsigned int n = 0;
  do {
    if (at->next->_prev != at) return false;
    at = at->next;
  } while (++n <= l.size() + 1 && at != end);
  return n == l.size() + 1;
}

template <class Sequence> static bool same(const Sequence &s, const model &m) {
  typedef made_of<typename Sequence::value_type> made;
  if (static_cast<int>(s.size()) != m.n || s.empty() != (m.n == 0) || !valid(s)) return false;
  int i = 0;
  for (typename Sequence::const_iterator at = s.begin(); at != s.end(); ++at, ++i)
    if (i == m.n || made::number(*at) != made::number(made::make(m.at[i]))) return false;
  for (typename Sequence::const_reverse_iterator at = s.rbegin(); at != s.rend(); ++at)
    if (i == 0 || made::number(*at) != made::number(made::make(m.at[--i]))) return false;
  return m.n == 0 ||
         (made::number(s.front()) == made::number(*s.begin()) && made::number(s.back()) == made::number(*s.rbegin()));
}

// ---- Operations

template <class T, class A> static void push_front(std::vector<T, A> &s, const T &value) { s.insert(s.begin(), value); }
template <class T, class A> static void pop_front(std::vector<T, A> &s) { s.erase(s.begin()); }
template <class Sequence> static void push_front(Sequence &s, const typename Sequence::value_type &value) {
  s.push_front(value);
}
template <class Sequence> static void pop_front(Sequence &s) { s.pop_front(); }

enum { kinds = 24, most_at_once = 70 };

// One operation on both: at place p, with `some` elements or with element q of the container itself.
template <class Sequence> static void step(Sequence &s, model &m, unsigned int kind, int p, int some, int number) {
  typedef typename Sequence::value_type T;
  typedef typename Sequence::size_type size;
  typedef made_of<T> made;
  const long armed = tracked::copies_to_fail, armed_blocks = allocation_to_fail;
  tracked::copies_to_fail = allocation_to_fail = 0;
  int numbers[most_at_once];
  T values[most_at_once];
  for (int i = 0; i < some; ++i) values[i] = made::make(numbers[i] = (number + i * 7) % 100 + 1);
  const T value = made::make(number);
  const int q = m.n == 0 ? 0 : some * 37 % m.n;
  tracked::copies_to_fail = armed;
  allocation_to_fail = armed_blocks;
  if (m.n == 0 && (kind == 3 || kind == 4 || (kind >= 10 && kind <= 13))) kind = 0;
  if (p == m.n && kind == 14) kind = 1;
  switch (kind) {
    case 0:
    case 1:
      s.push_back(value);
      m.insert(m.n, 1, number);
      break;
    case 2:
      push_front(s, value);
      m.insert(0, 1, number);
      break;
    case 3:
      s.pop_back();
      --m.n;
      break;
    case 4:
      pop_front(s);
      m.erase(0, 1);
      break;
    case 5:
    case 6:
      CHECK(is_at(s, s.insert(place(s, p), value), p));
      m.insert(p, 1, number);
      break;
    case 7:
      s.insert(place(s, p), static_cast<size>(some), value);
      m.insert(p, some, number);
      break;
    case 8:
    case 9:
      if (kind == 8)
        s.insert(place(s, p), values, values + some);
      else
        s.insert(place(s, p), once<T>(values), once<T>(values + some));
      for (int i = 0; i < some; ++i) m.insert(p + i, 1, numbers[i]);
      break;
    // Elements of its own.
    case 10:
      s.insert(place(s, p), *place(s, q));
      m.insert(p, 1, m.at[q]);
      break;
    case 11:
      s.insert(place(s, p), 5, *place(s, q));
      m.insert(p, 5, m.at[q]);
      break;
    case 12:
      s.push_back(*place(s, q));
      m.insert(m.n, 1, m.at[q]);
      break;
    case 13: {
      const int kept = m.at[q], n = some % (m.n + 2);
      s.assign(static_cast<size>(n), *place(s, q));
      m.n = 0;
      m.insert(0, n, kept);
      break;
    }
    case 14:
      CHECK(is_at(s, s.erase(place(s, p)), p));
      m.erase(p, 1);
      break;
    case 15: {
      const int end = p + (m.n - p) * (some + 1) / (most_at_once + 1);
      CHECK(is_at(s, s.erase(place(s, p), place(s, end)), p));
      m.erase(p, end - p);
      break;
    }
    case 16: {
      const int n = p * 3 / 2;
      s.resize(static_cast<size>(n), value);
      if (n > m.n) m.insert(m.n, n - m.n, number);
      m.n = n;
      break;
    }
    case 17:
      s.assign(static_cast<size>(some), value);
      m.n = 0;
      m.insert(0, some, number);
      break;
    case 18:
    case 19:
      if (kind == 18)
        s.assign(values, values + some);
      else
        s.assign(once<T>(values), once<T>(values + some));
      m.n = some;
      memcpy(m.at, numbers, sizeof numbers);
      break;
    case 20: {
      Sequence copy(s), empty;
      CHECK(copy == s && !(copy != s) && !(copy < s) && copy <= s && copy >= s && !(copy > s));
      copy.push_back(value);
      CHECK(copy != s && s < copy && copy > s && s <= copy && copy >= s && !(copy == s) && !(copy < s));
      s.swap(copy);
      m.insert(m.n, 1, number);
      empty.swap(copy);
      CHECK(copy.empty() && valid(copy) && copy <= s);
      copy = s;
      CHECK(copy == s && valid(copy));
      break;
    }
    case 21: {
      const Sequence other(values, values + some);
      s = other;
      CHECK(s == other && other.size() == static_cast<size>(some));
      s = *&s;
      m.n = some;
      memcpy(m.at, numbers, sizeof numbers);
      break;
    }
    case 22:
      if (some % 4 == 0) s.clear(), m.n = 0;
      break;
    case 23: {  // the first of more than there is: an array is not moved, where it has one of its own
      const Sequence part(place(s, p), s.end());
      s.insert(s.begin(), part.begin(), part.end());
      const model old = m;
      m.insert(0, old.n - p, 0);
      memcpy(m.at, old.at + p, static_cast<size_t>(old.n - p) * sizeof(int));
      break;
    }
  }
}

template <class Sequence> static void random_run(int steps) {
  const long blocks = live_blocks, elements = tracked::live;
  {
    Sequence s;
    model m;
    for (int i = 0; i < steps && test_failures < 5; ++i) {
      unsigned int kind = random_below(i / 300 % 2 ? kinds : 15);  // every other time it grows
      if (m.n > 450) kind = random_below(2) ? 15 : 3;
      const int p = static_cast<int>(random_below(static_cast<unsigned int>(m.n) + 1));
      const int some = static_cast<int>(random_below(random_below(2) ? 6 : most_at_once));
      step(s, m, kind, p, some, static_cast<int>(random_below(100)) + 1);
      const bool good = same(s, m);
      if (!good) fprintf(stderr, "step %d, kind %u at %d of %d, %d\n", i, kind, p, m.n, some);
      CHECK(good);
    }
  }
  CHECK_INT(tracked::live, elements);
  CHECK(live_blocks <= blocks + 1);  // one for the empty string
}

// ---- Failures

// What leaves the sequence unchanged: whatever adds one element at an end, and all insertions into a list.
template <class T> static bool is_strong(const std::vector<T> &, unsigned int kind, bool) {
  return kind <= 1 || kind == 12;
}
template <class T> static bool is_strong(const std::deque<T> &, unsigned int kind, bool at_end) {
  return kind <= 2 || kind == 12 || ((kind == 5 || kind == 6 || kind == 10) && at_end);
}
template <class T> static bool is_strong(const std::list<T> &, unsigned int kind, bool) {
  return kind <= 2 || (kind >= 5 && kind <= 12);
}

template <class Sequence>
static void fail_each(int size, int spare, unsigned int kind, int p, int some, bool allocations) {
  for (long n = 1; test_failures < 5; ++n) {
    const long live_before = tracked::live, blocks_before = live_blocks;
    bool failed = false;
    {
      Sequence s;
      for (int i = 0; i < size + spare; ++i) s.push_back(tracked(i % 100 + 1));
      for (int i = 0; i < spare; ++i) s.pop_back();
      model m;
      for (int i = 0; i < size; ++i) m.insert(i, 1, i % 100 + 1);
      const model before(m);
      (allocations ? allocation_to_fail : tracked::copies_to_fail) = n;
      try {
        step(s, m, kind, p, some, 50);
      } catch (const refused &) {
        failed = true;
      } catch (const std::bad_alloc &) {
        failed = true;
      }
      allocation_to_fail = tracked::copies_to_fail = 0;
      if (failed) {
        m = before;
        if (!is_strong(s, kind, p == size || p == 0)) {
          m.n = 0;
          for (typename Sequence::iterator at = s.begin(); at != s.end() && m.n < model::room; ++at)
            m.insert(m.n, 1, at->key);
        }
      }
      bool good = same(s, m);
      step(s, m, 0, 0, 0, 5);  // it goes on as if nothing had been
      step(s, m, 2, 0, 0, 6);
      good = good && same(s, m);
      if (!good)
        fprintf(stderr, "kind %u at %d of %d, failure %ld of %s\n", kind, p, size, n,
                allocations ? "allocations" : "copies");
      CHECK(good);
    }
    CHECK_INT(tracked::live, live_before);
    CHECK_INT(live_blocks, blocks_before);
    if (!failed) return;
  }
}

template <class Sequence> static void fail_all() {
  const int sizes[] = {0, 1, 45};
  for (unsigned int kind = 0; kind < kinds; ++kind)
    for (int i = 0; i < 3; ++i)
      for (int spare = 0; spare <= 40; spare += 40)
        for (int quarter = 0; quarter < 5; quarter += quarter == 1 ? 2 : 1)
          for (int some = 4; some < 40; some += 29)
            for (int allocations = 0; allocations < 2; ++allocations)
              fail_each<Sequence>(sizes[i], spare, kind, sizes[i] * quarter / 4, some, allocations != 0);
}

// An allocator that counts blocks and elements made and destroyed through it.
static long allocated, constructed;
template <class T> struct counting : std::allocator<T> {
  template <class U> struct rebind { typedef counting<U> other; };
  counting() {}
  template <class U> counting(const counting<U> &) {}
  T *allocate(std::size_t n, const void * = 0) {
    allocated += static_cast<long>(n);
    return static_cast<T *>(::operator new(n * sizeof(T)));
  }
  void deallocate(T *block, std::size_t n) {
    allocated -= static_cast<long>(n);
    ::operator delete(block);
  }
  void construct(T *at, const T &value) {
    ++constructed;
    ::new (static_cast<void *>(at)) T(value);
  }
  void destroy(T *at) {
    --constructed;
    at->~T();
  }
};

template <class Body> static void check_length_error(Body body) {
  bool reported = false;
  try {
    body();
  } catch (const std::length_error &e) {
    reported = strcmp(e.what(), "Length exception occurred") == 0;
  }
  CHECK(reported);
}
template <class Sequence, int which> struct too_much {
  void operator()() const {
    const unsigned int wrapping = 0xFFFFFFFFu / sizeof(typename Sequence::value_type) + 2;
    Sequence s(3, typename Sequence::value_type());
    if (which == 0) s.insert(s.begin(), wrapping == 1 ? 0xFFFFFFF0u : wrapping, s.front());
    if (which == 1) s.resize(0xFFFFFFFFu);
    if (which == 2) Sequence(0xFFFFFFFFu, s.front());
    if (which == 3) s.assign(0xFFFFFFFFu, s.front());
  }
};
template <class Sequence> static void out_of_range() {
  Sequence s(33, made_of<typename Sequence::value_type>::make(7));
  const Sequence &view = s;
  int caught = 0;
  for (unsigned int i = 31; i < 35; ++i) {
    try {
      s.at(i) = view.at(i == 34 ? 0xFFFFFFFFu : 0);
      view.at(i);
    } catch (const std::out_of_range &e) {
      CHECK_TEXT(e.what(), "Out of range exception occurred");
      ++caught;
    }
  }
  CHECK_INT(caught, 2);
}
template <class Sequence> static void lengths() {
  check_length_error(too_much<Sequence, 0>());
  check_length_error(too_much<Sequence, 1>());
  check_length_error(too_much<Sequence, 2>());
  CHECK(Sequence().max_size() > 1000);
}

template <class Ints, class Strings, class Elements> static void common() {
  random_run<Ints>(5000);
  random_run<Strings>(4000);
  random_run<Elements>(6000);
  fail_all<Elements>();
  lengths<Ints>();
  lengths<Strings>();
  // Two integers are a count and a value.
  Ints s(3, 7);
  s.assign(2, 5);
  s.insert(s.begin(), 2, 4);
  CHECK(s.size() == 4 && s.front() == 4 && s.back() == 5);
#if __cplusplus >= 201103L
  Ints list{3, 4};
  for (int &each : list) each *= 2;
  list.insert(list.begin(), {1, 2, 3});
  Ints moved(static_cast<Ints &&>(list));
  CHECK(moved.size() == 5 && moved.back() == 8 && list.empty() && *moved.cbegin() == 1);
  list = static_cast<Ints &&>(moved);
  list.assign({5, 6});
  CHECK(list.size() == 2 && list.front() == 5);
  list = {9};
  CHECK(list.size() == 1);
#endif
}

#ifdef VECTOR
template class std::vector<bool>;

static void vectors() {
  common<std::vector<int>, std::vector<std::string>, std::vector<tracked> >();
  random_run<std::vector<char> >(3000);
  random_run<std::vector<bool> >(12000);
  out_of_range<std::vector<int> >();
  out_of_range<std::vector<bool> >();
  lengths<std::vector<bool> >();
  check_length_error(too_much<std::vector<int>, 3>());
  {
    random_run<std::vector<std::string, counting<std::string> > >(2000);
    const std::vector<bool, counting<bool> > bits(100, true);
    CHECK(allocated == 4 && constructed == 0);
  }
  CHECK_INT(allocated, 0);
  // A full vector grows to twice its size, an empty one to 10 elements; reserving is exact.
  std::vector<int> v;
  for (unsigned int n = 1, capacity = 10; n < 200; ++n) {
    v.push_back(1);
    if (n > capacity) capacity *= 2;
    CHECK_INT(v.capacity(), capacity);
  }
  v.reserve(1000);
  const int *const block = &v[0];
  v.insert(v.begin(), 800, 3);
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
  // Bits by iterators, in steps over words.
  std::vector<bool> b(200);
  std::vector<bool>::iterator first = b.begin();
  for (int i = 0; i < 200; ++i)
    for (int k = 0; k < 200; k += 13) {
      std::vector<bool>::iterator at = first + i;
      CHECK((at += k - i) - first == k && first + k == at && (at < first + i) == (k < i) && at - (k - i) == first + i);
    }
  b.flip();
  b[3] = b[100] = false;
  b[4].flip();
  std::vector<bool>::swap(b[4], b[5]);
  CHECK(std::count(b.begin(), b.end(), true) == 197 && b[4] && !b[5] && b[199] &&
        std::find(b.rbegin(), b.rend(), false).base() - b.begin() == 101);
}
#endif

#ifdef DEQUE
struct large {
  int number;
  char rest[3000];
};
struct aligned {
  int number;
} __attribute__((__aligned__(16)));

// Blocks that the pool does not serve.
template <class T> static void other_blocks() {
  std::deque<T> d;
  for (int i = 0; i < 100; ++i) {
    T one = T();
    one.number = i;
    d.push_back(one);
    d.push_front(one);
  }
  for (unsigned int i = 0; i < 100; ++i)
    CHECK(d[i].number == 99 - static_cast<int>(i) && reinterpret_cast<unsigned int>(&d[i]) % __alignof__(T) == 0);
}

// Tides: now it grows mostly at one end, then at the other, and elements stay where they are.
template <class T> static void tides() {
  std::deque<T> d;
  model m;
  for (int i = 0; i < 12000 && test_failures < 5; ++i) {
    const unsigned int tide = static_cast<unsigned int>(i / 150) % 4;
    const bool back = random_below(8) < 6 ? tide % 2 == 0 : tide % 2 != 0;
    const bool growing = m.n == 0 || (m.n < 900 && random_below(100) < (tide < 2 ? 75u : 30u));
    const T *const kept = m.n > 2 ? &d[static_cast<unsigned int>(m.n) / 2] : 0;
    const int was = m.n;
    step(d, m, growing ? (back ? 0 : 2) : (back ? 3 : 4), 0, 0, static_cast<int>(random_below(100)) + 1);
    const unsigned int now = static_cast<unsigned int>(was / 2 + (back ? 0 : m.n - was));
    CHECK((!kept || kept == &d[now]) && (i % 16 != 0 || same(d, m)));
  }
}

static void deques() {
  common<std::deque<int>, std::deque<std::string>, std::deque<tracked> >();
  random_run<std::deque<char> >(2000);
  random_run<std::deque<std::string, counting<std::string> > >(2000);
  CHECK(allocated == 0 && constructed == 0);
  out_of_range<std::deque<int> >();
  tides<int>();
  tides<tracked>();
  other_blocks<large>();
  other_blocks<aligned>();
  // The first element goes into the middle of its block, the first at the front before it.
  std::deque<int> d;
  for (int i = 0; i < 21; ++i) d.push_back(i);
  CHECK(d.begin()._cur - *d.begin()._node == 10 && &d[20] - *d.end()._node == 10 &&
        d.end()._node - d.begin()._node == 1);
}
#endif

#ifdef LIST
#ifdef WITHOUT_SCRATCH
// Lists sort without memory too.
static int asked;
namespace __zor {
void *take_scratch(size_t) PLX_NOTHROW { return ++asked, static_cast<void *>(0); }
void give_scratch(void *) PLX_NOTHROW {}
}  // namespace __zor
#endif

// Two lists and their models: keys, and ranks that tell equal ones apart.
struct listed {
  std::list<tracked> list;
  int n, key[900], rank[900];
  listed() : n(0) {}
  void add(int k, int r) {
    list.push_back(tracked(k, r));
    key[n] = k;
    rank[n++] = r;
  }
  void move(int to, listed &from, int first, int last) {  // as splice, within one too
    int k[900], r[900];
    const int count = last - first;
    for (int i = 0; i < count; ++i) k[i] = from.key[first + i], r[i] = from.rank[first + i];
    for (int i = last; i < from.n; ++i) from.key[i - count] = from.key[i], from.rank[i - count] = from.rank[i];
    from.n -= count;
    if (&from == this && to >= last) to -= count;
    for (int i = n; i-- > to;) key[i + count] = key[i], rank[i + count] = rank[i];
    for (int i = 0; i < count; ++i) key[to + i] = k[i], rank[to + i] = r[i];
    n += count;
  }
  void sort() {
    for (int i = 1; i < n; ++i) {
      int at = i;
      while (at > 0 && key[at - 1] > key[i]) --at;
      move(at, *this, i, i + 1);
    }
  }
  bool good() const {
    if (!valid(list) || static_cast<int>(list.size()) != n) return false;
    int i = 0;
    for (std::list<tracked>::const_iterator at = list.begin(); at != list.end(); ++at, ++i)
      if (at->key != key[i] || at->rank != rank[i]) return false;
    return true;
  }
};

static bool odd(const tracked &e) { return e.key % 2 != 0; }
static bool near(const tracked &a, const tracked &b) { return b.key - a.key < 2 && a.key - b.key < 2; }
static bool greater(const tracked &a, const tracked &b) { return b < a; }

static void moving_nodes() {
  listed both[2];
  for (int i = 0; i < 30000 && test_failures < 5; ++i) {
    const unsigned int which = random_below(2), kind = random_below(12);
    listed &a = both[which], &b = random_below(3) ? both[1 - which] : a;
    const int to = static_cast<int>(random_below(static_cast<unsigned int>(a.n) + 1));
    const int first = static_cast<int>(random_below(static_cast<unsigned int>(b.n) + 1));
    const int last = first + static_cast<int>(random_below(static_cast<unsigned int>(b.n - first) + 1));
    const int key = static_cast<int>(random_below(8));
    switch (kind) {
      case 0:
      case 1: a.add(key, i % 1000); break;
      case 2:
        if (&a == &b) break;
        a.list.splice(place(a.list, to), b.list);
        a.move(to, b, 0, b.n);
        break;
      case 3:
        if (first == b.n) break;
        a.list.splice(place(a.list, to), b.list, place(b.list, first));
        a.move(to, b, first, first + 1);
        break;
      case 4:
        if (&a == &b && to > first && to < last) break;
        a.list.splice(place(a.list, to), b.list, place(b.list, first), place(b.list, last));
        a.move(to, b, first, last);
        break;
      case 5:
      case 6: {
        // The value may be one of those that go.
        const int gone = a.n && kind == 5 ? a.key[to == a.n ? 0 : to] : key;
        if (kind == 5 && a.n) a.list.remove(*place(a.list, to == a.n ? 0 : to));
        if (kind == 6) a.list.remove_if(odd);
        int kept = 0;
        for (int k = 0; k < a.n; ++k)
          if (kind == 5 ? a.key[k] != gone : a.key[k] % 2 == 0) a.key[kept] = a.key[k], a.rank[kept++] = a.rank[k];
        a.n = kept;
        break;
      }
      case 7:
      case 8: {
        if (kind == 7)
          a.list.unique();
        else
          a.list.unique(near);
        int kept = a.n != 0;
        for (int k = 1; k < a.n; ++k)
          if (kind == 7 ? a.key[k] != a.key[kept - 1] : abs(a.key[k] - a.key[kept - 1]) > 1)
            a.key[kept] = a.key[k], a.rank[kept++] = a.rank[k];
        a.n = kept;
        break;
      }
      case 9:
        a.list.reverse();
        for (int k = 0; k < a.n; ++k) a.move(0, a, k, k + 1);
        break;
      case 10:
        a.list.sort();
        a.sort();
        if (&a == &b) break;
        b.list.sort();
        b.sort();
        a.list.merge(b.list);
        for (int k = 0; k < a.n && b.n != 0;) {
          if (b.key[0] < a.key[k]) a.move(k, b, 0, 1);
          ++k;
        }
        a.move(a.n, b, 0, b.n);
        break;
      case 11:
        a.list.swap(b.list);
        if (&a != &b) {
          const int n = a.n;
          a.move(a.n, b, 0, b.n);
          b.move(0, a, 0, n);
        }
        break;
    }
    for (; both[0].n + both[1].n > 350; a.n ? --a.n : --b.n) a.n ? a.list.pop_back() : b.list.pop_back();
    if (!both[0].good() || !both[1].good()) {
      fprintf(stderr, "step %d, kind %u\n", i, kind);
      CHECK(!"the lists are as their models");
    }
  }
}

// Sorts of all lengths around runs, of keys that travel beside the nodes and of strings with common beginnings.
static void sorting() {
  for (unsigned int n = 0; n < 2500; n = n < 40 ? n + 1 : n * 5 / 4) {
    std::list<tracked> l;
    std::list<int> numbers;
    std::list<std::string> texts;
    for (unsigned int i = 0; i < n; ++i) {
      const unsigned int key = random_below(n / 3 + 1);
      l.push_back(tracked(static_cast<int>(key), static_cast<int>(i)));
      numbers.push_back(static_cast<int>(key * 2654435761u));
      texts.push_back(std::string(random_below(6), static_cast<char>(key * 37)) + static_cast<char>(key));
    }
    l.sort();
    numbers.sort();
    texts.sort();
    bool good = valid(l) && valid(numbers) && valid(texts);
    for (std::list<tracked>::iterator at = l.begin(), next = at; at != l.end() && ++next != l.end(); at = next)
      good = good && (at->key < next->key || (at->key == next->key && at->rank < next->rank));
    for (std::list<int>::iterator at = numbers.begin(), next = at; at != numbers.end() && ++next != numbers.end();
         at = next)
      good = good && *at <= *next;
    for (std::list<std::string>::iterator at = texts.begin(), next = at; at != texts.end() && ++next != texts.end();
         at = next)
      good = good && *at <= *next;
    numbers.sort(std::greater<int>());
    CHECK(good && l.size() == n && (n == 0 || numbers.front() >= numbers.back()));
  }
}

// Whichever comparison fails, every element is there afterwards.
static void failing_comparisons() {
  const long before = tracked::live;
  bool failed = true;
  for (long n = 1; failed; n += 1 + n / 20) {
    std::list<tracked> a, b;
    long sum = 0;
    for (int i = 0; i < 300; ++i) {
      a.push_back(tracked(static_cast<int>(random_below(1000))));
      b.push_back(tracked(i));
      sum += a.back().key + i;
    }
    failed = false;
    tracked::comparisons_to_fail = n;
    try {
      if (n % 2 == 0) {
        a.sort();
        a.merge(b);
      } else {
        a.sort(greater);
        b.reverse();
        a.merge(b, greater);
      }
    } catch (const refused &) {
      failed = true;
    }
    tracked::comparisons_to_fail = 0;
    CHECK(valid(a) && valid(b) && a.size() + b.size() == 600);
    for (; !a.empty(); a.pop_back()) sum -= a.back().key;
    for (; !b.empty(); b.pop_front()) sum -= b.front().key;
    CHECK_INT(sum, 0);
  }
  CHECK_INT(tracked::live, before);
}

static void lists() {
  common<std::list<int>, std::list<std::string>, std::list<tracked> >();
  random_run<std::list<std::string, counting<std::string> > >(1000);
  CHECK(allocated == 0 && constructed == 0);
  moving_nodes();
  sorting();
  failing_comparisons();
  // Undefined in the standard; nothing here.
  std::list<int> l(3, 1);
  l.splice(l.begin(), l);
  l.merge(l);
  l.splice(l.begin(), l, l.begin(), l.end());
  CHECK(l.size() == 3 && valid(l));
#ifdef WITHOUT_SCRATCH
  CHECK(asked > 100);
#endif
}
#endif

int main() {
#ifdef VECTOR
  vectors();
#endif
#ifdef DEQUE
  deques();
#endif
#ifdef LIST
  lists();
#endif
  CHECK_INT(tracked::live, 0);
  return TEST_RESULT();
}

// One operation of vector, deque or list, chosen by a number: what the random runs and the failures of sequences are
// made of. The structure is looked at after each where the library is plx.
#ifndef TESTS_SEQUENCE_OPERATIONS_H
#define TESTS_SEQUENCE_OPERATIONS_H

#include <deque>
#include <list>
#include <string>
#include <vector>

#include "archetypes.h"
#include "random.h"
#include "tracked.h"

// Elements from numbers of 1 to 127 and back. Most strings may not share their characters, so that
// copies need a block.
template <class T> struct made_of {
  static T make(int n) { return T(n); }
  static int number(const T &value) { return static_cast<int>(value); }
};
template <> struct made_of<bool> {
  static bool make(int n) { return n % 2 != 0; }
  static int number(bool value) { return value; }
};
template <> struct made_of<tracked> {
  static tracked make(int n) { return tracked(n, n * 3); }
  static int number(const tracked &value) { return value.check(), value.key * 1000 + value.rank; }
};
template <> struct made_of<std::string> {
  static std::string make(int n) {
    std::string made = std::string(static_cast<unsigned int>(n % 60 + 1), 'a') + static_cast<char>(n);
    if (n % 2 == 0) made[0] = 'b';
    return made;
  }
  static int number(const std::string &value) {
    return value[value.size() - 1] + static_cast<int>(value.size()) + 128 * (value[0] - 'a');
  }
};

template <class T> void renew(T &value, int n) { value = made_of<T>::make(n); }
inline void renew(std::string &value, int n) {
  value = made_of<std::string>::make(n);
  if (n % 3 != 0) value[0] = value[0];
}

template <class I> I moved_on(I at, int n) { return std::advance(at, n), at; }
template <class S> typename S::iterator place(S &s, int n) { return moved_on(s.begin(), n); }
template <class S> typename S::const_iterator place(const S &s, int n) { return moved_on(s.begin(), n); }
template <class S> int index_of(S &s, typename S::iterator at) {
  return static_cast<int>(std::distance(s.begin(), at));
}
template <class S> int size_of(const S &s) { return static_cast<int>(s.size()); }

template <class S> bool valid(const S &) { return true; }
#ifdef PLX_CONFIG_H
// The bits behind the last are zero: that is what comparing by words stands on.
template <class A> bool valid(const std::vector<bool, A> &v) {
  return v.size() % 32 == 0 || *v.end()._word >> v.size() % 32 == 0;
}
// Every element lies in the block of its map entry.
template <class T, class A> bool valid(const std::deque<T, A> &d) {
  typename std::deque<T, A>::const_iterator at = d.begin();
  bool good = true;
  for (int i = 0; good; ++i, ++at) {
    good = at._cur >= *at._node && at._cur < at._last && at._last == *at._node + 20 && at == d.begin() + i;
    if (at == d.end()) return good && i == size_of(d);
  }
  return false;
}
template <class T> const T &own_value(const T &value) { return value; }
#else
template <class T> T own_value(const T &value) { return value; }  // the standard asks for a copy
#endif

// Each way to step and to jump leads from the first of n elements to the i-th, and back.
template <class I> bool leads(I first, I at, int i, int n, std::bidirectional_iterator_tag) {
  I back = at;
  for (int left = i; left != 0; --left) {
    const I from = back--;
    I again = back;
    if (again == from || again++ != back || again != from) return false;
  }
  return back == first && (i == n || &*at == at.operator->());
}
template <class I> bool leads(I first, I at, int i, int n, std::random_access_iterator_tag) {
  typedef made_of<typename std::iterator_traits<I>::value_type> made;
  I there = first, back = at, again = at;
  there += i, back -= i;
  const bool steps = i == 0 || (again-- == at && again + 1 == at && again++ + 1 == at && again == at);
  return steps && there == at && back == first && first + i == at && i + first == at && at - i == first &&
         at - first == i && first - at == -i && (i == n || made::number(first[i]) == made::number(*at)) &&
         (first < at) == (i > 0) && (at > first) == (i > 0) && (at <= first) == (i == 0) && first <= at && at >= first;
}

// All that a program can see, in both directions; 1 when the structure is broken.
template <class S> unsigned int hash_of(const S &s) {
  typedef made_of<typename S::value_type> made;
  typedef typename S::const_iterator iterator;
  const int n = size_of(s), i = n * 7919 / 97 % (n + 1);
  if (!valid(s) || !leads(s.begin(), place(s, i), i, n, typename iterator::iterator_category()))
    return CHECK(!"the structure is whole"), 1;
  unsigned int hash =
      s.empty() ? 5381 : static_cast<unsigned int>(made::number(s.front()) * 7u + made::number(s.back()));
  for (iterator at = s.begin(); at != s.end(); ++at) hash = hash * 33 + static_cast<unsigned int>(made::number(*at));
  for (typename S::const_reverse_iterator at = s.rbegin(); at != s.rend(); ++at)
    hash = hash * 31 + static_cast<unsigned int>(made::number(*at));
  return hash;
}

template <class T, class A> void push_front(std::vector<T, A> &s, const T &value) { s.insert(s.begin(), value); }
template <class T, class A> void pop_front(std::vector<T, A> &s) { s.erase(s.begin()); }
template <class S> void push_front(S &s, const typename S::value_type &value) { s.push_front(value); }
template <class S> void pop_front(S &s) { s.pop_front(); }

enum { kinds = 22, adds = 9, most_at_once = 70 };  // kinds below `adds` only add

// At place p, with `some` elements or with element q of the container itself; what fails is armed when all are made.
template <class S> int change(S &s, unsigned int kind, int p, int some, int number, long *armed = 0, long fault = 0) {
  typedef typename S::value_type T;
  typedef typename S::size_type size;
  T values[most_at_once];
  for (int i = 0; i < some; ++i) renew(values[i], (number + i * 7) % 100 + 1);
  const T value = made_of<T>::make(number), *const first = values, *const last = values + some, *reached = first;
  const input_archetype<T> once(first, &reached), end_of_once(last, 0);
  const int n = size_of(s), q = n == 0 ? 0 : some * 37 % n;
  if (n == 0 && kind >= 2) kind = kind == 2 ? 0 : 6 + kind % 3;
  const typename S::iterator at = place(s, p);
  if (armed) *armed = fault;
  switch (kind) {
    case 0: s.push_back(value); break;
    case 1: push_front(s, value); break;
    case 2: s.push_back(*place(s, q)); break;
    case 3: return index_of(s, s.insert(at, value));
    case 4: return index_of(s, s.insert(at, *place(s, q)));
    case 5: s.insert(at, 5, *place(s, q)); break;
    case 6: s.insert(at, static_cast<size>(some), value); break;
    case 7: s.insert(at, first, last); break;
    case 8: s.insert(at, once, end_of_once); break;
    case 9: {  // the first of more than there is: an array is not moved, where it has one of its own
      const S part(at, s.end());
      s.insert(s.begin(), part.begin(), part.end());
      break;
    }
    case 10: s.pop_back(); break;
    case 11: pop_front(s); break;
    case 12: return p == n ? 0 : index_of(s, s.erase(at));
    case 13: return index_of(s, s.erase(at, place(s, p + (n - p) * (some + 1) / (most_at_once + 1))));
    case 14: s.resize(static_cast<size>(p * 3 / 2), value); break;
    case 15: s.assign(static_cast<size>(some), value); break;
    case 16: s.assign(first, last); break;
    case 17: s.assign(once, end_of_once); break;
    case 18: s.assign(static_cast<size>(some % (n + 2)), own_value(*place(s, q))); break;
    case 19: {
      S copy(s), other;
      copy.push_back(value);
      const int compared = (copy == s) + 2 * (copy != s) + 4 * (s < copy) + 8 * (s > copy) + 16 * (s <= copy) +
                           32 * (s >= copy) + 64 * (copy < s) + 128 * (other < s);
      s.swap(copy), other.swap(copy);
      copy = s;
      return compared + 256 * (copy == s) + 512 * size_of(other);
    }
    case 20: {
      const S other(first, last), read(once, end_of_once), filled(static_cast<size>(some), value);
      s = other;
      s = *&s;
      return (s == other) + 2 * (s == read) + 4 * (some == 0 || filled.back() == value) + 8 * size_of(filled);
    }
    default:
      if (some % 4 == 0) s.clear();
  }
  return 0;
}

// Every other time it grows; half of the places are ends.
template <class S> void random_run(const char *name, int steps) {
  const long elements = tracked::live;
  {
    S s;
    for (int i = 0; i < steps; ++i) {
      unsigned int kind = random_below(i / 300 % 2 ? unsigned(kinds) : 13);
      if (s.size() > 450) kind = random_below(2) ? 13 : 10;
      const unsigned int n = static_cast<unsigned int>(s.size()), where = random_below(4);
      const int p = static_cast<int>(where == 0 ? 0 : where == 1 ? n : random_below(n + 1));
      const int some = static_cast<int>(random_below(random_below(2) ? 6 : most_at_once));
      const int result = change(s, kind, p, some, static_cast<int>(random_below(100)) + 1);
      printf("%s %d, %u at %d: %d, %u of %u\n", name, i, kind, p, result, unsigned(s.size()), hash_of(s));
    }
  }
  CHECK_INT(tracked::live, elements);
}

#endif

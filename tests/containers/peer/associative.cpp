// map, multimap, set and multiset through every member: random operations with all results printed, against the host's
// library; keys are integers in either order, strings and what only a comparison with a state can order. The rules of
// the trees are checked after each.
// prints: 20500 lines
// test-variants: -O1 | -O1 -std=gnu++20
#include <map>
#include <set>
#include <string>

#include "../sequence_operations.h"

#ifdef PLX_CONFIG_H
#include "containers/tree_rules.h"
#else
template <class Container> bool whole(const Container &) { return true; }
#endif

struct by_digit {
  unsigned modulus;
  explicit by_digit(unsigned m = 70) : modulus(m) {}
  bool operator()(int a, int b) const { return unsigned(a) % 997 % modulus < unsigned(b) % 997 % modulus; }
};

static int number_of(int key) { return key; }
static int number_of(const std::string &key) {
  return static_cast<int>(key.size()) * 256 + static_cast<unsigned char>(key.empty() ? 0 : key[key.size() - 1]);
}
template <class K> static int number_of(const std::pair<const K, int> &element) {
  return static_cast<int>(number_of(element.first) * 31u + element.second);
}

template <class K> static K key_of(unsigned int n) { return static_cast<int>(n * 2654435761u) / 8; }
// Common beginnings of all lengths around the 8 characters that a node remembers, and some that are much longer; null
// and high characters.
template <> std::string key_of<std::string>(unsigned int n) {
  std::string key(n % 12 * (n % 7 == 0 ? 4 : 1), 'q');
  if (n / 12 % 5 == 0) return key;
  key += static_cast<char>(n / 12 % 5 == 1 ? '\0' : n / 12 % 5 == 2 ? '\xF0' : 'a' + n / 60 % 3);
  return n / 12 % 5 == 4 ? key + std::string(n / 60 % 4, '\0') : key;
}

template <class K>
static std::pair<const K, int> element_of(const std::pair<const K, int> *, unsigned int n, int value) {
  return std::pair<const K, int>(key_of<K>(n), value);
}
template <class K> static K element_of(const K *, unsigned int n, int) { return key_of<K>(n); }

// What the four do not have in common.
template <class C, class I> static typename C::iterator at_of(C &, std::pair<I, bool> put, int &result) {
  result = put.second;
  return put.first;
}
template <class C> static typename C::iterator at_of(C &, typename C::iterator at, int &) { return at; }
template <class K, class Less> static int indexed(std::map<K, int, Less> &c, const K &key) {
  return (c[key] += 3), c[key];
}
template <class C, class K> static int indexed(C &, const K &) { return 0; }

// What was moved from is empty, and as good as new.
#if __cplusplus >= 201103L
template <class C, class I> static I put_near(C &c, I near, const typename C::value_type &one) {
  return c.emplace_hint(near, one);
}
template <class C> static int exchange(C &c, C &other, const typename C::value_type &one) {
  C third(std::move(c));
  const int empty = c.empty() + 2 * (c.begin() == c.end()) + 4 * size_of(c);
  c.emplace(one), c.insert(typename C::value_type(one));
  c = other;
  other = std::move(third);
  return empty + 8 * size_of(third);
}
#else
template <class C, class I> static I put_near(C &c, I near, const typename C::value_type &one) {
  return c.insert(near, one);
}
template <class C> static int exchange(C &c, C &other, const typename C::value_type &) { return c.swap(other), 0; }
#endif

template <class C> static unsigned int number_of_all(const C &c) {
  unsigned int hash = 5381;
  for (typename C::const_iterator at = c.begin(); at != c.end();) hash = hash * 33 + unsigned(number_of(*at++));
  const int n = size_of(c), i = n * 7919 / 97 % (n + 1);
  hash += leads(c.begin(), place(c, i), i, n, std::bidirectional_iterator_tag());
  typename C::const_reverse_iterator at = c.rbegin();
  for (; at != c.rend(); ++at) hash = hash * 31 + unsigned(number_of(*at));
  return hash;
}

template <class C>
static void run(const char *name, int steps, typename C::key_compare less, typename C::key_compare other_less) {
  C all[3] = {C(less), C(other_less), C(less)};
  typedef typename C::value_type element;
  typedef typename C::key_type key_type;
  for (int i = 0; i < steps; ++i) {
    C &c = all[random_below(40) ? 0 : random_below(3)], &other = all[random_below(3)];
    const C &view = c;
    const unsigned int n = random_below(180), size = unsigned(c.size()), chosen = random_below(i / 400 % 2 ? 13 : 27);
    const key_type key = key_of<key_type>(n);
    const element one = element_of(static_cast<element *>(0), n, i % 1000);
    typename C::iterator at = place(c, static_cast<int>(random_below(size + 1))), behind = at, back = c.end();
    int result = 0;
    switch (size > 400 ? 19 : chosen) {
      default: behind = at_of(c, c.insert(one), result), result += index_of(c, behind) * 2; break;
      case 5:
      case 6:
      case 7: {
        // Most hints are right, or beside the right place; among equal keys it is as near to them as the order allows.
        typename C::iterator near[] = {at, c.lower_bound(key), c.upper_bound(key), c.upper_bound(key)};
        if (near[3] != back) ++near[3];
        result = index_of(c, chosen == 5 ? put_near(c, near[n % 4], one) : c.insert(near[n % 4], one));
        break;
      }
      case 8:
        result = index_of(c, view.find(key) == view.end() ? back : c.find(key)) * 512 + index_of(c, c.lower_bound(key));
        result = result * 512 + index_of(c, c.upper_bound(key));
        result += (view.lower_bound(key) == c.lower_bound(key)) + 2 * (view.upper_bound(key) == c.upper_bound(key));
        break;
      case 9:
        result = index_of(c, c.equal_range(key).first) * 512 + index_of(c, c.equal_range(key).second) +
                 999 * (view.equal_range(key).first == c.lower_bound(key)) + (view.equal_range(key).second == back);
        break;
      case 10:
        result = static_cast<int>(c.count(key)) + c.key_comp()(key, key_of<key_type>(n + 1)) +
                 2 * c.value_comp()(one, element_of(static_cast<element *>(0), n + 3, 1));
        break;
      case 11: result = indexed(c, key); break;
      case 12: result = (at == back ? 0 : number_of(*at) / 2) + (c.begin() == back ? 0 : number_of(*--back) / 2); break;
      case 13:
      case 14:
      case 15: result = static_cast<int>(c.erase(key)); break;
      case 16:
      case 17:
      case 18:
        if (at != back) c.erase(at);
        break;
      case 19:
        for (; behind != back && result < static_cast<int>(size > 400 ? 99 : n % 9); ++result) ++behind;
        c.erase(at, behind);
        break;
      case 20:
        result =
            (c == other) + 2 * (c != other) + 4 * (c < other) + 8 * (c > other) + 16 * (c <= other) + 32 * (c >= other);
        break;
      case 21: {
        C copy(c), built(c.begin(), c.end(), c.key_comp());
        result = (copy == built) + 16 * (whole(copy) && whole(built));
        if (n % 4 == 0) other = copy;
        break;
      }
      case 22: n < 90 ? c.swap(other) : std::swap(c, other); break;
      case 25: result = exchange(c, other, one); break;
      case 23:
        if (&c != &other && other.size() < 60) c.insert(other.begin(), other.end());
        break;
      case 24:
        if (n >= 20) break;
        c.clear();
        result = c.empty();
        c.insert(one), c.insert(one);
    }
    printf("%s %d, %u: %d, %u of %u, %d\n", name, i, chosen, result, unsigned(c.size()), number_of_all(c),
           whole(c) && whole(other));
  }
}

template class std::map<int, std::string>;
template class std::multimap<const char *, int>;
template class std::set<std::string, std::greater<std::string> >;
template class std::multiset<double>;

int main() {
  std::less<int> upward;
  std::less<std::string> by_text;
#if __cplusplus < 201103L
  run<std::map<int, int> >("map", 5500, upward, upward);
  run<std::map<int, int, by_digit> >("map by digits", 2000, by_digit(50), by_digit(11));
  run<std::multimap<int, int> >("multimap", 4000, upward, upward);
  run<std::set<std::string> >("set of strings", 5000, by_text, by_text);
  run<std::multiset<int> >("multiset", 4000, upward, upward);
#else
  run<std::map<std::string, int> >("map of strings", 6000, by_text, by_text);
  run<std::multimap<std::string, int, std::greater<std::string> > >(
      "multimap downward", 3500, std::greater<std::string>(), std::greater<std::string>());
  run<std::set<int, std::greater<int> > >("set downward", 3500, std::greater<int>(), std::greater<int>());
  run<std::set<int, by_digit> >("set by digits", 2500, by_digit(50), by_digit(110));
  run<std::multiset<std::string> >("multiset of strings", 5000, by_text, by_text);
#endif
  return 0;
}

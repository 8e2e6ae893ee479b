// map, multimap, set and multiset through every member: random operations with all results printed, against the host's
// library; keys are integers in either order, strings and what only a comparison with a state can order.
// prints: 24000 lines
#include <stdio.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "../../random.h"

struct by_digit {
  int modulus;
  explicit by_digit(int m = 7) : modulus(m) {}
  bool operator()(int a, int b) const { return a % modulus < b % modulus; }
};

static int number_of(int key) { return key; }
static int number_of(const std::string &key) {
  return static_cast<int>(key.size()) * 256 + static_cast<unsigned char>(key.empty() ? 0 : key[key.size() - 1]);
}
template <class K> static int number_of(const std::pair<const K, int> &element) {
  return number_of(element.first) * 31 + element.second;
}

template <class K> static K key_of(unsigned int n) { return static_cast<int>(n * 7 % 40); }
template <> std::string key_of<std::string>(unsigned int n) {
  return std::string(n % 12, 'q') + std::string(n % 3, static_cast<char>(n * 50));
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

template <class C> static int index_of(const C &c, typename C::const_iterator of) {
  return static_cast<int>(std::distance(c.begin(), of));
}

template <class C> static unsigned int hash_of(const C &c) {
  unsigned int hash = 5381;
  for (typename C::const_iterator at = c.begin(); at != c.end(); at++)
    hash = hash * 33 + static_cast<unsigned int>(number_of(*at));
  for (typename C::const_reverse_iterator at = c.rbegin(); at != c.rend(); ++at)
    hash = hash * 31 + static_cast<unsigned int>(number_of(*at));
  return hash;
}

template <class C> static void run(const char *name, typename C::key_compare less, typename C::key_compare other_less) {
  C all[3] = {C(less), C(other_less), C()};
  typedef typename C::value_type element;
  for (int i = 0; i < 2000; ++i) {
    C &c = all[random_below(3)], &other = all[random_below(3)];
    const C &view = c;
    const unsigned int n = random_below(60), size = static_cast<unsigned int>(c.size());
    const int at = static_cast<int>(random_below(size + 1));
    const typename C::key_type key = key_of<typename C::key_type>(n);
    const element one = element_of(static_cast<element *>(0), n, i);
    typename C::iterator place = c.begin(), back = c.end();
    std::advance(place, at);
    const unsigned int chosen = random_below(18);
    int result = 0;
    switch (chosen) {
      case 0:
      case 1:
      case 2:
      case 3: {
        typename C::iterator put = at_of(c, c.insert(one), result);
        result += index_of(c, put) * 2;
        break;
      }
      case 4: {
        // Of equal keys the standard leaves the order open where the hint is not the end of them.
        const bool open = c.count(key) != 0;
        if (!open) result = index_of(c, c.insert(place, one));
        break;
      }
      case 5: result = static_cast<int>(c.erase(key)); break;
      case 6:
        if (place != c.end()) c.erase(place);
        break;
      case 7: c.erase(place, at % 2 ? back : place); break;
      case 8:
        result = index_of(c, c.find(key) == c.end() ? back : c.lower_bound(key)) * 64 + (view.find(key) == view.end());
        break;
      case 9:
        result = index_of(c, c.upper_bound(key)) * 64 + index_of(c, view.lower_bound(key)) +
                 4096 * index_of(c, view.upper_bound(key));
        break;
      case 10: result = index_of(c, c.equal_range(key).first) * 64 + index_of(c, view.equal_range(key).second); break;
      case 11:
        result = static_cast<int>(c.count(key)) + c.key_comp()(key, key_of<typename C::key_type>(n + 1)) +
                 2 * c.value_comp()(one, element_of(static_cast<element *>(0), n + 3, 1));
        break;
      case 12:
        result =
            (c == other) + 2 * (c != other) + 4 * (c < other) + 8 * (c > other) + 16 * (c <= other) + 32 * (c >= other);
        break;
      case 13: {
        C copy(c), built(c.begin(), c.end(), c.key_comp());
        other = copy;
        result = (copy == built) + 2 * static_cast<int>(other.size());
        break;
      }
      case 14:
        if (n < 20) c.swap(other);
        if (n >= 20 && n < 40) std::swap(c, other);
        break;
      case 15:
        if (&c != &other && c.size() < 60) c.insert(other.begin(), other.end());
        break;
      case 16:
        if (n == 0) {
          c.clear();
          result = c.empty();
          break;
        }
        result = (place == c.end() ? 0 : number_of(*place)) + (c.begin() == back ? 0 : number_of(*--back));
        break;
      case 17: result = indexed(c, key); break;
    }
    printf("%s %d, %u: %d, %u of %u\n", name, i, chosen, result, unsigned(c.size()), hash_of(c));
  }
}

template class std::map<int, std::string>;
template class std::multimap<const char *, int>;
template class std::set<std::string, std::greater<std::string> >;
template class std::multiset<double>;

int main() {
  run<std::map<int, int> >("map", std::less<int>(), std::less<int>());
  run<std::map<std::string, int> >("map of strings", std::less<std::string>(), std::less<std::string>());
  run<std::map<int, int, by_digit> >("map by digits", by_digit(5), by_digit(11));
  run<std::multimap<int, int> >("multimap", std::less<int>(), std::less<int>());
  run<std::multimap<std::string, int, std::greater<std::string> > >("multimap downward", std::greater<std::string>(),
                                                                    std::greater<std::string>());
  run<std::multimap<int, int, by_digit> >("multimap by digits", by_digit(5), by_digit(11));
  run<std::set<int> >("set", std::less<int>(), std::less<int>());
  run<std::set<int, std::greater<int> > >("set downward", std::greater<int>(), std::greater<int>());
  run<std::set<std::string> >("set of strings", std::less<std::string>(), std::less<std::string>());
  run<std::set<int, by_digit> >("set by digits", by_digit(5), by_digit(11));
  run<std::multiset<int> >("multiset", std::less<int>(), std::less<int>());
  run<std::multiset<std::string> >("multiset of strings", std::less<std::string>(), std::less<std::string>());
  return 0;
}

// test-variants: -O1 | -O2 -std=gnu++17 | -O0 -std=gnu++20
//
// map and multimap (1998, 23.3.1, 23.3.2) member by member.
// test-peer: gnu++98
#include <map>

#include <string>
#include <vector>

#include "harness.h"

template class std::map<int, std::string>;
template class std::map<std::string, double, std::greater<std::string> >;
template class std::multimap<const char *, int>;

namespace {

typedef std::map<int, std::string> text_map;
typedef std::multimap<int, char> char_multimap;

// The elements as text: "1:a 2:b".
template <class Map> std::string listed(const Map &of) {
  std::string text;
  for (typename Map::const_iterator at = of.begin(); at != of.end(); ++at) {
    char number[16];
    sprintf(number, "%d:", at->first);
    if (!text.empty()) text += ' ';
    text += number;
    text += at->second;
  }
  return text;
}

// A comparison that counts and has a state: which way round.
struct counted_less {
  static int calls;
  bool descending;
  explicit counted_less(bool down = false) : descending(down) {}
  bool operator()(int a, int b) const {
    ++calls;
    return descending ? b < a : a < b;
  }
};
int counted_less::calls;

typedef std::map<int, char, counted_less> counted_map;
typedef std::multimap<int, char, counted_less> counted_multimap;

bool by_last_digit(int a, int b) { return a % 10 < b % 10; }

void check_types() {
  text_map::value_type *value = static_cast<std::pair<const int, std::string> *>(0);
  text_map::mapped_type *mapped = static_cast<std::string *>(0);
  text_map::key_compare *compare = static_cast<std::less<int> *>(0);
  text_map::allocator_type *allocator = static_cast<std::allocator<std::pair<const int, std::string> > *>(0);
  text_map::size_type size = static_cast<std::size_t>(0);
  text_map::difference_type difference = static_cast<std::ptrdiff_t>(0);
  text_map::value_compare::result_type result = true;
  std::iterator_traits<text_map::iterator>::iterator_category category = std::bidirectional_iterator_tag();
  std::iterator_traits<text_map::const_iterator>::value_type *plain = value;
  CHECK(!value && !mapped && !compare && !allocator && !size && !difference && result && !plain);
  (void)category;
}

void check_insertion() {
  text_map map;
  CHECK(map.empty() && map.size() == 0 && map.begin() == map.end());
  std::pair<text_map::iterator, bool> put = map.insert(text_map::value_type(5, "five"));
  CHECK(put.second && put.first->first == 5 && put.first->second == "five");
  put = map.insert(std::make_pair(5, "other"));
  CHECK(!put.second && put.first->second == "five");
  map[3] = "three";
  CHECK_TEXT(map[4].c_str(), "");
  map[4] += "four";
  CHECK_TEXT(listed(map).c_str(), "3:three 4:four 5:five");
  // An element of the map itself.
  map[9] = map[5];
  CHECK(!map.insert(*map.begin()).second);
  put.first->second = "FIVE";
  CHECK_TEXT(listed(map).c_str(), "3:three 4:four 5:FIVE 9:five");
  CHECK(!map.empty());
  CHECK_INT(map.size(), 4);
  CHECK(map.max_size() > 1000000);

  const std::pair<int, std::string> more[] = {std::pair<int, std::string>(7, "seven"),
                                              std::pair<int, std::string>(3, "3"),
                                              std::pair<int, std::string>(1, "one")};
  map.insert(more, more + 3);
  CHECK_TEXT(listed(map).c_str(), "1:one 3:three 4:four 5:FIVE 7:seven 9:five");
  CHECK_TEXT(listed(text_map(more, more + 3)).c_str(), "1:one 3:3 7:seven");
}

void check_equal_keys() {
  char_multimap map;
  const char letters[] = "abcdefgh";
  for (int i = 0; i < 8; ++i) {
    char_multimap::iterator at = map.insert(std::make_pair(i % 3, letters[i]));
    CHECK(at->first == i % 3 && at->second == letters[i]);
  }
  CHECK_TEXT(listed(map).c_str(), "0:a 0:d 0:g 1:b 1:e 1:h 2:c 2:f");
  CHECK_INT(map.count(1), 3);
  CHECK_INT(map.count(3), 0);
  std::pair<char_multimap::iterator, char_multimap::iterator> range = map.equal_range(1);
  CHECK(range.first->second == 'b' && range.second->second == 'c');
  CHECK(range.first == map.lower_bound(1) && range.second == map.upper_bound(1));
  const char_multimap &same = map;
  CHECK(same.equal_range(1).first == range.first && same.equal_range(7).first == map.end());
  CHECK_INT(map.find(2)->first, 2);
  CHECK_INT(map.erase(1), 3);
  CHECK_INT(map.erase(1), 0);
  CHECK_TEXT(listed(map).c_str(), "0:a 0:d 0:g 2:c 2:f");
}

// Right beside the hint, two or three comparisons are enough, whatever the size.
void check_hints() {
  counted_map map;
  for (int i = 0; i < 1000; ++i) map.insert(std::make_pair(2 * i, 'x'));
  counted_less::calls = 0;
  for (int i = 0; i < 1000; i += 2) {
    const counted_map::iterator behind = map.lower_bound(2 * i + 2);
    counted_less::calls = 0;
    const counted_map::iterator at = map.insert(behind, std::make_pair(2 * i + 1, 'y'));
    CHECK(at->first == 2 * i + 1 && counted_less::calls <= 3);
  }
  counted_less::calls = 0;
  CHECK_INT(map.insert(map.end(), std::make_pair(5000, 'z'))->first, 5000);
  CHECK_INT(map.insert(map.begin(), std::make_pair(-1, 'z'))->first, -1);
  CHECK(counted_less::calls <= 4);
  // The element that is there, through the hint and through a wrong one.
  CHECK_INT(map.insert(map.find(600), std::make_pair(600, '?'))->second, 'x');
  CHECK_INT(map.insert(map.begin(), std::make_pair(600, '?'))->second, 'x');
  CHECK_INT(map.insert(map.end(), std::make_pair(600, '?'))->second, 'x');
  CHECK_INT(map.size(), 1502);
  // A wrong hint still finds the place.
  for (int i = 0; i < 40; ++i) {
    counted_map::iterator hint = map.begin();
    for (int n = 0; n < i * 37; ++n) ++hint;
    CHECK_INT(map.insert(hint, std::make_pair(1001 + 4 * i, 'w'))->first, 1001 + 4 * i);
  }
  int last = -2;
  for (counted_map::iterator at = map.begin(); at != map.end(); last = at->first, ++at) CHECK(last < at->first);

  counted_multimap many;
  for (int i = 0; i < 300; ++i) many.insert(many.end(), std::make_pair(i / 100, 'x'));
  counted_less::calls = 0;
  const counted_multimap::iterator at = many.insert(many.lower_bound(1), std::make_pair(1, 'f'));
  CHECK(at == many.lower_bound(1));  // before the hint, not behind the others
  CHECK_INT(many.insert(many.begin(), std::make_pair(2, 'g'))->first, 2);
  CHECK_INT(many.insert(many.end(), std::make_pair(0, 'h'))->first, 0);
  CHECK(many.count(0) == 101 && many.count(1) == 101 && many.count(2) == 101);
  last = 0;
  for (counted_multimap::iterator i = many.begin(); i != many.end(); last = i->first, ++i) CHECK(last <= i->first);
}

void check_search() {
  text_map map;
  for (int i = 10; i <= 50; i += 10) map[i] = static_cast<char>('0' + i / 10);
  const text_map &same = map;
  for (int key = 5; key <= 55; ++key) {
    const bool there = key % 10 == 0;
    const int up = (key + 9) / 10 * 10;
    CHECK((map.find(key) != map.end()) == there && (same.find(key) != same.end()) == there);
    CHECK_INT(map.count(key), there);
    text_map::const_iterator lower = same.lower_bound(key), upper = same.upper_bound(key);
    CHECK(lower == map.lower_bound(key) && upper == map.upper_bound(key));
    CHECK(up > 50 ? lower == same.end() : lower->first == up);
    CHECK(there ? ++text_map::const_iterator(lower) == upper : lower == upper);
    CHECK(map.equal_range(key).first == lower && map.equal_range(key).second == upper);
    CHECK(same.equal_range(key).first == lower && same.equal_range(key).second == upper);
  }
}

void check_erasure() {
  text_map map;
  for (int i = 0; i < 8; ++i) map[i] = static_cast<char>('a' + i);
  text_map::iterator kept = map.find(4);
  map.erase(map.find(3));
  map.erase(map.begin());
  CHECK_INT(map.erase(7), 1);
  CHECK_INT(map.erase(7), 0);
  // By a key that lies in the element itself.
  CHECK_INT(map.erase(map.begin()->first), 1);
  CHECK_TEXT(listed(map).c_str(), "2:c 4:e 5:f 6:g");
  map.erase(kept, map.find(6));
  CHECK_TEXT(listed(map).c_str(), "2:c 6:g");
  map.erase(map.begin(), map.begin());
  CHECK_INT(map.size(), 2);
  map.erase(map.begin(), map.end());
  CHECK(map.empty() && map.begin() == map.end());
  map.clear();
  map[1] = "again";
  map.clear();
  CHECK(map.empty() && map.find(1) == map.end() && map.lower_bound(0) == map.end());
}

void check_iterators() {
  text_map map;
  for (int i = 0; i < 5; ++i) map[i] = static_cast<char>('a' + i);
  text_map::iterator at = map.begin();
  const text_map::iterator first = at++;
  CHECK(first->first == 0 && at->first == 1 && (++at)->first == 2 && (at--)->first == 2 && (--at)->first == 0);
  text_map::const_iterator fixed = at;
  CHECK(fixed == at && at == fixed && !(fixed != at) && fixed != map.end() && map.end() != fixed);
  fixed = map.find(3);
  CHECK_TEXT(fixed->second.c_str(), "d");
  CHECK_TEXT((*fixed).second.c_str(), "d");
  std::string back;
  for (text_map::reverse_iterator i = map.rbegin(); i != map.rend(); ++i) back += i->second;
  const text_map &same = map;
  for (text_map::const_reverse_iterator i = same.rbegin(); i != same.rend(); ++i) back += i->second;
  CHECK_TEXT(back.c_str(), "edcbaedcba");
  text_map::iterator unset;
  unset = map.end();
  CHECK_INT((--unset)->first, 4);
  CHECK_INT(std::distance(map.begin(), map.end()), 5);
}

void check_whole() {
  text_map a, b;
  a[1] = "x";
  a[2] = "y";
  CHECK(a != b && b < a && a > b && b <= a && a >= b && !(a == b));
  b = a;
  CHECK(a == b && !(a < b) && a <= b && a >= b);
  b[2] = "z";
  CHECK(a < b && a != b);
  b.erase(2);
  CHECK(b < a);
  const text_map &itself = b;
  b = itself;
  CHECK_TEXT(listed(b).c_str(), "1:x");
  const text_map::iterator in_a = a.begin();
  a.swap(b);
  CHECK_TEXT(listed(a).c_str(), "1:x");
  CHECK(in_a == b.begin() && ++text_map::iterator(b.find(2)) == b.end());
  using std::swap;
  swap(a, b);
  CHECK(in_a == a.begin());
  text_map empty;
  a.swap(empty);
  CHECK(a.empty() && empty.size() == 2);
  a[7] = "new";
  CHECK_TEXT(listed(a).c_str(), "7:new");
  const text_map copy(empty);
  empty.clear();
  CHECK_TEXT(listed(copy).c_str(), "1:x 2:y");
  CHECK(char_multimap() == char_multimap() && !(char_multimap() < char_multimap()));
}

// The comparison belongs to the container: it is copied, assigned and swapped with the elements.
void check_comparisons() {
  counted_map up, down(counted_less(true));
  for (int i = 0; i < 4; ++i) up[i] = down[i] = static_cast<char>('a' + i);
  CHECK_TEXT(listed(up).c_str(), "0:a 1:b 2:c 3:d");
  CHECK_TEXT(listed(down).c_str(), "3:d 2:c 1:b 0:a");
  CHECK(down.key_comp()(2, 1) && !up.key_comp()(2, 1));
  CHECK(down.value_comp()(*down.begin(), *down.find(0)));
  counted_map other(down);
  other[9] = 'j';
  CHECK_TEXT(listed(other).c_str(), "9:j 3:d 2:c 1:b 0:a");
  up.swap(other);
  up[5] = 'f';
  other[5] = 'f';
  CHECK_TEXT(listed(up).c_str(), "9:j 5:f 3:d 2:c 1:b 0:a");
  CHECK_TEXT(listed(other).c_str(), "0:a 1:b 2:c 3:d 5:f");
  other = up;
  other[6] = 'g';
  CHECK_TEXT(listed(other).c_str(), "9:j 6:g 5:f 3:d 2:c 1:b 0:a");

  // A function; keys that it takes for equal.
  std::map<int, int, bool (*)(int, int)> digits(by_last_digit);
  digits[13] = 1;
  digits[23] = 2;
  digits[11] = 3;
  CHECK_INT(digits.size(), 2);
  CHECK(digits.begin()->first == 11 && digits.find(93)->second == 2 && digits.find(93)->first == 13);
}

struct point {
  int x;
};
bool operator<(const point &a, const point &b) { return a.x < b.x; }

// Keys of other kinds: only operator<, pointers, containers, large and over-aligned values.
void check_kinds() {
  std::map<point, int> points;
  const point p = {3}, q = {-3};
  points[p] = 1;
  points[q] = 2;
  CHECK(points.begin()->second == 2 && points.count(p) == 1);

  int numbers[3];
  std::map<int *, int> places;
  for (int i = 2; i >= 0; --i) places[numbers + i] = i;
  CHECK(places.begin()->second == 0 && places.find(numbers + 2)->second == 2);

  std::map<text_map, std::vector<int> > nested;
  text_map key;
  nested[key].push_back(1);
  key[1] = "x";
  nested[key].push_back(2);
  key[0] = "y";
  nested[key].push_back(3);
  nested[key].push_back(4);
  CHECK(nested.size() == 3 && nested[key].size() == 2 && nested.begin()->second[0] == 1);

  std::map<double, std::vector<char> > fractions;
  for (int i = 0; i < 100; ++i) fractions[i * 0.37].assign(i, 'x');
  CHECK(fractions.size() == 100 && fractions.lower_bound(1.0)->second.size() == 3);

  std::map<bool, std::string> truths;
  truths[true] = "t";
  truths[false] = "f";
  CHECK(truths.size() == 2 && truths.begin()->second == "f");
  std::map<unsigned long, int> unsigned_keys;
  unsigned_keys[0xFFFFFFFFul] = 1;
  unsigned_keys[0] = 0;
  CHECK(unsigned_keys.begin()->second == 0 && (--unsigned_keys.end())->second == 1);
  std::map<signed char, int> signed_keys;
  signed_keys[-1] = 1;
  signed_keys[1] = 0;
  CHECK(signed_keys.begin()->second == 1);
}

// Structures that hold maps of themselves, and iterators into such maps: beyond the standard, and common.
struct trie {
  std::map<char, trie> below;
  std::map<std::string, trie>::iterator where;
  bool ends;

  trie() : ends(false) {}
  void add(const char *word) {
    if (*word)
      below[*word].add(word + 1);
    else
      ends = true;
  }
  int count() const {
    int words = ends;
    for (std::map<char, trie>::const_iterator at = below.begin(); at != below.end(); ++at) words += at->second.count();
    return words;
  }
};

void check_recursive() {
  trie words;
  words.add("map");
  words.add("maps");
  words.add("mat");
  words.add("map");
  trie copy(words);
  copy.add("");
  CHECK(words.count() == 3 && copy.count() == 4);
  std::map<std::string, trie> named;
  named["x"] = copy;
  named["x"].where = named.begin();
  CHECK_INT(named["x"].where->second.count(), 4);
}

}  // namespace

int main() {
  check_types();
  check_insertion();
  check_equal_keys();
  check_hints();
  check_search();
  check_erasure();
  check_iterators();
  check_whole();
  check_comparisons();
  check_kinds();
  check_recursive();
#if __cplusplus >= 201103L
  text_map map;
  map[1] = "a";
  map[2] = "b";
  std::string all;
  for (auto &element : map) all += element.second;
  for (const auto &element : static_cast<const text_map &>(map)) all += element.second;
  CHECK_TEXT(all.c_str(), "abab");
#endif
  return TEST_RESULT();
}

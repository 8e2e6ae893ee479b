// test-variants: -O1 | -O2 -std=gnu++17 | -O0 -std=gnu++20
//
// set and multiset (1998, 23.3.3, 23.3.4): what differs from map, programs' own allocators, and that elements are keys,
// which no iterator lets change.
// test-peer: gnu++98
#include <set>

#include <string>

#include "harness.h"

template class std::set<int>;
template class std::set<std::string, std::greater<std::string> >;
template class std::multiset<double>;

namespace {

typedef std::set<int> int_set;
typedef std::multiset<std::string> text_multiset;

const int primes[] = {13, 2, 7, 3, 11, 5, 7, 2};

template <class Set> std::string listed(const Set &of) {
  std::string text;
  for (typename Set::const_iterator at = of.begin(); at != of.end(); ++at) {
    char number[16];
    sprintf(number, "%d ", *at);
    text += number;
  }
  return text;
}

void check_set() {
  int_set set(primes, primes + 8);
  CHECK_TEXT(listed(set).c_str(), "2 3 5 7 11 13 ");
  CHECK(!set.insert(7).second && set.insert(1).second);
  CHECK(*set.insert(set.end(), 17) == 17 && *set.insert(set.begin(), 17) == 17);
  CHECK(set.count(7) == 1 && set.count(8) == 0 && set.find(8) == set.end() && *set.find(2) == 2);
  CHECK(*set.lower_bound(6) == 7 && *set.upper_bound(7) == 11 && set.upper_bound(17) == set.end());
  const int_set &same = set;
  CHECK(*same.equal_range(7).first == 7 && *same.equal_range(7).second == 11);
  CHECK(set.equal_range(6).first == set.equal_range(6).second);
  CHECK(set.erase(7) == 1 && set.erase(7) == 0);
  set.erase(set.begin());
  CHECK_TEXT(listed(set).c_str(), "2 3 5 11 13 17 ");
  CHECK(*set.rbegin() == 17 && *--set.rend() == 2 && *same.rbegin() == 17);
  CHECK(set.key_comp()(1, 2) && !set.value_comp()(2, 1));
  int_set other(set);
  CHECK(other == set);
  other.insert(4);
  CHECK(other != set && other < set);
  swap(set, other);
  CHECK(set.size() == 7 && other.size() == 6);
  set = other;
  CHECK(set == other);
  set.erase(set.find(3), set.find(13));
  CHECK_TEXT(listed(set).c_str(), "2 13 17 ");

  // Elements are shown as const, through both kinds of iterator.
  const int *element = &*set.begin();
  CHECK_INT(*element, 2);
#if defined(PLX_CONFIG_H) || __cplusplus >= 201103L
  CHECK(*set.erase(set.begin()) == 13 && set.erase(set.begin(), set.end()) == set.end());
#endif
  std::set<int, std::greater<int> > down(primes, primes + 8);
  CHECK_TEXT(listed(down).c_str(), "13 11 7 5 3 2 ");
  down.insert(other.begin(), other.end());
  CHECK_TEXT(listed(down).c_str(), "17 13 11 7 5 3 2 ");
}

void check_multiset() {
  std::multiset<int> set(primes, primes + 8);
  CHECK_TEXT(listed(set).c_str(), "2 2 3 5 7 7 11 13 ");
  CHECK(set.count(2) == 2 && set.count(1) == 0 && set.count(13) == 1);
  CHECK(*set.insert(3) == 3 && *set.insert(set.begin(), 3) == 3 && *set.insert(set.end(), 3) == 3);
  CHECK_INT(set.count(3), 4);
  CHECK_INT(std::distance(set.lower_bound(3), set.upper_bound(3)), 4);
  CHECK_INT(set.erase(3), 4);
  // An element that is erased by a reference to itself or to its twin.
  CHECK_INT(set.erase(*set.begin()), 2);
  CHECK_TEXT(listed(set).c_str(), "5 7 7 11 13 ");
  set.erase(set.find(7));
  CHECK_TEXT(listed(set).c_str(), "5 7 11 13 ");

  text_multiset texts;
  texts.insert("b");
  texts.insert("");
  texts.insert("b");
  texts.insert("abcdefgh");
  texts.insert("abcdefghi");
  texts.insert(std::string("abcdefgh\0x", 10));
  texts.insert(std::string("\0", 1));
  texts.insert("\xE9");
  std::string all;
  for (text_multiset::const_iterator at = texts.begin(); at != texts.end(); ++at) {
    char length[16];
    sprintf(length, "%d ", static_cast<int>(at->size()));
    all += length;
  }
  CHECK_TEXT(all.c_str(), "0 1 8 10 9 1 1 1 ");
  CHECK(texts.count("b") == 2 && texts.count("abcdefg") == 0 && texts.count(std::string("abcdefgh\0x", 10)) == 1);
  CHECK(texts.count(std::string("abcdefgh\0y", 10)) == 0 && *texts.lower_bound("c") == "\xE9");
}

// An allocator of 1998, with a state: containers ask it for everything, and nothing else.
struct account {
  int blocks, values, allocations;
};

template <class T> class counted_allocator {
public:
  typedef std::size_t size_type;
  typedef std::ptrdiff_t difference_type;
  typedef T *pointer;
  typedef const T *const_pointer;
  typedef T &reference;
  typedef const T &const_reference;
  typedef T value_type;
  template <class U> struct rebind { typedef counted_allocator<U> other; };

  explicit counted_allocator(account *to) : books(to) {}
  template <class U> counted_allocator(const counted_allocator<U> &other) : books(other.books) {}

  pointer address(reference object) const { return &object; }
  const_pointer address(const_reference object) const { return &object; }
  pointer allocate(size_type n, const void * = 0) {
    ++books->blocks;
    ++books->allocations;
    return static_cast<T *>(malloc(n * sizeof(T)));
  }
  void deallocate(pointer block, size_type) {
    --books->blocks;
    free(block);
  }
  size_type max_size() const { return 1000; }
  void construct(pointer place, const T &value) {
    ++books->values;
    new (place) T(value);
  }
  void destroy(pointer object) {
    --books->values;
    object->~T();
  }

  account *books;
};
template <class T, class U> bool operator==(const counted_allocator<T> &a, const counted_allocator<U> &b) {
  return a.books == b.books;
}
template <class T, class U> bool operator!=(const counted_allocator<T> &a, const counted_allocator<U> &b) {
  return a.books != b.books;
}

void check_allocator() {
  account books = {0, 0, 0};
  {
    typedef std::multiset<int, std::less<int>, counted_allocator<int> > counted_set;
    const counted_allocator<int> allocator(&books);
    counted_set set(primes, primes + 8, std::less<int>(), allocator);
    CHECK_INT(books.values, 8);
    const int for_elements = books.allocations;
    CHECK(for_elements == 8 || for_elements == 9);  // one may be the end's
    set.erase(set.begin());
    set.insert(1);
    CHECK_INT(books.values, 8);
    counted_set copy(set);
    CHECK_INT(books.values, 16);
    CHECK(copy.get_allocator() == allocator);
    copy.clear();
    CHECK_INT(books.values, 8);
    copy.swap(set);
    set = copy;
    CHECK_INT(books.values, 16);
    CHECK(set == copy && copy.size() == 8);

    // Each container keeps to its own allocator when another one is assigned to it.
    account other_books = {0, 0, 0};
    {
      counted_set other(std::less<int>(), (counted_allocator<int>(&other_books)));
      other = set;
      CHECK(other_books.values == 8 && books.values == 16 && other == set);
    }
    CHECK(other_books.values == 0 && other_books.blocks == 0);
  }
  CHECK_INT(books.values, 0);
  CHECK_INT(books.blocks, 0);
}

// Thousands of nodes of many sizes come and go: each size has its own store.
template <int bytes> struct block {
  int key;
  char rest[bytes];
  explicit block(int k) : key(k) { memset(rest, k, bytes); }
};
template <int bytes> bool operator<(const block<bytes> &a, const block<bytes> &b) { return a.key < b.key; }

template <int bytes> void check_size() {
  std::set<block<bytes> > some, others;
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 500; ++i) (i & 1 ? some : others).insert(block<bytes>(i * 37 % 500));
    for (int i = 0; i < 250; ++i) (i & 2 ? some : others).erase(block<bytes>(i));
  }
  for (typename std::set<block<bytes> >::iterator at = some.begin(); at != some.end(); ++at) {
    const block<bytes> fresh(at->key);
    CHECK(memcmp(at->rest, fresh.rest, bytes) == 0);
  }
  CHECK(some.size() + others.size() > 250);
}

}  // namespace

int main() {
  check_set();
  check_multiset();
  check_allocator();
  check_size<1>();
  check_size<4>();
  check_size<17>();
  check_size<100>();
  check_size<490>();
  check_size<3000>();
  return TEST_RESULT();
}

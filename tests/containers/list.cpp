// test-variants: -O0 | -O2 | -O2 -std=gnu++20
// list: random runs against an array with every link checked; splicing, merging, removing, reversing and sorting, also of
// a list with itself and with elements of its own.
// test-peer: gnu++98

#include <functional>
#include <stdexcept>

#include "containers/sequence_check.h"

typedef std::list<int> ints;
static ints upto(int n, int start = 0) {
  ints made;
  for (int i = 0; i < n; ++i) made.push_back(start + i);
  return made;
}
static bool is(const ints &l, const char *wanted) {
  std::string text;
  for (ints::const_iterator at = l.begin(); at != l.end(); ++at) text += static_cast<char>('0' + *at);
  if (text != wanted) fprintf(stderr, "list of %s, wanted %s\n", text.c_str(), wanted);
  return text == wanted && validate(l);
}

static void splicing() {
  ints a = upto(4), b = upto(3, 5);
  ints::iterator six = place(b, 1);
  a.splice(place(a, 2), b);
  CHECK(is(a, "0156723") && is(b, ""));
  CHECK_INT(*six, 6);
#if defined(PLX_CONFIG_H)
  // Undefined in the standard; nothing here.
  a.splice(a.begin(), a);
  b.splice(b.end(), b);
#endif
  b.splice(b.begin(), a, six);
  CHECK(is(a, "015723") && is(b, "6") && b.begin() == six);
  a.splice(a.begin(), a, a.begin());
  a.splice(place(a, 1), a, a.begin());
  CHECK(is(a, "015723"));
  a.splice(a.end(), a, a.begin());
  CHECK(is(a, "157230"));
  a.splice(a.begin(), a, place(a, 2), place(a, 4));
  CHECK(is(a, "721530"));
#if defined(PLX_CONFIG_H)
  a.splice(place(a, 2), a, place(a, 2), place(a, 4));
#endif
  a.splice(place(a, 4), a, place(a, 2), place(a, 4));
  a.splice(place(a, 3), a, place(a, 3), place(a, 3));
  CHECK(is(a, "721530"));
  b.splice(b.end(), a, place(a, 1), a.end());
  CHECK(is(a, "7") && is(b, "621530"));
  b.splice(b.begin(), a, a.begin(), a.begin());
  b.splice(b.begin(), a, a.begin(), a.end());
  CHECK(is(a, "") && is(b, "7621530"));
  a.swap(b);
  CHECK(is(b, "") && is(a, "7621530"));
  ints c = upto(2);
  c.swap(a);
  c.swap(c);
  CHECK(is(a, "01") && is(c, "7621530"));
}

static bool odd(const int &n) { return n % 2 != 0; }
static void removing() {
  ints a;
  const int numbers[] = {1, 1, 2, 3, 3, 3, 1, 1};
  a.assign(numbers, numbers + 8);
  a.unique();
  CHECK(is(a, "1231"));
  // The value is an element that goes.
  a.push_back(2);
  a.remove(a.front());
  CHECK(is(a, "232"));
  a.remove_if(odd);
  CHECK(is(a, "22"));
  a.remove(9);
  a.reverse();
  a.push_front(4);
  a.reverse();
  CHECK(is(a, "224"));
  a.unique(std::less_equal<int>());
  CHECK(is(a, "2"));
  a.clear();
  a.reverse();
  a.unique();
  a.sort();
  CHECK(is(a, ""));
}

// A key and the order of arrival.
struct keyed {
  int key, arrival;
  keyed(int k = 0, int a = 0) : key(k), arrival(a) {}
  bool operator<(const keyed &other) const { return key < other.key; }
};

static void sorting() {
  for (int n = 0; n < 3000; n = n * 5 / 4 + 1) {
    std::list<keyed> l;
    std::list<std::string> texts;
    for (int i = 0; i < n; ++i) {
      const int key = static_cast<int>(random_below(n / 3 + 1));
      l.push_back(keyed(key, i));
      texts.push_back(std::string(random_below(6), static_cast<char>(key)) + static_cast<char>('a' + key % 3));
    }
    const keyed *const kept = n > 0 ? &l.back() : 0;
    l.sort();
    texts.sort();
    bool good = static_cast<int>(l.size()) == n, seen = n == 0;
    std::list<keyed>::iterator at = l.begin();
    for (int i = 0; i < n; ++i) {
      const keyed &left = *at++;
      seen = seen || &left == kept;
      if (i + 1 < n && (at->key < left.key || (at->key == left.key && at->arrival < left.arrival))) good = false;
    }
    CHECK(good && seen && validate(l));
    good = validate(texts);
    for (std::list<std::string>::iterator text = texts.begin(); n > 1 && ++text != texts.end();) {
      std::list<std::string>::iterator before = text;
      if (*text < *--before) good = false;
    }
    CHECK(good);
    texts.sort(std::greater<std::string>());
    CHECK(n < 2 || !(texts.front() < texts.back()));
  }
  const double numbers[] = {2.5, -1, 7, 0, 2.5};
  std::list<double> d(numbers, numbers + 5);
  d.sort(std::greater<double>());
  CHECK(d.front() == 7 && d.back() == -1);
}

static void merging() {
  std::list<keyed> a, b;
  for (int i = 0; i < 10; ++i) a.push_back(keyed(i / 2, i)), b.push_back(keyed(i / 3 + 1, 100 + i));
  a.merge(b);
  CHECK(b.empty() && validate(a) && validate(b));
  a.merge(a);
  CHECK_INT(a.size(), 20);
  bool good = true;
  std::list<keyed>::iterator at = a.begin(), before = at++;
  for (; at != a.end(); before = at++)
    if (at->key < before->key || (at->key == before->key && at->arrival < before->arrival)) good = false;
  CHECK(good);
  b.merge(a);
  CHECK(a.empty() && b.size() == 20);
}

template <class T> struct failing_order {
  long *left;
  bool operator()(const T &a, const T &b) const {
    if (--*left == 0) throw copy_failed();
    return a < b;
  }
};
// Whichever comparison fails, every element is there afterwards.
template <class T> static void failing_comparisons() {
  for (long n = 1; n < 3000; n += 11) {
    std::list<T> numbers, more;
    long sum = 0, left = n, got = 0;
    for (int i = 0; i < 300; ++i) {
      const int number = static_cast<int>(random_below(1000));
      numbers.push_back(T(number));
      more.push_back(T(i));
      sum += number + i;
    }
    const failing_order<T> before = {&left};
    try {
      numbers.sort(before);
      numbers.merge(more, before);
    } catch (const copy_failed &) {
    }
    CHECK(validate(numbers) && validate(more) && numbers.size() + more.size() == 600);
    for (; !numbers.empty(); numbers.pop_back()) got += made_of<T>::number(numbers.back());
    for (; !more.empty(); more.pop_front()) got += made_of<T>::number(more.front());
    CHECK_INT(got, sum);
  }
}

static void limits() {
  ints l = upto(3);
  bool caught = false;
#if defined(PLX_CONFIG_H)
  try {
    l.insert(l.begin(), 0xFFFFFFFFu, 7);
  } catch (const std::length_error &) {
    caught = true;
  }
  CHECK(caught);
#endif
  (void)caught;
  CHECK(is(l, "012") && l.max_size() > 1000);
  l.push_front(5);
  l.pop_back();
  l.pop_front();
  CHECK(is(l, "01"));
  // A value among the elements that go.
  l.assign(1, l.back());
  CHECK(is(l, "1"));
}

int main() {
  random_run<std::list<int> >(4000);
  random_run<std::list<char> >(2000);
  random_run<std::list<std::string> >(3000);
  random_run<std::list<tracked> >(4000);
#if defined(PLX_CONFIG_H)
  failing_comparisons<int>();
  failing_comparisons<tracked>();
#endif
  CHECK_INT(tracked::live, 0);
  splicing();
  removing();
  sorting();
  merging();
  limits();
#if __cplusplus >= 201103L
  std::list<int> list{3, 4};
  for (int &each : list) each *= 2;
  std::list<int> moved(static_cast<std::list<int> &&>(list));
  CHECK(moved.size() == 2 && moved.back() == 8 && list.empty());
#endif
  return TEST_RESULT();
}

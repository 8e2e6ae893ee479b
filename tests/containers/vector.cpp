// test-variants: -O0 | -O2 | -O2 -std=gnu++20
// vector: random runs against an array for numbers, strings, vectors and elements that know their place; growth; what is
// out of range; lengths that no vector can have.
// test-peer: gnu++98

#include <stdexcept>

#include "containers/sequence_check.h"

static void growth() {
#if defined(PLX_CONFIG_H)
  std::vector<char> v;
  CHECK_INT(v.capacity(), 0);
  for (int i = 0; i < 10; ++i) v.push_back('a');
  CHECK_INT(v.capacity(), 10);
  v.push_back('b');
  CHECK_INT(v.capacity(), 20);
  std::vector<tracked> few(3, tracked(1));
  CHECK_INT(few.capacity(), 3);
  few.insert(few.begin() + 1, tracked(2));
  CHECK_INT(few.capacity(), 6);
  CHECK_INT(few[1].value(), 2);
#endif
  std::vector<int> w;
  w.reserve(100);
  CHECK(w.capacity() >= 100);
  const int *before = &*w.insert(w.begin(), 1);
  for (int i = 0; i < 99; ++i) w.push_back(i);
  CHECK(before == &w[0]);
  w.clear();
  CHECK(w.capacity() >= 100);
}

template <class Body> static void reports_length(Body body) {
  bool reported = false;
  try {
    body();
  } catch (const std::length_error &e) {
    reported = true;
#if defined(PLX_CONFIG_H)
    CHECK_TEXT(e.what(), "Length exception occurred");
#else
    (void)e;
#endif
  }
  CHECK(reported);
}

// Times the size of an element these wrap to something small.
static const unsigned int wrapping = 0x40000001u;
static void reserve_too_much() {
  std::vector<int> v(3, 1);
  v.reserve(wrapping);
}
static void insert_too_much() {
  std::vector<int> v(3, 1);
  v.insert(v.begin(), wrapping, 7);
}
static void resize_too_much() {
  std::vector<std::string> v(3, "x");
  v.resize(0xFFFFFFFFu);
}
static void construct_too_much() { std::vector<int> v(wrapping, 1); }
static void copy_too_much() {
  std::vector<char> v(reinterpret_cast<const char *>(0x1000u), reinterpret_cast<const char *>(0x81001000u));
}

static void limits() {
  std::vector<int> v(3, 1);
  const std::vector<int> &constant = v;
  int caught = 0;
  try {
    v.at(3) = 1;
  } catch (const std::out_of_range &e) {
    ++caught;
#if defined(PLX_CONFIG_H)
    CHECK_TEXT(e.what(), "Out of range exception occurred");
#endif
  }
  try {
    v[0] = constant.at(0xFFFFFFFFu);
  } catch (const std::out_of_range &) {
    ++caught;
  }
  CHECK_INT(caught, 2);
  v.at(2) = 5;
  CHECK_INT(constant.at(2), 5);

  reports_length(reserve_too_much);
  reports_length(insert_too_much);
  reports_length(resize_too_much);
  reports_length(construct_too_much);
#if defined(PLX_CONFIG_H)
  reports_length(copy_too_much);
#else
  (void)copy_too_much;
#endif
  CHECK(v.max_size() <= 0xFFFFFFFFu / sizeof(int));
}

// An allocator that counts what it is asked for, and elements made and destroyed through it.
static long allocated, constructed;
template <class T> class counting : public std::allocator<T> {
public:
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
#if defined(PLX_CONFIG_H) || __cplusplus < 202002L
static void allocators() {
  {
    std::vector<std::string, counting<std::string> > v(5, "x");
    v.insert(v.begin() + 2, 30, v[1]);
    v.insert(v.begin() + 2, v[1]);
    v.erase(v.begin(), v.begin() + 7);
    v.resize(11);
    CHECK_INT(constructed, 11);
    CHECK_INT(allocated, v.capacity());
    std::vector<bool, counting<bool> > bits(100, true);
    CHECK(allocated >= static_cast<long>(v.capacity()) + 4);
  }
  CHECK_INT(allocated, 0);
  CHECK_INT(constructed, 0);
}
#else
static void allocators() {}
#endif

// The value of an integer type is no iterator.
static void integers() {
  std::vector<long> v(3, 7);
  CHECK(v.size() == 3 && v[2] == 7);
  v.assign(2, 5);
  v.insert(v.begin(), 2, 4);
  CHECK(v.size() == 4 && v[0] == 4 && v[3] == 5);
  std::vector<std::vector<int> > nested(2, std::vector<int>(3, 1));
  nested.push_back(nested[0]);
  CHECK(nested.size() == 3 && nested[2] == nested[1]);
}

int main() {
  random_run<std::vector<int> >(4000);
  random_run<std::vector<char> >(3000);
  random_run<std::vector<double> >(2000);
  random_run<std::vector<std::string> >(4000);
  random_run<std::vector<tracked> >(4000);
  CHECK_INT(tracked::live, 0);
  growth();
  limits();
  allocators();
  integers();
#if __cplusplus >= 201103L
  std::vector<int> list{3, 4};
  CHECK(list.size() == 2);
  for (int &each : list) each *= 2;
  std::vector<int> moved(static_cast<std::vector<int> &&>(list));
  CHECK(moved.size() == 2 && moved[1] == 8 && list.empty());
#endif
  return TEST_RESULT();
}

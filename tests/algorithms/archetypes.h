// Iterators that allow what their category promises and nothing else, elements that count and throw, and random ranges:
// what the tests of algorithms share. Valid C++98.
#ifndef TESTS_ALGORITHMS_ARCHETYPES_H
#define TESTS_ALGORITHMS_ARCHETYPES_H

#include <stddef.h>
#include <stdlib.h>

#include <iterator>

#include "harness.h"

// ---- Random numbers, the same in every run -------------------------------------------------------------------------

static unsigned long random_state = 12345;
static TEST_UNUSED unsigned int random_below(unsigned int limit) {
  random_state = random_state * 1103515245ul + 12345ul;
  return static_cast<unsigned int>((random_state & 0xFFFFFFFFul) >> 8) % limit;
}

// ---- Iterators -----------------------------------------------------------------------------------------------------

// Single pass: copies share one position, and only an iterator that stands there may be used.
template <class T> class input_archetype {
public:
  typedef T value_type;
  typedef ptrdiff_t difference_type;
  typedef const T *pointer;
  typedef const T &reference;
  typedef std::input_iterator_tag iterator_category;

  input_archetype(const T *at, const T **shared) : at_(at), shared_(shared) {}
  const T &operator*() const {
    CHECK(at_ == *shared_);
    return *at_;
  }
  input_archetype &operator++() {
    CHECK(at_ == *shared_);
    *shared_ = ++at_;
    return *this;
  }
  void operator++(int) { ++*this; }
  friend bool operator==(const input_archetype &a, const input_archetype &b) { return a.at_ == b.at_; }
  friend bool operator!=(const input_archetype &a, const input_archetype &b) { return a.at_ != b.at_; }

private:
  const T *at_;
  const T **shared_;
};

// Each place is written once, in order, and never read.
template <class T> class output_archetype {
public:
  typedef void value_type;
  typedef void difference_type;
  typedef void pointer;
  typedef void reference;
  typedef std::output_iterator_tag iterator_category;

  output_archetype(T *at, T **written) : at_(at), written_(written) { *written = at; }
  class place {
  public:
    explicit place(output_archetype *of) : of_(of) {}
    template <class U> void operator=(const U &value) const {
      CHECK(of_->at_ == *of_->written_);
      *of_->at_ = value;
      ++*of_->written_;
    }

  private:
    output_archetype *of_;
  };
  place operator*() { return place(this); }
  output_archetype &operator++() {
    ++at_;
    CHECK(at_ == *written_);
    return *this;
  }
  output_archetype operator++(int) {
    output_archetype before(*this);
    ++*this;
    return before;
  }
  T *base() const { return at_; }

private:
  T *at_;
  T **written_;
};

template <class T> class forward_archetype {
public:
  typedef T value_type;
  typedef ptrdiff_t difference_type;
  typedef T *pointer;
  typedef T &reference;
  typedef std::forward_iterator_tag iterator_category;

  forward_archetype() : at_(0) {}
  explicit forward_archetype(T *at) : at_(at) {}
  T &operator*() const { return *at_; }
  T *operator->() const { return at_; }
  forward_archetype &operator++() {
    ++at_;
    return *this;
  }
  forward_archetype operator++(int) { return forward_archetype(at_++); }
  friend bool operator==(const forward_archetype &a, const forward_archetype &b) { return a.at_ == b.at_; }
  friend bool operator!=(const forward_archetype &a, const forward_archetype &b) { return a.at_ != b.at_; }
  T *base() const { return at_; }

private:
  T *at_;
};

template <class T> class bidirectional_archetype {
public:
  typedef T value_type;
  typedef ptrdiff_t difference_type;
  typedef T *pointer;
  typedef T &reference;
  typedef std::bidirectional_iterator_tag iterator_category;

  bidirectional_archetype() : at_(0) {}
  explicit bidirectional_archetype(T *at) : at_(at) {}
  T &operator*() const { return *at_; }
  bidirectional_archetype &operator++() {
    ++at_;
    return *this;
  }
  bidirectional_archetype operator++(int) { return bidirectional_archetype(at_++); }
  bidirectional_archetype &operator--() {
    --at_;
    return *this;
  }
  bidirectional_archetype operator--(int) { return bidirectional_archetype(at_--); }
  friend bool operator==(const bidirectional_archetype &a, const bidirectional_archetype &b) { return a.at_ == b.at_; }
  friend bool operator!=(const bidirectional_archetype &a, const bidirectional_archetype &b) { return a.at_ != b.at_; }
  T *base() const { return at_; }

private:
  T *at_;
};

template <class T> class random_archetype {
public:
  typedef T value_type;
  typedef ptrdiff_t difference_type;
  typedef T *pointer;
  typedef T &reference;
  typedef std::random_access_iterator_tag iterator_category;

  random_archetype() : at_(0) {}
  explicit random_archetype(T *at) : at_(at) {}
  T &operator*() const { return *at_; }
  T &operator[](ptrdiff_t n) const { return at_[n]; }
  random_archetype &operator++() { return *this += 1; }
  random_archetype operator++(int) { return random_archetype(at_++); }
  random_archetype &operator--() { return *this += -1; }
  random_archetype operator--(int) { return random_archetype(at_--); }
  random_archetype &operator+=(ptrdiff_t n) {
    at_ += n;
    return *this;
  }
  random_archetype &operator-=(ptrdiff_t n) { return *this += -n; }
  friend random_archetype operator+(random_archetype a, ptrdiff_t n) { return a += n; }
  friend random_archetype operator+(ptrdiff_t n, random_archetype a) { return a += n; }
  friend random_archetype operator-(random_archetype a, ptrdiff_t n) { return a -= n; }
  friend ptrdiff_t operator-(random_archetype a, random_archetype b) { return a.at_ - b.at_; }
  friend bool operator==(random_archetype a, random_archetype b) { return a.at_ == b.at_; }
  friend bool operator!=(random_archetype a, random_archetype b) { return a.at_ != b.at_; }
  friend bool operator<(random_archetype a, random_archetype b) { return a.at_ < b.at_; }
  friend bool operator>(random_archetype a, random_archetype b) { return a.at_ > b.at_; }
  friend bool operator<=(random_archetype a, random_archetype b) { return a.at_ <= b.at_; }
  friend bool operator>=(random_archetype a, random_archetype b) { return a.at_ >= b.at_; }
  T *base() const { return at_; }

private:
  T *at_;
};

template <class T> T *base_of(T *at) { return at; }
template <class T> T *base_of(forward_archetype<T> at) { return at.base(); }
template <class T> T *base_of(bidirectional_archetype<T> at) { return at.base(); }
template <class T> T *base_of(random_archetype<T> at) { return at.base(); }
template <class T> T *base_of(output_archetype<T> at) { return at.base(); }

// ---- Elements ------------------------------------------------------------------------------------------------------

static long live_elements TEST_UNUSED;
static long element_copies TEST_UNUSED;
static long copy_to_fail TEST_UNUSED;  // counts down; 0: none
static long comparisons TEST_UNUSED;
static long comparison_to_fail TEST_UNUSED;

struct fault {};

static TEST_UNUSED void count_down(long &to_fail) {
  if (to_fail != 0 && --to_fail == 0) throw fault();
}

// Ordered by key; `rank` tells equal ones apart. It refuses to be used where no object lives.
class element {
public:
  element() : key(0), rank(0), self_(this) { ++live_elements; }
  explicit element(unsigned k) : key(static_cast<int>(k)), rank(0), self_(this) { ++live_elements; }
  element(int k, int r) : key(k), rank(r), self_(this) { ++live_elements; }
  element(const element &other) : key(other.key), rank(other.rank), self_(this) {
    CHECK(other.self_ == &other);
    ++element_copies;
    count_down(copy_to_fail);
    ++live_elements;
  }
  element &operator=(const element &other) {
    CHECK(self_ == this && other.self_ == &other);
    ++element_copies;
    count_down(copy_to_fail);
    key = other.key;
    rank = other.rank;
    return *this;
  }
  ~element() {
    CHECK(self_ == this);
    self_ = 0;
    --live_elements;
  }
  friend bool operator<(const element &a, const element &b) {
    ++comparisons;
    count_down(comparison_to_fail);
    return a.key < b.key;
  }
  friend bool operator==(const element &a, const element &b) {
    ++comparisons;
    count_down(comparison_to_fail);
    return a.key == b.key;
  }

  int key;
  int rank;

private:
  const element *self_;
};

#endif

// Iterators that allow what their category promises and nothing else. An input iterator may only be used where the last
// one of its kind went, an output iterator writes each place once and in order. Valid C++98, and for the host's
// library.
#ifndef TESTS_ARCHETYPES_H
#define TESTS_ARCHETYPES_H

#include <stddef.h>
#include <stdlib.h>

#include <iterator>

// What an operation needs, asked where it is used.
#define ARCHETYPE_NEEDS(tag) (void)static_cast<const std::tag##_iterator_tag *>(static_cast<Category *>(0))

template <class T, class Category> class archetype {
public:
  typedef T value_type;
  typedef ptrdiff_t difference_type;
  typedef T *pointer;
  typedef T &reference;
  typedef Category iterator_category;

  archetype() : at_(0) {}
  explicit archetype(T *at) : at_(at) {}
  T *base() const { return at_; }
  T &operator*() const { return *at_; }
  T *operator->() const { return at_; }
  archetype &operator++() { return ++at_, *this; }
  archetype operator++(int) { return archetype(at_++); }
  archetype &operator--() { return ARCHETYPE_NEEDS(bidirectional), --at_, *this; }
  archetype operator--(int) { return ARCHETYPE_NEEDS(bidirectional), archetype(at_--); }
  T &operator[](ptrdiff_t n) const { return *(*this + n); }
  archetype &operator+=(ptrdiff_t n) { return ARCHETYPE_NEEDS(random_access), at_ += n, *this; }
  archetype &operator-=(ptrdiff_t n) { return *this += -n; }
  friend archetype operator+(archetype a, ptrdiff_t n) { return a += n; }
  friend archetype operator+(ptrdiff_t n, archetype a) { return a += n; }
  friend archetype operator-(archetype a, ptrdiff_t n) { return a += -n; }
  friend ptrdiff_t operator-(archetype a, archetype b) { return ARCHETYPE_NEEDS(random_access), a.at_ - b.at_; }
  friend bool operator==(archetype a, archetype b) { return a.at_ == b.at_; }
  friend bool operator!=(archetype a, archetype b) { return a.at_ != b.at_; }
  friend bool operator<(archetype a, archetype b) { return a - b < 0; }
  friend bool operator>(archetype a, archetype b) { return b < a; }
  friend bool operator<=(archetype a, archetype b) { return !(b < a); }
  friend bool operator>=(archetype a, archetype b) { return !(a < b); }

private:
  T *at_;
};

// `reached` is shared by the copies of an iterator; two ranges need two.
template <class T> class input_archetype {
public:
  typedef T value_type;
  typedef ptrdiff_t difference_type;
  typedef const T *pointer;
  typedef const T &reference;
  typedef std::input_iterator_tag iterator_category;
  input_archetype(const T *at, const T **reached) : at_(at), reached_(reached) {}
  const T &operator*() const {
    if (at_ != *reached_) abort();
    return *at_;
  }
  input_archetype &operator++() {
    if (at_ != *reached_) abort();
    *reached_ = ++at_;
    return *this;
  }
  void operator++(int) { ++*this; }
  friend bool operator==(const input_archetype &a, const input_archetype &b) { return a.at_ == b.at_; }
  friend bool operator!=(const input_archetype &a, const input_archetype &b) { return a.at_ != b.at_; }

private:
  const T *at_, **reached_;
};

template <class T> class output_archetype {
public:
  typedef void value_type, difference_type, pointer, reference;
  typedef std::output_iterator_tag iterator_category;
  output_archetype(T *at, T **written) : at_(at), written_(written) { *written = at; }
  T *base() const { return at_; }
  output_archetype &operator*() { return *this; }
  template <class U> void operator=(const U &value) {
    if (at_ != (*written_)++) abort();
    *at_ = value;
  }
  output_archetype &operator++() {
    if (++at_ != *written_) abort();
    return *this;
  }
  output_archetype operator++(int) {
    const output_archetype before(*this);
    ++*this;
    return before;
  }

private:
  T *at_, **written_;
};

template <class T> T *base_of(T *at) { return at; }
template <class T, class Category> T *base_of(archetype<T, Category> at) { return at.base(); }
template <class T> T *base_of(output_archetype<T> at) { return at.base(); }

#endif

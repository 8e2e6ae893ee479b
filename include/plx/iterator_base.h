// What <string>, the containers and <iterator> share (1998, 24.3 and 24.4.1): categories, traits, steps and
// reverse_iterator.
#ifndef PLX_ITERATOR_BASE_H
#define PLX_ITERATOR_BASE_H

#include <stddef.h>

#include <plx/config.h>

namespace std {

using ::ptrdiff_t;
using ::size_t;

struct input_iterator_tag {};
struct output_iterator_tag {};
struct forward_iterator_tag : public input_iterator_tag {};
struct bidirectional_iterator_tag : public forward_iterator_tag {};
struct random_access_iterator_tag : public bidirectional_iterator_tag {};

template <class Category, class T, class Distance = ptrdiff_t, class Pointer = T *, class Reference = T &>
struct iterator {
  typedef T value_type;
  typedef Distance difference_type;
  typedef Pointer pointer;
  typedef Reference reference;
  typedef Category iterator_category;
};

template <class Iterator> struct iterator_traits {
  typedef typename Iterator::difference_type difference_type;
  typedef typename Iterator::value_type value_type;
  typedef typename Iterator::pointer pointer;
  typedef typename Iterator::reference reference;
  typedef typename Iterator::iterator_category iterator_category;
};

template <class T> struct iterator_traits<T *> {
  typedef ptrdiff_t difference_type;
  typedef T value_type;
  typedef T *pointer;
  typedef T &reference;
  typedef random_access_iterator_tag iterator_category;
};

template <class T> struct iterator_traits<const T *> {
  typedef ptrdiff_t difference_type;
  typedef T value_type;
  typedef const T *pointer;
  typedef const T &reference;
  typedef random_access_iterator_tag iterator_category;
};

}  // namespace std

namespace __zor {

template <class Iterator, class Distance> inline void advance(Iterator &at, Distance n, std::input_iterator_tag) {
  for (; n > 0; --n) ++at;
}

template <class Iterator, class Distance>
inline void advance(Iterator &at, Distance n, std::bidirectional_iterator_tag) {
  for (; n > 0; --n) ++at;
  for (; n < 0; ++n) --at;
}

template <class Iterator, class Distance>
inline void advance(Iterator &at, Distance n, std::random_access_iterator_tag) {
  at += static_cast<typename std::iterator_traits<Iterator>::difference_type>(n);
}

template <class Iterator>
inline typename std::iterator_traits<Iterator>::difference_type distance(Iterator first, Iterator last,
                                                                         std::input_iterator_tag) {
  typename std::iterator_traits<Iterator>::difference_type n = 0;
  for (; first != last; ++first) ++n;
  return n;
}

template <class Iterator>
inline typename std::iterator_traits<Iterator>::difference_type distance(Iterator first, Iterator last,
                                                                         std::random_access_iterator_tag) {
  return last - first;
}

}  // namespace __zor

namespace std {

template <class Iterator, class Distance> inline void advance(Iterator &at, Distance n) {
  __zor::advance(at, n, typename iterator_traits<Iterator>::iterator_category());
}

template <class Iterator>
inline typename iterator_traits<Iterator>::difference_type distance(Iterator first, Iterator last) {
  return __zor::distance(first, last, typename iterator_traits<Iterator>::iterator_category());
}

// Walks backward: it refers to the element before the one its base refers to.
template <class Iterator> class reverse_iterator
    : public iterator<typename iterator_traits<Iterator>::iterator_category,
                      typename iterator_traits<Iterator>::value_type,
                      typename iterator_traits<Iterator>::difference_type, typename iterator_traits<Iterator>::pointer,
                      typename iterator_traits<Iterator>::reference> {
public:
  typedef Iterator iterator_type;
  typedef typename iterator_traits<Iterator>::difference_type difference_type;
  typedef typename iterator_traits<Iterator>::reference reference;
  typedef typename iterator_traits<Iterator>::pointer pointer;

  reverse_iterator() : current() {}
  explicit reverse_iterator(Iterator base) : current(base) {}
  template <class Other> reverse_iterator(const reverse_iterator<Other> &other) : current(other.base()) {}

  Iterator base() const { return current; }
  reference operator*() const {
    Iterator before = current;
    return *--before;
  }
  pointer operator->() const { return &operator*(); }
  reference operator[](difference_type n) const { return *(*this + n); }

  reverse_iterator &operator++() {
    --current;
    return *this;
  }
  reverse_iterator operator++(int) {
    reverse_iterator before = *this;
    --current;
    return before;
  }
  reverse_iterator &operator--() {
    ++current;
    return *this;
  }
  reverse_iterator operator--(int) {
    reverse_iterator before = *this;
    ++current;
    return before;
  }
  reverse_iterator operator+(difference_type n) const { return reverse_iterator(current - n); }
  reverse_iterator operator-(difference_type n) const { return reverse_iterator(current + n); }
  reverse_iterator &operator+=(difference_type n) {
    current -= n;
    return *this;
  }
  reverse_iterator &operator-=(difference_type n) {
    current += n;
    return *this;
  }

protected:
  Iterator current;
};

template <class A, class B> inline bool operator==(const reverse_iterator<A> &left, const reverse_iterator<B> &right) {
  return left.base() == right.base();
}
template <class A, class B> inline bool operator!=(const reverse_iterator<A> &left, const reverse_iterator<B> &right) {
  return left.base() != right.base();
}
template <class A, class B> inline bool operator<(const reverse_iterator<A> &left, const reverse_iterator<B> &right) {
  return right.base() < left.base();
}
template <class A, class B> inline bool operator>(const reverse_iterator<A> &left, const reverse_iterator<B> &right) {
  return left.base() < right.base();
}
template <class A, class B> inline bool operator<=(const reverse_iterator<A> &left, const reverse_iterator<B> &right) {
  return !(left.base() < right.base());
}
template <class A, class B> inline bool operator>=(const reverse_iterator<A> &left, const reverse_iterator<B> &right) {
  return !(right.base() < left.base());
}
template <class A, class B>
inline typename reverse_iterator<A>::difference_type operator-(const reverse_iterator<A> &left,
                                                               const reverse_iterator<B> &right) {
  return right.base() - left.base();
}
template <class A>
inline reverse_iterator<A> operator+(typename reverse_iterator<A>::difference_type n, const reverse_iterator<A> &at) {
  return at + n;
}

}  // namespace std

#endif

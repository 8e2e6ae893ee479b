// What <string>, the containers and <iterator> share (1998, 24.3 and 24.4.1): categories, traits, steps and
// reverse_iterator.
#ifndef PLX_ITERATOR_BASE_H
#define PLX_ITERATOR_BASE_H

#include <stddef.h>

#include <plx/base/config.h>
#include <plx/base/type_properties.h>

namespace std {

using ::ptrdiff_t;
using ::size_t;

struct input_iterator_tag {};
struct output_iterator_tag {};
struct forward_iterator_tag : public input_iterator_tag {};
struct bidirectional_iterator_tag : public forward_iterator_tag {};
struct random_access_iterator_tag : public bidirectional_iterator_tag {};

template <class _Category, class _T, class _Distance = ptrdiff_t, class _Pointer = _T *, class _Reference = _T &>
struct iterator {
  typedef _T value_type;
  typedef _Distance difference_type;
  typedef _Pointer pointer;
  typedef _Reference reference;
  typedef _Category iterator_category;
};

template <class _Iterator> struct iterator_traits {
  typedef typename _Iterator::difference_type difference_type;
  typedef typename _Iterator::value_type value_type;
  typedef typename _Iterator::pointer pointer;
  typedef typename _Iterator::reference reference;
  typedef typename _Iterator::iterator_category iterator_category;
};

template <class _T> struct iterator_traits<_T *> {
  typedef ptrdiff_t difference_type;
  typedef _T value_type;
  typedef _T *pointer;
  typedef _T &reference;
  typedef random_access_iterator_tag iterator_category;
};

template <class _T> struct iterator_traits<const _T *> {
  typedef ptrdiff_t difference_type;
  typedef _T value_type;
  typedef const _T *pointer;
  typedef const _T &reference;
  typedef random_access_iterator_tag iterator_category;
};

}  // namespace std

namespace __zor {

// In the iterator's own type of distance: what a program counts with may be an enumerator, or convert to a number.
template <class _Iterator, class _Distance> inline void advance(_Iterator &_at, _Distance _n, std::input_iterator_tag) {
  for (; _n > 0; --_n) ++_at;
}

template <class _Iterator, class _Distance>
inline void advance(_Iterator &_at, _Distance _n, std::bidirectional_iterator_tag) {
  for (; _n > 0; --_n) ++_at;
  for (; _n < 0; ++_n) --_at;
}

template <class _Iterator, class _Distance>
inline void advance(_Iterator &_at, _Distance _n, std::random_access_iterator_tag) {
  _at += _n;
}

template <class _Iterator>
inline typename std::iterator_traits<_Iterator>::difference_type distance(_Iterator _first, _Iterator _last,
                                                                          std::input_iterator_tag) {
  typename std::iterator_traits<_Iterator>::difference_type _n = 0;
  for (; _first != _last; ++_first) ++_n;
  return _n;
}

template <class _Iterator>
inline typename std::iterator_traits<_Iterator>::difference_type distance(_Iterator _first, _Iterator _last,
                                                                          std::random_access_iterator_tag) {
  return _last - _first;
}

}  // namespace __zor

namespace std {

template <class _Iterator, class _Distance> inline void advance(_Iterator &_at, _Distance _n) {
  typedef typename iterator_traits<_Iterator>::difference_type _distance_type;
  __zor::advance(_at, static_cast<_distance_type>(_n), typename iterator_traits<_Iterator>::iterator_category());
}

template <class _Iterator>
inline typename iterator_traits<_Iterator>::difference_type distance(_Iterator _first, _Iterator _last) {
  return __zor::distance(_first, _last, typename iterator_traits<_Iterator>::iterator_category());
}

// Walks backward: it refers to the element before the one its base refers to.
template <class _Iterator> class reverse_iterator
    : public iterator<typename iterator_traits<_Iterator>::iterator_category,
                      typename iterator_traits<_Iterator>::value_type,
                      typename iterator_traits<_Iterator>::difference_type,
                      typename iterator_traits<_Iterator>::pointer, typename iterator_traits<_Iterator>::reference> {
public:
  typedef _Iterator iterator_type;
  typedef typename iterator_traits<_Iterator>::difference_type difference_type;
  typedef typename iterator_traits<_Iterator>::reference reference;
  typedef typename iterator_traits<_Iterator>::pointer pointer;

  reverse_iterator() : current() {}
  explicit reverse_iterator(_Iterator _base) : current(_base) {}
  template <class _Other> reverse_iterator(const reverse_iterator<_Other> &_other) : current(_other.base()) {}

  _Iterator base() const { return current; }
  reference operator*() const {
    _Iterator _before = current;
    return *--_before;
  }
  pointer operator->() const { return __zor::_address_of(operator*()); }
  reference operator[](difference_type _n) const { return *(*this + _n); }

  reverse_iterator &operator++() {
    --current;
    return *this;
  }
  reverse_iterator operator++(int) {
    reverse_iterator _before = *this;
    --current;
    return _before;
  }
  reverse_iterator &operator--() {
    ++current;
    return *this;
  }
  reverse_iterator operator--(int) {
    reverse_iterator _before = *this;
    ++current;
    return _before;
  }
  reverse_iterator operator+(difference_type _n) const { return reverse_iterator(current - _n); }
  reverse_iterator operator-(difference_type _n) const { return reverse_iterator(current + _n); }
  reverse_iterator &operator+=(difference_type _n) {
    current -= _n;
    return *this;
  }
  reverse_iterator &operator-=(difference_type _n) {
    current += _n;
    return *this;
  }

protected:
  _Iterator current;
};

// Each in two forms. That of one type is the more special one where a program has templates of its own for all types,
// as those of rel_ops are.
#define PLX_REVERSE_COMPARISON(symbol, result)                                                          \
  template <class _A>                                                                                   \
  inline bool operator symbol(const reverse_iterator<_A> &_left, const reverse_iterator<_A> &_right) {  \
    return result;                                                                                      \
  }                                                                                                     \
  template <class _A, class _Bt>                                                                        \
  inline bool operator symbol(const reverse_iterator<_A> &_left, const reverse_iterator<_Bt> &_right) { \
    return result;                                                                                      \
  }
PLX_REVERSE_COMPARISON(==, _left.base() == _right.base())
PLX_REVERSE_COMPARISON(!=, _left.base() != _right.base())
PLX_REVERSE_COMPARISON(<, _right.base() < _left.base())
PLX_REVERSE_COMPARISON(>, _left.base() < _right.base())
PLX_REVERSE_COMPARISON(<=, !bool(_left.base() < _right.base()))
PLX_REVERSE_COMPARISON(>=, !bool(_right.base() < _left.base()))
#undef PLX_REVERSE_COMPARISON

template <class _A>
inline typename reverse_iterator<_A>::difference_type operator-(const reverse_iterator<_A> &_left,
                                                                const reverse_iterator<_A> &_right) {
  return _right.base() - _left.base();
}
template <class _A, class _Bt>
inline typename reverse_iterator<_A>::difference_type operator-(const reverse_iterator<_A> &_left,
                                                                const reverse_iterator<_Bt> &_right) {
  return _right.base() - _left.base();
}
template <class _A> inline reverse_iterator<_A> operator+(typename reverse_iterator<_A>::difference_type _n,
                                                          const reverse_iterator<_A> &_at) {
  return _at + _n;
}

}  // namespace std

#endif

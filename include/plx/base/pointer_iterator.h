// A pointer as an iterator of class type. A plain pointer would not do: s.insert(0, 1, 'x') and s.erase(0) would be
// ambiguous, because 0 converts to a pointer as well as to an index.
#ifndef PLX_POINTER_ITERATOR_H
#define PLX_POINTER_ITERATOR_H

#include <plx/base/iterator_base.h>

namespace std {

// Base of the library's iterators, whose classes live elsewhere: for its sake an unqualified sort(v.begin(), v.end())
// finds std::sort, as programs expect that know iterators of namespace std.
struct __iterator_of_std {};

}  // namespace std

namespace __zor {

// Only from _T to const _T.
template <class _To, class _From> struct _adds_const {};
template <class _T> struct _adds_const<const _T, _T> { typedef int _type; };

// Comparisons of the library's iterators, made of their == and <. They are functions, and no templates: whatever
// templates of operators a program has, for its elements or for everything, these fit better. An iterator meets a
// const_iterator by conversion.
template <class _Iterator> class _equality_of_iterators : public std::__iterator_of_std {
  friend bool operator!=(const _Iterator &_left, const _Iterator &_right) PLX_NOTHROW { return !(_left == _right); }
};
template <class _Iterator> class _order_of_iterators : public _equality_of_iterators<_Iterator> {
  friend bool operator>(const _Iterator &_left, const _Iterator &_right) PLX_NOTHROW { return _right < _left; }
  friend bool operator<=(const _Iterator &_left, const _Iterator &_right) PLX_NOTHROW { return !(_right < _left); }
  friend bool operator>=(const _Iterator &_left, const _Iterator &_right) PLX_NOTHROW { return !(_left < _right); }
};

template <class _T> class _pointer_iterator : public _order_of_iterators<_pointer_iterator<_T> > {
public:
  typedef typename std::iterator_traits<_T *>::value_type value_type;
  typedef std::ptrdiff_t difference_type;
  typedef _T *pointer;
  typedef _T &reference;
  typedef std::random_access_iterator_tag iterator_category;

  _pointer_iterator() PLX_NOTHROW : _at_(0) {}
  explicit _pointer_iterator(_T *_at) PLX_NOTHROW : _at_(_at) {}
  template <class _Ut> _pointer_iterator(const _pointer_iterator<_Ut> &_other,
                                         typename _adds_const<_T, _Ut>::_type = 0) PLX_NOTHROW : _at_(_other.base()) {}

  _T *base() const PLX_NOTHROW { return _at_; }
  _T &operator*() const PLX_NOTHROW { return *_at_; }
  _T *operator->() const PLX_NOTHROW { return _at_; }
  _T &operator[](difference_type _n) const PLX_NOTHROW { return _at_[_n]; }

  _pointer_iterator &operator++() PLX_NOTHROW {
    ++_at_;
    return *this;
  }
  _pointer_iterator operator++(int) PLX_NOTHROW { return _pointer_iterator(_at_++); }
  _pointer_iterator &operator--() PLX_NOTHROW {
    --_at_;
    return *this;
  }
  _pointer_iterator operator--(int) PLX_NOTHROW { return _pointer_iterator(_at_--); }
  _pointer_iterator &operator+=(difference_type _n) PLX_NOTHROW {
    _at_ += _n;
    return *this;
  }
  _pointer_iterator &operator-=(difference_type _n) PLX_NOTHROW {
    _at_ -= _n;
    return *this;
  }
  _pointer_iterator operator+(difference_type _n) const PLX_NOTHROW { return _pointer_iterator(_at_ + _n); }
  _pointer_iterator operator-(difference_type _n) const PLX_NOTHROW { return _pointer_iterator(_at_ - _n); }

  friend bool operator==(const _pointer_iterator &_left, const _pointer_iterator &_right) PLX_NOTHROW {
    return _left._at_ == _right._at_;
  }
  friend bool operator<(const _pointer_iterator &_left, const _pointer_iterator &_right) PLX_NOTHROW {
    return _left._at_ < _right._at_;
  }
  friend std::ptrdiff_t operator-(const _pointer_iterator &_left, const _pointer_iterator &_right) PLX_NOTHROW {
    return _left._at_ - _right._at_;
  }

private:
  _T *_at_;
};

template <class _T>
inline _pointer_iterator<_T> operator+(std::ptrdiff_t _n, const _pointer_iterator<_T> &_at) PLX_NOTHROW {
  return _at + _n;
}

}  // namespace __zor

#endif

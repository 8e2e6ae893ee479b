// A pointer as an iterator of class type. A plain pointer would not do: s.insert(0, 1, 'x') and s.erase(0) would be
// ambiguous, because 0 converts to a pointer as well as to an index.
#ifndef PLX_POINTER_ITERATOR_H
#define PLX_POINTER_ITERATOR_H

#include <plx/iterator_base.h>

namespace std {

// Base of the library's iterators, whose classes live elsewhere: for its sake an unqualified sort(v.begin(), v.end())
// finds std::sort, as programs expect that know iterators of namespace std.
struct __iterator_of_std {};

}  // namespace std

namespace __zor {

// Only from T to const T.
template <class To, class From> struct adds_const {};
template <class T> struct adds_const<const T, T> { typedef int type; };

template <class T> class pointer_iterator : public std::__iterator_of_std {
public:
  typedef typename std::iterator_traits<T *>::value_type value_type;
  typedef std::ptrdiff_t difference_type;
  typedef T *pointer;
  typedef T &reference;
  typedef std::random_access_iterator_tag iterator_category;

  pointer_iterator() PLX_NOTHROW : at_(0) {}
  explicit pointer_iterator(T *at) PLX_NOTHROW : at_(at) {}
  template <class U> pointer_iterator(const pointer_iterator<U> &other, typename adds_const<T, U>::type = 0) PLX_NOTHROW
      : at_(other.base()) {}

  T *base() const PLX_NOTHROW { return at_; }
  T &operator*() const PLX_NOTHROW { return *at_; }
  T *operator->() const PLX_NOTHROW { return at_; }
  T &operator[](difference_type n) const PLX_NOTHROW { return at_[n]; }

  pointer_iterator &operator++() PLX_NOTHROW {
    ++at_;
    return *this;
  }
  pointer_iterator operator++(int) PLX_NOTHROW { return pointer_iterator(at_++); }
  pointer_iterator &operator--() PLX_NOTHROW {
    --at_;
    return *this;
  }
  pointer_iterator operator--(int) PLX_NOTHROW { return pointer_iterator(at_--); }
  pointer_iterator &operator+=(difference_type n) PLX_NOTHROW {
    at_ += n;
    return *this;
  }
  pointer_iterator &operator-=(difference_type n) PLX_NOTHROW {
    at_ -= n;
    return *this;
  }
  pointer_iterator operator+(difference_type n) const PLX_NOTHROW { return pointer_iterator(at_ + n); }
  pointer_iterator operator-(difference_type n) const PLX_NOTHROW { return pointer_iterator(at_ - n); }

private:
  T *at_;
};

template <class T, class U>
inline bool operator==(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() == right.base();
}
template <class T, class U>
inline bool operator!=(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() != right.base();
}
template <class T, class U>
inline bool operator<(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() < right.base();
}
template <class T, class U>
inline bool operator>(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() > right.base();
}
template <class T, class U>
inline bool operator<=(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() <= right.base();
}
template <class T, class U>
inline bool operator>=(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() >= right.base();
}
template <class T, class U>
inline std::ptrdiff_t operator-(const pointer_iterator<T> &left, const pointer_iterator<U> &right) PLX_NOTHROW {
  return left.base() - right.base();
}
template <class T> inline pointer_iterator<T> operator+(std::ptrdiff_t n, const pointer_iterator<T> &at) PLX_NOTHROW {
  return at + n;
}

}  // namespace __zor

#endif

// lower_bound, upper_bound, equal_range and binary_search (1998, 25.3.3). Pointers to scalars in their own order are
// searched without a branch on comparisons.
#ifndef PLX_BINARY_SEARCH_H
#define PLX_BINARY_SEARCH_H

#include <plx/algobase.h>
#include <plx/ordering.h>

namespace __zor {

template <class Forward, class T, class Before>
Forward lower_bound(Forward first, Forward last, const T &value, Before &before) {
  typedef typename std::iterator_traits<Forward>::difference_type distance_type;
  for (distance_type n = std::distance(first, last); n > 0;) {
    const distance_type half = n / 2;
    Forward middle = first;
    std::advance(middle, half);
    if (before(*middle, value)) {
      first = middle;
      ++first;
      n -= half + 1;
    } else {
      n = half;
    }
  }
  return first;
}

template <class Forward, class T, class Before>
Forward upper_bound(Forward first, Forward last, const T &value, Before &before) {
  typedef typename std::iterator_traits<Forward>::difference_type distance_type;
  for (distance_type n = std::distance(first, last); n > 0;) {
    const distance_type half = n / 2;
    Forward middle = first;
    std::advance(middle, half);
    if (before(value, *middle)) {
      n = half;
    } else {
      first = middle;
      ++first;
      n -= half + 1;
    }
  }
  return first;
}

// The number of elements that are before the border: `upper` ones when those equal to the value are. Both places where
// the next step may look are fetched ahead. Halves are rounded so that each step has the same length on either side.
template <bool upper, class T, class Before>
inline T *scalar_bound(T *first, T *last, typename without_const<T>::type value, Before &before) {
  std::size_t n = static_cast<std::size_t>(last - first);
  while (n > 1) {
    const std::size_t half = n / 2;
    n -= half;
    __builtin_prefetch(first + n / 2);
    __builtin_prefetch(first + half + n / 2);
    const bool beyond = upper ? !before(value, first[half - 1]) : before(first[half - 1], value);
    // A product where a choice would be made into a jump.
    first += static_cast<std::size_t>(beyond) * half;
  }
  if (n == 1) first += upper ? !before(value, *first) : before(*first, value);
  return first;
}

template <bool scalar> struct bounds {
  template <class Forward, class T, class Before>
  static Forward lower(Forward first, Forward last, const T &value, Before &before) {
    return __zor::lower_bound(first, last, value, before);
  }
  template <class Forward, class T, class Before>
  static Forward upper(Forward first, Forward last, const T &value, Before &before) {
    return __zor::upper_bound(first, last, value, before);
  }
};
template <> struct bounds<true> {
  template <class T, class V, class Before> static T *lower(T *first, T *last, const V &value, Before &before) {
    return __zor::scalar_bound<false>(first, last, value, before);
  }
  template <class T, class V, class Before> static T *upper(T *first, T *last, const V &value, Before &before) {
    return __zor::scalar_bound<true>(first, last, value, before);
  }
};

// The value must be of the elements' type: else each comparison may convert in its own way.
template <class Forward, class T, class Before> struct bounds_of
    : public bounds<is_scalar_order<typename unwrapped<Forward>::type, Before>::value &&
                    same_type<typename std::iterator_traits<Forward>::value_type, T>::value> {};

}  // namespace __zor

namespace std {

template <class Forward, class T, class Compare>
inline Forward lower_bound(Forward first, Forward last, const T &value, Compare before) {
  return __zor::rewrap(
      first, __zor::bounds_of<Forward, T, Compare>::lower(__zor::unwrap(first), __zor::unwrap(last), value, before));
}
template <class Forward, class T> inline Forward lower_bound(Forward first, Forward last, const T &value) {
  return std::lower_bound(first, last, value, __zor::by_less());
}
template <class Forward, class T, class Compare>
inline Forward upper_bound(Forward first, Forward last, const T &value, Compare before) {
  return __zor::rewrap(
      first, __zor::bounds_of<Forward, T, Compare>::upper(__zor::unwrap(first), __zor::unwrap(last), value, before));
}
template <class Forward, class T> inline Forward upper_bound(Forward first, Forward last, const T &value) {
  return std::upper_bound(first, last, value, __zor::by_less());
}

// Halves until an equal element is met, and looks for one border on each side of it.
template <class Forward, class T, class Compare>
pair<Forward, Forward> equal_range(Forward first, Forward last, const T &value, Compare before) {
  typedef typename iterator_traits<Forward>::difference_type distance_type;
  for (distance_type n = std::distance(first, last); n > 0;) {
    const distance_type half = n / 2;
    Forward middle = first;
    std::advance(middle, half);
    if (before(*middle, value)) {
      first = middle;
      ++first;
      n -= half + 1;
    } else if (before(value, *middle)) {
      n = half;
    } else {
      Forward end = first;
      std::advance(end, n);
      const Forward lower = __zor::lower_bound(first, middle, value, before);
      return pair<Forward, Forward>(lower, __zor::upper_bound(++middle, end, value, before));
    }
  }
  return pair<Forward, Forward>(first, first);
}
template <class Forward, class T>
inline pair<Forward, Forward> equal_range(Forward first, Forward last, const T &value) {
  return std::equal_range(first, last, value, __zor::by_less());
}

template <class Forward, class T, class Compare>
inline bool binary_search(Forward first, Forward last, const T &value, Compare before) {
  first = std::lower_bound(first, last, value, before);
  return first != last && !before(value, *first);
}
template <class Forward, class T> inline bool binary_search(Forward first, Forward last, const T &value) {
  return std::binary_search(first, last, value, __zor::by_less());
}

}  // namespace std

#endif

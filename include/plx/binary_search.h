// lower_bound, upper_bound, equal_range and binary_search (1998, 25.3.3). Pointers to scalars in their own order are
// searched without a branch on comparisons.
#ifndef PLX_BINARY_SEARCH_H
#define PLX_BINARY_SEARCH_H

#include <plx/algobase.h>
#include <plx/functions.h>
#include <plx/ordering.h>

namespace __zor {
namespace functions {

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

// The border before elements that are not less than the value, or (`upper`) before those that are greater. Each step has
// the same length on either side, and which side it is becomes a mask: the empty assembler statement hides from the
// compiler that a branch would do, since one that is mispredicted half of the time costs more than all the rest.
template <bool upper, class T, class V, class Before>
inline T *scalar_bound(T *first, T *last, const V value, Before &before) {
  enum { cached = 4096 };
  std::size_t n = static_cast<std::size_t>(last - first);
  if (n == 0) return first;
  // While the range is long, both places where the next step may look are fetched ahead. The instruction is one that
  // processors without it take for no operation; the compilers' own function makes none for i686.
  for (std::size_t half; n > cached; n -= half) {
    half = n / 2;
    const T *const lower = first + (n - half) / 2, *const higher = lower + half;
    __asm__ volatile("prefetcht0 %0\n\tprefetcht0 %1" : : "m"(*lower), "m"(*higher));
    std::size_t beyond = upper ? !before(value, first[half - 1]) : before(first[half - 1], value);
    beyond = -beyond;
    __asm__("" : "+r"(beyond));
    first += half & beyond;
  }
  for (std::size_t half; n > 1; n -= half) {
    half = n / 2;
    std::size_t beyond = upper ? !before(value, first[half - 1]) : before(first[half - 1], value);
    beyond = -beyond;
    __asm__("" : "+r"(beyond));
    first += half & beyond;
  }
  return first + (upper ? !before(value, *first) : before(*first, value));
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
    return __zor::scalar_bound<false, T, V, Before>(first, last, value, before);
  }
  template <class T, class V, class Before> static T *upper(T *first, T *last, const V &value, Before &before) {
    return __zor::scalar_bound<true, T, V, Before>(first, last, value, before);
  }
};

// The value must be of the elements' type: else each comparison may convert in its own way.
template <class Forward, class T, class Before> struct bounds_of
    : public bounds<is_scalar_order<typename unwrapped<Forward>::type, Before>::value &&
                    same_type<typename std::iterator_traits<Forward>::value_type, T>::value> {};

}  // namespace functions
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

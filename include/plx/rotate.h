// reverse, rotate and their copying forms (1998, 25.2.9 and 25.2.10).
#ifndef PLX_ROTATE_H
#define PLX_ROTATE_H

#include <plx/algobase.h>
#include <plx/functions.h>

namespace __zor {
namespace functions {

template <class Iterator> inline void reverse(Iterator first, Iterator last, std::bidirectional_iterator_tag) {
  while (first != last) {
    --last;
    if (first == last) return;
    std::iter_swap(first, last);
    ++first;
  }
}
template <class Iterator> inline void reverse(Iterator first, Iterator last, std::random_access_iterator_tag) {
  if (first == last) return;
  for (--last; first < last; ++first, (void)--last) std::iter_swap(first, last);
}

// Each swap puts one element in its place, from the front. Returns where the first element went.
template <class Iterator>
Iterator rotate(Iterator first, Iterator middle, Iterator last, std::forward_iterator_tag) {
  Iterator from = middle;
  do {
    std::iter_swap(first, from);
    ++first;
    ++from;
    if (first == middle) middle = from;
  } while (from != last);
  const Iterator result = first;
  for (from = middle; from != last;) {
    std::iter_swap(first, from);
    ++first;
    ++from;
    if (first == middle) middle = from;
    else if (from == last) from = middle;
  }
  return result;
}

template <class Iterator>
Iterator rotate(Iterator first, Iterator middle, Iterator last, std::bidirectional_iterator_tag) {
  __zor::reverse(first, middle, std::bidirectional_iterator_tag());
  __zor::reverse(middle, last, std::bidirectional_iterator_tag());
  while (first != middle && middle != last) {
    --last;
    std::iter_swap(first, last);
    ++first;
  }
  if (first == middle) {
    __zor::reverse(middle, last, std::bidirectional_iterator_tag());
    return last;
  }
  __zor::reverse(first, middle, std::bidirectional_iterator_tag());
  return first;
}

// The shorter side changes places with as much of the other, until one side is left: blocks, whose swaps are simple.
template <class Iterator>
Iterator rotate(Iterator first, Iterator middle, Iterator last, std::random_access_iterator_tag) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  const Iterator result = first + (last - middle);
  distance_type left = middle - first, right = last - middle;
  while (left != right) {
    if (left < right) {
      std::swap_ranges(first, first + left, middle + (right - left));
      right -= left;
    } else {
      std::swap_ranges(first, first + right, middle);
      first += right;
      left -= right;
    }
    middle = first + left;
  }
  std::swap_ranges(first, middle, middle);
  return result;
}

// The same with plain elements as bytes, through a piece of the stack; when a side fits there, it is the last step.
inline void rotate_bytes(unsigned char *first, std::size_t left, std::size_t right) PLX_NOTHROW {
  enum { room = 1024 };
  unsigned char held[room];
  while (left > room && right > room) {
    unsigned char *const other = left < right ? first + right : first + left;
    const std::size_t shorter = left < right ? left : right;
    for (std::size_t done = 0; done < shorter; done += room) {
      const std::size_t n = shorter - done < room ? shorter - done : static_cast<std::size_t>(room);
      memcpy(held, first + done, n);
      memcpy(first + done, other + done, n);
      memcpy(other + done, held, n);
    }
    if (left < right) {
      right -= left;
    } else {
      first += right;
      left -= right;
    }
  }
  if (left <= right) {
    memcpy(held, first, left);
    memmove(first, first + left, right);
    memcpy(first + right, held, left);
  } else {
    memcpy(held, first + left, right);
    memmove(first + right, first, left);
    memcpy(first, held, right);
  }
}

template <bool plain> struct rotation {
  template <class Iterator> static Iterator run(Iterator first, Iterator middle, Iterator last) {
    return __zor::rotate(first, middle, last, typename std::iterator_traits<Iterator>::iterator_category());
  }
};
template <> struct rotation<true> {
  template <class T> static T *run(T *first, T *middle, T *last) {
    __zor::rotate_bytes(reinterpret_cast<unsigned char *>(first), static_cast<std::size_t>(middle - first) * sizeof(T),
                        static_cast<std::size_t>(last - middle) * sizeof(T));
    return first + (last - middle);
  }
};

// Of unwrapped iterators.
template <class Iterator> inline Iterator rotate_range(Iterator first, Iterator middle, Iterator last) {
  if (first == middle) return last;
  if (middle == last) return first;
  return rotation<copied_as_bytes<Iterator, Iterator>::value>::run(first, middle, last);
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class Bidirectional> inline void reverse(Bidirectional first, Bidirectional last) {
  __zor::reverse(__zor::unwrap(first), __zor::unwrap(last),
                 typename iterator_traits<Bidirectional>::iterator_category());
}

template <class Bidirectional, class Out> inline Out reverse_copy(Bidirectional first, Bidirectional last, Out out) {
  for (; first != last; ++out) *out = *--last;
  return out;
}

// Where the first element went is returned in every dialect, though only later ones ask for it.
template <class Forward> inline Forward rotate(Forward first, Forward middle, Forward last) {
  return __zor::rewrap(first,
                       __zor::rotate_range(__zor::unwrap(first), __zor::unwrap(middle), __zor::unwrap(last)));
}

template <class Forward, class Out>
inline Out rotate_copy(Forward first, Forward middle, Forward last, Out out) {
  return std::copy(first, middle, std::copy(middle, last, out));
}

}  // namespace std

#endif

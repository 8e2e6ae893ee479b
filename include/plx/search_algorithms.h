// Algorithms that look and change nothing (1998, 25.1): for_each, find and its kin, count, search.
#ifndef PLX_SEARCH_ALGORITHMS_H
#define PLX_SEARCH_ALGORITHMS_H

#include <plx/algobase.h>
#include <plx/functions.h>
#include <plx/ordering.h>

namespace __zor {

// The first of the words [first, last) that is `word`, or last. In the library, where the processor is known.
PLX_API __attribute__((__regparm__(3))) const unsigned int *find_word(const unsigned int *first,
                                                                      const unsigned int *last,
                                                                      unsigned int word) PLX_NOTHROW;

namespace functions {

enum find_road { find_each, find_bytes, find_words, find_blocks };

// A value of the elements' own type in an array of integers or pointers is sought by its bytes.
template <class In, class V> struct find_road_of {
  static const find_road value = is_segmented<In>::value ? find_blocks : find_each;
};
template <class T, class V> struct find_road_of<T *, V> {
  typedef typename without_const<T>::type element;
  static const bool by_bytes = same_type<element, V>::value && equal_as_bytes<element>::value;
  static const find_road value = by_bytes && sizeof(T) == 1             ? find_bytes
                                 : by_bytes && sizeof(T) == sizeof(int) ? find_words
                                                                        : find_each;
};

template <find_road road> struct finder;

template <class In, class V> inline In find_range(In first, In last, const V &value) {
  return finder<find_road_of<In, V>::value>::run(first, last, value);
}

template <> struct finder<find_each> {
  template <class In, class V> static In run(In first, In last, const V &value) {
    while (first != last && !(*first == value)) ++first;
    return first;
  }
};
template <> struct finder<find_bytes> {
  template <class T, class V> static T *run(T *first, T *last, const V &value) {
    if (first == last) return last;
    const void *const found =
        memchr(first, static_cast<unsigned char>(value), static_cast<std::size_t>(last - first));
    return found ? first + (static_cast<const char *>(found) - reinterpret_cast<const char *>(first)) : last;
  }
};
template <> struct finder<find_words> {
  template <class T, class V> static T *run(T *first, T *last, const V &value) {
    // A call is not worth its cost for a few elements.
    for (int steps = 0; last - first >= 4 && steps < 4; first += 4, ++steps) {
      if (first[0] == value) return first;
      if (first[1] == value) return first + 1;
      if (first[2] == value) return first + 2;
      if (first[3] == value) return first + 3;
    }
    if (last - first >= 4) {
      const unsigned int *const from = reinterpret_cast<const unsigned int *>(first);
      return first + (__zor::find_word(from, reinterpret_cast<const unsigned int *>(last), word_of(value)) - from);
    }
    while (first != last && *first != value) ++first;
    return first;
  }

private:
  template <class V> static unsigned int word_of(V value) { return static_cast<unsigned int>(value); }
  template <class V> static unsigned int word_of(V *value) {
    return static_cast<unsigned int>(reinterpret_cast<__UINTPTR_TYPE__>(value));
  }
};
template <> struct finder<find_blocks> {
  template <class In, class V> static In run(const In &first, const In &last, const V &value) {
    typedef segmented_iterator_traits<In> blocks;
    typename blocks::segment_iterator block = blocks::segment(first);
    const typename blocks::segment_iterator last_block = blocks::segment(last);
    typename blocks::local_iterator from = blocks::local(first);
    for (; block != last_block; from = blocks::begin(block)) {
      const typename blocks::local_iterator to = blocks::end(block);
      from = __zor::find_range(from, to, value);
      if (from != to) return blocks::compose(block, from);
      ++block;
    }
    return blocks::compose(block, __zor::find_range(from, blocks::local(last), value));
  }
};

template <class A, class B, class Equal> A search_each(A first, A last, B other, B other_last, Equal &same) {
  if (other == other_last) return first;
  for (;; ++first) {
    A at = first;
    for (B wanted = other;; ++at, (void)++wanted) {
      if (wanted == other_last) return first;
      if (at == last) return last;
      if (!same(*at, *wanted)) break;
    }
  }
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class In, class Function> inline Function for_each(In first, In last, Function function) {
  for (; first != last; ++first) function(*first);
  return function;
}

template <class In, class T> inline In find(In first, In last, const T &value) {
  return __zor::rewrap(first, __zor::find_range(__zor::unwrap(first), __zor::unwrap(last), value));
}
template <class In, class Predicate> inline In find_if(In first, In last, Predicate predicate) {
  while (first != last && !predicate(*first)) ++first;
  return first;
}

template <class A, class B, class Equal> A find_end(A first, A last, B other, B other_last, Equal same) {
  if (other == other_last) return last;
  A result = last;
  for (;; ++first) {
    A at = first;
    for (B wanted = other;; ++at, (void)++wanted) {
      if (wanted == other_last) {
        result = first;
        break;
      }
      if (at == last) return result;
      if (!same(*at, *wanted)) break;
    }
  }
}
template <class A, class B> inline A find_end(A first, A last, B other, B other_last) {
  return std::find_end(first, last, other, other_last, __zor::by_equal());
}

template <class A, class B, class Equal> A find_first_of(A first, A last, B other, B other_last, Equal same) {
  for (; first != last; ++first)
    for (B wanted = other; wanted != other_last; ++wanted)
      if (same(*first, *wanted)) return first;
  return last;
}
template <class A, class B> inline A find_first_of(A first, A last, B other, B other_last) {
  return std::find_first_of(first, last, other, other_last, __zor::by_equal());
}

template <class Forward, class Equal> Forward adjacent_find(Forward first, Forward last, Equal same) {
  if (first == last) return last;
  for (Forward next = first; ++next != last; first = next)
    if (same(*first, *next)) return first;
  return last;
}
template <class Forward> inline Forward adjacent_find(Forward first, Forward last) {
  return std::adjacent_find(first, last, __zor::by_equal());
}

template <class In, class T>
inline typename iterator_traits<In>::difference_type count(In first, In last, const T &value) {
  typename iterator_traits<In>::difference_type n = 0;
  for (; first != last; ++first)
    if (*first == value) ++n;
  return n;
}
template <class In, class Predicate>
inline typename iterator_traits<In>::difference_type count_if(In first, In last, Predicate predicate) {
  typename iterator_traits<In>::difference_type n = 0;
  for (; first != last; ++first)
    if (predicate(*first)) ++n;
  return n;
}

template <class A, class B, class Equal> inline A search(A first, A last, B other, B other_last, Equal same) {
  return __zor::search_each(first, last, other, other_last, same);
}
template <class A, class B> inline A search(A first, A last, B other, B other_last) {
  __zor::by_equal same;
  return __zor::search_each(first, last, other, other_last, same);
}

// A failed run of matches ends at an element that cannot be part of another, so each is looked at once.
template <class Forward, class Size, class T, class Equal>
Forward search_n(Forward first, Forward last, Size n, const T &value, Equal same) {
  if (!(n > 0)) return first;
  for (; first != last; ++first) {
    if (!same(*first, value)) continue;
    Forward at = first;
    for (Size left = n; --left > 0;) {
      if (++at == last) return last;
      if (!same(*at, value)) break;
      if (left == 1) return first;
    }
    if (n == 1) return first;
    first = at;
  }
  return last;
}
template <class Forward, class Size, class T>
inline Forward search_n(Forward first, Forward last, Size n, const T &value) {
  return std::search_n(first, last, n, value, __zor::by_equal());
}

}  // namespace std

#endif

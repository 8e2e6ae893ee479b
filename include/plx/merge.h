// merge, inplace_merge and stable_sort (1998, 25.3.1.2 and 25.3.4). Merging goes through a temporary buffer of the
// shorter side; with less memory than that, ranges are cut and rotated until the pieces fit, and with none at all until
// they are single elements.
#ifndef PLX_MERGE_H
#define PLX_MERGE_H

#include <plx/binary_search.h>
#include <plx/functions.h>
#include <plx/rotate.h>
#include <plx/sort.h>
#include <plx/temporary_buffer.h>

namespace __zor {
namespace functions {

// ---- The buffer's values -------------------------------------------------------------------------------------------

// Holds values moved out of a range while they are merged back. When a comparison throws, bytes must fill the gap that
// they left, or objects would be lost; other values are only destroyed.
template <class Iterator, class T> class buffered_side {
public:
  buffered_side(T *buffer, Iterator first, Iterator last)
      : next(buffer), end(__zor::uninitialized_move(first, last, buffer)), gap(first), buffer_(buffer), made_(end) {}
  ~buffered_side() { __zor::destroy(buffer_, made_); }

  T *next;       // what is not yet merged
  T *end;
  Iterator gap;  // where it would fit

private:
  buffered_side(const buffered_side &);
  buffered_side &operator=(const buffered_side &);

  T *buffer_;
  T *made_;
};

template <class T> class buffered_side<object_bytes<T> *, object_bytes<T> > {
public:
  typedef object_bytes<T> value_type;

  buffered_side(value_type *buffer, value_type *first, value_type *last) PLX_NOTHROW
      : next(buffer),
        end(buffer + (last - first)),
        gap(first) {
    __zor::move_bytes(buffer, first, static_cast<std::size_t>(last - first));
  }
  ~buffered_side() { __zor::move_bytes(gap, next, static_cast<std::size_t>(end - next)); }

  value_type *next;
  value_type *end;
  value_type *gap;

private:
  buffered_side(const buffered_side &);
  buffered_side &operator=(const buffered_side &);
};

// Scalars: which side an element comes from is a number, not a branch.
template <class T, class Before>
void merge_forward(T *first, T *middle, T *last, T *buffer, Before &before, yes) {
  const T *left = buffer, *const left_end = buffer + (middle - first);
  __zor::move_bytes(buffer, first, static_cast<std::size_t>(middle - first));
  while (left != left_end && middle != last) {
    const T a = *left, b = *middle;
    std::size_t from_right = before(b, a);
    *first = from_right ? b : a;
    ++first;
    __asm__("" : "+r"(from_right));
    middle += from_right;
    left += 1 - from_right;
  }
  __zor::move_bytes(first, left, static_cast<std::size_t>(left_end - left));
}

// The left side waits in the buffer, and the merged range grows from the front.
template <class Iterator, class T, class Before>
void merge_forward(Iterator first, Iterator middle, Iterator last, T *buffer, Before &before, no) {
  buffered_side<Iterator, T> left(buffer, first, middle);
  while (left.next != left.end && middle != last) {
    if (before(*middle, *left.next)) {
      *left.gap = __zor::move_from(middle);
      ++middle;
    } else {
      *left.gap = __zor::move_from(left.next);
      ++left.next;
    }
    ++left.gap;
  }
  __zor::move_range(left.next, left.end, left.gap);
  left.next = left.end;
}

// The right side waits, and the merged range grows from the back. The gap is before `to`.
template <class Iterator, class T, class Before>
void merge_backward(Iterator first, Iterator middle, Iterator last, T *buffer, Before &before) {
  buffered_side<Iterator, T> right(buffer, middle, last);
  Iterator to = last;
  while (right.next != right.end && first != middle) {
    Iterator left_last = middle;
    --left_last;
    T *right_last = right.end - 1;
    --to;
    if (before(*right_last, *left_last)) {
      *to = __zor::move_from(left_last);
      middle = left_last;
      right.gap = middle;
    } else {
      *to = __zor::move_from(right_last);
      right.end = right_last;
    }
  }
  __zor::move_range_backward(right.next, right.end, to);
  right.next = right.end;
}

// Two ordered neighbours of m and n elements.
template <class Iterator, class Distance, class T, class Before>
void merge_neighbours(Iterator first, Iterator middle, Iterator last, Distance m, Distance n, T *buffer, Distance room,
                      Before &before) {
  while (m != 0 && n != 0) {
    if (m <= n && m <= room) {
      __zor::merge_forward(first, middle, last, buffer, before,
                           typename truth<partitioned_by_blocks<Iterator>::value>::type());
      return;
    }
    if (n <= room) {
      __zor::merge_backward(first, middle, last, buffer, before);
      return;
    }
    if (m == 1 && n == 1) {
      if (before(*middle, *first)) std::iter_swap(first, middle);
      return;
    }
    // Cut the longer side in half and the other where that half's border would go; the inner pieces change places.
    Iterator left_cut = first, right_cut = middle;
    Distance left_n, right_n;
    if (m > n) {
      left_n = m / 2;
      std::advance(left_cut, left_n);
      right_cut = __zor::lower_bound(middle, last, *left_cut, before);
      right_n = static_cast<Distance>(std::distance(middle, right_cut));
    } else {
      right_n = n / 2;
      std::advance(right_cut, right_n);
      left_cut = __zor::upper_bound(first, middle, *right_cut, before);
      left_n = static_cast<Distance>(std::distance(first, left_cut));
    }
    const Iterator new_middle = __zor::rotate_range(left_cut, middle, right_cut);
    __zor::merge_neighbours(first, left_cut, new_middle, left_n, right_n, buffer, room, before);
    first = new_middle;
    middle = right_cut;
    m -= left_n;
    n -= right_n;
  }
}

// ---- stable_sort ---------------------------------------------------------------------------------------------------

// Insertion of six costs at most 15 comparisons; with more, the whole could need more than n log n. Scalars are beyond
// that, and insertion is the fastest for some more of them.
template <class Iterator, class Before> struct merged_from {
  static const int value = is_scalar_order<Iterator, Before>::value ? static_cast<int>(insertion_limit) : 6;
};

template <class Iterator, class Distance, class T, class Before>
void merge_sort(Iterator first, Iterator last, Distance n, T *buffer, Distance room, Before &before) {
  if (n <= merged_from<Iterator, Before>::value) {
    __zor::insertion_sort(first, last, before);
    return;
  }
  const Distance half = n / 2;
  const Iterator middle = first + half;
  __zor::merge_sort(first, middle, half, buffer, room, before);
  __zor::merge_sort(middle, last, static_cast<Distance>(n - half), buffer, room, before);
  if (!before(*middle, *(middle - 1))) return;
  __zor::merge_neighbours(first, middle, last, half, static_cast<Distance>(n - half), buffer, room, before);
}

template <class Iterator, class Before> void stable_sort_by_merging(Iterator first, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::value_type value_type;
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  const distance_type n = last - first;
  if (n <= merged_from<Iterator, Before>::value) {
    __zor::insertion_sort(first, last, before);
    return;
  }
  const raw_buffer<value_type> buffer(n - n / 2);
  __zor::merge_sort(first, last, n, buffer.begin(), static_cast<distance_type>(buffer.size()), before);
}

// Integers by their digits of eight bits, from the lowest: equal ones cannot be told apart by anything but their order,
// which each pass keeps. Digits that all share are skipped.
template <bool descending, class T> inline unsigned int digit_of(T value, int shift) {
  const bool is_signed = static_cast<T>(-1) < static_cast<T>(1);
  unsigned int bits = static_cast<unsigned int>(value);
  if (is_signed) bits ^= 1u << (sizeof(T) * 8 - 1);
  if (descending) bits = ~bits;
  return bits >> shift & 255;
}

template <bool descending, class T> void sort_by_digits(T *first, std::size_t n, T *buffer) {
  std::size_t counts[sizeof(T)][256];
  memset(counts, 0, sizeof counts);
  for (std::size_t i = 0; i < n; ++i)
    for (unsigned int k = 0; k < sizeof(T); ++k)
      ++counts[k][__zor::digit_of<descending>(first[i], static_cast<int>(k * 8))];
  T *from = first, *to = buffer;
  for (unsigned int k = 0; k < sizeof(T); ++k) {
    const int shift = static_cast<int>(k * 8);
    if (counts[k][__zor::digit_of<descending>(first[0], shift)] == n) continue;
    std::size_t at = 0;
    for (unsigned int digit = 0; digit < 256; ++digit) {
      const std::size_t count = counts[k][digit];
      counts[k][digit] = at;
      at += count;
    }
    for (std::size_t i = 0; i < n; ++i) {
      const T value = from[i];
      to[counts[k][__zor::digit_of<descending>(value, shift)]++] = value;
    }
    T *const other = from;
    from = to;
    to = other;
  }
  if (from != first) __zor::move_bytes(first, from, n);
}

template <class Iterator, class Before> struct is_sorted_by_digits { static const bool value = false; };
template <class T, class Before> struct is_sorted_by_digits<T *, Before> {
  static const bool value = is_integral<T>::value && !same_type<T, bool>::value && sizeof(T) <= sizeof(int) &&
                            direction_of<T, Before>::value != 0;
};

template <bool by_digits> struct stable_sorter {
  template <class Iterator, class Before> static void run(Iterator first, Iterator last, Before &before) {
    __zor::stable_sort_by_merging(first, last, before);
  }
};
template <> struct stable_sorter<true> {
  enum { few = 192 };
  template <class T, class Before> static void run(T *first, T *last, Before &before) {
    const std::ptrdiff_t n = last - first;
    if (n > few) {
      T *at = first + 1;
      while (at != last && !before(*at, *(at - 1))) ++at;
      if (at == last) return;
      const raw_buffer<T> buffer(n);
      if (buffer.size() == n) {
        __zor::sort_by_digits<direction_of<T, Before>::value == -1>(first, static_cast<std::size_t>(n), buffer.begin());
        return;
      }
    }
    __zor::stable_sort_by_merging(first, last, before);
  }
};

// ---- inplace_merge -------------------------------------------------------------------------------------------------

template <class Iterator, class Before>
void inplace_merge(Iterator first, Iterator middle, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::value_type value_type;
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  if (first == middle || middle == last) return;
  const distance_type m = std::distance(first, middle), n = std::distance(middle, last);
  const raw_buffer<value_type> buffer(m < n ? m : n);
  __zor::merge_neighbours(first, middle, last, m, n, buffer.begin(), static_cast<distance_type>(buffer.size()), before);
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class A, class B, class Out, class Compare>
Out merge(A first, A last, B other, B other_last, Out out, Compare before) {
  for (; first != last && other != other_last; ++out) {
    if (before(*other, *first)) {
      *out = *other;
      ++other;
    } else {
      *out = *first;
      ++first;
    }
  }
  return std::copy(other, other_last, std::copy(first, last, out));
}
template <class A, class B, class Out> inline Out merge(A first, A last, B other, B other_last, Out out) {
  return std::merge(first, last, other, other_last, out, __zor::by_less());
}

template <class Bidirectional, class Compare>
inline void inplace_merge(Bidirectional first, Bidirectional middle, Bidirectional last, Compare before) {
  typedef __zor::sorted_as<typename __zor::unwrapped<Bidirectional>::type, Compare> as;
  typename as::order order = as::made(before);
  __zor::inplace_merge(as::in(__zor::unwrap(first)), as::in(__zor::unwrap(middle)), as::in(__zor::unwrap(last)), order);
}
template <class Bidirectional>
inline void inplace_merge(Bidirectional first, Bidirectional middle, Bidirectional last) {
  std::inplace_merge(first, middle, last, __zor::by_less());
}

template <class Random, class Compare> inline void stable_sort(Random first, Random last, Compare before) {
  typedef typename __zor::unwrapped<Random>::type plain;
  typedef __zor::sorted_as<plain, Compare> as;
  typename as::order order = as::made(before);
  __zor::stable_sorter<__zor::is_sorted_by_digits<plain, Compare>::value>::run(as::in(__zor::unwrap(first)),
                                                                               as::in(__zor::unwrap(last)), order);
}
template <class Random> inline void stable_sort(Random first, Random last) {
  std::stable_sort(first, last, __zor::by_less());
}

}  // namespace std

#endif

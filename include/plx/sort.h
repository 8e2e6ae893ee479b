// sort, partial_sort, partial_sort_copy and nth_element (1998, 25.3.1 and 25.3.2). Quicksort that looks for patterns:
// short ranges by insertion, ordered ones in one pass, many equal elements in linear time, and after too many uneven
// partitions a heap, so that the worst case stays n log n.
//
// Everything here tolerates an order that contradicts itself, as that of floating numbers with NaNs: the result is then
// some permutation, but no access leaves the range.
#ifndef PLX_SORT_H
#define PLX_SORT_H

#include <plx/functions.h>
#include <plx/heap.h>

namespace __zor {
namespace functions {

enum { insertion_limit = 24, ninther_limit = 128, patience = 8 };

template <class Iterator, class Before> void insertion_sort(Iterator first, Iterator last, Before &before) {
  if (first == last) return;
  for (Iterator at = first + 1; at < last; ++at) {
    if (!before(*at, *(at - 1))) continue;
    held_element<Iterator> held(at);
    do held.fill_from(held.hole - 1);
    while (held.hole != first && before(held.value, *(held.hole - 1)));
    held.put_back();
  }
}

// For a range that is ordered but for a few elements; gives up, with false, when it is not.
template <class Iterator, class Before> bool insertion_sort_few(Iterator first, Iterator last, Before &before) {
  if (first == last) return true;
  typename std::iterator_traits<Iterator>::difference_type moved_so_far = 0;
  for (Iterator at = first + 1; at < last; ++at) {
    if (!before(*at, *(at - 1))) continue;
    held_element<Iterator> held(at);
    do held.fill_from(held.hole - 1);
    while (held.hole != first && before(held.value, *(held.hole - 1)));
    moved_so_far += at - held.hole;
    held.put_back();
    if (moved_so_far > patience) return false;
  }
  return true;
}

template <class Iterator, class Before> inline void sort_2(Iterator a, Iterator b, Before &before) {
  if (before(*b, *a)) std::iter_swap(a, b);
}
template <class Iterator, class Before> inline void sort_3(Iterator a, Iterator b, Iterator c, Before &before) {
  __zor::sort_2(a, b, before);
  __zor::sort_2(b, c, before);
  __zor::sort_2(a, b, before);
}

// Puts a pivot of three or nine samples first.
template <class Iterator, class Before> void choose_pivot(Iterator first, Iterator last, Before &before) {
  typename std::iterator_traits<Iterator>::difference_type half = (last - first) / 2;
  if (last - first <= ninther_limit) {
    __zor::sort_3(first + half, first, last - 1, before);
    return;
  }
  __zor::sort_3(first, first + half, last - 1, before);
  __zor::sort_3(first + 1, first + (half - 1), last - 2, before);
  __zor::sort_3(first + 2, first + (half + 1), last - 3, before);
  __zor::sort_3(first + (half - 1), first + half, first + (half + 1), before);
  std::iter_swap(first, first + half);
}

// ---- Partitions ----------------------------------------------------------------------------------------------------

template <class Iterator> struct partitioned_by_blocks { static const bool value = false; };
template <class T> struct partitioned_by_blocks<T *> {
  static const bool value = is_arithmetic<T>::value || is_pointer<T>::value;
};

// The pivot stands first and goes to its final place, which is returned: before it is less, after it is not less.
// `ordered` tells that nothing had to move.
template <bool by_blocks> struct pivot_partition {
  template <class Iterator, class Before>
  static Iterator run(Iterator first, Iterator last, Before &before, bool &ordered) {
    Iterator left = first, right = last;
    do ++left;
    while (left < last && before(*left, *first));
    do --right;
    while (left <= right && !before(*right, *first));
    ordered = left > right;
    while (left < right) {
      std::iter_swap(left, right);
      do ++left;
      while (left < right && before(*left, *first));
      do --right;
      while (left <= right && !before(*right, *first));
    }
    --left;
    if (left != first) std::iter_swap(first, left);
    return left;
  }
};

// Scalars, without branches on comparisons: where the misplaced elements are is noted in blocks of offsets, from both ends, and
// then as many as both sides have change places.
template <> struct pivot_partition<true> {
  enum { block = 64 };

  template <class T, class Before> static T *run(T *first, T *last, Before &before, bool &ordered) {
    const T pivot = *first;
    T *left = first + 1, *right = last;
    while (left < last && before(*left, pivot)) ++left;
    while (left < right && !before(*(right - 1), pivot)) --right;
    ordered = left >= right;
    if (!ordered) left = split(left, right, pivot, before);
    --left;
    *first = *left;
    *left = pivot;
    return left;
  }

private:
  // Returns where those that are not less than the pivot begin.
  template <class T, class Before> static T *split(T *left, T *right, const T pivot, Before &before) {
    unsigned char left_offsets[block], right_offsets[block];
    unsigned int left_count = 0, right_count = 0, left_at = 0, right_at = 0;
    T *left_base = left, *right_base = right;
    while (left < right) {
      const std::ptrdiff_t unknown = right - left;
      if (left_count == 0) {
        const std::ptrdiff_t share = right_count == 0 ? (unknown + 1) / 2 : unknown;
        const unsigned int n = share < block ? static_cast<unsigned int>(share) : static_cast<unsigned int>(block);
        left_at = 0;
        left_base = left;
        left_count = note<false>(left, n, pivot, before, left_offsets);
        left += n;
      }
      if (right_count == 0) {
        const std::ptrdiff_t share = right - left;
        const unsigned int n = share < block ? static_cast<unsigned int>(share) : static_cast<unsigned int>(block);
        right_at = 0;
        right_base = right - 1;
        right_count = note<true>(right, n, pivot, before, right_offsets);
        right -= n;
      }
      const unsigned int n = left_count < right_count ? left_count : right_count;
      exchange(left_base, left_offsets + left_at, right_base, right_offsets + right_at, n);
      left_at += n;
      left_count -= n;
      right_at += n;
      right_count -= n;
    }
    // What one side has left over goes to the border, the outermost last.
    for (; left_count != 0; --left_count) {
      --left;
      std::swap(left_base[left_offsets[left_at + left_count - 1]], *left);
    }
    for (; right_count != 0; --right_count) {
      std::swap(*(right_base - right_offsets[right_at + right_count - 1]), *left);
      ++left;
    }
    return left;
  }

  // Offsets of misplaced elements: upward from `from`, or downward below it.
  template <bool downward, class T, class Before>
  static unsigned int note(const T *from, unsigned int n, const T pivot, Before &before, unsigned char *offsets) {
    unsigned int count = 0;
    for (unsigned int i = 0; i < n; ++i) {
      offsets[count] = static_cast<unsigned char>(i);
      if (downward) count += before(*--from, pivot);
      else count += !before(*from++, pivot);
    }
    return count;
  }

  // In a cycle, which takes two stores for a pair where a swap takes three moves.
  template <class T>
  static void exchange(T *left, const unsigned char *left_offsets, T *right, const unsigned char *right_offsets,
                       unsigned int n) {
    if (n == 0) return;
    T *l = left + left_offsets[0], *r = right - right_offsets[0];
    const T held = *l;
    *l = *r;
    for (unsigned int i = 1; i < n; ++i) {
      l = left + left_offsets[i];
      *r = *l;
      r = right - right_offsets[i];
      *l = *r;
    }
    *r = held;
  }
};

// As above, but the pivot and its equals go to the left: for a range that has nothing less than its pivot.
template <class Iterator, class Before> Iterator partition_equal(Iterator first, Iterator last, Before &before) {
  Iterator left = first, right = last;
  do --right;
  while (left < right && before(*first, *right));
  for (;;) {
    do ++left;
    while (left < right && !before(*first, *left));
    if (left >= right) break;
    std::iter_swap(left, right);
    do --right;
    while (left < right && before(*first, *right));
  }
  if (right != first) std::iter_swap(first, right);
  return right;
}

// Breaks the pattern that made a partition uneven.
template <class Iterator> void stir(Iterator first, Iterator last) {
  typename std::iterator_traits<Iterator>::difference_type n = last - first, quarter = n / 4;
  if (n < insertion_limit) return;
  std::iter_swap(first, first + quarter);
  std::iter_swap(last - 1, last - quarter);
  if (n <= ninther_limit) return;
  std::iter_swap(first + 1, first + (quarter + 1));
  std::iter_swap(first + 2, first + (quarter + 2));
  std::iter_swap(last - 2, last - (quarter + 1));
  std::iter_swap(last - 3, last - (quarter + 2));
}

// ---- sort, nth_element ---------------------------------------------------------------------------------------------

template <class Iterator, class Before> inline void heap_sort(Iterator first, Iterator last, Before &before) {
  __zor::make_heap(first, last, before);
  __zor::sort_heap(first, last, before);
}

// `leftmost`: there is no element before `first` that bounds the range from below.
template <class Iterator, class Before>
void quick_sort(Iterator first, Iterator last, Before &before, int uneven_allowed, bool leftmost) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  for (;;) {
    const distance_type n = last - first;
    if (n <= insertion_limit) {
      __zor::insertion_sort(first, last, before);
      return;
    }
    __zor::choose_pivot(first, last, before);
    if (!leftmost && !before(*(first - 1), *first)) {
      first = __zor::partition_equal(first, last, before);
      ++first;
      continue;
    }
    bool ordered;
    const Iterator pivot =
        pivot_partition<partitioned_by_blocks<Iterator>::value>::run(first, last, before, ordered);
    const distance_type left = pivot - first, right = last - pivot - 1;
    if (left < n / 8 || right < n / 8) {
      if (--uneven_allowed < 0) {
        __zor::heap_sort(first, last, before);
        return;
      }
      __zor::stir(first, pivot);
      __zor::stir(pivot + 1, last);
    } else if (ordered && __zor::insertion_sort_few(first, pivot, before) &&
               __zor::insertion_sort_few(pivot + 1, last, before)) {
      return;
    }
    __zor::quick_sort(first, pivot, before, uneven_allowed, leftmost);
    first = pivot + 1;
    leftmost = false;
  }
}

template <class Iterator, class Before>
void select(Iterator first, Iterator nth, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  bool leftmost = true;
  for (int uneven_allowed = __zor::logarithm(last - first);;) {
    const distance_type n = last - first;
    if (n <= insertion_limit) {
      __zor::insertion_sort(first, last, before);
      return;
    }
    __zor::choose_pivot(first, last, before);
    if (!leftmost && !before(*(first - 1), *first)) {
      const Iterator equal_end = __zor::partition_equal(first, last, before);
      if (nth <= equal_end) return;
      first = equal_end + 1;
      continue;
    }
    bool ordered;
    const Iterator pivot =
        pivot_partition<partitioned_by_blocks<Iterator>::value>::run(first, last, before, ordered);
    if (pivot == nth) return;
    const distance_type left = pivot - first, right = last - pivot - 1;
    if (left < n / 8 || right < n / 8) {
      if (--uneven_allowed < 0) {
        __zor::select_heap(first, nth + 1, last, before);
        std::iter_swap(first, nth);
        return;
      }
      __zor::stir(first, pivot);
      __zor::stir(pivot + 1, last);
    }
    if (nth < pivot) {
      last = pivot;
    } else {
      first = pivot + 1;
      leftmost = false;
    }
  }
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class Random, class Compare> inline void sort(Random first, Random last, Compare before) {
  typedef __zor::sorted_as<typename __zor::unwrapped<Random>::type, Compare> as;
  typename as::order order = as::made(before);
  __zor::quick_sort(as::in(__zor::unwrap(first)), as::in(__zor::unwrap(last)), order, __zor::logarithm(last - first),
                    true);
}
template <class Random> inline void sort(Random first, Random last) { std::sort(first, last, __zor::by_less()); }

template <class Random, class Compare> inline void nth_element(Random first, Random nth, Random last, Compare before) {
  typedef __zor::sorted_as<typename __zor::unwrapped<Random>::type, Compare> as;
  if (nth == last) return;
  typename as::order order = as::made(before);
  __zor::select(as::in(__zor::unwrap(first)), as::in(__zor::unwrap(nth)), as::in(__zor::unwrap(last)), order);
}
template <class Random> inline void nth_element(Random first, Random nth, Random last) {
  std::nth_element(first, nth, last, __zor::by_less());
}

template <class Random, class Compare>
inline void partial_sort(Random first, Random middle, Random last, Compare before) {
  typedef __zor::sorted_as<typename __zor::unwrapped<Random>::type, Compare> as;
  if (first == middle) return;
  typename as::order order = as::made(before);
  __zor::select_heap(as::in(__zor::unwrap(first)), as::in(__zor::unwrap(middle)), as::in(__zor::unwrap(last)), order);
  __zor::sort_heap(as::in(__zor::unwrap(first)), as::in(__zor::unwrap(middle)), order);
}
template <class Random> inline void partial_sort(Random first, Random middle, Random last) {
  std::partial_sort(first, middle, last, __zor::by_less());
}

template <class In, class Random, class Compare>
Random partial_sort_copy(In first, In last, Random out, Random out_last, Compare before) {
  typedef typename iterator_traits<Random>::difference_type distance_type;
  Random end = out;
  for (; first != last && end != out_last; ++first, (void)++end) *end = *first;
  if (end == out) return end;
  __zor::make_heap(out, end, before);
  for (; first != last; ++first) {
    if (!before(*first, *out)) continue;
    // What is read from the input takes the place of the largest.
    *out = *first;
    __zor::held_element<Random> held(out);
    __zor::sink(out, distance_type(0), distance_type(end - out), held, before);
  }
  __zor::sort_heap(out, end, before);
  return end;
}
template <class In, class Random> inline Random partial_sort_copy(In first, In last, Random out, Random out_last) {
  return std::partial_sort_copy(first, last, out, out_last, __zor::by_less());
}

}  // namespace std

#endif

// What containers need of <algorithm> (1998, 25.2.1, 25.2.2, 25.2.5, 25.3.7, 25.3.8 and parts of 25.1): swaps, min and
// max, copies, fills and comparisons of ranges. Plain types go as blocks of bytes, block-wise iterators block by block.
#ifndef PLX_ALGOBASE_H
#define PLX_ALGOBASE_H

#include <string.h>

#include <plx/functions.h>
#include <plx/moving.h>
#include <plx/pair.h>
#include <plx/segmented_iterator.h>
#include <plx/type_properties.h>
#include <plx/unwrap_iterator.h>

namespace std {

template <class T> inline void swap(T &a, T &b) {
  T held(__zor::moved(a));
  a = __zor::moved(b);
  b = __zor::moved(held);
}

template <class T> inline const T &(min)(const T &a, const T &b) { return b < a ? b : a; }
template <class T> inline const T &(max)(const T &a, const T &b) { return a < b ? b : a; }
template <class T, class Compare> inline const T &(min)(const T &a, const T &b, Compare before) {
  return before(b, a) ? b : a;
}
template <class T, class Compare> inline const T &(max)(const T &a, const T &b, Compare before) {
  return before(a, b) ? b : a;
}

}  // namespace std

namespace __zor {
namespace functions {

// Finds a swap that comes with the elements' class before the general one.
template <class T> inline void swap_objects(T &a, T &b) {
  using std::swap;
  swap(a, b);
}

// Elements that are no lvalues of one type, as references to bits, are exchanged by value.
template <bool lvalues> struct swap_elements {
  template <class A, class B> static void run(A a, B b) {
    typename std::iterator_traits<A>::value_type held(*a);
    *a = *b;
    *b = held;
  }
};
template <> struct swap_elements<true> {
  template <class A, class B> static void run(A a, B b) { __zor::swap_objects(*a, *b); }
};

template <class Reference> struct is_lvalue_of { static const bool value = false; };
template <class T> struct is_lvalue_of<T &> { static const bool value = true; };

template <class A, class B> struct swapped_as_lvalues {
  typedef typename std::iterator_traits<A>::reference a_reference;
  typedef typename std::iterator_traits<B>::reference b_reference;
  static const bool value = is_lvalue_of<a_reference>::value && same_type<a_reference, b_reference>::value;
};

}  // namespace functions
}  // namespace __zor

namespace std {

template <class A, class B> inline void iter_swap(A a, B b) {
  __zor::swap_elements<__zor::swapped_as_lvalues<A, B>::value>::run(a, b);
}

template <class A, class B> inline B swap_ranges(A first, A last, B other) {
  for (; first != last; ++first, (void)++other) std::iter_swap(first, other);
  return other;
}

}  // namespace std

namespace __zor {
namespace functions {

// ---- Copies of bytes -----------------------------------------------------------------------------------------------

template <class T> inline void move_bytes(T *to, const T *from, std::size_t n) {
  if (n != 0) memmove(static_cast<void *>(to), static_cast<const void *>(from), n * sizeof(T));
}

// Do both ends point to elements whose assignment is a copy of bytes?
template <class In, class Out> struct copied_as_bytes { static const bool value = false; };
template <class T> struct copied_as_bytes<T *, T *> { static const bool value = is_assigned_as_bytes<T, T &>::value; };
template <class T> struct copied_as_bytes<const T *, T *> {
  static const bool value = is_assigned_as_bytes<T, const T &>::value;
};

// ---- copy, copy_backward -------------------------------------------------------------------------------------------

// The internal forms take unwrapped iterators. The moving ones may move from the elements, where the dialect can.
template <bool moving> struct transfer {
  template <class In, class Out> static void assign(In &from, Out &to) { *to = *from; }
};
template <> struct transfer<true> {
  template <class In, class Out> static void assign(In &from, Out &to) { *to = __zor::move_from(from); }
};

enum copy_road { copy_each, copy_counted, copy_bytes, copy_from_blocks, copy_to_blocks };

template <class Iterator> struct is_random_access {
  static const bool value = same_type<typename std::iterator_traits<Iterator>::iterator_category,
                                      std::random_access_iterator_tag>::value;
};
template <class Iterator> struct is_segmented {
  static const bool value = same_type<typename segmented_iterator_traits<Iterator>::is_segmented, yes>::value;
};

template <class In, class Out> struct copy_road_of {
  static const copy_road value = copied_as_bytes<In, Out>::value                     ? copy_bytes
                                 : is_segmented<In>::value                           ? copy_from_blocks
                                 : is_pointer<In>::value && is_segmented<Out>::value ? copy_to_blocks
                                 : is_random_access<In>::value                       ? copy_counted
                                                                                     : copy_each;
};

template <bool moving, copy_road road> struct copier;

template <bool moving, class In, class Out> inline Out copy_range(In first, In last, Out out) {
  return copier<moving, copy_road_of<In, Out>::value>::forward(first, last, out);
}
template <bool moving, class In, class Out> inline Out copy_range_backward(In first, In last, Out out) {
  return copier<moving, copy_road_of<In, Out>::value>::backward(first, last, out);
}

template <bool moving> struct copier<moving, copy_each> {
  template <class In, class Out> static Out forward(In first, In last, Out out) {
    for (; first != last; ++first, (void)++out) transfer<moving>::assign(first, out);
    return out;
  }
  template <class In, class Out> static Out backward(In first, In last, Out out) {
    while (first != last) {
      --last;
      --out;
      transfer<moving>::assign(last, out);
    }
    return out;
  }
};

template <bool moving> struct copier<moving, copy_counted> {
  template <class In, class Out> static Out forward(In first, In last, Out out) {
    typedef typename std::iterator_traits<In>::difference_type distance_type;
    for (distance_type left = last - first; left > 0; --left, (void)++first, (void)++out)
      transfer<moving>::assign(first, out);
    return out;
  }
  template <class In, class Out> static Out backward(In first, In last, Out out) {
    typedef typename std::iterator_traits<In>::difference_type distance_type;
    for (distance_type left = last - first; left > 0; --left) {
      --last;
      --out;
      transfer<moving>::assign(last, out);
    }
    return out;
  }
};

template <bool moving> struct copier<moving, copy_bytes> {
  template <class In, class T> static T *forward(In first, In last, T *out) {
    __zor::move_bytes<T>(out, first, static_cast<std::size_t>(last - first));
    return out + (last - first);
  }
  template <class In, class T> static T *backward(In first, In last, T *out) {
    out -= last - first;
    __zor::move_bytes<T>(out, first, static_cast<std::size_t>(last - first));
    return out;
  }
};

template <bool moving> struct copier<moving, copy_from_blocks> {
  template <class In, class Out> static Out forward(const In &first, const In &last, Out out) {
    for (block_runs<In> run(first, last); run.next();) out = __zor::copy_range<moving>(run.from, run.to, out);
    return out;
  }
  template <class In, class Out> static Out backward(const In &first, const In &last, Out out) {
    typedef segmented_iterator_traits<In> blocks;
    typename blocks::segment_iterator block = blocks::segment(last);
    const typename blocks::segment_iterator first_block = blocks::segment(first);
    typename blocks::local_iterator to = blocks::local(last);
    while (block != first_block) {
      out = __zor::copy_range_backward<moving>(blocks::begin(block), to, out);
      --block;
      to = blocks::end(block);
    }
    return __zor::copy_range_backward<moving>(blocks::local(first), to, out);
  }
};

template <bool moving> struct copier<moving, copy_to_blocks> {
  template <class T, class Out> static Out forward(T *first, T *last, Out out) {
    typedef segmented_iterator_traits<Out> blocks;
    while (first != last) {
      typename blocks::segment_iterator block = blocks::segment(out);
      typename blocks::local_iterator end = blocks::end(block);
      std::ptrdiff_t room = end - blocks::local(out);
      // Blocks side by side are filled as one.
      while (room < last - first && blocks::begin(++block) == end) {
        end = blocks::end(block);
        room = end - blocks::local(out);
      }
      const std::ptrdiff_t n = last - first < room ? last - first : room;
      __zor::copy_range<moving>(first, first + n, blocks::local(out));
      first += n;
      out += n;
    }
    return out;
  }
  template <class T, class Out> static Out backward(T *first, T *last, Out out) {
    typedef segmented_iterator_traits<Out> blocks;
    while (first != last) {
      typename blocks::segment_iterator block = blocks::segment(out);
      typename blocks::local_iterator to = blocks::local(out);
      if (to == blocks::begin(block)) to = blocks::end(--block);
      const std::ptrdiff_t room = to - blocks::begin(block);
      const std::ptrdiff_t n = last - first < room ? last - first : room;
      __zor::copy_range_backward<moving>(last - n, last, to);
      last -= n;
      out -= n;
    }
    return out;
  }
};

// What the algorithms that shift elements use: as std::copy, but it may move.
template <class In, class Out> inline Out move_range(In first, In last, Out out) {
  return __zor::rewrap(out, __zor::copy_range<true>(__zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(out)));
}
template <class In, class Out> inline Out move_range_backward(In first, In last, Out out) {
  return __zor::rewrap(out,
                       __zor::copy_range_backward<true>(__zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(out)));
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class In, class Out> inline Out copy(In first, In last, Out out) {
  return __zor::rewrap(out, __zor::copy_range<false>(__zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(out)));
}

template <class In, class Out> inline Out copy_backward(In first, In last, Out out) {
  return __zor::rewrap(out,
                       __zor::copy_range_backward<false>(__zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(out)));
}

}  // namespace std

namespace __zor {
namespace functions {

// ---- fill, fill_n --------------------------------------------------------------------------------------------------

enum fill_road { fill_each, fill_scalars, fill_bytes, fill_blocks };

template <class Out, class V, bool segmented> struct fill_road_of {
  static const fill_road value = segmented ? fill_blocks : fill_each;
};
template <class T, class V> struct fill_road_of<T *, V, false> {
  static const bool both_scalar = is_scalar<T>::value && is_scalar<V>::value;
  static const fill_road value = !both_scalar ? fill_each : sizeof(T) == 1 ? fill_bytes : fill_scalars;
};

template <fill_road road> struct filler;

template <class Out, class V> inline void fill_range(Out first, Out last, const V &value) {
  filler<fill_road_of<Out, V, is_segmented<Out>::value>::value>::run(first, last, value);
}

template <> struct filler<fill_each> {
  template <class Out, class V> static void run(Out first, Out last, const V &value) {
    for (; first != last; ++first) *first = value;
  }
};
// A copy of the value, since a store could change what a reference refers to, for all that the compiler knows.
template <> struct filler<fill_scalars> {
  template <class T, class V> static void run(T *first, T *last, const V &value) {
    const V held = value;
    for (; first != last; ++first) *first = held;
  }
};
template <> struct filler<fill_bytes> {
  template <class T, class V> static void run(T *first, T *last, const V &value) {
    if (first == last) return;
    *first = value;
    unsigned char byte;
    memcpy(&byte, first, 1);
    memset(static_cast<void *>(first), byte, static_cast<std::size_t>(last - first));
  }
};
template <> struct filler<fill_blocks> {
  template <class Out, class V> static void run(const Out &first, const Out &last, const V &value) {
    for (block_runs<Out> run(first, last); run.next();) __zor::fill_range(run.from, run.to, value);
  }
};

template <bool counted> struct n_filler {
  template <class Out, class Size, class V> static Out run(Out first, Size n, const V &value) {
    for (; n > 0; --n, (void)++first) *first = value;
    return first;
  }
};
template <> struct n_filler<true> {
  template <class Out, class Size, class V> static Out run(Out first, Size n, const V &value) {
    if (!(n > 0)) return first;
    const Out last = first + static_cast<std::ptrdiff_t>(n);
    __zor::fill_range(first, last, value);
    return last;
  }
};

}  // namespace functions
}  // namespace __zor

namespace std {

template <class Forward, class T> inline void fill(Forward first, Forward last, const T &value) {
  __zor::fill_range(__zor::unwrap(first), __zor::unwrap(last), value);
}

// The place after the last element filled is returned in every dialect, though only later ones ask for it.
template <class Out, class Size, class T> inline Out fill_n(Out first, Size n, const T &value) {
  typedef typename __zor::unwrapped<Out>::type plain;
  const bool counted =
      (__zor::is_pointer<plain>::value || __zor::is_segmented<plain>::value) && __zor::is_integral<Size>::value;
  return __zor::rewrap(first, __zor::n_filler<counted>::run(__zor::unwrap(first), n, value));
}

}  // namespace std

namespace __zor {
namespace functions {

// ---- equal, mismatch, lexicographical_compare ----------------------------------------------------------------------

template <class A, class B> struct compared_as_bytes { static const bool value = false; };
template <class T, class U> struct compared_as_bytes<T *, U *> {
  static const bool value = same_type<typename without_const<T>::type, typename without_const<U>::type>::value &&
                            equal_as_bytes<typename without_const<T>::type>::value;
};
template <class A, class B> struct ordered_by_memcmp { static const bool value = false; };
template <class T, class U> struct ordered_by_memcmp<T *, U *> {
  static const bool value =
      compared_as_bytes<T *, U *>::value && ordered_as_bytes<typename without_const<T>::type>::value;
};

template <bool bytes> struct equality {
  template <class A, class B> static bool run(A first, A last, B other) {
    for (; first != last; ++first, (void)++other)
      if (!(*first == *other)) return false;
    return true;
  }
};
template <> struct equality<true> {
  template <class T, class U> static bool run(T *first, T *last, U *other) {
    return first == last || memcmp(first, other, static_cast<std::size_t>(last - first) * sizeof(T)) == 0;
  }
};

template <bool bytes> struct text_order {
  template <class A, class B> static bool run(A first, A last, B other, B other_last) {
    for (; first != last && other != other_last; ++first, (void)++other) {
      if (*first < *other) return true;
      if (*other < *first) return false;
    }
    return first == last && other != other_last;
  }
};
template <> struct text_order<true> {
  template <class T, class U> static bool run(T *first, T *last, U *other, U *other_last) {
    const std::ptrdiff_t n = last - first, m = other_last - other, both = n < m ? n : m;
    const int order = both ? memcmp(first, other, static_cast<std::size_t>(both)) : 0;
    return order != 0 ? order < 0 : n < m;
  }
};

}  // namespace functions
}  // namespace __zor

namespace std {

template <class A, class B> inline bool equal(A first, A last, B other) {
  typedef typename __zor::unwrapped<A>::type plain_a;
  typedef typename __zor::unwrapped<B>::type plain_b;
  return __zor::equality<__zor::compared_as_bytes<plain_a, plain_b>::value>::run(
      __zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(other));
}
template <class A, class B, class Equal> inline bool equal(A first, A last, B other, Equal same) {
  for (; first != last; ++first, (void)++other)
    if (!same(*first, *other)) return false;
  return true;
}

template <class A, class B> inline pair<A, B> mismatch(A first, A last, B other) {
  while (first != last && *first == *other) {
    ++first;
    ++other;
  }
  return pair<A, B>(first, other);
}
template <class A, class B, class Equal> inline pair<A, B> mismatch(A first, A last, B other, Equal same) {
  while (first != last && same(*first, *other)) {
    ++first;
    ++other;
  }
  return pair<A, B>(first, other);
}

template <class A, class B> inline bool lexicographical_compare(A first, A last, B other, B other_last) {
  typedef typename __zor::unwrapped<A>::type plain_a;
  typedef typename __zor::unwrapped<B>::type plain_b;
  return __zor::text_order<__zor::ordered_by_memcmp<plain_a, plain_b>::value>::run(
      __zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(other), __zor::unwrap(other_last));
}
template <class A, class B, class Compare>
inline bool lexicographical_compare(A first, A last, B other, B other_last, Compare before) {
  for (; first != last && other != other_last; ++first, (void)++other) {
    if (before(*first, *other)) return true;
    if (before(*other, *first)) return false;
  }
  return first == last && other != other_last;
}

}  // namespace std

#endif

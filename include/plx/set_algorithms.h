// Operations on ordered ranges as sets, in which elements may be repeated (1998, 25.3.5).
#ifndef PLX_SET_ALGORITHMS_H
#define PLX_SET_ALGORITHMS_H

#include <plx/algobase.h>
#include <plx/ordering.h>

namespace std {

template <class A, class B, class Compare> bool includes(A first, A last, B other, B other_last, Compare before) {
  while (first != last && other != other_last) {
    if (before(*other, *first)) return false;
    if (!before(*first, *other)) ++other;
    ++first;
  }
  return other == other_last;
}
template <class A, class B> inline bool includes(A first, A last, B other, B other_last) {
  return std::includes(first, last, other, other_last, __zor::by_less());
}

template <class A, class B, class Out, class Compare>
Out set_union(A first, A last, B other, B other_last, Out out, Compare before) {
  for (; first != last && other != other_last; ++out) {
    if (before(*first, *other)) {
      *out = *first;
      ++first;
    } else if (before(*other, *first)) {
      *out = *other;
      ++other;
    } else {
      *out = *first;
      ++first;
      ++other;
    }
  }
  return std::copy(other, other_last, std::copy(first, last, out));
}
template <class A, class B, class Out> inline Out set_union(A first, A last, B other, B other_last, Out out) {
  return std::set_union(first, last, other, other_last, out, __zor::by_less());
}

template <class A, class B, class Out, class Compare>
Out set_intersection(A first, A last, B other, B other_last, Out out, Compare before) {
  while (first != last && other != other_last) {
    if (before(*first, *other)) {
      ++first;
    } else if (before(*other, *first)) {
      ++other;
    } else {
      *out = *first;
      ++out;
      ++first;
      ++other;
    }
  }
  return out;
}
template <class A, class B, class Out> inline Out set_intersection(A first, A last, B other, B other_last, Out out) {
  return std::set_intersection(first, last, other, other_last, out, __zor::by_less());
}

template <class A, class B, class Out, class Compare>
Out set_difference(A first, A last, B other, B other_last, Out out, Compare before) {
  while (first != last && other != other_last) {
    if (before(*first, *other)) {
      *out = *first;
      ++out;
      ++first;
    } else if (before(*other, *first)) {
      ++other;
    } else {
      ++first;
      ++other;
    }
  }
  return std::copy(first, last, out);
}
template <class A, class B, class Out> inline Out set_difference(A first, A last, B other, B other_last, Out out) {
  return std::set_difference(first, last, other, other_last, out, __zor::by_less());
}

template <class A, class B, class Out, class Compare>
Out set_symmetric_difference(A first, A last, B other, B other_last, Out out, Compare before) {
  while (first != last && other != other_last) {
    if (before(*first, *other)) {
      *out = *first;
      ++out;
      ++first;
    } else if (before(*other, *first)) {
      *out = *other;
      ++out;
      ++other;
    } else {
      ++first;
      ++other;
    }
  }
  return std::copy(other, other_last, std::copy(first, last, out));
}
template <class A, class B, class Out>
inline Out set_symmetric_difference(A first, A last, B other, B other_last, Out out) {
  return std::set_symmetric_difference(first, last, other, other_last, out, __zor::by_less());
}

}  // namespace std

#endif

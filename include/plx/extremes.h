// min_element, max_element and the permutations in their order (1998, 25.3.7 and 25.3.9).
#ifndef PLX_EXTREMES_H
#define PLX_EXTREMES_H

#include <plx/algobase.h>
#include <plx/ordering.h>
#include <plx/rotate.h>

namespace std {

template <class Forward, class Compare> Forward min_element(Forward first, Forward last, Compare before) {
  if (first == last) return last;
  Forward least = first;
  while (++first != last)
    if (before(*first, *least)) least = first;
  return least;
}
template <class Forward> inline Forward min_element(Forward first, Forward last) {
  return std::min_element(first, last, __zor::by_less());
}

template <class Forward, class Compare> Forward max_element(Forward first, Forward last, Compare before) {
  if (first == last) return last;
  Forward most = first;
  while (++first != last)
    if (before(*most, *first)) most = first;
  return most;
}
template <class Forward> inline Forward max_element(Forward first, Forward last) {
  return std::max_element(first, last, __zor::by_less());
}

// The last place where an element is before its successor changes; everything after it is in descending order, and is
// reversed. Without such a place the range starts again from the first permutation, and the result is false.
template <class Bidirectional, class Compare>
bool next_permutation(Bidirectional first, Bidirectional last, Compare before) {
  if (first == last) return false;
  Bidirectional at = last;
  --at;
  while (at != first) {
    const Bidirectional next = at;
    --at;
    if (!before(*at, *next)) continue;
    Bidirectional other = last;
    do --other;
    while (!before(*at, *other));
    std::iter_swap(at, other);
    std::reverse(next, last);
    return true;
  }
  std::reverse(first, last);
  return false;
}
template <class Bidirectional> inline bool next_permutation(Bidirectional first, Bidirectional last) {
  return std::next_permutation(first, last, __zor::by_less());
}

template <class Bidirectional, class Compare>
bool prev_permutation(Bidirectional first, Bidirectional last, Compare before) {
  if (first == last) return false;
  Bidirectional at = last;
  --at;
  while (at != first) {
    const Bidirectional next = at;
    --at;
    if (!before(*next, *at)) continue;
    Bidirectional other = last;
    do --other;
    while (!before(*other, *at));
    std::iter_swap(at, other);
    std::reverse(next, last);
    return true;
  }
  std::reverse(first, last);
  return false;
}
template <class Bidirectional> inline bool prev_permutation(Bidirectional first, Bidirectional last) {
  return std::prev_permutation(first, last, __zor::by_less());
}

}  // namespace std

#endif

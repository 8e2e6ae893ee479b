// Heaps (1998, 25.3.6). An element sinks along the path of the larger children to the bottom and then rises to its
// place: about half the comparisons of asking at each step whether it fits.
#ifndef PLX_HEAP_H
#define PLX_HEAP_H

#include <plx/functions.h>
#include <plx/held_element.h>
#include <plx/ordering.h>

namespace __zor {
namespace functions {

// The held element's hole is at `at`; rises at most to `top`.
template <class Iterator, class Distance, class Before>
void rise(Iterator first, Distance at, Distance top, held_element<Iterator> &held, Before &before) {
  while (at > top) {
    const Distance parent = (at - 1) / 2;
    if (!before(*(first + parent), held.value)) break;
    held.fill_from(first + parent);
    at = parent;
  }
  held.put_back();
}

template <class Iterator, class Distance, class Before>
void sink(Iterator first, Distance at, Distance n, held_element<Iterator> &held, Before &before) {
  const Distance top = at;
  Distance child = 2 * at + 1;
  for (; child < n - 1; child = 2 * at + 1) {
    if (before(*(first + child), *(first + (child + 1)))) ++child;
    held.fill_from(first + child);
    at = child;
  }
  if (child < n) {
    held.fill_from(first + child);
    at = child;
  }
  __zor::rise(first, at, top, held, before);
}

template <class Iterator, class Before> void push_heap(Iterator first, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  const distance_type n = last - first;
  if (n < 2) return;
  held_element<Iterator> held(last - 1);
  __zor::rise(first, n - 1, distance_type(0), held, before);
}

template <class Iterator, class Before> void pop_heap(Iterator first, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  if (last - first < 2) return;
  held_element<Iterator> held(last - 1);
  held.fill_from(first);
  __zor::sink(first, distance_type(0), distance_type(last - first - 1), held, before);
}

template <class Iterator, class Before> void make_heap(Iterator first, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  const distance_type n = last - first;
  for (distance_type at = n / 2; at > 0;) {
    --at;
    held_element<Iterator> held(first + at);
    __zor::sink(first, at, n, held, before);
  }
}

template <class Iterator, class Before> void sort_heap(Iterator first, Iterator last, Before &before) {
  for (; last - first > 1; --last) __zor::pop_heap(first, last, before);
}

// The smallest middle - first elements go before `middle`, as a heap.
template <class Iterator, class Before>
void select_heap(Iterator first, Iterator middle, Iterator last, Before &before) {
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  __zor::make_heap(first, middle, before);
  for (Iterator at = middle; at < last; ++at) {
    if (!before(*at, *first)) continue;
    held_element<Iterator> held(at);
    held.fill_from(first);
    __zor::sink(first, distance_type(0), distance_type(middle - first), held, before);
  }
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class Random, class Compare> inline void push_heap(Random first, Random last, Compare before) {
  __zor::push_heap(__zor::unwrap(first), __zor::unwrap(last), before);
}
template <class Random> inline void push_heap(Random first, Random last) {
  std::push_heap(first, last, __zor::by_less());
}
template <class Random, class Compare> inline void pop_heap(Random first, Random last, Compare before) {
  __zor::pop_heap(__zor::unwrap(first), __zor::unwrap(last), before);
}
template <class Random> inline void pop_heap(Random first, Random last) {
  std::pop_heap(first, last, __zor::by_less());
}
template <class Random, class Compare> inline void make_heap(Random first, Random last, Compare before) {
  __zor::make_heap(__zor::unwrap(first), __zor::unwrap(last), before);
}
template <class Random> inline void make_heap(Random first, Random last) {
  std::make_heap(first, last, __zor::by_less());
}
template <class Random, class Compare> inline void sort_heap(Random first, Random last, Compare before) {
  __zor::sort_heap(__zor::unwrap(first), __zor::unwrap(last), before);
}
template <class Random> inline void sort_heap(Random first, Random last) {
  std::sort_heap(first, last, __zor::by_less());
}

}  // namespace std

#endif

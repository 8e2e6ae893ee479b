// partition and stable_partition (1998, 25.2.12). The stable one keeps those that fail in a temporary buffer while the
// others close up; what does not fit in the buffer is halved, and the halves' inner parts change places.
#ifndef PLX_PARTITION_H
#define PLX_PARTITION_H

#include <plx/functions.h>
#include <plx/rotate.h>
#include <plx/temporary_buffer.h>

namespace __zor {
namespace functions {

template <class Iterator, class Predicate>
Iterator partition(Iterator first, Iterator last, Predicate &predicate, std::forward_iterator_tag) {
  while (first != last && predicate(*first)) ++first;
  if (first == last) return first;
  Iterator at = first;
  for (++at; at != last; ++at) {
    if (!predicate(*at)) continue;
    std::iter_swap(first, at);
    ++first;
  }
  return first;
}

template <class Iterator, class Predicate>
Iterator partition(Iterator first, Iterator last, Predicate &predicate, std::bidirectional_iterator_tag) {
  for (;; ++first) {
    while (first != last && predicate(*first)) ++first;
    if (first == last) return first;
    do {
      --last;
      if (first == last) return first;
    } while (!predicate(*last));
    std::iter_swap(first, last);
  }
}

// The predicate is asked once for each element. `first` is known to fail.
template <class Iterator, class Distance, class T, class Predicate>
Iterator stable_partition_known(Iterator first, Iterator last, Distance n, T *buffer, Distance room,
                                Predicate &predicate);

template <class Iterator, class Distance, class T, class Predicate>
Iterator stable_partition(Iterator first, Iterator last, Distance n, T *buffer, Distance room, Predicate &predicate) {
  for (; n != 0; --n, (void)++first)
    if (!predicate(*first)) return __zor::stable_partition_known(first, last, n, buffer, room, predicate);
  return first;
}

// Elements that fail, and the gap before which those that pass have closed up. When the predicate throws, the range
// keeps valid values, though some may be there twice and others not at all.
template <class Iterator, class T> class failed_elements {
public:
  failed_elements(T *buffer, Iterator first) : end(buffer), gap(first), buffer_(buffer) {}
  ~failed_elements() { __zor::destroy(buffer_, end); }
  void put_back() { __zor::move_range(buffer_, end, gap); }

  T *end;
  Iterator gap;

private:
  failed_elements(const failed_elements &);
  failed_elements &operator=(const failed_elements &);

  T *buffer_;
};

template <class Iterator, class Distance, class T, class Predicate>
Iterator stable_partition_known(Iterator first, Iterator last, Distance n, T *buffer, Distance room,
                                Predicate &predicate) {
  if (n == 1) return first;
  if (n <= room) {
    failed_elements<Iterator, T> failed(buffer, first);
    ::new (static_cast<void *>(failed.end)) T(__zor::move_from(first));
    ++failed.end;
    for (++first; first != last; ++first) {
      if (predicate(*first)) {
        *failed.gap = __zor::move_from(first);
        ++failed.gap;
      } else {
        ::new (static_cast<void *>(failed.end)) T(__zor::move_from(first));
        ++failed.end;
      }
    }
    failed.put_back();
    return failed.gap;
  }
  const Distance half = n / 2;
  Iterator middle = first;
  std::advance(middle, half);
  const Iterator left = __zor::stable_partition_known(first, middle, half, buffer, room, predicate);
  const Iterator right =
      __zor::stable_partition(middle, last, static_cast<Distance>(n - half), buffer, room, predicate);
  return __zor::rotate_range(left, middle, right);
}

template <class Iterator, class Predicate>
Iterator stable_partition(Iterator first, Iterator last, Predicate &predicate) {
  typedef typename std::iterator_traits<Iterator>::value_type value_type;
  typedef typename std::iterator_traits<Iterator>::difference_type distance_type;
  while (first != last && predicate(*first)) ++first;
  if (first == last) return first;
  const distance_type n = std::distance(first, last);
  const raw_buffer<value_type> buffer(n);
  return __zor::stable_partition_known(first, last, n, buffer.begin(), static_cast<distance_type>(buffer.size()),
                                       predicate);
}

}  // namespace functions
}  // namespace __zor

namespace std {

template <class Forward, class Predicate> inline Forward partition(Forward first, Forward last, Predicate predicate) {
  return __zor::rewrap(first, __zor::partition(__zor::unwrap(first), __zor::unwrap(last), predicate,
                                               typename iterator_traits<Forward>::iterator_category()));
}

template <class Forward, class Predicate>
inline Forward stable_partition(Forward first, Forward last, Predicate predicate) {
  return __zor::rewrap(first, __zor::stable_partition(__zor::unwrap(first), __zor::unwrap(last), predicate));
}

}  // namespace std

#endif

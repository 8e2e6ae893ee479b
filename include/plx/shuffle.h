// random_shuffle (1998, 25.2.11), with the library's generator or the program's.
#ifndef PLX_SHUFFLE_H
#define PLX_SHUFFLE_H

#include <plx/algobase.h>
#include <plx/random_generator.h>

namespace std {

template <class Random, class Generator> void random_shuffle(Random first, Random last, Generator &below) {
  typedef typename iterator_traits<Random>::difference_type distance_type;
  const distance_type n = last - first;
  for (distance_type i = 1; i < n; ++i) {
    const distance_type other = static_cast<distance_type>(below(i + 1));
    if (other != i) std::iter_swap(first + i, first + other);
  }
}

template <class Random> void random_shuffle(Random first, Random last) {
  typedef typename iterator_traits<Random>::difference_type distance_type;
  const distance_type n = last - first;
  for (distance_type i = 1; i < n; ++i) {
    const distance_type other = static_cast<distance_type>(__vexil_rd(static_cast<unsigned long>(i + 1)));
    if (other != i) std::iter_swap(first + i, first + other);
  }
}

}  // namespace std

#endif

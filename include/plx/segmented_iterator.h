// Iterators over blocks of contiguous elements, as deque's: algorithms walk block by block with plain pointers. Only
// the primary template is here; a container specializes it for its iterators:
//
//   typedef yes is_segmented;
//   typedef ... segment_iterator;                  steps over blocks: ++, --, ==, !=
//   typedef T *local_iterator;                     a pointer into a block
//   static segment_iterator segment(const It &);   the block of an iterator
//   static local_iterator local(const It &);       its place there
//   static local_iterator begin(segment_iterator), end(segment_iterator);
//   static It compose(segment_iterator, local_iterator);   also of a block's end: the first place of the next block
#ifndef PLX_SEGMENTED_ITERATOR_H
#define PLX_SEGMENTED_ITERATOR_H

#include <plx/is_integer.h>

namespace __zor {

template <class Iterator> struct segmented_iterator_traits {
  typedef no is_segmented;
};

}  // namespace __zor

#endif

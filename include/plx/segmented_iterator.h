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

// The elements between two such iterators as arrays, one after another. Blocks that lie side by side in memory, as those
// that a container took in a row often do, are one array.
//
//   for (block_runs<It> run(first, last); run.next();) use(run.from, run.to);
template <class Iterator> class block_runs {
  typedef segmented_iterator_traits<Iterator> blocks;

public:
  typedef typename blocks::local_iterator local_iterator;
  typedef typename blocks::segment_iterator segment_iterator;

  block_runs(const Iterator &first, const Iterator &last)
      : from(blocks::local(first)),
        to(from),
        block_(blocks::segment(first)),
        last_block_(blocks::segment(last)),
        last_(blocks::local(last)),
        begun_(false),
        done_(false) {}

  bool next() {
    if (done_) return false;
    if (begun_) from = blocks::begin(block_);
    begun_ = true;
    while (block_ != last_block_) {
      to = blocks::end(block_);
      ++block_;
      if (!(blocks::begin(block_) == to)) return true;
    }
    to = last_;
    done_ = true;
    return true;
  }

  local_iterator from, to;

private:
  segment_iterator block_, last_block_;
  local_iterator last_;
  bool begun_, done_;
};

}  // namespace __zor

#endif

// Iterators over blocks of contiguous elements, as deque's: algorithms walk block by block with plain pointers. Only
// the primary template is here; a container specializes it for its iterators:
//
//   typedef yes _is_segmented;
//   typedef ... segment_iterator;                  steps over blocks: ++, --, ==, !=
//   typedef _T *local_iterator;                     a pointer into a block
//   static segment_iterator segment(const It &);   the block of an iterator
//   static local_iterator local(const It &);       its place there
//   static local_iterator begin(segment_iterator), end(segment_iterator);
//   static It compose(segment_iterator, local_iterator);   also of a block's end: the first place of the next block
#ifndef PLX_SEGMENTED_ITERATOR_H
#define PLX_SEGMENTED_ITERATOR_H

#include <plx/base/is_integer.h>

namespace __zor {

template <class _Iterator> struct _segmented_iterator_traits { typedef _no _is_segmented; };

// The elements between two such iterators as arrays, one after another. Blocks that lie side by side in memory, as
// those that a container took in a row often do, are one array.
//
//   for (_block_runs<It> run(first, last); run._next();) use(run.from, run.to);
template <class _Iterator> class _block_runs {
  typedef _segmented_iterator_traits<_Iterator> _blocks;

public:
  typedef typename _blocks::_local_iterator _local_iterator;
  typedef typename _blocks::_segment_iterator _segment_iterator;

  _block_runs(const _Iterator &_first, const _Iterator &_last)
      : _from(_blocks::_local(_first)),
        _to(_from),
        _block_(_blocks::_segment(_first)),
        _last_block_(_blocks::_segment(_last)),
        _last_(_blocks::_local(_last)),
        _begun_(false),
        _done_(false) {}

  bool _next() {
    if (_done_) return false;
    if (_begun_) _from = _blocks::begin(_block_);
    _begun_ = true;
    while (_block_ != _last_block_) {
      _to = _blocks::end(_block_);
      ++_block_;
      if (!(_blocks::begin(_block_) == _to)) return true;
    }
    _to = _last_;
    _done_ = true;
    return true;
  }

  _local_iterator _from, _to;

private:
  _segment_iterator _block_, _last_block_;
  _local_iterator _last_;
  bool _begun_, _done_;
};

}  // namespace __zor

#endif

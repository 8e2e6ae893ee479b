// Blocks for container nodes: free lists by size, filled from chunks of operator new that are kept for good. Taking and
// giving back a block are a few instructions of the program's own. When the program replaced operator new or operator
// delete the lists stay empty and every block goes through its versions.
#ifndef PLX_NODE_POOL_H
#define PLX_NODE_POOL_H

#include <plx/base/allocator.h>
#include <plx/base/type_properties.h>

namespace __zor {

enum { _node_step = 8, _largest_pooled_node = 512 };

struct _free_node {
  _free_node *_next;
} __attribute__((__may_alias__));

// `free[_k]` holds blocks of k steps. `_pooled` is not set before the first block was taken, nor when nothing is
// pooled.
struct _node_pool_state {
  _free_node *free[_largest_pooled_node / _node_step + 1];
  unsigned int _pooled;
};

extern PLX_API _node_pool_state _node_pool;

// The list of this size is empty, or the size is not pooled. Throws bad_alloc.
PLX_API PLX_REGPARM void *_take_fresh_node(unsigned int _bytes);

template <unsigned int _bytes> inline void *_take_node() {
  if (_bytes > _largest_pooled_node) return ::operator new(_bytes);
  _free_node *&_head =
      _node_pool.free[(_bytes + _node_step - 1) / _node_step % (_largest_pooled_node / _node_step + 1)];
  _free_node *_node = _head;
  if (__builtin_expect(_node == 0, 0)) return _take_fresh_node(_bytes);
  _head = _node->_next;
  return _node;
}

template <unsigned int _bytes> inline void _give_node(void *_block) PLX_NOTHROW {
  if (_bytes > _largest_pooled_node || __builtin_expect(!_node_pool._pooled, 0)) {
    ::operator delete(_block);
    return;
  }
  _free_node *&_head =
      _node_pool.free[(_bytes + _node_step - 1) / _node_step % (_largest_pooled_node / _node_step + 1)];
  _free_node *_node = static_cast<_free_node *>(_block);
  _node->_next = _head;
  _head = _node;
}

// A chain of blocks that are linked by their first words, from first to last, at once. Only while _node_pool._pooled.
template <unsigned int _bytes> inline void _give_nodes(void *_first, void *_last) PLX_NOTHROW {
  _free_node *&_head =
      _node_pool.free[(_bytes + _node_step - 1) / _node_step % (_largest_pooled_node / _node_step + 1)];
  static_cast<_free_node *>(_last)->_next = _head;
  _head = static_cast<_free_node *>(_first);
}

// How a container with the allocator A gets room for `_count` objects of type Node in one piece: from the pool with the
// standard allocator, from the allocator as rebound to Node with any other. A pool block is aligned for 8 bytes.
template <class _Node, class _A, unsigned int _count = 1> struct _node_source {
  typedef typename _A::template rebind<_Node>::other allocator;
  static const bool _pooled = false;
  static _Node *_take(const _A &_a) {
    allocator _rebound(_a);
    return static_cast<_Node *>(_rebound.allocate(_count));
  }
  static void _give(const _A &_a, _Node *_node) PLX_NOTHROW {
    allocator _rebound(_a);
    _rebound.deallocate(_node, _count);
  }
  static bool _give_chain(const _A &, _Node *, _Node *) PLX_NOTHROW { return false; }
};

template <class _Node, unsigned int _count> struct _standard_node_source {
  static const unsigned int _bytes = _count * sizeof(_Node);
  static const bool _pooled = __alignof__(_Node) <= _node_step;
  template <class _A> static _Node *_take(const _A &) {
    return static_cast<_Node *>(_pooled ? _take_node<_bytes>() : ::operator new(_bytes));
  }
  template <class _A> static void _give(const _A &, _Node *_node) PLX_NOTHROW {
    if (_pooled)
      _give_node<_bytes>(_node);
    else
      ::operator delete(_node);
  }
  // Nodes chained by their first words. False: each must be given by itself.
  template <class _A> static bool _give_chain(const _A &, _Node *_first, _Node *_last) PLX_NOTHROW {
    if (!_pooled || _bytes > _largest_pooled_node || !_node_pool._pooled) return false;
    _give_nodes<_bytes>(_first, _last);
    return true;
  }
};

template <class _Node, class _T, unsigned int _count> struct _node_source<_Node, std::allocator<_T>, _count>
    : public _standard_node_source<_Node, _count> {};

}  // namespace __zor

#endif

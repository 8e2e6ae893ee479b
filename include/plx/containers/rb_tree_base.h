// The untyped core of the ordered containers: linking, rebalancing, walking, counting, copying and clearing of a
// red-black tree, once for all instantiations. A typed tree derives from it, makes and destroys nodes, and finds by
// comparing keys where a node goes.
//
//     header: end(), never part of the sequence           root->parent   the header
//       parent   the root, null when empty                leftmost       first node, the header when empty
//       left     the last node, null when empty           rightmost      last node, the header when empty
//       right    always null
//
// So a step forward from the last node climbs to the header, and a step back from the header lands on the last node.
#ifndef PLX_RB_TREE_BASE_H
#define PLX_RB_TREE_BASE_H

#include <stddef.h>

#include <plx/base/config.h>
#include <plx/base/prefetch.h>

namespace __zor {

enum { _rb_black = 0, _rb_red = 1 };

// A typed node's value lies after these fields.
struct rb_tree_node_base {
  rb_tree_node_base *left;
  rb_tree_node_base *right;
  rb_tree_node_base *parent;
  unsigned char color;
};

struct rb_tree_base_data {
  rb_tree_node_base *header;
  unsigned int node_count;
  rb_tree_node_base *leftmost;
  rb_tree_node_base *rightmost;
};

typedef char _rb_tree_layout[offsetof(rb_tree_node_base, right) == sizeof(void *) &&
                                     offsetof(rb_tree_node_base, parent) == 8 &&
                                     offsetof(rb_tree_node_base, color) == 12 && sizeof(rb_tree_node_base) == 16 &&
                                     sizeof(rb_tree_base_data) == 16
                                 ? 1
                                 : -1];

// Restores the rules after a red node was linked below a red parent.
PLX_API PLX_REGPARM void _rb_tree_rebalance(rb_tree_node_base *_x, rb_tree_node_base *_header) PLX_NOTHROW;

// Takes a node out of the tree and the count, without destroying it.
PLX_API PLX_REGPARM void _rb_tree_unlink(rb_tree_base_data *_tree, rb_tree_node_base *_z) PLX_NOTHROW;

// One of two nodes, chosen without a branch, since which way a search goes cannot be predicted. G++ makes one branch of
// two choices by the same condition where it may, so it does not see this one.
inline rb_tree_node_base *_rb_tree_choose(bool _first, rb_tree_node_base *_a, rb_tree_node_base *_b) PLX_NOTHROW {
#if defined(__clang__)
  return _first ? _a : _b;
#else
  __asm__("testb %1, %1\n\tcmovne %2, %0" : "+r"(_b) : "q"(_first), "r"(_a) : "cc");
  return _b;
#endif
}

// The child on one side, chosen so too. The compiler must see both as loaded, or it waits for the load after the
// comparison; and it must forget where the result came from, or g++ branches to a test of each.
inline rb_tree_node_base *_rb_tree_child(const rb_tree_node_base *_n, bool _on_the_right) PLX_NOTHROW {
  rb_tree_node_base *_left = _n->left, *_right = _n->right;
  __asm__("" : "+r"(_left), "+r"(_right));
  _left = _on_the_right ? _right : _left;
  PLX_OPAQUE(_left);
  return _left;
}

// An in-order walk comes to the right children next, so they are prefetched on the way down.
inline rb_tree_node_base *_rb_tree_first(rb_tree_node_base *_n) PLX_NOTHROW {
  for (;; _n = _n->left) {
    _prefetch_unless_null(_n->right, _n);
    if (!_n->left) return _n;
  }
}

inline rb_tree_node_base *_rb_tree_next(const rb_tree_node_base *_n) PLX_NOTHROW {
  rb_tree_node_base *_at = _n->right;
  if (_at) return _rb_tree_first(_at);
  _at = _n->parent;
  while (_at->right == _n) {
    _n = _at;
    _at = _at->parent;
  }
  return _at;
}

// Back from the header: its left link leads to the last node, which has no right child.
inline rb_tree_node_base *_rb_tree_prev(const rb_tree_node_base *_n) PLX_NOTHROW {
  rb_tree_node_base *_at = _n->left;
  if (_at) {
    for (;; _at = _at->right) {
      _prefetch_unless_null(_at->left, _at);
      if (!_at->right) return _at;
    }
  }
  _at = _n->parent;
  while (_at->left == _n) {
    _n = _at;
    _at = _at->parent;
  }
  return _at;
}

// Links a new node below another one, as __finish_insert does. Which side it takes cannot be predicted, that it becomes
// the first or last one can. Most new nodes get a black parent, and then nothing is left to do.
inline void _rb_tree_link_below(rb_tree_base_data *_tree, rb_tree_node_base *_x, rb_tree_node_base *_p,
                                const rb_tree_node_base *_right_of) PLX_NOTHROW {
  rb_tree_node_base *const _header = _tree->header;
  rb_tree_node_base **_place = _right_of == _p ? &_p->right : &_p->left;
  PLX_OPAQUE(_place);  // or the compiler branches on the side after all
  _x->left = 0;
  _x->right = 0;
  _x->parent = _p;
  _x->color = _rb_red;
  ++_tree->node_count;
  *_place = _x;
  if (__builtin_expect(_p == _tree->rightmost, 0) && _x == _p->right) {
    _tree->rightmost = _x;
    _header->left = _x;
  }
  if (__builtin_expect(_p == _tree->leftmost, 0) && _x == _p->left) _tree->leftmost = _x;
  if (_p->color != _rb_black) _rb_tree_rebalance(_x, _header);
}

// The first node.
inline void _rb_tree_link_root(rb_tree_base_data *_tree, rb_tree_node_base *_x) PLX_NOTHROW {
  _x->left = 0;
  _x->right = 0;
  _x->parent = _tree->header;
  _x->color = _rb_black;
  _tree->node_count = 1;
  _tree->header->parent = _tree->header->left = _tree->leftmost = _tree->rightmost = _x;
}

class PLX_API rb_tree_base : public rb_tree_base_data {
public:
  typedef rb_tree_node_base _node;

  // Makes the header. If create_node throws, nothing was made.
  void __initialize();

  // Links x as a child of p, the right one if `_right_of` is p, and rebalances. In an empty tree p is the header and
  // `_right_of` is not: the header has no right child.
  _node *__finish_insert(_node *_x, _node *_p, _node *_right_of);

  static _node *__next(const _node *_n);
  static _node *__prev(const _node *_n);

  void __erase(_node *_z);
  unsigned int __erase(_node *_first, _node *_last);                    // how many
  unsigned int __count(const _node *_first, const _node *_last) const;  // steps
  void __clear();                                                       // keeps the header
  void __destroy();

  // Makes this empty tree a copy of another one. If create_node throws, what was copied hangs below the header, ready
  // for __clear or __destroy.
  void __copy(const rb_tree_base &_src, unsigned int _value_offset);

  void destroy_tree(_node *_n);

  // Copies the nodes at and below `_src`, whose values lie `_value_offset` bytes after their start. The copy becomes
  // the root when `_parent` is the header, else the right child of `_parent`.
  _node *copy_tree(_node *_parent, const _node *_src, unsigned int _value_offset);

  virtual void destroy_node(_node *_n);
  virtual _node *create_node(const void *_value) = 0;  // null: no value, for the header

protected:
  rb_tree_base() PLX_NOTHROW {}
  ~rb_tree_base() PLX_NOTHROW {}

private:
  rb_tree_base(const rb_tree_base &);
  rb_tree_base &operator=(const rb_tree_base &);
};

}  // namespace __zor

#endif

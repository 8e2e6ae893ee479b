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

#include <plx/config.h>

// Calls that every insertion or erasure makes take their arguments in registers.
#define PLX_TREE_CALL PLX_API __attribute__((__regparm__(3)))

namespace __zor {

enum { rb_black = 0, rb_red = 1 };

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

typedef char rb_tree_layout[offsetof(rb_tree_node_base, right) == sizeof(void *) &&
                                    offsetof(rb_tree_node_base, parent) == 8 &&
                                    offsetof(rb_tree_node_base, color) == 12 && sizeof(rb_tree_node_base) == 16 &&
                                    sizeof(rb_tree_base_data) == 16
                                ? 1
                                : -1];

// Restores the rules after a red node was linked below a red parent.
PLX_TREE_CALL void rb_tree_rebalance(rb_tree_node_base *x, rb_tree_node_base *header) PLX_NOTHROW;

// Takes a node out of the tree and the count, without destroying it.
PLX_TREE_CALL void rb_tree_unlink(rb_tree_base_data *tree, rb_tree_node_base *z) PLX_NOTHROW;

// The child on one side, chosen without a branch: which way a search goes cannot be predicted. The compiler must see both
// as loaded, or it computes the address first and waits for the load after the comparison.
inline rb_tree_node_base *rb_tree_child(const rb_tree_node_base *n, bool on_the_right) PLX_NOTHROW {
  rb_tree_node_base *left = n->left, *right = n->right;
  __asm__("" : "+r"(left), "+r"(right));
  return on_the_right ? right : left;
}

// Starts loading a node that will be needed a few steps later. What is not there is no address for it: looking that up
// takes time too. The instruction does nothing on processors that do not know it.
inline void rb_tree_prefetch(const rb_tree_node_base *n, const rb_tree_node_base *otherwise) PLX_NOTHROW {
  const rb_tree_node_base *at = n ? n : otherwise;
  __asm__ volatile("prefetcht0 %0" : : "m"(*at));
}

// On the way down the other children are those that the steps after this one come to.
inline rb_tree_node_base *rb_tree_first(rb_tree_node_base *n) PLX_NOTHROW {
  for (;; n = n->left) {
    rb_tree_prefetch(n->right, n);
    if (!n->left) return n;
  }
}

inline rb_tree_node_base *rb_tree_next(const rb_tree_node_base *n) PLX_NOTHROW {
  rb_tree_node_base *at = n->right;
  if (at) return rb_tree_first(at);
  at = n->parent;
  while (at->right == n) {
    n = at;
    at = at->parent;
  }
  return at;
}

// Back from the header: its left link leads to the last node, which has no right child.
inline rb_tree_node_base *rb_tree_prev(const rb_tree_node_base *n) PLX_NOTHROW {
  rb_tree_node_base *at = n->left;
  if (at) {
    for (;; at = at->right) {
      rb_tree_prefetch(at->left, at);
      if (!at->right) return at;
    }
  }
  at = n->parent;
  while (at->left == n) {
    n = at;
    at = at->parent;
  }
  return at;
}

// Links a new node as __finish_insert does. Which side it takes cannot be predicted, that it becomes the first or last one
// can. Most new nodes get a black parent, and then nothing is left to do.
inline void rb_tree_link(rb_tree_base_data *tree, rb_tree_node_base *x, rb_tree_node_base *p,
                         const rb_tree_node_base *right_of) PLX_NOTHROW {
  rb_tree_node_base *const header = tree->header;
  rb_tree_node_base **place = right_of == p ? &p->right : &p->left;
  __asm__("" : "+r"(place));  // or the compiler branches on the side after all
  x->left = 0;
  x->right = 0;
  x->parent = p;
  x->color = rb_red;
  ++tree->node_count;
  if (__builtin_expect(!header->parent, 0)) {
    header->parent = x;
    header->left = x;
    tree->leftmost = x;
    tree->rightmost = x;
    x->color = rb_black;
    return;
  }
  *place = x;
  if (__builtin_expect(p == tree->rightmost, 0) && x == p->right) {
    tree->rightmost = x;
    header->left = x;
  }
  if (__builtin_expect(p == tree->leftmost, 0) && x == p->left) tree->leftmost = x;
  if (p->color != rb_black) rb_tree_rebalance(x, header);
}

class PLX_API rb_tree_base : public rb_tree_base_data {
public:
  typedef rb_tree_node_base node;

  // Makes the header. If create_node throws, nothing was made.
  void __initialize();

  // Links x as a child of p, the right one if `right_of` is p, and rebalances. In an empty tree p is the header and
  // `right_of` is not: the header has no right child.
  node *__finish_insert(node *x, node *p, node *right_of);

  static node *__next(const node *n);
  static node *__prev(const node *n);

  void __erase(node *z);
  unsigned int __erase(node *first, node *last);                    // how many
  unsigned int __count(const node *first, const node *last) const;  // steps
  void __clear();                                                   // keeps the header
  void __destroy();

  // Makes this empty tree a copy of another one. If create_node throws, what was copied hangs below the header, ready
  // for __clear or __destroy.
  void __copy(const rb_tree_base &src, unsigned int value_offset);

  void destroy_tree(node *n);

  // Copies the nodes at and below `src`, whose values lie `value_offset` bytes after their start. The copy becomes the
  // root when `parent` is the header, else the right child of `parent`.
  node *copy_tree(node *parent, const node *src, unsigned int value_offset);

  virtual void destroy_node(node *n);
  virtual node *create_node(const void *value) = 0;  // null: no value, for the header

protected:
  rb_tree_base() PLX_NOTHROW {}
  ~rb_tree_base() PLX_NOTHROW {}

private:
  rb_tree_base(const rb_tree_base &);
  rb_tree_base &operator=(const rb_tree_base &);
};

}  // namespace __zor

#endif

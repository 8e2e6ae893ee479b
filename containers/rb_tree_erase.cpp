// Taking nodes out of a red-black tree. A node with two children first changes places with its successor, by links and
// colours, so that iterators to all other nodes stay valid. When the node that left its place was black, the side where
// it hung is one black node short, until a red node there or at the sibling makes up for it.

#include "rb_tree_links.h"

namespace __zor {

namespace {

// `x`, perhaps null, hangs below `parent` and is one black node short.
void make_up_for_black(rb_node *x, rb_node *parent, rb_node *header) {
  while (x != header->parent && !is_red(x)) {
    // A sibling always exists: its side holds the black nodes that are missing on ours.
    const unsigned side = parent->left == x ? 0 : 1;
    rb_node *sibling = child(parent, 1 - side);
    if (sibling->color == _rb_red) {
      sibling->color = _rb_black;
      parent->color = _rb_red;
      rotate(parent, side, header);
      sibling = child(parent, 1 - side);
    }
    if (!is_red(sibling->left) && !is_red(sibling->right)) {
      sibling->color = _rb_red;
      x = parent;
      parent = x->parent;
      continue;
    }
    if (!is_red(child(sibling, 1 - side))) {
      child(sibling, side)->color = _rb_black;
      sibling->color = _rb_red;
      rotate(sibling, 1 - side, header);
      sibling = child(parent, 1 - side);
    }
    sibling->color = parent->color;
    parent->color = _rb_black;
    child(sibling, 1 - side)->color = _rb_black;
    rotate(parent, side, header);
    break;
  }
  if (x) x->color = _rb_black;
}

// The first or last node of the tree leaves, with at most one child x, on the inner side.
rb_node *next_end(rb_node *z, rb_node *x, unsigned side) { return x ? last_on(x, side) : z->parent; }

}  // namespace

void _rb_tree_unlink(rb_tree_base_data *tree, rb_node *z) PLX_NOTHROW {
  rb_node *const header = tree->header;
  rb_node *x;
  rb_node *parent;
  unsigned char removed = z->color;
  --tree->node_count;

  if (z->left && z->right) {
    rb_node *const y = last_on(z->right, 0);
    x = y->right;
    z->left->parent = y;
    y->left = z->left;
    if (y == z->right) {
      parent = y;
    } else {
      parent = y->parent;
      parent->left = x;
      if (x) x->parent = parent;
      y->right = z->right;
      z->right->parent = y;
    }
    replace_below_parent(z, y, header);
    y->parent = z->parent;
    removed = y->color;
    y->color = z->color;
  } else {
    x = z->left ? z->left : z->right;
    parent = z->parent;
    replace_below_parent(z, x, header);
    if (x) x->parent = parent;
    if (tree->leftmost == z) tree->leftmost = next_end(z, x, 0);
    if (tree->rightmost == z) {
      rb_node *const last = next_end(z, x, 1);
      tree->rightmost = last;
      header->left = last == header ? nullptr : last;
    }
  }
  if (removed == _rb_black) make_up_for_black(x, parent, header);
}

void rb_tree_base::__erase(rb_node *z) {
  _rb_tree_unlink(this, z);
  destroy_node(z);
}

unsigned int rb_tree_base::__erase(rb_node *first, rb_node *last) {
  if (first == leftmost && last == header) {
    const unsigned int all = node_count;
    __clear();
    return all;
  }
  unsigned int erased = 0;
  while (first != last) {
    rb_node *const next = __next(first);
    __erase(first);
    first = next;
    ++erased;
  }
  return erased;
}

}  // namespace __zor

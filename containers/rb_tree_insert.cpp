// Linking a new node into a red-black tree. It is red, so only a red parent breaks a rule: recolour upward while the
// uncle is red too, then one or two rotations end it.

#include "rb_tree_links.h"

namespace __zor {

void _rb_tree_rebalance(rb_node *x, rb_node *header) PLX_NOTHROW {
  while (x != header->parent && x->parent->color == _rb_red) {
    rb_node *parent = x->parent;
    rb_node *const grandparent = parent->parent;
    const unsigned side = side_of(parent);
    rb_node *const uncle = child(grandparent, 1 - side);
    if (is_red(uncle)) {
      parent->color = _rb_black;
      uncle->color = _rb_black;
      grandparent->color = _rb_red;
      x = grandparent;
      continue;
    }
    if (x == child(parent, 1 - side)) {
      rotate(parent, side, header);
      parent = x;
    }
    parent->color = _rb_black;
    grandparent->color = _rb_red;
    rotate(grandparent, 1 - side, header);
    break;
  }
  header->parent->color = _rb_black;
}

rb_node *rb_tree_base::__finish_insert(rb_node *x, rb_node *p, rb_node *right_of) {
  if (!header->parent)
    _rb_tree_link_root(this, x);
  else
    _rb_tree_link_below(this, x, p, right_of);
  return x;
}

}  // namespace __zor

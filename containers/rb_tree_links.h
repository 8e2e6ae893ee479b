// What the algorithms on red-black trees share: child links by side, and rotation. Left and right have one code path; a
// side is 0 or 1, and 1 - side is the other one.
//
//     rotation of n toward side 0
//
//          n                 c
//         / \               / \        Both hold the same order; a rotation toward side 1 is the mirror image.
//        a   c     -->     n   e
//           / \           / \          b changes its parent.
//          b   e         a   b
#pragma once

#include <plx/containers/rb_tree_base.h>

namespace __zor {

using rb_node = rb_tree_node_base;

// The two links stand side by side; the layout check beside their record holds them there.
inline rb_node *&child(rb_node *n, unsigned side) { return (&n->left)[side]; }

inline unsigned side_of(const rb_node *n) { return n->parent->right == n; }

inline bool is_red(const rb_node *n) { return n && n->color == _rb_red; }

inline rb_node *last_on(rb_node *n, unsigned side) {
  while (rb_node *below = child(n, side)) n = below;
  return n;
}

// Puts `n` where `old` hangs below its parent. The header's links are no children's links: root first.
inline void replace_below_parent(rb_node *old, rb_node *n, rb_node *header) {
  if (header->parent == old)
    header->parent = n;
  else
    child(old->parent, side_of(old)) = n;
}

inline void rotate(rb_node *n, unsigned side, rb_node *header) {
  rb_node *const c = child(n, 1 - side);
  rb_node *const between = child(c, side);
  child(n, 1 - side) = between;
  if (between) between->parent = n;
  replace_below_parent(n, c, header);
  c->parent = n->parent;
  child(c, side) = n;
  n->parent = c;
}

}  // namespace __zor

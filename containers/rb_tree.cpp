// The life of a red-black tree as a whole: making the header, walking, copying, clearing and destroying. Recursion goes
// into right subtrees only, so it is never deeper than the tree is high.

#include <plx/containers/rb_tree_base.h>

#include "rb_tree_links.h"

namespace __zor {

void rb_tree_base::__initialize() {
  header = create_node(nullptr);
  node_count = 0;
  header->left = header->right = header->parent = nullptr;
  leftmost = rightmost = header;
}

rb_node *rb_tree_base::__next(const rb_node *n) { return _rb_tree_next(n); }

rb_node *rb_tree_base::__prev(const rb_node *n) { return _rb_tree_prev(n); }

unsigned int rb_tree_base::__count(const rb_node *first, const rb_node *last) const {
  unsigned int steps = 0;
  for (; first != last; first = _rb_tree_next(first)) ++steps;
  return steps;
}

void rb_tree_base::__clear() {
  if (!header->parent) return;
  destroy_tree(header->parent);
  node_count = 0;
  leftmost = rightmost = header;
  header->parent = header->left = nullptr;
}

void rb_tree_base::__destroy() {
  if (header->parent) destroy_tree(header->parent);
  destroy_node(header);
}

void rb_tree_base::destroy_tree(rb_node *n) {
  while (n) {
    if (n->left && n->right) destroy_tree(n->right);
    rb_node *const below = n->left ? n->left : n->right;
    destroy_node(n);
    n = below;
  }
}

void rb_tree_base::__copy(const rb_tree_base &src, unsigned int value_offset) {
  if (const rb_node *root = src.header->parent) {
    rb_node *const copy = copy_tree(header, root, value_offset);
    leftmost = last_on(copy, 0);
    rightmost = last_on(copy, 1);
    header->left = rightmost;
  }
  node_count = src.node_count;
}

// Every link is null or leads to a finished node whenever create_node is called, since it may throw.
rb_node *rb_tree_base::copy_tree(rb_node *parent, const rb_node *src, unsigned int value_offset) {
  rb_node *top = nullptr;
  rb_node **link = parent == header ? &parent->parent : &parent->right;
  for (; src; src = src->left) {
    rb_node *const copy = create_node(reinterpret_cast<const char *>(src) + value_offset);
    copy->left = copy->right = nullptr;
    copy->parent = parent;
    copy->color = src->color;
    *link = copy;
    if (!top) top = copy;
    if (src->right) copy_tree(copy, src->right, value_offset);
    parent = copy;
    link = &copy->left;
  }
  return top;
}

void rb_tree_base::destroy_node(rb_node *) {}

}  // namespace __zor

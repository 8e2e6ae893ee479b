// The rules that every red-black tree of the ordered containers keeps; tests ask after every change of a tree.
#ifndef TESTS_TREE_RULES_H
#define TESTS_TREE_RULES_H

#include <plx/containers/rb_tree_base.h>

class tree_rules {
  typedef __zor::rb_tree_node_base node;

public:
  explicit tree_rules(const __zor::rb_tree_base_data &tree) : tree_(tree), count_(0), previous_(0) {}

  // The header's right link is null, and its left one leads to the last node. Without a root it is first and last.
  bool hold() {
    const node *const header = tree_.header, *const root = header->parent;
    return black_height(root, header) >= 0 && !header->right && header->left == previous_ &&
           tree_.rightmost == (root ? previous_ : header) && (root || tree_.leftmost == header) &&
           tree_.node_count == count_ && (!root || __zor::rb_tree_base::__next(previous_) == header);
  }

private:
  // How many nodes are black on every way down, or -1. In order, so that neighbours are seen one after the other: steps
  // forward and back visit the nodes as the links say. Below a red node, or the header, nodes are black.
  int black_height(const node *n, const node *parent) {
    if (!n) return 0;
    const bool black = n->color == __zor::_rb_black;
    const int left = black_height(n->left, n);
    const bool follows =
        !previous_ ? tree_.leftmost == n
                   : __zor::rb_tree_base::__next(previous_) == n && __zor::rb_tree_base::__prev(n) == previous_;
    previous_ = n;
    ++count_;
    const bool good =
        follows && n->parent == parent && (black || (n->color == __zor::_rb_red && parent->color == __zor::_rb_black));
    return good && left >= 0 && left == black_height(n->right, n) ? left + black : -1;
  }

  const __zor::rb_tree_base_data &tree_;
  unsigned int count_;
  const node *previous_;
};

// A container is its tree, which begins with the pointer to its virtual functions.
template <class Container> bool whole(const Container &container) {
  typename Container::const_iterator at = container.begin(), before = at;
  const __zor::rb_tree_base_data &data =
      *reinterpret_cast<const __zor::rb_tree_base_data *>(reinterpret_cast<const char *>(&container) + sizeof(void *));
  if (data.header != container.end().base() || !tree_rules(data).hold()) return false;
  for (; at != container.end(); before = at++)
    if (container.value_comp()(*at, *before)) return false;
  return true;
}

#endif

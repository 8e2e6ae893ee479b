// The rules that every red-black tree of the ordered containers keeps, numbered. validate_tree returns the number of
// the first rule that is broken, or 0; tests call it after every change of a tree.
#ifndef TESTS_RB_TREE_VALIDATOR_H
#define TESTS_RB_TREE_VALIDATOR_H

#include <plx/containers/rb_tree_base.h>

enum broken_rule {
  no_rule_broken,
  rule_1_header_right_is_null,
  rule_2_root_hangs_below_header,
  rule_3_header_left_is_last,  // null when empty
  rule_4_leftmost_is_first,
  rule_5_rightmost_is_last,  // the header when empty
  rule_6_children_know_parent,
  rule_7_colours,  // red or black, a black root, no red child of a red node
  rule_8_black_height,
  rule_9_count,
  rule_10_order,
  rule_11_walks  // forward and back visit the same nodes as the links say
};

// `ordered(a, b)`: may b's value come after a's?
template <class Ordered> class tree_validator {
  typedef __zor::rb_tree_node_base node;

public:
  tree_validator(const __zor::rb_tree_base_data &tree, Ordered ordered)
      : tree_(tree), ordered_(ordered), broken_(no_rule_broken), count_(0), previous_(0) {}

  int run() {
    const node *header = tree_.header;
    const node *root = header->parent;
    if (header->right) return rule_1_header_right_is_null;
    if (!root) {
      if (header->left) return rule_3_header_left_is_last;
      if (tree_.leftmost != header) return rule_4_leftmost_is_first;
      if (tree_.rightmost != header) return rule_5_rightmost_is_last;
      return tree_.node_count != 0 ? rule_9_count : no_rule_broken;
    }
    if (root->parent != header) return rule_2_root_hangs_below_header;
    if (root->color != __zor::_rb_black) return rule_7_colours;
    black_height(root);
    if (broken_) return broken_;
    if (header->left != previous_) return rule_3_header_left_is_last;
    if (tree_.rightmost != previous_) return rule_5_rightmost_is_last;
    if (tree_.node_count != count_) return rule_9_count;
    return walk_back();
  }

private:
  int broken(int rule) {
    if (!broken_) broken_ = rule;
    return 0;
  }

  // In order, so that neighbours are seen one after the other.
  int black_height(const node *n) {
    if (!n || broken_) return 0;
    if (n->color != __zor::_rb_black && n->color != __zor::_rb_red) return broken(rule_7_colours);
    const node *children[] = {n->left, n->right};
    for (int i = 0; i < 2; ++i) {
      if (children[i] && children[i]->parent != n) return broken(rule_6_children_know_parent);
      if (children[i] && n->color == __zor::_rb_red && children[i]->color == __zor::_rb_red)
        return broken(rule_7_colours);
    }
    const int left = black_height(n->left);
    if (broken_) return 0;
    if (!previous_ && tree_.leftmost != n) return broken(rule_4_leftmost_is_first);
    if (previous_ && !ordered_(previous_, n)) return broken(rule_10_order);
    if (previous_ && __zor::rb_tree_base::__next(previous_) != n) return broken(rule_11_walks);
    previous_ = n;
    ++count_;
    const int right = black_height(n->right);
    if (!broken_ && left != right) return broken(rule_8_black_height);
    return left + (n->color == __zor::_rb_black);
  }

  int walk_back() {
    if (__zor::rb_tree_base::__next(previous_) != tree_.header) return rule_11_walks;
    const node *at = tree_.header;
    for (unsigned int i = 0; i < count_; ++i) {
      const node *before = __zor::rb_tree_base::__prev(at);
      if (__zor::rb_tree_base::__next(before) != at) return rule_11_walks;
      at = before;
    }
    return at == tree_.leftmost ? no_rule_broken : rule_11_walks;
  }

  const __zor::rb_tree_base_data &tree_;
  Ordered ordered_;
  int broken_;
  unsigned int count_;
  const node *previous_;
};

template <class Container> struct values_ordered {
  const Container &container;
  explicit values_ordered(const Container &c) : container(c) {}
  bool operator()(const __zor::rb_tree_node_base *a, const __zor::rb_tree_node_base *b) const {
    typedef typename Container::const_iterator iterator;
    const iterator left(const_cast<__zor::rb_tree_node_base *>(a)), right(const_cast<__zor::rb_tree_node_base *>(b));
    return !container.value_comp()(*right, *left);
  }
};

// A container is its tree, which begins with the pointer to its virtual functions.
template <class Container> int validate(const Container &container) {
  const __zor::rb_tree_base_data &data =
      *reinterpret_cast<const __zor::rb_tree_base_data *>(reinterpret_cast<const char *>(&container) + sizeof(void *));
  if (data.header != container.end().base()) return -1;
  return tree_validator<values_ordered<Container> >(data, values_ordered<Container>(container)).run();
}

#endif

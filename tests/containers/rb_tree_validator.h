// The rules that every red-black tree of the ordered containers keeps, numbered. tree_validator::run returns the number
// of one that is broken, or 0; tests call it after every change of a tree.
#ifndef TESTS_RB_TREE_VALIDATOR_H
#define TESTS_RB_TREE_VALIDATOR_H

#include <plx/containers/rb_tree_base.h>

enum broken_rule {
  no_rule_broken,
  rule_1_empty,    // no root: the header leads to nothing and is first and last, the count is 0
  rule_2_ends,     // the header's right link is null, its left link and `rightmost` the last node, `leftmost` the first
  rule_3_parents,  // children know their parents, the root's is the header
  rule_4_colours,  // red or black, and below a red node or the header black
  rule_5_balance,  // as many black nodes on every way down
  rule_6_count,
  rule_7_order,
  rule_8_walks  // forward and back visit the nodes as the links say, and the header behind the last
};

// `ordered(a, b)`: may b's value come after a's?
template <class Ordered> class tree_validator {
  typedef __zor::rb_tree_node_base node;

public:
  tree_validator(const __zor::rb_tree_base_data &tree, Ordered ordered)
      : tree_(tree), ordered_(ordered), broken_(no_rule_broken), count_(0), previous_(0) {}

  int run() {
    const node *const header = tree_.header, *const root = header->parent;
    if (!root) {
      const bool empty = !header->left && !header->right && tree_.leftmost == header && tree_.rightmost == header;
      return empty && tree_.node_count == 0 ? no_rule_broken : rule_1_empty;
    }
    black_height(root, header);
    needs(!header->right && header->left == previous_ && tree_.rightmost == previous_, rule_2_ends);
    needs(tree_.node_count == count_, rule_6_count);
    if (!broken_) needs(__zor::rb_tree_base::__next(previous_) == header, rule_8_walks);
    return broken_;
  }

private:
  void needs(bool good, broken_rule rule) {
    if (!good && !broken_) broken_ = rule;
  }

  // In order, so that neighbours are seen one after the other.
  int black_height(const node *n, const node *parent) {
    if (!n || broken_) return 0;
    const bool black = n->color == __zor::_rb_black;
    needs(n->parent == parent, rule_3_parents);
    needs(black || (n->color == __zor::_rb_red && parent->color == __zor::_rb_black), rule_4_colours);
    const int left = black_height(n->left, n);
    if (broken_) return 0;
    needs(previous_ || tree_.leftmost == n, rule_2_ends);
    needs(!previous_ || ordered_(previous_, n), rule_7_order);
    needs(!previous_ || (__zor::rb_tree_base::__next(previous_) == n && __zor::rb_tree_base::__prev(n) == previous_),
          rule_8_walks);
    previous_ = n;
    ++count_;
    needs(left == black_height(n->right, n), rule_5_balance);
    return left + black;
  }

  const __zor::rb_tree_base_data &tree_;
  Ordered ordered_;
  broken_rule broken_;
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

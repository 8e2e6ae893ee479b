// The bidirectional iterator of map, multimap, set and multiset. V is the value type or its const form.
#ifndef PLX_TREE_ITERATOR_H
#define PLX_TREE_ITERATOR_H

#include <plx/iterator_base.h>
#include <plx/pointer_iterator.h>
#include <plx/rb_tree_base.h>
#include <plx/type_properties.h>

namespace __zor {

// What every typed node begins with, what the order of its keys adds, and the value.
template <class Value, class Digest> struct tree_node : public rb_tree_node_base, public Digest {
  Value value;
};

// Knows nothing of the value before it is used: structures hold iterators to their own kind.
template <class Node, class V> class tree_iterator {
public:
  typedef typename without_const<V>::type value_type;
  typedef std::ptrdiff_t difference_type;
  typedef V *pointer;
  typedef V &reference;
  typedef std::bidirectional_iterator_tag iterator_category;

  tree_iterator() PLX_NOTHROW : at_(0) {}
  explicit tree_iterator(rb_tree_node_base *at) PLX_NOTHROW : at_(at) {}

  template <class U> tree_iterator(const tree_iterator<Node, U> &other, typename adds_const<V, U>::type = 0) PLX_NOTHROW
      : at_(other.base()) {}

  rb_tree_node_base *base() const PLX_NOTHROW { return at_; }
  V &operator*() const PLX_NOTHROW { return static_cast<Node *>(at_)->value; }
  V *operator->() const PLX_NOTHROW { return address_of<V>(static_cast<Node *>(at_)->value); }

  tree_iterator &operator++() PLX_NOTHROW {
    at_ = rb_tree_next(at_);
    return *this;
  }
  tree_iterator operator++(int) PLX_NOTHROW {
    tree_iterator before(at_);
    at_ = rb_tree_next(at_);
    return before;
  }
  tree_iterator &operator--() PLX_NOTHROW {
    at_ = rb_tree_prev(at_);
    return *this;
  }
  tree_iterator operator--(int) PLX_NOTHROW {
    tree_iterator before(at_);
    at_ = rb_tree_prev(at_);
    return before;
  }

private:
  rb_tree_node_base *at_;
};

template <class Node, class V, class U>
inline bool operator==(const tree_iterator<Node, V> &left, const tree_iterator<Node, U> &right) PLX_NOTHROW {
  return left.base() == right.base();
}
template <class Node, class V, class U>
inline bool operator!=(const tree_iterator<Node, V> &left, const tree_iterator<Node, U> &right) PLX_NOTHROW {
  return left.base() != right.base();
}

}  // namespace __zor

#endif

// set (1998, 23.3.3): keys, each once, in the order of the keys.
#ifndef PLX_TREE_SET_H
#define PLX_TREE_SET_H

#include <plx/tree_container.h>

namespace std {

template <class Key, class Compare = less<Key>, class A = allocator<Key> >
class set : public __zor::unique_tree_container<Key, Key, const Key, __zor::key_is_all, Compare, A> {
  typedef __zor::unique_tree_container<Key, Key, const Key, __zor::key_is_all, Compare, A> base;

public:
  typedef Compare value_compare;

  explicit set(const Compare &compare = Compare(), const A &allocator = A()) : base(compare, allocator) {}
  template <class InputIterator>
  set(InputIterator first, InputIterator last, const Compare &compare = Compare(), const A &allocator = A())
      : base(compare, allocator) {
    this->insert(first, last);
  }

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  void swap(set &other) { this->tree_.swap(other.tree_); }
};

template <class Key, class Compare, class A>
inline void swap(set<Key, Compare, A> &left, set<Key, Compare, A> &right) {
  left.swap(right);
}

}  // namespace std

#endif

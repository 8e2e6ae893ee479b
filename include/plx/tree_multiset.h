// multiset (1998, 23.3.4): keys, each any number of times, in the order of the keys.
#ifndef PLX_TREE_MULTISET_H
#define PLX_TREE_MULTISET_H

#include <plx/tree_container.h>

namespace std {

template <class Key, class Compare = less<Key>, class A = allocator<Key> >
class multiset : public __zor::multi_tree_container<Key, Key, const Key, __zor::key_is_all, Compare, A> {
  typedef __zor::multi_tree_container<Key, Key, const Key, __zor::key_is_all, Compare, A> base;

public:
  typedef Compare value_compare;

  explicit multiset(const Compare &compare = Compare(), const A &allocator = A()) : base(compare, allocator) {}
  template <class InputIterator>
  multiset(InputIterator first, InputIterator last, const Compare &compare = Compare(), const A &allocator = A())
      : base(compare, allocator) {
    this->insert(first, last);
  }

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  void swap(multiset &other) { this->tree_.swap(other.tree_); }
};

template <class Key, class Compare, class A>
inline void swap(multiset<Key, Compare, A> &left, multiset<Key, Compare, A> &right) {
  left.swap(right);
}

}  // namespace std

#endif

// multimap (1998, 23.3.2): any number of values for each key, in the order of the keys.
#ifndef PLX_TREE_MULTIMAP_H
#define PLX_TREE_MULTIMAP_H

#include <plx/function_objects.h>
#include <plx/tree_container.h>

namespace std {

template <class Key, class T, class Compare = less<Key>, class A = allocator<pair<const Key, T> > >
class multimap : public __zor::multi_tree_container<Key, pair<const Key, T>, pair<const Key, T>, __zor::key_is_first, Compare, A> {
  typedef __zor::multi_tree_container<Key, pair<const Key, T>, pair<const Key, T>, __zor::key_is_first, Compare, A> base;

public:
  typedef T mapped_type;
  typedef typename base::value_type value_type;

  class value_compare : public binary_function<value_type, value_type, bool> {
  public:
    bool operator()(const value_type &left, const value_type &right) const { return comp(left.first, right.first); }

  protected:
    friend class multimap;
    explicit value_compare(Compare c) : comp(c) {}

    Compare comp;
  };

  explicit multimap(const Compare &compare = Compare(), const A &allocator = A()) : base(compare, allocator) {}
  template <class InputIterator>
  multimap(InputIterator first, InputIterator last, const Compare &compare = Compare(), const A &allocator = A())
      : base(compare, allocator) {
    this->insert(first, last);
  }

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  void swap(multimap &other) { this->tree_.swap(other.tree_); }
};

template <class Key, class T, class Compare, class A>
inline void swap(multimap<Key, T, Compare, A> &left, multimap<Key, T, Compare, A> &right) {
  left.swap(right);
}

}  // namespace std

#endif

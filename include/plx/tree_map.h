// map (1998, 23.3.1): one value for each key, in the order of the keys.
#ifndef PLX_TREE_MAP_H
#define PLX_TREE_MAP_H

#include <plx/function_objects.h>
#include <plx/tree_container.h>

namespace std {

template <class Key, class T, class Compare = less<Key>, class A = allocator<pair<const Key, T> > >
class map : public __zor::unique_tree_container<Key, pair<const Key, T>, pair<const Key, T>, __zor::key_is_first, Compare, A> {
  typedef __zor::unique_tree_container<Key, pair<const Key, T>, pair<const Key, T>, __zor::key_is_first, Compare, A> base;

public:
  typedef T mapped_type;
  typedef typename base::value_type value_type;

  class value_compare : public binary_function<value_type, value_type, bool> {
  public:
    bool operator()(const value_type &left, const value_type &right) const { return comp(left.first, right.first); }

  protected:
    friend class map;
    explicit value_compare(Compare c) : comp(c) {}

    Compare comp;
  };

  explicit map(const Compare &compare = Compare(), const A &allocator = A()) : base(compare, allocator) {}
  template <class InputIterator>
  map(InputIterator first, InputIterator last, const Compare &compare = Compare(), const A &allocator = A())
      : base(compare, allocator) {
    this->insert(first, last);
  }

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  mapped_type &operator[](const Key &key) { return this->tree_.value_of(key)->second; }

  void swap(map &other) { this->tree_.swap(other.tree_); }
};

template <class Key, class T, class Compare, class A>
inline void swap(map<Key, T, Compare, A> &left, map<Key, T, Compare, A> &right) {
  left.swap(right);
}

}  // namespace std

#endif

// What map, multimap, set and multiset have in common (1998, 23.1.2): everything but construction, insertion and the
// difference between one and many elements of a key.
//
// Iterators stay valid until their own element is erased. operator= and every insertion of one element do all or nothing.
#ifndef PLX_TREE_CONTAINER_H
#define PLX_TREE_CONTAINER_H

#include <plx/algobase.h>
#include <plx/pair.h>
#include <plx/rb_tree.h>

namespace __zor {

struct key_is_first {
  template <class Value> static const typename Value::first_type &key(const Value &value) PLX_NOTHROW {
    return value.first;
  }
};
struct key_is_all {
  template <class Value> static const Value &key(const Value &value) PLX_NOTHROW { return value; }
};

// `ShownValue` is what iterators refer to: a set's elements are keys, and never change.
template <class Key, class Value, class ShownValue, class KeyOf, class Compare, class A> class tree_container {
public:
  typedef Key key_type;
  typedef Value value_type;
  typedef Compare key_compare;
  typedef A allocator_type;
  typedef typename A::reference reference;
  typedef typename A::const_reference const_reference;
  typedef typename A::pointer pointer;
  typedef typename A::const_pointer const_pointer;
  typedef typename A::size_type size_type;
  typedef typename A::difference_type difference_type;

protected:
  typedef rb_tree<Key, Value, KeyOf, Compare, A> tree;

public:
  typedef tree_iterator<typename tree::typed_node, ShownValue> iterator;
  typedef tree_iterator<typename tree::typed_node, const Value> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  iterator begin() PLX_NOTHROW { return tree_.begin(); }
  const_iterator begin() const PLX_NOTHROW { return tree_.begin(); }
  iterator end() PLX_NOTHROW { return tree_.end(); }
  const_iterator end() const PLX_NOTHROW { return tree_.end(); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }

  bool empty() const PLX_NOTHROW { return tree_.size() == 0; }
  size_type size() const PLX_NOTHROW { return tree_.size(); }
  size_type max_size() const PLX_NOTHROW {
    return static_cast<size_type>(-1) / sizeof(typename tree::typed_node);
  }
  allocator_type get_allocator() const { return tree_.get_allocator(); }
  key_compare key_comp() const { return tree_.key_comp(); }

  // To the element behind it, as later standards have it.
  iterator erase(iterator at) { return tree_.erase(inner(at)); }
  iterator erase(iterator first, iterator last) {
    tree_.erase(inner(first), inner(last));
    return last;
  }
  void clear() { tree_.clear(); }

  iterator find(const key_type &key) { return tree_.find(key); }
  const_iterator find(const key_type &key) const { return tree_.find(key); }
  iterator lower_bound(const key_type &key) { return tree_.lower_bound(key); }
  const_iterator lower_bound(const key_type &key) const { return tree_.lower_bound(key); }
  iterator upper_bound(const key_type &key) { return tree_.upper_bound(key); }
  const_iterator upper_bound(const key_type &key) const { return tree_.upper_bound(key); }

protected:
  typedef typename tree::iterator inner_iterator;

  tree_container(const Compare &compare, const A &allocator) : tree_(compare, allocator) {}

  // The other way round, from a set's iterator too, which shows less.
  static inner_iterator inner(iterator at) PLX_NOTHROW { return inner_iterator(at.base()); }

  tree tree_;
};

// Those with one element at most for each key.
template <class Key, class Value, class ShownValue, class KeyOf, class Compare, class A>
class unique_tree_container : public tree_container<Key, Value, ShownValue, KeyOf, Compare, A> {
  typedef tree_container<Key, Value, ShownValue, KeyOf, Compare, A> base;

public:
  typedef typename base::iterator iterator;
  typedef typename base::const_iterator const_iterator;
  typedef typename base::size_type size_type;

  std::pair<iterator, bool> insert(const Value &value) {
    bool inserted;
    const iterator at = this->tree_.insert_unique(value, inserted);
    return std::pair<iterator, bool>(at, inserted);
  }
  iterator insert(iterator hint, const Value &value) { return this->tree_.insert_unique(base::inner(hint), value); }

  // A sorted range goes in without a search.
  template <class InputIterator> void insert(InputIterator first, InputIterator last) {
    for (; first != last; ++first) this->tree_.insert_unique(this->tree_.end(), *first);
  }

  using base::erase;
  size_type erase(const Key &key) {
    const typename base::inner_iterator at = this->tree_.find(key);
    if (at == this->tree_.end()) return 0;
    this->tree_.erase(at);
    return 1;
  }

  size_type count(const Key &key) const { return this->tree_.find(key) != this->tree_.end(); }

  std::pair<iterator, iterator> equal_range(const Key &key) {
    const typename base::inner_iterator lower = this->tree_.lower_bound(key);
    return std::pair<iterator, iterator>(lower, this->tree_.upper_of_unique(lower, key));
  }
  std::pair<const_iterator, const_iterator> equal_range(const Key &key) const {
    const typename base::inner_iterator lower = this->tree_.lower_bound(key);
    return std::pair<const_iterator, const_iterator>(lower, this->tree_.upper_of_unique(lower, key));
  }

protected:
  unique_tree_container(const Compare &compare, const A &allocator) : base(compare, allocator) {}
};

// Those with any number. Elements of equal keys stay in the order of their insertion.
template <class Key, class Value, class ShownValue, class KeyOf, class Compare, class A>
class multi_tree_container : public tree_container<Key, Value, ShownValue, KeyOf, Compare, A> {
  typedef tree_container<Key, Value, ShownValue, KeyOf, Compare, A> base;

public:
  typedef typename base::iterator iterator;
  typedef typename base::const_iterator const_iterator;
  typedef typename base::size_type size_type;

  iterator insert(const Value &value) { return this->tree_.insert_equal(value); }
  iterator insert(iterator hint, const Value &value) { return this->tree_.insert_equal(base::inner(hint), value); }
  template <class InputIterator> void insert(InputIterator first, InputIterator last) {
    for (; first != last; ++first) this->tree_.insert_equal(this->tree_.end(), *first);
  }

  using base::erase;
  size_type erase(const Key &key) {
    const typename base::inner_iterator first = this->tree_.lower_bound(key);
    return this->tree_.erase(first, this->tree_.upper_bound(key));
  }

  size_type count(const Key &key) const {
    const typename base::inner_iterator first = this->tree_.lower_bound(key);
    return base::tree::count(first, this->tree_.upper_bound(key));
  }

  std::pair<iterator, iterator> equal_range(const Key &key) {
    return std::pair<iterator, iterator>(this->lower_bound(key), this->upper_bound(key));
  }
  std::pair<const_iterator, const_iterator> equal_range(const Key &key) const {
    return std::pair<const_iterator, const_iterator>(this->lower_bound(key), this->upper_bound(key));
  }

protected:
  multi_tree_container(const Compare &compare, const A &allocator) : base(compare, allocator) {}
};

// ---- Operators ---------------------------------------------------------------------------------------------------

template <class K, class V, class S, class F, class C, class A>
inline bool operator==(const unique_tree_container<K, V, S, F, C, A> &left, const unique_tree_container<K, V, S, F, C, A> &right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin());
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator<(const unique_tree_container<K, V, S, F, C, A> &left, const unique_tree_container<K, V, S, F, C, A> &right) {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator!=(const unique_tree_container<K, V, S, F, C, A> &left, const unique_tree_container<K, V, S, F, C, A> &right) {
  return !(left == right);
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator>(const unique_tree_container<K, V, S, F, C, A> &left, const unique_tree_container<K, V, S, F, C, A> &right) {
  return right < left;
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator<=(const unique_tree_container<K, V, S, F, C, A> &left, const unique_tree_container<K, V, S, F, C, A> &right) {
  return !(right < left);
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator>=(const unique_tree_container<K, V, S, F, C, A> &left, const unique_tree_container<K, V, S, F, C, A> &right) {
  return !(left < right);
}

template <class K, class V, class S, class F, class C, class A>
inline bool operator==(const multi_tree_container<K, V, S, F, C, A> &left, const multi_tree_container<K, V, S, F, C, A> &right) {
  return left.size() == right.size() && std::equal(left.begin(), left.end(), right.begin());
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator<(const multi_tree_container<K, V, S, F, C, A> &left, const multi_tree_container<K, V, S, F, C, A> &right) {
  return std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end());
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator!=(const multi_tree_container<K, V, S, F, C, A> &left, const multi_tree_container<K, V, S, F, C, A> &right) {
  return !(left == right);
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator>(const multi_tree_container<K, V, S, F, C, A> &left, const multi_tree_container<K, V, S, F, C, A> &right) {
  return right < left;
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator<=(const multi_tree_container<K, V, S, F, C, A> &left, const multi_tree_container<K, V, S, F, C, A> &right) {
  return !(right < left);
}
template <class K, class V, class S, class F, class C, class A>
inline bool operator>=(const multi_tree_container<K, V, S, F, C, A> &left, const multi_tree_container<K, V, S, F, C, A> &right) {
  return !(left < right);
}

}  // namespace __zor

#endif

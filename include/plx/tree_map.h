// map (1998, 23.3.1): one value for each key, in the order of the keys.
#ifndef PLX_TREE_MAP_H
#define PLX_TREE_MAP_H

#include <plx/function_objects.h>
#include <plx/tree_container.h>

namespace std {

template <class _Key, class _T, class _Compare = less<_Key>, class _A = allocator<pair<const _Key, _T> > > class map
    : public __zor::unique_tree_container<_Key, pair<const _Key, _T>, pair<const _Key, _T>, __zor::key_is_first,
                                          _Compare, _A> {
  typedef __zor::unique_tree_container<_Key, pair<const _Key, _T>, pair<const _Key, _T>, __zor::key_is_first, _Compare,
                                       _A>
      base;

public:
  typedef _T mapped_type;
  typedef typename base::value_type value_type;

  class value_compare : public binary_function<value_type, value_type, bool> {
  public:
    bool operator()(const value_type &_left, const value_type &_right) const { return comp(_left.first, _right.first); }

  protected:
    friend class map;
    explicit value_compare(_Compare _c) : comp(_c) {}

    _Compare comp;
  };

  explicit map(const _Compare &_compare = _Compare(), const _A &_allocator = _A()) : base(_compare, _allocator) {}
  template <class _InputIterator>
  map(_InputIterator _first, _InputIterator _last, const _Compare &_compare = _Compare(), const _A &_allocator = _A())
      : base(_compare, _allocator) {
    this->insert(_first, _last);
  }

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  mapped_type &operator[](const _Key &_key) { return this->_tree_._value_of(_key)->second; }

  void swap(map &_other) { this->_tree_.swap(_other._tree_); }
};

template <class _Key, class _T, class _Compare, class _A>
inline void swap(map<_Key, _T, _Compare, _A> &_left, map<_Key, _T, _Compare, _A> &_right) {
  _left.swap(_right);
}

}  // namespace std

#endif

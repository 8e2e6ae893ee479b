// multiset (1998, 23.3.4): keys, each any number of times, in the order of the keys.
#ifndef PLX_TREE_MULTISET_H
#define PLX_TREE_MULTISET_H

#include <plx/containers/tree_container.h>

namespace std {

template <class _Key, class _Compare = less<_Key>, class _A = allocator<_Key> > class multiset
    : public __zor::_multi_tree_container<_Key, _Key, const _Key, __zor::_key_is_all, _Compare, _A>,
      public __zor::_compared_by_elements<multiset<_Key, _Compare, _A> > {
  typedef __zor::_multi_tree_container<_Key, _Key, const _Key, __zor::_key_is_all, _Compare, _A> base;

public:
  typedef _Compare value_compare;

  explicit multiset(const _Compare &_compare = _Compare(), const _A &_allocator = _A()) : base(_compare, _allocator) {}
  template <class _InputIterator> multiset(_InputIterator _first, _InputIterator _last,
                                           const _Compare &_compare = _Compare(), const _A &_allocator = _A())
      : base(_compare, _allocator) {
    this->insert(_first, _last);
  }

#if __cplusplus >= 201103L
  explicit multiset(const _A &_allocator) : base(_Compare(), _allocator) {}
  multiset(initializer_list<typename base::value_type> _values, const _Compare &_compare = _Compare(),
           const _A &_allocator = _A())
      : base(_compare, _allocator) {
    this->insert(_values.begin(), _values.end());
  }
  multiset &operator=(initializer_list<typename base::value_type> _values) {
    multiset _made(_values, this->key_comp(), this->get_allocator());
    swap(_made);
    return *this;
  }
#endif

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  void swap(multiset &_other) { this->_tree_.swap(_other._tree_); }
};

template <class _Key, class _Compare, class _A>
inline void swap(multiset<_Key, _Compare, _A> &_left, multiset<_Key, _Compare, _A> &_right) {
  _left.swap(_right);
}

}  // namespace std

#endif

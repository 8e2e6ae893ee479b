// set (1998, 23.3.3): keys, each once, in the order of the keys.
#ifndef PLX_TREE_SET_H
#define PLX_TREE_SET_H

#include <plx/containers/tree_container.h>

namespace std {

template <class _Key, class _Compare = less<_Key>, class _A = allocator<_Key> > class set
    : public __zor::_unique_tree_container<_Key, _Key, const _Key, __zor::_key_is_all, _Compare, _A>,
      public __zor::_compared_by_elements<set<_Key, _Compare, _A> > {
  typedef __zor::_unique_tree_container<_Key, _Key, const _Key, __zor::_key_is_all, _Compare, _A> base;

public:
  typedef _Compare value_compare;

  explicit set(const _Compare &_compare = _Compare(), const _A &_allocator = _A()) : base(_compare, _allocator) {}
  template <class _InputIterator>
  set(_InputIterator _first, _InputIterator _last, const _Compare &_compare = _Compare(), const _A &_allocator = _A())
      : base(_compare, _allocator) {
    this->insert(_first, _last);
  }

#if __cplusplus >= 201103L
  explicit set(const _A &_allocator) : base(_Compare(), _allocator) {}
  set(initializer_list<typename base::value_type> _values, const _Compare &_compare = _Compare(),
      const _A &_allocator = _A())
      : base(_compare, _allocator) {
    this->insert(_values.begin(), _values.end());
  }
  set &operator=(initializer_list<typename base::value_type> _values) {
    set _made(_values, this->key_comp(), this->get_allocator());
    swap(_made);
    return *this;
  }
#endif

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  void swap(set &_other) { this->_tree_.swap(_other._tree_); }
};

template <class _Key, class _Compare, class _A>
inline void swap(set<_Key, _Compare, _A> &_left, set<_Key, _Compare, _A> &_right) {
  _left.swap(_right);
}

}  // namespace std

#endif

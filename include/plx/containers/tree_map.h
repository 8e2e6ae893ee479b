// map (1998, 23.3.1): one value for each key, in the order of the keys.
#ifndef PLX_TREE_MAP_H
#define PLX_TREE_MAP_H

#include <plx/base/function_objects.h>
#include <plx/containers/tree_container.h>

namespace std {

template <class _Key, class _T, class _Compare = less<_Key>, class _A = allocator<pair<const _Key, _T> > > class map
    : public __zor::_unique_tree_container<_Key, pair<const _Key, _T>, pair<const _Key, _T>, __zor::_key_is_first,
                                           _Compare, _A>,
      public __zor::_compared_by_elements<map<_Key, _T, _Compare, _A> > {
  typedef __zor::_unique_tree_container<_Key, pair<const _Key, _T>, pair<const _Key, _T>, __zor::_key_is_first,
                                        _Compare, _A>
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

#if __cplusplus >= 201103L
  explicit map(const _A &_allocator) : base(_Compare(), _allocator) {}
  map(initializer_list<typename base::value_type> _values, const _Compare &_compare = _Compare(),
      const _A &_allocator = _A())
      : base(_compare, _allocator) {
    this->insert(_values.begin(), _values.end());
  }
  map &operator=(initializer_list<typename base::value_type> _values) {
    map _made(_values, this->key_comp(), this->get_allocator());
    swap(_made);
    return *this;
  }
#endif

  value_compare value_comp() const { return value_compare(this->key_comp()); }

  mapped_type &operator[](const _Key &_key) { return this->_tree_._value_of(_key).second; }
#if __cplusplus >= 201103L
  mapped_type &operator[](_Key &&_key) { return this->_tree_._value_of(static_cast<_Key &&>(_key)).second; }
#endif
  // Throws out_of_range.
  mapped_type &at(const _Key &_key) { return const_cast<mapped_type &>(static_cast<const map &>(*this).at(_key)); }
  const mapped_type &at(const _Key &_key) const {
    const typename base::const_iterator _at = this->find(_key);
    if (_at == this->end()) __zor::_sequence_out_of_range();
    return _at->second;
  }

#if __cplusplus >= 201103L
  // Pairs that become elements: of one with the key's type the element is made only where it goes.
  using base::insert;
  template <class _V> pair<typename base::iterator, bool> insert(pair<_Key, _V> &&_pair) {
    return this->_insert_from(static_cast<pair<_Key, _V> &&>(_pair));
  }
  template <class _V> pair<typename base::iterator, bool> insert(const pair<_Key, _V> &_pair) {
    return this->_insert_from(_pair);
  }
  template <class _Kt, class _V> pair<typename base::iterator, bool> insert(pair<_Kt, _V> &&_pair) {
    return this->emplace(static_cast<pair<_Kt, _V> &&>(_pair));
  }
  template <class _Kt, class _V> pair<typename base::iterator, bool> insert(const pair<_Kt, _V> &_pair) {
    return this->emplace(_pair);
  }
#endif

  void swap(map &_other) { this->_tree_.swap(_other._tree_); }
};

template <class _Key, class _T, class _Compare, class _A>
inline void swap(map<_Key, _T, _Compare, _A> &_left, map<_Key, _T, _Compare, _A> &_right) {
  _left.swap(_right);
}

}  // namespace std

#endif

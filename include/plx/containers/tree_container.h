// What map, multimap, set and multiset have in common (1998, 23.1.2): everything but construction, insertion and the
// difference between one and many elements of a key.
//
// Iterators stay valid until their own element is erased. operator= and every insertion of one element do all or
// nothing.
#ifndef PLX_TREE_CONTAINER_H
#define PLX_TREE_CONTAINER_H

#include <plx/base/algobase.h>
#include <plx/base/pair.h>
#include <plx/containers/rb_tree.h>

namespace __zor {

struct _key_is_first {
  template <class _Value> static const typename _Value::first_type &_key(const _Value &_value) PLX_NOTHROW {
    return _value.first;
  }
};
struct _key_is_all {
  template <class _Value> static const _Value &_key(const _Value &_value) PLX_NOTHROW { return _value; }
};

// `_ShownValue` is what iterators refer to: a set's elements are keys, and never change.
template <class _Key, class _Value, class _ShownValue, class _KeyOf, class _Compare, class _A> class _tree_container {
public:
  typedef _Key key_type;
  typedef _Value value_type;
  typedef _Compare key_compare;
  typedef _A allocator_type;
  typedef typename _A::reference reference;
  typedef typename _A::const_reference const_reference;
  typedef typename _A::pointer pointer;
  typedef typename _A::const_pointer const_pointer;
  typedef typename _A::size_type size_type;
  typedef typename _A::difference_type difference_type;

protected:
  typedef _rb_tree<_Key, _Value, _KeyOf, _Compare, _A> _tree;

public:
  typedef _tree_iterator<typename _tree::_typed_node, _ShownValue> iterator;
  typedef _tree_iterator<typename _tree::_typed_node, const _Value> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  iterator begin() PLX_NOTHROW { return _tree_.begin(); }
  const_iterator begin() const PLX_NOTHROW { return _tree_.begin(); }
  iterator end() PLX_NOTHROW { return _tree_.end(); }
  const_iterator end() const PLX_NOTHROW { return _tree_.end(); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
  const_reverse_iterator crbegin() const noexcept { return rbegin(); }
  const_reverse_iterator crend() const noexcept { return rend(); }
#endif

  bool empty() const PLX_NOTHROW { return _tree_.size() == 0; }
  size_type size() const PLX_NOTHROW { return _tree_.size(); }
  size_type max_size() const PLX_NOTHROW { return static_cast<size_type>(-1) / sizeof(typename _tree::_typed_node); }
  allocator_type get_allocator() const { return _tree_.get_allocator(); }
  key_compare key_comp() const { return _tree_.key_comp(); }

  // To the element behind it, as later standards have it.
  iterator erase(iterator _at) { return _tree_.erase(_inner(_at)); }
  iterator erase(iterator _first, iterator _last) {
    _tree_.erase(_inner(_first), _inner(_last));
    return _last;
  }
#if __cplusplus >= 201103L
  // Where both kinds of iterator are one type, the functions above fit better than these templates.
  template <class _Later = void> iterator erase(const_iterator _at) { return _tree_.erase(_inner(_at)); }
  template <class _Later = void> iterator erase(const_iterator _first, const_iterator _last) {
    _tree_.erase(_inner(_first), _inner(_last));
    return _inner(_last);
  }
#endif
  void clear() { _tree_.clear(); }

  iterator lower_bound(const key_type &_key) { return _tree_.lower_bound(_key); }
  const_iterator lower_bound(const key_type &_key) const { return _tree_.lower_bound(_key); }
  iterator upper_bound(const key_type &_key) { return _tree_.upper_bound(_key); }
  const_iterator upper_bound(const key_type &_key) const { return _tree_.upper_bound(_key); }

protected:
  typedef typename _tree::iterator _inner_iterator;

  _tree_container(const _Compare &_compare, const _A &_allocator) : _tree_(_compare, _allocator) {}

  // The other way round, from a set's iterator too, which shows less.
  static _inner_iterator _inner(const_iterator _at) PLX_NOTHROW { return _inner_iterator(_at.base()); }

  _tree _tree_;
};

// Those with one element at most for each key.
template <class _Key, class _Value, class _ShownValue, class _KeyOf, class _Compare, class _A>
class _unique_tree_container : public _tree_container<_Key, _Value, _ShownValue, _KeyOf, _Compare, _A> {
  typedef _tree_container<_Key, _Value, _ShownValue, _KeyOf, _Compare, _A> base;

public:
  typedef typename base::iterator iterator;
  typedef typename base::const_iterator const_iterator;
  typedef typename base::size_type size_type;

  std::pair<iterator, bool> insert(const _Value &_value) {
    bool _inserted;
    const iterator _at = this->_tree_._insert_unique(_value, _inserted);
    return std::pair<iterator, bool>(_at, _inserted);
  }
#if __cplusplus < 201103L
  iterator insert(iterator _hint, const _Value &_value) {
    return this->_tree_._insert_unique(base::_inner(_hint), _value);
  }
#else
  std::pair<iterator, bool> insert(_Value &&_value) { return _insert_from(static_cast<_Value &&>(_value)); }
  iterator insert(const_iterator _hint, _Value &&_value) {
    return this->_tree_._insert_unique(base::_inner(_hint), static_cast<_Value &&>(_value));
  }
  iterator insert(const_iterator _hint, const _Value &_value) {
    return this->_tree_._insert_unique(base::_inner(_hint), _value);
  }
  template <class... _Source> std::pair<iterator, bool> emplace(_Source &&..._given) {
    bool _inserted;
    const iterator _at = this->_tree_._emplace_unique(_inserted, static_cast<_Source &&>(_given)...);
    return std::pair<iterator, bool>(_at, _inserted);
  }
  template <class... _Source> iterator emplace_hint(const_iterator _hint, _Source &&..._given) {
    return this->_tree_._emplace_unique_near(base::_inner(_hint), static_cast<_Source &&>(_given)...);
  }
  void insert(std::initializer_list<_Value> _values) { insert(_values.begin(), _values.end()); }
#endif

  // A sorted range goes in without a search.
  template <class _InputIterator> void insert(_InputIterator _first, _InputIterator _last) {
    for (; _first != _last; ++_first) _add(*_first);
  }

  using base::erase;
  size_type erase(const _Key &_key) {
    const typename base::_inner_iterator _at = this->_tree_.find(_key);
    if (_at == this->_tree_.end()) return 0;
    this->_tree_.erase(_at);
    return 1;
  }

  iterator find(const _Key &_key) { return this->_tree_.find(_key); }
  const_iterator find(const _Key &_key) const { return this->_tree_.find(_key); }
  size_type count(const _Key &_key) const { return this->_tree_.find(_key) != this->_tree_.end(); }

  std::pair<iterator, iterator> equal_range(const _Key &_key) {
    const typename base::_inner_iterator _lower = this->_tree_.lower_bound(_key);
    return std::pair<iterator, iterator>(_lower, this->_tree_._upper_of_unique(_lower, _key));
  }
  std::pair<const_iterator, const_iterator> equal_range(const _Key &_key) const {
    const typename base::_inner_iterator _lower = this->_tree_.lower_bound(_key);
    return std::pair<const_iterator, const_iterator>(_lower, this->_tree_._upper_of_unique(_lower, _key));
  }

protected:
  _unique_tree_container(const _Compare &_compare, const _A &_allocator) : base(_compare, _allocator) {}

#if __cplusplus >= 201103L
  // From a value, or from a pair whose first type is the key's.
  template <class _From> std::pair<iterator, bool> _insert_from(_From &&_from) {
    bool _inserted;
    const iterator _at = this->_tree_._insert_unique(static_cast<_From &&>(_from), _inserted);
    return std::pair<iterator, bool>(_at, _inserted);
  }
#endif

private:
  void _add(const _Value &_value) { this->_tree_._insert_unique(this->_tree_.end(), _value); }
#if __cplusplus >= 201103L
  void _add(_Value &&_value) { this->_tree_._insert_unique(this->_tree_.end(), static_cast<_Value &&>(_value)); }
#endif
};

// Those with any number. Elements of equal keys stay in the order of their insertion.
template <class _Key, class _Value, class _ShownValue, class _KeyOf, class _Compare, class _A>
class _multi_tree_container : public _tree_container<_Key, _Value, _ShownValue, _KeyOf, _Compare, _A> {
  typedef _tree_container<_Key, _Value, _ShownValue, _KeyOf, _Compare, _A> base;

public:
  typedef typename base::iterator iterator;
  typedef typename base::const_iterator const_iterator;
  typedef typename base::size_type size_type;

  iterator insert(const _Value &_value) { return this->_tree_._insert_equal(_value); }
#if __cplusplus < 201103L
  iterator insert(iterator _hint, const _Value &_value) {
    return this->_tree_._insert_equal(base::_inner(_hint), _value);
  }
#else
  iterator insert(_Value &&_value) { return _insert_from(static_cast<_Value &&>(_value)); }
  iterator insert(const_iterator _hint, _Value &&_value) {
    return this->_tree_._insert_equal(base::_inner(_hint), static_cast<_Value &&>(_value));
  }
  iterator insert(const_iterator _hint, const _Value &_value) {
    return this->_tree_._insert_equal(base::_inner(_hint), _value);
  }
  template <class... _Source> iterator emplace(_Source &&..._given) {
    return this->_tree_._emplace_equal(static_cast<_Source &&>(_given)...);
  }
  template <class... _Source> iterator emplace_hint(const_iterator _hint, _Source &&..._given) {
    return this->_tree_._emplace_equal_near(base::_inner(_hint), static_cast<_Source &&>(_given)...);
  }
  void insert(std::initializer_list<_Value> _values) { insert(_values.begin(), _values.end()); }
#endif
  template <class _InputIterator> void insert(_InputIterator _first, _InputIterator _last) {
    for (; _first != _last; ++_first) _add(*_first);
  }

  using base::erase;
  size_type erase(const _Key &_key) {
    const typename base::_inner_iterator _first = this->_tree_.lower_bound(_key);
    return this->_tree_.erase(_first, this->_tree_.upper_bound(_key));
  }

  // The first of the equal ones.
  iterator find(const _Key &_key) { return this->_tree_._find_first(_key); }
  const_iterator find(const _Key &_key) const { return this->_tree_._find_first(_key); }
  size_type count(const _Key &_key) const {
    const typename base::_inner_iterator _first = this->_tree_.lower_bound(_key);
    return base::_tree::count(_first, this->_tree_.upper_bound(_key));
  }

  std::pair<iterator, iterator> equal_range(const _Key &_key) {
    return std::pair<iterator, iterator>(this->lower_bound(_key), this->upper_bound(_key));
  }
  std::pair<const_iterator, const_iterator> equal_range(const _Key &_key) const {
    return std::pair<const_iterator, const_iterator>(this->lower_bound(_key), this->upper_bound(_key));
  }

protected:
  _multi_tree_container(const _Compare &_compare, const _A &_allocator) : base(_compare, _allocator) {}

#if __cplusplus >= 201103L
  template <class _From> iterator _insert_from(_From &&_from) {
    return this->_tree_._insert_equal(static_cast<_From &&>(_from));
  }
#endif

private:
  void _add(const _Value &_value) { this->_tree_._insert_equal(this->_tree_.end(), _value); }
#if __cplusplus >= 201103L
  void _add(_Value &&_value) { this->_tree_._insert_equal(this->_tree_.end(), static_cast<_Value &&>(_value)); }
#endif
};

// The six comparisons of a container that derives from this. No templates: a program's own operators for everything fit
// less.
template <class _Container> class _compared_by_elements {
  friend bool operator==(const _Container &_left, const _Container &_right) {
    return _left.size() == _right.size() && std::equal(_left.begin(), _left.end(), _right.begin());
  }
  friend bool operator<(const _Container &_left, const _Container &_right) {
    return std::lexicographical_compare(_left.begin(), _left.end(), _right.begin(), _right.end());
  }
  friend bool operator!=(const _Container &_left, const _Container &_right) { return !(_left == _right); }
  friend bool operator>(const _Container &_left, const _Container &_right) { return _right < _left; }
  friend bool operator<=(const _Container &_left, const _Container &_right) { return !(_right < _left); }
  friend bool operator>=(const _Container &_left, const _Container &_right) { return !(_left < _right); }
};

}  // namespace __zor

#endif

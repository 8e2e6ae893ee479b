// The bidirectional iterator of map, multimap, set and multiset. _V is the value type or its const form.
#ifndef PLX_TREE_ITERATOR_H
#define PLX_TREE_ITERATOR_H

#include <plx/base/iterator_base.h>
#include <plx/base/pointer_iterator.h>
#include <plx/base/type_properties.h>
#include <plx/containers/rb_tree_base.h>

namespace __zor {

// What every typed node begins with, what the order of its keys adds, and the value.
template <class _Value, class _Digest> struct _tree_node : public rb_tree_node_base, public _Digest { _Value value; };

// Knows nothing of the value before it is used: structures hold iterators to their own kind.
template <class _Node, class _V> class _tree_iterator : public _equality_of_iterators<_tree_iterator<_Node, _V> > {
public:
  typedef typename _without_const<_V>::_type value_type;
  typedef std::ptrdiff_t difference_type;
  typedef _V *pointer;
  typedef _V &reference;
  typedef std::bidirectional_iterator_tag iterator_category;

  _tree_iterator() PLX_NOTHROW : _at_(0) {}
  explicit _tree_iterator(rb_tree_node_base *_at) PLX_NOTHROW : _at_(_at) {}

  template <class _Ut> _tree_iterator(const _tree_iterator<_Node, _Ut> &_other,
                                      typename _adds_const<_V, _Ut>::_type = 0) PLX_NOTHROW : _at_(_other.base()) {}

  rb_tree_node_base *base() const PLX_NOTHROW { return _at_; }
  _V &operator*() const PLX_NOTHROW { return static_cast<_Node *>(_at_)->value; }
  _V *operator->() const PLX_NOTHROW { return __zor::_address_of<_V>(static_cast<_Node *>(_at_)->value); }

  _tree_iterator &operator++() PLX_NOTHROW {
    _at_ = _rb_tree_next(_at_);
    return *this;
  }
  _tree_iterator operator++(int) PLX_NOTHROW {
    _tree_iterator _before(_at_);
    _at_ = _rb_tree_next(_at_);
    return _before;
  }
  _tree_iterator &operator--() PLX_NOTHROW {
    _at_ = _rb_tree_prev(_at_);
    return *this;
  }
  _tree_iterator operator--(int) PLX_NOTHROW {
    _tree_iterator _before(_at_);
    _at_ = _rb_tree_prev(_at_);
    return _before;
  }

  friend bool operator==(const _tree_iterator &_left, const _tree_iterator &_right) PLX_NOTHROW {
    return _left._at_ == _right._at_;
  }

private:
  rb_tree_node_base *_at_;
};

}  // namespace __zor

#endif

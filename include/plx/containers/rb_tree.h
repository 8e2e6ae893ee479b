// The typed red-black tree under map, multimap, set and multiset: nodes with values, and every decision that needs a
// comparison of keys. All else is the core's.
//
// An operation that fails leaves the tree as it was, with all iterators valid; only a range insertion keeps what went
// in before. Nothing here allocates except insertion, copying, and making a tree, which has its header from the start.
#ifndef PLX_RB_TREE_H
#define PLX_RB_TREE_H

#include <plx/base/element.h>
#include <plx/base/pair.h>
#include <plx/containers/node_pool.h>
#include <plx/containers/tree_iterator.h>
#include <plx/containers/tree_order.h>

namespace __zor {

// Allocators go with the nodes that they gave. One without state has nothing to say, and perhaps no assignment.
template <class _A> inline void _swap_allocators(_A &, _A &, _yes) PLX_NOTHROW {}
template <class _A> inline void _swap_allocators(_A &_a, _A &_b, _no) {
  const _A _mine(_a);
  _a = _b;
  _b = _mine;
}

// The header of trees that were moved from, until they get an element again: empty for ever.
template <class _T> struct _tree_nothing { static rb_tree_node_base _header; };
template <class _T> rb_tree_node_base _tree_nothing<_T>::_header = {0, 0, 0, _rb_red};

template <class _Key, class _Value, class _KeyOf, class _Compare, class _A> class _rb_tree : private rb_tree_base {
  typedef typename _tree_order<_Key, _Compare>::_type _order;
  typedef typename _A::template rebind<_Value>::other _value_allocator;

public:
  typedef _tree_node<_Value, typename _order::_digest> _typed_node;
  typedef _tree_iterator<_typed_node, _Value> iterator;
  typedef _tree_iterator<_typed_node, const _Value> const_iterator;

  _rb_tree(const _Compare &_compare, const _A &_allocator) : _functions_(_allocator, _compare) { _make_header(); }

  _rb_tree(const _rb_tree &_other) : rb_tree_base(), _functions_(_other._functions_) { _make_copy(_other); }

#if __cplusplus >= 201103L
  // Takes the header too.
  _rb_tree(_rb_tree &&_other) noexcept(__is_nothrow_constructible(_Compare, const _Compare &))
      : rb_tree_base(), _functions_(_other._functions_) {
    header = _no_header();
    _make_empty();
    _swap_nodes(_other);
  }
  _rb_tree &operator=(_rb_tree &&_other)
      noexcept(_is_standard_allocator<_value_allocator>::value &&__is_nothrow_assignable(_Compare &,
                                                                                         const _Compare &)) {
    if (this == __zor::_address_of(_other)) return *this;
    clear();
    _functions_.compare = _other._functions_.compare;
    _take_nodes(_other, typename _truth<_is_standard_allocator<_value_allocator>::value>::_type());
    return *this;
  }
  // Elements are only moved, which a constant key may not allow, where memory might not be shared.
  void _take_nodes(_rb_tree &_other, _yes) noexcept { _swap_nodes(_other); }
  void _take_nodes(_rb_tree &_other, _no) {
    if (__zor::_share_memory<_value_allocator>(_functions_, _other._functions_)) return _swap_nodes(_other);
    for (iterator _each = _other.begin(); _each != _other.end(); ++_each)
      _insert_equal(end(), static_cast<_Value &&>(*_each));
  }
#endif

  ~_rb_tree() { destroy(); }

  // All or nothing, unless the comparison's own assignment fails half-way.
  _rb_tree &operator=(const _rb_tree &_other) {
    if (this != __zor::_address_of(_other)) {
      _rb_tree _copy(_other, _functions_);
      _functions_.compare = _other._functions_.compare;
      _swap_nodes(_copy);
    }
    return *this;
  }

  void swap(_rb_tree &_other) {
    const _Compare _mine(_functions_.compare);
    _functions_.compare = _other._functions_.compare;
    _other._functions_.compare = _mine;
    __zor::_swap_allocators<_value_allocator>(_functions_, _other._functions_,
                                              typename _truth<__is_empty(_value_allocator)>::_type());
    _swap_nodes(_other);
  }

  iterator begin() const PLX_NOTHROW { return iterator(leftmost); }
  iterator end() const PLX_NOTHROW { return iterator(header); }
  unsigned int size() const PLX_NOTHROW { return node_count; }
  _Compare key_comp() const { return _functions_.compare; }
  _A get_allocator() const { return _A(static_cast<const _value_allocator &>(_functions_)); }

  // Where a key is, or would go: below `_parent`, on the right if `_right_of` says the same node.
  struct _place {
    _node *parent;
    _node *_right_of;
  };

  // The node with this key, or null and the place for one.
  _typed_node *_locate(const _order &_key, _place &_to) const { return _locate(_key, _to, typename _order::_exact()); }

  // The place after all equal keys.
  void _locate_behind(const _order &_key, _place &_to) const {
    _node *_parent = header;
    bool _left = true;
    _node *_x = header->parent;
    if (_x && _goes_last(_key, typename _order::_exact())) {
      _to.parent = _to._right_of = rightmost;
      return;
    }
    while (_x) {
      _parent = _x;
      _left = _is_before(_key, _x);
      _x = _rb_tree_child(_x, !_left);
    }
    _to.parent = _parent;
    _to._right_of = _left ? 0 : _parent;
  }

  // Apart from the search, which then needs no cleanup.
#if __cplusplus >= 201103L
  template <class _Kt> PLX_NOINLINE _typed_node *_add_default(_Kt &&_wanted, const _order &_key, const _place &_to) {
    _typed_node *const _n = _make_node(_second_by_default(), static_cast<_Kt &&>(_wanted));
    _put(_n, _key, _to);
    return _n;
  }
#else
  PLX_NOINLINE _typed_node *_add_default(const _Key &_wanted, const _order &_key, const _place &_to) {
    _typed_node *const _n = _nodes::_take(_functions_);
    {
      _unfinished_node _guard(*this, _n);
      _make_default(_functions_, __zor::_address_of(_n->value), _wanted);
      _guard._n = 0;
    }
    _put(_n, _key, _to);
    return _n;
  }
  // A program's allocator copies a pair that was made.
  template <class _Ut> static void _make_default(std::allocator<_Ut> &, _Value *_place, const _Key &_key) {
    ::new (static_cast<void *>(_place)) _Value(_key, typename _Value::second_type());
  }
  template <class _Maker> static void _make_default(_Maker &_a, _Value *_place, const _Key &_key) {
    _a.construct(_place, _Value(_key, typename _Value::second_type()));
  }
#endif

  // Links a node that has its value. Only an empty tree may need memory for it.
  PLX_ALWAYS_INLINE iterator _put(_typed_node *_n, const _order &_key, const _place &_to) {
    _key._keep(*_n);
    if (__builtin_expect(!header->parent, 0))
      _put_first(_n);
    else
      _rb_tree_link_below(this, _n, _to.parent, _to._right_of);
    return iterator(_n);
  }
  PLX_COLD void _put_first(_typed_node *_n) {
    _new_node _guard(*this, _n);
    if (header == _no_header()) _make_header();
    _rb_tree_link_root(this, _guard._keep());
  }

  template <PLX_SOURCE_TYPES> _typed_node *_make_node(PLX_SOURCE) {
    _typed_node *const _n = _nodes::_take(_functions_);
    _unfinished_node _guard(*this, _n);
    __zor::_make_element(_maker(), __zor::_address_of(_n->value), PLX_FORWARD_SOURCE);
    _guard._n = 0;
    return _n;
  }

  // From a value, or from something with the very type of key. A node is only made when there is none with that key.
  template <class _From> iterator _insert_unique(PLX_FROM, bool &_inserted) {
    const _order _key(_KeyOf::_key(_from), _functions_.compare);
    _place _to;
    _node *const _found = _locate(_key, _to);
    _inserted = !_found;
    return _found ? iterator(_found) : _put(_make_node(PLX_FORWARD_FROM), _key, _to);
  }

  // The value of a key, made with a default one if there is none. Where `second` is what belongs to a key.
  _Value &_value_of(const _Key &_wanted) {
    const _order _key(_wanted, _functions_.compare);
    _place _to;
    _typed_node *const _n = _locate(_key, _to);
    return _n ? _n->value : _add_default(_wanted, _key, _to)->value;
  }
#if __cplusplus >= 201103L
  _Value &_value_of(_Key &&_wanted) {
    const _order _key(_wanted, _functions_.compare);
    _place _to;
    _typed_node *const _n = _locate(_key, _to);
    return _n ? _n->value : _add_default(static_cast<_Key &&>(_wanted), _key, _to)->value;
  }
#endif

  template <class _From> iterator _insert_equal(PLX_FROM) {
    const _order _key(_KeyOf::_key(_from), _functions_.compare);
    _place _to;
    _locate_behind(_key, _to);
    return _put(_make_node(PLX_FORWARD_FROM), _key, _to);
  }

  // Beside the hint no key is compared but those of the hint and its neighbours.
  template <class _From> iterator _insert_unique(iterator _hint, PLX_FROM) {
    const _order _key(_KeyOf::_key(_from), _functions_.compare);
    _place _to;
    _node *const _found = _locate_near(_hint.base(), _key, _to);
    return _found ? iterator(_found) : _put(_make_node(PLX_FORWARD_FROM), _key, _to);
  }

  template <class _From> iterator _insert_equal(iterator _hint, PLX_FROM) {
    const _order _key(_KeyOf::_key(_from), _functions_.compare);
    _place _to;
    _locate_equal_near(_hint.base(), _key, _to);
    return _put(_make_node(PLX_FORWARD_FROM), _key, _to);
  }

#if __cplusplus >= 201103L
  // The value must be made before its key is known.
  template <class... _Source> iterator _emplace_unique(bool &_inserted, _Source &&..._given) {
    _new_node _made(*this, _make_node(static_cast<_Source &&>(_given)...));
    const _order _key(_key_of(_made._n), _functions_.compare);
    _place _to;
    _node *const _found = _locate(_key, _to);
    _inserted = !_found;
    return _found ? iterator(_found) : _put(_made._keep(), _key, _to);
  }
  template <class... _Source> iterator _emplace_unique_near(iterator _hint, _Source &&..._given) {
    _new_node _made(*this, _make_node(static_cast<_Source &&>(_given)...));
    const _order _key(_key_of(_made._n), _functions_.compare);
    _place _to;
    _node *const _found = _locate_near(_hint.base(), _key, _to);
    return _found ? iterator(_found) : _put(_made._keep(), _key, _to);
  }
  template <class... _Source> iterator _emplace_equal(_Source &&..._given) {
    _new_node _made(*this, _make_node(static_cast<_Source &&>(_given)...));
    const _order _key(_key_of(_made._n), _functions_.compare);
    _place _to;
    _locate_behind(_key, _to);
    return _put(_made._keep(), _key, _to);
  }
  template <class... _Source> iterator _emplace_equal_near(iterator _hint, _Source &&..._given) {
    _new_node _made(*this, _make_node(static_cast<_Source &&>(_given)...));
    const _order _key(_key_of(_made._n), _functions_.compare);
    _place _to;
    _locate_equal_near(_hint.base(), _key, _to);
    return _put(_made._keep(), _key, _to);
  }
#endif

  iterator erase(iterator _at) {
    _node *const _n = _at.base();
    const iterator _after(_rb_tree_next(_n));
    _rb_tree_unlink(this, _n);
    _destroy_typed(_n);
    return _after;
  }

  unsigned int erase(iterator _first, iterator _last) {
    if (_first == begin() && _last == end()) {
      const unsigned int _all = node_count;
      clear();
      return _all;
    }
    unsigned int _erased = 0;
    for (; _first != _last; ++_erased) _first = erase(_first);
    return _erased;
  }

  void clear() {
    _node *const _root = header->parent;
    if (!_root) return;
    _make_empty();
    _destroy_below(_root);
  }

  iterator find(const _Key &_key) const { return find(_order(_key, _functions_.compare), typename _order::_exact()); }

  // The first of those with the key, where there may be several.
  iterator _find_first(const _Key &_key) const {
    return _find_first(_order(_key, _functions_.compare), typename _order::_exact(), typename _order::_ties_cost());
  }

  iterator lower_bound(const _Key &_key) const { return iterator(_lower(_order(_key, _functions_.compare))); }

  iterator upper_bound(const _Key &_key) const {
    const _order _wanted(_key, _functions_.compare);
    _node *_bound = header;
    for (_node *_x = header->parent; _x;) {
      const bool _left = _is_before(_wanted, _x);
      _bound = _rb_tree_choose(_left, _x, _bound);
      _x = _rb_tree_child(_x, !_left);
    }
    return iterator(_bound);
  }

  // Where keys are unique.
  iterator _upper_of_unique(iterator _lower, const _Key &_key) const {
    if (_lower != end() && !_is_before(_order(_key, _functions_.compare), _lower.base())) ++_lower;
    return _lower;
  }

  static unsigned int count(iterator _first, iterator _last) PLX_NOTHROW {
    unsigned int _n = 0;
    for (; _first != _last; ++_first) ++_n;
    return _n;
  }

private:
  typedef _node_source<_typed_node, _value_allocator> _nodes;

  // An allocator without state takes no room. Programs' comparisons are sometimes not const.
  struct _functions : public _value_allocator {
    mutable _Compare compare;
    _functions(const _value_allocator &_allocator, const _Compare &_c) : _value_allocator(_allocator), compare(_c) {}
  };
  _functions _functions_;

  _value_allocator &_maker() PLX_NOTHROW { return _functions_; }

  // A node without a value yet, while its value is made.
  struct _unfinished_node {
    _rb_tree &_tree;
    _typed_node *_n;
    _unfinished_node(_rb_tree &_t, _typed_node *_made) PLX_NOTHROW : _tree(_t), _n(_made) {}
    ~_unfinished_node() {
      if (_n) _nodes::_give(_tree._functions_, _n);
    }
  };

  // A node with a value that is not in the tree yet.
  struct _new_node {
    _rb_tree &_tree;
    _typed_node *_n;
    _new_node(_rb_tree &_t, _typed_node *_made) PLX_NOTHROW : _tree(_t), _n(_made) {}
    ~_new_node() {
      if (_n) _tree._destroy_typed(_n);
    }
    _typed_node *_keep() PLX_NOTHROW {
      _typed_node *const _kept = _n;
      _n = 0;
      return _kept;
    }
  };

  // A tree whose constructor has not ended.
  struct _unfinished {
    _rb_tree *_tree;
    explicit _unfinished(_rb_tree &_t) PLX_NOTHROW : _tree(&_t) {}
    ~_unfinished() {
      if (_tree) _tree->destroy();
    }
    void _finish() PLX_NOTHROW { _tree = 0; }
  };

  // The nodes of one tree by the allocator of another.
  _rb_tree(const _rb_tree &_other, const _value_allocator &_allocator)
      : rb_tree_base(), _functions_(_allocator, _other._functions_.compare) {
    _make_copy(_other);
  }

  void _make_copy(const _rb_tree &_other) {
    _make_header();
    _unfinished _guard(*this);
    _copy_nodes(_other);
    _guard._finish();
  }

  static _typed_node *_typed(rb_tree_node_base *_n) PLX_NOTHROW { return static_cast<_typed_node *>(_n); }
  static const _Key &_key_of(rb_tree_node_base *_n) PLX_NOTHROW { return _KeyOf::_key(_typed(_n)->value); }
  static bool _is_before(const _order &_key, _node *_n) { return _key.before(*_typed(_n), _key_of(_n)); }
  static bool _is_after(const _order &_key, _node *_n) { return _key._after(*_typed(_n), _key_of(_n)); }

  static _node *_no_header() PLX_NOTHROW { return &_tree_nothing<rb_tree_base>::_header; }

  static bool _is_equal(const _order &_key, _node *_n) {
    return _key._ties(*_typed(_n), _key_of(_n)) && _key.compare(_key_of(_n)) == 0;
  }

  void _make_header() {
    header = _nodes::_take(_functions_);
    header->color = _rb_red;
    _make_empty();
  }

  void _make_empty() PLX_NOTHROW {
    node_count = 0;
    header->left = header->right = header->parent = 0;
    leftmost = rightmost = header;
  }

  void _swap_nodes(_rb_tree &_other) PLX_NOTHROW {
    const rb_tree_base_data _mine = *this;
    static_cast<rb_tree_base_data &>(*this) = _other;
    static_cast<rb_tree_base_data &>(_other) = _mine;
  }

  // Whether the key belongs behind all others: keys often come in ascending order. Asked only where the comparison is
  // known code, not a call.
  bool _goes_last(const _order &_key, _yes) const { return !_is_before(_key, rightmost); }
  static bool _goes_last(const _order &, _no) PLX_NOTHROW { return false; }

  // What compares keys itself may end as soon as they are equal.
  _typed_node *_locate(const _order &_key, _place &_to, _yes) const {
    _node *_parent = header;
    bool _left = true;
    _node *_x = header->parent;
    if (_x && _is_after(_key, rightmost)) {
      _to.parent = _to._right_of = rightmost;
      return 0;
    }
    while (_x) {
      _parent = _x;
      if (_key._ties(*_typed(_x), _key_of(_x))) {
        const int _compared = _key.compare(_key_of(_x));
        if (_compared == 0) return _typed(_x);
        _left = _compared < 0;
        _x = _left ? _x->left : _x->right;
      } else {
        _left = _key._precedes(*_typed(_x), _key_of(_x));
        _x = _rb_tree_child(_x, !_left);
      }
    }
    _to.parent = _parent;
    _to._right_of = _left ? 0 : _parent;
    return 0;
  }

  // The last node where the way went right is the one before the place, and the only one that may be equal.
  _typed_node *_locate(const _order &_key, _place &_to, _no) const {
    _node *_parent = header;
    _node *_previous = 0;
    for (_node *_x = header->parent; _x;) {
      _parent = _x;
      const bool _left = _is_before(_key, _x);
      _previous = _rb_tree_choose(_left, _previous, _x);
      _x = _rb_tree_child(_x, !_left);
    }
    if (_previous && !_is_after(_key, _previous)) return _typed(_previous);
    _to.parent = _parent;
    _to._right_of = _previous;
    return 0;
  }

  iterator find(const _order &_key, _yes) const {
    for (_node *_x = header->parent; _x;) {
      if (_key._ties(*_typed(_x), _key_of(_x))) {
        const int _compared = _key.compare(_key_of(_x));
        if (_compared == 0) return iterator(_x);
        _x = _compared < 0 ? _x->left : _x->right;
      } else {
        _x = _rb_tree_child(_x, !_key._precedes(*_typed(_x), _key_of(_x)));
      }
    }
    return end();
  }

  iterator find(const _order &_key, _no) const {
    _node *const _bound = _lower(_key);
    return _bound != header && _is_before(_key, _bound) ? end() : iterator(_bound);
  }

  // A search ends at the first equal key. Mostly it is the only one: then a look at the one before it is all there is
  // to do.
  iterator _find_first(const _order &_key, _yes _exact, _yes) const {
    const iterator _found = find(_key, _exact);
    if (_found == end() || !_found.base()->left) return _found;
    _node *_first = _found.base(), *_before = _first->left;
    while (_before->right) _before = _before->right;
    if (!_is_equal(_key, _before)) return _found;
    for (_node *_x = _first->left; _x;) {
      const bool _equal = _is_equal(_key, _x);
      _first = _rb_tree_choose(_equal, _x, _first);
      _x = _rb_tree_child(_x, !_equal);
    }
    return iterator(_first);
  }

  // Numbers are compared all the way down.
  iterator _find_first(const _order &_key, _yes, _no) const {
    _node *_found = header;
    for (_node *_x = header->parent; _x;) {
      const bool _tie = _key._ties(*_typed(_x), _key_of(_x));
      const bool _left = _key._precedes(*_typed(_x), _key_of(_x)) || _tie;
      _found = _rb_tree_choose(_tie, _x, _found);
      _x = _rb_tree_child(_x, !_left);
    }
    return iterator(_found);
  }

  // The bound is the first one.
  iterator _find_first(const _order &_key, _no, _no) const { return find(_key, _no()); }

  _node *_lower(const _order &_key) const {
    _node *_bound = header;
    for (_node *_x = header->parent; _x;) {
      const bool _right = _is_after(_key, _x);
      _bound = _rb_tree_choose(_right, _bound, _x);
      _x = _rb_tree_child(_x, _right);
    }
    return _bound;
  }

  // Between two neighbours one has no child on the other's side.
  static void _place_between(_node *_before, _node *_after, _place &_to) PLX_NOTHROW {
    _to.parent = _before->right ? _after : _before;
    _to._right_of = _before->right ? 0 : _before;
  }

  _typed_node *_locate_near(_node *_hint, const _order &_key, _place &_to) const {
    if (_hint == header) {
      if (node_count == 0 || !_is_after(_key, rightmost)) return _locate(_key, _to);
      _to.parent = _to._right_of = rightmost;
      return 0;
    }
    if (_is_before(_key, _hint)) {
      if (_hint == leftmost) {
        _to.parent = _hint;
        _to._right_of = 0;
        return 0;
      }
      _node *const _before = _rb_tree_prev(_hint);
      if (!_is_after(_key, _before)) return _locate(_key, _to);
      _place_between(_before, _hint, _to);
      return 0;
    }
    if (!_is_after(_key, _hint)) return _typed(_hint);
    if (_hint == rightmost) {
      _to.parent = _to._right_of = _hint;
      return 0;
    }
    _node *const _after = _rb_tree_next(_hint);
    if (!_is_before(_key, _after)) return _locate(_key, _to);
    _place_between(_hint, _after, _to);
    return 0;
  }

  // Before the hint if the order allows it, else as near to it as the order allows.
  void _locate_equal_near(_node *_hint, const _order &_key, _place &_to) const {
    if (_hint == header) {
      if (node_count == 0 || _is_before(_key, rightmost)) return _locate_behind(_key, _to);
      _to.parent = _to._right_of = rightmost;
      return;
    }
    if (!_is_after(_key, _hint)) {
      if (_hint == leftmost) {
        _to.parent = _hint;
        _to._right_of = 0;
        return;
      }
      _node *const _before = _rb_tree_prev(_hint);
      if (_is_before(_key, _before)) return _locate_behind(_key, _to);
      return _place_between(_before, _hint, _to);
    }
    if (_hint == rightmost) {
      _to.parent = _to._right_of = _hint;
      return;
    }
    _node *const _after = _rb_tree_next(_hint);
    if (!_is_after(_key, _after)) return _place_between(_hint, _after, _to);
    _locate_in_front(_key, _to);
  }

  // The place before all equal keys.
  void _locate_in_front(const _order &_key, _place &_to) const {
    _node *_parent = header;
    bool _right = false;
    for (_node *_x = header->parent; _x;) {
      _parent = _x;
      _right = _is_after(_key, _x);
      _x = _rb_tree_child(_x, _right);
    }
    _to.parent = _parent;
    _to._right_of = _right ? _parent : 0;
  }

  // With links only to finished nodes at any time, since copying a value may throw.
  _node *_copy_node(const _node *_from, _node *_parent) {
    _typed_node *const _source = _typed(const_cast<_node *>(_from));
    _typed_node *const _n = _make_node(static_cast<const _Value &>(_source->value));
    static_cast<typename _order::_digest &>(*_n) = *_source;
    _n->left = _n->right = 0;
    _n->parent = _parent;
    _n->color = _from->color;
    return _n;
  }

  // Walks both trees side by side: down to the left, and to the next right subtree on the way up. That subtree is asked
  // for on the way down.
  void _copy_nodes(const _rb_tree &_other) {
    const _node *_from = _other.header->parent;
    if (!_from) return;
    _node *_to = _copy_node(_from, header);
    header->parent = _to;
    for (;;) {
      while (_from->left) {
        __zor::_prefetch_unless_null(_from->right, _from);
        _from = _from->left;
        _to->left = _copy_node(_from, _to);
        _to = _to->left;
      }
      while (!_from->right || _to->right) {
        _from = _from->parent;
        _to = _to->parent;
        if (_to == header) return _finish_copy(_other);
      }
      _from = _from->right;
      _to->right = _copy_node(_from, _to);
      _to = _to->right;
    }
  }

  void _finish_copy(const _rb_tree &_other) PLX_NOTHROW {
    node_count = _other.node_count;
    _node *_end = header->parent;
    while (_end->left) _end = _end->left;
    leftmost = _end;
    _end = header->parent;
    while (_end->right) _end = _end->right;
    rightmost = header->left = _end;
  }

  void _destroy_typed(_node *_n) {
    _maker().destroy(__zor::_address_of(_typed(_n)->value));
    _nodes::_give(_functions_, _typed(_n));
  }

  // Recursion goes into the right subtrees of nodes that have both: no deeper than the tree is high. The left ones are
  // asked for meanwhile.
  void _destroy_below(_node *_n) {
    while (_n) {
      _node *const _left = _n->left;
      _node *const _right = _n->right;
      __zor::_prefetch_unless_null(_left, _n);
      _destroy_typed(_n);
      if (_left && _right) _destroy_below(_right);
      _n = _left ? _left : _right;
    }
  }

  void destroy() {
    _destroy_below(header->parent);
    if (header != _no_header()) _nodes::_give(_functions_, _typed(header));
  }

  // The core's own ways to nodes, for its operations on whole trees.
  virtual void destroy_node(_node *_n) {
    if (_n == header)
      _nodes::_give(_functions_, _typed(_n));
    else
      _destroy_typed(_n);
  }
  // Only for the header: trees are copied by _copy_nodes, and values need not have copies.
  virtual _node *create_node(const void *) { return _nodes::_take(_functions_); }
};

}  // namespace __zor

#endif

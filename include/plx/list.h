// list (1998, 23.2.2): a ring of nodes through the list object itself, which stands for end().
//
//       list              node              node
//     +------+          +------+          +-------+
//  +->| next |--------->| next |--------->| next  |--> back to the list
//     | prev |<---------| prev |<---------| prev  |
//     +------+          +------+          +-------+
//     | size |          | value|          | value |
//
// Nodes come from the node pool. sort works on an array of node pointers where it gets the memory for one, and relinks
// the ring once at the end: iterators stay with their elements, and a comparison that throws changes nothing.
#ifndef PLX_LIST_H
#define PLX_LIST_H

#include <plx/list_sort.h>
#include <plx/node_pool.h>
#include <plx/sequence.h>

#if __cplusplus >= 201103L
#include <initializer_list>
#endif

namespace __zor {

// Joins two nodes.
inline void list_link(list_links *_before, list_links *_after) PLX_NOTHROW {
  _before->next = _after;
  _after->_prev = _before;
}

// Moves the nodes [first, last) in front of `_at`, which is not among them.
inline void list_transfer(list_links *_at, list_links *_first, list_links *_last) PLX_NOTHROW {
  list_links *const _end = _last->_prev;
  list_link(_first->_prev, _last);
  list_link(_at->_prev, _first);
  list_link(_end, _at);
}

template <class _T, class _Reference, class _Pointer> class list_iterator : public std::__iterator_of_std {
public:
  typedef _T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef _Pointer pointer;
  typedef _Reference reference;
  typedef std::bidirectional_iterator_tag iterator_category;

  list_iterator() PLX_NOTHROW : _node(0) {}
  explicit list_iterator(list_links *_n) PLX_NOTHROW : _node(_n) {}
  template <class _Pt> list_iterator(const list_iterator<_T, _T &, _Pt> &_other) PLX_NOTHROW : _node(_other._node) {}

  _Reference operator*() const PLX_NOTHROW { return static_cast<list_node<_T> *>(_node)->value; }
  _Pointer operator->() const PLX_NOTHROW { return __zor::address_of(static_cast<list_node<_T> *>(_node)->value); }
  list_iterator &operator++() PLX_NOTHROW {
    _node = _node->next;
    return *this;
  }
  list_iterator operator++(int) PLX_NOTHROW {
    list_iterator _before = *this;
    _node = _node->next;
    return _before;
  }
  list_iterator &operator--() PLX_NOTHROW {
    _node = _node->_prev;
    return *this;
  }
  list_iterator operator--(int) PLX_NOTHROW {
    list_iterator _before = *this;
    _node = _node->_prev;
    return _before;
  }

  list_links *_node;
};

template <class _T, class _R, class _Pt, class _R2, class _P2>
inline bool operator==(const list_iterator<_T, _R, _Pt> &_left, const list_iterator<_T, _R2, _P2> &_right) PLX_NOTHROW {
  return _left._node == _right._node;
}
template <class _T, class _R, class _Pt, class _R2, class _P2>
inline bool operator!=(const list_iterator<_T, _R, _Pt> &_left, const list_iterator<_T, _R2, _P2> &_right) PLX_NOTHROW {
  return _left._node != _right._node;
}

}  // namespace __zor

namespace std {

template <class _T, class _A = allocator<_T> > class PLX_API list : private _A {
  typedef __zor::list_links _links;
  typedef __zor::list_node<_T> _node;
  typedef __zor::node_source<_node, _A> _source;
  typedef __zor::element_traits<_T, _A> _traits;
  typedef __zor::_yes _yes;
  typedef __zor::_no _no;

public:
  typedef _T value_type;
  typedef _A allocator_type;
  typedef typename _A::size_type size_type;
  typedef typename _A::difference_type difference_type;
  typedef typename _A::reference reference;
  typedef typename _A::const_reference const_reference;
  typedef typename _A::pointer pointer;
  typedef typename _A::const_pointer const_pointer;
  typedef __zor::list_iterator<_T, _T &, _T *> iterator;
  typedef __zor::list_iterator<_T, const _T &, const _T *> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit list(const _A &_a = _A()) PLX_NOTHROW : _A(_a) { reset(); }
  explicit list(size_type _n, const _T &_value = _T(), const _A &_a = _A()) : _A(_a) {
    reset();
    insert(end(), _n, _value);
  }
  template <class _Iterator> list(_Iterator _first, _Iterator _last, const _A &_a = _A()) : _A(_a) {
    reset();
    insert(end(), _first, _last);
  }
  list(const list &_other) : _A(_other) {
    reset();
    _insert_each(&_head_, _other.begin(), _other.end());
  }
  ~list() { _give_all(); }

  list &operator=(const list &_other) {
    if (this != &_other) _assign_each(_other.begin(), _other.end());
    return *this;
  }
#if __cplusplus >= 201103L
  list(list &&_other) noexcept : _A(_other) {
    reset();
    _swap_rings(_other);
  }
  list &operator=(list &&_other) noexcept {
    list _taken(static_cast<list &&>(_other));
    swap(_taken);
    return *this;
  }
  list(initializer_list<_T> _values, const _A &_a = _A()) : _A(_a) {
    reset();
    _insert_each(&_head_, _values.begin(), _values.end());
  }
  list &operator=(initializer_list<_T> _values) {
    _assign_each(_values.begin(), _values.end());
    return *this;
  }
  void assign(initializer_list<_T> _values) { _assign_each(_values.begin(), _values.end()); }
  void insert(iterator _at, initializer_list<_T> _values) { _insert_each(_at._node, _values.begin(), _values.end()); }
#endif
  template <class _Iterator> void assign(_Iterator _first, _Iterator _last) {
    _assign_range(_first, _last, typename __zor::is_integer<_Iterator>::_type());
  }
  void assign(size_type _n, const _T &_value) {
    _links *_at = _head_.next;
    for (; _n != 0 && _at != &_head_; --_n, _at = _at->next) _value_of(_at) = _value;
    // The value may lie among the elements that go.
    if (_n != 0)
      insert(end(), _n, _value);
    else
      erase(iterator(_at), end());
  }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const _A &>(*this); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(_head_.next); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(_head_.next); }
  iterator end() PLX_NOTHROW { return iterator(&_head_); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(const_cast<_links *>(&_head_)); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
#endif

  // Size and ends.

  bool empty() const PLX_NOTHROW { return _size_ == 0; }
  size_type size() const PLX_NOTHROW { return _size_; }
  size_type max_size() const PLX_NOTHROW { return static_cast<size_type>(-1) / sizeof(_node); }
  void resize(size_type _n, _T _value = _T()) {
    if (_n >= _size_) {
      insert(end(), _n - _size_, _value);
      return;
    }
    _links *_at = &_head_;
    for (size_type _gone = _size_ - _n; _gone != 0; --_gone) _at = _at->_prev;
    erase(iterator(_at), end());
  }
  reference front() PLX_NOTHROW { return _value_of(_head_.next); }
  const_reference front() const PLX_NOTHROW { return _value_of(_head_.next); }
  reference back() PLX_NOTHROW { return _value_of(_head_._prev); }
  const_reference back() const PLX_NOTHROW { return _value_of(_head_._prev); }

  // Modifiers.

  void push_front(const _T &_value) { _hook(_head_.next, _make(_value)); }
  void pop_front() { _give(_unhook(_head_.next)); }
  void push_back(const _T &_value) { _hook(&_head_, _make(_value)); }
  void pop_back() { _give(_unhook(_head_._prev)); }

  iterator insert(iterator _at, const _T &_value) {
    _node *_made = _make(_value);
    _hook(_at._node, _made);
    return iterator(_made);
  }
  void insert(iterator _at, size_type _n, const _T &_value) {
    if (_n > max_size() - _size_) __zor::sequence_length_error();
    __zor::_cleanup<_chain> _made(*this);
    for (; _n != 0; --_n) _made.get()._add(_value);
    _made.get()._hook_before(_at._node);
  }
  template <class _Iterator> void insert(iterator _at, _Iterator _first, _Iterator _last) {
    _insert_range(_at, _first, _last, typename __zor::is_integer<_Iterator>::_type());
  }
  iterator erase(iterator _at) {
    _links *const _next = _at._node->next;
    _give(_unhook(_at._node));
    return iterator(_next);
  }
  iterator erase(iterator _first, iterator _last) {
    if (_first == begin() && _last == end()) {
      clear();
      return _last;
    }
    while (_first != _last) _first = erase(_first);
    return _last;
  }
  void swap(list &_other) PLX_NOTHROW { _swap_rings(_other); }
  void clear() PLX_NOTHROW {
    _give_all();
    reset();
  }

  // Operations that move nodes. On the list itself splicing all and merging do nothing.

  void splice(iterator _at, list &_other) {
    if (this == &_other || _other.empty()) return;
    __zor::list_transfer(_at._node, _other._head_.next, &_other._head_);
    _size_ += _other._size_;
    _other._size_ = 0;
  }
  void splice(iterator _at, list &_other, iterator _which) {
    if (_at == _which || _at._node == _which._node->next) return;
    __zor::list_transfer(_at._node, _which._node, _which._node->next);
    --_other._size_;
    ++_size_;
  }
  void splice(iterator _at, list &_other, iterator _first, iterator _last) {
    if (_first == _last || _at == _first || _at == _last) {
      if (this == &_other || _first == _last) return;
    }
    if (this != &_other) {
      size_type _n = 0;
      for (_links *_each = _first._node; _each != _last._node; _each = _each->next) ++_n;
      _other._size_ -= _n;
      _size_ += _n;
    }
    __zor::list_transfer(_at._node, _first._node, _last._node);
  }

  // What is removed waits until the end: the value may be one of the elements.
  void remove(const _T &_value) {
    list _removed(get_allocator());
    for (iterator _at = begin(); _at != end();) {
      const iterator _each = _at++;
      if (*_each == _value) _removed.splice(_removed.end(), *this, _each);
    }
  }
  template <class _Predicate> void remove_if(_Predicate _matches) {
    list _removed(get_allocator());
    for (iterator _at = begin(); _at != end();) {
      const iterator _each = _at++;
      if (_matches(*_each)) _removed.splice(_removed.end(), *this, _each);
    }
  }
  void unique() { unique(__zor::list_equal()); }
  template <class _Equal> void unique(_Equal _equal) {
    if (empty()) return;
    for (_links *_kept = _head_.next; _kept->next != &_head_;) {
      if (_equal(_value_of(_kept), _value_of(_kept->next)))
        _give(_unhook(_kept->next));
      else
        _kept = _kept->next;
    }
  }
  void merge(list &_other) { merge(_other, __zor::list_less()); }
  template <class _Compare> void merge(list &_other, _Compare _before) {
    if (this == &_other) return;
    _links *_at = _head_.next;
    while (_at != &_head_ && !_other.empty()) {
      _links *const _first = _other._head_.next;
      if (_before(_value_of(_first), _value_of(_at))) {
        __zor::list_transfer(_at, _first, _first->next);
        --_other._size_;
        ++_size_;
      } else {
        _at = _at->next;
      }
    }
    splice(end(), _other);
  }
  void reverse() PLX_NOTHROW {
    _links *_at = &_head_;
    do {
      _links *const _next = _at->next;
      _at->next = _at->_prev;
      _at->_prev = _next;
      _at = _next;
    } while (_at != &_head_);
  }
  void sort() { sort(__zor::list_less()); }
  template <class _Compare> void sort(_Compare _before) {
    if (_size_ < 2) return;
    if (!__zor::list_sort_by_array<_T>(&_head_, _size_, _before)) _sort_by_bins(_before);
  }

private:
  static _T &_value_of(_links *_at) PLX_NOTHROW { return static_cast<_node *>(_at)->value; }
  static const _T &_value_of(const _links *_at) PLX_NOTHROW { return static_cast<const _node *>(_at)->value; }

  void reset() PLX_NOTHROW {
    _head_.next = _head_._prev = &_head_;
    _size_ = 0;
  }

  // ---- Nodes.

  // Memory for a node whose element is being made.
  class _raw_node {
  public:
    explicit _raw_node(const _A &_a) : _allocator_(_a), _node_(_source::_take(_a)) {}
    ~_raw_node() {
      if (_node_) _source::_give(_allocator_, _node_);
    }
    _node *get() const { return _node_; }
    _node *_keep() {
      _node *const _kept = _node_;
      _node_ = 0;
      return _kept;
    }

  private:
    _raw_node(const _raw_node &);
    _raw_node &operator=(const _raw_node &);

    const _A &_allocator_;
    _node *_node_;
  };

  _node *_make(const _T &_value) { return _make(_value, typename _traits::_plain()); }
  _node *_make(const _T &_value, _yes) {
    _node *const _made = _source::_take(_alloc());
    _A::construct(__zor::address_of(_made->value), _value);
    return _made;
  }
  _node *_make(const _T &_value, _no) {
    _raw_node _made(_alloc());
    _A::construct(__zor::address_of(_made.get()->value), _value);
    return _made._keep();
  }
  void _give(_links *_at) {
    _A::destroy(__zor::address_of(_value_of(_at)));
    _source::_give(_alloc(), static_cast<_node *>(_at));
  }
  const _A &_alloc() const PLX_NOTHROW { return *this; }

  // All nodes go; the links of the list stay as they are.
  void _give_all() {
    if (_size_ == 0) return;
    if (__zor::same_type<typename _traits::_trivially_destroyed, _yes>::value &&
        _source::_give_chain(_alloc(), static_cast<_node *>(_head_.next), static_cast<_node *>(_head_._prev)))
      return;
    for (_links *_at = _head_.next; _at != &_head_;) {
      _links *const _next = _at->next;
      _give(_at);
      _at = _next;
    }
  }

  void _hook(_links *_at, _node *_made) PLX_NOTHROW {
    _links *const _before = _at->_prev;
    _made->next = _at;
    _made->_prev = _before;
    _before->next = _made;
    _at->_prev = _made;
    ++_size_;
  }
  _links *_unhook(_links *_at) PLX_NOTHROW {
    __zor::list_link(_at->_prev, _at->next);
    --_size_;
    return _at;
  }

  // New nodes that are not in a list yet, and go unless they get there.
  class _chain {
  public:
    explicit _chain(const list &_owner) : _owner_(const_cast<list &>(_owner)), _n_(0) {
      _head_.next = _head_._prev = &_head_;
    }
    ~_chain() {
      for (_links *_at = _head_.next; _at != &_head_;) {
        _links *const _next = _at->next;
        _owner_._give(_at);
        _at = _next;
      }
    }
    void _add(const _T &_value) {
      _node *const _made = _owner_._make(_value);
      __zor::list_link(_head_._prev, _made);
      __zor::list_link(_made, &_head_);
      ++_n_;
    }
    void _hook_before(_links *_at) PLX_NOTHROW {
      if (_n_ == 0) return;
      __zor::list_transfer(_at, _head_.next, &_head_);
      _owner_._size_ += _n_;
      _n_ = 0;
    }

  private:
    _chain(const _chain &);
    _chain &operator=(const _chain &);

    list &_owner_;
    _links _head_;
    size_type _n_;
  };

  template <class _Integer> void _insert_range(iterator _at, _Integer _n, _Integer _value, _yes) {
    insert(_at, static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _insert_range(iterator _at, _Iterator _first, _Iterator _last, _no) {
    _insert_each(_at._node, _first, _last);
  }
  template <class _Iterator> void _insert_each(_links *_at, _Iterator _first, _Iterator _last) {
    __zor::_cleanup<_chain> _made(*this);
    for (; _first != _last; ++_first) _made.get()._add(*_first);
    _made.get()._hook_before(_at);
  }
  template <class _Integer> void _assign_range(_Integer _n, _Integer _value, _yes) {
    assign(static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _assign_range(_Iterator _first, _Iterator _last, _no) { _assign_each(_first, _last); }
  template <class _Iterator> void _assign_each(_Iterator _first, _Iterator _last) {
    _links *_at = _head_.next;
    for (; _first != _last && _at != &_head_; (void)++_first, _at = _at->next) _value_of(_at) = *_first;
    if (_first == _last)
      erase(iterator(_at), end());
    else
      _insert_each(&_head_, _first, _last);
  }

  // Exchanges the rings: each list object takes the other's place in the other's ring.
  void _swap_rings(list &_other) PLX_NOTHROW {
    if (this == &_other) return;
    const _links _mine = _head_, _its = _other._head_;
    const size_type _n = _size_;
    _adopt(_its, _other._size_);
    _other._adopt(_mine, _n);
  }
  void _adopt(const _links &_ring, size_type _n) PLX_NOTHROW {
    reset();
    if (_n == 0) return;
    __zor::list_link(&_head_, _ring.next);
    __zor::list_link(_ring._prev, &_head_);
    _size_ = _n;
  }

  // ---- Sorting without memory: elements are carried into bins of 1, 2, 4, ... elements. Whatever happens, all of them
  // are in the list again at the end.

  class _bins {
  public:
    explicit _bins(list &_whole) : _whole_(_whole) {}
    ~_bins() {
      _whole_.splice(_whole_.end(), _carry);
      for (int _i = 0; _i < 64; ++_i) _whole_.splice(_whole_.end(), _bin[_i]);
    }
    list _carry;
    list _bin[64];

  private:
    list &_whole_;
  };
  template <class _Compare> __attribute__((__noinline__)) void _sort_by_bins(_Compare _before) {
    _bins _sorted(*this);
    int _used = 0;
    while (!empty()) {
      _sorted._carry.splice(_sorted._carry.begin(), *this, begin());
      int _i = 0;
      for (; _i < _used && !_sorted._bin[_i].empty(); ++_i) {
        _sorted._bin[_i].merge(_sorted._carry, _before);
        _sorted._carry.swap(_sorted._bin[_i]);
      }
      _sorted._carry.swap(_sorted._bin[_i]);
      if (_i == _used && _used < 63) ++_used;
    }
    for (int _i = 1; _i <= _used; ++_i) {
      _sorted._bin[_i].merge(_sorted._bin[_i - 1], _before);
    }
    splice(end(), _sorted._bin[_used]);
  }

  _links _head_;
  size_type _size_;
};

template <class _T, class _A> inline bool operator==(const list<_T, _A> &_left, const list<_T, _A> &_right) {
  return _left.size() == _right.size() && std::equal(_left.begin(), _left.end(), _right.begin());
}
template <class _T, class _A> inline bool operator<(const list<_T, _A> &_left, const list<_T, _A> &_right) {
  return std::lexicographical_compare(_left.begin(), _left.end(), _right.begin(), _right.end());
}
template <class _T, class _A> inline bool operator!=(const list<_T, _A> &_left, const list<_T, _A> &_right) {
  return !(_left == _right);
}
template <class _T, class _A> inline bool operator>(const list<_T, _A> &_left, const list<_T, _A> &_right) {
  return _right < _left;
}
template <class _T, class _A> inline bool operator>=(const list<_T, _A> &_left, const list<_T, _A> &_right) {
  return !(_left < _right);
}
template <class _T, class _A> inline bool operator<=(const list<_T, _A> &_left, const list<_T, _A> &_right) {
  return !(_right < _left);
}
template <class _T, class _A> inline void swap(list<_T, _A> &_left, list<_T, _A> &_right) PLX_NOTHROW {
  _left.swap(_right);
}

__extension__ extern template class PLX_API list<int, allocator<int> >;
__extension__ extern template class PLX_API list<char, allocator<char> >;

}  // namespace std

#endif

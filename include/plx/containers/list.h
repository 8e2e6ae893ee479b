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

#include <plx/containers/list_sort.h>
#include <plx/containers/node_pool.h>
#include <plx/containers/sequence.h>

namespace __zor {

template <class _T, class _Reference, class _Pointer> class _list_iterator
    : public _equality_of_iterators<_list_iterator<_T, _Reference, _Pointer> > {
public:
  typedef _T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef _Pointer pointer;
  typedef _Reference reference;
  typedef std::bidirectional_iterator_tag iterator_category;

  _list_iterator() PLX_NOTHROW : _node(0) {}
  explicit _list_iterator(_list_links *_n) PLX_NOTHROW : _node(_n) {}
  template <class _Pt> _list_iterator(const _list_iterator<_T, _T &, _Pt> &_other) PLX_NOTHROW : _node(_other._node) {}

  _Reference operator*() const PLX_NOTHROW { return static_cast<_list_node<_T> *>(_node)->value; }
  _Pointer operator->() const PLX_NOTHROW { return __zor::_address_of(static_cast<_list_node<_T> *>(_node)->value); }
  _list_iterator &operator++() PLX_NOTHROW {
    _node = _node->_next;
    return *this;
  }
  _list_iterator operator++(int) PLX_NOTHROW {
    _list_iterator _before = *this;
    _node = _node->_next;
    return _before;
  }
  _list_iterator &operator--() PLX_NOTHROW {
    _node = _node->_prev;
    return *this;
  }
  _list_iterator operator--(int) PLX_NOTHROW {
    _list_iterator _before = *this;
    _node = _node->_prev;
    return _before;
  }

  friend bool operator==(const _list_iterator &_left, const _list_iterator &_right) PLX_NOTHROW {
    return _left._node == _right._node;
  }

  _list_links *_node;
};

}  // namespace __zor

namespace std {

template <class _T, class _A = allocator<_T> > class PLX_API list : private _A {
  typedef __zor::_list_links _links;
  typedef __zor::_list_node<_T> _node;
  typedef __zor::_node_source<_node, _A> _source;
  typedef __zor::_element_traits<_T, _A> _traits;
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
  typedef __zor::_list_iterator<_T, _T &, _T *> iterator;
  typedef __zor::_list_iterator<_T, const _T &, const _T *> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit list(const _A &_a = _A()) PLX_NOTHROW : _A(_a) { reset(); }
#if PLX_MEMBERS_OF_1998
  explicit list(size_type _n, const _T &_value = _T(), const _A &_a = _A()) : _A(_a) {
#else
  PLX_LATER explicit list(size_type _n, const _A &_a = _A()) : _A(_a) {
    reset();
    _append_default(_n);
  }
  list(size_type _n, const _T &_value, const _A &_a = _A()) : _A(_a) {
#endif
    reset();
    _insert_filled(&_head_, _n, _value);
  }
  template <class _Iterator> list(_Iterator _first, _Iterator _last, const _A &_a = _A()) : _A(_a) {
    reset();
    _insert_range(&_head_, _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  list(const list &_other) : _A(_other) {
    reset();
    _insert_each(&_head_, _other.begin(), _other.end());
  }
  ~list() { _give_all(); }

  list &operator=(const list &_other) {
    if (this != __zor::_address_of(_other)) _assign_each(_other.begin(), _other.end());
    return *this;
  }
#if __cplusplus >= 201103L
  list(list &&_other) noexcept : _A(_other) {
    reset();
    _swap_rings(_other);
  }
  list &operator=(list &&_other) noexcept(__zor::_is_standard_allocator<_A>::value) {
    if (__zor::_share_memory(_alloc(), _other._alloc())) {
      list _taken(static_cast<list &&>(_other));
      swap(_taken);
    } else {
      clear();
      for (_T &_each : _other) _hook(&_head_, _make_of(static_cast<_T &&>(_each)));
    }
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
#endif
  template <class _Iterator> void assign(_Iterator _first, _Iterator _last) {
    _assign_range(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  void assign(size_type _n, const _T &_value) {
    _links *_at = _head_._next;
    for (; _n != 0 && _at != &_head_; --_n, _at = _at->_next) _value_of(_at) = _value;
    // The value may lie among the elements that go.
    if (_n != 0)
      _insert_filled(&_head_, _n, _value);
    else
      _erase_between(_at, &_head_);
  }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const _A &>(*this); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(_head_._next); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(_head_._next); }
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
#if !PLX_MEMBERS_OF_1998
  PLX_LATER const_reverse_iterator crbegin() const noexcept { return rbegin(); }
  PLX_LATER const_reverse_iterator crend() const noexcept { return rend(); }
#endif

  // Size and ends.

  bool empty() const PLX_NOTHROW { return _size_ == 0; }
  size_type size() const PLX_NOTHROW { return _size_; }
  size_type max_size() const PLX_NOTHROW { return static_cast<size_type>(-1) / sizeof(_node); }
#if PLX_MEMBERS_OF_1998
  void resize(size_type _n, _T _value = _T()) {
    if (!_cut(_n)) _insert_filled(&_head_, _n - _size_, _value);
  }
#else
  PLX_LATER void resize(size_type _n) {
    if (!_cut(_n)) _append_default(_n - _size_);
  }
  PLX_LATER void resize(size_type _n, const _T &_value) {
    if (!_cut(_n)) _insert_filled(&_head_, _n - _size_, _value);
  }
#endif
  reference front() PLX_NOTHROW { return _value_of(_head_._next); }
  const_reference front() const PLX_NOTHROW { return _value_of(_head_._next); }
  reference back() PLX_NOTHROW { return _value_of(_head_._prev); }
  const_reference back() const PLX_NOTHROW { return _value_of(_head_._prev); }

  // Modifiers.

  void push_front(const _T &_value) { _hook(_head_._next, _make(_value)); }
  void pop_front() { _give(_unhook(_head_._next)); }
  void push_back(const _T &_value) { _hook(&_head_, _make(_value)); }
  void pop_back() { _give(_unhook(_head_._prev)); }

#if PLX_MEMBERS_OF_1998
  iterator insert(iterator _at, const _T &_value) {
    _node *_made = _make(_value);
    _hook(_at._node, _made);
    return iterator(_made);
  }
  void insert(iterator _at, size_type _n, const _T &_value) { _insert_filled(_at._node, _n, _value); }
  template <class _Iterator> void insert(iterator _at, _Iterator _first, _Iterator _last) {
    _insert_range(_at._node, _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
#if __cplusplus >= 201103L
  void insert(iterator _at, initializer_list<_T> _values) { _insert_each(_at._node, _values.begin(), _values.end()); }
#endif
  iterator erase(iterator _at) { return iterator(_erase_one(_at._node)); }
  iterator erase(iterator _first, iterator _last) { return iterator(_erase_between(_first._node, _last._node)); }
#else
  PLX_LATER void push_front(_T &&_value) { _hook(_head_._next, _make_of(static_cast<_T &&>(_value))); }
  PLX_LATER void push_back(_T &&_value) { _hook(&_head_, _make_of(static_cast<_T &&>(_value))); }
  template <class... _Source> typename __zor::_emplaced<_T>::_type emplace_front(_Source &&..._given) {
    _hook(_head_._next, _make_of(static_cast<_Source &&>(_given)...));
    return static_cast<typename __zor::_emplaced<_T>::_type>(front());
  }
  template <class... _Source> typename __zor::_emplaced<_T>::_type emplace_back(_Source &&..._given) {
    _hook(&_head_, _make_of(static_cast<_Source &&>(_given)...));
    return static_cast<typename __zor::_emplaced<_T>::_type>(back());
  }
  template <class... _Source> iterator emplace(const_iterator _at, _Source &&..._given) {
    _node *_made = _make_of(static_cast<_Source &&>(_given)...);
    _hook(_at._node, _made);
    return iterator(_made);
  }
  PLX_LATER iterator insert(const_iterator _at, const _T &_value) { return emplace(_at, _value); }
  PLX_LATER iterator insert(const_iterator _at, _T &&_value) { return emplace(_at, static_cast<_T &&>(_value)); }
  PLX_LATER iterator insert(const_iterator _at, size_type _n, const _T &_value) {
    _links *const _before = _at._node->_prev;
    _insert_filled(_at._node, _n, _value);
    return iterator(_before->_next);
  }
  template <class _Iterator> iterator insert(const_iterator _at, _Iterator _first, _Iterator _last) {
    _links *const _before = _at._node->_prev;
    _insert_range(_at._node, _first, _last, typename __zor::_is_count<_Iterator>::_type());
    return iterator(_before->_next);
  }
  PLX_LATER iterator insert(const_iterator _at, initializer_list<_T> _values) {
    return insert(_at, _values.begin(), _values.end());
  }
  PLX_LATER iterator erase(const_iterator _at) { return iterator(_erase_one(_at._node)); }
  PLX_LATER iterator erase(const_iterator _first, const_iterator _last) {
    return iterator(_erase_between(_first._node, _last._node));
  }
#endif
  void swap(list &_other) PLX_NOTHROW { _swap_rings(_other); }
  void clear() PLX_NOTHROW {
    _give_all();
    reset();
  }

  // Operations that move nodes. On the list itself splicing all and merging do nothing.

#if PLX_MEMBERS_OF_1998
  void splice(iterator _at, list &_other) { _take_all(_at._node, _other); }
  void splice(iterator _at, list &_other, iterator _which) { _take_one(_at._node, _other, _which._node); }
  void splice(iterator _at, list &_other, iterator _first, iterator _last) {
    _take_between(_at._node, _other, _first._node, _last._node);
  }
#else
  PLX_LATER void splice(const_iterator _at, list &_other) { _take_all(_at._node, _other); }
  PLX_LATER void splice(const_iterator _at, list &_other, const_iterator _which) {
    _take_one(_at._node, _other, _which._node);
  }
  PLX_LATER void splice(const_iterator _at, list &_other, const_iterator _first, const_iterator _last) {
    _take_between(_at._node, _other, _first._node, _last._node);
  }
  PLX_LATER void splice(const_iterator _at, list &&_other) { splice(_at, _other); }
  PLX_LATER void splice(const_iterator _at, list &&_other, const_iterator _which) { splice(_at, _other, _which); }
  PLX_LATER void splice(const_iterator _at, list &&_other, const_iterator _first, const_iterator _last) {
    splice(_at, _other, _first, _last);
  }
  PLX_LATER void merge(list &&_other) { merge(_other); }
  template <class _Compare> void merge(list &&_other, _Compare _before) { merge(_other, _before); }
#endif

  // What is removed waits until the end: the value may be one of the elements.
  void remove(const _T &_value) {
    list _removed(get_allocator());
    for (iterator _at = begin(); _at != end();) {
      const iterator _each = _at++;
      if (*_each == _value) _removed._take_one(&_removed._head_, *this, _each._node);
    }
  }
  template <class _Predicate> void remove_if(_Predicate _matches) {
    list _removed(get_allocator());
    for (iterator _at = begin(); _at != end();) {
      const iterator _each = _at++;
      if (_matches(*_each)) _removed._take_one(&_removed._head_, *this, _each._node);
    }
  }
  void unique() { unique(__zor::_list_equal()); }
  template <class _Equal> void unique(_Equal _equal) {
    if (empty()) return;
    for (_links *_kept = _head_._next; _kept->_next != &_head_;) {
      if (_equal(_value_of(_kept), _value_of(_kept->_next)))
        _give(_unhook(_kept->_next));
      else
        _kept = _kept->_next;
    }
  }
  void merge(list &_other) { merge(_other, __zor::_list_less()); }
  template <class _Compare> void merge(list &_other, _Compare _before) {
    if (this == __zor::_address_of(_other)) return;
    __zor::_list_merge_rings<_T>(&_head_, _size_, &_other._head_, _other._size_, _before);
    _take_all(&_head_, _other);
  }
  void reverse() PLX_NOTHROW {
    _links *_at = &_head_;
    do {
      _links *const _next = _at->_next;
      _at->_next = _at->_prev;
      _at->_prev = _next;
      _at = _next;
    } while (_at != &_head_);
  }
  void sort() { sort(__zor::_list_less()); }
  template <class _Compare> void sort(_Compare _before) {
    if (_size_ < 2) return;
    if (!__zor::_list_sort_by_array<_T>(&_head_, _size_, _before)) __zor::_list_sort_by_bins<_T>(&_head_, _before);
  }

private:
  static _T &_value_of(_links *_at) PLX_NOTHROW { return static_cast<_node *>(_at)->value; }
  static const _T &_value_of(const _links *_at) PLX_NOTHROW { return static_cast<const _node *>(_at)->value; }

  void reset() PLX_NOTHROW {
    _head_._next = _head_._prev = &_head_;
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
    __zor::_make_element(static_cast<_A &>(*this), __zor::_address_of(_made->value), _value);
    return _made;
  }
  _node *_make(const _T &_value, _no) {
    _raw_node _made(_alloc());
    __zor::_make_element(static_cast<_A &>(*this), __zor::_address_of(_made.get()->value), _value);
    return _made._keep();
  }
  template <PLX_SOURCE_TYPES> _node *_make_of(PLX_SOURCE) {
    _raw_node _made(_alloc());
    __zor::_make_element(static_cast<_A &>(*this), __zor::_address_of(_made.get()->value), PLX_FORWARD_SOURCE);
    return _made._keep();
  }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER void _append_default(size_type _n) {
    if (_n > max_size() - _size_) __zor::_sequence_length_error();
    __zor::_cleanup<_chain> _made(*this);
    for (; _n != 0; --_n) _made.get()._hold(_make_of());
    _made.get()._hook_before(&_head_);
  }
#endif
  void _give(_links *_at) {
    _A::destroy(__zor::_address_of(_value_of(_at)));
    _source::_give(_alloc(), static_cast<_node *>(_at));
  }
  const _A &_alloc() const PLX_NOTHROW { return *this; }

  // All nodes go; the links of the list stay as they are.
  void _give_all() {
    if (_size_ == 0) return;
    if (__zor::_same_type<typename _traits::_trivially_destroyed, _yes>::value &&
        _source::_give_chain(_alloc(), static_cast<_node *>(_head_._next), static_cast<_node *>(_head_._prev)))
      return;
    for (_links *_at = _head_._next; _at != &_head_;) {
      _links *const _next = _at->_next;
      _give(_at);
      _at = _next;
    }
  }

  void _hook(_links *_at, _node *_made) PLX_NOTHROW {
    _links *const _before = _at->_prev;
    _made->_next = _at;
    _made->_prev = _before;
    _before->_next = _made;
    _at->_prev = _made;
    ++_size_;
  }
  _links *_unhook(_links *_at) PLX_NOTHROW {
    __zor::_list_link(_at->_prev, _at->_next);
    --_size_;
    return _at;
  }

  // New nodes that are not in a list yet, and go unless they get there.
  class _chain {
  public:
    explicit _chain(const list &_owner) : _owner_(const_cast<list &>(_owner)), _n_(0) {
      _head_._next = _head_._prev = &_head_;
    }
    ~_chain() {
      for (_links *_at = _head_._next; _at != &_head_;) {
        _links *const _next = _at->_next;
        _owner_._give(_at);
        _at = _next;
      }
    }
    void _add(const _T &_value) { _hold(_owner_._make(_value)); }
    template <class _Node> void _hold(_Node *_made) PLX_NOTHROW {
      __zor::_list_link(_head_._prev, _made);
      __zor::_list_link(_made, &_head_);
      ++_n_;
    }
    void _hook_before(_links *_at) PLX_NOTHROW {
      if (_n_ == 0) return;
      __zor::_list_transfer(_at, _head_._next, &_head_);
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

  template <class _V> void _insert_filled(_links *_at, size_type _n, const _V &_value) {
    if (_n > max_size() - _size_) __zor::_sequence_length_error();
    __zor::_cleanup<_chain> _made(*this);
    for (; _n != 0; --_n) _made.get()._add(_value);
    _made.get()._hook_before(_at);
  }
  template <class _Integer> void _insert_range(_links *_at, _Integer _n, _Integer _value, _yes) {
    _insert_filled(_at, static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _insert_range(_links *_at, _Iterator _first, _Iterator _last, _no) {
    _insert_each(_at, _first, _last);
  }
  template <class _Iterator> void _insert_each(_links *_at, _Iterator _first, _Iterator _last) {
    __zor::_cleanup<_chain> _made(*this);
    for (; _first != _last; ++_first) _made.get()._hold(_make_of(*_first));
    _made.get()._hook_before(_at);
  }
  // ---- Erasing and moving nodes.

  template <class _L> _L *_erase_one(_L *_at) {
    _L *const _next = _at->_next;
    _give(_unhook(_at));
    return _next;
  }
  template <class _L> _L *_erase_between(_L *_first, _L *_last) {
    if (_first == _head_._next && _last == &_head_) {
      clear();
      return _last;
    }
    while (_first != _last) _first = _erase_one(_first);
    return _last;
  }
  // Keeps n elements; false when there are no more anyway.
  template <class _Count> bool _cut(_Count _n) {
    if (_n >= _size_) return false;
    _links *_at = &_head_;
    for (size_type _gone = _size_ - _n; _gone != 0; --_gone) _at = _at->_prev;
    _erase_between(_at, &_head_);
    return true;
  }
  template <class _L> void _take_all(_L *_at, list &_other) PLX_NOTHROW {
    if (this == __zor::_address_of(_other) || _other.empty()) return;
    __zor::_list_transfer(_at, _other._head_._next, &_other._head_);
    _size_ += _other._size_;
    _other._size_ = 0;
  }
  template <class _L> void _take_one(_L *_at, list &_other, _L *_which) PLX_NOTHROW {
    if (_at == _which || _at == _which->_next) return;
    __zor::_list_transfer(_at, _which, _which->_next);
    --_other._size_;
    ++_size_;
  }
  template <class _L> void _take_between(_L *_at, list &_other, _L *_first, _L *_last) PLX_NOTHROW {
    if (_first == _last || _at == _first || _at == _last) {
      if (this == __zor::_address_of(_other) || _first == _last) return;
    }
    if (this != __zor::_address_of(_other)) {
      size_type _n = 0;
      for (_links *_each = _first; _each != _last; _each = _each->_next) ++_n;
      _other._size_ -= _n;
      _size_ += _n;
    }
    __zor::_list_transfer(_at, _first, _last);
  }

  template <class _Integer> void _assign_range(_Integer _n, _Integer _value, _yes) {
    assign(static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _assign_range(_Iterator _first, _Iterator _last, _no) { _assign_each(_first, _last); }
  template <class _Iterator> void _assign_each(_Iterator _first, _Iterator _last) {
    _links *_at = _head_._next;
    for (; _first != _last && _at != &_head_; (void)++_first, _at = _at->_next) _value_of(_at) = *_first;
    if (_first == _last)
      _erase_between(_at, &_head_);
    else
      _insert_each(&_head_, _first, _last);
  }

  // Exchanges the rings: each list object takes the other's place in the other's ring.
  void _swap_rings(list &_other) PLX_NOTHROW {
    if (this == __zor::_address_of(_other)) return;
    const _links _mine = _head_, _its = _other._head_;
    const size_type _n = _size_;
    _adopt(_its, _other._size_);
    _other._adopt(_mine, _n);
  }
  void _adopt(const _links &_ring, size_type _n) PLX_NOTHROW {
    reset();
    if (_n == 0) return;
    __zor::_list_link(&_head_, _ring._next);
    __zor::_list_link(_ring._prev, &_head_);
    _size_ = _n;
  }

  _links _head_;
  size_type _size_;
};

PLX_SEQUENCE_COMPARISONS(list)

__extension__ extern template class PLX_API list<int, allocator<int> >;
__extension__ extern template class PLX_API list<char, allocator<char> >;

}  // namespace std

#endif

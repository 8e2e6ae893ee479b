// deque (1998, 23.2.1): blocks of 20 elements, reached through a map of pointers to them.
//
//     map      [ . | . | 0 | 1 | 2 | . | . | . ]      used entries in the middle, spare ones at both ends
//                        |   |   |
//                        v   |   +--> block 2 [ e e e e . . . ]    _finish_: the place behind the last element;
//      block 0 [ . . . e e ] |                                     its block always has that place
//      _start_: an entry and  +--> block 1 [ e e e e e e e ]
//      an offset there
//
// An empty deque has neither map nor block until the first element comes. That one goes into the middle of its block.
#ifndef PLX_DEQUE_H
#define PLX_DEQUE_H

#include <plx/containers/node_pool.h>
#include <plx/containers/sequence.h>

namespace __zor {

enum { _deque_block = 20 };

// The map of a deque without one: an entry that leads to no elements.
template <class _T> struct _deque_nothing { static _T *_entry; };
template <class _T> _T *_deque_nothing<_T>::_entry = reinterpret_cast<_T *>(4096);

template <class _T, class _Reference, class _Pointer> class _deque_iterator
    : public _order_of_iterators<_deque_iterator<_T, _Reference, _Pointer> > {
public:
  typedef _T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef _Pointer pointer;
  typedef _Reference reference;
  typedef std::random_access_iterator_tag iterator_category;

  _deque_iterator() PLX_NOTHROW : _cur(0), _last(0), _node(0) {}
  _deque_iterator(_T *_c, _T **_n) PLX_NOTHROW : _cur(_c), _last(*_n + _deque_block), _node(_n) {}
  template <class _Pt> _deque_iterator(const _deque_iterator<_T, _T &, _Pt> &_other) PLX_NOTHROW : _cur(_other._cur),
                                                                                                   _last(_other._last),
                                                                                                   _node(_other._node) {
  }

  _Reference operator*() const PLX_NOTHROW { return *_cur; }
  _Pointer operator->() const PLX_NOTHROW { return _cur; }
  _Reference operator[](difference_type _n) const PLX_NOTHROW { return *(*this + _n); }

  _deque_iterator &operator++() PLX_NOTHROW {
    if (++_cur == _last) _enter(_node + 1, 0);
    return *this;
  }
  _deque_iterator operator++(int) PLX_NOTHROW {
    _deque_iterator _before = *this;
    ++*this;
    return _before;
  }
  _deque_iterator &operator--() PLX_NOTHROW {
    if (_cur == _last - _deque_block) _enter(_node - 1, _deque_block);
    --_cur;
    return *this;
  }
  _deque_iterator operator--(int) PLX_NOTHROW {
    _deque_iterator _before = *this;
    --*this;
    return _before;
  }
  _deque_iterator &operator+=(difference_type _n) PLX_NOTHROW {
    _n += _cur - (_last - _deque_block);
    if (_n >= 0) {
      const unsigned int _blocks = static_cast<unsigned int>(_n) / _deque_block;
      _enter(_node + _blocks, _n - static_cast<difference_type>(_blocks * _deque_block));
    } else {
      const unsigned int _blocks = (static_cast<unsigned int>(-(_n + 1)) / _deque_block) + 1;
      _enter(_node - _blocks, _n + static_cast<difference_type>(_blocks * _deque_block));
    }
    return *this;
  }
  _deque_iterator &operator-=(difference_type _n) PLX_NOTHROW { return *this += -_n; }
  _deque_iterator operator+(difference_type _n) const PLX_NOTHROW {
    _deque_iterator _moved = *this;
    return _moved += _n;
  }
  _deque_iterator operator-(difference_type _n) const PLX_NOTHROW {
    _deque_iterator _moved = *this;
    return _moved += -_n;
  }

  friend bool operator==(const _deque_iterator &_left, const _deque_iterator &_right) PLX_NOTHROW {
    return _left._cur == _right._cur;
  }
  friend bool operator<(const _deque_iterator &_left, const _deque_iterator &_right) PLX_NOTHROW {
    return _left._node == _right._node ? _left._cur < _right._cur : _left._node < _right._node;
  }
  friend difference_type operator-(const _deque_iterator &_left, const _deque_iterator &_right) PLX_NOTHROW {
    return (_left._node - _right._node) * _deque_block + (_left._cur - _left._last) - (_right._cur - _right._last);
  }

  _T *_cur;
  _T *_last;  // the end of its block
  _T **_node;

private:
  void _enter(_T **_n, difference_type _offset) PLX_NOTHROW {
    _node = _n;
    _T *const _first = *_n;
    _cur = _first + _offset;
    _last = _first + _deque_block;
  }
};

template <class _T, class _R, class _Pt>
inline _deque_iterator<_T, _R, _Pt> operator+(std::ptrdiff_t _n, const _deque_iterator<_T, _R, _Pt> &_at) PLX_NOTHROW {
  return _at + _n;
}

// Algorithms walk the blocks.
template <class _T, class _R, class _Pt> struct _segmented_iterator_traits<_deque_iterator<_T, _R, _Pt> > {
  typedef _yes _is_segmented;
  typedef _T **_segment_iterator;
  typedef _Pt _local_iterator;
  typedef _deque_iterator<_T, _R, _Pt> iterator;

  static _segment_iterator _segment(const iterator &_at) PLX_NOTHROW { return _at._node; }
  static _local_iterator _local(const iterator &_at) PLX_NOTHROW { return _at._cur; }
  static _local_iterator begin(_segment_iterator _block) PLX_NOTHROW { return *_block; }
  static _local_iterator end(_segment_iterator _block) PLX_NOTHROW { return *_block + _deque_block; }
  static iterator _compose(_segment_iterator _block, _local_iterator _at) PLX_NOTHROW {
    const std::ptrdiff_t _offset = _at - *_block;
    if (_offset == _deque_block) return iterator(_block[1], _block + 1);
    return iterator(*_block + _offset, _block);
  }
};

// One value, as often as wanted: filling is copying from here.
template <class _T> class _repeated_value {
public:
  typedef _T value_type;
  typedef std::ptrdiff_t difference_type;
  typedef const _T *pointer;
  typedef const _T &reference;
  typedef std::random_access_iterator_tag iterator_category;

  _repeated_value(const _T &_value, size_t _at) PLX_NOTHROW : _value_(__zor::_address_of(_value)), _at_(_at) {}
  const _T &operator*() const PLX_NOTHROW { return *_value_; }
  _repeated_value &operator++() PLX_NOTHROW {
    ++_at_;
    return *this;
  }
  _repeated_value &operator+=(difference_type _n) PLX_NOTHROW {
    _at_ += static_cast<size_t>(_n);
    return *this;
  }
  bool operator==(const _repeated_value &_other) const PLX_NOTHROW { return _at_ == _other._at_; }
  bool operator!=(const _repeated_value &_other) const PLX_NOTHROW { return _at_ != _other._at_; }

private:
  const _T *_value_;
  size_t _at_;
};

}  // namespace __zor

namespace std {

template <class _T, class _A = allocator<_T> > class PLX_API deque : private _A {
  typedef __zor::_deque_nothing<_T> _nothing;
  typedef __zor::_node_source<_T, _A, __zor::_deque_block> _source;
  typedef typename _A::template rebind<_T *>::other _map_allocator;
  typedef __zor::_element_traits<_T, _A> _traits;
  typedef __zor::_yes _yes;
  typedef __zor::_no _no;
  enum { _block = __zor::_deque_block };

public:
  typedef _T value_type;
  typedef _A allocator_type;
  typedef typename _A::size_type size_type;
  typedef typename _A::difference_type difference_type;
  typedef typename _A::reference reference;
  typedef typename _A::const_reference const_reference;
  typedef typename _A::pointer pointer;
  typedef typename _A::const_pointer const_pointer;
  typedef __zor::_deque_iterator<_T, _T &, _T *> iterator;
  typedef __zor::_deque_iterator<_T, const _T &, const _T *> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit deque(const _A &_a = _A()) PLX_NOTHROW : _A(_a) { reset(); }
#if PLX_MEMBERS_OF_1998
  explicit deque(size_type _n, const _T &_value = _T(), const _A &_a = _A()) : _A(_a) {
#else
  PLX_LATER explicit deque(size_type _n, const _A &_a = _A()) : _A(_a) {
    reset();
    __zor::_cleanup<_unfinished> _guard(*this);
    _append_default(_n);
    _guard.get()._finish();
  }
  deque(size_type _n, const _T &_value, const _A &_a = _A()) : _A(_a) {
#endif
    reset();
    __zor::_cleanup<_unfinished> _guard(*this);
    _append_sized(_repeated(_value, 0), _repeated(_value, _n), _n);
    _guard.get()._finish();
  }
  template <class _Iterator> deque(_Iterator _first, _Iterator _last, const _A &_a = _A()) : _A(_a) {
    reset();
    __zor::_cleanup<_unfinished> _guard(*this);
    _initialize(_first, _last, typename __zor::_is_count<_Iterator>::_type());
    _guard.get()._finish();
  }
  deque(const deque &_other) : _A(_other) {
    reset();
    __zor::_cleanup<_unfinished> _guard(*this);
    _append_sized(_other.begin(), _other.end(), _other.size());
    _guard.get()._finish();
  }
  ~deque() { _give_all(); }

  deque &operator=(const deque &_other) {
    if (this != __zor::_address_of(_other)) _assign_sized(_other.begin(), _other.end(), _other.size());
    return *this;
  }
#if __cplusplus >= 201103L
  deque(deque &&_other) noexcept : _A(_other) {
    reset();
    swap(_other);
  }
  deque &operator=(deque &&_other) noexcept(__zor::_is_standard_allocator<_A>::value) {
    if (__zor::_share_memory(_alloc(), _other._alloc())) {
      deque _taken(static_cast<deque &&>(_other));
      swap(_taken);
    } else {
      clear();
      for (_T &_each : _other) _put_back(static_cast<_T &&>(_each));
    }
    return *this;
  }
  deque(initializer_list<_T> _values, const _A &_a = _A()) : deque(_values.begin(), _values.end(), _a) {}
  deque &operator=(initializer_list<_T> _values) {
    _assign_sized(_values.begin(), _values.end(), _values.size());
    return *this;
  }
  void assign(initializer_list<_T> _values) { _assign_sized(_values.begin(), _values.end(), _values.size()); }
#endif
  template <class _Iterator> void assign(_Iterator _first, _Iterator _last) {
    _assign_range(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  void assign(size_type _n, const _T &_value) {
    const _T _copy(_value);
    _assign_sized(_repeated(_copy, 0), _repeated(_copy, _n), _n);
  }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const _A &>(*this); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(*_start_node_ + _start_offset_, _start_node_); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(*_start_node_ + _start_offset_, _start_node_); }
  iterator end() PLX_NOTHROW { return iterator(_finish_, _finish_node_); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(_finish_, _finish_node_); }
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

  // Size.

  size_type size() const PLX_NOTHROW {
    return static_cast<size_type>((_finish_node_ - _start_node_) * _block + (_finish_ - *_finish_node_)) -
           static_cast<size_type>(_start_offset_);
  }
  size_type max_size() const PLX_NOTHROW {
    const size_type _fit = _A::max_size(), _countable = 0x7FFFFFFFu / sizeof(_T);
    return _fit < _countable ? _fit : _countable;
  }
#if PLX_MEMBERS_OF_1998
  void resize(size_type _n, _T _value = _T()) { _resize(_n, _value); }
#else
  PLX_LATER void resize(size_type _n) {
    const size_type _now = size();
    if (_n > _now)
      _append_default(_n - _now);
    else
      _cut_back(begin() + static_cast<difference_type>(_n));
  }
  PLX_LATER void resize(size_type _n, const _T &_value) { _resize(_n, _value); }
  PLX_LATER void shrink_to_fit() noexcept {}
#endif
  bool empty() const PLX_NOTHROW { return _finish_ == *_start_node_ + _start_offset_; }

  // Elements.

  reference operator[](size_type _n) PLX_NOTHROW { return *_element(_n); }
  const_reference operator[](size_type _n) const PLX_NOTHROW { return *_element(_n); }
  reference at(size_type _n) {
    if (_n >= size()) __zor::_sequence_out_of_range();
    return *_element(_n);
  }
  const_reference at(size_type _n) const {
    if (_n >= size()) __zor::_sequence_out_of_range();
    return *_element(_n);
  }
  reference front() PLX_NOTHROW { return (*_start_node_)[_start_offset_]; }
  const_reference front() const PLX_NOTHROW { return (*_start_node_)[_start_offset_]; }
  reference back() PLX_NOTHROW { return *_last_element(); }
  const_reference back() const PLX_NOTHROW { return *_last_element(); }

  // Modifiers. What is inserted may be an element of this deque.

  void push_front(const _T &_value) { push_front(_value, typename _traits::_number()); }
  void push_back(const _T &_value) { push_back(_value, typename _traits::_number()); }
  void pop_front() {
    _A::destroy(*_start_node_ + _start_offset_);
    unsigned long _next = _start_offset_ + 1;
    if (__builtin_expect(_next == _block, 0)) {
      _source::_give(_alloc(), *_start_node_);
      ++_start_node_;
      _next = 0;
    }
    _start_offset_ = _next;
  }
  void pop_back() {
    if (_finish_ == *_finish_node_) {
      _source::_give(_alloc(), *_finish_node_);
      --_finish_node_;
      _finish_limit_ = _finish_ = *_finish_node_ + (_block - 1);
    } else {
      --_finish_;
    }
    _A::destroy(_finish_);
  }

#if PLX_MEMBERS_OF_1998
  iterator insert(iterator _at, const _T &_value) { return _insert_one(_at, _value); }
  void insert(iterator _at, size_type _n, const _T &_value) { _insert_filled(_at, _n, _value); }
  template <class _Iterator> void insert(iterator _at, _Iterator _first, _Iterator _last) {
    _insert_range(_at, _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
#if __cplusplus >= 201103L
  void insert(iterator _at, initializer_list<_T> _values) {
    _insert_sized(_at, _values.begin(), _values.end(), _values.size());
  }
#endif
  iterator erase(iterator _at) { return erase(_at, _at + 1); }
  iterator erase(iterator _first, iterator _last) { return _close(_first, _last); }
#else
  PLX_LATER void push_front(_T &&_value) { emplace_front(static_cast<_T &&>(_value)); }
  PLX_LATER void push_back(_T &&_value) { emplace_back(static_cast<_T &&>(_value)); }
  template <class... _Source> typename __zor::_emplaced<_T>::_type emplace_front(_Source &&..._given) {
    _put_front(static_cast<_Source &&>(_given)...);
    return static_cast<typename __zor::_emplaced<_T>::_type>(front());
  }
  template <class... _Source> typename __zor::_emplaced<_T>::_type emplace_back(_Source &&..._given) {
    _put_back(static_cast<_Source &&>(_given)...);
    return static_cast<typename __zor::_emplaced<_T>::_type>(back());
  }
  template <class... _Source> iterator emplace(const_iterator _at, _Source &&..._given) {
    return _insert_one(_place(_at), static_cast<_Source &&>(_given)...);
  }
  PLX_LATER iterator insert(const_iterator _at, const _T &_value) { return emplace(_at, _value); }
  PLX_LATER iterator insert(const_iterator _at, _T &&_value) { return emplace(_at, static_cast<_T &&>(_value)); }
  PLX_LATER iterator insert(const_iterator _at, size_type _n, const _T &_value) {
    const difference_type _index = _at - begin();
    _insert_filled(_place(_at), _n, _value);
    return begin() + _index;
  }
  template <class _Iterator> iterator insert(const_iterator _at, _Iterator _first, _Iterator _last) {
    const difference_type _index = _at - begin();
    _insert_range(_place(_at), _first, _last, typename __zor::_is_count<_Iterator>::_type());
    return begin() + _index;
  }
  PLX_LATER iterator insert(const_iterator _at, initializer_list<_T> _values) {
    return insert(_at, _values.begin(), _values.end());
  }
  PLX_LATER iterator erase(const_iterator _at) { return erase(_at, _at + 1); }
  PLX_LATER iterator erase(const_iterator _first, const_iterator _last) {
    return _close(_place(_first), _place(_last));
  }
#endif
  void swap(deque &_other) PLX_NOTHROW {
    std::swap(_map_, _other._map_);
    std::swap(_map_end_, _other._map_end_);
    std::swap(_start_node_, _other._start_node_);
    std::swap(_start_offset_, _other._start_offset_);
    std::swap(_finish_, _other._finish_);
    std::swap(_finish_limit_, _other._finish_limit_);
    std::swap(_finish_node_, _other._finish_node_);
  }
  void clear() PLX_NOTHROW { _cut_back(begin()); }

private:
  typedef __zor::_repeated_value<_T> _repeated;

  const _A &_alloc() const PLX_NOTHROW { return *this; }

  void reset() PLX_NOTHROW {
    _map_ = 0;
    _map_end_ = &_nothing::_entry + 1;
    _start_node_ = _finish_node_ = &_nothing::_entry;
    _start_offset_ = 0;
    _finish_ = _finish_limit_ = _nothing::_entry;
  }
  _T *_element(size_type _n) const PLX_NOTHROW {
    _n += _start_offset_;
    // A multiplication. In a loop over indices clang would make two of it, and step pointers beside.
    size_type _blocks = _n / _block;
    PLX_OPAQUE(_blocks);
    return _start_node_[_blocks] + (_n - _blocks * _block);
  }
  _T *_last_element() const PLX_NOTHROW {
    return _finish_ == *_finish_node_ ? _finish_node_[-1] + (_block - 1) : _finish_ - 1;
  }
  void _set_finish(_T *_at, _T **_node) PLX_NOTHROW {
    _finish_ = _at;
    _finish_node_ = _node;
    _finish_limit_ = *_node + (_block - 1);
  }

  // ---- The map.

  size_type _map_size() const PLX_NOTHROW { return static_cast<size_type>(_map_end_ - _map_); }

  _T **_take_map(size_type _n) {
    _map_allocator _a(_alloc());
    return _a.allocate(_n);
  }
  void _give_map() PLX_NOTHROW {
    if (!_map_) return;
    _map_allocator _a(_alloc());
    _a.deallocate(_map_, _map_size());
  }

  // The first allocation: a map of two entries, and a block in the second.
  void _begin_in_middle() {
    __zor::_cleanup<_new_block> _first(*this);
    _map_ = _take_map(2);
    _map_end_ = _map_ + 2;
    _start_node_ = _map_ + 1;
    *_start_node_ = _first.get()._keep();
    _start_offset_ = _block / 2;
    _set_finish(*_start_node_ + _block / 2, _start_node_);
  }

  class _new_block {
  public:
    explicit _new_block(const deque &_d) : _deque_(_d), _block_(_source::_take(_d._alloc())) {}
    ~_new_block() {
      if (_block_) _source::_give(_deque_._alloc(), _block_);
    }
    _T *get() const PLX_NOTHROW { return _block_; }
    _T *_keep() PLX_NOTHROW {
      _T *const _kept = _block_;
      _block_ = 0;
      return _kept;
    }

  private:
    _new_block(const _new_block &);
    _new_block &operator=(const _new_block &);
    const deque &_deque_;
    _T *_block_;
  };

  // Makes sure that n entries are free in front of the used ones, or behind them. The new map has twice the used
  // entries; a map that is large enough is used again.
  void _reserve_entries(size_type _n, bool _in_front) {
    const size_type _before = static_cast<size_type>(_start_node_ - _map_);
    const size_type _used = static_cast<size_type>(_finish_node_ - _start_node_) + 1;
    if (_n <= (_in_front ? _before : _map_size() - _before - _used)) return;
    size_type _wanted = 2 * _used;
    if (_wanted - _wanted / 4 < _used + _n) _wanted = 2 * (_used + _n);
    const bool _reused = _wanted <= _map_size();
    _T **const _made = _reused ? _map_ : _take_map(_wanted);
    if (_reused) _wanted = _map_size();
    _T **const _start = _made + (_in_front ? _wanted - _used - _wanted / 4 : _wanted / 4);
    memmove(static_cast<void *>(_start), _start_node_, _used * sizeof(_T *));
    if (!_reused) {
      _give_map();
      _map_ = _made;
      _map_end_ = _made + _wanted;
    }
    _start_node_ = _start;
    _finish_node_ = _start + (_used - 1);
  }

  // ---- Blocks for elements to come: they go again unless they are kept.

  class _new_blocks {
  public:
    // At the back from _finish_node_ on, or at the front from _start_node_ on.
    _new_blocks(const deque &_d, const size_type &_n, const bool &_in_front)
        : _deque_(const_cast<deque &>(_d)), _node_(0), _n_(0), _in_front_(_in_front) {
      _deque_._reserve_entries(_n, _in_front);
      _node_ = _in_front ? _deque_._start_node_ : _deque_._finish_node_;
    }
    ~_new_blocks() {
      for (; _n_ != 0; --_n_) _source::_give(_deque_._alloc(), *_entry(_n_));
    }
    void _add() {
      *_entry(_n_ + 1) = _source::_take(_deque_._alloc());
      ++_n_;
    }
    void _keep() PLX_NOTHROW { _n_ = 0; }

  private:
    _new_blocks(const _new_blocks &);
    _new_blocks &operator=(const _new_blocks &);
    _T **_entry(size_type _i) const PLX_NOTHROW { return _in_front_ ? _node_ - _i : _node_ + _i; }

    deque &_deque_;
    _T **_node_;
    size_type _n_;
    bool _in_front_;
  };

  // Pushing numbers has one way of writing the element and the end, so that in a loop the end stays in a register. What
  // comes once in 20 pushes is a template, so that the program has it itself also where the library carries the deque:
  // its pool is nearer than the library's.

  void push_back(const _T &_value, _yes) {
    const _T _copy = _value;
    _T *_at = _finish_, *_next = _at + 1;
    if (__builtin_expect(_at == _finish_limit_, 0)) {
      _next = _next_block<_T>();
      if (_at == _nothing::_entry) _at = _next++;
    }
    *_at = _copy;
    _finish_ = _next;
  }
  // Where the next element but one goes; in an empty deque, the next.
  template <class> PLX_NOINLINE PLX_REGPARM _T *_next_block() {
    if (__builtin_expect(_finish_node_ + 1 == _map_end_, 0)) {
      if (!_map_) {
        _begin_in_middle();
        return _finish_;
      }
      _reserve_entries(1, false);
    }
    _T *const _made = _source::_take(_alloc());
    *++_finish_node_ = _made;
    _finish_limit_ = _made + (_block - 1);
    return _made;
  }
  void push_back(const _T &_value, _no) {
    if (__builtin_expect(_finish_ != _finish_limit_, 1)) {
      __zor::_make_element(static_cast<_A &>(*this), _finish_, _value);
      ++_finish_;
    } else {
      _push_back_before_new(_value);
    }
  }
  PLX_NOINLINE void _push_back_before_new(const _T &_value) { _put_back_before_new(_value); }
  template <PLX_SOURCE_TYPES> void _put_back(PLX_SOURCE) {
    if (__builtin_expect(_finish_ != _finish_limit_, 1)) {
      __zor::_make_element(static_cast<_A &>(*this), _finish_, PLX_FORWARD_SOURCE);
      ++_finish_;
    } else {
      _put_back_before_new(PLX_FORWARD_SOURCE);
    }
  }
  template <PLX_SOURCE_TYPES> void _put_back_before_new(PLX_SOURCE) {
    if (!_map_) {
      _begin_in_middle();
      __zor::_make_element(static_cast<_A &>(*this), _finish_, PLX_FORWARD_SOURCE);
      ++_finish_;
      return;
    }
    if (_finish_node_ + 1 == _map_end_) _reserve_entries(1, false);
    _new_block _made(*this);
    __zor::_make_element(static_cast<_A &>(*this), _finish_, PLX_FORWARD_SOURCE);
    _finish_node_[1] = _made._keep();
    _set_finish(_finish_node_[1], _finish_node_ + 1);
  }

  void push_front(const _T &_value, _yes) {
    const _T _copy = _value;
    if (__builtin_expect(_start_offset_ == 0, 0)) _previous_block<_T>();
    const unsigned long _offset = _start_offset_ - 1;
    (*_start_node_)[_offset] = _copy;
    _start_offset_ = _offset;
  }
  template <class> PLX_NOINLINE PLX_REGPARM void _previous_block() {
    if (__builtin_expect(_start_node_ == _map_, 0)) {
      _reserve_entries(1, true);
    } else if (__builtin_expect(!_map_, 0)) {
      _begin_in_middle();
      return;
    }
    _T *const _made = _source::_take(_alloc());
    *--_start_node_ = _made;
    _start_offset_ = _block;
  }
  void push_front(const _T &_value, _no) {
    if (__builtin_expect(_start_offset_ != 0, 1)) {
      __zor::_make_element(static_cast<_A &>(*this), *_start_node_ + (_start_offset_ - 1), _value);
      --_start_offset_;
    } else {
      _push_front_into_new(_value);
    }
  }
  PLX_NOINLINE void _push_front_into_new(const _T &_value) { _put_front_into_new(_value); }
  template <PLX_SOURCE_TYPES> void _put_front(PLX_SOURCE) {
    if (__builtin_expect(_start_offset_ != 0, 1)) {
      __zor::_make_element(static_cast<_A &>(*this), *_start_node_ + (_start_offset_ - 1), PLX_FORWARD_SOURCE);
      --_start_offset_;
    } else {
      _put_front_into_new(PLX_FORWARD_SOURCE);
    }
  }
  template <PLX_SOURCE_TYPES> void _put_front_into_new(PLX_SOURCE) {
    if (!_map_) {
      _begin_in_middle();
      __zor::_make_element(static_cast<_A &>(*this), *_start_node_ + (_start_offset_ - 1), PLX_FORWARD_SOURCE);
      --_start_offset_;
      return;
    }
    if (_start_node_ == _map_) _reserve_entries(1, true);
    _new_block _made(*this);
    __zor::_make_element(static_cast<_A &>(*this), _made.get() + (_block - 1), PLX_FORWARD_SOURCE);
    *--_start_node_ = _made._keep();
    _start_offset_ = _block - 1;
  }

  // ---- Destroying.

  void _destroy_between(_T *_first, _T **_node, _T *_last, _T **_last_node, _yes) PLX_NOTHROW {
    (void)_first, (void)_node, (void)_last, (void)_last_node;
  }
  void _destroy_between(_T *_first, _T **_node, _T *_last, _T **_last_node, _no) {
    for (; _node != _last_node; _first = *++_node)
      __zor::_destroy_range(static_cast<_A &>(*this), _first, *_node + _block);
    __zor::_destroy_range(static_cast<_A &>(*this), _first, _last);
  }
  void _destroy_between(const iterator &_first, const iterator &_last) {
    _destroy_between(_first._cur, _first._node, _last._cur, _last._node, typename _traits::_trivially_destroyed());
  }
  void _cut_back(iterator _at) {
    _destroy_between(_at, end());
    for (_T **_node = _finish_node_; _node != _at._node; --_node) _source::_give(_alloc(), *_node);
    if (_map_) _set_finish(_at._cur, _at._node);
  }
  void _cut_front(iterator _at) {
    _destroy_between(begin(), _at);
    for (_T **_node = _start_node_; _node != _at._node; ++_node) _source::_give(_alloc(), *_node);
    _start_node_ = _at._node;
    _start_offset_ = static_cast<size_type>(_at._cur - *_at._node);
  }
  void _give_all() {
    if (!_map_) return;
    _destroy_between(begin(), end());
    for (_T **_node = _start_node_; _node <= _finish_node_; ++_node) _source::_give(_alloc(), *_node);
    _give_map();
  }

  // Gives up what a constructor did so far.
  class _unfinished {
  public:
    explicit _unfinished(const deque &_d) : _deque_(const_cast<deque *>(&_d)) {}
    ~_unfinished() {
      if (!_deque_) return;
      _deque_->_give_all();
      _deque_->reset();
    }
    void _finish() PLX_NOTHROW { _deque_ = 0; }

  private:
    _unfinished(const _unfinished &);
    _unfinished &operator=(const _unfinished &);
    deque *_deque_;
  };

  // ---- Ranges. Elements are made at the nearer end, and those between are assigned.

  // Elements that were made from a place on; they go unless they are kept.
  class _made_range {
  public:
    _made_range(deque &_d, const iterator &_first) : at(_first), _deque_(_d), _first_(_first) {}
    ~_made_range() { _deque_._destroy_between(_first_, at); }
    template <class _Iterator> void _add(_Iterator _first, const _Iterator &_last) {
      for (; _first != _last; ++_first, (void)++at) __zor::_make_element(static_cast<_A &>(_deque_), at._cur, *_first);
    }
    template <class _Iterator> void _add_taken(_Iterator _first, const _Iterator &_last) {
      for (; _first != _last; ++_first, (void)++at)
        __zor::_make_element(static_cast<_A &>(_deque_), at._cur, __zor::_take_element(*_first));
    }
#if !PLX_MEMBERS_OF_1998
    PLX_LATER void _add_default(size_type _n) {
      for (; _n != 0; --_n, (void)++at) __zor::_make_element(static_cast<_A &>(_deque_), at._cur);
    }
#endif
    void _keep() { _first_ = at; }
    iterator at;

  private:
    _made_range(const _made_range &);
    _made_range &operator=(const _made_range &);
    deque &_deque_;
    iterator _first_;
  };

  template <class _Integer> void _insert_range(iterator _at, _Integer _n, _Integer _value, _yes) {
    _insert_filled(_at, static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _insert_range(iterator _at, _Iterator _first, _Iterator _last, _no) {
    _insert_by(_at, _first, _last, typename iterator_traits<_Iterator>::iterator_category());
  }
  template <class _Iterator> void _insert_by(iterator _at, _Iterator _first, _Iterator _last, input_iterator_tag) {
    deque _read(get_allocator());
    for (; _first != _last; ++_first) _read.push_back(*_first);
    if (empty())
      swap(_read);
    else
      _insert_sized(_at, _read.begin(), _read.end(), _read.size());
  }
  template <class _Iterator> void _insert_by(iterator _at, _Iterator _first, _Iterator _last, forward_iterator_tag) {
    _insert_sized(_at, _first, _last, static_cast<size_type>(std::distance(_first, _last)));
  }

  template <class _Iterator> void _insert_sized(iterator _at, _Iterator _first, _Iterator _last, size_type _n) {
    if (_n == 0) return;
    if (_n > max_size() - size()) __zor::_sequence_length_error();
    const size_type _index = static_cast<size_type>(_at - begin());
    if (!_map_) _begin_in_middle();
    if (_index < size() - _index)
      _insert_near_front(_index, _first, _last, _n);
    else
      _insert_near_back(_index, _first, _last, _n);
  }

  // At the back, where no element needs to be assigned.
  template <class _Iterator> void _append_sized(_Iterator _first, _Iterator _last, size_type _n) {
    if (_n == 0) return;
    if (_n > max_size() - size()) __zor::_sequence_length_error();
    if (!_map_) _begin_in_middle();
    const size_type _blocks = _blocks_behind(_n);
    const bool _in_front = false;
    __zor::_cleanup<_new_blocks> _added(*this, _blocks, _in_front);
    for (size_type _i = 0; _i < _blocks; ++_i) _added.get()._add();
    _made_range _made(*this, end());
    _made._add(_first, _last);
    _made._keep();
    _added.get()._keep();
    _set_finish(_made.at._cur, _made.at._node);
  }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER void _append_default(size_type _n) {
    if (_n > max_size() - size()) __zor::_sequence_length_error();
    if (!_map_) _begin_in_middle();
    const size_type _blocks = _blocks_behind(_n);
    const bool _in_front = false;
    __zor::_cleanup<_new_blocks> _added(*this, _blocks, _in_front);
    for (size_type _i = 0; _i < _blocks; ++_i) _added.get()._add();
    _made_range _made(*this, end());
    _made._add_default(_n);
    _made._keep();
    _added.get()._keep();
    _set_finish(_made.at._cur, _made.at._node);
  }
  PLX_LATER iterator _place(const_iterator _at) const noexcept {
    iterator _same;
    _same._cur = _at._cur;
    _same._last = _at._last;
    _same._node = _at._node;
    return _same;
  }
#endif
  // How many more blocks n elements at the back need.
  template <class _Count> size_type _blocks_behind(_Count _n) const PLX_NOTHROW {
    const size_type _room = static_cast<size_type>(_finish_limit_ - _finish_);
    return _n <= _room ? 0 : (_n - _room + _block - 1) / _block;
  }
  // Ranges of a constructor.
  template <class _Integer> void _initialize(_Integer _n, _Integer _value, _yes) {
    const _T _copy(static_cast<_T>(_value));
    _append_sized(_repeated(_copy, 0), _repeated(_copy, static_cast<size_type>(_n)), static_cast<size_type>(_n));
  }
  template <class _Iterator> void _initialize(_Iterator _first, _Iterator _last, _no) {
    _initialize_by(_first, _last, typename iterator_traits<_Iterator>::iterator_category());
  }
  template <class _Iterator> void _initialize_by(_Iterator _first, _Iterator _last, forward_iterator_tag) {
    _append_sized(_first, _last, static_cast<size_type>(std::distance(_first, _last)));
  }
  template <class _Iterator> void _initialize_by(_Iterator _first, _Iterator _last, input_iterator_tag) {
    for (; _first != _last; ++_first) _put_back(*_first);
  }

  template <PLX_SOURCE_TYPES> iterator _insert_one(iterator _at, PLX_SOURCE) {
    const difference_type _index = _at - begin();
    if (_index == 0) {
      _put_front(PLX_FORWARD_SOURCE);
    } else if (_at == end()) {
      _put_back(PLX_FORWARD_SOURCE);
    } else {
      _T _made(PLX_FORWARD_SOURCE);
      if (static_cast<size_type>(_index) < size() / 2) {
        _put_front(__zor::_moved(front()));
        const iterator _first = begin();
        __zor::_move_range(_first + 2, _first + _index + 1, _first + 1);
      } else {
        _put_back(__zor::_moved(back()));
        const iterator _last = end();
        __zor::_move_range_backward(begin() + _index, _last - 2, _last - 1);
      }
      *_element(static_cast<size_type>(_index)) = __zor::_moved(_made);
    }
    return begin() + _index;
  }
  template <class _V> void _insert_filled(iterator _at, size_type _n, const _V &_value) {
    const _T _copy(_value);
    _insert_sized(_at, _repeated(_copy, 0), _repeated(_copy, _n), _n);
  }
  template <class _V> void _resize(size_type _n, const _V &_value) {
    const size_type _now = size();
    if (_n > _now)
      _append_sized(_repeated(_value, _now), _repeated(_value, _n), _n - _now);
    else
      _cut_back(begin() + static_cast<difference_type>(_n));
  }
  // The shorter side closes the gap.
  template <class _Iterator> _Iterator _close(_Iterator _first, _Iterator _last) {
    const difference_type _index = _first - begin(), _n = _last - _first;
    if (_n == 0) return _first;
    if (_index < end() - _last) {
      __zor::_move_range_backward(begin(), _first, _last);
      _cut_front(begin() + _n);
    } else {
      __zor::_move_range(_last, end(), _first);
      _cut_back(end() - _n);
    }
    return begin() + _index;
  }

  template <class _Iterator> void _insert_near_back(size_type _index, _Iterator _first, _Iterator _last, size_type _n) {
    const size_type _blocks = _blocks_behind(_n);
    const bool _in_front = false;
    __zor::_cleanup<_new_blocks> _added(*this, _blocks, _in_front);
    for (size_type _i = 0; _i < _blocks; ++_i) _added.get()._add();

    const difference_type _count = static_cast<difference_type>(_n);
    const iterator _at = begin() + static_cast<difference_type>(_index), _end_before = end();
    const iterator _end_after = _end_before + _count;
    const difference_type _tail = _end_before - _at;
    _made_range _made(*this, _end_before);
    if (_tail > _count) {
      _made._add_taken(_end_before - _count, _end_before);
      _made._keep();
      _added.get()._keep();
      _set_finish(_end_after._cur, _end_after._node);
      __zor::_move_range_backward(_at, _end_before - _count, _end_before);
      _assign_each(_at, _first, _last);
    } else {
      _Iterator _middle = _first;
      std::advance(_middle, _tail);
      _made._add(_middle, _last);
      _made._add_taken(_at, _end_before);
      _made._keep();
      _added.get()._keep();
      _set_finish(_end_after._cur, _end_after._node);
      _assign_each(_at, _first, _middle);
    }
  }

  template <class _Iterator>
  void _insert_near_front(size_type _index, _Iterator _first, _Iterator _last, size_type _n) {
    const size_type _blocks = _n <= _start_offset_ ? 0 : (_n - _start_offset_ + _block - 1) / _block;
    const bool _in_front = true;
    __zor::_cleanup<_new_blocks> _added(*this, _blocks, _in_front);
    for (size_type _i = 0; _i < _blocks; ++_i) _added.get()._add();

    const difference_type _count = static_cast<difference_type>(_n), _head = static_cast<difference_type>(_index);
    const iterator _begin_before = begin(), _at = _begin_before + _head, _begin_after = _begin_before - _count;
    _made_range _made(*this, _begin_after);
    if (_head >= _count) {
      _made._add_taken(_begin_before, _begin_before + _count);
      _made._keep();
      _added.get()._keep();
      _set_start(_begin_after);
      __zor::_move_range(_begin_before + _count, _at, _begin_before);
      _assign_each(_at - _count, _first, _last);
    } else {
      _Iterator _middle = _first;
      std::advance(_middle, _count - _head);
      _made._add_taken(_begin_before, _at);
      _made._add(_first, _middle);
      _made._keep();
      _added.get()._keep();
      _set_start(_begin_after);
      _assign_each(_begin_before, _middle, _last);
    }
  }

  void _set_start(const iterator &_at) PLX_NOTHROW {
    _start_node_ = _at._node;
    _start_offset_ = static_cast<size_type>(_at._cur - *_at._node);
  }
  template <class _Iterator> static void _assign_each(iterator _at, _Iterator _first, const _Iterator &_last) {
    for (; _first != _last; ++_first, (void)++_at) *_at = *_first;
  }

  // ---- Assignment.

  template <class _Integer> void _assign_range(_Integer _n, _Integer _value, _yes) {
    assign(static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _assign_range(_Iterator _first, _Iterator _last, _no) {
    _assign_by(_first, _last, typename iterator_traits<_Iterator>::iterator_category());
  }
  template <class _Iterator> void _assign_by(_Iterator _first, _Iterator _last, forward_iterator_tag) {
    _assign_sized(_first, _last, static_cast<size_type>(std::distance(_first, _last)));
  }
  template <class _Iterator> void _assign_by(_Iterator _first, _Iterator _last, input_iterator_tag) {
    iterator _at = begin();
    for (; _first != _last && _at != end(); ++_first, (void)++_at) *_at = *_first;
    _cut_back(_at);
    for (; _first != _last; ++_first) push_back(*_first);
  }
  template <class _Iterator> void _assign_sized(_Iterator _first, _Iterator _last, size_type _n) {
    const size_type _now = size();
    iterator _at = begin();
    if (_n <= _now) {
      for (; _first != _last; ++_first, (void)++_at) *_at = *_first;
      _cut_back(_at);
    } else {
      for (size_type _i = 0; _i < _now; ++_i, (void)++_first, (void)++_at) *_at = *_first;
      _append_sized(_first, _last, _n - _now);
    }
  }

  _T **_map_;  // null until the first element comes
  _T **_map_end_;
  _T **_start_node_;
  unsigned long _start_offset_;  // of a type that no element access can change: it may stay in a register
  _T *_finish_;
  _T *_finish_limit_;  // the last place of _finish_'s block: filling it takes a new block
  _T **_finish_node_;
};

PLX_SEQUENCE_COMPARISONS(deque)

__extension__ extern template class PLX_API deque<int, allocator<int> >;
__extension__ extern template class PLX_API deque<char, allocator<char> >;

}  // namespace std

#endif

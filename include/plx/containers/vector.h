// vector (1998, 23.2.4): elements side by side in one block.
//
//     _storage_.first         last              limit
//     +---------------------+-----------------+
//     | elements            | spare           |
//     +---------------------+-----------------+
//
// A full vector grows to twice its size, an empty one to 10 elements. Elements that may be moved as bytes (numbers,
// pointers, strings, ...) are, and their block grows where it stands if it can. All others are copied, or in later
// dialects moved. What a program does often is inline; what happens when the block is full is a call.
#ifndef PLX_VECTOR_H
#define PLX_VECTOR_H

#include <plx/containers/sequence.h>

namespace __zor {

// The block and its allocator. It frees the block, and does not know which elements live there.
template <class _T, class _A> class _vector_storage : public _A {
public:
  explicit _vector_storage(const _A &_a) PLX_NOTHROW : _A(_a), first(0), _last(0), _limit(0) {}
  _vector_storage(const _A &_a, size_t _room) : _A(_a), first(0), _last(0), _limit(0) { _take(_room); }
  ~_vector_storage() {
    if (first) this->deallocate(first, static_cast<size_t>(_limit - first));
  }

  // Only in a storage without a block.
  void _take(size_t _room) {
    if (_room > _most()) _sequence_length_error();
    if (_room == 0) return;
    first = _last = static_cast<_T *>(_A::allocate(_room));
    _limit = first + _room;
  }

  // More elements would not fit, or their differences would not.
  size_t _most() const PLX_NOTHROW {
    const size_t _fit = _A::max_size(), _countable = 0x7FFFFFFFu / sizeof(_T);
    return _fit < _countable ? _fit : _countable;
  }

  size_t size() const PLX_NOTHROW { return static_cast<size_t>(_last - first); }
  size_t _room() const PLX_NOTHROW { return static_cast<size_t>(_limit - first); }

  void _swap_blocks(_vector_storage &_other) PLX_NOTHROW {
    _T *_f = first, *_l = _last, *_e = _limit;
    first = _other.first, _last = _other._last, _limit = _other._limit;
    _other.first = _f, _other._last = _l, _other._limit = _e;
  }

  _T *first;
  _T *_last;
  _T *_limit;

private:
  _vector_storage(const _vector_storage &);
  _vector_storage &operator=(const _vector_storage &);
};

// A place of n elements that was opened between others by moving bytes. When not all of it is filled, it closes again.
template <class _T, class _A> class _vector_gap {
public:
  _vector_gap(_vector_storage<_T, _A> &_s, _T *const &_place, const size_t &_n)
      : _storage_(_s), _begin_(_place), _end_(_place + _n), at(_place) {
    memmove(static_cast<void *>(_end_), _place,
            static_cast<size_t>(reinterpret_cast<char *>(_s._last) - reinterpret_cast<char *>(_place)));
    _tail_ = static_cast<size_t>(_s._last - _place);
    _s._last = _place;  // what lies behind the gap has no owner meanwhile
  }
  ~_vector_gap() {
    if (at != _end_) {
      __zor::_destroy_range(static_cast<_A &>(_storage_), _begin_, at);
      at = _begin_;
      memmove(static_cast<void *>(_begin_), _end_, _tail_ * sizeof(_T));
    }
    _storage_._last = at + _tail_;
  }

private:
  _vector_gap(const _vector_gap &);
  _vector_gap &operator=(const _vector_gap &);

  _vector_storage<_T, _A> &_storage_;
  _T *_begin_;
  _T *_end_;
  size_t _tail_;

public:
  _T *at;  // up to here it is filled
};

}  // namespace __zor

namespace std {

template <class _T, class _A = allocator<_T> > class PLX_API vector {
  typedef __zor::_vector_storage<_T, _A> _storage;
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
  typedef __zor::_pointer_iterator<_T> iterator;
  typedef __zor::_pointer_iterator<const _T> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  // Construction, copying, destruction.

  explicit vector(const _A &_a = _A()) PLX_NOTHROW : _storage_(_a) {}
#if PLX_MEMBERS_OF_1998
  explicit vector(size_type _n, const _T &_value = _T(), const _A &_a = _A()) : _storage_(_a, _n) {
    _storage_._last = __zor::_make_filled(_alloc(), _storage_.first, _n, _value);
  }
#else
  PLX_LATER explicit vector(size_type _n, const _A &_a = _A()) : _storage_(_a, _n) {
    _storage_._last = __zor::_make_default(_alloc(), _storage_.first, _n);
  }
  vector(size_type _n, const _T &_value, const _A &_a = _A()) : _storage_(_a, _n) {
    _storage_._last = __zor::_make_filled(_alloc(), _storage_.first, _n, _value);
  }
#endif
  template <class _Iterator> vector(_Iterator _first, _Iterator _last, const _A &_a = _A()) : _storage_(_a) {
    _initialize(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  vector(const vector &_other) : _storage_(_other._storage_, _other.size()) {
    _storage_._last = __zor::_make_copies(_alloc(), _storage_.first, _cbegin_(_other), _cend_(_other));
  }
  ~vector() { __zor::_destroy_range(_alloc(), _storage_.first, _storage_._last); }

  vector &operator=(const vector &_other) {
    if (this != __zor::_address_of(_other)) _assign_sized(_cbegin_(_other), _cend_(_other), _other.size());
    return *this;
  }
#if __cplusplus >= 201103L
  vector(vector &&_other) noexcept : _storage_(_other.get_allocator()) { _storage_._swap_blocks(_other._storage_); }
  vector &operator=(vector &&_other) noexcept(__zor::_is_standard_allocator<_A>::value) {
    if (__zor::_share_memory(_alloc(), _other._alloc())) {
      vector _taken(static_cast<vector &&>(_other));
      swap(_taken);
    } else {
      clear();
      reserve(_other.size());
      for (_T &_each : _other) _emplace_back(typename _traits::_number(), static_cast<_T &&>(_each));
    }
    return *this;
  }
  vector(initializer_list<_T> _list, const _A &_a = _A()) : _storage_(_a) {
    _initialize(_list.begin(), _list.end(), _no());
  }
  vector &operator=(initializer_list<_T> _list) {
    _assign_sized(_list.begin(), _list.end(), _list.size());
    return *this;
  }
  void assign(initializer_list<_T> _list) { _assign_sized(_list.begin(), _list.end(), _list.size()); }
#endif
  template <class _Iterator> void assign(_Iterator _first, _Iterator _last) {
    _assign_range(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  void assign(size_type _n, const _T &_value) { _assign_filled(_n, _value); }
  allocator_type get_allocator() const PLX_NOTHROW { return static_cast<const _A &>(_storage_); }

  // Iterators.

  iterator begin() PLX_NOTHROW { return iterator(_storage_.first); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(_storage_.first); }
  iterator end() PLX_NOTHROW { return iterator(_storage_._last); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(_storage_._last); }
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
  _T *data() PLX_NOTHROW { return _storage_.first; }
  const _T *data() const PLX_NOTHROW { return _storage_.first; }

  // Size.

  size_type size() const PLX_NOTHROW { return _storage_.size(); }
  size_type max_size() const PLX_NOTHROW { return _storage_._most(); }
#if PLX_MEMBERS_OF_1998
  void resize(size_type _n, _T _value = _T()) {
    if (_n > size())
      _append_filled(_n - size(), _value, typename _traits::_relocatable());
    else
      _cut(_storage_.first + _n);
  }
#else
  PLX_LATER void resize(size_type _n) {
    if (_n > size())
      _append_default(_n - size(), typename _traits::_relocatable());
    else
      _cut(_storage_.first + _n);
  }
  PLX_LATER void resize(size_type _n, const _T &_value) {
    if (_n > size())
      _append_filled(_n - size(), _value, typename _traits::_relocatable());
    else
      _cut(_storage_.first + _n);
  }
  PLX_LATER void shrink_to_fit() {
    if (_storage_._last == _storage_._limit) return;
    _storage _made(_alloc(), size());
    _made._last = _move_to(_made.first, typename _traits::_relocatable());
    _become(_made);
  }
#endif
  size_type capacity() const PLX_NOTHROW { return _storage_._room(); }
  bool empty() const PLX_NOTHROW { return _storage_.first == _storage_._last; }
  void reserve(size_type _n) {
    if (_n > capacity()) {
      if (_n > max_size()) __zor::_sequence_length_error();
      _grow(_n, typename _traits::_relocatable());
    }
  }

  // Elements.

  reference operator[](size_type _n) PLX_NOTHROW { return _storage_.first[_n]; }
  const_reference operator[](size_type _n) const PLX_NOTHROW { return _storage_.first[_n]; }
  reference at(size_type _n) {
    if (_n >= size()) __zor::_sequence_out_of_range();
    return _storage_.first[_n];
  }
  const_reference at(size_type _n) const {
    if (_n >= size()) __zor::_sequence_out_of_range();
    return _storage_.first[_n];
  }
  reference front() PLX_NOTHROW { return *_storage_.first; }
  const_reference front() const PLX_NOTHROW { return *_storage_.first; }
  reference back() PLX_NOTHROW { return _storage_._last[-1]; }
  const_reference back() const PLX_NOTHROW { return _storage_._last[-1]; }

  // Modifiers. What is inserted may be an element of this vector.

  void push_back(const _T &_value) { push_back(_value, typename _traits::_number()); }
  void pop_back() { _storage_.destroy(--_storage_._last); }

#if PLX_MEMBERS_OF_1998
  iterator insert(iterator _at, const _T &_value) {
    const difference_type _n = _at.base() - _storage_.first;
    if (_storage_._last == _storage_._limit)
      _insert_full(_at.base(), _value);
    else
      _insert_one(_at.base(), _value, typename _traits::_relocatable());
    return iterator(_storage_.first + _n);
  }
  void insert(iterator _at, size_type _n, const _T &_value) { _insert_filled(_at.base(), _n, _value); }
  template <class _Iterator> void insert(iterator _at, _Iterator _first, _Iterator _last) {
    _insert_range(_at.base(), _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
#if __cplusplus >= 201103L
  void insert(iterator _at, initializer_list<_T> _list) {
    _insert_sized(_at.base(), _list.begin(), _list.end(), _list.size());
  }
#endif

  iterator erase(iterator _at) { return erase(_at, _at + 1); }
  iterator erase(iterator _first, iterator _last) {
    if (_first != _last) _close(_first.base(), _last.base(), typename _traits::_relocatable());
    return _first;
  }
#else
  PLX_LATER void push_back(_T &&_value) { emplace_back(static_cast<_T &&>(_value)); }
  template <class... _Source> typename __zor::_emplaced<_T>::_type emplace_back(_Source &&..._given) {
    _emplace_back(typename _traits::_number(), static_cast<_Source &&>(_given)...);
    return static_cast<typename __zor::_emplaced<_T>::_type>(_storage_._last[-1]);
  }
  template <class... _Source> iterator emplace(const_iterator _at, _Source &&..._given) {
    const difference_type _n = _at.base() - _storage_.first;
    if (_storage_._last == _storage_._limit)
      _emplace_full(_place(_at), typename _traits::_relocatable(), static_cast<_Source &&>(_given)...);
    else
      _emplace_one(_place(_at), typename _traits::_relocatable(), static_cast<_Source &&>(_given)...);
    return iterator(_storage_.first + _n);
  }
  PLX_LATER iterator insert(const_iterator _at, const _T &_value) { return emplace(_at, _value); }
  PLX_LATER iterator insert(const_iterator _at, _T &&_value) { return emplace(_at, static_cast<_T &&>(_value)); }
  PLX_LATER iterator insert(const_iterator _at, size_type _n, const _T &_value) {
    const difference_type _index = _at.base() - _storage_.first;
    _insert_filled(_place(_at), _n, _value);
    return iterator(_storage_.first + _index);
  }
  template <class _Iterator> iterator insert(const_iterator _at, _Iterator _first, _Iterator _last) {
    const difference_type _index = _at.base() - _storage_.first;
    _insert_range(_place(_at), _first, _last, typename __zor::_is_count<_Iterator>::_type());
    return iterator(_storage_.first + _index);
  }
  PLX_LATER iterator insert(const_iterator _at, initializer_list<_T> _list) {
    return insert(_at, _list.begin(), _list.end());
  }
  PLX_LATER iterator erase(const_iterator _at) { return erase(_at, _at + 1); }
  PLX_LATER iterator erase(const_iterator _first, const_iterator _last) {
    if (_first != _last) _close(_place(_first), _place(_last), typename _traits::_relocatable());
    return iterator(_place(_first));
  }
#endif
  void swap(vector &_other) PLX_NOTHROW { _storage_._swap_blocks(_other._storage_); }
  void clear() PLX_NOTHROW { _cut(_storage_.first); }

private:
  _A &_alloc() PLX_NOTHROW { return _storage_; }
  static const _T *_cbegin_(const vector &_v) PLX_NOTHROW { return _v._storage_.first; }
  static const _T *_cend_(const vector &_v) PLX_NOTHROW { return _v._storage_._last; }

  // Destroys the elements from `_at` on.
  void _cut(_T *_at) {
    __zor::_destroy_range(_alloc(), _at, _storage_._last);
    _storage_._last = _at;
  }

  // The capacity with which `_more` elements fit into a full vector.
  size_type _grown(size_type _more) const {
    const size_type _n = size(), _most = max_size();
    if (_more > _most - _n) __zor::_sequence_length_error();
    const size_type _wanted = _n == 0 ? 10 : _n > _most - _n ? _most : 2 * _n;
    return _wanted > _most ? _most : _wanted < _n + _more ? _n + _more : _wanted;
  }

  // ---- A new block of `_room` elements, the elements moved there.

  void _grow(size_type _room, _yes) {
    const size_type _n = size();
    _T *_block = static_cast<_T *>(__zor::_grow_block(_storage_.first, _n * sizeof(_T), _room * sizeof(_T)));
    _storage_.first = _block;
    _storage_._last = _block + _n;
    _storage_._limit = _block + _room;
  }
  void _grow(size_type _room, _no) {
    _storage _made(_storage_, _room);
    _made._last = __zor::_make_taken(_alloc(), _made.first, _storage_.first, _storage_._last);
    _become(_made);
  }

  // Takes the other block; the old elements and block go.
  void _become(_storage &_made) {
    _made._swap_blocks(_storage_);
    __zor::_destroy_range(_alloc(), _made.first, _made._last);
    _made._last = _made.first;
  }

  // Elements copied around something that is made first, so that the source may lie in this vector.
  class _split {
  public:
    _split(vector &_v, _T *_at, size_type _more) : _made_(_v._storage_, _v._grown(_more)), _v_(_v), _at_(_at) {
      _begin_ = _end_ = _made_.first + (_at - _v._storage_.first);
    }
    ~_split() { __zor::_destroy_range(_v_._alloc(), _begin_, _end_); }
    _T *_place() const { return _begin_; }
    void _made_up_to(_T *_end) { _end_ = _end; }
    void _finish() {
      _T *const _first = _made_.first;
      __zor::_made_elements<_T, _A> _before(_v_._alloc(), _first);
      for (_T *_from = _v_._storage_.first; _from != _at_; ++_from) _before._add(__zor::_take_element(*_from));
      _end_ = __zor::_make_taken(_v_._alloc(), _end_, _at_, _v_._storage_._last);
      _before._keep();
      _made_._last = _end_;
      _end_ = _begin_;
      _v_._become(_made_);
    }

  private:
    _storage _made_;
    vector &_v_;
    _T *_at_;
    _T *_begin_;
    _T *_end_;
  };

  // ---- One element.

  void push_back(const _T &_value, _no) {
    if (__builtin_expect(_storage_._last != _storage_._limit, 1)) {
      __zor::_make_element(_alloc(), _storage_._last, _value);
      ++_storage_._last;
    } else {
      _insert_full(_storage_._last, _value);
    }
  }
  // One way of writing the element and the end: in a loop the end stays in a register.
  void push_back(const _T &_value, _yes) {
    const _T _copy = _value;
    _T *_at = _storage_._last;
    if (__builtin_expect(_at == _storage_._limit, 0)) _at = _grow_for_one();
    *_at = _copy;
    _storage_._last = _at + 1;
  }
  PLX_NOINLINE PLX_REGPARM _T *_grow_for_one() {
    _grow(_grown(1), _yes());
    return _storage_._last;
  }

  PLX_NOINLINE PLX_REGPARM void _insert_full(_T *_at, typename __zor::_passed<_T>::_type _value) {
    _insert_full(_at, _value, typename _traits::_relocatable());
  }

  void _insert_full(_T *_at, const _T &_value, _yes) { _emplace_full(_at, _yes(), _value); }
  void _insert_full(_T *_at, const _T &_value, _no) { _emplace_full(_at, _no(), _value); }
  void _insert_one(_T *_at, const _T &_value, _yes) { _emplace_one(_at, _yes(), _value); }
  void _insert_one(_T *_at, const _T &_value, _no) { _emplace_one(_at, _no(), _value); }

  template <PLX_SOURCE_TYPES> void _emplace_full(_T *_at, _yes, PLX_SOURCE) {
    const size_type _index = static_cast<size_type>(_at - _storage_.first);
    __zor::_held_copy<_T, _A, typename _traits::_plain> _made(_alloc(), PLX_FORWARD_SOURCE);
    _grow(_grown(1), _yes());
    _at = _storage_.first + _index;
    __zor::_slide_bytes(_at + 1, _at, _storage_._last);
    _made._move_to(_at);
    ++_storage_._last;
  }
  template <PLX_SOURCE_TYPES> void _emplace_full(_T *_at, _no, PLX_SOURCE) {
    _split _made(*this, _at, 1);
    __zor::_make_element(_alloc(), _made._place(), PLX_FORWARD_SOURCE);
    _made._made_up_to(_made._place() + 1);
    _made._finish();
  }

  template <PLX_SOURCE_TYPES> void _emplace_one(_T *_at, _yes, PLX_SOURCE) {
    __zor::_held_copy<_T, _A, typename _traits::_plain> _made(_alloc(), PLX_FORWARD_SOURCE);
    __zor::_slide_bytes(_at + 1, _at, _storage_._last);
    _made._move_to(_at);
    ++_storage_._last;
  }
  template <PLX_SOURCE_TYPES> void _emplace_one(_T *_at, _no, PLX_SOURCE) {
    if (_at == _storage_._last) {
      __zor::_make_element(_alloc(), _at, PLX_FORWARD_SOURCE);
      ++_storage_._last;
      return;
    }
    _T _made(PLX_FORWARD_SOURCE);
    __zor::_make_element(_alloc(), _storage_._last, __zor::_moved(_storage_._last[-1]));
    ++_storage_._last;
    for (_T *_to = _storage_._last - 2; _to != _at; --_to) *_to = __zor::_moved(_to[-1]);
    *_at = __zor::_moved(_made);
  }

#if __cplusplus >= 201103L
  template <class... _Source> void _emplace_back(_yes, _Source &&..._given) {
    const _T _made(static_cast<_Source &&>(_given)...);
    push_back(_made, _yes());
  }
  template <class... _Source> void _emplace_back(_no, _Source &&..._given) {
    if (__builtin_expect(_storage_._last != _storage_._limit, 1)) {
      __zor::_make_element(_alloc(), _storage_._last, static_cast<_Source &&>(_given)...);
      ++_storage_._last;
    } else {
      _emplace_full(_storage_._last, typename _traits::_relocatable(), static_cast<_Source &&>(_given)...);
    }
  }
#endif

#if !PLX_MEMBERS_OF_1998
  PLX_LATER _T *_place(const_iterator _at) const noexcept { return _storage_.first + (_at.base() - _storage_.first); }

  PLX_LATER void _append_default(size_type _n, _yes) {
    if (_n > _free_room()) _grow(_grown(_n), _yes());
    _storage_._last = __zor::_make_default(_alloc(), _storage_._last, _n);
  }
  PLX_LATER void _append_default(size_type _n, _no) {
    if (_n <= _free_room()) {
      _storage_._last = __zor::_make_default(_alloc(), _storage_._last, _n);
      return;
    }
    _split _made(*this, _storage_._last, _n);
    _made._made_up_to(__zor::_make_default(_alloc(), _made._place(), _n));
    _made._finish();
  }

  // All elements, to another block.
  PLX_LATER _T *_move_to(_T *_to, _yes) noexcept {
    _T *const _end = _to + size();
    __zor::_slide_bytes(_to, _storage_.first, _storage_._last);
    _storage_._last = _storage_.first;
    return _end;
  }
  PLX_LATER _T *_move_to(_T *_to, _no) { return __zor::_make_taken(_alloc(), _to, _storage_.first, _storage_._last); }
#endif

  // ---- Several equal elements.

  void _insert_filled(_T *_at, size_type _n, const _T &_value) {
    if (_n != 0) _insert_filled(_at, _n, _value, typename _traits::_relocatable());
  }
  void _insert_filled(_T *_at, size_type _n, const _T &_value, _yes) {
    const size_type _index = static_cast<size_type>(_at - _storage_.first);
    __zor::_held_copy<_T, _A, typename _traits::_plain> _copy(_alloc(), _value);
    if (_n > _free_room()) _grow(_grown(_n), _yes());
    _fill_gap(_storage_.first + _index, _n, _copy.get(), typename _traits::_plain());
  }
  void _fill_gap(_T *_at, size_type _n, const _T &_value, _yes) {
    __zor::_slide_bytes(_at + _n, _at, _storage_._last);
    __zor::_make_filled(_alloc(), _at, _n, _value);
    _storage_._last += _n;
  }
  void _fill_gap(_T *_at, size_type _n, const _T &_value, _no) {
    __zor::_vector_gap<_T, _A> _gap(_storage_, _at, _n);
    for (; _n != 0; --_n, ++_gap.at) __zor::_make_element(_alloc(), _gap.at, _value);
  }
  void _insert_filled(_T *_at, size_type _n, const _T &_value, _no) {
    if (_n > _free_room()) {
      _split _made(*this, _at, _n);
      _made._made_up_to(__zor::_make_filled(_alloc(), _made._place(), _n, _value));
      _made._finish();
      return;
    }
    const _T _copy(_value);
    _T *const _end = _storage_._last;
    const size_type _tail = static_cast<size_type>(_end - _at);
    if (_tail > _n) {
      _storage_._last = __zor::_make_taken(_alloc(), _end, _end - _n, _end);
      for (_T *_to = _end, *_from = _end - _n; _from != _at;) *--_to = __zor::_moved(*--_from);
    } else {
      _storage_._last = __zor::_make_filled(_alloc(), _end, _n - _tail, _copy);
      _storage_._last = __zor::_make_taken(_alloc(), _storage_._last, _at, _end);
    }
    for (_T *const _filled = _tail > _n ? _at + _n : _end; _at != _filled; ++_at) *_at = _copy;
  }

  // At the end, where no element needs to be assigned. The value may be an element.
  template <class _V> void _append_filled(size_type _n, const _V &_value, _yes) {
    _insert_filled(_storage_._last, _n, _value);
  }
  template <class _V> void _append_filled(size_type _n, const _V &_value, _no) {
    if (_n <= _free_room()) {
      _storage_._last = __zor::_make_filled(_alloc(), _storage_._last, _n, _value);
      return;
    }
    _split _made(*this, _storage_._last, _n);
    _made._made_up_to(__zor::_make_filled(_alloc(), _made._place(), _n, _value));
    _made._finish();
  }

  size_type _free_room() const PLX_NOTHROW { return static_cast<size_type>(_storage_._limit - _storage_._last); }

  // ---- Ranges. Integers are a count and a value.

  template <class _Integer> void _insert_range(_T *_at, _Integer _n, _Integer _value, _yes) {
    _insert_filled(_at, static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _insert_range(_T *_at, _Iterator _first, _Iterator _last, _no) {
    _insert_range_by(_at, _first, _last, typename iterator_traits<_Iterator>::iterator_category());
  }
  // Elements that can be read only once are collected first, unless they go to the end.
  template <class _Iterator> void _insert_range_by(_T *_at, _Iterator _first, _Iterator _last, input_iterator_tag) {
    if (_at == _storage_._last) {
      const size_type _n = size();
      _trim_unless_kept _added(*this, _n);
      for (; _first != _last; ++_first) push_back(*_first);
      _added._keep();
    } else {
      vector _read(get_allocator());
      for (; _first != _last; ++_first) _read.push_back(*_first);
      _insert_sized(_at, _cbegin_(_read), _cend_(_read), _read.size());
    }
  }
  template <class _Iterator> void _insert_range_by(_T *_at, _Iterator _first, _Iterator _last, forward_iterator_tag) {
    _insert_sized(_at, _first, _last, static_cast<size_type>(std::distance(_first, _last)));
  }
  class _trim_unless_kept {
  public:
    _trim_unless_kept(vector &_v, size_type _n) : _v_(_v), _n_(_n), _kept_(false) {}
    ~_trim_unless_kept() {
      if (!_kept_) _v_._cut(_v_._storage_.first + _n_);
    }
    void _keep() { _kept_ = true; }

  private:
    vector &_v_;
    size_type _n_;
    bool _kept_;
  };

  template <class _Iterator> void _insert_sized(_T *_at, _Iterator _first, _Iterator _last, size_type _n) {
    if (_n != 0) _insert_sized(_at, _first, _last, _n, typename _traits::_relocatable());
  }
  template <class _Iterator> void _insert_sized(_T *_at, _Iterator _first, _Iterator _last, size_type _n, _yes) {
    const size_type _index = static_cast<size_type>(_at - _storage_.first);
    if (_n > _free_room()) _grow(_grown(_n), _yes());
    _at = _storage_.first + _index;
    if (_at == _storage_._last) {
      _storage_._last = __zor::_make_copies(_alloc(), _at, _first, _last);
      return;
    }
    __zor::_vector_gap<_T, _A> _gap(_storage_, _at, _n);
    _gap.at = __zor::_make_copies(_alloc(), _at, _first, _last);
  }
  template <class _Iterator> void _insert_sized(_T *_at, _Iterator _first, _Iterator _last, size_type _n, _no) {
    if (_n > _free_room()) {
      _split _made(*this, _at, _n);
      _made._made_up_to(__zor::_make_copies(_alloc(), _made._place(), _first, _last));
      _made._finish();
      return;
    }
    _T *const _end = _storage_._last;
    const size_type _tail = static_cast<size_type>(_end - _at);
    if (_tail > _n) {
      _storage_._last = __zor::_make_taken(_alloc(), _end, _end - _n, _end);
      for (_T *_to = _end, *_from = _end - _n; _from != _at;) *--_to = __zor::_moved(*--_from);
      for (; _first != _last; ++_first, (void)++_at) *_at = *_first;
    } else {
      _Iterator _middle = _first;
      std::advance(_middle, static_cast<difference_type>(_tail));
      _storage_._last = __zor::_make_copies(_alloc(), _end, _middle, _last);
      _storage_._last = __zor::_make_taken(_alloc(), _storage_._last, _at, _end);
      for (; _first != _middle; ++_first, (void)++_at) *_at = *_first;
    }
  }

  template <class _Integer> void _initialize(_Integer _n, _Integer _value, _yes) {
    _storage_._take(static_cast<size_type>(_n));
    _storage_._last =
        __zor::_make_filled(_alloc(), _storage_.first, static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _initialize(_Iterator _first, _Iterator _last, _no) {
    _initialize_by(_first, _last, typename iterator_traits<_Iterator>::iterator_category());
  }
  template <class _Iterator> void _initialize_by(_Iterator _first, _Iterator _last, forward_iterator_tag) {
    _storage_._take(static_cast<size_type>(std::distance(_first, _last)));
    _storage_._last = __zor::_make_copies(_alloc(), _storage_.first, _first, _last);
  }
  template <class _Iterator> void _initialize_by(_Iterator _first, _Iterator _last, input_iterator_tag) {
    _insert_range_by(_storage_._last, _first, _last, input_iterator_tag());
  }

  // ---- Assignment.

  template <class _Integer> void _assign_range(_Integer _n, _Integer _value, _yes) {
    _assign_filled(static_cast<size_type>(_n), static_cast<_T>(_value));
  }
  template <class _Iterator> void _assign_range(_Iterator _first, _Iterator _last, _no) {
    _assign_by(_first, _last, typename iterator_traits<_Iterator>::iterator_category());
  }
  template <class _Iterator> void _assign_by(_Iterator _first, _Iterator _last, forward_iterator_tag) {
    _assign_sized(_first, _last, static_cast<size_type>(std::distance(_first, _last)));
  }
  template <class _Iterator> void _assign_by(_Iterator _first, _Iterator _last, input_iterator_tag) {
    _T *_to = _storage_.first;
    for (; _first != _last && _to != _storage_._last; ++_first, (void)++_to) *_to = *_first;
    _cut(_to);
    for (; _first != _last; ++_first) push_back(*_first);
  }
  void _assign_filled(size_type _n, const _T &_value) {
    if (_n > capacity()) {
      _storage _made(_storage_, _n);
      _made._last = __zor::_make_filled(_alloc(), _made.first, _n, _value);
      _become(_made);
    } else if (_n > size()) {
      const _T _copy(_value);
      for (_T *_to = _storage_.first; _to != _storage_._last; ++_to) *_to = _copy;
      _storage_._last = __zor::_make_filled(_alloc(), _storage_._last, _n - size(), _copy);
    } else {
      const _T _copy(_value);
      for (_T *_to = _storage_.first, *const _end = _to + _n; _to != _end; ++_to) *_to = _copy;
      _cut(_storage_.first + _n);
    }
  }
  template <class _Iterator> void _assign_sized(_Iterator _first, _Iterator _last, size_type _n) {
    if (_n > capacity()) {
      _storage _made(_storage_, _n);
      _made._last = __zor::_make_copies(_alloc(), _made.first, _first, _last);
      _become(_made);
    } else {
      _assign_within(_first, _last, _n,
                     typename __zor::_truth < __zor::_same_type<typename _traits::_plain, _yes>::value &&
                         __zor::_is_array_of<_Iterator, _T>::value > ::_type());
    }
  }
  template <class _Iterator> void _assign_within(_Iterator _first, _Iterator, size_type _n, _yes) {
    if (_n != 0) memmove(static_cast<void *>(_storage_.first), _first, _n * sizeof(_T));
    _storage_._last = _storage_.first + _n;
  }
  template <class _Iterator> void _assign_within(_Iterator _first, _Iterator _last, size_type _n, _no) {
    _T *_to = _storage_.first;
    if (_n > size()) {
      for (; _to != _storage_._last; ++_first, (void)++_to) *_to = *_first;
      _storage_._last = __zor::_make_copies(_alloc(), _storage_._last, _first, _last);
    } else {
      for (; _first != _last; ++_first, (void)++_to) *_to = *_first;
      _cut(_to);
    }
  }

  // ---- Erasure.

  void _close(_T *_first, _T *_last, _yes) {
    _T *const _end = _storage_._last;
    __zor::_destroy_range(_alloc(), _first, _last);
    __zor::_slide_bytes(_first, _last, _end);
    _storage_._last = _first + (_end - _last);
  }
  void _close(_T *_first, _T *_last, _no) {
    for (; _last != _storage_._last; ++_first, (void)++_last) *_first = __zor::_moved(*_last);
    _cut(_first);
  }

  _storage _storage_;
};

PLX_SEQUENCE_COMPARISONS(vector)

}  // namespace std

#include <plx/containers/vector_bool.h>

namespace std {

__extension__ extern template class PLX_API vector<long, allocator<long> >;
__extension__ extern template class PLX_API vector<char, allocator<char> >;
__extension__ extern template class PLX_API vector<void *, allocator<void *> >;

}  // namespace std

#endif

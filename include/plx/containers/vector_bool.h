// vector<bool> (1998, 23.2.5): one bit for each element, in words of 32, the first in the lowest bit. The bits behind
// the last element, in the block's used words, are zero, so that ranges are compared and counted by words.
#ifndef PLX_VECTOR_BOOL_H
#define PLX_VECTOR_BOOL_H

#include <plx/containers/vector.h>

namespace __zor {

enum { _bits_per_word = 32 };

class _bit_reference {
public:
  _bit_reference() PLX_NOTHROW : _word_(0), _mask_(0) {}
  _bit_reference(unsigned int *_word, unsigned int _mask) PLX_NOTHROW : _word_(_word), _mask_(_mask) {}
#if __cplusplus >= 201103L
  _bit_reference(const _bit_reference &) = default;
#endif

  operator bool() const PLX_NOTHROW { return (*_word_ & _mask_) != 0; }
  _bit_reference &operator=(bool _value) PLX_NOTHROW {
    if (_value)
      *_word_ |= _mask_;
    else
      *_word_ &= ~_mask_;
    return *this;
  }
  _bit_reference &operator=(const _bit_reference &_other) PLX_NOTHROW { return *this = static_cast<bool>(_other); }
  bool operator==(const _bit_reference &_other) const PLX_NOTHROW {
    return static_cast<bool>(*this) == static_cast<bool>(_other);
  }
  bool operator<(const _bit_reference &_other) const PLX_NOTHROW {
    return !static_cast<bool>(*this) && static_cast<bool>(_other);
  }
  void flip() PLX_NOTHROW { *_word_ ^= _mask_; }

private:
  unsigned int *_word_;
  unsigned int _mask_;
};

// Exchanges bits, not references.
inline void swap(_bit_reference _a, _bit_reference _b) PLX_NOTHROW {
  const bool _value = _a;
  _a = _b;
  _b = _value;
}

// A place among bits: Reference is _bit_reference, or bool for the constant one.
template <class _Reference, class _Pointer> class _bit_iterator
    : public _order_of_iterators<_bit_iterator<_Reference, _Pointer> > {
public:
  typedef bool value_type;
  typedef std::ptrdiff_t difference_type;
  typedef _Pointer pointer;
  typedef _Reference reference;
  typedef std::random_access_iterator_tag iterator_category;

  _bit_iterator() PLX_NOTHROW : _word(0), _bit(0) {}
  _bit_iterator(unsigned int *_w, unsigned int _b) PLX_NOTHROW : _word(_w), _bit(_b) {}
  template <class _Pt> _bit_iterator(const _bit_iterator<_bit_reference, _Pt> &_other) PLX_NOTHROW
      : _word(_other._word),
        _bit(_other._bit) {}

  _Reference operator*() const PLX_NOTHROW { return _Reference(_bit_reference(_word, 1u << _bit)); }
  _Reference operator[](difference_type _n) const PLX_NOTHROW { return *(*this + _n); }

  _bit_iterator &operator++() PLX_NOTHROW {
    if (++_bit == _bits_per_word) ++_word, _bit = 0;
    return *this;
  }
  _bit_iterator operator++(int) PLX_NOTHROW {
    _bit_iterator _before = *this;
    ++*this;
    return _before;
  }
  _bit_iterator &operator--() PLX_NOTHROW {
    if (_bit-- == 0) --_word, _bit = _bits_per_word - 1;
    return *this;
  }
  _bit_iterator operator--(int) PLX_NOTHROW {
    _bit_iterator _before = *this;
    --*this;
    return _before;
  }
  _bit_iterator &operator+=(difference_type _n) PLX_NOTHROW {
    _n += static_cast<difference_type>(_bit);
    // Division that rounds down, also for negative distances.
    _word += _n >> 5;
    _bit = static_cast<unsigned int>(_n) % _bits_per_word;
    return *this;
  }
  _bit_iterator &operator-=(difference_type _n) PLX_NOTHROW { return *this += -_n; }
  _bit_iterator operator+(difference_type _n) const PLX_NOTHROW {
    _bit_iterator _moved = *this;
    return _moved += _n;
  }
  _bit_iterator operator-(difference_type _n) const PLX_NOTHROW {
    _bit_iterator _moved = *this;
    return _moved -= _n;
  }

  friend bool operator==(const _bit_iterator &_left, const _bit_iterator &_right) PLX_NOTHROW {
    return _left._word == _right._word && _left._bit == _right._bit;
  }
  friend bool operator<(const _bit_iterator &_left, const _bit_iterator &_right) PLX_NOTHROW {
    return _left._word < _right._word || (_left._word == _right._word && _left._bit < _right._bit);
  }
  friend difference_type operator-(const _bit_iterator &_left, const _bit_iterator &_right) PLX_NOTHROW {
    return (_left._word - _right._word) * _bits_per_word + static_cast<difference_type>(_left._bit) -
           static_cast<difference_type>(_right._bit);
  }

  unsigned int *_word;
  unsigned int _bit;
};

template <class _R, class _Pt>
inline _bit_iterator<_R, _Pt> operator+(std::ptrdiff_t _n, const _bit_iterator<_R, _Pt> &_at) PLX_NOTHROW {
  return _at + _n;
}

// ---- Runs of bits within words -------------------------------------------------------------------------------------

inline unsigned int _words_for_bits(size_t _n) PLX_NOTHROW {
  return static_cast<unsigned int>(_n / 32 + (_n % 32 != 0));
}

// The n lowest bits, n < 32.
inline unsigned int _low_bits(unsigned int _n) PLX_NOTHROW { return (1u << _n) - 1; }

// 32 bits from bit position `_at` on; with fewer than `_left` wanted no word behind them is read.
inline unsigned int _bits_at(const unsigned int *_words, size_t _at, size_t _left) PLX_NOTHROW {
  const unsigned int _shift = _at % 32;
  const unsigned int _low = _words[_at / 32] >> _shift;
  return _shift == 0 || _left <= 32 - _shift ? _low : _low | _words[_at / 32 + 1] << (32 - _shift);
}

inline void _put_bits(unsigned int *_word, unsigned int _mask, unsigned int _bits) PLX_NOTHROW {
  *_word = (*_word & ~_mask) | (_bits & _mask);
}

inline void _fill_bits(unsigned int *_words, size_t _at, size_t _n, bool _value) PLX_NOTHROW {
  const unsigned int _bits = _value ? ~0u : 0u;
  while (_n != 0) {
    const unsigned int _shift = _at % 32;
    const unsigned int _step = _n < 32 - _shift ? static_cast<unsigned int>(_n) : 32 - _shift;
    const unsigned int _mask = (_step == 32 ? ~0u : _low_bits(_step)) << _shift;
    _put_bits(_words + _at / 32, _mask, _bits);
    _at += _step;
    _n -= _step;
  }
}

// Copies n bits to lower or equal positions of the same words, or between different ones.
inline void _copy_bits(unsigned int *_to, size_t _to_at, const unsigned int *_from, size_t _from_at,
                       size_t _n) PLX_NOTHROW {
  while (_n != 0) {
    const unsigned int _shift = _to_at % 32;
    const unsigned int _step = _n < 32 - _shift ? static_cast<unsigned int>(_n) : 32 - _shift;
    const unsigned int _mask = (_step == 32 ? ~0u : _low_bits(_step)) << _shift;
    _put_bits(_to + _to_at / 32, _mask, _bits_at(_from, _from_at, _step) << _shift);
    _to_at += _step;
    _from_at += _step;
    _n -= _step;
  }
}

// Moves n bits up to higher positions of the same words.
inline void _move_bits_up(unsigned int *_words, size_t _to, size_t _from, size_t _n) PLX_NOTHROW {
  while (_n != 0) {
    const unsigned int _end = (_to + _n) % 32 != 0 ? static_cast<unsigned int>((_to + _n) % 32) : 32u;
    const unsigned int _step = _n < _end ? static_cast<unsigned int>(_n) : _end;
    _n -= _step;
    const size_t _at = _to + _n;
    const unsigned int _mask = (_step == 32 ? ~0u : _low_bits(_step)) << _at % 32;
    _put_bits(_words + _at / 32, _mask, _bits_at(_words, _from + _n, _step) << _at % 32);
  }
}

}  // namespace __zor

namespace std {

template <class _A> class PLX_API vector<bool, _A> {
  typedef typename _A::template rebind<unsigned int>::other _word_allocator;
  typedef __zor::_vector_storage<unsigned int, _word_allocator> _storage;

public:
  typedef bool value_type;
  typedef _A allocator_type;
  typedef size_t size_type;
  typedef ptrdiff_t difference_type;
  typedef __zor::_bit_reference reference;
  typedef bool const_reference;
  typedef __zor::_bit_iterator<__zor::_bit_reference, __zor::_bit_reference *> iterator;
  typedef __zor::_bit_iterator<bool, const bool *> const_iterator;
  typedef iterator pointer;
  typedef const_iterator const_pointer;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  explicit vector(const _A &_a = _A()) PLX_NOTHROW : _words_(_word_allocator(_a)), _size_(0) {}
#if __cplusplus >= 201103L
  explicit vector(size_type _n) : vector(_n, false) {}
  vector(size_type _n, const bool &_value, const _A &_a = _A())
#else
  explicit vector(size_type _n, const bool &_value = bool(), const _A &_a = _A())
#endif
      : _words_(_word_allocator(_a), _words_of(_n)), _size_(0) {
    append(_n, _value);
  }
  template <class _Iterator> vector(_Iterator _first, _Iterator _last, const _A &_a = _A())
      : _words_(_word_allocator(_a)), _size_(0) {
    _insert_range(0, _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  vector(const vector &_other) : _words_(_other._words_, _words_of(_other._size_)), _size_(0) { _copy_words(_other); }
  ~vector() {}

  vector &operator=(const vector &_other) {
    if (this == __zor::_address_of(_other)) return *this;
    if (_other._size_ > capacity()) {
      _storage _made(_words_, _words_of(_other._size_));  // of its own allocator
      _words_._swap_blocks(_made);
    }
    _copy_words(_other);
    return *this;
  }
#if __cplusplus >= 201103L
  vector(vector &&_other) noexcept : _words_(static_cast<const _word_allocator &>(_other._words_)), _size_(0) {
    swap(_other);
  }
  vector &operator=(vector &&_other) noexcept(__zor::_is_standard_allocator<_A>::value) {
    if (!__zor::_share_memory<_word_allocator>(_words_, _other._words_)) return *this = _other;
    vector _taken(static_cast<vector &&>(_other));
    swap(_taken);
    return *this;
  }
  vector(initializer_list<bool> _list, const _A &_a = _A()) : _words_(_word_allocator(_a)), _size_(0) {
    insert(end(), _list.begin(), _list.end());
  }
  vector &operator=(initializer_list<bool> _list) {
    assign(_list.begin(), _list.end());
    return *this;
  }
#endif
  template <class _Iterator> void assign(_Iterator _first, _Iterator _last) {
    _assign_range(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  void assign(size_type _n, const bool &_value) {
    const bool _copy = _value;
    if (_n > capacity()) {
      vector _made(_n, _copy, get_allocator());
      swap(_made);
    } else {
      clear();
      append(_n, _copy);
    }
  }
#if __cplusplus >= 201103L
  void assign(initializer_list<bool> _list) { assign(_list.begin(), _list.end()); }
#endif
  allocator_type get_allocator() const { return allocator_type(_words_); }

  iterator begin() PLX_NOTHROW { return _place(0); }
  const_iterator begin() const PLX_NOTHROW { return _place(0); }
  iterator end() PLX_NOTHROW { return _place(_size_); }
  const_iterator end() const PLX_NOTHROW { return _place(_size_); }
  reverse_iterator rbegin() PLX_NOTHROW { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() PLX_NOTHROW { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
  const_reverse_iterator crbegin() const noexcept { return rbegin(); }
  const_reverse_iterator crend() const noexcept { return rend(); }
  void shrink_to_fit() {
    vector _copy(*this);
    swap(_copy);
  }
#endif

  size_type size() const PLX_NOTHROW { return _size_; }
  size_type max_size() const PLX_NOTHROW {
    const size_type _words = _words_._most();
    return _words > 0x7FFFFFFFu / 32 ? 0x7FFFFFFFu : _words * 32;
  }
  void resize(size_type _n, bool _value = false) {
    if (_n > _size_)
      append(_n - _size_, _value);
    else
      _cut(_n);
  }
  size_type capacity() const PLX_NOTHROW { return _words_._room() * 32; }
  bool empty() const PLX_NOTHROW { return _size_ == 0; }
  void reserve(size_type _n) {
    if (_n > max_size()) __zor::_sequence_length_error();
    if (_n > capacity()) _grow(_n);
  }

  reference operator[](size_type _n) PLX_NOTHROW { return reference(_words_.first + _n / 32, 1u << _n % 32); }
  const_reference operator[](size_type _n) const PLX_NOTHROW { return (_words_.first[_n / 32] >> _n % 32 & 1) != 0; }
  reference at(size_type _n) {
    if (_n >= _size_) __zor::_sequence_out_of_range();
    return (*this)[_n];
  }
  const_reference at(size_type _n) const {
    if (_n >= _size_) __zor::_sequence_out_of_range();
    return (*this)[_n];
  }
  reference front() PLX_NOTHROW { return (*this)[0]; }
  const_reference front() const PLX_NOTHROW { return (*this)[0]; }
  reference back() PLX_NOTHROW { return (*this)[_size_ - 1]; }
  const_reference back() const PLX_NOTHROW { return (*this)[_size_ - 1]; }

  void push_back(const bool &_value) {
    unsigned int *const _word = _words_.first + _size_ / 32;
    // Capacities are whole words.
    if (__builtin_expect(_size_ % 32 == 0, 0)) {
      if (_size_ == capacity()) {
        append(1, _value);
        return;
      }
      _words_._last = _word + 1, *_word = 0;
    }
    *_word |= static_cast<unsigned int>(_value) << _size_ % 32;
    ++_size_;
  }
  void pop_back() PLX_NOTHROW { _cut(_size_ - 1); }

#if __cplusplus >= 201103L
  template <class... _Source> typename __zor::_emplaced<bool, reference>::_type emplace_back(_Source &&..._given) {
    push_back(bool(static_cast<_Source &&>(_given)...));
    return static_cast<typename __zor::_emplaced<bool, reference>::_type>(back());
  }
  template <class... _Source> iterator emplace(const_iterator _at, _Source &&..._given) {
    return insert(_at, bool(static_cast<_Source &&>(_given)...));
  }
  iterator insert(const_iterator _at, const bool &_value) { return insert(_at, 1, _value); }
  iterator insert(const_iterator _at, size_type _n, const bool &_value) {
    const size_type _index = _index_of(_at);
    _insert_filled(_index, _n, _value);
    return _place(_index);
  }
  template <class _Iterator> iterator insert(const_iterator _at, _Iterator _first, _Iterator _last) {
    const size_type _index = _index_of(_at);
    _insert_range(_index, _first, _last, typename __zor::_is_count<_Iterator>::_type());
    return _place(_index);
  }
  iterator insert(const_iterator _at, initializer_list<bool> _list) { return insert(_at, _list.begin(), _list.end()); }
  iterator erase(const_iterator _at) { return erase(_at, _at + 1); }
  iterator erase(const_iterator _first, const_iterator _last) {
    _close(_index_of(_first), _index_of(_last));
    return _place(_index_of(_first));
  }
#else
  iterator insert(iterator _at, const bool &_value = bool()) {
    const size_type _index = _index_of(_at);
    _insert_filled(_index, 1, _value);
    return _place(_index);
  }
  void insert(iterator _at, size_type _n, const bool &_value) { _insert_filled(_index_of(_at), _n, _value); }
  template <class _Iterator> void insert(iterator _at, _Iterator _first, _Iterator _last) {
    _insert_range(_index_of(_at), _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
  iterator erase(iterator _at) { return erase(_at, _at + 1); }
  iterator erase(iterator _first, iterator _last) {
    _close(_index_of(_first), _index_of(_last));
    return _first;
  }
#endif
  void swap(vector &_other) PLX_NOTHROW {
    _words_._swap_blocks(_other._words_);
    const size_type _n = _size_;
    _size_ = _other._size_;
    _other._size_ = _n;
  }
  static void swap(reference _a, reference _b) PLX_NOTHROW { __zor::swap(_a, _b); }
  void clear() PLX_NOTHROW { _cut(0); }
  void flip() PLX_NOTHROW {
    for (unsigned int *_word = _words_.first; _word != _words_._last; ++_word) *_word = ~*_word;
    _clear_tail();
  }

private:
  // Words of a new block; a length beyond all is reported.
  size_type _words_of(size_type _n) const {
    if (_n > 0x7FFFFFFFu) __zor::_sequence_length_error();
    return __zor::_words_for_bits(_n);
  }
  iterator _place(size_type _n) const PLX_NOTHROW { return iterator(_words_.first + _n / 32, _n % 32); }
  size_type _index_of(const const_iterator &_at) const PLX_NOTHROW {
    return static_cast<size_type>(_at._word - _words_.first) * 32 + _at._bit;
  }
  void _clear_tail() PLX_NOTHROW {
    if (_size_ % 32 != 0) _words_._last[-1] &= __zor::_low_bits(_size_ % 32);
  }
  void _cut(size_type _n) PLX_NOTHROW {
    _size_ = _n;
    _words_._last = _words_.first + __zor::_words_for_bits(_n);
    _clear_tail();
  }
  void _copy_words(const vector &_other) PLX_NOTHROW {
    _size_ = _other._size_;
    _words_._last = _words_.first + __zor::_words_for_bits(_size_);
    if (_size_ != 0) memcpy(_words_.first, _other._words_.first, __zor::_words_for_bits(_size_) * sizeof(unsigned int));
  }
  void _grow(size_type _n) {
    _storage _made(_words_, _words_of(_n));
    const size_type _used = static_cast<size_type>(_words_._last - _words_.first);
    if (_used != 0) memcpy(_made.first, _words_.first, _used * sizeof(unsigned int));
    _made._last = _made.first + _used;
    _words_._swap_blocks(_made);
  }
  // More elements at the end, not set.
  void _lengthen(size_type _n) {
    if (_n > max_size() - _size_) __zor::_sequence_length_error();
    const size_type _wanted = _size_ + _n;
    if (_wanted > capacity()) _grow(_size_ > _n ? (_size_ > max_size() / 2 ? max_size() : 2 * _size_) : _wanted);
    unsigned int *const _last = _words_.first + __zor::_words_for_bits(_wanted);
    for (; _words_._last != _last; ++_words_._last) *_words_._last = 0;
    _size_ = _wanted;
  }
  void append(size_type _n, bool _value) {
    const size_type _from = _size_;
    _lengthen(_n);
    if (_value) __zor::_fill_bits(_words_.first, _from, _n, true);
  }
  // n elements at `_at`, not set.
  void _open(size_type _at, size_type _n) {
    const size_type _tail = _size_ - _at;
    _lengthen(_n);
    if (_n != 0) __zor::_move_bits_up(_words_.first, _at + _n, _at, _tail);
  }

  void _insert_filled(size_type _at, size_type _n, bool _value) {
    _open(_at, _n);
    __zor::_fill_bits(_words_.first, _at, _n, _value);
  }
  void _close(size_type _from, size_type _to) PLX_NOTHROW {
    if (_from == _to) return;
    __zor::_copy_bits(_words_.first, _from, _words_.first, _to, _size_ - _to);
    _cut(_size_ - (_to - _from));
  }

  template <class _Integer> void _insert_range(size_type _at, _Integer _n, _Integer _value, __zor::_yes) {
    _insert_filled(_at, static_cast<size_type>(_n), static_cast<bool>(_value));
  }
  // The elements are read first: reading them may fail.
  template <class _Iterator> void _insert_range(size_type _at, _Iterator _first, _Iterator _last, __zor::_no) {
    if (_at == _size_) {
      const size_type _before = _size_;
      _trim_unless_kept _added(*this, _before);
      for (; _first != _last; ++_first) push_back(static_cast<bool>(*_first));
      _added._keep();
      return;
    }
    vector _read(get_allocator());
    for (; _first != _last; ++_first) _read.push_back(static_cast<bool>(*_first));
    _open(_at, _read._size_);
    if (_read._size_ != 0) __zor::_copy_bits(_words_.first, _at, _read._words_.first, 0, _read._size_);
  }
  class _trim_unless_kept {
  public:
    _trim_unless_kept(vector &_v, size_type _n) : _v_(_v), _n_(_n), _kept_(false) {}
    ~_trim_unless_kept() {
      if (!_kept_) _v_._cut(_n_);
    }
    void _keep() { _kept_ = true; }

  private:
    vector &_v_;
    size_type _n_;
    bool _kept_;
  };
  template <class _Integer> void _assign_range(_Integer _n, _Integer _value, __zor::_yes) {
    assign(static_cast<size_type>(_n), static_cast<bool>(_value));
  }
  template <class _Iterator> void _assign_range(_Iterator _first, _Iterator _last, __zor::_no) {
    vector _read(_first, _last, get_allocator());
    swap(_read);
  }

  template <class _Bt> friend bool operator==(const vector<bool, _Bt> &, const vector<bool, _Bt> &);

  _storage _words_;  // up to `_last` they hold elements
  size_type _size_;
};

template <class _A> inline bool operator==(const vector<bool, _A> &_left, const vector<bool, _A> &_right) {
  return _left._size_ == _right._size_ &&
         (_left._size_ == 0 || memcmp(_left._words_.first, _right._words_.first,
                                      __zor::_words_for_bits(_left._size_) * sizeof(unsigned int)) == 0);
}

}  // namespace std

#endif

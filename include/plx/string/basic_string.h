// basic_string (1998, 21.3): one pointer to a counted representation that copies share until one of them is changed.
// A thin shell over the core in string_core.h; what is on a hot path is inline, the rest of string is instantiated in
// the library.
//
// A position above size() throws out_of_range ("Out of range exception occurred"), a length of npos or more
// length_error ("Length exception occurred"), and what needs memory bad_alloc; a member that throws has changed
// nothing. Every modifier ends the use of iterators, references and c_str() from before.
//
// Where it differs from the 1998 class on purpose: an empty pattern is never found, a constructor reports the length
// npos as out of range, and inserting nothing skips the range check. docs/deviations.md has the list.
#ifndef PLX_BASIC_STRING_H
#define PLX_BASIC_STRING_H

#include <plx/base/element.h>
#include <plx/base/pointer_iterator.h>
#include <plx/base/string_fwd.h>
#include <plx/string/string_core.h>
#include <plx/string/string_search.h>

namespace __zor {

template <class _Ct> struct plx_strings_use_only_the_standard_allocator<std::allocator<_Ct> > { typedef int _type; };

// A range as contiguous characters: those of pointers and of string iterators as they are. Of any other range a string
// is made first, since its iterators may throw, or look into the string that is about to change.
template <class _String, class _Iterator> class _string_range {
public:
  _string_range(_Iterator _first, _Iterator _last) : _made_(0u, char()) {
    for (; _first != _last; ++_first) _made_.push_back(static_cast<char>(*_first));
  }
  const char *data() const PLX_NOTHROW { return _made_.data(); }
  unsigned int size() const PLX_NOTHROW { return _made_.size(); }
  const _String &_text() const PLX_NOTHROW { return _made_; }

private:
  _String _made_;
};

template <class _String> class _string_range<_String, const char *> {
public:
  _string_range(const char *_first, const char *_last) PLX_NOTHROW : _first_(_first),
                                                                     _size_(static_cast<unsigned int>(_last - _first)) {
  }
  const char *data() const PLX_NOTHROW { return _first_; }
  unsigned int size() const PLX_NOTHROW { return _size_; }
  _String _text() const { return _String(_first_, _size_); }

private:
  const char *_first_;
  unsigned int _size_;
};

template <class _String> class _string_range<_String, char *> : public _string_range<_String, const char *> {
public:
  _string_range(char *_first, char *_last) PLX_NOTHROW : _string_range<_String, const char *>(_first, _last) {}
};

template <class _String, class _Ct> class _string_range<_String, _pointer_iterator<_Ct> >
    : public _string_range<_String, const char *> {
public:
  _string_range(_pointer_iterator<_Ct> _first, _pointer_iterator<_Ct> _last) PLX_NOTHROW
      : _string_range<_String, const char *>(_first.base(), _last.base()) {}
};

}  // namespace __zor

namespace std {

template <class _Ct, class _T, class _A> class PLX_API basic_string {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
  typedef typename __zor::plx_strings_use_only_the_standard_allocator<_A>::_type _checked_allocator;
  typedef __zor::b_str_ref b_str_ref;
  typedef __zor::_string_search<_T> search;

public:
  typedef _T traits_type;
  typedef typename _T::char_type value_type;
  typedef _A allocator_type;
  typedef typename _A::size_type size_type;
  typedef typename _A::difference_type difference_type;
  typedef typename _A::reference reference;
  typedef typename _A::const_reference const_reference;
  typedef typename _A::pointer pointer;
  typedef typename _A::const_pointer const_pointer;
  typedef __zor::_pointer_iterator<_Ct> iterator;
  typedef __zor::_pointer_iterator<const _Ct> const_iterator;
  typedef std::reverse_iterator<iterator> reverse_iterator;
  typedef std::reverse_iterator<const_iterator> const_reverse_iterator;

  static const size_type npos = static_cast<size_type>(-1);

  // Construction, copying, destruction. A copy shares, unless a reference into the source's characters may be in use.

  basic_string() PLX_NOTHROW : _rep_(_empty_rep()) {}
  explicit basic_string(const _A &) PLX_NOTHROW : _rep_(_empty_rep()) {}
  basic_string(const basic_string &_other) : _rep_(_share(_other._rep_)) {}
  basic_string(const basic_string &_other, size_type _pos, size_type _n = npos, const _A & = _A())
      : _rep_(__zor::_string_part(_other._rep_, _pos, _n)) {}
  basic_string(const _Ct *_text, size_type _n, const _A & = _A()) : _rep_(__zor::_string_make(_text, _n)) {}
  basic_string(const _Ct *_text, const _A & = _A()) : _rep_(__zor::_string_make(_text, _length_of(_text))) {}
  basic_string(size_type _n, _Ct _c, const _A &_allocator = _A()) { _initialize_storage(_n, _c, _allocator); }
  template <class _Iterator> basic_string(_Iterator _first, _Iterator _last, const _A & = _A())
      : _rep_(_made_from(_first, _last, typename __zor::_is_count<_Iterator>::_type())) {}
#if __cplusplus >= 201103L
  basic_string(basic_string &&_other) noexcept : _rep_(_other._rep_) { _other._rep_ = _empty_rep(); }
#endif
#if !PLX_MEMBERS_OF_1998
  PLX_LATER basic_string(initializer_list<_Ct> _list, const _A & = _A())
      : _rep_(__zor::_string_make(_list.begin(), _list.size())) {}
#endif
  ~basic_string() PLX_NOTHROW { release(_rep_); }

  basic_string &operator=(const basic_string &_other) {
    if (_rep_ != _other._rep_) {
      b_str_ref *_acquired = _share(_other._rep_);
      release(_rep_);
      _rep_ = _acquired;
    }
    return *this;
  }
#if __cplusplus >= 201103L
  basic_string &operator=(basic_string &&_other) noexcept {
    swap(_other);
    return *this;
  }
#endif
  basic_string &operator=(const _Ct *_text) { return assign(_text, _length_of(_text)); }
  basic_string &operator=(_Ct _c) { return assign(&_c, 1); }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER basic_string &operator=(initializer_list<_Ct> _list) { return assign(_list); }
#endif

  // Iterators. What gives a way to change characters makes the string's representation private and unshareable, until
  // the next modifier.

  iterator begin() { return iterator(_exposed()); }
  const_iterator begin() const PLX_NOTHROW { return const_iterator(_rep_->data); }
  iterator end() { return iterator(_exposed() + _rep_->length); }
  const_iterator end() const PLX_NOTHROW { return const_iterator(_rep_->data + _rep_->length); }
  reverse_iterator rbegin() { return reverse_iterator(end()); }
  const_reverse_iterator rbegin() const PLX_NOTHROW { return const_reverse_iterator(end()); }
  reverse_iterator rend() { return reverse_iterator(begin()); }
  const_reverse_iterator rend() const PLX_NOTHROW { return const_reverse_iterator(begin()); }
#if __cplusplus >= 201103L
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
#endif
#if !PLX_MEMBERS_OF_1998
  PLX_LATER const_reverse_iterator crbegin() const noexcept { return rbegin(); }
  PLX_LATER const_reverse_iterator crend() const noexcept { return rend(); }
  PLX_LATER void shrink_to_fit() noexcept {}
#endif

  // Size. The capacity reported counts the place of the terminating null character; size() never exceeds it.

  size_type size() const PLX_NOTHROW { return _rep_->length; }
  size_type length() const PLX_NOTHROW { return _rep_->length; }
  size_type max_size() const PLX_NOTHROW { return npos - 1; }
  void resize(size_type _n, _Ct _c) { __zor::_string_resize(_rep_, _n, _c); }
  void resize(size_type _n) { __zor::_string_resize(_rep_, _n, _Ct()); }
  size_type capacity() const PLX_NOTHROW { return _rep_->capacity; }
  void reserve(size_type _n = 0) { __zor::_string_reserve(_rep_, _n); }
  void clear() PLX_NOTHROW {
    if (__zor::_string_is_private(_rep_)) {
      _rep_->count = 1;
      _rep_->length = 0;
      _rep_->data[0] = _Ct();
    } else {
      --_rep_->count;
      _rep_ = _empty_rep();
    }
  }
  bool empty() const PLX_NOTHROW { return _rep_->length == 0; }

  // Characters. The const operator[] does not check; the other accepts size() as well.

  const_reference operator[](size_type _pos) const PLX_NOTHROW { return _rep_->data[_pos]; }
  reference operator[](size_type _pos) {
    if (__builtin_expect(!__zor::_string_is_unshareable(_rep_) || _pos > _rep_->length, false))
      __zor::_string_expose_at(_rep_, _pos);
    return _rep_->data[_pos];
  }
  const_reference at(size_type _pos) const {
    if (_pos >= _rep_->length) __zor::_string_out_of_range();
    return _rep_->data[_pos];
  }
  reference at(size_type _pos) {
    if (_pos >= _rep_->length) __zor::_string_out_of_range();
    return _exposed()[_pos];
  }
#if __cplusplus >= 201103L
  reference front() { return _exposed()[0]; }
  const_reference front() const noexcept { return _rep_->data[0]; }
  reference back() { return _exposed()[_rep_->length - 1]; }
  const_reference back() const noexcept { return _rep_->data[_rep_->length - 1]; }
#endif

  // Appending.

  basic_string &operator+=(const basic_string &_other) { return append(_other); }
  basic_string &operator+=(const _Ct *_text) { return append(_text, _T::length(_text)); }
  basic_string &operator+=(_Ct _c) {
    push_back(_c);
    return *this;
  }
  basic_string &append(const basic_string &_other) { return append(_other._rep_->data, _other._rep_->length); }
  basic_string &append(const basic_string &_other, size_type _pos, size_type _n) {
    return append(_other._from(_pos), _other._clipped(_pos, _n));
  }
  basic_string &append(const _Ct *_text, size_type _n) {
    // As in text += ",".
    if (__builtin_constant_p(_n) && _n == 1)
      push_back(*_text);
    else
      __zor::_string_append(_rep_, _text, _n);
    return *this;
  }
  basic_string &append(const _Ct *_text) { return append(_text, _T::length(_text)); }
  basic_string &append(size_type _n, _Ct _c) {
    __zor::_string_append_filled(_rep_, _n, _c);
    return *this;
  }
  template <class _Iterator> basic_string &append(_Iterator _first, _Iterator _last) {
    return _append_range(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER basic_string &operator+=(initializer_list<_Ct> _list) { return append(_list); }
  PLX_LATER basic_string &append(initializer_list<_Ct> _list) { return append(_list.begin(), _list.size()); }
#endif
  void push_back(_Ct _c) {
    b_str_ref *_rep = _rep_;
    const size_type _n = _rep->length + 1;
    if (_rep->count == 1 && (_n < _rep->capacity || __zor::_string_widen(_rep, _n))) {
      _Ct *_place = _rep->data + _n;
      _rep->length = _n;
      _place[-1] = _c;
      _place[0] = _Ct();
    } else {
      __zor::_string_append_one(_rep_, _c);
    }
  }
#if __cplusplus >= 201103L
  void pop_back() { erase(_rep_->length - 1, 1); }
#endif

  // Assignment.

  basic_string &assign(const basic_string &_other) { return *this = _other; }
  basic_string &assign(const basic_string &_other, size_type _pos, size_type _n) {
    return assign(_other._from(_pos), _other._clipped(_pos, _n));
  }
  basic_string &assign(const _Ct *_text, size_type _n) {
    __zor::_string_assign(_rep_, _text, _n);
    return *this;
  }
  basic_string &assign(const _Ct *_text) { return assign(_text, _T::length(_text)); }
  basic_string &assign(size_type _n, _Ct _c) {
    __zor::_string_assign_filled(_rep_, _n, _c);
    return *this;
  }
  template <class _Iterator> basic_string &assign(_Iterator _first, _Iterator _last) {
    return _assign_range(_first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER basic_string &assign(basic_string &&_other) { return *this = static_cast<basic_string &&>(_other); }
  PLX_LATER basic_string &assign(initializer_list<_Ct> _list) { return assign(_list.begin(), _list.size()); }
#endif

  // Insertion. An empty sequence is inserted without a look at the position.

  basic_string &insert(size_type _pos, const basic_string &_other) {
    return insert(_pos, _other._rep_->data, _other._rep_->length);
  }
  basic_string &insert(size_type _pos, const basic_string &_other, size_type _other_pos, size_type _n) {
    return insert(_pos, _other._from(_other_pos), _other._clipped(_other_pos, _n));
  }
  basic_string &insert(size_type _pos, const _Ct *_text, size_type _n) {
    __zor::_string_insert(_rep_, _pos, _text, _n);
    return *this;
  }
  basic_string &insert(size_type _pos, const _Ct *_text) { return insert(_pos, _text, _length_of(_text)); }
  basic_string &insert(size_type _pos, size_type _n, _Ct _c) {
    __zor::_string_insert_filled(_rep_, _pos, _n, _c);
    return *this;
  }
  iterator insert(iterator _at, _Ct _c) {
    const size_type _pos = _index_of(_at);
    __zor::_string_insert_filled(_rep_, _pos, 1, _c);
    return iterator(_exposed() + _pos);
  }
#if PLX_MEMBERS_OF_1998
  void insert(iterator _at, size_type _n, _Ct _c) { __zor::_string_insert_filled(_rep_, _index_of(_at), _n, _c); }
  template <class _Iterator> void insert(iterator _at, _Iterator _first, _Iterator _last) {
    _insert_range(_index_of(_at), _first, _last, typename __zor::_is_count<_Iterator>::_type());
  }
#else
  PLX_LATER iterator insert(const_iterator _at, _Ct _c) { return insert(_at, 1, _c); }
  PLX_LATER iterator insert(const_iterator _at, size_type _n, _Ct _c) {
    const size_type _pos = _place(_at);
    __zor::_string_insert_filled(_rep_, _pos, _n, _c);
    return iterator(_exposed() + _pos);
  }
  template <class _Iterator> iterator insert(const_iterator _at, _Iterator _first, _Iterator _last) {
    const size_type _pos = _place(_at);
    _insert_range(_pos, _first, _last, typename __zor::_is_count<_Iterator>::_type());
    return iterator(_exposed() + _pos);
  }
  PLX_LATER iterator insert(const_iterator _at, initializer_list<_Ct> _list) {
    return insert(_at, _list.begin(), _list.end());
  }
#endif

  // Erasure.

  basic_string &erase(size_type _pos = 0, size_type _n = npos) {
    __zor::_string_erase(_rep_, _pos, _n);
    return *this;
  }
  iterator erase(iterator _at) {
    const size_type _pos = _index_of(_at);
    __zor::_string_erase(_rep_, _pos, 1);
    return iterator(_exposed() + _pos);
  }
  iterator erase(iterator _first, iterator _last) {
    const size_type _pos = _index_of(_first);
    __zor::_string_erase(_rep_, _pos, static_cast<size_type>(_last - _first));
    return iterator(_exposed() + _pos);
  }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER iterator erase(const_iterator _at) { return erase(_at, _at + 1); }
  PLX_LATER iterator erase(const_iterator _first, const_iterator _last) {
    const size_type _pos = _place(_first);
    __zor::_string_erase(_rep_, _pos, static_cast<size_type>(_last - _first));
    return iterator(_exposed() + _pos);
  }
#endif

  // Replacement.

  basic_string &replace(size_type _pos, size_type _n1, const basic_string &_other) {
    return replace(_pos, _n1, _other._rep_->data, _other._rep_->length);
  }
  basic_string &replace(size_type _pos, size_type _n1, const basic_string &_other, size_type _other_pos,
                        size_type _n2) {
    return replace(_pos, _n1, _other._from(_other_pos), _other._clipped(_other_pos, _n2));
  }
  basic_string &replace(size_type _pos, size_type _n1, const _Ct *_text, size_type _n2) {
    __zor::_string_replace(_rep_, _pos, _n1, _text, _n2);
    return *this;
  }
  basic_string &replace(size_type _pos, size_type _n1, const _Ct *_text) {
    return replace(_pos, _n1, _text, _length_of(_text));
  }
  basic_string &replace(size_type _pos, size_type _n1, size_type _n2, _Ct _c) {
    __zor::_string_replace_filled(_rep_, _pos, _n1, _n2, _c);
    return *this;
  }
  basic_string &replace(iterator _first, iterator _last, const basic_string &_other) {
    return replace(_index_of(_first), _count_of(_first, _last), _other);
  }
  basic_string &replace(iterator _first, iterator _last, const _Ct *_text, size_type _n) {
    return replace(_index_of(_first), _count_of(_first, _last), _text, _n);
  }
  basic_string &replace(iterator _first, iterator _last, const _Ct *_text) {
    return replace(_index_of(_first), _count_of(_first, _last), _text, _length_of(_text));
  }
  basic_string &replace(iterator _first, iterator _last, size_type _n, _Ct _c) {
    return replace(_index_of(_first), _count_of(_first, _last), _n, _c);
  }
  template <class _Iterator>
  basic_string &replace(iterator _first1, iterator _last1, _Iterator _first2, _Iterator _last2) {
    return _replace_range(_index_of(_first1), _count_of(_first1, _last1), _first2, _last2,
                          typename __zor::_is_count<_Iterator>::_type());
  }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER basic_string &replace(const_iterator _first, const_iterator _last, const basic_string &_other) {
    return replace(_place(_first), static_cast<size_type>(_last - _first), _other);
  }
  PLX_LATER basic_string &replace(const_iterator _first, const_iterator _last, const _Ct *_text, size_type _n) {
    return replace(_place(_first), static_cast<size_type>(_last - _first), _text, _n);
  }
  PLX_LATER basic_string &replace(const_iterator _first, const_iterator _last, const _Ct *_text) {
    return replace(_place(_first), static_cast<size_type>(_last - _first), _text);
  }
  PLX_LATER basic_string &replace(const_iterator _first, const_iterator _last, size_type _n, _Ct _c) {
    return replace(_place(_first), static_cast<size_type>(_last - _first), _n, _c);
  }
  template <class _Iterator>
  basic_string &replace(const_iterator _first1, const_iterator _last1, _Iterator _first2, _Iterator _last2) {
    return _replace_range(_place(_first1), static_cast<size_type>(_last1 - _first1), _first2, _last2,
                          typename __zor::_is_count<_Iterator>::_type());
  }
  PLX_LATER basic_string &replace(const_iterator _first, const_iterator _last, initializer_list<_Ct> _list) {
    return replace(_first, _last, _list.begin(), _list.size());
  }
  // Or a list for a string by iterators that are not constant would be ambiguous.
  PLX_LATER basic_string &replace(iterator _first, iterator _last, initializer_list<_Ct> _list) {
    return replace(_first, _last, _list.begin(), _list.size());
  }
#endif

  // Copies characters out; writes no terminator.
  size_type copy(_Ct *_to, size_type _n, size_type _pos = 0) const {
    const _Ct *_source = _from(_pos);
    _n = _clipped(_pos, _n);
    _T::copy(_to, _source, _n);
    return _n;
  }

  void swap(basic_string &_other) PLX_NOTHROW {
    b_str_ref *_rep = _rep_;
    _rep_ = _other._rep_;
    _other._rep_ = _rep;
  }

  const _Ct *c_str() const PLX_NOTHROW { return _rep_->data; }
  const _Ct *data() const PLX_NOTHROW { return _rep_->data; }
  _A get_allocator() const PLX_NOTHROW { return _rep_->allocator; }

  // Searching.

  size_type find(const basic_string &_other, size_type _pos = 0) const PLX_NOTHROW {
    return search::find(_rep_, _other._rep_->data, _pos, _other._rep_->length);
  }
  size_type find(const _Ct *_text, size_type _pos, size_type _n) const PLX_NOTHROW {
    return search::find(_rep_, _text, _pos, _n);
  }
  size_type find(const _Ct *_text, size_type _pos = 0) const PLX_NOTHROW {
    return search::find(_rep_, _text, _pos, _T::length(_text));
  }
  size_type find(_Ct _c, size_type _pos = 0) const PLX_NOTHROW {
    if (_pos >= _rep_->length) return npos;
    const _Ct *_found = _T::find(_rep_->data + _pos, _rep_->length - _pos, _c);
    return _found ? static_cast<size_type>(_found - _rep_->data) : npos;
  }

  size_type rfind(const basic_string &_other, size_type _pos = npos) const PLX_NOTHROW {
    return search::rfind(_rep_, _other._rep_->data, _pos, _other._rep_->length);
  }
  size_type rfind(const _Ct *_text, size_type _pos, size_type _n) const PLX_NOTHROW {
    return search::rfind(_rep_, _text, _pos, _n);
  }
  size_type rfind(const _Ct *_text, size_type _pos = npos) const PLX_NOTHROW {
    return search::rfind(_rep_, _text, _pos, _T::length(_text));
  }
  size_type rfind(_Ct _c, size_type _pos = npos) const PLX_NOTHROW { return search::rfind(_rep_, &_c, _pos, 1); }

  size_type find_first_of(const basic_string &_set, size_type _pos = 0) const PLX_NOTHROW {
    return search::find_first_of(_rep_, _set._rep_->data, _pos, _set._rep_->length);
  }
  size_type find_first_of(const _Ct *_set, size_type _pos, size_type _n) const PLX_NOTHROW {
    return search::find_first_of(_rep_, _set, _pos, _n);
  }
  size_type find_first_of(const _Ct *_set, size_type _pos = 0) const PLX_NOTHROW {
    return search::find_first_of(_rep_, _set, _pos, _T::length(_set));
  }
  size_type find_first_of(_Ct _c, size_type _pos = 0) const PLX_NOTHROW { return find(_c, _pos); }

  size_type find_last_of(const basic_string &_set, size_type _pos = npos) const PLX_NOTHROW {
    return search::find_last_of(_rep_, _set._rep_->data, _pos, _set._rep_->length);
  }
  size_type find_last_of(const _Ct *_set, size_type _pos, size_type _n) const PLX_NOTHROW {
    return search::find_last_of(_rep_, _set, _pos, _n);
  }
  size_type find_last_of(const _Ct *_set, size_type _pos = npos) const PLX_NOTHROW {
    return search::find_last_of(_rep_, _set, _pos, _T::length(_set));
  }
  size_type find_last_of(_Ct _c, size_type _pos = npos) const PLX_NOTHROW { return rfind(_c, _pos); }

  size_type find_first_not_of(const basic_string &_set, size_type _pos = 0) const PLX_NOTHROW {
    return search::find_first_not_of(_rep_, _set._rep_->data, _pos, _set._rep_->length);
  }
  size_type find_first_not_of(const _Ct *_set, size_type _pos, size_type _n) const PLX_NOTHROW {
    return search::find_first_not_of(_rep_, _set, _pos, _n);
  }
  size_type find_first_not_of(const _Ct *_set, size_type _pos = 0) const PLX_NOTHROW {
    return search::find_first_not_of(_rep_, _set, _pos, _T::length(_set));
  }
  size_type find_first_not_of(_Ct _c, size_type _pos = 0) const PLX_NOTHROW {
    return search::find_first_not_of(_rep_, &_c, _pos, 1);
  }

  size_type find_last_not_of(const basic_string &_set, size_type _pos = npos) const PLX_NOTHROW {
    return search::find_last_not_of(_rep_, _set._rep_->data, _pos, _set._rep_->length);
  }
  size_type find_last_not_of(const _Ct *_set, size_type _pos, size_type _n) const PLX_NOTHROW {
    return search::find_last_not_of(_rep_, _set, _pos, _n);
  }
  size_type find_last_not_of(const _Ct *_set, size_type _pos = npos) const PLX_NOTHROW {
    return search::find_last_not_of(_rep_, _set, _pos, _T::length(_set));
  }
  size_type find_last_not_of(_Ct _c, size_type _pos = npos) const PLX_NOTHROW {
    return search::find_last_not_of(_rep_, &_c, _pos, 1);
  }

  basic_string substr(size_type _pos = 0, size_type _n = npos) const { return basic_string(*this, _pos, _n); }

  // Comparison: negative, 0 or positive.

  int compare(const basic_string &_other) const PLX_NOTHROW {
    return _compared(_rep_->data, _rep_->length, _other._rep_->data, _other._rep_->length);
  }
  int compare(size_type _pos, size_type _n, const basic_string &_other) const {
    const _Ct *_part = _from(_pos);
    return _compared(_part, _clipped(_pos, _n), _other._rep_->data, _other._rep_->length);
  }
  int compare(size_type _pos, size_type _n, const basic_string &_other, size_type _other_pos,
              size_type _other_n) const {
    const _Ct *_part = _from(_pos);
    const _Ct *_other_part = _other._from(_other_pos);
    return _compared(_part, _clipped(_pos, _n), _other_part, _other._clipped(_other_pos, _other_n));
  }
  int compare(const _Ct *_text) const PLX_NOTHROW {
    return _compared(_rep_->data, _rep_->length, _text, _T::length(_text));
  }
  int compare(size_type _pos, size_type _n, const _Ct *_text) const {
    return compare(_pos, _n, _text, _T::length(_text));
  }
  int compare(size_type _pos, size_type _n, const _Ct *_text, size_type _text_n) const {
    const _Ct *_part = _from(_pos);
    return _compared(_part, _clipped(_pos, _n), _text, _text_n);
  }

private:
  // Once it is set, one reference is its own: it is never freed.
  static b_str_ref *nullbuf;

  struct _adopt {};
  basic_string(b_str_ref *_rep, _adopt) PLX_NOTHROW : _rep_(_rep) {}

  static b_str_ref *_empty_rep() PLX_NOTHROW {
    if (!nullbuf) __zor::_string_make_null(nullbuf);
    ++nullbuf->count;
    return nullbuf;
  }
  static b_str_ref *_share(b_str_ref *_rep) {
    if (__zor::_string_is_unshareable(_rep)) return __zor::_string_make(_rep->data, _rep->length);
    ++_rep->count;
    return _rep;
  }
  static void release(b_str_ref *_rep) PLX_NOTHROW {
    if (__zor::_string_is_private(_rep))
      __zor::_string_free(_rep);
    else
      --_rep->count;
  }
  _Ct *_exposed() {
    if (__builtin_expect(!__zor::_string_is_unshareable(_rep_), false)) __zor::_string_expose(_rep_);
    return _rep_->data;
  }

  void _initialize_storage(size_type _n, _Ct _c, const _A &) { _rep_ = __zor::_string_make_filled(_n, _c); }

  static size_type _length_of(const _Ct *_text) PLX_NOTHROW { return _text ? _T::length(_text) : 0; }
  const _Ct *_from(size_type _pos) const {
    if (_pos > _rep_->length) __zor::_string_out_of_range();
    return _rep_->data + _pos;
  }
  size_type _clipped(size_type _pos, size_type _n) const PLX_NOTHROW {
    return _n < _rep_->length - _pos ? _n : _rep_->length - _pos;
  }
  static int _compared(const _Ct *_left, size_type _left_n, const _Ct *_right, size_type _right_n) PLX_NOTHROW {
    const int _order = _T::compare(_left, _right, _left_n < _right_n ? _left_n : _right_n);
    return _order != 0 ? _order : _left_n < _right_n ? -1 : _left_n != _right_n;
  }

  size_type _index_of(iterator _at) const PLX_NOTHROW { return static_cast<size_type>(_at.base() - _rep_->data); }
#if !PLX_MEMBERS_OF_1998
  PLX_LATER size_type _place(const_iterator _at) const noexcept {
    return static_cast<size_type>(_at.base() - _rep_->data);
  }
#endif
  static size_type _count_of(iterator _first, iterator _last) PLX_NOTHROW {
    return static_cast<size_type>(_last - _first);
  }

  // Ranges: two integers are a count and a character, anything else a sequence.

  template <class _Nv> static b_str_ref *_made_from(_Nv _n, _Nv _c, __zor::_yes) {
    return __zor::_string_make_filled(static_cast<size_type>(_n), static_cast<_Ct>(_c));
  }
  template <class _Iterator> static b_str_ref *_made_from(_Iterator _first, _Iterator _last, __zor::_no) {
    const __zor::_string_range<basic_string, _Iterator> _range(_first, _last);
    const basic_string _made(_range._text());
    return _share(_made._rep_);
  }
  template <class _Nv> basic_string &_append_range(_Nv _n, _Nv _c, __zor::_yes) {
    return append(static_cast<size_type>(_n), static_cast<_Ct>(_c));
  }
  template <class _Iterator> basic_string &_append_range(_Iterator _first, _Iterator _last, __zor::_no) {
    const __zor::_string_range<basic_string, _Iterator> _range(_first, _last);
    return append(_range.data(), _range.size());
  }
  template <class _Nv> basic_string &_assign_range(_Nv _n, _Nv _c, __zor::_yes) {
    return assign(static_cast<size_type>(_n), static_cast<_Ct>(_c));
  }
  template <class _Iterator> basic_string &_assign_range(_Iterator _first, _Iterator _last, __zor::_no) {
    const __zor::_string_range<basic_string, _Iterator> _range(_first, _last);
    return assign(_range.data(), _range.size());
  }
  template <class _Nv> void _insert_range(size_type _pos, _Nv _n, _Nv _c, __zor::_yes) {
    insert(_pos, static_cast<size_type>(_n), static_cast<_Ct>(_c));
  }
  template <class _Iterator> void _insert_range(size_type _pos, _Iterator _first, _Iterator _last, __zor::_no) {
    const __zor::_string_range<basic_string, _Iterator> _range(_first, _last);
    insert(_pos, _range.data(), _range.size());
  }
  template <class _Nv> basic_string &_replace_range(size_type _pos, size_type _n1, _Nv _n2, _Nv _c, __zor::_yes) {
    return replace(_pos, _n1, static_cast<size_type>(_n2), static_cast<_Ct>(_c));
  }
  template <class _Iterator>
  basic_string &_replace_range(size_type _pos, size_type _n1, _Iterator _first, _Iterator _last, __zor::_no) {
    const __zor::_string_range<basic_string, _Iterator> _range(_first, _last);
    return replace(_pos, _n1, _range.data(), _range.size());
  }

  b_str_ref *_rep_;

  template <class _C2, class _T2, class _A2>
  friend basic_string<_C2, _T2, _A2> operator+(const basic_string<_C2, _T2, _A2> &,
                                               const basic_string<_C2, _T2, _A2> &);
  template <class _C2, class _T2, class _A2>
  friend basic_string<_C2, _T2, _A2> operator+(const _C2 *, const basic_string<_C2, _T2, _A2> &);
  template <class _C2, class _T2, class _A2>
  friend basic_string<_C2, _T2, _A2> operator+(_C2, const basic_string<_C2, _T2, _A2> &);
  template <class _C2, class _T2, class _A2>
  friend basic_string<_C2, _T2, _A2> operator+(const basic_string<_C2, _T2, _A2> &, const _C2 *);
  template <class _C2, class _T2, class _A2>
  friend basic_string<_C2, _T2, _A2> operator+(const basic_string<_C2, _T2, _A2> &, _C2);
};

template <class _Ct, class _T, class _A>
const typename basic_string<_Ct, _T, _A>::size_type basic_string<_Ct, _T, _A>::npos;
template <class _Ct, class _T, class _A> __zor::b_str_ref *basic_string<_Ct, _T, _A>::nullbuf;

template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(const basic_string<_Ct, _T, _A> &_left,
                                           const basic_string<_Ct, _T, _A> &_right) {
  typedef basic_string<_Ct, _T, _A> _made;
  return _made(__zor::_string_join(_left.data(), _left.size(), _right.data(), _right.size()), typename _made::_adopt());
}
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) {
  typedef basic_string<_Ct, _T, _A> _made;
  return _made(__zor::_string_join(_left, _T::length(_left), _right.data(), _right.size()), typename _made::_adopt());
}
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(_Ct _left, const basic_string<_Ct, _T, _A> &_right) {
  typedef basic_string<_Ct, _T, _A> _made;
  return _made(__zor::_string_join(&_left, 1, _right.data(), _right.size()), typename _made::_adopt());
}
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) {
  typedef basic_string<_Ct, _T, _A> _made;
  return _made(__zor::_string_join(_left.data(), _left.size(), _right, _T::length(_right)), typename _made::_adopt());
}
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(const basic_string<_Ct, _T, _A> &_left, _Ct _right) {
  typedef basic_string<_Ct, _T, _A> _made;
  return _made(__zor::_string_join(_left.data(), _left.size(), &_right, 1), typename _made::_adopt());
}
#if __cplusplus >= 201103L
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(basic_string<_Ct, _T, _A> &&_left, const basic_string<_Ct, _T, _A> &_right) {
  return static_cast<basic_string<_Ct, _T, _A> &&>(_left.append(_right));
}
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(basic_string<_Ct, _T, _A> &&_left, const _Ct *_right) {
  return static_cast<basic_string<_Ct, _T, _A> &&>(_left.append(_right));
}
template <class _Ct, class _T, class _A>
inline basic_string<_Ct, _T, _A> operator+(basic_string<_Ct, _T, _A> &&_left, _Ct _right) {
  return static_cast<basic_string<_Ct, _T, _A> &&>(_left += _right);
}
#endif

template <class _Ct, class _T, class _A>
inline bool operator==(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _left.size() == _right.size() && _T::compare(_left.data(), _right.data(), _left.size()) == 0;
}
template <class _Ct, class _T, class _A>
inline bool operator==(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _right == _left;
}
template <class _Ct, class _T, class _A>
inline bool operator==(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) PLX_NOTHROW {
  const typename basic_string<_Ct, _T, _A>::size_type _n = _T::length(_right);
  return _left.size() == _n && _T::compare(_left.data(), _right, _n) == 0;
}

template <class _Ct, class _T, class _A>
inline bool operator!=(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return !(_left == _right);
}
template <class _Ct, class _T, class _A>
inline bool operator!=(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return !(_right == _left);
}
template <class _Ct, class _T, class _A>
inline bool operator!=(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) PLX_NOTHROW {
  return !(_left == _right);
}

template <class _Ct, class _T, class _A>
inline bool operator<(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _left.compare(_right) < 0;
}
template <class _Ct, class _T, class _A>
inline bool operator<(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _right.compare(_left) > 0;
}
template <class _Ct, class _T, class _A>
inline bool operator<(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) PLX_NOTHROW {
  return _left.compare(_right) < 0;
}

template <class _Ct, class _T, class _A>
inline bool operator>(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _left.compare(_right) > 0;
}
template <class _Ct, class _T, class _A>
inline bool operator>(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _right.compare(_left) < 0;
}
template <class _Ct, class _T, class _A>
inline bool operator>(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) PLX_NOTHROW {
  return _left.compare(_right) > 0;
}

template <class _Ct, class _T, class _A>
inline bool operator<=(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _left.compare(_right) <= 0;
}
template <class _Ct, class _T, class _A>
inline bool operator<=(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _right.compare(_left) >= 0;
}
template <class _Ct, class _T, class _A>
inline bool operator<=(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) PLX_NOTHROW {
  return _left.compare(_right) <= 0;
}

template <class _Ct, class _T, class _A>
inline bool operator>=(const basic_string<_Ct, _T, _A> &_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _left.compare(_right) >= 0;
}
template <class _Ct, class _T, class _A>
inline bool operator>=(const _Ct *_left, const basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  return _right.compare(_left) <= 0;
}
template <class _Ct, class _T, class _A>
inline bool operator>=(const basic_string<_Ct, _T, _A> &_left, const _Ct *_right) PLX_NOTHROW {
  return _left.compare(_right) >= 0;
}

template <class _Ct, class _T, class _A>
inline void swap(basic_string<_Ct, _T, _A> &_left, basic_string<_Ct, _T, _A> &_right) PLX_NOTHROW {
  _left.swap(_right);
}

__extension__ extern template class PLX_API basic_string<char, char_traits<char>, allocator<char> >;

}  // namespace std

#endif

// What vector, deque and list share: their errors, which types may be moved as bytes, growing blocks, and making and
// destroying ranges of elements through the allocator.
#ifndef PLX_SEQUENCE_H
#define PLX_SEQUENCE_H

#include <stddef.h>
#include <string.h>

#include <plx/base/algobase.h>
#include <plx/base/cleanup.h>
#include <plx/base/element.h>
#include <plx/base/relocatable.h>
#include <plx/base/string_fwd.h>
#include <plx/base/type_properties.h>
#include <plx/base/unwrap_iterator.h>

namespace __zor {

// A block of `_bytes` from operator new that begins with the first `_used` bytes of `_block`, which is given up. A null
// block is none. Throws bad_alloc, and then the block is as it was.
PLX_API PLX_REGPARM void *_grow_block(void *_block, size_t _used, size_t _bytes);

// ---- Types ---------------------------------------------------------------------------------------------------------

// The path for elements _T with the allocator A. Another allocator's construct and destroy are called for each.
// Containers ask in their functions only: a class may have a container of itself as a member, where it is still
// incomplete.
template <class _T, class _A> struct _element_traits {
  static const bool _standard = _is_standard_allocator<_A>::value;
  typedef typename _truth<_standard && _is_plain<_T>::value>::_type _plain;
  typedef typename _truth<_standard && _is_relocatable<_T>::value>::_type _relocatable;
  typedef typename _truth<_standard && _is_trivially_destroyed<_T>::value>::_type _trivially_destroyed;
  typedef typename _truth<_standard && _is_scalar<_T>::value>::_type _number;
};

// How a value goes to a function that is not inline: numbers by value, because a reference would keep the caller's
// variable in memory.
template <class _T, bool _scalar> struct _passed_as { typedef const _T &_type; };
template <class _T> struct _passed_as<_T, true> { typedef _T _type; };
template <class _T> struct _passed { typedef typename _passed_as<_T, _is_scalar<_T>::value>::_type _type; };

// Is a range of these iterators an array of _T?
template <class _Iterator, class _T> struct _is_array_of { static const bool value = false; };
template <class _T> struct _is_array_of<_T *, _T> { static const bool value = true; };
template <class _T> struct _is_array_of<const _T *, _T> { static const bool value = true; };

inline void _slide_bytes(void *_to, const void *_from, const void *_end) PLX_NOTHROW {
  memmove(_to, _from, static_cast<size_t>(static_cast<const char *>(_end) - static_cast<const char *>(_from)));
}

// ---- Destroying ----------------------------------------------------------------------------------------------------

template <class _T, class _A> inline void _destroy_range(_A &, _T *, _T *, _yes) PLX_NOTHROW {}
template <class _T, class _A> inline void _destroy_range(_A &_a, _T *_first, _T *_last, _no) {
  for (; _first != _last; ++_first) _a.destroy(_first);
}
template <class _T, class _A> inline void _destroy_range(_A &_a, _T *_first, _T *_last) {
  __zor::_destroy_range(_a, _first, _last, typename _element_traits<_T, _A>::_trivially_destroyed());
}

// ---- Making --------------------------------------------------------------------------------------------------------

// Elements that were made from `_first` on; it destroys them unless they are kept.
template <class _T, class _A> class _made_elements {
public:
  _made_elements(_A &_a, _T *const &_first) : _allocator_(_a), _first_(_first), at(_first) {}
  ~_made_elements() { __zor::_destroy_range(_allocator_, _first_, at); }

  template <PLX_SOURCE_TYPES> void _add(PLX_SOURCE) {
    __zor::_make_element(_allocator_, at, PLX_FORWARD_SOURCE);
    ++at;
  }
  _T *_keep() {
    _first_ = at;
    return at;
  }

private:
  _made_elements(const _made_elements &);
  _made_elements &operator=(const _made_elements &);

  _A &_allocator_;
  _T *_first_;

public:
  _T *at;
};

// All return the end of what was made. When one throws nothing is left.

template <class _T, class _A, class _Iterator>
inline _T *_make_copies(_A &, _T *_to, _Iterator _first, _Iterator _last, _yes) {
  const size_t _n = static_cast<size_t>(_last - _first);
  if (_n != 0) memcpy(static_cast<void *>(_to), _first, _n * sizeof(_T));
  return _to + _n;
}
template <class _T, class _A, class _Iterator>
inline _T *_make_copies(_A &_a, _T *_to, _Iterator _first, _Iterator _last, _no) {
  _made_elements<_T, _A> _made(_a, _to);
  for (; _first != _last; ++_first) _made._add(*_first);
  return _made._keep();
}
template <class _T, class _A, class _Iterator>
inline _T *_make_copies_of(_A &_a, _T *_to, _Iterator _first, _Iterator _last) {
  typedef _element_traits<_T, _A> _traits;
  return __zor::_make_copies(_a, _to, _first, _last,
                             typename _truth < _same_type<typename _traits::_plain, _yes>::value &&
                                 _is_array_of<_Iterator, _T>::value > ::_type());
}
template <class _T, class _A, class _Iterator>
inline _T *_make_copies(_A &_a, _T *_to, _Iterator _first, _Iterator _last) {
  return __zor::_make_copies_of(_a, _to, __zor::_unwrap(_first), __zor::_unwrap(_last));
}

template <class _T, class _A> inline _T *_make_filled(_A &_a, _T *_to, size_t _n, const _T &_value, _no) {
  _made_elements<_T, _A> _made(_a, _to);
  for (; _n != 0; --_n) _made._add(_value);
  return _made._keep();
}
template <class _T, class _A> inline _T *_make_filled(_A &, _T *_to, size_t _n, const _T &_value, _yes) {
  if (sizeof(_T) == 1) {
    if (_n != 0) memset(static_cast<void *>(_to), reinterpret_cast<const unsigned char &>(_value), _n);
    return _to + _n;
  }
  for (_T *const _end = _to + _n; _to != _end; ++_to) ::new (static_cast<void *>(_to)) _T(_value);
  return _to;
}
template <class _T, class _A> inline _T *_make_filled(_A &_a, _T *_to, size_t _n, const _T &_value) {
  return __zor::_make_filled(_a, _to, _n, _value, typename _element_traits<_T, _A>::_plain());
}

// Elements that go to a new place, while the old ones are there until all have arrived.
template <class _T, class _A> inline _T *_make_taken(_A &_a, _T *_to, _T *_first, _T *_last, _yes) {
  return __zor::_make_copies(_a, _to, static_cast<const _T *>(_first), static_cast<const _T *>(_last), _yes());
}
template <class _T, class _A> inline _T *_make_taken(_A &_a, _T *_to, _T *_first, _T *_last, _no) {
  _made_elements<_T, _A> _made(_a, _to);
  for (; _first != _last; ++_first) _made._add(__zor::_take_element(*_first));
  return _made._keep();
}
template <class _T, class _A> inline _T *_make_taken(_A &_a, _T *_to, _T *_first, _T *_last) {
  return __zor::_make_taken(_a, _to, _first, _last, typename _element_traits<_T, _A>::_plain());
}

#if __cplusplus >= 201103L
// Each made by the constructor without arguments, or zero.
template <class _T, class _A> inline _T *_make_default(_A &_a, _T *_to, size_t _n, _yes) {
  return __zor::_make_filled(_a, _to, _n, _T());
}
template <class _T, class _A> inline _T *_make_default(_A &_a, _T *_to, size_t _n, _no) {
  _made_elements<_T, _A> _made(_a, _to);
  for (; _n != 0; --_n) _made._add();
  return _made._keep();
}
template <class _T, class _A> inline _T *_make_default(_A &_a, _T *_to, size_t _n) {
  return __zor::_make_default(_a, _to, _n, typename _element_traits<_T, _A>::_number());
}
#endif

// One that is moved elsewhere as bytes afterwards, or destroyed when that did not happen.
template <class _T, class _A, class _Plain> class _held_copy {
public:
  template <PLX_SOURCE_TYPES> explicit _held_copy(_A &_a, PLX_SOURCE) : _allocator_(_a), _held_(true) {
    __zor::_make_element(_a, _object(), PLX_FORWARD_SOURCE);
  }
  ~_held_copy() {
    if (_held_) _allocator_.destroy(_object());
  }
  void _move_to(_T *_place) {
    memcpy(static_cast<void *>(_place), _storage_, sizeof(_T));
    _held_ = false;
  }
  const _T &get() { return *_object(); }

private:
  _held_copy(const _held_copy &);
  _held_copy &operator=(const _held_copy &);
  _T *_object() { return reinterpret_cast<_T *>(_storage_); }

  _A &_allocator_;
  bool _held_;
  char _storage_[sizeof(_T)] __attribute__((__aligned__(__alignof__(_T))));
};

template <class _T, class _A> class _held_copy<_T, _A, _yes> {
public:
  template <PLX_SOURCE_TYPES> explicit _held_copy(_A &, PLX_SOURCE) : _value_(PLX_FORWARD_SOURCE) {}
  void _move_to(_T *_place) { ::new (static_cast<void *>(_place)) _T(_value_); }
  const _T &get() { return _value_; }

private:
  _held_copy(const _held_copy &);
  _held_copy &operator=(const _held_copy &);

  _T _value_;
};

}  // namespace __zor

// Comparisons and swap of a sequence of the given name, in namespace std.
#define PLX_SEQUENCE_COMPARISONS(container)                                                                         \
  template <class _T, class _A>                                                                                     \
  inline bool operator==(const container<_T, _A> &_left, const container<_T, _A> &_right) {                         \
    return _left.size() == _right.size() && std::equal(_left.begin(), _left.end(), _right.begin());                 \
  }                                                                                                                 \
  template <class _T, class _A>                                                                                     \
  inline bool operator<(const container<_T, _A> &_left, const container<_T, _A> &_right) {                          \
    return std::lexicographical_compare(_left.begin(), _left.end(), _right.begin(), _right.end());                  \
  }                                                                                                                 \
  template <class _T, class _A>                                                                                     \
  inline bool operator!=(const container<_T, _A> &_left, const container<_T, _A> &_right) {                         \
    return !(_left == _right);                                                                                      \
  }                                                                                                                 \
  template <class _T, class _A>                                                                                     \
  inline bool operator>(const container<_T, _A> &_left, const container<_T, _A> &_right) {                          \
    return _right < _left;                                                                                          \
  }                                                                                                                 \
  template <class _T, class _A>                                                                                     \
  inline bool operator>=(const container<_T, _A> &_left, const container<_T, _A> &_right) {                         \
    return !(_left < _right);                                                                                       \
  }                                                                                                                 \
  template <class _T, class _A>                                                                                     \
  inline bool operator<=(const container<_T, _A> &_left, const container<_T, _A> &_right) {                         \
    return !(_right < _left);                                                                                       \
  }                                                                                                                 \
  template <class _T, class _A> inline void swap(container<_T, _A> &_left, container<_T, _A> &_right) PLX_NOTHROW { \
    _left.swap(_right);                                                                                             \
  }

#endif

// What sorts and heaps work on: elements, or the bytes of elements that may change their place as bytes, so that no
// element is copied, which for a string may mean its text; and an element taken out of its place.
#ifndef PLX_HELD_ELEMENT_H
#define PLX_HELD_ELEMENT_H

#include <plx/base/algobase.h>
#include <plx/base/functions.h>
#include <plx/base/relocatable.h>

namespace __zor {
namespace _functions {

// The bytes of a _T.
template <class _T> struct __attribute__((__may_alias__)) _object_bytes {
  unsigned char _bytes[sizeof(_T)] __attribute__((__aligned__(__alignof__(_T))));
};

// An order of _T as an order of the bytes of _T.
template <class _T, class _Before> class _order_of_bytes {
public:
  explicit _order_of_bytes(_Before &_before) PLX_NOTHROW : _before_(_before) {}
  bool operator()(const _object_bytes<_T> &_a, const _object_bytes<_T> &_b) const {
    return _before_(_object(_a), _object(_b));
  }

private:
  // As elements are, and not constant: the order may be a function of T &.
  static _T &_object(const _object_bytes<_T> &_bytes) {
    return reinterpret_cast<_T &>(const_cast<_object_bytes<_T> &>(_bytes));
  }

  _Before &_before_;
};

// What a sort works on: the elements, or their bytes. `_in` and `_out` go there and back.
template <class _Iterator, class _Before> struct _sorted_as {
  typedef _Iterator iterator;
  typedef _Before &_order;
  static const _Iterator &_in(const _Iterator &_at) { return _at; }
  static _Before &_made(_Before &_before) { return _before; }
};

template <class _T, class _Before, bool _relocatable> struct _sorted_pointers_as {
  typedef _T *iterator;
  typedef _Before &_order;
  static _T *_in(_T *_at) { return _at; }
  static _Before &_made(_Before &_before) { return _before; }
};
template <class _T, class _Before> struct _sorted_pointers_as<_T, _Before, true> {
  typedef _object_bytes<_T> *iterator;
  typedef _order_of_bytes<_T, _Before> _order;
  static iterator _in(_T *_at) { return reinterpret_cast<_object_bytes<_T> *>(_at); }
  static _order _made(_Before &_before) { return _order(_before); }
};

template <class _T, class _Before> struct _sorted_as<_T *, _Before>
    : public _sorted_pointers_as<_T, _Before, _is_relocatable<_T>::value && !_is_plain<_T>::value> {};

// ---- An element taken out of its place -----------------------------------------------------------------------------

// The element's value waits here while others move into the hole that it left. When a comparison throws, the hole keeps
// some valid value; bytes must go back, or an object would be lost and another one there twice.
template <class _Iterator> class _held_element {
public:
  typedef typename std::iterator_traits<_Iterator>::value_type value_type;

  explicit _held_element(_Iterator _at) : value(__zor::_move_from(_at)), _hole(_at) {}
  // The hole moves to `_from`.
  void _fill_from(_Iterator _from) {
    *_hole = __zor::_move_from(_from);
    _hole = _from;
  }
  void _put_back() { *_hole = __zor::_moved(value); }

  value_type value;
  _Iterator _hole;
};

template <class _T> class _held_element<_object_bytes<_T> *> {
public:
  typedef _object_bytes<_T> value_type;

  explicit _held_element(value_type *_at) PLX_NOTHROW : value(*_at), _hole(_at) {}
  ~_held_element() { *_hole = value; }
  void _fill_from(value_type *_from) PLX_NOTHROW {
    *_hole = *_from;
    _hole = _from;
  }
  void _put_back() PLX_NOTHROW {}

  value_type value;
  value_type *_hole;

private:
  _held_element(const _held_element &);
  _held_element &operator=(const _held_element &);
};

}  // namespace _functions
}  // namespace __zor

#endif

// reverse, rotate and their copying forms (1998, 25.2.9 and 25.2.10).
#ifndef PLX_ROTATE_H
#define PLX_ROTATE_H

#include <plx/base/algobase.h>
#include <plx/base/functions.h>

namespace __zor {
namespace _functions {

template <class _Iterator> inline void reverse(_Iterator _first, _Iterator _last, std::bidirectional_iterator_tag) {
  while (_first != _last) {
    --_last;
    if (_first == _last) return;
    std::iter_swap(_first, _last);
    ++_first;
  }
}
template <class _Iterator> inline void reverse(_Iterator _first, _Iterator _last, std::random_access_iterator_tag) {
  if (_first == _last) return;
  for (--_last; _first < _last; ++_first, (void)--_last) std::iter_swap(_first, _last);
}

// Each swap puts one element in its place, from the front. Returns where the first element went.
template <class _Iterator>
_Iterator rotate(_Iterator _first, _Iterator _middle, _Iterator _last, std::forward_iterator_tag) {
  _Iterator _from = _middle;
  do {
    std::iter_swap(_first, _from);
    ++_first;
    ++_from;
    if (_first == _middle) _middle = _from;
  } while (_from != _last);
  const _Iterator _result = _first;
  for (_from = _middle; _from != _last;) {
    std::iter_swap(_first, _from);
    ++_first;
    ++_from;
    if (_first == _middle)
      _middle = _from;
    else if (_from == _last)
      _from = _middle;
  }
  return _result;
}

template <class _Iterator>
_Iterator rotate(_Iterator _first, _Iterator _middle, _Iterator _last, std::bidirectional_iterator_tag) {
  __zor::reverse(_first, _middle, std::bidirectional_iterator_tag());
  __zor::reverse(_middle, _last, std::bidirectional_iterator_tag());
  while (bool(_first != _middle) && bool(_middle != _last)) {
    --_last;
    std::iter_swap(_first, _last);
    ++_first;
  }
  if (_first == _middle) {
    __zor::reverse(_middle, _last, std::bidirectional_iterator_tag());
    return _last;
  }
  __zor::reverse(_first, _middle, std::bidirectional_iterator_tag());
  return _first;
}

// The shorter side changes places with as much of the other, until one side is left: blocks, whose swaps are simple.
template <class _Iterator>
_Iterator rotate(_Iterator _first, _Iterator _middle, _Iterator _last, std::random_access_iterator_tag) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  const _Iterator _result = _first + (_last - _middle);
  _distance_type _left = _middle - _first, _right = _last - _middle;
  while (_left != _right) {
    if (_left < _right) {
      std::swap_ranges(_first, _first + _left, _middle + (_right - _left));
      _right -= _left;
    } else {
      std::swap_ranges(_first, _first + _right, _middle);
      _first += _right;
      _left -= _right;
    }
    _middle = _first + _left;
  }
  std::swap_ranges(_first, _middle, _middle);
  return _result;
}

// The same with plain elements as bytes, through a piece of the stack; when a side fits there, it is the last step.
inline void _rotate_bytes(unsigned char *_first, std::size_t _left, std::size_t _right) PLX_NOTHROW {
  enum { _room = 1024 };
  unsigned char _held[_room];
  while (_left > _room && _right > _room) {
    unsigned char *const _other = _left < _right ? _first + _right : _first + _left;
    const std::size_t _shorter = _left < _right ? _left : _right;
    for (std::size_t _done = 0; _done < _shorter; _done += _room) {
      const std::size_t _n = _shorter - _done < _room ? _shorter - _done : static_cast<std::size_t>(_room);
      ::memcpy(_held, _first + _done, _n);
      ::memcpy(_first + _done, _other + _done, _n);
      ::memcpy(_other + _done, _held, _n);
    }
    if (_left < _right) {
      _right -= _left;
    } else {
      _first += _right;
      _left -= _right;
    }
  }
  if (_left <= _right) {
    ::memcpy(_held, _first, _left);
    ::memmove(_first, _first + _left, _right);
    ::memcpy(_first + _right, _held, _left);
  } else {
    ::memcpy(_held, _first + _left, _right);
    ::memmove(_first + _right, _first, _left);
    ::memcpy(_first, _held, _right);
  }
}

template <bool _plain> struct _rotation {
  template <class _Iterator> static _Iterator _run(_Iterator _first, _Iterator _middle, _Iterator _last) {
    return __zor::rotate(_first, _middle, _last, typename std::iterator_traits<_Iterator>::iterator_category());
  }
};
template <> struct _rotation<true> {
  template <class _T> static _T *_run(_T *_first, _T *_middle, _T *_last) {
    __zor::_rotate_bytes(reinterpret_cast<unsigned char *>(_first),
                         static_cast<std::size_t>(_middle - _first) * sizeof(_T),
                         static_cast<std::size_t>(_last - _middle) * sizeof(_T));
    return _first + (_last - _middle);
  }
};

// Of unwrapped iterators.
template <class _Iterator> inline _Iterator _rotate_range(_Iterator _first, _Iterator _middle, _Iterator _last) {
  if (_first == _middle) return _last;
  if (_middle == _last) return _first;
  return _rotation<_copied_as_bytes<_Iterator, _Iterator>::value>::_run(_first, _middle, _last);
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Bidirectional> inline void reverse(_Bidirectional _first, _Bidirectional _last) {
  __zor::reverse(__zor::_unwrap(_first), __zor::_unwrap(_last),
                 typename iterator_traits<_Bidirectional>::iterator_category());
}

template <class _Bidirectional, class _Out>
inline _Out reverse_copy(_Bidirectional _first, _Bidirectional _last, _Out _out) {
  for (; _first != _last; ++_out) *_out = *--_last;
  return _out;
}

// Where the first element went is returned in every dialect, though only later ones ask for it.
template <class _Forward> inline _Forward rotate(_Forward _first, _Forward _middle, _Forward _last) {
  return __zor::_rewrap(_first,
                        __zor::_rotate_range(__zor::_unwrap(_first), __zor::_unwrap(_middle), __zor::_unwrap(_last)));
}

template <class _Forward, class _Out>
inline _Out rotate_copy(_Forward _first, _Forward _middle, _Forward _last, _Out _out) {
  return std::copy(_first, _middle, std::copy(_middle, _last, _out));
}

}  // namespace std

#endif

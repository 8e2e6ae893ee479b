// partition and stable_partition (1998, 25.2.12). The stable one keeps those that fail in a temporary buffer while the
// others close up; what does not fit in the buffer is halved, and the halves' inner parts change places.
#ifndef PLX_PARTITION_H
#define PLX_PARTITION_H

#include <plx/algorithms/rotate.h>
#include <plx/base/functions.h>
#include <plx/base/temporary_buffer.h>

namespace __zor {
namespace _functions {

template <class _Iterator, class _Predicate>
_Iterator partition(_Iterator _first, _Iterator _last, _Predicate &_predicate, std::forward_iterator_tag) {
  while (bool(_first != _last) && bool(_predicate(*_first))) ++_first;
  if (_first == _last) return _first;
  _Iterator _at = _first;
  for (++_at; _at != _last; ++_at) {
    if (!bool(_predicate(*_at))) continue;
    std::iter_swap(_first, _at);
    ++_first;
  }
  return _first;
}

template <class _Iterator, class _Predicate>
_Iterator partition(_Iterator _first, _Iterator _last, _Predicate &_predicate, std::bidirectional_iterator_tag) {
  for (;; ++_first) {
    while (bool(_first != _last) && bool(_predicate(*_first))) ++_first;
    if (_first == _last) return _first;
    do {
      --_last;
      if (_first == _last) return _first;
    } while (!bool(_predicate(*_last)));
    std::iter_swap(_first, _last);
  }
}

// The predicate is asked once for each element. `_first` is known to fail.
template <class _Iterator, class _Distance, class _T, class _Predicate>
_Iterator _stable_partition_known(_Iterator _first, _Iterator _last, _Distance _n, _T *_buffer, _Distance _room,
                                  _Predicate &_predicate);

template <class _Iterator, class _Distance, class _T, class _Predicate>
_Iterator stable_partition(_Iterator _first, _Iterator _last, _Distance _n, _T *_buffer, _Distance _room,
                           _Predicate &_predicate) {
  for (; _n != 0; --_n, (void)++_first)
    if (!bool(_predicate(*_first)))
      return __zor::_stable_partition_known(_first, _last, _n, _buffer, _room, _predicate);
  return _first;
}

// Elements that fail, and the gap before which those that pass have closed up. When the predicate throws, the range
// keeps valid values, though some may be there twice and others not at all.
template <class _Iterator, class _T> class _failed_elements {
public:
  _failed_elements(_T *_buffer, _Iterator _first) : end(_buffer), _gap(_first), _buffer_(_buffer) {}
  ~_failed_elements() { __zor::destroy(_buffer_, end); }
  void _put_back() { __zor::_move_range(_buffer_, end, _gap); }

  _T *end;
  _Iterator _gap;

private:
  _failed_elements(const _failed_elements &);
  _failed_elements &operator=(const _failed_elements &);

  _T *_buffer_;
};

template <class _Iterator, class _Distance, class _T, class _Predicate>
_Iterator _stable_partition_known(_Iterator _first, _Iterator _last, _Distance _n, _T *_buffer, _Distance _room,
                                  _Predicate &_predicate) {
  if (_n == 1) return _first;
  if (_n <= _room) {
    _failed_elements<_Iterator, _T> _failed(_buffer, _first);
    ::new (static_cast<void *>(_failed.end)) _T(__zor::_move_from(_first));
    ++_failed.end;
    for (++_first; _first != _last; ++_first) {
      if (_predicate(*_first)) {
        *_failed._gap = __zor::_move_from(_first);
        ++_failed._gap;
      } else {
        ::new (static_cast<void *>(_failed.end)) _T(__zor::_move_from(_first));
        ++_failed.end;
      }
    }
    _failed._put_back();
    return _failed._gap;
  }
  const _Distance _half = _n / 2;
  _Iterator _middle = _first;
  std::advance(_middle, _half);
  const _Iterator _left = __zor::_stable_partition_known(_first, _middle, _half, _buffer, _room, _predicate);
  const _Iterator _right =
      __zor::stable_partition(_middle, _last, static_cast<_Distance>(_n - _half), _buffer, _room, _predicate);
  return __zor::_rotate_range(_left, _middle, _right);
}

template <class _Iterator, class _Predicate>
_Iterator stable_partition(_Iterator _first, _Iterator _last, _Predicate &_predicate) {
  typedef typename std::iterator_traits<_Iterator>::value_type _value_type;
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  while (bool(_first != _last) && bool(_predicate(*_first))) ++_first;
  if (_first == _last) return _first;
  const _distance_type _n = std::distance(_first, _last);
  const _raw_buffer<_value_type> _buffer(_n);
  return __zor::_stable_partition_known(_first, _last, _n, _buffer.begin(), static_cast<_distance_type>(_buffer.size()),
                                        _predicate);
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Forward, class _Predicate>
inline _Forward partition(_Forward _first, _Forward _last, _Predicate _predicate) {
  return __zor::_rewrap(_first, __zor::partition(__zor::_unwrap(_first), __zor::_unwrap(_last), _predicate,
                                                 typename iterator_traits<_Forward>::iterator_category()));
}

template <class _Forward, class _Predicate>
inline _Forward stable_partition(_Forward _first, _Forward _last, _Predicate _predicate) {
  return __zor::_rewrap(_first, __zor::stable_partition(__zor::_unwrap(_first), __zor::_unwrap(_last), _predicate));
}

}  // namespace std

#endif

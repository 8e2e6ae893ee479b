// lower_bound, upper_bound, equal_range and binary_search (1998, 25.3.3). Pointers to scalars in their own order are
// searched without a branch on comparisons.
#ifndef PLX_BINARY_SEARCH_H
#define PLX_BINARY_SEARCH_H

#include <plx/base/algobase.h>
#include <plx/base/functions.h>
#include <plx/base/ordering.h>
#include <plx/base/prefetch.h>

namespace __zor {
namespace _functions {

// The value is given as a pointer to it, or as an iterator: an order may take elements as changeable ones.
template <class _Forward, class _Wanted, class _Before>
_Forward lower_bound(_Forward _first, _Forward _last, _Wanted _wanted, _Before &_before) {
  typedef typename std::iterator_traits<_Forward>::difference_type _distance_type;
  for (_distance_type _n = std::distance(_first, _last); _n > 0;) {
    const _distance_type _half = _n / 2;
    _Forward _middle = _first;
    std::advance(_middle, _half);
    if (_before(*_middle, *_wanted)) {
      _first = _middle;
      ++_first;
      _n -= _half + 1;
    } else {
      _n = _half;
    }
  }
  return _first;
}

template <class _Forward, class _Wanted, class _Before>
_Forward upper_bound(_Forward _first, _Forward _last, _Wanted _wanted, _Before &_before) {
  typedef typename std::iterator_traits<_Forward>::difference_type _distance_type;
  for (_distance_type _n = std::distance(_first, _last); _n > 0;) {
    const _distance_type _half = _n / 2;
    _Forward _middle = _first;
    std::advance(_middle, _half);
    if (_before(*_wanted, *_middle)) {
      _n = _half;
    } else {
      _first = _middle;
      ++_first;
      _n -= _half + 1;
    }
  }
  return _first;
}

// The border before elements that are not less than the value, or (`_upper`) before those that are greater. Each step
// has the same length on either side, and which side it is becomes a mask: the empty assembler statement hides from the
// compiler that a branch would do, since one that is mispredicted half of the time costs more than all the rest.
template <bool _upper, class _T, class _V, class _Before>
inline _T *_scalar_bound(_T *_first, _T *_last, const _V _value, _Before &_before) {
  enum { _cached = 4096 };
  std::size_t _n = static_cast<std::size_t>(_last - _first);
  if (_n == 0) return _first;
  // While the range is longer than the first cache, both elements that the next step may compare are prefetched.
  for (std::size_t _half; _n > _cached; _n -= _half) {
    _half = _n / 2;
    const _T *const _lower = _first + (_n - _half) / 2;
    __zor::_prefetch(_lower);
    __zor::_prefetch(_lower + _half);
    std::size_t _beyond = _upper ? !_before(_value, _first[_half - 1]) : _before(_first[_half - 1], _value);
    _beyond = -_beyond;
    PLX_OPAQUE(_beyond);
    _first += _half & _beyond;
  }
  for (std::size_t _half; _n > 1; _n -= _half) {
    _half = _n / 2;
    std::size_t _beyond = _upper ? !_before(_value, _first[_half - 1]) : _before(_first[_half - 1], _value);
    _beyond = -_beyond;
    PLX_OPAQUE(_beyond);
    _first += _half & _beyond;
  }
  return _first + (_upper ? !_before(_value, *_first) : _before(*_first, _value));
}

template <bool _scalar> struct _bounds {
  template <class _Forward, class _T, class _Before>
  static _Forward _lower(_Forward _first, _Forward _last, const _T &_value, _Before &_before) {
    return __zor::lower_bound(_first, _last, __zor::_address_of(_value), _before);
  }
  template <class _Forward, class _T, class _Before>
  static _Forward _upper(_Forward _first, _Forward _last, const _T &_value, _Before &_before) {
    return __zor::upper_bound(_first, _last, __zor::_address_of(_value), _before);
  }
};
template <> struct _bounds<true> {
  template <class _T, class _V, class _Before>
  static _T *_lower(_T *_first, _T *_last, const _V &_value, _Before &_before) {
    return __zor::_scalar_bound<false, _T, _V, _Before>(_first, _last, _value, _before);
  }
  template <class _T, class _V, class _Before>
  static _T *_upper(_T *_first, _T *_last, const _V &_value, _Before &_before) {
    return __zor::_scalar_bound<true, _T, _V, _Before>(_first, _last, _value, _before);
  }
};

// The value must be of the elements' type: else each comparison may convert in its own way.
template <class _Forward, class _T, class _Before> struct _bounds_of
    : public _bounds<_is_scalar_order<typename _unwrapped<_Forward>::_type, _Before>::value &&
                     _same_type<typename std::iterator_traits<_Forward>::value_type, _T>::value> {};

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Forward, class _T, class _Compare>
inline _Forward lower_bound(_Forward _first, _Forward _last, const _T &_value, _Compare _before) {
  return __zor::_rewrap(_first, __zor::_bounds_of<_Forward, _T, _Compare>::_lower(
                                    __zor::_unwrap(_first), __zor::_unwrap(_last), _value, _before));
}
template <class _Forward, class _T> inline _Forward lower_bound(_Forward _first, _Forward _last, const _T &_value) {
  return std::lower_bound(_first, _last, _value, __zor::_by_less());
}
template <class _Forward, class _T, class _Compare>
inline _Forward upper_bound(_Forward _first, _Forward _last, const _T &_value, _Compare _before) {
  return __zor::_rewrap(_first, __zor::_bounds_of<_Forward, _T, _Compare>::_upper(
                                    __zor::_unwrap(_first), __zor::_unwrap(_last), _value, _before));
}
template <class _Forward, class _T> inline _Forward upper_bound(_Forward _first, _Forward _last, const _T &_value) {
  return std::upper_bound(_first, _last, _value, __zor::_by_less());
}

// Halves until an equal element is met, and looks for one border on each side of it.
template <class _Forward, class _T, class _Compare>
PLX_HIDDEN pair<_Forward, _Forward> equal_range(_Forward _first, _Forward _last, const _T &_value, _Compare _before) {
  typedef typename iterator_traits<_Forward>::difference_type _distance_type;
  for (_distance_type _n = std::distance(_first, _last); _n > 0;) {
    const _distance_type _half = _n / 2;
    _Forward _middle = _first;
    std::advance(_middle, _half);
    if (_before(*_middle, _value)) {
      _first = _middle;
      ++_first;
      _n -= _half + 1;
    } else if (_before(_value, *_middle)) {
      _n = _half;
    } else {
      _Forward _end = _first;
      std::advance(_end, _n);
      const _T *const _wanted = __zor::_address_of(_value);
      const _Forward _lower = __zor::lower_bound(_first, _middle, _wanted, _before);
      return pair<_Forward, _Forward>(_lower, __zor::upper_bound(++_middle, _end, _wanted, _before));
    }
  }
  return pair<_Forward, _Forward>(_first, _first);
}
template <class _Forward, class _T>
inline pair<_Forward, _Forward> equal_range(_Forward _first, _Forward _last, const _T &_value) {
  return std::equal_range(_first, _last, _value, __zor::_by_less());
}

template <class _Forward, class _T, class _Compare>
inline bool binary_search(_Forward _first, _Forward _last, const _T &_value, _Compare _before) {
  _first = std::lower_bound(_first, _last, _value, _before);
  return bool(_first != _last) && !bool(_before(_value, *_first));
}
template <class _Forward, class _T> inline bool binary_search(_Forward _first, _Forward _last, const _T &_value) {
  return std::binary_search(_first, _last, _value, __zor::_by_less());
}

}  // namespace std

#endif

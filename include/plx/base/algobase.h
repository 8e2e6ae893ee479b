// What containers need of <algorithm> (1998, 25.2.1, 25.2.2, 25.2.5, 25.3.7, 25.3.8 and parts of 25.1): swaps, min and
// max, copies, fills and comparisons of ranges. Plain types go as blocks of bytes, block-wise iterators block by block.
#ifndef PLX_ALGOBASE_H
#define PLX_ALGOBASE_H

#include <string.h>

#include <plx/base/functions.h>
#include <plx/base/moving.h>
#include <plx/base/pair.h>
#include <plx/base/segmented_iterator.h>
#include <plx/base/type_properties.h>
#include <plx/base/unwrap_iterator.h>

namespace std {

template <class _T> inline void swap(_T &_a, _T &_b) {
  _T _held(__zor::_moved(_a));
  _a = __zor::_moved(_b);
  _b = __zor::_moved(_held);
}

template <class _T> inline const _T &(min)(const _T &_a, const _T &_b) { return _b < _a ? _b : _a; }
template <class _T> inline const _T &(max)(const _T &_a, const _T &_b) { return _a < _b ? _b : _a; }
template <class _T, class _Compare> inline const _T &(min)(const _T &_a, const _T &_b, _Compare _before) {
  return _before(_b, _a) ? _b : _a;
}
template <class _T, class _Compare> inline const _T &(max)(const _T &_a, const _T &_b, _Compare _before) {
  return _before(_a, _b) ? _b : _a;
}

}  // namespace std

namespace __zor {
namespace _functions {

// Finds a swap that comes with the elements' class before the general one.
template <class _T> inline void _swap_objects(_T &_a, _T &_b) {
  using std::swap;
  swap(_a, _b);
}

// Elements that are no lvalues of one type, as references to bits, are exchanged by value.
template <bool _lvalues> struct _swap_elements {
  template <class _A, class _Bt> static void _run(_A _a, _Bt _b) {
    typename std::iterator_traits<_A>::value_type _held(*_a);
    *_a = *_b;
    *_b = _held;
  }
};
template <> struct _swap_elements<true> {
  template <class _A, class _Bt> static void _run(_A _a, _Bt _b) { __zor::_swap_objects(*_a, *_b); }
};

template <class _A, class _Bt> struct _swapped_as_lvalues {
  typedef typename std::iterator_traits<_A>::reference _a_reference;
  typedef typename std::iterator_traits<_Bt>::reference _b_reference;
  static const bool value = _is_lvalue_of<_a_reference>::value && _same_type<_a_reference, _b_reference>::value;
};

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _A, class _Bt> inline void iter_swap(_A _a, _Bt _b) {
  __zor::_swap_elements<__zor::_swapped_as_lvalues<_A, _Bt>::value>::_run(_a, _b);
}

template <class _A, class _Bt> inline _Bt swap_ranges(_A _first, _A _last, _Bt _other) {
  for (; _first != _last; ++_first, (void)++_other) std::iter_swap(_first, _other);
  return _other;
}

}  // namespace std

namespace __zor {
namespace _functions {

// ---- Copies of bytes -----------------------------------------------------------------------------------------------

template <class _T> inline void _move_bytes(_T *_to, const _T *_from, std::size_t _n) {
  if (_n != 0) ::memmove(static_cast<void *>(_to), static_cast<const void *>(_from), _n * sizeof(_T));
}

// Do both ends point to elements whose assignment is a copy of bytes?
template <class _In, class _Out> struct _copied_as_bytes { static const bool value = false; };
template <class _T> struct _copied_as_bytes<_T *, _T *> {
  static const bool value = _is_assigned_as_bytes<_T, _T &>::value;
};
template <class _T> struct _copied_as_bytes<const _T *, _T *> {
  static const bool value = _is_assigned_as_bytes<_T, const _T &>::value;
};

// ---- copy, copy_backward -------------------------------------------------------------------------------------------

// The internal forms take unwrapped iterators. The moving ones may move from the elements, where the dialect can.
template <bool _moving> struct _transfer {
  template <class _In, class _Out> static void assign(_In &_from, _Out &_to) { *_to = *_from; }
};
template <> struct _transfer<true> {
  template <class _In, class _Out> static void assign(_In &_from, _Out &_to) { *_to = __zor::_move_from(_from); }
};

enum _copy_path { _copy_each, _copy_counted, _copy_bytes, _copy_from_blocks, _copy_to_blocks };

template <class _Iterator> struct _is_random_access {
  static const bool value =
      _same_type<typename std::iterator_traits<_Iterator>::iterator_category, std::random_access_iterator_tag>::value;
};
template <class _Iterator> struct _is_segmented {
  static const bool value = _same_type<typename _segmented_iterator_traits<_Iterator>::_is_segmented, _yes>::value;
};

template <class _In, class _Out> struct _copy_path_of {
  static const _copy_path value = _copied_as_bytes<_In, _Out>::value                      ? _copy_bytes
                                  : _is_segmented<_In>::value                             ? _copy_from_blocks
                                  : _is_pointer<_In>::value && _is_segmented<_Out>::value ? _copy_to_blocks
                                  : _is_random_access<_In>::value                         ? _copy_counted
                                                                                          : _copy_each;
};

template <bool _moving, _copy_path _path> struct _copier;

template <bool _moving, class _In, class _Out> inline _Out _copy_range(_In _first, _In _last, _Out _out) {
  return _copier<_moving, _copy_path_of<_In, _Out>::value>::_forward(_first, _last, _out);
}
template <bool _moving, class _In, class _Out> inline _Out _copy_range_backward(_In _first, _In _last, _Out _out) {
  return _copier<_moving, _copy_path_of<_In, _Out>::value>::_backward(_first, _last, _out);
}

template <bool _moving> struct _copier<_moving, _copy_each> {
  template <class _In, class _Out> static _Out _forward(_In _first, _In _last, _Out _out) {
    for (; _first != _last; ++_first, (void)++_out) _transfer<_moving>::assign(_first, _out);
    return _out;
  }
  template <class _In, class _Out> static _Out _backward(_In _first, _In _last, _Out _out) {
    while (_first != _last) {
      --_last;
      --_out;
      _transfer<_moving>::assign(_last, _out);
    }
    return _out;
  }
};

template <bool _moving> struct _copier<_moving, _copy_counted> {
  template <class _In, class _Out> static _Out _forward(_In _first, _In _last, _Out _out) {
    typedef typename std::iterator_traits<_In>::difference_type _distance_type;
    for (_distance_type _left = _last - _first; _left > 0; --_left, (void)++_first, (void)++_out)
      _transfer<_moving>::assign(_first, _out);
    return _out;
  }
  template <class _In, class _Out> static _Out _backward(_In _first, _In _last, _Out _out) {
    typedef typename std::iterator_traits<_In>::difference_type _distance_type;
    for (_distance_type _left = _last - _first; _left > 0; --_left) {
      --_last;
      --_out;
      _transfer<_moving>::assign(_last, _out);
    }
    return _out;
  }
};

template <bool _moving> struct _copier<_moving, _copy_bytes> {
  template <class _In, class _T> static _T *_forward(_In _first, _In _last, _T *_out) {
    __zor::_move_bytes<_T>(_out, _first, static_cast<std::size_t>(_last - _first));
    return _out + (_last - _first);
  }
  template <class _In, class _T> static _T *_backward(_In _first, _In _last, _T *_out) {
    _out -= _last - _first;
    __zor::_move_bytes<_T>(_out, _first, static_cast<std::size_t>(_last - _first));
    return _out;
  }
};

template <bool _moving> struct _copier<_moving, _copy_from_blocks> {
  template <class _In, class _Out> static _Out _forward(const _In &_first, const _In &_last, _Out _out) {
    for (_block_runs<_In> _run(_first, _last); _run._next();)
      _out = __zor::_copy_range<_moving>(_run._from, _run._to, _out);
    return _out;
  }
  template <class _In, class _Out> static _Out _backward(const _In &_first, const _In &_last, _Out _out) {
    typedef _segmented_iterator_traits<_In> _blocks;
    typename _blocks::_segment_iterator _block = _blocks::_segment(_last);
    const typename _blocks::_segment_iterator _first_block = _blocks::_segment(_first);
    typename _blocks::_local_iterator _to = _blocks::_local(_last);
    while (_block != _first_block) {
      _out = __zor::_copy_range_backward<_moving>(_blocks::begin(_block), _to, _out);
      --_block;
      _to = _blocks::end(_block);
    }
    return __zor::_copy_range_backward<_moving>(_blocks::_local(_first), _to, _out);
  }
};

template <bool _moving> struct _copier<_moving, _copy_to_blocks> {
  template <class _T, class _Out> static _Out _forward(_T *_first, _T *_last, _Out _out) {
    typedef _segmented_iterator_traits<_Out> _blocks;
    while (_first != _last) {
      typename _blocks::_segment_iterator _block = _blocks::_segment(_out);
      typename _blocks::_local_iterator _end = _blocks::end(_block);
      std::ptrdiff_t _room = _end - _blocks::_local(_out);
      // Blocks side by side are filled as one.
      while (_room < _last - _first && _blocks::begin(++_block) == _end) {
        _end = _blocks::end(_block);
        _room = _end - _blocks::_local(_out);
      }
      const std::ptrdiff_t _n = _last - _first < _room ? _last - _first : _room;
      __zor::_copy_range<_moving>(_first, _first + _n, _blocks::_local(_out));
      _first += _n;
      _out += _n;
    }
    return _out;
  }
  template <class _T, class _Out> static _Out _backward(_T *_first, _T *_last, _Out _out) {
    typedef _segmented_iterator_traits<_Out> _blocks;
    while (_first != _last) {
      typename _blocks::_segment_iterator _block = _blocks::_segment(_out);
      typename _blocks::_local_iterator _to = _blocks::_local(_out);
      if (_to == _blocks::begin(_block)) _to = _blocks::end(--_block);
      const std::ptrdiff_t _room = _to - _blocks::begin(_block);
      const std::ptrdiff_t _n = _last - _first < _room ? _last - _first : _room;
      __zor::_copy_range_backward<_moving>(_last - _n, _last, _to);
      _last -= _n;
      _out -= _n;
    }
    return _out;
  }
};

// What the algorithms that shift elements use: as std::copy, but it may move.
template <class _In, class _Out> inline _Out _move_range(_In _first, _In _last, _Out _out) {
  return __zor::_rewrap(_out,
                        __zor::_copy_range<true>(__zor::_unwrap(_first), __zor::_unwrap(_last), __zor::_unwrap(_out)));
}
template <class _In, class _Out> inline _Out _move_range_backward(_In _first, _In _last, _Out _out) {
  return __zor::_rewrap(
      _out, __zor::_copy_range_backward<true>(__zor::_unwrap(_first), __zor::_unwrap(_last), __zor::_unwrap(_out)));
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _In, class _Out> inline _Out copy(_In _first, _In _last, _Out _out) {
  return __zor::_rewrap(_out,
                        __zor::_copy_range<false>(__zor::_unwrap(_first), __zor::_unwrap(_last), __zor::_unwrap(_out)));
}

template <class _In, class _Out> inline _Out copy_backward(_In _first, _In _last, _Out _out) {
  return __zor::_rewrap(
      _out, __zor::_copy_range_backward<false>(__zor::_unwrap(_first), __zor::_unwrap(_last), __zor::_unwrap(_out)));
}

}  // namespace std

namespace __zor {
namespace _functions {

// ---- fill, fill_n --------------------------------------------------------------------------------------------------

// A count, which may be an enumerator or of a class that converts to a number, as an integer.
inline int _count_of(int _n) PLX_NOTHROW { return _n; }
inline unsigned int _count_of(unsigned int _n) PLX_NOTHROW { return _n; }
inline long _count_of(long _n) PLX_NOTHROW { return _n; }
inline unsigned long _count_of(unsigned long _n) PLX_NOTHROW { return _n; }
inline _longest _count_of(_longest _n) PLX_NOTHROW { return _n; }
inline _unsigned_longest _count_of(_unsigned_longest _n) PLX_NOTHROW { return _n; }
inline _longest _count_of(float _n) PLX_NOTHROW { return static_cast<_longest>(_n); }
inline _longest _count_of(double _n) PLX_NOTHROW { return static_cast<_longest>(_n); }
inline _longest _count_of(long double _n) PLX_NOTHROW { return static_cast<_longest>(_n); }

enum _fill_path { _fill_each, _fill_scalars, _fill_bytes, _fill_blocks };

template <class _Out, class _V, bool _segmented> struct _fill_path_of {
  static const _fill_path value = _segmented ? _fill_blocks : _fill_each;
};
template <class _T, class _V> struct _fill_path_of<_T *, _V, false> {
  static const bool _both_scalar = _is_scalar<_T>::value && _is_scalar<_V>::value;
  static const _fill_path value = !_both_scalar ? _fill_each : sizeof(_T) == 1 ? _fill_bytes : _fill_scalars;
};

template <_fill_path _path> struct _filler;

template <class _Out, class _V> inline void _fill_range(_Out _first, _Out _last, const _V &_value) {
  _filler<_fill_path_of<_Out, _V, _is_segmented<_Out>::value>::value>::_run(_first, _last, _value);
}

template <> struct _filler<_fill_each> {
  template <class _Out, class _V> static void _run(_Out _first, _Out _last, const _V &_value) {
    for (; _first != _last; ++_first) *_first = _value;
  }
};
// A copy of the value, since a store could change what a reference refers to, for all that the compiler knows.
template <> struct _filler<_fill_scalars> {
  template <class _T, class _V> static void _run(_T *_first, _T *_last, const _V &_value) {
    const _V _held = _value;
    for (; _first != _last; ++_first) *_first = _held;
  }
};
template <> struct _filler<_fill_bytes> {
  template <class _T, class _V> static void _run(_T *_first, _T *_last, const _V &_value) {
    if (_first == _last) return;
    *_first = _value;
    unsigned char _byte;
    ::memcpy(&_byte, _first, 1);
    ::memset(static_cast<void *>(_first), _byte, static_cast<std::size_t>(_last - _first));
  }
};
template <> struct _filler<_fill_blocks> {
  template <class _Out, class _V> static void _run(const _Out &_first, const _Out &_last, const _V &_value) {
    for (_block_runs<_Out> _run(_first, _last); _run._next();) __zor::_fill_range(_run._from, _run._to, _value);
  }
};

template <bool _counted> struct _n_filler {
  template <class _Out, class _Size, class _V> static _Out _run(_Out _first, _Size _n, const _V &_value) {
    for (; _n > 0; --_n, (void)++_first) *_first = _value;
    return _first;
  }
};
template <> struct _n_filler<true> {
  template <class _Out, class _Size, class _V> static _Out _run(_Out _first, _Size _n, const _V &_value) {
    if (!(_n > 0)) return _first;
    const _Out _last = _first + static_cast<std::ptrdiff_t>(_n);
    __zor::_fill_range(_first, _last, _value);
    return _last;
  }
};

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Forward, class _T> inline void fill(_Forward _first, _Forward _last, const _T &_value) {
  __zor::_fill_range(__zor::_unwrap(_first), __zor::_unwrap(_last), _value);
}

// The place after the last element filled is returned in every dialect, though only later ones ask for it.
template <class _Out, class _Size, class _T> inline _Out fill_n(_Out _first, _Size _n, const _T &_value) {
  typedef typename __zor::_unwrapped<_Out>::_type _plain;
  const bool _counted = __zor::_is_pointer<_plain>::value || __zor::_is_segmented<_plain>::value;
  return __zor::_rewrap(_first, __zor::_n_filler<_counted>::_run(__zor::_unwrap(_first), __zor::_count_of(_n), _value));
}

}  // namespace std

namespace __zor {
namespace _functions {

// ---- equal, mismatch, lexicographical_compare ----------------------------------------------------------------------

template <class _A, class _Bt> struct _compared_as_bytes { static const bool value = false; };
template <class _T, class _Ut> struct _compared_as_bytes<_T *, _Ut *> {
  static const bool value =
      _same_type<typename _without_const<_T>::_type, typename _without_const<_Ut>::_type>::value &&
      _equal_as_bytes<typename _without_const<_T>::_type>::value;
};
template <class _A, class _Bt> struct _ordered_by_memcmp { static const bool value = false; };
template <class _T, class _Ut> struct _ordered_by_memcmp<_T *, _Ut *> {
  static const bool value =
      _compared_as_bytes<_T *, _Ut *>::value && _ordered_as_bytes<typename _without_const<_T>::_type>::value;
};

template <bool _bytes> struct _equality {
  template <class _A, class _Bt> static bool _run(_A _first, _A _last, _Bt _other) {
    for (; _first != _last; ++_first, (void)++_other)
      if (!bool(*_first == *_other)) return false;
    return true;
  }
};
template <> struct _equality<true> {
  template <class _T, class _Ut> static bool _run(_T *_first, _T *_last, _Ut *_other) {
    return _first == _last || ::memcmp(_first, _other, static_cast<std::size_t>(_last - _first) * sizeof(_T)) == 0;
  }
};

template <bool _bytes> struct _text_order {
  template <class _A, class _Bt> static bool _run(_A _first, _A _last, _Bt _other, _Bt _other_last) {
    for (; bool(_first != _last) && bool(_other != _other_last); ++_first, (void)++_other) {
      if (*_first < *_other) return true;
      if (*_other < *_first) return false;
    }
    return bool(_first == _last) && bool(_other != _other_last);
  }
};
template <> struct _text_order<true> {
  template <class _T, class _Ut> static bool _run(_T *_first, _T *_last, _Ut *_other, _Ut *_other_last) {
    const std::ptrdiff_t _n = _last - _first, _m = _other_last - _other, _both = _n < _m ? _n : _m;
    const int _order = _both ? ::memcmp(_first, _other, static_cast<std::size_t>(_both)) : 0;
    return _order != 0 ? _order < 0 : _n < _m;
  }
};

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _A, class _Bt> inline bool equal(_A _first, _A _last, _Bt _other) {
  typedef typename __zor::_unwrapped<_A>::_type _plain_a;
  typedef typename __zor::_unwrapped<_Bt>::_type _plain_b;
  return __zor::_equality<__zor::_compared_as_bytes<_plain_a, _plain_b>::value>::_run(
      __zor::_unwrap(_first), __zor::_unwrap(_last), __zor::_unwrap(_other));
}
template <class _A, class _Bt, class _Equal> inline bool equal(_A _first, _A _last, _Bt _other, _Equal _same) {
  for (; _first != _last; ++_first, (void)++_other)
    if (!bool(_same(*_first, *_other))) return false;
  return true;
}

template <class _A, class _Bt> inline pair<_A, _Bt> mismatch(_A _first, _A _last, _Bt _other) {
  while (bool(_first != _last) && bool(*_first == *_other)) {
    ++_first;
    ++_other;
  }
  return pair<_A, _Bt>(_first, _other);
}
template <class _A, class _Bt, class _Equal>
inline pair<_A, _Bt> mismatch(_A _first, _A _last, _Bt _other, _Equal _same) {
  while (bool(_first != _last) && bool(_same(*_first, *_other))) {
    ++_first;
    ++_other;
  }
  return pair<_A, _Bt>(_first, _other);
}

template <class _A, class _Bt> inline bool lexicographical_compare(_A _first, _A _last, _Bt _other, _Bt _other_last) {
  typedef typename __zor::_unwrapped<_A>::_type _plain_a;
  typedef typename __zor::_unwrapped<_Bt>::_type _plain_b;
  return __zor::_text_order<__zor::_ordered_by_memcmp<_plain_a, _plain_b>::value>::_run(
      __zor::_unwrap(_first), __zor::_unwrap(_last), __zor::_unwrap(_other), __zor::_unwrap(_other_last));
}
template <class _A, class _Bt, class _Compare>
inline bool lexicographical_compare(_A _first, _A _last, _Bt _other, _Bt _other_last, _Compare _before) {
  for (; bool(_first != _last) && bool(_other != _other_last); ++_first, (void)++_other) {
    if (_before(*_first, *_other)) return true;
    if (_before(*_other, *_first)) return false;
  }
  return bool(_first == _last) && bool(_other != _other_last);
}

}  // namespace std

#endif

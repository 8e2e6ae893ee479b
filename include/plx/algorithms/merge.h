// merge, inplace_merge and stable_sort (1998, 25.3.1.2 and 25.3.4). Merging goes through a temporary buffer of the
// shorter side; with less memory than that, ranges are cut and rotated until the pieces fit, and with none at all until
// they are single elements.
#ifndef PLX_MERGE_H
#define PLX_MERGE_H

#include <plx/algorithms/binary_search.h>
#include <plx/algorithms/rotate.h>
#include <plx/algorithms/sort.h>
#include <plx/base/functions.h>
#include <plx/base/temporary_buffer.h>

namespace __zor {
namespace _functions {

// ---- The buffer's values -------------------------------------------------------------------------------------------

// Holds values moved out of a range while they are merged back. When a comparison throws, bytes must fill the gap that
// they left, or objects would be lost; other values are only destroyed.
template <class _Iterator, class _T> class _buffered_side {
public:
  _buffered_side(_T *_buffer, _Iterator _first, _Iterator _last)
      : _next(_buffer),
        end(__zor::_uninitialized_move(_first, _last, _buffer)),
        _gap(_first),
        _buffer_(_buffer),
        _made_(end) {}
  ~_buffered_side() { __zor::destroy(_buffer_, _made_); }

  _T *_next;  // what is not yet merged
  _T *end;
  _Iterator _gap;  // where it would fit

private:
  _buffered_side(const _buffered_side &);
  _buffered_side &operator=(const _buffered_side &);

  _T *_buffer_;
  _T *_made_;
};

template <class _T> class _buffered_side<_object_bytes<_T> *, _object_bytes<_T> > {
public:
  typedef _object_bytes<_T> value_type;

  _buffered_side(value_type *_buffer, value_type *_first, value_type *_last) PLX_NOTHROW
      : _next(_buffer),
        end(_buffer + (_last - _first)),
        _gap(_first) {
    __zor::_move_bytes(_buffer, _first, static_cast<std::size_t>(_last - _first));
  }
  ~_buffered_side() { __zor::_move_bytes(_gap, _next, static_cast<std::size_t>(end - _next)); }

  value_type *_next;
  value_type *end;
  value_type *_gap;

private:
  _buffered_side(const _buffered_side &);
  _buffered_side &operator=(const _buffered_side &);
};

// Scalars: which side an element comes from is a number, not a branch.
template <class _T, class _Before>
void _merge_forward(_T *_first, _T *_middle, _T *_last, _T *_buffer, _Before &_before, _yes) {
  _T *_left = _buffer, *const _left_end = _buffer + (_middle - _first);
  __zor::_move_bytes(_buffer, _first, static_cast<std::size_t>(_middle - _first));
  while (_left != _left_end && _middle != _last) {
    _T _a = *_left, _b = *_middle;
    std::size_t _from_right = bool(_before(_b, _a));
    *_first = _from_right ? _b : _a;
    ++_first;
    PLX_OPAQUE(_from_right);
    _middle += _from_right;
    _left += 1 - _from_right;
  }
  __zor::_move_bytes(_first, _left, static_cast<std::size_t>(_left_end - _left));
}

// The left side waits in the buffer, and the merged range grows from the front.
template <class _Iterator, class _T, class _Before>
void _merge_forward(_Iterator _first, _Iterator _middle, _Iterator _last, _T *_buffer, _Before &_before, _no) {
  _buffered_side<_Iterator, _T> _left(_buffer, _first, _middle);
  while (_left._next != _left.end && bool(_middle != _last)) {
    if (_before(*_middle, *_left._next)) {
      *_left._gap = __zor::_move_from(_middle);
      ++_middle;
    } else {
      *_left._gap = __zor::_move_from(_left._next);
      ++_left._next;
    }
    ++_left._gap;
  }
  __zor::_move_range(_left._next, _left.end, _left._gap);
  _left._next = _left.end;
}

// The right side waits, and the merged range grows from the back. The gap is before `_to`.
template <class _Iterator, class _T, class _Before>
void _merge_backward(_Iterator _first, _Iterator _middle, _Iterator _last, _T *_buffer, _Before &_before) {
  _buffered_side<_Iterator, _T> _right(_buffer, _middle, _last);
  _Iterator _to = _last;
  while (_right._next != _right.end && bool(_first != _middle)) {
    _Iterator _left_last = _middle;
    --_left_last;
    _T *_right_last = _right.end - 1;
    --_to;
    if (_before(*_right_last, *_left_last)) {
      *_to = __zor::_move_from(_left_last);
      _middle = _left_last;
      _right._gap = _middle;
    } else {
      *_to = __zor::_move_from(_right_last);
      _right.end = _right_last;
    }
  }
  __zor::_move_range_backward(_right._next, _right.end, _to);
  _right._next = _right.end;
}

// Two ordered neighbours of m and n elements.
template <class _Iterator, class _Distance, class _T, class _Before>
void _merge_neighbours(_Iterator _first, _Iterator _middle, _Iterator _last, _Distance _m, _Distance _n, _T *_buffer,
                       _Distance _room, _Before &_before) {
  while (_m != 0 && _n != 0) {
    if (_m <= _n && _m <= _room) {
      __zor::_merge_forward(_first, _middle, _last, _buffer, _before,
                            typename _truth<_partitioned_as_scalars<_Iterator>::value>::_type());
      return;
    }
    if (_n <= _room) {
      __zor::_merge_backward(_first, _middle, _last, _buffer, _before);
      return;
    }
    if (_m == 1 && _n == 1) {
      if (_before(*_middle, *_first)) std::iter_swap(_first, _middle);
      return;
    }
    // Cut the longer side in half and the other where that half's border would go; the inner pieces change places.
    _Iterator _left_cut = _first, _right_cut = _middle;
    _Distance _left_n, _right_n;
    if (_m > _n) {
      _left_n = _m / 2;
      std::advance(_left_cut, _left_n);
      _right_cut = __zor::lower_bound(_middle, _last, _left_cut, _before);
      _right_n = static_cast<_Distance>(std::distance(_middle, _right_cut));
    } else {
      _right_n = _n / 2;
      std::advance(_right_cut, _right_n);
      _left_cut = __zor::upper_bound(_first, _middle, _right_cut, _before);
      _left_n = static_cast<_Distance>(std::distance(_first, _left_cut));
    }
    const _Iterator _new_middle = __zor::_rotate_range(_left_cut, _middle, _right_cut);
    __zor::_merge_neighbours(_first, _left_cut, _new_middle, _left_n, _right_n, _buffer, _room, _before);
    _first = _new_middle;
    _middle = _right_cut;
    _m -= _left_n;
    _n -= _right_n;
  }
}

// ---- stable_sort ---------------------------------------------------------------------------------------------------

// Insertion of six costs at most 15 comparisons; with more, the whole could need more than n log n. Scalars are beyond
// that, and insertion is the fastest for some more of them.
template <class _Iterator, class _Before> struct _merged_from {
  static const int value = _is_scalar_order<_Iterator, _Before>::value ? static_cast<int>(_insertion_limit) : 6;
};

template <class _Iterator, class _Distance, class _T, class _Before>
void _merge_sort(_Iterator _first, _Iterator _last, _Distance _n, _T *_buffer, _Distance _room, _Before &_before) {
  if (_n <= _merged_from<_Iterator, _Before>::value) {
    __zor::_insertion_sort(_first, _last, _before);
    return;
  }
  const _Distance _half = _n / 2;
  const _Iterator _middle = _first + _half;
  __zor::_merge_sort(_first, _middle, _half, _buffer, _room, _before);
  __zor::_merge_sort(_middle, _last, static_cast<_Distance>(_n - _half), _buffer, _room, _before);
  if (!bool(_before(*_middle, *(_middle - 1)))) return;
  __zor::_merge_neighbours(_first, _middle, _last, _half, static_cast<_Distance>(_n - _half), _buffer, _room, _before);
}

template <class _Iterator, class _Before>
void _stable_sort_by_merging(_Iterator _first, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::value_type _value_type;
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  const _distance_type _n = _last - _first;
  if (_n <= _merged_from<_Iterator, _Before>::value) {
    __zor::_insertion_sort(_first, _last, _before);
    return;
  }
  const _raw_buffer<_value_type> _buffer(_n - _n / 2);
  __zor::_merge_sort(_first, _last, _n, _buffer.begin(), static_cast<_distance_type>(_buffer.size()), _before);
}

// Integers by their digits of eight bits, from the lowest: equal ones cannot be told apart by anything but their order,
// which each pass keeps. Digits that all share are skipped.
template <bool _descending, class _T> inline unsigned int _digit_of(_T _value, int _shift) {
  const bool _is_signed = static_cast<_T>(-1) < static_cast<_T>(1);
  unsigned int _bits = static_cast<unsigned int>(_value);
  if (_is_signed) _bits ^= 1u << (sizeof(_T) * 8 - 1);
  if (_descending) _bits = ~_bits;
  return _bits >> _shift & 255;
}

template <bool _descending, class _T> void _sort_by_digits(_T *_first, std::size_t _n, _T *_buffer) {
  std::size_t _counts[sizeof(_T)][256];
  ::memset(_counts, 0, sizeof _counts);
  for (std::size_t _i = 0; _i < _n; ++_i)
    for (unsigned int _k = 0; _k < sizeof(_T); ++_k)
      ++_counts[_k][__zor::_digit_of<_descending>(_first[_i], static_cast<int>(_k * 8))];
  _T *_from = _first, *_to = _buffer;
  for (unsigned int _k = 0; _k < sizeof(_T); ++_k) {
    const int _shift = static_cast<int>(_k * 8);
    if (_counts[_k][__zor::_digit_of<_descending>(_first[0], _shift)] == _n) continue;
    std::size_t _at = 0;
    for (unsigned int _digit = 0; _digit < 256; ++_digit) {
      const std::size_t _count = _counts[_k][_digit];
      _counts[_k][_digit] = _at;
      _at += _count;
    }
    for (std::size_t _i = 0; _i < _n; ++_i) {
      const _T _value = _from[_i];
      _to[_counts[_k][__zor::_digit_of<_descending>(_value, _shift)]++] = _value;
    }
    _T *const _other = _from;
    _from = _to;
    _to = _other;
  }
  if (_from != _first) __zor::_move_bytes(_first, _from, _n);
}

template <class _Iterator, class _Before> struct _is_sorted_by_digits { static const bool value = false; };
template <class _T, class _Before> struct _is_sorted_by_digits<_T *, _Before> {
  static const bool value = _is_integral<_T>::value && !_same_type<_T, bool>::value && sizeof(_T) <= sizeof(int) &&
                            _direction_of<_T, _Before>::value != 0;
};

template <bool _by_digits> struct _stable_sorter {
  template <class _Iterator, class _Before> static void _run(_Iterator _first, _Iterator _last, _Before &_before) {
    __zor::_stable_sort_by_merging(_first, _last, _before);
  }
};
template <> struct _stable_sorter<true> {
  enum { _few = 192 };
  template <class _T, class _Before> static void _run(_T *_first, _T *_last, _Before &_before) {
    const std::ptrdiff_t _n = _last - _first;
    if (_n > _few) {
      _T *_at = _first + 1;
      while (_at != _last && !bool(_before(*_at, *(_at - 1)))) ++_at;
      if (_at == _last) return;
      const _raw_buffer<_T> _buffer(_n);
      if (_buffer.size() == _n) {
        __zor::_sort_by_digits<_direction_of<_T, _Before>::value == -1>(_first, static_cast<std::size_t>(_n),
                                                                        _buffer.begin());
        return;
      }
    }
    __zor::_stable_sort_by_merging(_first, _last, _before);
  }
};

// ---- inplace_merge -------------------------------------------------------------------------------------------------

template <class _Iterator, class _Before>
void inplace_merge(_Iterator _first, _Iterator _middle, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::value_type _value_type;
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  if (bool(_first == _middle) || bool(_middle == _last)) return;
  const _distance_type _m = std::distance(_first, _middle), _n = std::distance(_middle, _last);
  const _raw_buffer<_value_type> _buffer(_m < _n ? _m : _n);
  __zor::_merge_neighbours(_first, _middle, _last, _m, _n, _buffer.begin(), static_cast<_distance_type>(_buffer.size()),
                           _before);
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _A, class _Bt, class _Out, class _Compare>
PLX_HIDDEN _Out merge(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out, _Compare _before) {
  for (; bool(_first != _last) && bool(_other != _other_last); ++_out) {
    if (_before(*_other, *_first)) {
      *_out = *_other;
      ++_other;
    } else {
      *_out = *_first;
      ++_first;
    }
  }
  return std::copy(_other, _other_last, std::copy(_first, _last, _out));
}
template <class _A, class _Bt, class _Out>
inline _Out merge(_A _first, _A _last, _Bt _other, _Bt _other_last, _Out _out) {
  return std::merge(_first, _last, _other, _other_last, _out, __zor::_by_less());
}

template <class _Bidirectional, class _Compare>
inline void inplace_merge(_Bidirectional _first, _Bidirectional _middle, _Bidirectional _last, _Compare _before) {
  typedef __zor::_sorted_as<typename __zor::_unwrapped<_Bidirectional>::_type, _Compare> _as;
  typename _as::_order _order = _as::_made(_before);
  __zor::inplace_merge(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_middle)),
                       _as::_in(__zor::_unwrap(_last)), _order);
}
template <class _Bidirectional>
inline void inplace_merge(_Bidirectional _first, _Bidirectional _middle, _Bidirectional _last) {
  std::inplace_merge(_first, _middle, _last, __zor::_by_less());
}

template <class _Random, class _Compare> inline void stable_sort(_Random _first, _Random _last, _Compare _before) {
  typedef typename __zor::_unwrapped<_Random>::_type _plain;
  typedef __zor::_sorted_as<_plain, _Compare> _as;
  typename _as::_order _order = _as::_made(_before);
  __zor::_stable_sorter<__zor::_is_sorted_by_digits<_plain, _Compare>::value>::_run(
      _as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_last)), _order);
}
template <class _Random> inline void stable_sort(_Random _first, _Random _last) {
  std::stable_sort(_first, _last, __zor::_by_less());
}

}  // namespace std

#endif

// sort, partial_sort, partial_sort_copy and nth_element (1998, 25.3.1 and 25.3.2). Quicksort that looks for patterns:
// short ranges by insertion, ordered ones in one pass, many equal elements in linear time, and after too many uneven
// partitions a heap, so that the worst case stays n log n.
//
// Everything here tolerates an order that contradicts itself, as that of floating numbers with NaNs: the result is then
// some permutation, but no access leaves the range.
#ifndef PLX_SORT_H
#define PLX_SORT_H

#include <plx/algorithms/heap.h>
#include <plx/base/functions.h>

namespace __zor {
namespace _functions {

enum { _insertion_limit = 24, _ninther_limit = 128, _patience = 8 };

template <class _Iterator, class _Before>
PLX_NOINLINE void _insertion_sort(_Iterator _first, _Iterator _last, _Before &_before) {
  if (_first == _last) return;
  for (_Iterator _at = _first + 1; _at < _last; ++_at) {
    if (!bool(_before(*_at, *(_at - 1)))) continue;
    _held_element<_Iterator> _held(_at);
    do _held._fill_from(_held._hole - 1);
    while (bool(_held._hole != _first) && bool(_before(_held.value, *(_held._hole - 1))));
    _held._put_back();
  }
}

// For a range that is ordered but for a few elements; gives up, with false, when it is not.
template <class _Iterator, class _Before>
PLX_NOINLINE bool _insertion_sort_few(_Iterator _first, _Iterator _last, _Before &_before) {
  if (_first == _last) return true;
  typename std::iterator_traits<_Iterator>::difference_type _moved_so_far = 0;
  for (_Iterator _at = _first + 1; _at < _last; ++_at) {
    if (!bool(_before(*_at, *(_at - 1)))) continue;
    _held_element<_Iterator> _held(_at);
    do _held._fill_from(_held._hole - 1);
    while (bool(_held._hole != _first) && bool(_before(_held.value, *(_held._hole - 1))));
    _moved_so_far += _at - _held._hole;
    _held._put_back();
    if (_moved_so_far > _patience) return false;
  }
  return true;
}

template <class _Iterator, class _Before> inline void _sort_2(_Iterator _a, _Iterator _b, _Before &_before) {
  if (_before(*_b, *_a)) std::iter_swap(_a, _b);
}
template <class _Iterator, class _Before>
inline void _sort_3(_Iterator _a, _Iterator _b, _Iterator _c, _Before &_before) {
  __zor::_sort_2(_a, _b, _before);
  __zor::_sort_2(_b, _c, _before);
  __zor::_sort_2(_a, _b, _before);
}

// Puts a pivot of three or nine samples first.
template <class _Iterator, class _Before> void _choose_pivot(_Iterator _first, _Iterator _last, _Before &_before) {
  typename std::iterator_traits<_Iterator>::difference_type _half = (_last - _first) / 2;
  if (_last - _first <= _ninther_limit) {
    __zor::_sort_3(_first + _half, _first, _last - 1, _before);
    return;
  }
  __zor::_sort_3(_first, _first + _half, _last - 1, _before);
  __zor::_sort_3(_first + 1, _first + (_half - 1), _last - 2, _before);
  __zor::_sort_3(_first + 2, _first + (_half + 1), _last - 3, _before);
  __zor::_sort_3(_first + (_half - 1), _first + _half, _first + (_half + 1), _before);
  std::iter_swap(_first, _first + _half);
}

// ---- Partitions ----------------------------------------------------------------------------------------------------

template <class _Iterator> struct _partitioned_as_scalars { static const bool value = false; };
template <class _T> struct _partitioned_as_scalars<_T *> {
  static const bool value = _is_arithmetic<_T>::value || _is_pointer<_T>::value;
};

// The pivot stands first and goes to its final place, which is returned: before it is less, after it is not less.
// `_ordered` tells that nothing had to move.
template <bool _as_scalars> struct _pivot_partition {
  template <class _Iterator, class _Before>
  static _Iterator _run(_Iterator _first, _Iterator _last, _Before &_before, bool &_ordered) {
    _Iterator _left = _first, _right = _last;
    do ++_left;
    while (bool(_left < _last) && bool(_before(*_left, *_first)));
    do --_right;
    while (bool(_left <= _right) && !bool(_before(*_right, *_first)));
    _ordered = _left > _right;
    while (_left < _right) {
      std::iter_swap(_left, _right);
      do ++_left;
      while (bool(_left < _right) && bool(_before(*_left, *_first)));
      do --_right;
      while (bool(_left <= _right) && !bool(_before(*_right, *_first)));
    }
    --_left;
    if (_left != _first) std::iter_swap(_first, _left);
    return _left;
  }
};

// Scalars, without branches on comparisons: each element changes places with the first that is not less, and the border
// moves on by one or by none. What is in descending order becomes ascending before, where branches are foreseen.
template <> struct _pivot_partition<true> {
  template <class _T, class _Before> static _T *_run(_T *_first, _T *_last, _Before &_before, bool &_ordered) {
    _T _pivot = *_first;  // not constant: an order may take its arguments by reference
    _T *_left = _first + 1, *_right = _last;
    while (_left < _last && bool(_before(*_left, _pivot))) ++_left;
    while (_left < _right && !bool(_before(*(_right - 1), _pivot))) --_right;
    _ordered = _left >= _right;
    for (; _left < _right && !bool(_before(*_left, _pivot)) && bool(_before(*(_right - 1), _pivot)); ++_left)
      std::swap(*_left, *--_right);
    for (_T *_at = _left; _at < _right; ++_at) {
      _T _value = *_at;
      *_at = *_left;
      *_left = _value;
      _left += bool(_before(_value, _pivot));
    }
    --_left;
    *_first = *_left;
    *_left = _pivot;
    return _left;
  }
};

// As above, but the pivot and its equals go to the left: for a range that has nothing less than its pivot.
template <class _Iterator, class _Before>
_Iterator _partition_equal(_Iterator _first, _Iterator _last, _Before &_before) {
  _Iterator _left = _first, _right = _last;
  do --_right;
  while (bool(_left < _right) && bool(_before(*_first, *_right)));
  for (;;) {
    do ++_left;
    while (bool(_left < _right) && !bool(_before(*_first, *_left)));
    if (_left >= _right) break;
    std::iter_swap(_left, _right);
    do --_right;
    while (bool(_left < _right) && bool(_before(*_first, *_right)));
  }
  if (_right != _first) std::iter_swap(_first, _right);
  return _right;
}

// Breaks the pattern that made a partition uneven.
template <class _Iterator> void _stir(_Iterator _first, _Iterator _last) {
  typename std::iterator_traits<_Iterator>::difference_type _n = _last - _first, _quarter = _n / 4;
  if (_n < _insertion_limit) return;
  std::iter_swap(_first, _first + _quarter);
  std::iter_swap(_last - 1, _last - _quarter);
  if (_n <= _ninther_limit) return;
  std::iter_swap(_first + 1, _first + (_quarter + 1));
  std::iter_swap(_first + 2, _first + (_quarter + 2));
  std::iter_swap(_last - 2, _last - (_quarter + 1));
  std::iter_swap(_last - 3, _last - (_quarter + 2));
}

// ---- sort, nth_element ---------------------------------------------------------------------------------------------

template <class _Iterator, class _Before> inline void _heap_sort(_Iterator _first, _Iterator _last, _Before &_before) {
  __zor::make_heap(_first, _last, _before);
  __zor::sort_heap(_first, _last, _before);
}

// Pattern-defeating quicksort: a partition that moved nothing is tried as an insertion sort, elements equal to the
// bound from below are set aside at once, uneven partitions are shuffled, and after too many of them heapsort takes
// over.
// `_leftmost`: there is no element before `_first` that bounds the range from below.
template <class _Iterator, class _Before>
void _quick_sort(_Iterator _first, _Iterator _last, _Before &_before, int _uneven_allowed, bool _leftmost) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  for (;;) {
    const _distance_type _n = _last - _first;
    if (_n <= _insertion_limit) {
      __zor::_insertion_sort(_first, _last, _before);
      return;
    }
    __zor::_choose_pivot(_first, _last, _before);
    if (!_leftmost && !bool(_before(*(_first - 1), *_first))) {
      _first = __zor::_partition_equal(_first, _last, _before);
      ++_first;
      continue;
    }
    bool _ordered;
    const _Iterator _pivot =
        _pivot_partition<_partitioned_as_scalars<_Iterator>::value>::_run(_first, _last, _before, _ordered);
    const _distance_type _left = _pivot - _first, _right = _last - _pivot - 1;
    if (_left < _n / 8 || _right < _n / 8) {
      if (--_uneven_allowed < 0) {
        __zor::_heap_sort(_first, _last, _before);
        return;
      }
      __zor::_stir(_first, _pivot);
      __zor::_stir(_pivot + 1, _last);
    } else if (_ordered && __zor::_insertion_sort_few(_first, _pivot, _before) &&
               __zor::_insertion_sort_few(_pivot + 1, _last, _before)) {
      return;
    }
    __zor::_quick_sort(_first, _pivot, _before, _uneven_allowed, _leftmost);
    _first = _pivot + 1;
    _leftmost = false;
  }
}

template <class _Iterator, class _Before>
void _select(_Iterator _first, _Iterator _nth, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  bool _leftmost = true;
  for (int _uneven_allowed = __zor::_logarithm(_last - _first);;) {
    const _distance_type _n = _last - _first;
    if (_n <= _insertion_limit) {
      __zor::_insertion_sort(_first, _last, _before);
      return;
    }
    __zor::_choose_pivot(_first, _last, _before);
    if (!_leftmost && !bool(_before(*(_first - 1), *_first))) {
      const _Iterator _equal_end = __zor::_partition_equal(_first, _last, _before);
      if (_nth <= _equal_end) return;
      _first = _equal_end + 1;
      continue;
    }
    bool _ordered;
    const _Iterator _pivot =
        _pivot_partition<_partitioned_as_scalars<_Iterator>::value>::_run(_first, _last, _before, _ordered);
    if (_pivot == _nth) return;
    const _distance_type _left = _pivot - _first, _right = _last - _pivot - 1;
    if (_left < _n / 8 || _right < _n / 8) {
      if (--_uneven_allowed < 0) {
        __zor::_select_heap(_first, _nth + 1, _last, _before);
        std::iter_swap(_first, _nth);
        return;
      }
      __zor::_stir(_first, _pivot);
      __zor::_stir(_pivot + 1, _last);
    }
    if (_nth < _pivot) {
      _last = _pivot;
    } else {
      _first = _pivot + 1;
      _leftmost = false;
    }
  }
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Random, class _Compare> inline void sort(_Random _first, _Random _last, _Compare _before) {
  typedef __zor::_sorted_as<typename __zor::_unwrapped<_Random>::_type, _Compare> _as;
  typename _as::_order _order = _as::_made(_before);
  __zor::_quick_sort(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_last)), _order,
                     __zor::_logarithm(_last - _first), true);
}
template <class _Random> inline void sort(_Random _first, _Random _last) {
  std::sort(_first, _last, __zor::_by_less());
}

template <class _Random, class _Compare>
inline void nth_element(_Random _first, _Random _nth, _Random _last, _Compare _before) {
  typedef __zor::_sorted_as<typename __zor::_unwrapped<_Random>::_type, _Compare> _as;
  if (_nth == _last) return;
  typename _as::_order _order = _as::_made(_before);
  __zor::_select(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_nth)), _as::_in(__zor::_unwrap(_last)),
                 _order);
}
template <class _Random> inline void nth_element(_Random _first, _Random _nth, _Random _last) {
  std::nth_element(_first, _nth, _last, __zor::_by_less());
}

template <class _Random, class _Compare>
inline void partial_sort(_Random _first, _Random _middle, _Random _last, _Compare _before) {
  typedef __zor::_sorted_as<typename __zor::_unwrapped<_Random>::_type, _Compare> _as;
  if (_first == _middle) return;
  typename _as::_order _order = _as::_made(_before);
  __zor::_select_heap(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_middle)),
                      _as::_in(__zor::_unwrap(_last)), _order);
  __zor::sort_heap(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_middle)), _order);
}
template <class _Random> inline void partial_sort(_Random _first, _Random _middle, _Random _last) {
  std::partial_sort(_first, _middle, _last, __zor::_by_less());
}

template <class _In, class _Random, class _Compare>
PLX_HIDDEN _Random partial_sort_copy(_In _first, _In _last, _Random _out, _Random _out_last, _Compare _before) {
  typedef typename iterator_traits<_Random>::difference_type _distance_type;
  _Random _end = _out;
  for (; bool(_first != _last) && bool(_end != _out_last); ++_first, (void)++_end) *_end = *_first;
  if (_end == _out) return _end;
  __zor::make_heap(_out, _end, _before);
  for (; _first != _last; ++_first) {
    if (!bool(_before(*_first, *_out))) continue;
    // What is read from the input takes the place of the largest.
    *_out = *_first;
    __zor::_held_element<_Random> _held(_out);
    __zor::_sink(_out, _distance_type(0), _distance_type(_end - _out), _held, _before);
  }
  __zor::sort_heap(_out, _end, _before);
  return _end;
}
template <class _In, class _Random>
inline _Random partial_sort_copy(_In _first, _In _last, _Random _out, _Random _out_last) {
  return std::partial_sort_copy(_first, _last, _out, _out_last, __zor::_by_less());
}

}  // namespace std

#endif

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

enum { insertion_limit = 24, ninther_limit = 128, _patience = 8 };

template <class _Iterator, class _Before> void insertion_sort(_Iterator _first, _Iterator _last, _Before &_before) {
  if (_first == _last) return;
  for (_Iterator _at = _first + 1; _at < _last; ++_at) {
    if (!bool(_before(*_at, *(_at - 1)))) continue;
    held_element<_Iterator> _held(_at);
    do _held._fill_from(_held._hole - 1);
    while (bool(_held._hole != _first) && bool(_before(_held.value, *(_held._hole - 1))));
    _held._put_back();
  }
}

// For a range that is ordered but for a few elements; gives up, with false, when it is not.
template <class _Iterator, class _Before> bool insertion_sort_few(_Iterator _first, _Iterator _last, _Before &_before) {
  if (_first == _last) return true;
  typename std::iterator_traits<_Iterator>::difference_type _moved_so_far = 0;
  for (_Iterator _at = _first + 1; _at < _last; ++_at) {
    if (!bool(_before(*_at, *(_at - 1)))) continue;
    held_element<_Iterator> _held(_at);
    do _held._fill_from(_held._hole - 1);
    while (bool(_held._hole != _first) && bool(_before(_held.value, *(_held._hole - 1))));
    _moved_so_far += _at - _held._hole;
    _held._put_back();
    if (_moved_so_far > _patience) return false;
  }
  return true;
}

template <class _Iterator, class _Before> inline void sort_2(_Iterator _a, _Iterator _b, _Before &_before) {
  if (_before(*_b, *_a)) std::iter_swap(_a, _b);
}
template <class _Iterator, class _Before>
inline void sort_3(_Iterator _a, _Iterator _b, _Iterator _c, _Before &_before) {
  __zor::sort_2(_a, _b, _before);
  __zor::sort_2(_b, _c, _before);
  __zor::sort_2(_a, _b, _before);
}

// Puts a pivot of three or nine samples first.
template <class _Iterator, class _Before> void choose_pivot(_Iterator _first, _Iterator _last, _Before &_before) {
  typename std::iterator_traits<_Iterator>::difference_type _half = (_last - _first) / 2;
  if (_last - _first <= ninther_limit) {
    __zor::sort_3(_first + _half, _first, _last - 1, _before);
    return;
  }
  __zor::sort_3(_first, _first + _half, _last - 1, _before);
  __zor::sort_3(_first + 1, _first + (_half - 1), _last - 2, _before);
  __zor::sort_3(_first + 2, _first + (_half + 1), _last - 3, _before);
  __zor::sort_3(_first + (_half - 1), _first + _half, _first + (_half + 1), _before);
  std::iter_swap(_first, _first + _half);
}

// ---- Partitions ----------------------------------------------------------------------------------------------------

template <class _Iterator> struct partitioned_by_blocks { static const bool value = false; };
template <class _T> struct partitioned_by_blocks<_T *> {
  static const bool value = is_arithmetic<_T>::value || is_pointer<_T>::value;
};

// The pivot stands first and goes to its final place, which is returned: before it is less, after it is not less.
// `_ordered` tells that nothing had to move.
template <bool _by_blocks> struct pivot_partition {
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

// Scalars, without branches on comparisons: where the misplaced elements are is noted in blocks of offsets, from both
// ends, and then as many as both sides have change places.
template <> struct pivot_partition<true> {
  enum { _block = 64 };

  template <class _T, class _Before> static _T *_run(_T *_first, _T *_last, _Before &_before, bool &_ordered) {
    _T _pivot = *_first;
    _T *_left = _first + 1, *_right = _last;
    while (_left < _last && bool(_before(*_left, _pivot))) ++_left;
    while (_left < _right && !bool(_before(*(_right - 1), _pivot))) --_right;
    _ordered = _left >= _right;
    if (!_ordered) _left = _split(_left, _right, _pivot, _before);
    --_left;
    *_first = *_left;
    *_left = _pivot;
    return _left;
  }

private:
  // Returns where those that are not less than the pivot begin.
  template <class _T, class _Before> static _T *_split(_T *_left, _T *_right, _T _pivot, _Before &_before) {
    unsigned char _left_offsets[_block], _right_offsets[_block];
    unsigned int _left_count = 0, _right_count = 0, _left_at = 0, _right_at = 0;
    _T *_left_base = _left, *_right_base = _right;
    while (_left < _right) {
      const std::ptrdiff_t _unknown = _right - _left;
      if (_left_count == 0) {
        const std::ptrdiff_t _share = _right_count == 0 ? (_unknown + 1) / 2 : _unknown;
        const unsigned int _n = _share < _block ? static_cast<unsigned int>(_share) : static_cast<unsigned int>(_block);
        _left_at = 0;
        _left_base = _left;
        _left_count = _note<false>(_left, _n, _pivot, _before, _left_offsets);
        _left += _n;
      }
      if (_right_count == 0) {
        const std::ptrdiff_t _share = _right - _left;
        const unsigned int _n = _share < _block ? static_cast<unsigned int>(_share) : static_cast<unsigned int>(_block);
        _right_at = 0;
        _right_base = _right - 1;
        _right_count = _note<true>(_right, _n, _pivot, _before, _right_offsets);
        _right -= _n;
      }
      const unsigned int _n = _left_count < _right_count ? _left_count : _right_count;
      _exchange(_left_base, _left_offsets + _left_at, _right_base, _right_offsets + _right_at, _n);
      _left_at += _n;
      _left_count -= _n;
      _right_at += _n;
      _right_count -= _n;
    }
    // What one side has left over goes to the border, the outermost last.
    for (; _left_count != 0; --_left_count) {
      --_left;
      std::swap(_left_base[_left_offsets[_left_at + _left_count - 1]], *_left);
    }
    for (; _right_count != 0; --_right_count) {
      std::swap(*(_right_base - _right_offsets[_right_at + _right_count - 1]), *_left);
      ++_left;
    }
    return _left;
  }

  // Offsets of misplaced elements: upward from `_from`, or downward below it.
  template <bool _downward, class _T, class _Before>
  static unsigned int _note(_T *_from, unsigned int _n, _T _pivot, _Before &_before, unsigned char *_offsets) {
    unsigned int _count = 0;
    for (unsigned int _i = 0; _i < _n; ++_i) {
      _offsets[_count] = static_cast<unsigned char>(_i);
      if (_downward)
        _count += bool(_before(*--_from, _pivot));
      else
        _count += !bool(_before(*_from++, _pivot));
    }
    return _count;
  }

  // In a cycle, which takes two stores for a pair where a swap takes three moves.
  template <class _T> static void _exchange(_T *_left, const unsigned char *_left_offsets, _T *_right,
                                            const unsigned char *_right_offsets, unsigned int _n) {
    if (_n == 0) return;
    _T *_l = _left + _left_offsets[0], *_r = _right - _right_offsets[0];
    const _T _held = *_l;
    *_l = *_r;
    for (unsigned int _i = 1; _i < _n; ++_i) {
      _l = _left + _left_offsets[_i];
      *_r = *_l;
      _r = _right - _right_offsets[_i];
      *_l = *_r;
    }
    *_r = _held;
  }
};

// As above, but the pivot and its equals go to the left: for a range that has nothing less than its pivot.
template <class _Iterator, class _Before>
_Iterator partition_equal(_Iterator _first, _Iterator _last, _Before &_before) {
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
  if (_n < insertion_limit) return;
  std::iter_swap(_first, _first + _quarter);
  std::iter_swap(_last - 1, _last - _quarter);
  if (_n <= ninther_limit) return;
  std::iter_swap(_first + 1, _first + (_quarter + 1));
  std::iter_swap(_first + 2, _first + (_quarter + 2));
  std::iter_swap(_last - 2, _last - (_quarter + 1));
  std::iter_swap(_last - 3, _last - (_quarter + 2));
}

// ---- sort, nth_element ---------------------------------------------------------------------------------------------

template <class _Iterator, class _Before> inline void heap_sort(_Iterator _first, _Iterator _last, _Before &_before) {
  __zor::make_heap(_first, _last, _before);
  __zor::sort_heap(_first, _last, _before);
}

// Pattern-defeating quicksort: a partition that moved nothing is tried as an insertion sort, elements equal to the bound
// from below are set aside at once, uneven partitions are shuffled, and after too many of them heapsort takes over.
// `_leftmost`: there is no element before `_first` that bounds the range from below.
template <class _Iterator, class _Before>
void quick_sort(_Iterator _first, _Iterator _last, _Before &_before, int _uneven_allowed, bool _leftmost) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  for (;;) {
    const _distance_type _n = _last - _first;
    if (_n <= insertion_limit) {
      __zor::insertion_sort(_first, _last, _before);
      return;
    }
    __zor::choose_pivot(_first, _last, _before);
    if (!_leftmost && !bool(_before(*(_first - 1), *_first))) {
      _first = __zor::partition_equal(_first, _last, _before);
      ++_first;
      continue;
    }
    bool _ordered;
    const _Iterator _pivot =
        pivot_partition<partitioned_by_blocks<_Iterator>::value>::_run(_first, _last, _before, _ordered);
    const _distance_type _left = _pivot - _first, _right = _last - _pivot - 1;
    if (_left < _n / 8 || _right < _n / 8) {
      if (--_uneven_allowed < 0) {
        __zor::heap_sort(_first, _last, _before);
        return;
      }
      __zor::_stir(_first, _pivot);
      __zor::_stir(_pivot + 1, _last);
    } else if (_ordered && __zor::insertion_sort_few(_first, _pivot, _before) &&
               __zor::insertion_sort_few(_pivot + 1, _last, _before)) {
      return;
    }
    __zor::quick_sort(_first, _pivot, _before, _uneven_allowed, _leftmost);
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
    if (_n <= insertion_limit) {
      __zor::insertion_sort(_first, _last, _before);
      return;
    }
    __zor::choose_pivot(_first, _last, _before);
    if (!_leftmost && !bool(_before(*(_first - 1), *_first))) {
      const _Iterator _equal_end = __zor::partition_equal(_first, _last, _before);
      if (_nth <= _equal_end) return;
      _first = _equal_end + 1;
      continue;
    }
    bool _ordered;
    const _Iterator _pivot =
        pivot_partition<partitioned_by_blocks<_Iterator>::value>::_run(_first, _last, _before, _ordered);
    if (_pivot == _nth) return;
    const _distance_type _left = _pivot - _first, _right = _last - _pivot - 1;
    if (_left < _n / 8 || _right < _n / 8) {
      if (--_uneven_allowed < 0) {
        __zor::select_heap(_first, _nth + 1, _last, _before);
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
  typedef __zor::sorted_as<typename __zor::_unwrapped<_Random>::_type, _Compare> _as;
  typename _as::_order _order = _as::_made(_before);
  __zor::quick_sort(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_last)), _order,
                    __zor::_logarithm(_last - _first), true);
}
template <class _Random> inline void sort(_Random _first, _Random _last) { std::sort(_first, _last, __zor::by_less()); }

template <class _Random, class _Compare>
inline void nth_element(_Random _first, _Random _nth, _Random _last, _Compare _before) {
  typedef __zor::sorted_as<typename __zor::_unwrapped<_Random>::_type, _Compare> _as;
  if (_nth == _last) return;
  typename _as::_order _order = _as::_made(_before);
  __zor::_select(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_nth)), _as::_in(__zor::_unwrap(_last)),
                 _order);
}
template <class _Random> inline void nth_element(_Random _first, _Random _nth, _Random _last) {
  std::nth_element(_first, _nth, _last, __zor::by_less());
}

template <class _Random, class _Compare>
inline void partial_sort(_Random _first, _Random _middle, _Random _last, _Compare _before) {
  typedef __zor::sorted_as<typename __zor::_unwrapped<_Random>::_type, _Compare> _as;
  if (_first == _middle) return;
  typename _as::_order _order = _as::_made(_before);
  __zor::select_heap(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_middle)),
                     _as::_in(__zor::_unwrap(_last)), _order);
  __zor::sort_heap(_as::_in(__zor::_unwrap(_first)), _as::_in(__zor::_unwrap(_middle)), _order);
}
template <class _Random> inline void partial_sort(_Random _first, _Random _middle, _Random _last) {
  std::partial_sort(_first, _middle, _last, __zor::by_less());
}

template <class _In, class _Random, class _Compare>
_Random partial_sort_copy(_In _first, _In _last, _Random _out, _Random _out_last, _Compare _before) {
  typedef typename iterator_traits<_Random>::difference_type _distance_type;
  _Random _end = _out;
  for (; bool(_first != _last) && bool(_end != _out_last); ++_first, (void)++_end) *_end = *_first;
  if (_end == _out) return _end;
  __zor::make_heap(_out, _end, _before);
  for (; _first != _last; ++_first) {
    if (!bool(_before(*_first, *_out))) continue;
    // What is read from the input takes the place of the largest.
    *_out = *_first;
    __zor::held_element<_Random> _held(_out);
    __zor::_sink(_out, _distance_type(0), _distance_type(_end - _out), _held, _before);
  }
  __zor::sort_heap(_out, _end, _before);
  return _end;
}
template <class _In, class _Random>
inline _Random partial_sort_copy(_In _first, _In _last, _Random _out, _Random _out_last) {
  return std::partial_sort_copy(_first, _last, _out, _out_last, __zor::by_less());
}

}  // namespace std

#endif

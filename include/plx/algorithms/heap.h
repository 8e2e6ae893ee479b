// Heaps (1998, 25.3.6). An element sinks along the path of the larger children to the bottom and then rises to its
// place: about half the comparisons of asking at each step whether it fits.
#ifndef PLX_HEAP_H
#define PLX_HEAP_H

#include <plx/base/functions.h>
#include <plx/base/held_element.h>
#include <plx/base/ordering.h>

namespace __zor {
namespace _functions {

// The held element's hole is at `_at`; rises at most to `_top`.
template <class _Iterator, class _Distance, class _Before>
void _rise(_Iterator _first, _Distance _at, _Distance _top, _held_element<_Iterator> &_held, _Before &_before) {
  while (_at > _top) {
    const _Distance _parent = static_cast<_Distance>((_at - 1) / 2);
    if (!bool(_before(*(_first + _parent), _held.value))) break;
    _held._fill_from(_first + _parent);
    _at = _parent;
  }
  _held._put_back();
}

template <class _Iterator, class _Distance, class _Before>
void _sink(_Iterator _first, _Distance _at, _Distance _n, _held_element<_Iterator> &_held, _Before &_before) {
  // Those before `_pairs` have two children. No number is greater than _n, which may be all that a _Distance holds.
  const _Distance _top = _at, _pairs = static_cast<_Distance>((_n - 1) / 2);
  while (_at < _pairs) {
    _Distance _child = static_cast<_Distance>(2 * _at + 1);
    // Added, not branched on: which child is larger cannot be predicted.
    _child = static_cast<_Distance>(_child + bool(_before(*(_first + _child), *(_first + (_child + 1)))));
    _held._fill_from(_first + _child);
    _at = _child;
  }
  if (_at == _pairs && _n % 2 == 0) {
    _at = static_cast<_Distance>(_n - 1);
    _held._fill_from(_first + _at);
  }
  __zor::_rise(_first, _at, _top, _held, _before);
}

template <class _Iterator, class _Before> void push_heap(_Iterator _first, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  const _distance_type _n = _last - _first;
  if (_n < 2) return;
  _held_element<_Iterator> _held(_last - 1);
  __zor::_rise(_first, static_cast<_distance_type>(_n - 1), _distance_type(0), _held, _before);
}

template <class _Iterator, class _Before> void pop_heap(_Iterator _first, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  if (_last - _first < 2) return;
  _held_element<_Iterator> _held(_last - 1);
  _held._fill_from(_first);
  __zor::_sink(_first, _distance_type(0), _distance_type(_last - _first - 1), _held, _before);
}

template <class _Iterator, class _Before> void make_heap(_Iterator _first, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  const _distance_type _n = _last - _first;
  for (_distance_type _at = _n / 2; _at > 0;) {
    --_at;
    _held_element<_Iterator> _held(_first + _at);
    __zor::_sink(_first, _at, _n, _held, _before);
  }
}

template <class _Iterator, class _Before> void sort_heap(_Iterator _first, _Iterator _last, _Before &_before) {
  for (; _last - _first > 1; --_last) __zor::pop_heap(_first, _last, _before);
}

// The smallest middle - first elements go before `_middle`, as a heap.
template <class _Iterator, class _Before>
void _select_heap(_Iterator _first, _Iterator _middle, _Iterator _last, _Before &_before) {
  typedef typename std::iterator_traits<_Iterator>::difference_type _distance_type;
  __zor::make_heap(_first, _middle, _before);
  for (_Iterator _at = _middle; _at < _last; ++_at) {
    if (!bool(_before(*_at, *_first))) continue;
    _held_element<_Iterator> _held(_at);
    _held._fill_from(_first);
    __zor::_sink(_first, _distance_type(0), _distance_type(_middle - _first), _held, _before);
  }
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Random, class _Compare> inline void push_heap(_Random _first, _Random _last, _Compare _before) {
  __zor::push_heap(__zor::_unwrap(_first), __zor::_unwrap(_last), _before);
}
template <class _Random> inline void push_heap(_Random _first, _Random _last) {
  std::push_heap(_first, _last, __zor::_by_less());
}
template <class _Random, class _Compare> inline void pop_heap(_Random _first, _Random _last, _Compare _before) {
  __zor::pop_heap(__zor::_unwrap(_first), __zor::_unwrap(_last), _before);
}
template <class _Random> inline void pop_heap(_Random _first, _Random _last) {
  std::pop_heap(_first, _last, __zor::_by_less());
}
template <class _Random, class _Compare> inline void make_heap(_Random _first, _Random _last, _Compare _before) {
  __zor::make_heap(__zor::_unwrap(_first), __zor::_unwrap(_last), _before);
}
template <class _Random> inline void make_heap(_Random _first, _Random _last) {
  std::make_heap(_first, _last, __zor::_by_less());
}
template <class _Random, class _Compare> inline void sort_heap(_Random _first, _Random _last, _Compare _before) {
  __zor::sort_heap(__zor::_unwrap(_first), __zor::_unwrap(_last), _before);
}
template <class _Random> inline void sort_heap(_Random _first, _Random _last) {
  std::sort_heap(_first, _last, __zor::_by_less());
}

}  // namespace std

#endif

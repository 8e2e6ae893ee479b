// min_element, max_element and the permutations in their order (1998, 25.3.7 and 25.3.9).
#ifndef PLX_EXTREMES_H
#define PLX_EXTREMES_H

#include <plx/algorithms/rotate.h>
#include <plx/base/algobase.h>
#include <plx/base/ordering.h>

namespace std {

template <class _Forward, class _Compare>
PLX_HIDDEN _Forward min_element(_Forward _first, _Forward _last, _Compare _before) {
  if (_first == _last) return _last;
  _Forward _least = _first;
  while (++_first != _last)
    if (_before(*_first, *_least)) _least = _first;
  return _least;
}
template <class _Forward> inline _Forward min_element(_Forward _first, _Forward _last) {
  return std::min_element(_first, _last, __zor::_by_less());
}

template <class _Forward, class _Compare>
PLX_HIDDEN _Forward max_element(_Forward _first, _Forward _last, _Compare _before) {
  if (_first == _last) return _last;
  _Forward _most = _first;
  while (++_first != _last)
    if (_before(*_most, *_first)) _most = _first;
  return _most;
}
template <class _Forward> inline _Forward max_element(_Forward _first, _Forward _last) {
  return std::max_element(_first, _last, __zor::_by_less());
}

// The last place where an element is before its successor changes; everything after it is in descending order, and is
// reversed. Without such a place the range starts again from the first permutation, and the result is false.
template <class _Bidirectional, class _Compare>
PLX_HIDDEN bool next_permutation(_Bidirectional _first, _Bidirectional _last, _Compare _before) {
  if (_first == _last) return false;
  _Bidirectional _at = _last;
  --_at;
  while (_at != _first) {
    const _Bidirectional _next = _at;
    --_at;
    if (!bool(_before(*_at, *_next))) continue;
    _Bidirectional _other = _last;
    do --_other;
    while (!bool(_before(*_at, *_other)));
    std::iter_swap(_at, _other);
    std::reverse(_next, _last);
    return true;
  }
  std::reverse(_first, _last);
  return false;
}
template <class _Bidirectional> inline bool next_permutation(_Bidirectional _first, _Bidirectional _last) {
  return std::next_permutation(_first, _last, __zor::_by_less());
}

template <class _Bidirectional, class _Compare>
PLX_HIDDEN bool prev_permutation(_Bidirectional _first, _Bidirectional _last, _Compare _before) {
  if (_first == _last) return false;
  _Bidirectional _at = _last;
  --_at;
  while (_at != _first) {
    const _Bidirectional _next = _at;
    --_at;
    if (!bool(_before(*_next, *_at))) continue;
    _Bidirectional _other = _last;
    do --_other;
    while (!bool(_before(*_other, *_at)));
    std::iter_swap(_at, _other);
    std::reverse(_next, _last);
    return true;
  }
  std::reverse(_first, _last);
  return false;
}
template <class _Bidirectional> inline bool prev_permutation(_Bidirectional _first, _Bidirectional _last) {
  return std::prev_permutation(_first, _last, __zor::_by_less());
}

}  // namespace std

#endif

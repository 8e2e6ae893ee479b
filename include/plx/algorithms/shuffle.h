// random_shuffle (1998, 25.2.11), with the library's generator or the program's.
#ifndef PLX_SHUFFLE_H
#define PLX_SHUFFLE_H

#include <plx/base/algobase.h>
#include <plx/base/random_generator.h>

namespace std {

// A generator is changed in its place; a temporary one can be given where the dialect has references to such.
#if __cplusplus >= 201103L
template <class _Random, class _Generator>
PLX_HIDDEN void random_shuffle(_Random _first, _Random _last, _Generator &&_below) {
#else
template <class _Random, class _Generator>
PLX_HIDDEN void random_shuffle(_Random _first, _Random _last, _Generator &_below) {
#endif
  typedef typename iterator_traits<_Random>::difference_type _distance_type;
  const _distance_type _n = _last - _first;
  for (_distance_type _i = 1; _i < _n; ++_i) {
    const _distance_type _other = static_cast<_distance_type>(_below(static_cast<_distance_type>(_i + 1)));
    if (_other != _i) std::iter_swap(_first + _i, _first + _other);
  }
}

template <class _Random> PLX_HIDDEN void random_shuffle(_Random _first, _Random _last) {
  typedef typename iterator_traits<_Random>::difference_type _distance_type;
  const _distance_type _n = _last - _first;
  for (_distance_type _i = 1; _i < _n; ++_i) {
    const _distance_type _other = static_cast<_distance_type>(__vexil_rd(static_cast<unsigned long>(_i + 1)));
    if (_other != _i) std::iter_swap(_first + _i, _first + _other);
  }
}

}  // namespace std

#endif

// gslice (1998, 26.3.6): the places of a part of a matrix of any number of dimensions, each with its length and stride.
// The last dimension changes fastest.
#ifndef PLX_GSLICE_H
#define PLX_GSLICE_H

#include <plx/numerics/valarray.h>

namespace std {

class gslice {
public:
  gslice() : _start_(0) {}
  gslice(size_t _start, const valarray<size_t> &_lengths, const valarray<size_t> &_strides)
      : _start_(_start), _lengths_(_lengths), _strides_(_strides) {}
  size_t start() const PLX_NOTHROW { return _start_; }
  valarray<size_t> size() const { return _lengths_; }
  valarray<size_t> stride() const { return _strides_; }

private:
  friend valarray<size_t> __zor::_places_of(const gslice &_places);

  size_t _start_;
  valarray<size_t> _lengths_;
  valarray<size_t> _strides_;
};

}  // namespace std

namespace __zor {

inline std::valarray<std::size_t> _places_of(const std::gslice &_slice) {
  const std::size_t _dimensions = _slice._lengths_.size();
  std::size_t _n = _dimensions != 0;
  for (std::size_t _d = 0; _d < _dimensions; ++_d) _n *= _slice._lengths_[_d];

  std::valarray<std::size_t> _places(_n), _counters(_dimensions);
  std::size_t _place = _slice._start_;
  for (std::size_t _i = 0; _i < _n; ++_i) {
    _places[_i] = _place;
    // As a counter with a digit for each dimension.
    for (std::size_t _d = _dimensions; _d-- != 0;) {
      _place += _slice._strides_[_d];
      if (++_counters[_d] != _slice._lengths_[_d]) break;
      _place -= _slice._lengths_[_d] * _slice._strides_[_d];
      _counters[_d] = 0;
    }
  }
  return _places;
}

}  // namespace __zor

#endif

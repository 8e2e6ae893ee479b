// gslice (1998, 26.3.6): the places of a part of a matrix of any number of dimensions, each with its length and stride.
// The last dimension changes fastest.
#ifndef PLX_GSLICE_H
#define PLX_GSLICE_H

#include <plx/valarray.h>

namespace std {

class gslice {
public:
  gslice() : start_(0) {}
  gslice(size_t start, const valarray<size_t> &lengths, const valarray<size_t> &strides)
      : start_(start), lengths_(lengths), strides_(strides) {}
  size_t start() const PLX_NOTHROW { return start_; }
  valarray<size_t> size() const { return lengths_; }
  valarray<size_t> stride() const { return strides_; }

private:
  friend valarray<size_t> __zor::places_of(const gslice &places);

  size_t start_;
  valarray<size_t> lengths_;
  valarray<size_t> strides_;
};

}  // namespace std

namespace __zor {

inline std::valarray<std::size_t> places_of(const std::gslice &slice) {
  const std::size_t dimensions = slice.lengths_.size();
  std::size_t n = dimensions != 0;
  for (std::size_t d = 0; d < dimensions; ++d) n *= slice.lengths_[d];

  std::valarray<std::size_t> places(n), counters(dimensions);
  std::size_t place = slice.start_;
  for (std::size_t i = 0; i < n; ++i) {
    places[i] = place;
    // As a counter with a digit for each dimension.
    for (std::size_t d = dimensions; d-- != 0;) {
      place += slice.strides_[d];
      if (++counters[d] != slice.lengths_[d]) break;
      place -= slice.lengths_[d] * slice.strides_[d];
      counters[d] = 0;
    }
  }
  return places;
}

}  // namespace __zor

#endif

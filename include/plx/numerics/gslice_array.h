// gslice_array<_T> (1998, 26.3.7): the elements of a generalized slice.
#ifndef PLX_GSLICE_ARRAY_H
#define PLX_GSLICE_ARRAY_H

#include <plx/numerics/valarray_elements.h>

namespace std {

template <class _T> class gslice_array : public __zor::_valarray_elements<_T, valarray<size_t> > {
  typedef __zor::_valarray_elements<_T, valarray<size_t> > base;

public:
  gslice_array(const gslice_array &_other) : base(_other) {}
  using base::operator=;
  const gslice_array &operator=(const gslice_array &_other) const {
    base::operator=(_other);
    return *this;
  }

private:
  friend class valarray<_T>;
  gslice_array(_T *_data, const valarray<size_t> &_places) : base(_data, _places) {}
};

}  // namespace std

#endif

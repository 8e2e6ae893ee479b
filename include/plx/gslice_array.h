// gslice_array<T> (1998, 26.3.7): the elements of a generalized slice.
#ifndef PLX_GSLICE_ARRAY_H
#define PLX_GSLICE_ARRAY_H

#include <plx/valarray_elements.h>

namespace std {

template <class T> class gslice_array : public __zor::valarray_elements<T, valarray<size_t> > {
  typedef __zor::valarray_elements<T, valarray<size_t> > base;

public:
  gslice_array(const gslice_array &other) : base(other) {}
  using base::operator=;
  const gslice_array &operator=(const gslice_array &other) const {
    base::operator=(other);
    return *this;
  }

private:
  friend class valarray<T>;
  gslice_array(T *data, const valarray<size_t> &places) : base(data, places) {}
};

}  // namespace std

#endif

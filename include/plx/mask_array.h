// mask_array<T> (1998, 26.3.8): the elements where a mask is true.
#ifndef PLX_MASK_ARRAY_H
#define PLX_MASK_ARRAY_H

#include <plx/valarray_elements.h>

namespace std {

template <class T> class mask_array : public __zor::valarray_elements<T, valarray<size_t> > {
  typedef __zor::valarray_elements<T, valarray<size_t> > base;

public:
  mask_array(const mask_array &other) : base(other) {}
  using base::operator=;
  const mask_array &operator=(const mask_array &other) const {
    base::operator=(other);
    return *this;
  }

private:
  friend class valarray<T>;
  mask_array(T *data, const valarray<size_t> &places) : base(data, places) {}
};

}  // namespace std

#endif

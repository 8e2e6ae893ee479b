// mask_array<_T> (1998, 26.3.8): the elements where a mask is true.
#ifndef PLX_MASK_ARRAY_H
#define PLX_MASK_ARRAY_H

#include <plx/numerics/valarray_elements.h>

namespace std {

template <class _T> class mask_array : public __zor::_valarray_elements<_T, valarray<size_t> > {
  typedef __zor::_valarray_elements<_T, valarray<size_t> > base;

public:
  mask_array(const mask_array &_other) : base(_other) {}
  using base::operator=;
  const mask_array &operator=(const mask_array &_other) const {
    base::operator=(_other);
    return *this;
  }

private:
  friend class valarray<_T>;
  mask_array(_T *_data, const valarray<size_t> &_places) : base(_data, _places) {}
};

}  // namespace std

#endif

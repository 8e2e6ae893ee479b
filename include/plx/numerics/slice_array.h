// slice_array<_T> (1998, 26.3.5): the elements of a slice. Copies refer to the same elements, assignment copies them.
#ifndef PLX_SLICE_ARRAY_H
#define PLX_SLICE_ARRAY_H

#include <plx/numerics/valarray_elements.h>

namespace std {

template <class _T> class slice_array : public __zor::_valarray_elements<_T, __zor::_slice_index> {
  typedef __zor::_valarray_elements<_T, __zor::_slice_index> base;

public:
  slice_array(const slice_array &_other) : base(_other) {}
  using base::operator=;
  const slice_array &operator=(const slice_array &_other) const {
    base::operator=(_other);
    return *this;
  }

private:
  friend class valarray<_T>;
  slice_array(_T *_data, const __zor::_slice_index &_places) : base(_data, _places) {}
};

}  // namespace std

#endif

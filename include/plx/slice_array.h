// slice_array<T> (1998, 26.3.5): the elements of a slice. Copies refer to the same elements, assignment copies them.
#ifndef PLX_SLICE_ARRAY_H
#define PLX_SLICE_ARRAY_H

#include <plx/valarray_elements.h>

namespace std {

template <class T> class slice_array : public __zor::valarray_elements<T, __zor::slice_index> {
  typedef __zor::valarray_elements<T, __zor::slice_index> base;

public:
  slice_array(const slice_array &other) : base(other) {}
  using base::operator=;
  const slice_array &operator=(const slice_array &other) const {
    base::operator=(other);
    return *this;
  }

private:
  friend class valarray<T>;
  slice_array(T *data, const __zor::slice_index &places) : base(data, places) {}
};

}  // namespace std

#endif

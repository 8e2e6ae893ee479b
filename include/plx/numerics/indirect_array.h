// indirect_array<_T> (1998, 26.3.9): elements by a list of their places.
#ifndef PLX_INDIRECT_ARRAY_H
#define PLX_INDIRECT_ARRAY_H

#include <plx/numerics/valarray_elements.h>

namespace std {

template <class _T> class indirect_array : public __zor::_valarray_elements<_T, valarray<size_t> > {
  typedef __zor::_valarray_elements<_T, valarray<size_t> > base;

public:
  indirect_array(const indirect_array &_other) : base(_other) {}
  using base::operator=;
  const indirect_array &operator=(const indirect_array &_other) const {
    base::operator=(_other);
    return *this;
  }

private:
  friend class valarray<_T>;
  indirect_array(_T *_data, const valarray<size_t> &_places) : base(_data, _places) {}
};

}  // namespace std

#endif

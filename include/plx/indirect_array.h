// indirect_array<T> (1998, 26.3.9): elements by a list of their places.
#ifndef PLX_INDIRECT_ARRAY_H
#define PLX_INDIRECT_ARRAY_H

#include <plx/valarray_elements.h>

namespace std {

template <class T> class indirect_array : public __zor::valarray_elements<T, valarray<size_t> > {
  typedef __zor::valarray_elements<T, valarray<size_t> > base;

public:
  indirect_array(const indirect_array &other) : base(other) {}
  using base::operator=;
  const indirect_array &operator=(const indirect_array &other) const {
    base::operator=(other);
    return *this;
  }

private:
  friend class valarray<T>;
  indirect_array(T *data, const valarray<size_t> &places) : base(data, places) {}
};

}  // namespace std

#endif

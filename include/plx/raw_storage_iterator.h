// raw_storage_iterator (1998, 20.4.2): an output iterator that makes objects where an assignment would overwrite them.
#ifndef PLX_RAW_STORAGE_ITERATOR_H
#define PLX_RAW_STORAGE_ITERATOR_H

#include <plx/uninitialized.h>

namespace std {

template <class Out, class T> class raw_storage_iterator
    : public iterator<output_iterator_tag, void, void, void, void> {
public:
  explicit raw_storage_iterator(Out at) : at_(at) {}
  raw_storage_iterator &operator*() { return *this; }
  raw_storage_iterator &operator=(const T &value) {
    __zor::construct(static_cast<T *>(__zor::address_of(*at_)), value);
    return *this;
  }
  raw_storage_iterator &operator++() {
    ++at_;
    return *this;
  }
  raw_storage_iterator operator++(int) {
    raw_storage_iterator before = *this;
    ++at_;
    return before;
  }

private:
  Out at_;
};

}  // namespace std

#endif

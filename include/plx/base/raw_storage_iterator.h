// raw_storage_iterator (1998, 20.4.2): an output iterator that makes objects where an assignment would overwrite them.
#ifndef PLX_RAW_STORAGE_ITERATOR_H
#define PLX_RAW_STORAGE_ITERATOR_H

#include <plx/base/uninitialized.h>

namespace std {

template <class _Out, class _T> class raw_storage_iterator
    : public iterator<output_iterator_tag, void, void, void, void> {
public:
  explicit raw_storage_iterator(_Out _at) : _at_(_at) {}
  raw_storage_iterator &operator*() { return *this; }
  raw_storage_iterator &operator=(const _T &_value) {
    __zor::construct(static_cast<_T *>(__zor::_address_of(*_at_)), _value);
    return *this;
  }
  raw_storage_iterator &operator++() {
    ++_at_;
    return *this;
  }
  raw_storage_iterator operator++(int) {
    raw_storage_iterator _before = *this;
    ++_at_;
    return _before;
  }

private:
  _Out _at_;
};

}  // namespace std

#endif

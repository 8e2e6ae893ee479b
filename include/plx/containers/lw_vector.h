// lw_vector<_T>: the library's own array. It never has spare room: its block holds exactly `_size` elements, and there
// is no block when it is empty. Locales and streams keep their few facets, callbacks and user words in it.
//
// Growing makes a new block of exactly the new size, copies the elements there and destroys the old ones. When that
// fails the old contents stay. Shrinking keeps the block, except to nothing.
#ifndef PLX_LW_VECTOR_H
#define PLX_LW_VECTOR_H

#include <new>

#include <plx/base/cleanup.h>
#include <plx/containers/sequence.h>

namespace __zor {

template <class _T> class lw_vector {
public:
  lw_vector() PLX_NOTHROW : _data_(0), _size_(0) {}
  ~lw_vector() {
    if (_data_) _shrink(0);
  }

  _T &operator[](unsigned int _i) PLX_NOTHROW { return _data_[_i]; }
  const _T &operator[](unsigned int _i) const PLX_NOTHROW { return _data_[_i]; }
  unsigned int size() const PLX_NOTHROW { return _size_; }

  // New elements are copies of `_value`, which may be one of the elements.
  void resize(unsigned int _n, const _T &_value) {
    if (_n > _size_)
      _grow(_n, _value);
    else if (_n < _size_)
      _shrink(_n);
  }

  void swap(lw_vector &_other) PLX_NOTHROW {
    _T *const _data = _data_;
    const unsigned int _size = _size_;
    _data_ = _other._data_;
    _size_ = _other._size_;
    _other._data_ = _data;
    _other._size_ = _size;
  }

private:
  lw_vector(const lw_vector &);
  lw_vector &operator=(const lw_vector &);

  void _grow(unsigned int _n, const _T &_value) {
    _cleanup<lw_vector> _made;
    _made.get().assign(*this, _n);
    // Here, while the value still is where it was.
    _made.get().fill(_n, _value);
    swap(_made.get());
  }
  void _shrink(unsigned int _n) {
    while (_size_ > _n) _data_[--_size_].~_T();
    if (_n == 0) {
      ::operator delete(_data_);
      _data_ = 0;
    }
  }

  // Of an empty vector: copies of all elements of `_source`, in a block for n.
  void assign(const lw_vector &_source, unsigned int _n) {
    if (_n > 0x7FFFFFFFu / sizeof(_T)) _sequence_length_error();
    _data_ = static_cast<_T *>(::operator new(_n * sizeof(_T)));
    for (; _size_ < _source._size_; ++_size_) ::new (static_cast<void *>(_data_ + _size_)) _T(_source._data_[_size_]);
  }
  void fill(unsigned int _n, const _T &_value) {
    for (; _size_ < _n; ++_size_) ::new (static_cast<void *>(_data_ + _size_)) _T(_value);
  }

  _T *_data_;
  unsigned int _size_;
};

}  // namespace __zor

#endif

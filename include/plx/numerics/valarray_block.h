// The memory of a valarray: n elements that are made one by one, and destroyed however far that went.
#ifndef PLX_VALARRAY_BLOCK_H
#define PLX_VALARRAY_BLOCK_H

#include <plx/base/allocator.h>
#include <plx/base/type_properties.h>

namespace __zor {

template <class _T> class _valarray_block {
public:
  _valarray_block() PLX_NOTHROW : _data_(0), _size_(0) {}
  ~_valarray_block() {
    for (std::size_t _i = _size_; _i-- != 0;) _data_[_i].~_T();
    ::operator delete(_data_);
  }

  // Of an empty block only. source(i) is what element i is made from. When that throws, the destructor does the rest.
  template <class _Source> void _build(std::size_t _n, const _Source &_source) {
    if (_n == 0) return;
    _data_ = std::allocator<_T>().allocate(_n);
    _build_elements(_n, _source, typename _truth<_is_trivially_destroyed<_T>::value>::_type());
  }

  void swap(_valarray_block &_other) PLX_NOTHROW {
    _T *const _data = _data_;
    _data_ = _other._data_;
    _other._data_ = _data;
    const std::size_t _size = _size_;
    _size_ = _other._size_;
    _other._size_ = _size;
  }

  _T *data() const PLX_NOTHROW { return _data_; }
  std::size_t size() const PLX_NOTHROW { return _size_; }

private:
  _valarray_block(const _valarray_block &);
  _valarray_block &operator=(const _valarray_block &);

  template <class _Source> void _build_elements(std::size_t _n, const _Source &_source, _no) {
    for (; _size_ != _n; ++_size_) ::new (static_cast<void *>(_data_ + _size_)) _T(_source(_size_));
  }
  // Elements that need no destruction need not be counted while they are made: a loop that compilers can unroll.
  template <class _Source> void _build_elements(std::size_t _n, const _Source &_source, _yes) {
    const _Source _from(_source);
    _T *const _to = _data_;
    for (std::size_t _i = 0; _i != _n; ++_i) ::new (static_cast<void *>(_to + _i)) _T(_from(_i));
    _size_ = _n;
  }

  _T *_data_;
  std::size_t _size_;  // elements made
};

}  // namespace __zor

#endif

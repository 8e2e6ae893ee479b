// slice (1998, 26.3.4): every stride-th place of an array.
#ifndef PLX_SLICE_H
#define PLX_SLICE_H

#include <stddef.h>

#include <plx/base/config.h>

namespace std {

class slice {
public:
  slice() PLX_NOTHROW : _start_(0), _size_(0), _stride_(0) {}
  slice(size_t _start, size_t _size, size_t _stride) PLX_NOTHROW : _start_(_start), _size_(_size), _stride_(_stride) {}
  size_t start() const PLX_NOTHROW { return _start_; }
  size_t size() const PLX_NOTHROW { return _size_; }
  size_t stride() const PLX_NOTHROW { return _stride_; }

private:
  size_t _start_;
  size_t _size_;
  size_t _stride_;
};

}  // namespace std

namespace __zor {

// The places of a slice, as an index.
class _slice_index {
public:
  explicit _slice_index(const std::slice &_places) PLX_NOTHROW : _slice_(_places) {}
  size_t size() const PLX_NOTHROW { return _slice_.size(); }
  size_t operator[](size_t _i) const PLX_NOTHROW { return _slice_.start() + _i * _slice_.stride(); }

private:
  std::slice _slice_;
};

}  // namespace __zor

#endif

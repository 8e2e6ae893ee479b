// slice (1998, 26.3.4): every stride-th place of an array.
#ifndef PLX_SLICE_H
#define PLX_SLICE_H

#include <stddef.h>

#include <plx/config.h>

namespace std {

class slice {
public:
  slice() PLX_NOTHROW : start_(0), size_(0), stride_(0) {}
  slice(size_t start, size_t size, size_t stride) PLX_NOTHROW : start_(start), size_(size), stride_(stride) {}
  size_t start() const PLX_NOTHROW { return start_; }
  size_t size() const PLX_NOTHROW { return size_; }
  size_t stride() const PLX_NOTHROW { return stride_; }

private:
  size_t start_;
  size_t size_;
  size_t stride_;
};

}  // namespace std

namespace __zor {

// The places of a slice, as an index.
class slice_index {
public:
  explicit slice_index(const std::slice &places) PLX_NOTHROW : slice_(places) {}
  size_t size() const PLX_NOTHROW { return slice_.size(); }
  size_t operator[](size_t i) const PLX_NOTHROW { return slice_.start() + i * slice_.stride(); }

private:
  std::slice slice_;
};

}  // namespace __zor

#endif

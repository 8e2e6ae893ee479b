// The memory of a valarray: n elements that are made one by one, and destroyed however far that went.
#ifndef PLX_VALARRAY_BLOCK_H
#define PLX_VALARRAY_BLOCK_H

#include <plx/allocator.h>
#include <plx/type_properties.h>

namespace __zor {

template <class T> class valarray_block {
public:
  valarray_block() PLX_NOTHROW : data_(0), size_(0) {}
  ~valarray_block() {
    for (std::size_t i = size_; i-- != 0;) data_[i].~T();
    ::operator delete(data_);
  }

  // Of an empty block only. source(i) is what element i is made from. When that throws, the destructor does the rest.
  template <class Source> void build(std::size_t n, const Source &source) {
    if (n == 0) return;
    data_ = std::allocator<T>().allocate(n);
    build_elements(n, source, typename truth<is_trivially_destroyed<T>::value>::type());
  }

  void swap(valarray_block &other) PLX_NOTHROW {
    T *const data = data_;
    data_ = other.data_;
    other.data_ = data;
    const std::size_t size = size_;
    size_ = other.size_;
    other.size_ = size;
  }

  T *data() const PLX_NOTHROW { return data_; }
  std::size_t size() const PLX_NOTHROW { return size_; }

private:
  valarray_block(const valarray_block &);
  valarray_block &operator=(const valarray_block &);

  template <class Source> void build_elements(std::size_t n, const Source &source, no) {
    for (; size_ != n; ++size_) ::new (static_cast<void *>(data_ + size_)) T(source(size_));
  }
  // Elements that need no destruction need not be counted while they are made: a loop that compilers can unroll.
  template <class Source> void build_elements(std::size_t n, const Source &source, yes) {
    const Source from(source);
    T *const to = data_;
    for (std::size_t i = 0; i != n; ++i) ::new (static_cast<void *>(to + i)) T(from(i));
    size_ = n;
  }

  T *data_;
  std::size_t size_;  // elements made
};

}  // namespace __zor

#endif

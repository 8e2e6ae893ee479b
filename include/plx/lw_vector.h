// lw_vector<T>: the library's own array. It never has spare room: its block holds exactly `size` elements, and there is
// no block when it is empty. Locales and streams keep their few facets, callbacks and user words in it.
//
// Growing makes a new block of exactly the new size, copies the elements there and destroys the old ones. When that
// fails the old contents stay. Shrinking keeps the block, except to nothing.
#ifndef PLX_LW_VECTOR_H
#define PLX_LW_VECTOR_H

#include <new>

#include <plx/cleanup.h>
#include <plx/sequence.h>

namespace __zor {

template <class T> class lw_vector {
public:
  lw_vector() PLX_NOTHROW : data_(0), size_(0) {}
  ~lw_vector() {
    if (data_) shrink(0);
  }

  T &operator[](unsigned int i) PLX_NOTHROW { return data_[i]; }
  const T &operator[](unsigned int i) const PLX_NOTHROW { return data_[i]; }
  unsigned int size() const PLX_NOTHROW { return size_; }

  // New elements are copies of `value`, which may be one of the elements.
  void resize(unsigned int n, const T &value) {
    if (n > size_)
      grow(n, value);
    else if (n < size_)
      shrink(n);
  }

private:
  lw_vector(const lw_vector &);
  lw_vector &operator=(const lw_vector &);

  void grow(unsigned int n, const T &value) {
    cleanup<lw_vector> made;
    made.get().assign(*this, n);
    // Here, while the value still is where it was.
    made.get().fill(n, value);
    T *const data = data_;
    const unsigned int size = size_;
    data_ = made.get().data_;
    size_ = made.get().size_;
    made.get().data_ = data;
    made.get().size_ = size;
  }
  void shrink(unsigned int n) {
    while (size_ > n) data_[--size_].~T();
    if (n == 0) {
      ::operator delete(data_);
      data_ = 0;
    }
  }

  // Of an empty vector: copies of all elements of `source`, in a block for n.
  void assign(const lw_vector &source, unsigned int n) {
    if (n > 0x7FFFFFFFu / sizeof(T)) sequence_length_error();
    data_ = static_cast<T *>(::operator new(n * sizeof(T)));
    for (; size_ < source.size_; ++size_) ::new (static_cast<void *>(data_ + size_)) T(source.data_[size_]);
  }
  void fill(unsigned int n, const T &value) {
    for (; size_ < n; ++size_) ::new (static_cast<void *>(data_ + size_)) T(value);
  }

  T *data_;
  unsigned int size_;
};

}  // namespace __zor

#endif

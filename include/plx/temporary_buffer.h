// Memory for a while (1998, 20.4.3): less than was asked for, or none, is an answer and no error. And the buffer of
// values that stable_sort, stable_partition and inplace_merge work with.
#ifndef PLX_TEMPORARY_BUFFER_H
#define PLX_TEMPORARY_BUFFER_H

#include <new>

#include <plx/pair.h>
#include <plx/uninitialized.h>

namespace std {

template <class T> pair<T *, ptrdiff_t> get_temporary_buffer(ptrdiff_t n) PLX_NOTHROW {
  const ptrdiff_t most = static_cast<ptrdiff_t>(static_cast<size_t>(-1) / 2 / sizeof(T));
  if (n > most) n = most;
  for (; n > 0; n /= 2) {
    void *const block = ::operator new(static_cast<size_t>(n) * sizeof(T), nothrow);
    if (block) return pair<T *, ptrdiff_t>(static_cast<T *>(block), n);
  }
  return pair<T *, ptrdiff_t>(static_cast<T *>(0), 0);
}

template <class T> void return_temporary_buffer(T *block) PLX_NOTHROW { ::operator delete(static_cast<void *>(block)); }

}  // namespace std

namespace __zor {

// Raw memory for up to `wanted` values. What an algorithm makes in it, it also destroys.
template <class T> class raw_buffer {
public:
  explicit raw_buffer(std::ptrdiff_t wanted) PLX_NOTHROW : block_(std::get_temporary_buffer<T>(wanted)) {}
  ~raw_buffer() { std::return_temporary_buffer(block_.first); }

  T *begin() const PLX_NOTHROW { return block_.first; }
  std::ptrdiff_t size() const PLX_NOTHROW { return block_.second; }

private:
  raw_buffer(const raw_buffer &);
  raw_buffer &operator=(const raw_buffer &);

  std::pair<T *, std::ptrdiff_t> block_;
};

// Destroys the values in a buffer when the algorithm is done with them, or an exception ends it.
template <class T> class buffered_values {
public:
  buffered_values(T *first, T *last) PLX_NOTHROW : first_(first), last_(last) {}
  ~buffered_values() { __zor::destroy(first_, last_); }

private:
  buffered_values(const buffered_values &);
  buffered_values &operator=(const buffered_values &);

  T *first_;
  T *last_;
};

}  // namespace __zor

#endif

// Memory for a while (1998, 20.4.3): less than was asked for, or none, is an answer and no error. And the buffer of
// values that stable_sort, stable_partition and inplace_merge work with.
#ifndef PLX_TEMPORARY_BUFFER_H
#define PLX_TEMPORARY_BUFFER_H

#include <new>

#include <plx/base/pair.h>
#include <plx/base/uninitialized.h>

namespace std {

template <class _T> PLX_HIDDEN pair<_T *, ptrdiff_t> get_temporary_buffer(ptrdiff_t _n) PLX_NOTHROW {
  const ptrdiff_t _most = static_cast<ptrdiff_t>(static_cast<size_t>(-1) / 2 / sizeof(_T));
  if (_n > _most) _n = _most;
  for (; _n > 0; _n /= 2) {
    void *const _block = ::operator new(static_cast<size_t>(_n) * sizeof(_T), nothrow);
    if (_block) return pair<_T *, ptrdiff_t>(static_cast<_T *>(_block), _n);
  }
  return pair<_T *, ptrdiff_t>(static_cast<_T *>(0), 0);
}

template <class _T> PLX_HIDDEN void return_temporary_buffer(_T *_block) PLX_NOTHROW {
  ::operator delete(static_cast<void *>(_block));
}

}  // namespace std

namespace __zor {

// Raw memory for up to `_wanted` values. What an algorithm makes in it, it also destroys.
template <class _T> class _raw_buffer {
public:
  explicit _raw_buffer(std::ptrdiff_t _wanted) PLX_NOTHROW : _block_(std::get_temporary_buffer<_T>(_wanted)) {}
  ~_raw_buffer() { std::return_temporary_buffer(_block_.first); }

  _T *begin() const PLX_NOTHROW { return _block_.first; }
  std::ptrdiff_t size() const PLX_NOTHROW { return _block_.second; }

private:
  _raw_buffer(const _raw_buffer &);
  _raw_buffer &operator=(const _raw_buffer &);

  std::pair<_T *, std::ptrdiff_t> _block_;
};

// Destroys the values in a buffer when the algorithm is done with them, or an exception ends it.
template <class _T> class _buffered_values {
public:
  _buffered_values(_T *_first, _T *_last) PLX_NOTHROW : _first_(_first), _last_(_last) {}
  ~_buffered_values() { __zor::destroy(_first_, _last_); }

private:
  _buffered_values(const _buffered_values &);
  _buffered_values &operator=(const _buffered_values &);

  _T *_first_;
  _T *_last_;
};

}  // namespace __zor

#endif

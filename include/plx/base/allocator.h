// allocator<_T> (1998, 20.4.1): every container's default. It has no state, and all memory comes from operator new.
#ifndef PLX_ALLOCATOR_H
#define PLX_ALLOCATOR_H

#include <new>

#include <plx/base/iterator_base.h>

namespace std {

template <class _T> class allocator;

template <> class PLX_API allocator<void> {
public:
  typedef void *pointer;
  typedef const void *const_pointer;
  typedef void value_type;
  template <class _Ut> struct rebind { typedef allocator<_Ut> other; };
};

template <class _T> class PLX_API allocator {
public:
  typedef size_t size_type;
  typedef ptrdiff_t difference_type;
  typedef _T *pointer;
  typedef const _T *const_pointer;
  typedef _T &reference;
  typedef const _T &const_reference;
  typedef _T value_type;
  template <class _Ut> struct rebind { typedef allocator<_Ut> other; };

  allocator() PLX_NOTHROW {}
  template <class _Ut> allocator(const allocator<_Ut> &) PLX_NOTHROW {}

  pointer address(reference _object) const PLX_NOTHROW {
    return reinterpret_cast<_T *>(&const_cast<char &>(reinterpret_cast<const volatile char &>(_object)));
  }
  const_pointer address(const_reference _object) const PLX_NOTHROW {
    return reinterpret_cast<const _T *>(&const_cast<char &>(reinterpret_cast<const volatile char &>(_object)));
  }

  // A request whose size in bytes would wrap asks for all of memory, so it fails as any other: by bad_alloc.
  pointer allocate(size_type _n, allocator<void>::const_pointer = 0) {
    const size_type _bytes = _n <= max_size() ? _n * sizeof(_T) : static_cast<size_type>(-1);
    return static_cast<_T *>(::operator new(_bytes));
  }
  void deallocate(pointer _block, size_type) PLX_NOTHROW { ::operator delete(_block); }
  size_type max_size() const PLX_NOTHROW { return static_cast<size_type>(-1) / sizeof(_T); }

  void construct(pointer _place, const _T &_value) { ::new (static_cast<void *>(_place)) _T(_value); }
  void destroy(pointer _object) { _object->~_T(); }
};

// In two forms: that of one type is the more special one where a program has templates of its own for all types.
template <class _T> inline bool operator==(const allocator<_T> &, const allocator<_T> &) PLX_NOTHROW { return true; }
template <class _T> inline bool operator!=(const allocator<_T> &, const allocator<_T> &) PLX_NOTHROW { return false; }
template <class _T, class _Ut> inline bool operator==(const allocator<_T> &, const allocator<_Ut> &) PLX_NOTHROW {
  return true;
}
template <class _T, class _Ut> inline bool operator!=(const allocator<_T> &, const allocator<_Ut> &) PLX_NOTHROW {
  return false;
}

}  // namespace std

#endif

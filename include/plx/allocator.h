// allocator<T> (1998, 20.4.1): every container's default. It has no state, and all memory comes from operator new.
#ifndef PLX_ALLOCATOR_H
#define PLX_ALLOCATOR_H

#include <new>

#include <plx/iterator_base.h>

namespace std {

template <class T> class allocator;

template <> class PLX_API allocator<void> {
public:
  typedef void *pointer;
  typedef const void *const_pointer;
  typedef void value_type;
  template <class U> struct rebind { typedef allocator<U> other; };
};

template <class T> class PLX_API allocator {
public:
  typedef size_t size_type;
  typedef ptrdiff_t difference_type;
  typedef T *pointer;
  typedef const T *const_pointer;
  typedef T &reference;
  typedef const T &const_reference;
  typedef T value_type;
  template <class U> struct rebind { typedef allocator<U> other; };

  allocator() PLX_NOTHROW {}
  template <class U> allocator(const allocator<U> &) PLX_NOTHROW {}

  pointer address(reference object) const PLX_NOTHROW {
    return reinterpret_cast<T *>(&const_cast<char &>(reinterpret_cast<const volatile char &>(object)));
  }
  const_pointer address(const_reference object) const PLX_NOTHROW {
    return reinterpret_cast<const T *>(&const_cast<char &>(reinterpret_cast<const volatile char &>(object)));
  }

  // A request whose size in bytes would wrap asks for all of memory, so it fails as any other: by bad_alloc.
  pointer allocate(size_type n, allocator<void>::const_pointer = 0) {
    const size_type bytes = n <= max_size() ? n * sizeof(T) : static_cast<size_type>(-1);
    return static_cast<T *>(::operator new(bytes));
  }
  void deallocate(pointer block, size_type) PLX_NOTHROW { ::operator delete(block); }
  size_type max_size() const PLX_NOTHROW { return static_cast<size_type>(-1) / sizeof(T); }

  void construct(pointer place, const T &value) { ::new (static_cast<void *>(place)) T(value); }
  void destroy(pointer object) { object->~T(); }
};

template <class T, class U> inline bool operator==(const allocator<T> &, const allocator<U> &) PLX_NOTHROW {
  return true;
}
template <class T, class U> inline bool operator!=(const allocator<T> &, const allocator<U> &) PLX_NOTHROW {
  return false;
}

}  // namespace std

#endif

// What vector, deque and list share: their errors, which types may be moved as bytes, growing blocks, and making and
// destroying ranges of elements through the allocator.
#ifndef PLX_SEQUENCE_H
#define PLX_SEQUENCE_H

#include <stddef.h>
#include <string.h>

#include <plx/algobase.h>
#include <plx/allocator.h>
#include <plx/cleanup.h>
#include <plx/relocatable.h>
#include <plx/string_fwd.h>
#include <plx/type_properties.h>
#include <plx/unwrap_iterator.h>

namespace __zor {

PLX_API void sequence_out_of_range() PLX_NORETURN_CXX PLX_COLD;  // out_of_range, "Out of range exception occurred"
PLX_API void sequence_length_error() PLX_NORETURN_CXX PLX_COLD;  // length_error, "Length exception occurred"

// A block of `bytes` from operator new that begins with the first `used` bytes of `block`, which is given up. A null
// block is none. Throws bad_alloc, and then the block is as it was.
PLX_API __attribute__((__regparm__(3))) void *grow_block(void *block, size_t used, size_t bytes);

// ---- Types ----------------------------------------------------------------------------------------------------------

template <class A> struct is_standard_allocator { static const bool value = false; };
template <class T> struct is_standard_allocator<std::allocator<T> > { static const bool value = true; };

// The road for elements T with the allocator A. Another allocator's construct and destroy are called for each.
template <class T, class A> struct element_traits {
  static const bool standard = is_standard_allocator<A>::value;
  typedef typename truth<standard && is_plain<T>::value>::type plain;
  typedef typename truth<standard && is_relocatable<T>::value>::type relocatable;
  typedef typename truth<standard && is_trivially_destroyed<T>::value>::type trivially_destroyed;
};

// How a value goes to a function that is not inline: numbers by value, because a reference would keep the caller's
// variable in memory.
template <class T, bool scalar> struct passed_as { typedef const T &type; };
template <class T> struct passed_as<T, true> { typedef T type; };
template <class T> struct passed { typedef typename passed_as<T, is_scalar<T>::value>::type type; };

// Is a range of these iterators an array of T?
template <class Iterator, class T> struct is_array_of { static const bool value = false; };
template <class T> struct is_array_of<T *, T> { static const bool value = true; };
template <class T> struct is_array_of<const T *, T> { static const bool value = true; };

inline void slide_bytes(void *to, const void *from, const void *end) PLX_NOTHROW {
  memmove(to, from, static_cast<size_t>(static_cast<const char *>(end) - static_cast<const char *>(from)));
}

// ---- Destroying -----------------------------------------------------------------------------------------------------

template <class T, class A> inline void destroy_range(A &, T *, T *, yes) PLX_NOTHROW {}
template <class T, class A> inline void destroy_range(A &a, T *first, T *last, no) {
  for (; first != last; ++first) a.destroy(first);
}
template <class T, class A> inline void destroy_range(A &a, T *first, T *last) {
  __zor::destroy_range(a, first, last, typename element_traits<T, A>::trivially_destroyed());
}

// ---- Making ---------------------------------------------------------------------------------------------------------

// Elements that were made from `first` on; it destroys them unless they are kept.
template <class T, class A> class made_elements {
public:
  made_elements(A &a, T *const &first) : allocator_(a), first_(first), at(first) {}
  ~made_elements() { __zor::destroy_range(allocator_, first_, at); }

  template <class U> void add(const U &value) {
    allocator_.construct(at, value);
    ++at;
  }
  T *keep() {
    first_ = at;
    return at;
  }

private:
  made_elements(const made_elements &);
  made_elements &operator=(const made_elements &);

  A &allocator_;
  T *first_;

public:
  T *at;
};

// All return the end of what was made. When one throws nothing is left.

template <class T, class A, class Iterator> inline T *make_copies(A &, T *to, Iterator first, Iterator last, yes) {
  const size_t n = static_cast<size_t>(last - first);
  if (n != 0) memcpy(static_cast<void *>(to), first, n * sizeof(T));
  return to + n;
}
template <class T, class A, class Iterator> inline T *make_copies(A &a, T *to, Iterator first, Iterator last, no) {
  made_elements<T, A> made(a, to);
  for (; first != last; ++first) made.add(*first);
  return made.keep();
}
template <class T, class A, class Iterator> inline T *make_copies_of(A &a, T *to, Iterator first, Iterator last) {
  typedef element_traits<T, A> traits;
  return __zor::make_copies(
      a, to, first, last,
      typename truth<same_type<typename traits::plain, yes>::value && is_array_of<Iterator, T>::value>::type());
}
template <class T, class A, class Iterator> inline T *make_copies(A &a, T *to, Iterator first, Iterator last) {
  return __zor::make_copies_of(a, to, __zor::unwrap(first), __zor::unwrap(last));
}

template <class T, class A> inline T *make_filled(A &a, T *to, size_t n, const T &value, no) {
  made_elements<T, A> made(a, to);
  for (; n != 0; --n) made.add(value);
  return made.keep();
}
template <class T, class A> inline T *make_filled(A &, T *to, size_t n, const T &value, yes) {
  if (sizeof(T) == 1) {
    if (n != 0) memset(static_cast<void *>(to), *reinterpret_cast<const unsigned char *>(&value), n);
    return to + n;
  }
  for (T *const end = to + n; to != end; ++to) ::new (static_cast<void *>(to)) T(value);
  return to;
}
template <class T, class A> inline T *make_filled(A &a, T *to, size_t n, const T &value) {
  return __zor::make_filled(a, to, n, value, typename element_traits<T, A>::plain());
}

// A copy that is moved elsewhere as bytes afterwards, or destroyed when that did not happen.
template <class T, class A, class Plain> class held_copy {
public:
  held_copy(A &a, const T &value) : allocator_(a), held_(true) { a.construct(object(), value); }
  ~held_copy() {
    if (held_) allocator_.destroy(object());
  }
  void move_to(T *place) {
    memcpy(static_cast<void *>(place), storage_, sizeof(T));
    held_ = false;
  }
  const T &get() { return *object(); }

private:
  held_copy(const held_copy &);
  held_copy &operator=(const held_copy &);
  T *object() { return reinterpret_cast<T *>(storage_); }

  A &allocator_;
  bool held_;
  char storage_[sizeof(T)] __attribute__((__aligned__(__alignof__(T))));
};

template <class T, class A> class held_copy<T, A, yes> {
public:
  held_copy(A &, const T &value) : value_(value) {}
  void move_to(T *place) { ::new (static_cast<void *>(place)) T(value_); }
  const T &get() { return value_; }

private:
  held_copy(const held_copy &);
  held_copy &operator=(const held_copy &);

  T value_;
};

}  // namespace __zor

#endif

// Objects in raw memory (1998, 20.4.4): making and destroying them one by one and in ranges, the guards that destroy
// what was made when a constructor throws, and the uninitialized_ family. Containers stand on this.
#ifndef PLX_UNINITIALIZED_H
#define PLX_UNINITIALIZED_H

#include <new>

#include <plx/algobase.h>
#include <plx/functions.h>

namespace __zor {
namespace functions {

template <class T> inline void construct(T *place) {
  ::new (const_cast<void *>(static_cast<const volatile void *>(place))) T();
}
template <class T, class V> inline void construct(T *place, const V &value) {
  ::new (const_cast<void *>(static_cast<const volatile void *>(place))) T(value);
}

template <class T> inline void destroy(T *object) { object->~T(); }

template <bool trivial> struct destroyer {
  template <class Forward> static void run(Forward first, Forward last) {
    for (; first != last; ++first) __zor::destroy(__zor::address_of(*first));
  }
};
template <> struct destroyer<true> {
  template <class Forward> static void run(const Forward &, const Forward &) PLX_NOTHROW {}
};

template <class Forward> inline void destroy(Forward first, Forward last) {
  typedef typename std::iterator_traits<Forward>::value_type value_type;
  destroyer<is_trivially_destroyed<value_type>::value>::run(first, last);
}

// Destroys [first, current) unless released: `current` goes on with each object made.
template <class Forward> class construction_guard {
public:
  explicit construction_guard(const Forward &first) : current(first), first_(first), released_(false) {}
  ~construction_guard() {
    if (!released_) __zor::destroy(first_, current);
  }
  void release() PLX_NOTHROW { released_ = true; }

  Forward current;

private:
  construction_guard(const construction_guard &);
  construction_guard &operator=(const construction_guard &);

  Forward first_;
  bool released_;
};

// Frees memory that an allocator gave, unless released.
template <class Allocator> class allocation_guard {
public:
  allocation_guard(Allocator &allocator, typename Allocator::pointer block, typename Allocator::size_type n) PLX_NOTHROW
      : allocator_(allocator), block_(block), n_(n) {}
  ~allocation_guard() {
    if (block_) allocator_.deallocate(block_, n_);
  }
  typename Allocator::pointer release() PLX_NOTHROW {
    typename Allocator::pointer block = block_;
    block_ = 0;
    return block;
  }

private:
  allocation_guard(const allocation_guard &);
  allocation_guard &operator=(const allocation_guard &);

  Allocator &allocator_;
  typename Allocator::pointer block_;
  typename Allocator::size_type n_;
};

// ---- Copies --------------------------------------------------------------------------------------------------------

template <class In, class Out> struct made_by_assignment {
  // Numbers are made by assigning to them, whatever the iterators are.
  static const bool value = is_arithmetic<typename std::iterator_traits<Out>::value_type>::value &&
                            is_arithmetic<typename std::iterator_traits<In>::value_type>::value;
};
template <class T> struct made_by_assignment<T *, T *> {
  static const bool value = is_made_as_bytes<T, T &>::value && is_assigned_as_bytes<T, T &>::value;
};
template <class T> struct made_by_assignment<const T *, T *> {
  static const bool value = is_made_as_bytes<T, const T &>::value && is_assigned_as_bytes<T, const T &>::value;
};

template <bool moving, bool assign> struct uninitialized_copier {
  template <class In, class Out> static Out run(In first, In last, Out out) {
    typedef typename std::iterator_traits<Out>::value_type value_type;
    construction_guard<Out> guard(out);
    for (; first != last; ++first, (void)++guard.current) {
      value_type *const place = __zor::address_of(*guard.current);
      transfer_made(place, first, moving_tag<moving>());
    }
    guard.release();
    return guard.current;
  }

private:
  template <bool> struct moving_tag {};
  template <class T, class In> static void transfer_made(T *place, In &from, moving_tag<false>) {
    ::new (static_cast<void *>(place)) T(*from);
  }
  template <class T, class In> static void transfer_made(T *place, In &from, moving_tag<true>) {
    ::new (static_cast<void *>(place)) T(__zor::move_from(from));
  }
};
template <bool moving> struct uninitialized_copier<moving, true> {
  template <class In, class Out> static Out run(In first, In last, Out out) {
    return __zor::copy_range<moving>(first, last, out);
  }
};

template <bool moving, class In, class Out> inline Out uninitialized_copy_range(In first, In last, Out out) {
  return uninitialized_copier<moving, made_by_assignment<In, Out>::value>::run(first, last, out);
}

// As uninitialized_copy, but elements may be moved from where the dialect can: for buffers.
template <class In, class Out> inline Out uninitialized_move(In first, In last, Out out) {
  return __zor::rewrap(
      out, __zor::uninitialized_copy_range<true>(__zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(out)));
}

// ---- Fills ---------------------------------------------------------------------------------------------------------

template <class T, class V> struct made_by_fill {
  static const bool value = (is_arithmetic<T>::value && is_arithmetic<V>::value) ||
                            (same_type<T, V>::value && is_made_as_bytes<T, const T &>::value &&
                             is_assigned_as_bytes<T, const T &>::value);
};

template <bool assign> struct uninitialized_filler {
  template <class Forward, class V> static void range(Forward first, Forward last, const V &value) {
    construction_guard<Forward> guard(first);
    for (; guard.current != last; ++guard.current) __zor::construct(__zor::address_of(*guard.current), value);
    guard.release();
  }
  template <class Forward, class Size, class V> static Forward counted(Forward first, Size n, const V &value) {
    construction_guard<Forward> guard(first);
    for (; n > 0; --n, (void)++guard.current) __zor::construct(__zor::address_of(*guard.current), value);
    guard.release();
    return guard.current;
  }
};
template <> struct uninitialized_filler<true> {
  template <class Forward, class V> static void range(Forward first, Forward last, const V &value) {
    std::fill(first, last, value);
  }
  template <class Forward, class Size, class V> static Forward counted(Forward first, Size n, const V &value) {
    return std::fill_n(first, n, value);
  }
};

}  // namespace functions
}  // namespace __zor

namespace std {

template <class In, class Forward> inline Forward uninitialized_copy(In first, In last, Forward out) {
  return __zor::rewrap(
      out, __zor::uninitialized_copy_range<false>(__zor::unwrap(first), __zor::unwrap(last), __zor::unwrap(out)));
}

template <class Forward, class T> inline void uninitialized_fill(Forward first, Forward last, const T &value) {
  typedef typename iterator_traits<Forward>::value_type value_type;
  __zor::uninitialized_filler<__zor::made_by_fill<value_type, T>::value>::range(__zor::unwrap(first),
                                                                                __zor::unwrap(last), value);
}

template <class Forward, class Size, class T>
inline Forward uninitialized_fill_n(Forward first, Size n, const T &value) {
  typedef typename iterator_traits<Forward>::value_type value_type;
  return __zor::rewrap(first, __zor::uninitialized_filler<__zor::made_by_fill<value_type, T>::value>::counted(
                                  __zor::unwrap(first), n, value));
}

}  // namespace std

#endif

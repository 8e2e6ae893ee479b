// What sorts and heaps work on: elements, or the bytes of elements that may change their place as bytes, so that no
// element is copied, which for a string may mean its text; and an element taken out of its place.
#ifndef PLX_HELD_ELEMENT_H
#define PLX_HELD_ELEMENT_H

#include <plx/algobase.h>
#include <plx/functions.h>
#include <plx/relocatable.h>

namespace __zor {
namespace functions {

// The bytes of a T.
template <class T> struct __attribute__((__may_alias__)) object_bytes {
  unsigned char bytes[sizeof(T)] __attribute__((__aligned__(__alignof__(T))));
};

// An order of T as an order of the bytes of T.
template <class T, class Before> class order_of_bytes {
public:
  explicit order_of_bytes(Before &before) PLX_NOTHROW : before_(before) {}
  bool operator()(const object_bytes<T> &a, const object_bytes<T> &b) const {
    return before_(reinterpret_cast<const T &>(a), reinterpret_cast<const T &>(b));
  }

private:
  Before &before_;
};

// What a sort works on: the elements, or their bytes. `in` and `out` go there and back.
template <class Iterator, class Before> struct sorted_as {
  typedef Iterator iterator;
  typedef Before &order;
  static const Iterator &in(const Iterator &at) { return at; }
  static Before &made(Before &before) { return before; }
};

template <class T, class Before, bool relocatable> struct sorted_pointers_as {
  typedef T *iterator;
  typedef Before &order;
  static T *in(T *at) { return at; }
  static Before &made(Before &before) { return before; }
};
template <class T, class Before> struct sorted_pointers_as<T, Before, true> {
  typedef object_bytes<T> *iterator;
  typedef order_of_bytes<T, Before> order;
  static iterator in(T *at) { return reinterpret_cast<object_bytes<T> *>(at); }
  static order made(Before &before) { return order(before); }
};

template <class T, class Before> struct sorted_as<T *, Before>
    : public sorted_pointers_as<T, Before, is_relocatable<T>::value && !is_plain<T>::value> {};

// ---- An element taken out of its place -----------------------------------------------------------------------------

// The element's value waits here while others move into the hole that it left. When a comparison throws, the hole keeps
// some valid value; bytes must go back, or an object would be lost and another one there twice.
template <class Iterator> class held_element {
public:
  typedef typename std::iterator_traits<Iterator>::value_type value_type;

  explicit held_element(Iterator at) : value(__zor::move_from(at)), hole(at) {}
  // The hole moves to `from`.
  void fill_from(Iterator from) {
    *hole = __zor::move_from(from);
    hole = from;
  }
  void put_back() { *hole = __zor::moved(value); }

  value_type value;
  Iterator hole;
};

template <class T> class held_element<object_bytes<T> *> {
public:
  typedef object_bytes<T> value_type;

  explicit held_element(value_type *at) PLX_NOTHROW : value(*at), hole(at) {}
  ~held_element() { *hole = value; }
  void fill_from(value_type *from) PLX_NOTHROW {
    *hole = *from;
    hole = from;
  }
  void put_back() PLX_NOTHROW {}

  value_type value;
  value_type *hole;

private:
  held_element(const held_element &);
  held_element &operator=(const held_element &);
};

}  // namespace functions
}  // namespace __zor

#endif

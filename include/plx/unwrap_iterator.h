// Iterators that are pointers in a class, as pointers and back: algorithms work on what is inside, so that loops are
// simple and one instantiation serves arrays, vectors and strings.
#ifndef PLX_UNWRAP_ITERATOR_H
#define PLX_UNWRAP_ITERATOR_H

#include <plx/functions.h>
#include <plx/pointer_iterator.h>

namespace __zor {
namespace functions {

template <class Iterator> struct unwrapped { typedef Iterator type; };
template <class T> struct unwrapped<pointer_iterator<T> > { typedef T *type; };

template <class Iterator> inline const Iterator &unwrap(const Iterator &at) { return at; }
template <class T> inline T *unwrap(const pointer_iterator<T> &at) PLX_NOTHROW { return at.base(); }

// The first argument only names the type to go back to.
template <class Iterator> inline const Iterator &rewrap(const Iterator &, const Iterator &at) { return at; }
template <class T> inline pointer_iterator<T> rewrap(const pointer_iterator<T> &, T *at) PLX_NOTHROW {
  return pointer_iterator<T>(at);
}

}  // namespace functions
}  // namespace __zor

#endif

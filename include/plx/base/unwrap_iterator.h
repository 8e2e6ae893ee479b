// Iterators that are pointers in a class, as pointers and back: algorithms work on what is inside, so that loops are
// simple and one instantiation serves arrays, vectors and strings.
#ifndef PLX_UNWRAP_ITERATOR_H
#define PLX_UNWRAP_ITERATOR_H

#include <plx/base/functions.h>
#include <plx/base/pointer_iterator.h>

namespace __zor {
namespace _functions {

template <class _Iterator> struct _unwrapped { typedef _Iterator _type; };
template <class _T> struct _unwrapped<_pointer_iterator<_T> > { typedef _T *_type; };

template <class _Iterator> inline const _Iterator &_unwrap(const _Iterator &_at) { return _at; }
template <class _T> inline _T *_unwrap(const _pointer_iterator<_T> &_at) PLX_NOTHROW { return _at.base(); }

// The first argument only names the type to go back to.
template <class _Iterator> inline const _Iterator &_rewrap(const _Iterator &, const _Iterator &_at) { return _at; }
template <class _T> inline _pointer_iterator<_T> _rewrap(const _pointer_iterator<_T> &, _T *_at) PLX_NOTHROW {
  return _pointer_iterator<_T>(_at);
}

}  // namespace _functions
}  // namespace __zor

#endif

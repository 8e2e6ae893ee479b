// One element of a container: how it is made through an allocator, and what it is made of. In C++98 that is a value,
// which is copied; later it is any arguments, and elements may be moved.
#ifndef PLX_ELEMENT_H
#define PLX_ELEMENT_H

#include <plx/base/allocator.h>
#include <plx/base/moving.h>
#include <plx/base/type_properties.h>

#if __cplusplus >= 201103L
#include <initializer_list>
#endif

// The library carries some instances of its containers and string, which serve programs of every dialect. They have the
// members of 1998, and those of later dialects that have been there since. All other members of later dialects are
// templates, helpers of some members too: a program has them itself.
#if __cplusplus < 201103L || defined(PLX_INSTANTIATES_FOR_ALL)
#define PLX_MEMBERS_OF_1998 1
#else
#define PLX_MEMBERS_OF_1998 0
#define PLX_LATER template <class _Later = void>
#endif

// The parameters of a function template that makes an element, and their way on; and those of one that is made of
// something like itself.
#if __cplusplus >= 201103L
#define PLX_SOURCE_TYPES class... _Source
#define PLX_SOURCE _Source &&..._given
#define PLX_FORWARD_SOURCE static_cast<_Source &&>(_given)...
#define PLX_FROM _From &&_from
#define PLX_FORWARD_FROM static_cast<_From &&>(_from)
#else
#define PLX_SOURCE_TYPES class _Source
#define PLX_SOURCE const _Source &_given
#define PLX_FORWARD_SOURCE _given
#define PLX_FROM const _From &_from
#define PLX_FORWARD_FROM _from
#endif

namespace __zor {

PLX_API void _sequence_out_of_range() PLX_NORETURN PLX_COLD;  // out_of_range, "Out of range exception occurred"
PLX_API void _sequence_length_error() PLX_NORETURN PLX_COLD;  // length_error, "Length exception occurred"

template <class _A> struct _is_standard_allocator { static const bool value = false; };
template <class _T> struct _is_standard_allocator<std::allocator<_T> > { static const bool value = true; };

// Makes *place. The standard allocator adds nothing to a constructor; a program's is asked for every element, and in
// later dialects only if it has such a member.
template <class _Ut, class _T, PLX_SOURCE_TYPES>
inline void _make_element(std::allocator<_Ut> &, _T *_place, PLX_SOURCE) {
  ::new (static_cast<void *>(_place)) _T(PLX_FORWARD_SOURCE);
}
#if __cplusplus >= 201103L
template <class _A, class _T, class... _Source>
inline auto _make_element_by(int, _A &_a, _T *_place, _Source &&..._given)
    -> decltype(_a.construct(_place, static_cast<_Source &&>(_given)...), void()) {
  _a.construct(_place, static_cast<_Source &&>(_given)...);
}
template <class _A, class _T, class... _Source>
inline void _make_element_by(long, _A &, _T *_place, _Source &&..._given) {
  ::new (static_cast<void *>(_place)) _T(static_cast<_Source &&>(_given)...);
}
template <class _A, class _T, class... _Source> inline void _make_element(_A &_a, _T *_place, _Source &&..._given) {
  __zor::_make_element_by(0, _a, _place, static_cast<_Source &&>(_given)...);
}
#else
template <class _A, class _T, class _Source> inline void _make_element(_A &_a, _T *_place, const _Source &_given) {
  _a.construct(_place, _given);
}
#endif

// An element that goes to another place, where what was done must be undone if an exception comes: moved if that cannot
// throw or is the only way, else copied.
#if __cplusplus >= 201103L
template <class _T, bool _moves> struct _taken_reference { typedef const _T &_type; };
template <class _T> struct _taken_reference<_T, true> { typedef _T &&_type; };
template <class _T> struct _taken_as
    : public _taken_reference<_T, __is_nothrow_constructible(_T, _T &&) || !__is_constructible(_T, const _T &)> {};

template <class _T> inline typename _taken_as<_T>::_type _take_element(_T &_element) noexcept {
  return static_cast<typename _taken_as<_T>::_type>(_element);
}

// May memory of one of these be given back through the other?
template <class _A> inline bool _share_memory(const _A &_a, const _A &_b) { return _a == _b; }
template <class _T> inline bool _share_memory(const std::allocator<_T> &, const std::allocator<_T> &) noexcept {
  return true;
}

// What emplace_back and its kin return: nothing, and from C++17 on the element.
#if __cplusplus >= 201703L
template <class _T, class _Reference = _T &> struct _emplaced { typedef _Reference _type; };
#else
template <class _T, class _Reference = _T &> struct _emplaced { typedef void _type; };
#endif
#else
template <class _T> inline const _T &_take_element(_T &_element) PLX_NOTHROW { return _element; }
#endif

// Two arguments of one such type are a count and a value; of another, a range.
template <class _T> struct _is_count {
  typedef typename _truth<_is_arithmetic<_T>::value || __is_enum(_T)>::_type _type;
};

}  // namespace __zor

#endif

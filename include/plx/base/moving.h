// What algorithms do with an element that they will overwrite: in C++98 they copy it, later they move it. In C++11 and
// later also std::move and std::forward, which programs of those dialects need to say the same, and std::declval.
#ifndef PLX_MOVING_H
#define PLX_MOVING_H

#include <plx/base/functions.h>
#include <plx/base/iterator_base.h>

namespace __zor {
namespace _functions {

template <class _Reference> struct is_lvalue_of { static const bool value = false; };
template <class _T> struct is_lvalue_of<_T &> { static const bool value = true; };

}  // namespace _functions
}  // namespace __zor

#if __cplusplus >= 201103L

namespace __zor {
namespace _functions {

template <class _T> struct without_reference { typedef _T _type; };
template <class _T> struct without_reference<_T &> { typedef _T _type; };
template <class _T> struct without_reference<_T &&> { typedef _T _type; };

// An iterator's reference as something to move from; what is no lvalue, as a reference to a bit, stays as it is.
template <class _R> struct moved_reference { typedef _R _type; };
template <class _T> struct moved_reference<_T &> { typedef _T &&_type; };

template <class _Iterator>
inline typename moved_reference<typename std::iterator_traits<_Iterator>::reference>::_type move_from(_Iterator &_at) {
  return static_cast<typename moved_reference<typename std::iterator_traits<_Iterator>::reference>::_type>(*_at);
}
template <class _T> inline _T &&_moved(_T &_object) noexcept { return static_cast<_T &&>(_object); }

// The type of declval: what cannot be referred to, as void, stays as it is.
template <class _T, class _Reference = _T &&> _Reference _value_of(int);
template <class _T> _T _value_of(long);

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _T> constexpr typename __zor::without_reference<_T>::_type &&move(_T &&_object) noexcept {
  return static_cast<typename __zor::without_reference<_T>::_type &&>(_object);
}
template <class _T> constexpr _T &&forward(typename __zor::without_reference<_T>::_type &_object) noexcept {
  return static_cast<_T &&>(_object);
}
template <class _T> constexpr _T &&forward(typename __zor::without_reference<_T>::_type &&_object) noexcept {
  static_assert(!__zor::is_lvalue_of<_T>::value, "an rvalue is forwarded as an lvalue");
  return static_cast<_T &&>(_object);
}
template <class _T> decltype(__zor::_value_of<_T>(0)) declval() noexcept;

}  // namespace std

#else

namespace __zor {
namespace _functions {

template <class _Iterator> inline typename std::iterator_traits<_Iterator>::reference move_from(_Iterator &_at) {
  return *_at;
}
template <class _T> inline _T &_moved(_T &_object) { return _object; }

}  // namespace _functions
}  // namespace __zor

#endif
#endif

// What algorithms do with an element that they will overwrite: in C++98 they copy it, later they move it. In C++11 and
// later also std::move and std::forward, which programs of those dialects need to say the same.
#ifndef PLX_MOVING_H
#define PLX_MOVING_H

#include <plx/functions.h>
#include <plx/iterator_base.h>

#if __cplusplus >= 201103L

namespace __zor {
namespace functions {

template <class T> struct without_reference { typedef T type; };
template <class T> struct without_reference<T &> { typedef T type; };
template <class T> struct without_reference<T &&> { typedef T type; };

// An iterator's reference as something to move from; what is no lvalue, as a reference to a bit, stays as it is.
template <class R> struct moved_reference { typedef R type; };
template <class T> struct moved_reference<T &> { typedef T &&type; };

template <class Iterator>
inline typename moved_reference<typename std::iterator_traits<Iterator>::reference>::type move_from(Iterator &at) {
  return static_cast<typename moved_reference<typename std::iterator_traits<Iterator>::reference>::type>(*at);
}
template <class T> inline T &&moved(T &object) noexcept { return static_cast<T &&>(object); }

}  // namespace functions
}  // namespace __zor

namespace std {

template <class T> constexpr typename __zor::without_reference<T>::type &&move(T &&object) noexcept {
  return static_cast<typename __zor::without_reference<T>::type &&>(object);
}
template <class T> constexpr T &&forward(typename __zor::without_reference<T>::type &object) noexcept {
  return static_cast<T &&>(object);
}
template <class T> constexpr T &&forward(typename __zor::without_reference<T>::type &&object) noexcept {
  return static_cast<T &&>(object);
}

}  // namespace std

#else

namespace __zor {
namespace functions {

template <class Iterator> inline typename std::iterator_traits<Iterator>::reference move_from(Iterator &at) {
  return *at;
}
template <class T> inline T &moved(T &object) { return object; }

}  // namespace functions
}  // namespace __zor

#endif
#endif

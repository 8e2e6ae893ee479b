// pair and make_pair (1998, 20.2.2). A pair of types with const or reference members keeps their limits.
#ifndef PLX_PAIR_H
#define PLX_PAIR_H

#include <plx/base/config.h>

#if __cplusplus >= 201103L
namespace __zor {

// A pair of which only the first member is given.
struct _second_by_default {};

template <class _To> void _take_converted(_To);
template <class _From> _From &&_some_value() noexcept;
template <class _From, class _To, class = void> struct _converts { static const bool value = false; };
template <class _From, class _To>
struct _converts<_From, _To, decltype(__zor::_take_converted<_To>(__zor::_some_value<_From>()))> {
  static const bool value = true;
};

// Makes a constructor of pair<_T1, _T2> from a _U1 and a _U2: an explicit one where a member's is.
template <bool _condition> struct _only_if {};
template <> struct _only_if<true> { typedef int _type; };
template <class _U1, class _T1, class _U2, class _T2> struct _pair_from {
  static const bool _implicit = _converts<_U1, _T1>::value && _converts<_U2, _T2>::value;
  static const bool _explicit = !_implicit && __is_constructible(_T1, _U1) && __is_constructible(_T2, _U2);
};

// What a variable declared `auto` is.
template <class _T> _T *_decayed_copy(_T *, int);
template <class _T> _T _decayed_copy(_T, long);
template <class _T> struct _decayed { typedef decltype(__zor::_decayed_copy(__zor::_some_value<_T>(), 0)) _type; };

}  // namespace __zor
#endif

namespace std {

template <class _T1, class _T2> struct pair {
  typedef _T1 first_type;
  typedef _T2 second_type;

  _T1 first;
  _T2 second;

  pair() : first(), second() {}
  pair(const _T1 &_a, const _T2 &_b) : first(_a), second(_b) {}
#if __cplusplus >= 201103L
  pair(const pair &) = default;
  pair(pair &&) = default;
  template <class _Ut, class _V,
            typename __zor::_only_if<__zor::_pair_from<_Ut &&, _T1, _V &&, _T2>::_implicit>::_type = 0>
  pair(_Ut &&_a, _V &&_b) : first(static_cast<_Ut &&>(_a)), second(static_cast<_V &&>(_b)) {}
  template <class _Ut, class _V,
            typename __zor::_only_if<__zor::_pair_from<_Ut &&, _T1, _V &&, _T2>::_explicit>::_type = 0>
  explicit pair(_Ut &&_a, _V &&_b) : first(static_cast<_Ut &&>(_a)), second(static_cast<_V &&>(_b)) {}
  template <class _Ut, class _V,
            typename __zor::_only_if<__zor::_pair_from<const _Ut &, _T1, const _V &, _T2>::_implicit>::_type = 0>
  pair(const pair<_Ut, _V> &_other) : first(_other.first), second(_other.second) {}
  template <class _Ut, class _V,
            typename __zor::_only_if<__zor::_pair_from<const _Ut &, _T1, const _V &, _T2>::_explicit>::_type = 0>
  explicit pair(const pair<_Ut, _V> &_other) : first(_other.first), second(_other.second) {}
  template <class _Ut, class _V,
            typename __zor::_only_if<__zor::_pair_from<_Ut &&, _T1, _V &&, _T2>::_implicit>::_type = 0>
  pair(pair<_Ut, _V> &&_other) : first(static_cast<_Ut &&>(_other.first)), second(static_cast<_V &&>(_other.second)) {}
  template <class _Ut, class _V,
            typename __zor::_only_if<__zor::_pair_from<_Ut &&, _T1, _V &&, _T2>::_explicit>::_type = 0>
  explicit pair(pair<_Ut, _V> &&_other)
      : first(static_cast<_Ut &&>(_other.first)), second(static_cast<_V &&>(_other.second)) {}
  template <class _Kt> pair(__zor::_second_by_default, _Kt &&_key) : first(static_cast<_Kt &&>(_key)), second() {}

  // As 1998's: member by member, but moving where it can.
  pair &operator=(const pair &) = default;
  pair &operator=(pair &&) = default;
  template <class _Ut, class _V> pair &operator=(const pair<_Ut, _V> &_other) {
    first = _other.first;
    second = _other.second;
    return *this;
  }
  template <class _Ut, class _V> pair &operator=(pair<_Ut, _V> &&_other) {
    first = static_cast<_Ut &&>(_other.first);
    second = static_cast<_V &&>(_other.second);
    return *this;
  }
#else
  template <class _Ut, class _V> pair(const pair<_Ut, _V> &_other) : first(_other.first), second(_other.second) {}
#endif
};

template <class _T1, class _T2> inline bool operator==(const pair<_T1, _T2> &_left, const pair<_T1, _T2> &_right) {
  return _left.first == _right.first && _left.second == _right.second;
}
template <class _T1, class _T2> inline bool operator<(const pair<_T1, _T2> &_left, const pair<_T1, _T2> &_right) {
  return _left.first < _right.first || (!(_right.first < _left.first) && _left.second < _right.second);
}
template <class _T1, class _T2> inline bool operator!=(const pair<_T1, _T2> &_left, const pair<_T1, _T2> &_right) {
  return !(_left == _right);
}
template <class _T1, class _T2> inline bool operator>(const pair<_T1, _T2> &_left, const pair<_T1, _T2> &_right) {
  return _right < _left;
}
template <class _T1, class _T2> inline bool operator<=(const pair<_T1, _T2> &_left, const pair<_T1, _T2> &_right) {
  return !(_right < _left);
}
template <class _T1, class _T2> inline bool operator>=(const pair<_T1, _T2> &_left, const pair<_T1, _T2> &_right) {
  return !(_left < _right);
}

#if __cplusplus >= 201103L
template <class _T1, class _T2>
inline pair<typename __zor::_decayed<_T1>::_type, typename __zor::_decayed<_T2>::_type> make_pair(_T1 &&_a, _T2 &&_b) {
  return pair<typename __zor::_decayed<_T1>::_type, typename __zor::_decayed<_T2>::_type>(static_cast<_T1 &&>(_a),
                                                                                          static_cast<_T2 &&>(_b));
}
#else
// By value, so that arrays and functions come as pointers.
template <class _T1, class _T2> inline pair<_T1, _T2> make_pair(_T1 _a, _T2 _b) { return pair<_T1, _T2>(_a, _b); }
#endif

}  // namespace std

#endif

// pair and make_pair (1998, 20.2.2). A pair of types with const or reference members keeps their limits.
#ifndef PLX_PAIR_H
#define PLX_PAIR_H

#include <plx/config.h>

namespace std {

template <class _T1, class _T2> struct pair {
  typedef _T1 first_type;
  typedef _T2 second_type;

  _T1 first;
  _T2 second;

  pair() : first(), second() {}
  pair(const _T1 &_a, const _T2 &_b) : first(_a), second(_b) {}
  template <class _Ut, class _V> pair(const pair<_Ut, _V> &_other) : first(_other.first), second(_other.second) {}
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

// By value, so that arrays and functions come as pointers.
template <class _T1, class _T2> inline pair<_T1, _T2> make_pair(_T1 _a, _T2 _b) { return pair<_T1, _T2>(_a, _b); }

}  // namespace std

#endif

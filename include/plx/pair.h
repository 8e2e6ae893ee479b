// pair and make_pair (1998, 20.2.2). A pair of types with const or reference members keeps their limits.
#ifndef PLX_PAIR_H
#define PLX_PAIR_H

#include <plx/config.h>

namespace std {

template <class T1, class T2> struct pair {
  typedef T1 first_type;
  typedef T2 second_type;

  T1 first;
  T2 second;

  pair() : first(), second() {}
  pair(const T1 &a, const T2 &b) : first(a), second(b) {}
  template <class U, class V> pair(const pair<U, V> &other) : first(other.first), second(other.second) {}
};

template <class T1, class T2> inline bool operator==(const pair<T1, T2> &left, const pair<T1, T2> &right) {
  return left.first == right.first && left.second == right.second;
}
template <class T1, class T2> inline bool operator<(const pair<T1, T2> &left, const pair<T1, T2> &right) {
  return left.first < right.first || (!(right.first < left.first) && left.second < right.second);
}
template <class T1, class T2> inline bool operator!=(const pair<T1, T2> &left, const pair<T1, T2> &right) {
  return !(left == right);
}
template <class T1, class T2> inline bool operator>(const pair<T1, T2> &left, const pair<T1, T2> &right) {
  return right < left;
}
template <class T1, class T2> inline bool operator<=(const pair<T1, T2> &left, const pair<T1, T2> &right) {
  return !(right < left);
}
template <class T1, class T2> inline bool operator>=(const pair<T1, T2> &left, const pair<T1, T2> &right) {
  return !(left < right);
}

// By value, so that arrays and functions come as pointers.
template <class T1, class T2> inline pair<T1, T2> make_pair(T1 a, T2 b) { return pair<T1, T2>(a, b); }

}  // namespace std

#endif

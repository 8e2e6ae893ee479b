// stack (1998, 23.2.3.3): last in, first out, over any sequence with back, push_back and pop_back.
#ifndef PLX_STACK_H
#define PLX_STACK_H

#include <plx/deque.h>

namespace std {

template <class _T, class _Container = deque<_T> > class stack {
public:
  typedef typename _Container::value_type value_type;
  typedef typename _Container::size_type size_type;
  typedef _Container container_type;

  explicit stack(const _Container &_elements = _Container()) : c(_elements) {}

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  value_type &top() { return c.back(); }
  const value_type &top() const { return c.back(); }
  void push(const value_type &_value) { c.push_back(_value); }
  void pop() { c.pop_back(); }

  template <class _Ut, class _Ct> friend bool operator==(const stack<_Ut, _Ct> &, const stack<_Ut, _Ct> &);
  template <class _Ut, class _Ct> friend bool operator<(const stack<_Ut, _Ct> &, const stack<_Ut, _Ct> &);

protected:
  _Container c;
};

template <class _T, class _Ct> inline bool operator==(const stack<_T, _Ct> &_left, const stack<_T, _Ct> &_right) {
  return _left.c == _right.c;
}
template <class _T, class _Ct> inline bool operator<(const stack<_T, _Ct> &_left, const stack<_T, _Ct> &_right) {
  return _left.c < _right.c;
}
template <class _T, class _Ct> inline bool operator!=(const stack<_T, _Ct> &_left, const stack<_T, _Ct> &_right) {
  return !(_left == _right);
}
template <class _T, class _Ct> inline bool operator>(const stack<_T, _Ct> &_left, const stack<_T, _Ct> &_right) {
  return _right < _left;
}
template <class _T, class _Ct> inline bool operator>=(const stack<_T, _Ct> &_left, const stack<_T, _Ct> &_right) {
  return !(_left < _right);
}
template <class _T, class _Ct> inline bool operator<=(const stack<_T, _Ct> &_left, const stack<_T, _Ct> &_right) {
  return !(_right < _left);
}

}  // namespace std

#endif

// stack (1998, 23.2.3.3): last in, first out, over any sequence with back, push_back and pop_back.
#ifndef PLX_STACK_H
#define PLX_STACK_H

#include <plx/containers/deque.h>

namespace std {

template <class _T, class _Container = deque<_T> > class stack {
public:
  typedef typename _Container::value_type value_type;
  typedef typename _Container::size_type size_type;
  typedef _Container container_type;

#if __cplusplus >= 201103L
  stack() : c() {}
  explicit stack(const _Container &_elements) : c(_elements) {}
  explicit stack(_Container &&_elements) : c(static_cast<_Container &&>(_elements)) {}
#else
  explicit stack(const _Container &_elements = _Container()) : c(_elements) {}
#endif

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  value_type &top() { return c.back(); }
  const value_type &top() const { return c.back(); }
  void push(const value_type &_value) { c.push_back(_value); }
#if __cplusplus >= 201103L
  void push(value_type &&_value) { c.push_back(static_cast<value_type &&>(_value)); }
  template <class... _Source> typename __zor::_emplaced<value_type>::_type emplace(_Source &&..._given) {
    return static_cast<typename __zor::_emplaced<value_type>::_type>(
        c.emplace_back(static_cast<_Source &&>(_given)...));
  }
  void swap(stack &_other) noexcept { c.swap(_other.c); }
#endif
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

#if __cplusplus >= 201103L
template <class _T, class _Ct> inline void swap(stack<_T, _Ct> &_left, stack<_T, _Ct> &_right) noexcept {
  _left.swap(_right);
}
#endif

}  // namespace std

#endif

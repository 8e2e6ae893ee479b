// stack (1998, 23.2.3.3): last in, first out, over any sequence with back, push_back and pop_back.
#ifndef PLX_STACK_H
#define PLX_STACK_H

#include <plx/deque.h>

namespace std {

template <class T, class Container = deque<T> > class stack {
public:
  typedef typename Container::value_type value_type;
  typedef typename Container::size_type size_type;
  typedef Container container_type;

  explicit stack(const Container &elements = Container()) : c(elements) {}

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  value_type &top() { return c.back(); }
  const value_type &top() const { return c.back(); }
  void push(const value_type &value) { c.push_back(value); }
  void pop() { c.pop_back(); }

  template <class U, class C> friend bool operator==(const stack<U, C> &, const stack<U, C> &);
  template <class U, class C> friend bool operator<(const stack<U, C> &, const stack<U, C> &);

protected:
  Container c;
};

template <class T, class C> inline bool operator==(const stack<T, C> &left, const stack<T, C> &right) {
  return left.c == right.c;
}
template <class T, class C> inline bool operator<(const stack<T, C> &left, const stack<T, C> &right) {
  return left.c < right.c;
}
template <class T, class C> inline bool operator!=(const stack<T, C> &left, const stack<T, C> &right) {
  return !(left == right);
}
template <class T, class C> inline bool operator>(const stack<T, C> &left, const stack<T, C> &right) {
  return right < left;
}
template <class T, class C> inline bool operator>=(const stack<T, C> &left, const stack<T, C> &right) {
  return !(left < right);
}
template <class T, class C> inline bool operator<=(const stack<T, C> &left, const stack<T, C> &right) {
  return !(right < left);
}

}  // namespace std

#endif

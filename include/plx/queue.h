// queue (1998, 23.2.3.1): first in, first out, over any sequence with front, back, push_back and pop_front; and
// priority_queue (23.2.3.2): a heap, by default in a vector, whose top is its largest element.
#ifndef PLX_QUEUE_H
#define PLX_QUEUE_H

#include <plx/deque.h>
#include <plx/function_objects.h>
#include <plx/heap.h>
#include <plx/vector.h>

namespace std {

template <class T, class Container = deque<T> > class queue {
public:
  typedef typename Container::value_type value_type;
  typedef typename Container::size_type size_type;
  typedef Container container_type;

  explicit queue(const Container &elements = Container()) : c(elements) {}

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  value_type &front() { return c.front(); }
  const value_type &front() const { return c.front(); }
  value_type &back() { return c.back(); }
  const value_type &back() const { return c.back(); }
  void push(const value_type &value) { c.push_back(value); }
  void pop() { c.pop_front(); }

  template <class U, class C> friend bool operator==(const queue<U, C> &, const queue<U, C> &);
  template <class U, class C> friend bool operator<(const queue<U, C> &, const queue<U, C> &);

protected:
  Container c;
};

template <class T, class C> inline bool operator==(const queue<T, C> &left, const queue<T, C> &right) {
  return left.c == right.c;
}
template <class T, class C> inline bool operator<(const queue<T, C> &left, const queue<T, C> &right) {
  return left.c < right.c;
}
template <class T, class C> inline bool operator!=(const queue<T, C> &left, const queue<T, C> &right) {
  return !(left == right);
}
template <class T, class C> inline bool operator>(const queue<T, C> &left, const queue<T, C> &right) {
  return right < left;
}
template <class T, class C> inline bool operator>=(const queue<T, C> &left, const queue<T, C> &right) {
  return !(left < right);
}
template <class T, class C> inline bool operator<=(const queue<T, C> &left, const queue<T, C> &right) {
  return !(right < left);
}

template <class T, class Container = vector<T>, class Compare = less<typename Container::value_type> >
class priority_queue {
public:
  typedef typename Container::value_type value_type;
  typedef typename Container::size_type size_type;
  typedef Container container_type;

  explicit priority_queue(const Compare &before = Compare(), const Container &elements = Container())
      : c(elements), comp(before) {
    std::make_heap(c.begin(), c.end(), comp);
  }
  template <class Iterator> priority_queue(Iterator first, Iterator last, const Compare &before = Compare(),
                                           const Container &elements = Container())
      : c(elements), comp(before) {
    c.insert(c.end(), first, last);
    std::make_heap(c.begin(), c.end(), comp);
  }

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  const value_type &top() const { return c.front(); }
  void push(const value_type &value) {
    c.push_back(value);
    std::push_heap(c.begin(), c.end(), comp);
  }
  void pop() {
    std::pop_heap(c.begin(), c.end(), comp);
    c.pop_back();
  }

protected:
  Container c;
  Compare comp;
};

}  // namespace std

#endif

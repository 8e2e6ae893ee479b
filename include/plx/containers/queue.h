// queue (1998, 23.2.3.1): first in, first out, over any sequence with front, back, push_back and pop_front; and
// priority_queue (23.2.3.2): a heap, by default in a vector, whose top is its largest element.
#ifndef PLX_QUEUE_H
#define PLX_QUEUE_H

#include <plx/algorithms/heap.h>
#include <plx/base/function_objects.h>
#include <plx/containers/deque.h>
#include <plx/containers/vector.h>

namespace std {

template <class _T, class _Container = deque<_T> > class queue {
public:
  typedef typename _Container::value_type value_type;
  typedef typename _Container::size_type size_type;
  typedef _Container container_type;

#if __cplusplus >= 201103L
  queue() : c() {}
  explicit queue(const _Container &_elements) : c(_elements) {}
  explicit queue(_Container &&_elements) : c(static_cast<_Container &&>(_elements)) {}
#else
  explicit queue(const _Container &_elements = _Container()) : c(_elements) {}
#endif

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  value_type &front() { return c.front(); }
  const value_type &front() const { return c.front(); }
  value_type &back() { return c.back(); }
  const value_type &back() const { return c.back(); }
  void push(const value_type &_value) { c.push_back(_value); }
#if __cplusplus >= 201103L
  void push(value_type &&_value) { c.push_back(static_cast<value_type &&>(_value)); }
  template <class... _Source> typename __zor::_emplaced<value_type>::_type emplace(_Source &&..._given) {
    return static_cast<typename __zor::_emplaced<value_type>::_type>(
        c.emplace_back(static_cast<_Source &&>(_given)...));
  }
  void swap(queue &_other) noexcept { c.swap(_other.c); }
#endif
  void pop() { c.pop_front(); }

  template <class _Ut, class _Ct> friend bool operator==(const queue<_Ut, _Ct> &, const queue<_Ut, _Ct> &);
  template <class _Ut, class _Ct> friend bool operator<(const queue<_Ut, _Ct> &, const queue<_Ut, _Ct> &);

protected:
  _Container c;
};

template <class _T, class _Ct> inline bool operator==(const queue<_T, _Ct> &_left, const queue<_T, _Ct> &_right) {
  return _left.c == _right.c;
}
template <class _T, class _Ct> inline bool operator<(const queue<_T, _Ct> &_left, const queue<_T, _Ct> &_right) {
  return _left.c < _right.c;
}
template <class _T, class _Ct> inline bool operator!=(const queue<_T, _Ct> &_left, const queue<_T, _Ct> &_right) {
  return !(_left == _right);
}
template <class _T, class _Ct> inline bool operator>(const queue<_T, _Ct> &_left, const queue<_T, _Ct> &_right) {
  return _right < _left;
}
template <class _T, class _Ct> inline bool operator>=(const queue<_T, _Ct> &_left, const queue<_T, _Ct> &_right) {
  return !(_left < _right);
}
template <class _T, class _Ct> inline bool operator<=(const queue<_T, _Ct> &_left, const queue<_T, _Ct> &_right) {
  return !(_right < _left);
}

template <class _T, class _Container = vector<_T>, class _Compare = less<typename _Container::value_type> >
class priority_queue {
public:
  typedef typename _Container::value_type value_type;
  typedef typename _Container::size_type size_type;
  typedef _Container container_type;

#if __cplusplus >= 201103L
  priority_queue() : c(), comp() {}
  explicit priority_queue(const _Compare &_before) : c(), comp(_before) {}
  priority_queue(const _Compare &_before, const _Container &_elements) : c(_elements), comp(_before) {
    std::make_heap(c.begin(), c.end(), comp);
  }
  priority_queue(const _Compare &_before, _Container &&_elements)
      : c(static_cast<_Container &&>(_elements)), comp(_before) {
    std::make_heap(c.begin(), c.end(), comp);
  }
#else
  explicit priority_queue(const _Compare &_before = _Compare(), const _Container &_elements = _Container())
      : c(_elements), comp(_before) {
    std::make_heap(c.begin(), c.end(), comp);
  }
#endif
  template <class _Iterator> priority_queue(_Iterator _first, _Iterator _last, const _Compare &_before = _Compare(),
                                            const _Container &_elements = _Container())
      : c(_elements), comp(_before) {
    c.insert(c.end(), _first, _last);
    std::make_heap(c.begin(), c.end(), comp);
  }

  bool empty() const { return c.empty(); }
  size_type size() const { return c.size(); }
  const value_type &top() const { return c.front(); }
  void push(const value_type &_value) {
    c.push_back(_value);
    std::push_heap(c.begin(), c.end(), comp);
  }
#if __cplusplus >= 201103L
  void push(value_type &&_value) {
    c.push_back(static_cast<value_type &&>(_value));
    std::push_heap(c.begin(), c.end(), comp);
  }
  template <class... _Source> void emplace(_Source &&..._given) {
    c.emplace_back(static_cast<_Source &&>(_given)...);
    std::push_heap(c.begin(), c.end(), comp);
  }
  void swap(priority_queue &_other) {
    c.swap(_other.c);
    std::swap(comp, _other.comp);
  }
#endif
  void pop() {
    std::pop_heap(c.begin(), c.end(), comp);
    c.pop_back();
  }

protected:
  _Container c;
  _Compare comp;
};

#if __cplusplus >= 201103L
template <class _T, class _Ct> inline void swap(queue<_T, _Ct> &_left, queue<_T, _Ct> &_right) noexcept {
  _left.swap(_right);
}
template <class _T, class _Ct, class _Compare>
inline void swap(priority_queue<_T, _Ct, _Compare> &_left, priority_queue<_T, _Ct, _Compare> &_right) {
  _left.swap(_right);
}
#endif

}  // namespace std

#endif

// deque, and the adaptors that stand over it: random runs, printed and compared with the host's library.
// prints: 16000 lines
#include "../sequence_operations.h"

#include <functional>
#include <queue>
#include <stack>

template class std::stack<std::string>;
template class std::queue<std::string>;
template class std::priority_queue<std::string>;

// What stays is where it was, at whichever end something comes or goes.
static void ends() {
  const int more[] = {7, 8, 9};
  for (unsigned int size = 1; size < 45; ++size)
    for (int n = 0; n < static_cast<int>(size); ++n) {
      std::deque<int> d(size, 1), e(size, 1);
      const int *const last = &d.back(), *const first = &e.front();
      d.erase(d.begin(), d.begin() + n);
      d.insert(d.begin(), more, more + 3);
      e.erase(e.end() - n, e.end());
      e.insert(e.end(), more, more + 3);
      for (int i = 0; i < n; ++i) d.push_front(i), e.push_back(i);
      for (int i = 0; i < n; ++i) d.pop_front(), e.pop_back();
      CHECK(last == &d.back() && first == &e.front() && d[2] == 9 && e[e.size() - 3] == 7);
    }
}

template <class A> static void compared(const A &a, const A &b) {
  printf(" %d%d%d%d%d%d", a == b, a != b, a<b, a> b, a <= b, a >= b);
}
template <class Stack, class Queue, class Heap, class Before> static void adaptors() {
  int numbers[40];
  for (int i = 0; i < 40; ++i) numbers[i] = static_cast<int>(random_below(1000));
  Stack s, s_copy;
  Queue q, q_copy;
  Heap h(numbers, numbers + 40), h_copy((Before()), typename Heap::container_type(numbers, numbers + 40));
  for (int i = 0; i < 2000; ++i) {
    const int value = static_cast<int>(random_below(100));
    const bool push = s.empty() || random_below(2);
    push ? (s.push(value), q.push(value), h.push(value), h_copy.push(value))
         : (s.pop(), q.pop(), h.pop(), h_copy.pop());
    printf("adaptors %d: %u %u %u %d%d", i, unsigned(s.size()), unsigned(q.size()), unsigned(h.size()), s.empty(),
           h.empty());
    if (!s.empty()) printf(" %d %d %d %d %d", s.top(), q.front(), q.back(), h.top(), h_copy.top());
    if (i % 50 == 0 && !s.empty()) s_copy = s, q_copy = q, ++s.top(), ++q.front(), ++q.back();
    compared(s, s_copy), compared(q, q_copy), puts("");
  }
}

int main() {
  random_run<std::deque<int> >("numbers", 4000);
  random_run<std::deque<std::string> >("texts", 3000);
  random_run<std::deque<tracked> >("elements", 5000);
  ends();
  adaptors<std::stack<int>, std::queue<int>, std::priority_queue<int>, std::less<int> >();
  adaptors<std::stack<int, std::vector<int> >, std::queue<int, std::list<int> >,
           std::priority_queue<int, std::deque<int>, std::greater<int> >, std::greater<int> >();
  return test_failures != 0;
}

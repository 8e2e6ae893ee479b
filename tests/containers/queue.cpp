// stack, queue and priority_queue over their default and other sequences, with numbers and strings.
// test-peer: gnu++98

#include <functional>
#include <list>
#include <queue>
#include <stack>
#include <string>

#include "harness.h"

template class std::stack<std::string>;
template class std::stack<int, std::vector<int> >;
template class std::queue<std::string>;
template class std::queue<int, std::list<int> >;
template class std::priority_queue<std::string>;
template class std::priority_queue<int, std::deque<int>, std::greater<int> >;

template <class Stack> static void use_stack() {
  Stack s, empty;
  for (int i = 0; i < 100; ++i) s.push(i);
  const Stack copy(s);
  CHECK(copy == s && !(copy != s) && empty < s && s > empty && s >= copy && empty <= s);
  s.top() += 1000;
  CHECK(copy < s && copy.top() == 99);
  s.pop();
  for (int i = 98; i >= 0; --i) {
    CHECK_INT(s.top(), i);
    s.pop();
  }
  CHECK(s.empty() && copy.size() == 100);
}

template <class Queue> static void use_queue() {
  Queue q, empty;
  for (int i = 0; i < 100; ++i) q.push(i);
  const Queue copy(q);
  CHECK(copy == q && !(copy != q) && empty < q && q > empty && q >= copy && empty <= q);
  CHECK(copy.front() == 0 && copy.back() == 99);
  q.back() = 7;
  CHECK(q < copy);
  for (int i = 0; i < 99; ++i) {
    CHECK_INT(q.front(), i);
    q.pop();
  }
  CHECK(q.size() == 1 && q.front() == 7);
}

template <class Queue, class Less> static void use_heap() {
  typedef typename Queue::value_type T;
  const int numbers[] = {5, 3, 9, 9, 0, 2, 7, 7, 1};
  std::vector<T> initial;
  for (int i = 0; i < 9; ++i) initial.push_back(T() + static_cast<T>(numbers[i]));
  Queue q(initial.begin(), initial.end());
  unsigned int state = 7, left = 200;
  for (unsigned int i = 0; i < left; ++i) {
    state = state * 1664525u + 1013904223u;
    q.push(static_cast<T>((state >> 8) % 100));
  }
  left += 9;
  T last = q.top();
  for (; !q.empty(); q.pop(), --left) {
    CHECK(!Less()(last, q.top()) && q.size() == left);
    last = q.top();
  }
  CHECK_INT(left, 0);
}

int main() {
  use_stack<std::stack<int> >();
  use_stack<std::stack<int, std::list<int> > >();
  use_queue<std::queue<int> >();
  use_queue<std::queue<int, std::list<int> > >();
  use_heap<std::priority_queue<int>, std::less<int> >();
  use_heap<std::priority_queue<double, std::deque<double>, std::greater<double> >, std::greater<double> >();
  std::priority_queue<std::string> words;
  words.push("beta");
  words.push("gamma");
  words.push("alpha");
  CHECK(words.top() == "gamma");
  words.pop();
  CHECK(words.top() == "beta");
  return TEST_RESULT();
}

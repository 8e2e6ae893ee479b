// Sequences: vectors that grow by push_back, insertion and erasure in the middle, copies; list push and pop, sorting
// and merging; deque at both ends, as a queue, at random places; vector<bool>; a priority queue.
#include <deque>
#include <list>
#include <queue>
#include <string>
#include <vector>

#include "bench.h"

namespace {

unsigned int state;
unsigned int random_number() {
  state = state * 1664525u + 1013904223u;
  return state >> 4;
}

// ---- vector ---------------------------------------------------------------------------------------------------------

template <int n> unsigned long grow_ints(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::vector<int> v;
    for (int k = 0; k < n; ++k) v.push_back(k);
    BENCH_TOUCH(&v);
    sum += v.size() + static_cast<unsigned long>(v.back());
  }
  return sum;
}

template <int n> unsigned long grow_strings(unsigned long iterations) {
  const std::string text[4] = {"alpha", "beta", "gamma", "delta"};
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::vector<std::string> v;
    for (int k = 0; k < n; ++k) v.push_back(text[k & 3]);
    BENCH_TOUCH(&v);
    sum += v.size() + v.back().size();
  }
  return sum;
}

unsigned long reserved_ints(unsigned long iterations) {
  std::vector<int> v;
  v.reserve(1000);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    v.clear();
    for (int k = 0; k < 1000; ++k) v.push_back(k);
    BENCH_TOUCH(&v);
    sum += v.size();
  }
  return sum;
}

unsigned long middle_of_strings(unsigned long iterations) {
  std::vector<std::string> v(200, std::string("some text"));
  const std::string inserted("inserted");
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    v.insert(v.begin() + 100, inserted);
    BENCH_TOUCH(&v);
    v.erase(v.begin() + 50);
    sum += v[100].size();
  }
  return sum;
}

unsigned long copy_ints(unsigned long iterations) {
  std::vector<int> v(1000, 7);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::vector<int> copy(v);
    BENCH_TOUCH(&copy);
    sum += copy.size();
  }
  return sum;
}

unsigned long index_ints(unsigned long iterations) {
  std::vector<int> v(1000, 7);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (std::vector<int>::size_type k = 0; k < v.size(); ++k) v[k] += static_cast<int>(k);
    BENCH_TOUCH(&v);
    for (std::vector<int>::iterator at = v.begin(); at != v.end(); ++at) sum += static_cast<unsigned int>(*at) & 15;
  }
  return sum;
}

unsigned long bits(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::vector<bool> v;
    for (int k = 0; k < 1000; ++k) v.push_back((k & 5) == 1);
    BENCH_TOUCH(&v);
    for (unsigned int k = 0; k < 1000; ++k) sum += v[k];
  }
  return sum;
}

// ---- list -----------------------------------------------------------------------------------------------------------

unsigned long list_push_pop(unsigned long iterations) {
  std::list<int> l;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (int k = 0; k < 100; ++k) l.push_back(k);
    BENCH_TOUCH(&l);
    for (int k = 0; k < 100; ++k) {
      sum += static_cast<unsigned long>(l.front());
      l.pop_front();
    }
  }
  return sum;
}

unsigned long list_build(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::list<int> l;
    for (int k = 0; k < 1000; ++k) l.push_back(k);
    BENCH_TOUCH(&l);
    sum += static_cast<unsigned long>(l.back());
  }
  return sum;
}

unsigned long list_walk(unsigned long iterations) {
  std::list<int> l(1000, 3);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    BENCH_TOUCH(&l);
    for (std::list<int>::iterator at = l.begin(); at != l.end(); ++at) sum += static_cast<unsigned long>(*at);
  }
  return sum;
}

// The values are new each time, the nodes keep the places that the last sort gave them.
template <int n> unsigned long list_sort(unsigned long iterations) {
  std::list<int> l(n, 0);
  state = 5;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (std::list<int>::iterator at = l.begin(); at != l.end(); ++at) *at = static_cast<int>(random_number());
    l.sort();
    sum += static_cast<unsigned long>(l.front()) + static_cast<unsigned long>(l.back());
  }
  return sum;
}

template <int n> unsigned long list_sort_fresh(unsigned long iterations) {
  state = 5;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::list<int> l;
    for (int k = 0; k < n; ++k) l.push_back(static_cast<int>(random_number()));
    l.sort();
    sum += static_cast<unsigned long>(l.front()) + static_cast<unsigned long>(l.back());
  }
  return sum;
}

unsigned long list_sort_strings(unsigned long iterations) {
  state = 5;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::list<std::string> l;
    for (int k = 0; k < 20000; ++k) {
      char text[16];
      const int length = sprintf(text, "%u", random_number());
      l.push_back(std::string(text, static_cast<std::string::size_type>(length)));
    }
    l.sort();
    sum += l.front().size() + static_cast<unsigned long>(l.back()[0]);
  }
  return sum;
}

// ---- deque ----------------------------------------------------------------------------------------------------------

unsigned long deque_push_back(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::deque<int> d;
    for (int k = 0; k < 10000; ++k) d.push_back(k);
    BENCH_TOUCH(&d);
    sum += d.size();
  }
  return sum;
}

unsigned long deque_push_front(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::deque<int> d;
    for (int k = 0; k < 10000; ++k) d.push_front(k);
    BENCH_TOUCH(&d);
    sum += d.size();
  }
  return sum;
}

unsigned long deque_as_queue(unsigned long iterations) {
  std::deque<int> d(100, 1);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (int k = 0; k < 100; ++k) {
      d.push_back(k);
      sum += static_cast<unsigned long>(d.front());
      d.pop_front();
    }
    BENCH_TOUCH(&d);
  }
  return sum;
}

template <int n> unsigned long deque_random(unsigned long iterations) {
  std::deque<int> d(n, 3);
  state = 9;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (int k = 0; k < 1000; ++k) sum += static_cast<unsigned long>(d[random_number() % n]);
    BENCH_TOUCH(&d);
  }
  return sum;
}

unsigned long deque_index(unsigned long iterations) {
  std::deque<int> d(1000, 3);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (std::deque<int>::size_type k = 0; k < d.size(); ++k) sum += static_cast<unsigned long>(d[k]);
    BENCH_TOUCH(&d);
  }
  return sum;
}

unsigned long deque_walk(unsigned long iterations) {
  std::deque<int> d(1000, 3);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    for (std::deque<int>::iterator at = d.begin(); at != d.end(); ++at) sum += static_cast<unsigned long>(*at);
    BENCH_TOUCH(&d);
  }
  return sum;
}

unsigned long heap(unsigned long iterations) {
  unsigned long sum = 0;
  state = 3;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::priority_queue<int> q;
    for (int k = 0; k < 1000; ++k) q.push(static_cast<int>(random_number()));
    for (; !q.empty(); q.pop()) sum += static_cast<unsigned long>(q.top());
  }
  return sum;
}

}  // namespace

static const bench_case cases[] = {
    {"vector<int>, 100 push_back", 1.3, 100, grow_ints<100>},
    {"vector<int>, 10,000 push_back", 1.3, 10000, grow_ints<10000>},
    {"vector<int>, 1 M push_back", 1.3, 1000000, grow_ints<1000000>},
    {"vector<int>, push_back into reserved room", 1, 1000, reserved_ints},
    {"vector<string>, 100 push_back", 1.3, 100, grow_strings<100>},
    {"vector<string>, 10,000 push_back", 1.3, 10000, grow_strings<10000>},
    {"vector<string>, insert and erase in 200", 1.3, 1, middle_of_strings},
    {"vector<int>, copy of 1,000", 1, 1000, copy_ints},
    {"vector<int>, indexing and iterating", 1, 2000, index_ints},
    {"vector<bool>, 1,000 push_back and read", 1, 2000, bits},
    {"list<int>, push_back and pop_front", 1.3, 100, list_push_pop},
    {"list<int>, build and destroy", 1.3, 1000, list_build},
    {"list<int>, walk", 1, 1000, list_walk},
    {"list<int>, sort of 100", 1.3, 100, list_sort<100>},
    {"list<int>, sort of 10,000", 1.3, 10000, list_sort<10000>},
    {"list<int>, sort of 1 M", 1.3, 1000000, list_sort<1000000>},
    {"list<int>, build and sort 1 M", 1.3, 1000000, list_sort_fresh<1000000>},
    {"list<string>, build and sort 20,000", 1.3, 20000, list_sort_strings},
    {"deque<int>, push_back", 1.3, 10000, deque_push_back},
    {"deque<int>, push_front", 1.3, 10000, deque_push_front},
    {"deque<int>, as a queue", 1.3, 100, deque_as_queue},
    {"deque<int>, random access in 1,000", 1, 1000, deque_random<1000>},
    {"deque<int>, random access in 1 M", 1, 1000, deque_random<1000000>},
    {"deque<int>, indexing in order", 1, 1000, deque_index},
    {"deque<int>, iterating", 1, 1000, deque_walk},
    {"priority_queue<int>, 1,000 push and pop", 1, 1000, heap},
};

BENCH_MAIN(cases)

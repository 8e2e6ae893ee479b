// dynamic_cast down a single-inheritance chain: to the object's own class, to a class between, and to a sibling class
// that the object is not; across the bases of a class with virtual ones; and typeid. The compilers know nothing of the
// object that a pointer leads to.
#include "bench.h"

#include <typeinfo>

namespace {

struct shape {
  int value;
  explicit shape(int v) : value(v) {}
  virtual ~shape() {}
};
struct polygon : shape {
  explicit polygon(int v) : shape(v) {}
};
struct rectangle : polygon {
  explicit rectangle(int v) : polygon(v) {}
};
struct square : rectangle {
  explicit square(int v) : rectangle(v) {}
};
struct ellipse : shape {
  explicit ellipse(int v) : shape(v) {}
};

struct stored {
  int value;
  virtual ~stored() {}
};
struct readable : virtual stored {};
struct writable : virtual stored {};
struct file : readable, writable {};

template <class target, class source> BENCH_NOINLINE target *cast(source *object) {
  return dynamic_cast<target *>(object);
}

template <class target> unsigned long cast_loop(unsigned long iterations) {
  square object(7);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    shape *pointer = &object;
    BENCH_OPAQUE(pointer);
    target *found = cast<target>(pointer);
    sum += found != 0 ? found->value : 1;
  }
  return sum;
}

unsigned long cast_across(unsigned long iterations) {
  file object;
  object.value = 3;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    readable *pointer = &object;
    BENCH_OPAQUE(pointer);
    sum += cast<writable>(pointer)->value;
  }
  return sum;
}

template <class other> unsigned long compare_types(unsigned long iterations) {
  square one(7);
  other two(8);
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    shape *left = &one, *right = &two;
    BENCH_OPAQUE(left);
    BENCH_OPAQUE(right);
    sum += typeid(*left) == typeid(*right) ? 2 : 1;
  }
  return sum;
}

const bench_case cases[] = {
    {"dynamic_cast to the object's class", 1, 1, cast_loop<square>},
    {"dynamic_cast to a class between", 1, 1, cast_loop<polygon>},
    {"dynamic_cast that fails", 1, 1, cast_loop<ellipse>},
    {"dynamic_cast across virtual bases", 1, 1, cast_across},
    {"typeid, equal types", 1, 1, compare_types<square>},
    {"typeid, different types", 1, 1, compare_types<ellipse>},
};

}  // namespace

BENCH_MAIN(cases)

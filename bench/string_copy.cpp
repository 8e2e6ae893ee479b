// Strings made from strings and from C strings: copies, assignments and arguments passed by value at 8, 100 and 1,024
// characters, and construction from nothing and from 8 and 100 characters.
#include <string>

#include "bench.h"

namespace {

template <int length> unsigned long copy(unsigned long iterations) {
  std::string source(length, 'x');
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string copied(source);
    BENCH_TOUCH(&copied);
    sum += copied.size();
  }
  return sum;
}

template <int length> unsigned long assign(unsigned long iterations) {
  std::string sources[2] = {std::string(length, 'x'), std::string(length, 'y')};
  std::string target;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    target = sources[i & 1];
    BENCH_TOUCH(&target);
    sum += target.size() + target.c_str()[length - 1];
  }
  return sum;
}

BENCH_NOINLINE unsigned long take(std::string argument) {
  BENCH_TOUCH(&argument);
  return argument.size();
}

template <int length> unsigned long pass(unsigned long iterations) {
  std::string source(length, 'x');
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) sum += take(source);
  return sum;
}

template <int length> unsigned long construct(unsigned long iterations) {
  char text[length + 1];
  memset(text, 'x', length);
  text[length] = 0;
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    const char *source = text;
    BENCH_OPAQUE(source);
    std::string made(source);
    BENCH_TOUCH(&made);
    sum += made.size();
  }
  return sum;
}

unsigned long construct_empty(unsigned long iterations) {
  unsigned long sum = 0;
  for (unsigned long i = 0; i < iterations; ++i) {
    std::string made;
    BENCH_TOUCH(&made);
    sum += made.empty();
  }
  return sum;
}

const bench_case cases[] = {
    {"string copy, 8 characters", 3, 1, copy<8>},
    {"string copy, 100 characters", 3, 1, copy<100>},
    {"string copy, 1,024 characters", 20, 1, copy<1024>},
    {"string assignment, 8 characters", 3, 1, assign<8>},
    {"string assignment, 100 characters", 3, 1, assign<100>},
    {"string assignment, 1,024 characters", 20, 1, assign<1024>},
    {"string passed by value, 8 characters", 3, 1, pass<8>},
    {"string passed by value, 100 characters", 3, 1, pass<100>},
    {"string passed by value, 1,024 characters", 20, 1, pass<1024>},
    {"an empty string, made and destroyed", 0.4, 1, construct_empty},
    {"string from 8 characters", 1, 1, construct<8>},
    {"string from 100 characters", 1, 1, construct<100>},
};

}  // namespace

BENCH_MAIN(cases)

// __random_generator: a subtractive generator of lagged Fibonacci kind, and the one that random_shuffle draws from.
//
// The table holds the last 55 numbers. Each new one is the difference of the oldest and the one 31 places after it, and
// takes the oldest's place; the two indices walk around the table together. Numbers are modulo 2^32.
#ifndef PLX_RANDOM_GENERATOR_H
#define PLX_RANDOM_GENERATOR_H

#include <plx/base/config.h>

namespace std {

class PLX_API __random_generator {
public:
  explicit __random_generator(unsigned long _s) PLX_NOTHROW { seed(_s); }
  void seed(unsigned long _s) PLX_NOTHROW;

  // A number below `_limit`, which is not 0: the high bits of the next number decide, with the low part redrawn where
  // it would favour some results.
  unsigned long operator()(unsigned long _limit) PLX_NOTHROW;

  // The next number of the sequence, 32 bits.
  unsigned long _next() PLX_NOTHROW {
    const unsigned int _drawn = _table_[_index1_] - _table_[_index2_];
    _table_[_index1_] = _drawn;
    if (++_index1_ == size) _index1_ = 0;
    if (++_index2_ == size) _index2_ = 0;
    return _drawn;
  }

private:
  enum { size = 55 };

  unsigned int _table_[size];
  unsigned int _index1_;
  unsigned int _index2_;
};

extern PLX_API __random_generator __vexil_rd;

}  // namespace std

#endif

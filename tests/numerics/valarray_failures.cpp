// test-variants: -O0 | -O2 -std=gnu++17
// A valarray of elements of which every construction, assignment and operation may throw, and of which every allocation
// may fail: whatever throws, all that was made is destroyed once, and all memory is freed.
#include <valarray>

#include <stdexcept>

#include "fail_allocation.h"

namespace {

long steps_to_failure;  // counts down; 0: none
bool step_failed;
long live_objects;

void step() {
  if (steps_to_failure != 0 && --steps_to_failure == 0) {
    step_failed = true;
    throw std::runtime_error("no more");
  }
}

// Its address is kept in it: destroying what was never made, or twice, is found out.
class number {
public:
  number(int value = 0) : value_(value) { make(); }
  number(const number &other) : value_(other.value_) { make(); }
  ~number() {
    CHECK(self_ == this);
    self_ = 0;
    --live_objects;
  }
  number &operator=(const number &other) {
    step();
    CHECK(self_ == this && other.self_ == &other);
    value_ = other.value_;
    return *this;
  }
  number &operator+=(const number &other) {
    step();
    value_ += other.value_;
    return *this;
  }
  friend number operator+(const number &a, const number &b) { return number(a.value_ + b.value_); }
  number operator-() const { return number(-value_); }
  friend bool operator<(const number &a, const number &b) {
    step();
    return a.value_ < b.value_;
  }

private:
  void make() {
    step();
    self_ = this;
    ++live_objects;
  }
  number *self_;
  int value_;
};

typedef std::valarray<number> numbers;

number negated(const number &x) { return -x; }

void all_operations(int which) {
  numbers a(number(3), 5), b(4);
  switch (which) {
    case 0: a = b; break;
    case 1: b = numbers(number(9), 4); break;
    case 2: a = number(1); break;
    case 3: a += a; break;
    case 4: a += number(2); break;
    case 5: a = a + a; break;
    case 6: b = number(7) + b; break;
    case 7: b = -b; break;
    case 8: a = a.shift(2); break;
    case 9: a = a.cshift(-1); break;
    case 10: a = a.apply(negated); break;
    case 11: a.resize(7, number(1)); break;
    case 12: a[std::slice(0, 2, 2)] = b[std::slice(1, 2, 1)]; break;
    case 13: b = a[std::slice(0, 2, 2)]; break;
    case 14: a[std::slice(0, 5, 1)] += a; break;
    case 15: a[a < number(4)] = number(6); break;
    case 16: b = a[std::valarray<size_t>(2, 3)]; break;
    case 17: b = a[std::gslice(0, std::valarray<size_t>(2, 2), std::valarray<size_t>(1, 2))]; break;
    case 18: a = a + number(2) + -(a + a); break;
    case 19: a += number(1) + a; break;
    case 20: b = a + a; break;
    default: b[0] = a.sum() + (a.min)() + (a.max)(); break;
  }
}

// Fails step after step of one operation, then its allocations, until it goes through.
void fail_each(int which) {
  for (long n = 1;; ++n) {
    steps_to_failure = n;
    step_failed = false;
    try {
      all_operations(which);
    } catch (const std::runtime_error &) {
    }
    steps_to_failure = 0;
    CHECK_INT(live_objects, 0);
    CHECK_INT(live_blocks, 0);
    if (!step_failed) break;
  }
  for (long n = 1;; ++n) {
    allocation_to_fail = n;
    allocation_failed = false;
    try {
      all_operations(which);
    } catch (const std::bad_alloc &) {
    }
    allocation_to_fail = 0;
    CHECK_INT(live_objects, 0);
    CHECK_INT(live_blocks, 0);
    if (!allocation_failed) break;
  }
}

// What fails while it makes its result leaves the arrays as they were.
void unchanged() {
  std::valarray<int> a(3, 2);
  const std::valarray<int> b(5, 4);
  allocation_to_fail = 1;
  bool failed = false;
  try {
    a = b;
  } catch (const std::bad_alloc &) {
    failed = true;
  }
  CHECK(failed && a.size() == 2 && a[1] == 3);
  allocation_to_fail = 1;
  try {
    a.resize(100);
  } catch (const std::bad_alloc &) {
    failed = false;
  }
  allocation_to_fail = 0;
  CHECK(!failed && a.size() == 2 && a[0] == 3);
}

// A length whose size in bytes wraps is no small allocation.
void lengths_that_wrap() {
  const size_t lengths[] = {0x40000001u, 0x80000000u, static_cast<size_t>(-1)};
  for (int i = 0; i < 3; ++i) {
    bool failed = false;
    try {
      std::valarray<int> a(lengths[i]);
    } catch (const std::bad_alloc &) {
      failed = true;
    }
    CHECK(failed);
  }
}

}  // namespace

int main() {
  for (int which = 0; which <= 21; ++which) fail_each(which);
  unchanged();
  lengths_that_wrap();
  return TEST_RESULT();
}

// An element that is counted, knows where it lives, so that what uses it after its end is found out, and fails on
// request: the N-th copy or assignment, or the N-th comparison, throws `refused`. Include it in one source file of a
// test.
#ifndef TESTS_TRACKED_H
#define TESTS_TRACKED_H

#include "harness.h"

struct refused {};

class tracked {
public:
  static long live, comparisons;
  static long copies_to_fail, comparisons_to_fail;  // count down; 0: none

  int key, rank;  // the rank takes no part in comparisons

  tracked(int k = 0, int r = 0) : key(k), rank(r), self_(this) { ++live; }
  tracked(const tracked &other) : key(other.key), rank(other.rank), self_(this) {
    other.check();
    may_fail(copies_to_fail);
    ++live;
  }
  tracked &operator=(const tracked &other) {
    check();
    other.check();
    may_fail(copies_to_fail);
    key = other.key;
    rank = other.rank;
    return *this;
  }
  ~tracked() {
    check();
    self_ = 0;
    --live;
  }
  void check() const {
    if (self_ != this) CHECK(!"an element is used that does not live there");
  }
  static void may_fail(long &left) {
    if (left != 0 && --left == 0) throw refused();
  }
  friend bool operator<(const tracked &a, const tracked &b) { return compared(a, b), a.key < b.key; }
  friend bool operator==(const tracked &a, const tracked &b) { return compared(a, b), a.key == b.key; }

private:
  static void compared(const tracked &a, const tracked &b) {
    a.check();
    b.check();
    ++comparisons;
    may_fail(comparisons_to_fail);
  }
  const tracked *self_;
};
long tracked::live, tracked::comparisons;
long tracked::copies_to_fail, tracked::comparisons_to_fail;

#endif

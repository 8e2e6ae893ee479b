// What two C++ files know of each other's types: one of them little of some.
#ifndef SHARED_H
#define SHARED_H

#include <typeinfo>

struct opaque;        // defined in second.cpp only
struct opaque_other;  // defined nowhere

opaque *make_opaque();
opaque_other *make_opaque_other();
const std::type_info &second_type_of_opaque();  // of opaque **
const std::type_info &second_type_of_member();  // of int opaque::*

template <class T> struct pair_of {
  T a, b;
};

struct keyed {
  int key;
  virtual ~keyed() {}
};
struct keyed_leaf : keyed {};

enum colour { red, green };

// A local class of an inline function is one class for the whole program: thrown in one file, caught in another, by a
// second call of the same function. Returns 5000 when it was caught, -1 when the exception handled is another.
inline int local_of_inline(bool throws) {
  struct local_error {
    int n;
  };
  if (throws) {
    local_error e = {5000};
    throw e;
  }
  try {
    throw;
  } catch (local_error &e) {
    return e.n;
  } catch (...) {
    return -1;
  }
}
inline void throw_local_of_inline(bool really) { local_of_inline(really); }
inline int catch_local_of_inline() { return local_of_inline(false); }

void second_throws(int what);
int second_catches(void (*thrower)(int), int what);

#endif

/* What three units throw at each other: two files of C++, of which one knows of some classes no more than the name, and
 * one of generated C, which describes the classes. A catcher writes what it saw into the trace. */
#ifndef SHARED_H
#define SHARED_H

#ifdef __cplusplus
extern "C" {
#endif
typedef void (*thrower)(int what);
void say(const char *format, ...);
void c_throws(int what);
void c_catches(thrower throws, int what);
void c_catches_pointers(thrower throws, int what);
int c_casts(void);
void c_failing_cast(int what);
void c_with_cpp_array(thrower element_constructor, int fail_at);
void c_specified_nothing(thrower throws, int what);
const char *cpp_what(const void *exception);

typedef struct first {
  int one;
} first;
typedef struct second {
  int two;
} second;
typedef struct shared {
  int tag;
} shared;
#ifdef __cplusplus
}
#include <typeinfo>

struct joined : first, second {
  int three;
};
struct opaque;        // defined in second.cpp only
struct opaque_other;  // defined nowhere
template <class T> struct pair_of {
  T a, b;
};
struct keyed {
  int key;
  virtual ~keyed() {}
};
struct keyed_leaf : keyed {};
enum colour { red, green };

// One class for the whole program, also as a local one of an inline function.
inline void local_of_inline(bool throws) {
  struct local_error {
    int n;
  };
  const local_error made = {5000};
  if (throws) throw made;
  try {
    throw;
  } catch (local_error &e) {
    say("local%d", e.n);
  } catch (...) {
    say("any");
  }
}

opaque *make_opaque();
const std::type_info &second_type_of_opaque();  // of opaque **
const std::type_info &second_type_of_member();  // of int opaque::*
void second_throws(int what);
void second_catches(thrower throws, int what);
#endif
#endif

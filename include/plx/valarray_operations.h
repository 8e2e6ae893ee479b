// What a valarray does to its elements, one class per operation: run gives a result, change alters an element in place.
#ifndef PLX_VALARRAY_OPERATIONS_H
#define PLX_VALARRAY_OPERATIONS_H

#include <cmath>

#include <plx/config.h>

namespace __zor {

struct assign_operation {
  template <class T> static void change(T &a, const T &b) { a = b; }
};

// Two of them have a form for one value too.
struct plus_operation {
  template <class T> static T run(const T &a) { return +a; }
  template <class T> static T run(const T &a, const T &b) { return static_cast<T>(a + b); }
  template <class T> static void change(T &a, const T &b) { a += b; }
};
struct minus_operation {
  template <class T> static T run(const T &a) { return -a; }
  template <class T> static T run(const T &a, const T &b) { return static_cast<T>(a - b); }
  template <class T> static void change(T &a, const T &b) { a -= b; }
};
struct complement_operation {
  template <class T> static T run(const T &a) { return ~a; }
};
struct not_operation {
  template <class T> static bool run(const T &a) { return !a; }
};

#define PLX_VALARRAY_OPERATION(name, symbol)                                                        \
  struct name##_operation {                                                                         \
    template <class T> static T run(const T &a, const T &b) { return static_cast<T>(a symbol b); }  \
    template <class T> static void change(T &a, const T &b) { a symbol##= b; }                     \
  };
#define PLX_VALARRAY_COMPARISON(name, symbol)                                        \
  struct name##_operation {                                                          \
    template <class T> static bool run(const T &a, const T &b) { return a symbol b; } \
  };
#define PLX_VALARRAY_UNARY_FUNCTION(name)                     \
  struct name##_function {                                    \
    template <class T> static T run(const T &a) {             \
      using std::name;                                        \
      return name(a);                                         \
    }                                                         \
  };
#define PLX_VALARRAY_BINARY_FUNCTION(name)                        \
  struct name##_function {                                        \
    template <class T> static T run(const T &a, const T &b) {     \
      using std::name;                                            \
      return name(a, b);                                          \
    }                                                             \
  };

PLX_VALARRAY_OPERATION(multiply, *)
PLX_VALARRAY_OPERATION(divide, /)
PLX_VALARRAY_OPERATION(remainder, %)
PLX_VALARRAY_OPERATION(xor, ^)
PLX_VALARRAY_OPERATION(and, &)
PLX_VALARRAY_OPERATION(or, |)
PLX_VALARRAY_OPERATION(left, <<)
PLX_VALARRAY_OPERATION(right, >>)

PLX_VALARRAY_COMPARISON(equal, ==)
PLX_VALARRAY_COMPARISON(unequal, !=)
PLX_VALARRAY_COMPARISON(less, <)
PLX_VALARRAY_COMPARISON(greater, >)
PLX_VALARRAY_COMPARISON(less_equal, <=)
PLX_VALARRAY_COMPARISON(greater_equal, >=)
PLX_VALARRAY_COMPARISON(both, &&)
PLX_VALARRAY_COMPARISON(either, ||)

PLX_VALARRAY_UNARY_FUNCTION(abs)
PLX_VALARRAY_UNARY_FUNCTION(acos)
PLX_VALARRAY_UNARY_FUNCTION(asin)
PLX_VALARRAY_UNARY_FUNCTION(atan)
PLX_VALARRAY_UNARY_FUNCTION(cos)
PLX_VALARRAY_UNARY_FUNCTION(cosh)
PLX_VALARRAY_UNARY_FUNCTION(exp)
PLX_VALARRAY_UNARY_FUNCTION(log)
PLX_VALARRAY_UNARY_FUNCTION(log10)
PLX_VALARRAY_UNARY_FUNCTION(sin)
PLX_VALARRAY_UNARY_FUNCTION(sinh)
PLX_VALARRAY_UNARY_FUNCTION(sqrt)
PLX_VALARRAY_UNARY_FUNCTION(tan)
PLX_VALARRAY_UNARY_FUNCTION(tanh)
PLX_VALARRAY_BINARY_FUNCTION(atan2)
PLX_VALARRAY_BINARY_FUNCTION(pow)

#undef PLX_VALARRAY_OPERATION
#undef PLX_VALARRAY_COMPARISON
#undef PLX_VALARRAY_UNARY_FUNCTION
#undef PLX_VALARRAY_BINARY_FUNCTION

}  // namespace __zor

#endif

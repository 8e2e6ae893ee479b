// What a valarray does to its elements, one class per operation: run gives a result, change alters an element in place.
#ifndef PLX_VALARRAY_OPERATIONS_H
#define PLX_VALARRAY_OPERATIONS_H

#include <cmath>

#include <plx/base/config.h>

namespace __zor {

struct _assign_operation {
  template <class _T> static void _change(_T &_a, const _T &_b) { _a = _b; }
};

// Two of them have a form for one value too.
struct _plus_operation {
  template <class _T> static _T _run(const _T &_a) { return +_a; }
  template <class _T> static _T _run(const _T &_a, const _T &_b) { return static_cast<_T>(_a + _b); }
  template <class _T> static void _change(_T &_a, const _T &_b) { _a += _b; }
};
struct _minus_operation {
  template <class _T> static _T _run(const _T &_a) { return -_a; }
  template <class _T> static _T _run(const _T &_a, const _T &_b) { return static_cast<_T>(_a - _b); }
  template <class _T> static void _change(_T &_a, const _T &_b) { _a -= _b; }
};
struct _complement_operation {
  template <class _T> static _T _run(const _T &_a) { return ~_a; }
};
struct _not_operation {
  template <class _T> static bool _run(const _T &_a) { return !_a; }
};

#define PLX_VALARRAY_OPERATION(name, symbol)                                                                 \
  struct _##name##_operation {                                                                               \
    template <class _T> static _T _run(const _T &_a, const _T &_b) { return static_cast<_T>(_a symbol _b); } \
    template <class _T> static void _change(_T &_a, const _T &_b) { _a symbol## = _b; }                      \
  };
#define PLX_VALARRAY_COMPARISON(name, symbol)                                                 \
  struct _##name##_operation {                                                                \
    template <class _T> static bool _run(const _T &_a, const _T &_b) { return _a symbol _b; } \
  };
#define PLX_VALARRAY_UNARY_FUNCTION(name)              \
  struct _##name##_function {                          \
    template <class _T> static _T _run(const _T &_a) { \
      using std::name;                                 \
      return name(_a);                                 \
    }                                                  \
  };
#define PLX_VALARRAY_BINARY_FUNCTION(name)                           \
  struct _##name##_function {                                        \
    template <class _T> static _T _run(const _T &_a, const _T &_b) { \
      using std::name;                                               \
      return name(_a, _b);                                           \
    }                                                                \
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

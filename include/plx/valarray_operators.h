// The binary operators and the functions of valarrays (1998, 26.3.3), each for two arrays and for an array and a value.
//
// A value's type is not deduced, so that it may be anything that converts: v * 2 for an array of doubles.
#ifndef PLX_VALARRAY_OPERATORS_H
#define PLX_VALARRAY_OPERATORS_H

#include <plx/valarray.h>

namespace __zor {

template <class R, class Operation, class T>
inline std::valarray<R> valarray_combine(const std::valarray<T> &a, const std::valarray<T> &b) {
  const given_elements<T> left(valarray_access::data(a)), right(valarray_access::data(b));
  return valarray_access::make<R>(a.size(),
                                  binary_elements<R, Operation, given_elements<T>, given_elements<T> >(left, right));
}
template <class R, class Operation, class T>
inline std::valarray<R> valarray_combine_with_value(const std::valarray<T> &a, const T &b) {
  const given_elements<T> left(valarray_access::data(a));
  const equal_elements<T> right(b);
  return valarray_access::make<R>(a.size(),
                                  binary_elements<R, Operation, given_elements<T>, equal_elements<T> >(left, right));
}
template <class R, class Operation, class T>
inline std::valarray<R> valarray_combine_value_with(const T &a, const std::valarray<T> &b) {
  const equal_elements<T> left(a);
  const given_elements<T> right(valarray_access::data(b));
  return valarray_access::make<R>(b.size(),
                                  binary_elements<R, Operation, equal_elements<T>, given_elements<T> >(left, right));
}

template <class Operation, class T> inline std::valarray<T> valarray_map(const std::valarray<T> &a) {
  const given_elements<T> of(valarray_access::data(a));
  return valarray_access::make<T>(a.size(), unary_elements<T, Operation, given_elements<T> >(of));
}

}  // namespace __zor

namespace std {

// One name in its three forms.
#define PLX_VALARRAY_BINARY(name, R, operation)                                                    \
  template <class T> inline valarray<R> name(const valarray<T> &a, const valarray<T> &b) {         \
    return __zor::valarray_combine<R, __zor::operation>(a, b);                                              \
  }                                                                                                \
  template <class T>                                                                               \
  inline valarray<R> name(const valarray<T> &a, const typename valarray<T>::value_type &b) {       \
    return __zor::valarray_combine_with_value<R, __zor::operation>(a, b);                                   \
  }                                                                                                \
  template <class T>                                                                               \
  inline valarray<R> name(const typename valarray<T>::value_type &a, const valarray<T> &b) {       \
    return __zor::valarray_combine_value_with<R, __zor::operation>(a, b);                                   \
  }
PLX_VALARRAY_BINARY(operator*, T, multiply_operation)
PLX_VALARRAY_BINARY(operator/, T, divide_operation)
PLX_VALARRAY_BINARY(operator%, T, remainder_operation)
PLX_VALARRAY_BINARY(operator+, T, plus_operation)
PLX_VALARRAY_BINARY(operator-, T, minus_operation)
PLX_VALARRAY_BINARY(operator^, T, xor_operation)
PLX_VALARRAY_BINARY(operator&, T, and_operation)
PLX_VALARRAY_BINARY(operator|, T, or_operation)
PLX_VALARRAY_BINARY(operator<<, T, left_operation)
PLX_VALARRAY_BINARY(operator>>, T, right_operation)
PLX_VALARRAY_BINARY(operator&&, bool, both_operation)
PLX_VALARRAY_BINARY(operator||, bool, either_operation)
PLX_VALARRAY_BINARY(operator==, bool, equal_operation)
PLX_VALARRAY_BINARY(operator!=, bool, unequal_operation)
PLX_VALARRAY_BINARY(operator<, bool, less_operation)
PLX_VALARRAY_BINARY(operator>, bool, greater_operation)
PLX_VALARRAY_BINARY(operator<=, bool, less_equal_operation)
PLX_VALARRAY_BINARY(operator>=, bool, greater_equal_operation)
PLX_VALARRAY_BINARY(atan2, T, atan2_function)
PLX_VALARRAY_BINARY(pow, T, pow_function)
#undef PLX_VALARRAY_BINARY

#define PLX_VALARRAY_UNARY(name) \
  template <class T> inline valarray<T> name(const valarray<T> &a) { return __zor::valarray_map<__zor::name##_function>(a); }
PLX_VALARRAY_UNARY(abs)
PLX_VALARRAY_UNARY(acos)
PLX_VALARRAY_UNARY(asin)
PLX_VALARRAY_UNARY(atan)
PLX_VALARRAY_UNARY(cos)
PLX_VALARRAY_UNARY(cosh)
PLX_VALARRAY_UNARY(exp)
PLX_VALARRAY_UNARY(log)
PLX_VALARRAY_UNARY(log10)
PLX_VALARRAY_UNARY(sin)
PLX_VALARRAY_UNARY(sinh)
PLX_VALARRAY_UNARY(sqrt)
PLX_VALARRAY_UNARY(tan)
PLX_VALARRAY_UNARY(tanh)
#undef PLX_VALARRAY_UNARY

}  // namespace std

#endif

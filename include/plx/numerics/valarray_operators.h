// The binary operators and the functions of valarrays (1998, 26.3.3): for two operands, and for an operand and a value.
//
// Two operands of one type have forms of their own: those are the more special ones where a program has templates for
// all types, as those of rel_ops are. A value's type is not deduced, so that it may be anything that converts: v * 2 for an array of doubles.
#ifndef PLX_VALARRAY_OPERATORS_H
#define PLX_VALARRAY_OPERATORS_H

#include <plx/numerics/valarray.h>

namespace __zor {
namespace valarrays {

// One name in its forms.
#define PLX_VALARRAY_BINARY(name, R, operation)                                                                        \
  template <class _T> inline typename of_two<R, operation, std::valarray<_T>, std::valarray<_T> >::_type name(         \
      const std::valarray<_T> &_a, const std::valarray<_T> &_b) {                                                      \
    return of_two<R, operation, std::valarray<_T>, std::valarray<_T> >::_make(_a, _b);                                 \
  }                                                                                                                    \
  template <class _T, class _S>                                                                                        \
  inline typename of_two<R, operation, _expression<_T, _S>, _expression<_T, _S> >::_type name(                         \
      const _expression<_T, _S> &_a, const _expression<_T, _S> &_b) {                                                  \
    return of_two<R, operation, _expression<_T, _S>, _expression<_T, _S> >::_make(_a, _b);                             \
  }                                                                                                                    \
  template <class _T, class _A, class _Bt>                                                                             \
  inline typename of_two<R, operation, _A, _Bt>::_type name(const _operand<_T, _A> &_a, const _operand<_T, _Bt> &_b) { \
    return of_two<R, operation, _A, _Bt>::_make(_a._self(), _b._self());                                               \
  }                                                                                                                    \
  template <class _T, class _A> inline typename with_value<R, operation, _T, _A>::_type name(                          \
      const _operand<_T, _A> &_a, const typename _operand<_T, _A>::value_type &_b) {                                   \
    return with_value<R, operation, _T, _A>::_make(_a._self(), _b);                                                    \
  }                                                                                                                    \
  template <class _T, class _A> inline typename of_value<R, operation, _T, _A>::_type name(                            \
      const typename _operand<_T, _A>::value_type &_a, const _operand<_T, _A> &_b) {                                   \
    return of_value<R, operation, _T, _A>::_make(_a, _b._self());                                                      \
  }
PLX_VALARRAY_BINARY(operator*, _T, multiply_operation)
PLX_VALARRAY_BINARY(operator/, _T, divide_operation)
PLX_VALARRAY_BINARY(operator%, _T, remainder_operation)
PLX_VALARRAY_BINARY(operator+, _T, plus_operation)
PLX_VALARRAY_BINARY(operator-, _T, minus_operation)
PLX_VALARRAY_BINARY(operator^, _T, xor_operation)
PLX_VALARRAY_BINARY(operator&, _T, and_operation)
PLX_VALARRAY_BINARY(operator|, _T, or_operation)
PLX_VALARRAY_BINARY(operator<<, _T, left_operation)
PLX_VALARRAY_BINARY(operator>>, _T, right_operation)
PLX_VALARRAY_BINARY(operator&&, bool, both_operation)
PLX_VALARRAY_BINARY(operator||, bool, either_operation)
PLX_VALARRAY_BINARY(operator==, bool, equal_operation)
PLX_VALARRAY_BINARY(operator!=, bool, unequal_operation)
PLX_VALARRAY_BINARY(operator<, bool, less_operation)
PLX_VALARRAY_BINARY(operator>, bool, greater_operation)
PLX_VALARRAY_BINARY(operator<=, bool, less_equal_operation)
PLX_VALARRAY_BINARY(operator>=, bool, greater_equal_operation)
PLX_VALARRAY_BINARY(atan2, _T, atan2_function)
PLX_VALARRAY_BINARY(pow, _T, pow_function)
#undef PLX_VALARRAY_BINARY

#define PLX_VALARRAY_UNARY(name)                                                            \
  template <class _T, class _A>                                                             \
  inline typename of_one<_T, name##_function, _A>::_type name(const _operand<_T, _A> &_a) { \
    return of_one<_T, name##_function, _A>::_make(_a._self());                              \
  }
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

}  // namespace valarrays
}  // namespace __zor

namespace std {

using __zor::valarrays::operator*;
using __zor::valarrays::operator/;
using __zor::valarrays::operator%;
using __zor::valarrays::operator+;
using __zor::valarrays::operator-;
using __zor::valarrays::operator^;
using __zor::valarrays::operator&;
using __zor::valarrays::operator|;
using __zor::valarrays::operator<<;
using __zor::valarrays::operator>>;
using __zor::valarrays::operator&&;
using __zor::valarrays::operator||;
using __zor::valarrays::operator==;
using __zor::valarrays::operator!=;
using __zor::valarrays::operator<;
using __zor::valarrays::operator>;
using __zor::valarrays::operator<=;
using __zor::valarrays::operator>=;
using __zor::valarrays::abs;
using __zor::valarrays::acos;
using __zor::valarrays::asin;
using __zor::valarrays::atan;
using __zor::valarrays::atan2;
using __zor::valarrays::cos;
using __zor::valarrays::cosh;
using __zor::valarrays::exp;
using __zor::valarrays::log;
using __zor::valarrays::log10;
using __zor::valarrays::pow;
using __zor::valarrays::sin;
using __zor::valarrays::sinh;
using __zor::valarrays::sqrt;
using __zor::valarrays::tan;
using __zor::valarrays::tanh;

}  // namespace std

#endif

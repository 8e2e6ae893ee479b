// The binary operators and the functions of valarrays (1998, 26.3.3): for two operands, and for an operand and a value.
//
// Two operands of one type have forms of their own: those are the more special ones where a program has templates for
// all types, as those of rel_ops are. A value's type is not deduced, so that it may be anything that converts: v * 2
// for an array of doubles.
#ifndef PLX_VALARRAY_OPERATORS_H
#define PLX_VALARRAY_OPERATORS_H

#include <plx/numerics/valarray.h>

namespace __zor {
namespace _valarrays {

// One name in its forms.
#define PLX_VALARRAY_BINARY(name, R, operation)                                                                 \
  template <class _T> inline typename _of_two<R, operation, std::valarray<_T>, std::valarray<_T> >::_type name( \
      const std::valarray<_T> &_a, const std::valarray<_T> &_b) {                                               \
    return _of_two<R, operation, std::valarray<_T>, std::valarray<_T> >::_make(_a, _b);                         \
  }                                                                                                             \
  template <class _T, class _S>                                                                                 \
  inline typename _of_two<R, operation, _expression<_T, _S>, _expression<_T, _S> >::_type name(                 \
      const _expression<_T, _S> &_a, const _expression<_T, _S> &_b) {                                           \
    return _of_two<R, operation, _expression<_T, _S>, _expression<_T, _S> >::_make(_a, _b);                     \
  }                                                                                                             \
  template <class _T, class _A, class _Bt> inline typename _of_two<R, operation, _A, _Bt>::_type name(          \
      const _operand<_T, _A> &_a, const _operand<_T, _Bt> &_b) {                                                \
    return _of_two<R, operation, _A, _Bt>::_make(_a._self(), _b._self());                                       \
  }                                                                                                             \
  template <class _T, class _A> inline typename _with_value<R, operation, _T, _A>::_type name(                  \
      const _operand<_T, _A> &_a, const typename _operand<_T, _A>::value_type &_b) {                            \
    return _with_value<R, operation, _T, _A>::_make(_a._self(), _b);                                            \
  }                                                                                                             \
  template <class _T, class _A> inline typename _of_value<R, operation, _T, _A>::_type name(                    \
      const typename _operand<_T, _A>::value_type &_a, const _operand<_T, _A> &_b) {                            \
    return _of_value<R, operation, _T, _A>::_make(_a, _b._self());                                              \
  }
PLX_VALARRAY_BINARY(operator*, _T, _multiply_operation)
PLX_VALARRAY_BINARY(operator/, _T, _divide_operation)
PLX_VALARRAY_BINARY(operator%, _T, _remainder_operation)
PLX_VALARRAY_BINARY(operator+, _T, _plus_operation)
PLX_VALARRAY_BINARY(operator-, _T, _minus_operation)
PLX_VALARRAY_BINARY(operator^, _T, _xor_operation)
PLX_VALARRAY_BINARY(operator&, _T, _and_operation)
PLX_VALARRAY_BINARY(operator|, _T, _or_operation)
PLX_VALARRAY_BINARY(operator<<, _T, _left_operation)
PLX_VALARRAY_BINARY(operator>>, _T, _right_operation)
PLX_VALARRAY_BINARY(operator&&, bool, _both_operation)
PLX_VALARRAY_BINARY(operator||, bool, _either_operation)
PLX_VALARRAY_BINARY(operator==, bool, _equal_operation)
PLX_VALARRAY_BINARY(operator!=, bool, _unequal_operation)
PLX_VALARRAY_BINARY(operator<, bool, _less_operation)
PLX_VALARRAY_BINARY(operator>, bool, _greater_operation)
PLX_VALARRAY_BINARY(operator<=, bool, _less_equal_operation)
PLX_VALARRAY_BINARY(operator>=, bool, _greater_equal_operation)
PLX_VALARRAY_BINARY(atan2, _T, _atan2_function)
PLX_VALARRAY_BINARY(pow, _T, _pow_function)
#undef PLX_VALARRAY_BINARY

#define PLX_VALARRAY_UNARY(name)                                                                \
  template <class _T, class _A>                                                                 \
  inline typename _of_one<_T, _##name##_function, _A>::_type name(const _operand<_T, _A> &_a) { \
    return _of_one<_T, _##name##_function, _A>::_make(_a._self());                              \
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

}  // namespace _valarrays
}  // namespace __zor

namespace std {

using __zor::_valarrays::operator*;
using __zor::_valarrays::operator/;
using __zor::_valarrays::operator%;
using __zor::_valarrays::operator+;
using __zor::_valarrays::operator-;
using __zor::_valarrays::operator^;
using __zor::_valarrays::operator&;
using __zor::_valarrays::operator|;
using __zor::_valarrays::operator<<;
using __zor::_valarrays::operator>>;
using __zor::_valarrays::operator&&;
using __zor::_valarrays::operator||;
using __zor::_valarrays::operator==;
using __zor::_valarrays::operator!=;
using __zor::_valarrays::operator<;
using __zor::_valarrays::operator>;
using __zor::_valarrays::operator<=;
using __zor::_valarrays::operator>=;
using __zor::_valarrays::abs;
using __zor::_valarrays::acos;
using __zor::_valarrays::asin;
using __zor::_valarrays::atan;
using __zor::_valarrays::atan2;
using __zor::_valarrays::cos;
using __zor::_valarrays::cosh;
using __zor::_valarrays::exp;
using __zor::_valarrays::log;
using __zor::_valarrays::log10;
using __zor::_valarrays::pow;
using __zor::_valarrays::sin;
using __zor::_valarrays::sinh;
using __zor::_valarrays::sqrt;
using __zor::_valarrays::tan;
using __zor::_valarrays::tanh;

}  // namespace std

#endif

// The function objects that containers and algorithms take by default, and the rest of their kind (1998, 20.3.1 to
// 20.3.4): arithmetic, comparisons, logical operations. Adaptors stand in <functional>.
#ifndef PLX_FUNCTION_OBJECTS_H
#define PLX_FUNCTION_OBJECTS_H

#include <plx/config.h>

namespace std {

template <class Argument, class Result> struct unary_function {
  typedef Argument argument_type;
  typedef Result result_type;
};

template <class First, class Second, class Result> struct binary_function {
  typedef First first_argument_type;
  typedef Second second_argument_type;
  typedef Result result_type;
};

template <class T> struct plus : public binary_function<T, T, T> {
  T operator()(const T &a, const T &b) const { return a + b; }
};
template <class T> struct minus : public binary_function<T, T, T> {
  T operator()(const T &a, const T &b) const { return a - b; }
};
template <class T> struct multiplies : public binary_function<T, T, T> {
  T operator()(const T &a, const T &b) const { return a * b; }
};
template <class T> struct divides : public binary_function<T, T, T> {
  T operator()(const T &a, const T &b) const { return a / b; }
};
template <class T> struct modulus : public binary_function<T, T, T> {
  T operator()(const T &a, const T &b) const { return a % b; }
};
template <class T> struct negate : public unary_function<T, T> {
  T operator()(const T &a) const { return -a; }
};

template <class T> struct equal_to : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a == b; }
};
template <class T> struct not_equal_to : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a != b; }
};
template <class T> struct greater : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a > b; }
};
template <class T> struct less : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a < b; }
};
template <class T> struct greater_equal : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a >= b; }
};
template <class T> struct less_equal : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a <= b; }
};

// Pointers have a total order here, which the operators promise only within one array: an address is a number.
template <class T> struct greater<T *> : public binary_function<T *, T *, bool> {
  bool operator()(T *const &a, T *const &b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(a) > reinterpret_cast<__UINTPTR_TYPE__>(b);
  }
};
template <class T> struct less<T *> : public binary_function<T *, T *, bool> {
  bool operator()(T *const &a, T *const &b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(a) < reinterpret_cast<__UINTPTR_TYPE__>(b);
  }
};
template <class T> struct greater_equal<T *> : public binary_function<T *, T *, bool> {
  bool operator()(T *const &a, T *const &b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(a) >= reinterpret_cast<__UINTPTR_TYPE__>(b);
  }
};
template <class T> struct less_equal<T *> : public binary_function<T *, T *, bool> {
  bool operator()(T *const &a, T *const &b) const {
    return reinterpret_cast<__UINTPTR_TYPE__>(a) <= reinterpret_cast<__UINTPTR_TYPE__>(b);
  }
};

template <class T> struct logical_and : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a && b; }
};
template <class T> struct logical_or : public binary_function<T, T, bool> {
  bool operator()(const T &a, const T &b) const { return a || b; }
};
template <class T> struct logical_not : public unary_function<T, bool> {
  bool operator()(const T &a) const { return !a; }
};

}  // namespace std

#endif

// Adaptors of function objects (1998, 20.3.5 to 20.3.8): negators, binders, pointers to functions and to members.
// Later dialects dropped most of them; here they stay in all. Argument types may be references, so that functions that
// take references can be bound and negated.
#ifndef PLX_FUNCTION_ADAPTORS_H
#define PLX_FUNCTION_ADAPTORS_H

#include <plx/function_objects.h>

namespace __zor {

// How an adaptor takes an argument of type T. An object is taken as const, and once more as it is, for functions that
// change it, unless that would be the same parameter again. A binder stores a copy of what it binds; only where the
// function changes its argument it stores the reference.
template <class T> struct argument {
  struct none;
  typedef T stored;
  typedef const T &constant;
  typedef T &changeable;
};
template <class T> struct argument<const T> {
  struct none;
  typedef T stored;
  typedef const T &constant;
  typedef none &changeable;
};
template <class T> struct argument<T &> {
  struct none;
  typedef T &stored;
  typedef T &constant;
  typedef none &changeable;
};
template <class T> struct argument<const T &> {
  struct none;
  typedef T stored;
  typedef const T &constant;
  typedef none &changeable;
};

}  // namespace __zor

namespace std {

template <class Predicate> class unary_negate : public unary_function<typename Predicate::argument_type, bool> {
public:
  explicit unary_negate(const Predicate &predicate) : predicate_(predicate) {}
  bool operator()(typename __zor::argument<typename Predicate::argument_type>::constant a) const {
    return !predicate_(a);
  }

private:
  Predicate predicate_;
};

template <class Predicate> inline unary_negate<Predicate> not1(const Predicate &predicate) {
  return unary_negate<Predicate>(predicate);
}

template <class Predicate>
class binary_negate : public binary_function<typename Predicate::first_argument_type,
                                             typename Predicate::second_argument_type, bool> {
public:
  explicit binary_negate(const Predicate &predicate) : predicate_(predicate) {}
  bool operator()(typename __zor::argument<typename Predicate::first_argument_type>::constant a,
                  typename __zor::argument<typename Predicate::second_argument_type>::constant b) const {
    return !predicate_(a, b);
  }

private:
  Predicate predicate_;
};

template <class Predicate> inline binary_negate<Predicate> not2(const Predicate &predicate) {
  return binary_negate<Predicate>(predicate);
}

template <class Operation> class binder1st
    : public unary_function<typename Operation::second_argument_type, typename Operation::result_type> {
public:
  binder1st(const Operation &operation, typename __zor::argument<typename Operation::first_argument_type>::constant a)
      : op(operation), value(a) {}
  typename Operation::result_type operator()(
      typename __zor::argument<typename Operation::second_argument_type>::constant b) const {
    return op(value, b);
  }
  typename Operation::result_type operator()(
      typename __zor::argument<typename Operation::second_argument_type>::changeable b) const {
    return op(value, b);
  }

protected:
  Operation op;
  typename __zor::argument<typename Operation::first_argument_type>::stored value;
};

template <class Operation, class T> inline binder1st<Operation> bind1st(const Operation &operation, const T &a) {
  return binder1st<Operation>(
      operation, typename __zor::argument<typename Operation::first_argument_type>::stored(a));
}

template <class Operation> class binder2nd
    : public unary_function<typename Operation::first_argument_type, typename Operation::result_type> {
public:
  binder2nd(const Operation &operation, typename __zor::argument<typename Operation::second_argument_type>::constant b)
      : op(operation), value(b) {}
  typename Operation::result_type operator()(
      typename __zor::argument<typename Operation::first_argument_type>::constant a) const {
    return op(a, value);
  }
  typename Operation::result_type operator()(
      typename __zor::argument<typename Operation::first_argument_type>::changeable a) const {
    return op(a, value);
  }

protected:
  Operation op;
  typename __zor::argument<typename Operation::second_argument_type>::stored value;
};

template <class Operation, class T> inline binder2nd<Operation> bind2nd(const Operation &operation, const T &b) {
  return binder2nd<Operation>(
      operation, typename __zor::argument<typename Operation::second_argument_type>::stored(b));
}

template <class A, class R> class pointer_to_unary_function : public unary_function<A, R> {
public:
  explicit pointer_to_unary_function(R (*function)(A)) : function_(function) {}
  R operator()(A a) const { return function_(a); }

private:
  R (*function_)(A);
};

template <class A, class R> inline pointer_to_unary_function<A, R> ptr_fun(R (*function)(A)) {
  return pointer_to_unary_function<A, R>(function);
}

template <class A, class B, class R> class pointer_to_binary_function : public binary_function<A, B, R> {
public:
  explicit pointer_to_binary_function(R (*function)(A, B)) : function_(function) {}
  R operator()(A a, B b) const { return function_(a, b); }

private:
  R (*function_)(A, B);
};

template <class A, class B, class R> inline pointer_to_binary_function<A, B, R> ptr_fun(R (*function)(A, B)) {
  return pointer_to_binary_function<A, B, R>(function);
}

// ---- Members: through a pointer (mem_fun) or a reference (mem_fun_ref), of none or one argument, const or not ------

template <class R, class T> class mem_fun_t : public unary_function<T *, R> {
public:
  explicit mem_fun_t(R (T::*member)()) : member_(member) {}
  R operator()(T *object) const { return (object->*member_)(); }

private:
  R (T::*member_)();
};

template <class R, class T> class const_mem_fun_t : public unary_function<const T *, R> {
public:
  explicit const_mem_fun_t(R (T::*member)() const) : member_(member) {}
  R operator()(const T *object) const { return (object->*member_)(); }

private:
  R (T::*member_)() const;
};

template <class R, class T> class mem_fun_ref_t : public unary_function<T, R> {
public:
  explicit mem_fun_ref_t(R (T::*member)()) : member_(member) {}
  R operator()(T &object) const { return (object.*member_)(); }

private:
  R (T::*member_)();
};

template <class R, class T> class const_mem_fun_ref_t : public unary_function<T, R> {
public:
  explicit const_mem_fun_ref_t(R (T::*member)() const) : member_(member) {}
  R operator()(const T &object) const { return (object.*member_)(); }

private:
  R (T::*member_)() const;
};

template <class R, class T, class A> class mem_fun1_t : public binary_function<T *, A, R> {
public:
  explicit mem_fun1_t(R (T::*member)(A)) : member_(member) {}
  R operator()(T *object, A a) const { return (object->*member_)(a); }

private:
  R (T::*member_)(A);
};

template <class R, class T, class A> class const_mem_fun1_t : public binary_function<const T *, A, R> {
public:
  explicit const_mem_fun1_t(R (T::*member)(A) const) : member_(member) {}
  R operator()(const T *object, A a) const { return (object->*member_)(a); }

private:
  R (T::*member_)(A) const;
};

template <class R, class T, class A> class mem_fun1_ref_t : public binary_function<T, A, R> {
public:
  explicit mem_fun1_ref_t(R (T::*member)(A)) : member_(member) {}
  R operator()(T &object, A a) const { return (object.*member_)(a); }

private:
  R (T::*member_)(A);
};

template <class R, class T, class A> class const_mem_fun1_ref_t : public binary_function<T, A, R> {
public:
  explicit const_mem_fun1_ref_t(R (T::*member)(A) const) : member_(member) {}
  R operator()(const T &object, A a) const { return (object.*member_)(a); }

private:
  R (T::*member_)(A) const;
};

template <class R, class T> inline mem_fun_t<R, T> mem_fun(R (T::*member)()) { return mem_fun_t<R, T>(member); }
template <class R, class T> inline const_mem_fun_t<R, T> mem_fun(R (T::*member)() const) {
  return const_mem_fun_t<R, T>(member);
}
template <class R, class T> inline mem_fun_ref_t<R, T> mem_fun_ref(R (T::*member)()) {
  return mem_fun_ref_t<R, T>(member);
}
template <class R, class T> inline const_mem_fun_ref_t<R, T> mem_fun_ref(R (T::*member)() const) {
  return const_mem_fun_ref_t<R, T>(member);
}
template <class R, class T, class A> inline mem_fun1_t<R, T, A> mem_fun(R (T::*member)(A)) {
  return mem_fun1_t<R, T, A>(member);
}
template <class R, class T, class A> inline const_mem_fun1_t<R, T, A> mem_fun(R (T::*member)(A) const) {
  return const_mem_fun1_t<R, T, A>(member);
}
template <class R, class T, class A> inline mem_fun1_ref_t<R, T, A> mem_fun_ref(R (T::*member)(A)) {
  return mem_fun1_ref_t<R, T, A>(member);
}
template <class R, class T, class A> inline const_mem_fun1_ref_t<R, T, A> mem_fun_ref(R (T::*member)(A) const) {
  return const_mem_fun1_ref_t<R, T, A>(member);
}

}  // namespace std

#endif

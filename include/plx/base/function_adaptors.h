// Adaptors of function objects (1998, 20.3.5 to 20.3.8): negators, binders, pointers to functions and to members.
// Later dialects dropped most of them; here they stay in all. Argument types may be references, so that functions that
// take references can be bound and negated.
#ifndef PLX_FUNCTION_ADAPTORS_H
#define PLX_FUNCTION_ADAPTORS_H

#include <plx/base/function_objects.h>

namespace __zor {

// How an adaptor takes an argument of type _T. An object is taken as const, and once more as it is, for functions that
// change it, unless that would be the same parameter again. A binder stores a copy of what it binds; only where the
// function changes its argument it stores the reference.
template <class _T> struct _argument {
  struct none;
  typedef _T _stored;
  typedef const _T &_constant;
  typedef _T &_changeable;
};
template <class _T> struct _argument<const _T> {
  struct none;
  typedef _T _stored;
  typedef const _T &_constant;
  typedef none &_changeable;
};
template <class _T> struct _argument<_T &> {
  struct none;
  typedef _T &_stored;
  typedef _T &_constant;
  typedef none &_changeable;
};
template <class _T> struct _argument<const _T &> {
  struct none;
  typedef _T _stored;
  typedef const _T &_constant;
  typedef none &_changeable;
};

}  // namespace __zor

namespace std {

template <class _Predicate> class unary_negate : public unary_function<typename _Predicate::argument_type, bool> {
public:
  explicit unary_negate(const _Predicate &_predicate) : _predicate_(_predicate) {}
  bool operator()(typename __zor::_argument<typename _Predicate::argument_type>::_constant _a) const {
    return !_predicate_(_a);
  }

private:
  _Predicate _predicate_;
};

template <class _Predicate> inline unary_negate<_Predicate> not1(const _Predicate &_predicate) {
  return unary_negate<_Predicate>(_predicate);
}

template <class _Predicate> class binary_negate
    : public binary_function<typename _Predicate::first_argument_type, typename _Predicate::second_argument_type,
                             bool> {
public:
  explicit binary_negate(const _Predicate &_predicate) : _predicate_(_predicate) {}
  bool operator()(typename __zor::_argument<typename _Predicate::first_argument_type>::_constant _a,
                  typename __zor::_argument<typename _Predicate::second_argument_type>::_constant _b) const {
    return !_predicate_(_a, _b);
  }

private:
  _Predicate _predicate_;
};

template <class _Predicate> inline binary_negate<_Predicate> not2(const _Predicate &_predicate) {
  return binary_negate<_Predicate>(_predicate);
}

template <class _Operation> class binder1st
    : public unary_function<typename _Operation::second_argument_type, typename _Operation::result_type> {
public:
  binder1st(const _Operation &_operation_,
            typename __zor::_argument<typename _Operation::first_argument_type>::_constant _a)
      : op(_operation_), value(_a) {}
  typename _Operation::result_type operator()(
      typename __zor::_argument<typename _Operation::second_argument_type>::_constant _b) const {
    return op(value, _b);
  }
  typename _Operation::result_type operator()(
      typename __zor::_argument<typename _Operation::second_argument_type>::_changeable _b) const {
    return op(value, _b);
  }

protected:
  _Operation op;
  typename __zor::_argument<typename _Operation::first_argument_type>::_stored value;
};

template <class _Operation, class _T>
inline binder1st<_Operation> bind1st(const _Operation &_operation_, const _T &_a) {
  return binder1st<_Operation>(_operation_,
                               typename __zor::_argument<typename _Operation::first_argument_type>::_stored(_a));
}

template <class _Operation> class binder2nd
    : public unary_function<typename _Operation::first_argument_type, typename _Operation::result_type> {
public:
  binder2nd(const _Operation &_operation_,
            typename __zor::_argument<typename _Operation::second_argument_type>::_constant _b)
      : op(_operation_), value(_b) {}
  typename _Operation::result_type operator()(
      typename __zor::_argument<typename _Operation::first_argument_type>::_constant _a) const {
    return op(_a, value);
  }
  typename _Operation::result_type operator()(
      typename __zor::_argument<typename _Operation::first_argument_type>::_changeable _a) const {
    return op(_a, value);
  }

protected:
  _Operation op;
  typename __zor::_argument<typename _Operation::second_argument_type>::_stored value;
};

template <class _Operation, class _T>
inline binder2nd<_Operation> bind2nd(const _Operation &_operation_, const _T &_b) {
  return binder2nd<_Operation>(_operation_,
                               typename __zor::_argument<typename _Operation::second_argument_type>::_stored(_b));
}

template <class _A, class _R> class pointer_to_unary_function : public unary_function<_A, _R> {
public:
  explicit pointer_to_unary_function(_R (*_function_)(_A)) : _function__(_function_) {}
  _R operator()(_A _a) const { return _function__(_a); }

private:
  _R (*_function__)(_A);
};

template <class _A, class _R> inline pointer_to_unary_function<_A, _R> ptr_fun(_R (*_function_)(_A)) {
  return pointer_to_unary_function<_A, _R>(_function_);
}

template <class _A, class _Bt, class _R> class pointer_to_binary_function : public binary_function<_A, _Bt, _R> {
public:
  explicit pointer_to_binary_function(_R (*_function_)(_A, _Bt)) : _function__(_function_) {}
  _R operator()(_A _a, _Bt _b) const { return _function__(_a, _b); }

private:
  _R (*_function__)(_A, _Bt);
};

template <class _A, class _Bt, class _R>
inline pointer_to_binary_function<_A, _Bt, _R> ptr_fun(_R (*_function_)(_A, _Bt)) {
  return pointer_to_binary_function<_A, _Bt, _R>(_function_);
}

// ---- Members: through a pointer (mem_fun) or a reference (mem_fun_ref), of none or one argument, const or not ------

template <class _R, class _T> class mem_fun_t : public unary_function<_T *, _R> {
public:
  explicit mem_fun_t(_R (_T::*_member)()) : _member_(_member) {}
  _R operator()(_T *_object) const { return (_object->*_member_)(); }

private:
  _R (_T::*_member_)();
};

template <class _R, class _T> class const_mem_fun_t : public unary_function<const _T *, _R> {
public:
  explicit const_mem_fun_t(_R (_T::*_member)() const) : _member_(_member) {}
  _R operator()(const _T *_object) const { return (_object->*_member_)(); }

private:
  _R (_T::*_member_)() const;
};

template <class _R, class _T> class mem_fun_ref_t : public unary_function<_T, _R> {
public:
  explicit mem_fun_ref_t(_R (_T::*_member)()) : _member_(_member) {}
  _R operator()(_T &_object) const { return (_object.*_member_)(); }

private:
  _R (_T::*_member_)();
};

template <class _R, class _T> class const_mem_fun_ref_t : public unary_function<_T, _R> {
public:
  explicit const_mem_fun_ref_t(_R (_T::*_member)() const) : _member_(_member) {}
  _R operator()(const _T &_object) const { return (_object.*_member_)(); }

private:
  _R (_T::*_member_)() const;
};

template <class _R, class _T, class _A> class mem_fun1_t : public binary_function<_T *, _A, _R> {
public:
  explicit mem_fun1_t(_R (_T::*_member)(_A)) : _member_(_member) {}
  _R operator()(_T *_object, _A _a) const { return (_object->*_member_)(_a); }

private:
  _R (_T::*_member_)(_A);
};

template <class _R, class _T, class _A> class const_mem_fun1_t : public binary_function<const _T *, _A, _R> {
public:
  explicit const_mem_fun1_t(_R (_T::*_member)(_A) const) : _member_(_member) {}
  _R operator()(const _T *_object, _A _a) const { return (_object->*_member_)(_a); }

private:
  _R (_T::*_member_)(_A) const;
};

template <class _R, class _T, class _A> class mem_fun1_ref_t : public binary_function<_T, _A, _R> {
public:
  explicit mem_fun1_ref_t(_R (_T::*_member)(_A)) : _member_(_member) {}
  _R operator()(_T &_object, _A _a) const { return (_object.*_member_)(_a); }

private:
  _R (_T::*_member_)(_A);
};

template <class _R, class _T, class _A> class const_mem_fun1_ref_t : public binary_function<_T, _A, _R> {
public:
  explicit const_mem_fun1_ref_t(_R (_T::*_member)(_A) const) : _member_(_member) {}
  _R operator()(const _T &_object, _A _a) const { return (_object.*_member_)(_a); }

private:
  _R (_T::*_member_)(_A) const;
};

template <class _R, class _T> inline mem_fun_t<_R, _T> mem_fun(_R (_T::*_member)()) {
  return mem_fun_t<_R, _T>(_member);
}
template <class _R, class _T> inline const_mem_fun_t<_R, _T> mem_fun(_R (_T::*_member)() const) {
  return const_mem_fun_t<_R, _T>(_member);
}
template <class _R, class _T> inline mem_fun_ref_t<_R, _T> mem_fun_ref(_R (_T::*_member)()) {
  return mem_fun_ref_t<_R, _T>(_member);
}
template <class _R, class _T> inline const_mem_fun_ref_t<_R, _T> mem_fun_ref(_R (_T::*_member)() const) {
  return const_mem_fun_ref_t<_R, _T>(_member);
}
template <class _R, class _T, class _A> inline mem_fun1_t<_R, _T, _A> mem_fun(_R (_T::*_member)(_A)) {
  return mem_fun1_t<_R, _T, _A>(_member);
}
template <class _R, class _T, class _A> inline const_mem_fun1_t<_R, _T, _A> mem_fun(_R (_T::*_member)(_A) const) {
  return const_mem_fun1_t<_R, _T, _A>(_member);
}
template <class _R, class _T, class _A> inline mem_fun1_ref_t<_R, _T, _A> mem_fun_ref(_R (_T::*_member)(_A)) {
  return mem_fun1_ref_t<_R, _T, _A>(_member);
}
template <class _R, class _T, class _A>
inline const_mem_fun1_ref_t<_R, _T, _A> mem_fun_ref(_R (_T::*_member)(_A) const) {
  return const_mem_fun1_ref_t<_R, _T, _A>(_member);
}

}  // namespace std

#endif

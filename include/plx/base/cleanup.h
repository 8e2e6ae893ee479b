// A guard: an object that undoes something in its destructor, also when an exception passes. cleanup<G> is a local G.
//
// Programs are compiled with exceptions, and unwinding runs destructors. The library is not: where it instantiates the
// containers for itself it defines PLX_CLEANUP_BY_HAND and a cleanup that registers with the runtime.
#ifndef PLX_CLEANUP_H
#define PLX_CLEANUP_H

#ifndef PLX_CLEANUP_BY_HAND

namespace __zor {

template <class _Guard> class _cleanup {
public:
  _cleanup() : _guard_() {}
  template <class _A> explicit _cleanup(_A &_a) : _guard_(_a) {}
  template <class _A, class _Bt> _cleanup(_A &_a, _Bt &_b) : _guard_(_a, _b) {}
  template <class _A, class _Bt, class _Ct> _cleanup(_A &_a, _Bt &_b, _Ct &_c) : _guard_(_a, _b, _c) {}

  _Guard &get() { return _guard_; }
  _Guard *operator->() { return &_guard_; }

private:
  _cleanup(const _cleanup &);
  _cleanup &operator=(const _cleanup &);

  _Guard _guard_;
};

}  // namespace __zor

#endif
#endif

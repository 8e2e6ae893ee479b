// A guard: an object that undoes something in its destructor, also when an exception passes. cleanup<G> is a local G.
//
// Programs are compiled with exceptions, and unwinding runs destructors. The library is not: where it instantiates the
// containers for itself it defines PLX_CLEANUP_BY_HAND and a cleanup that registers with the runtime.
#ifndef PLX_CLEANUP_H
#define PLX_CLEANUP_H

#ifndef PLX_CLEANUP_BY_HAND

namespace __zor {

template <class Guard> class cleanup {
public:
  cleanup() : guard_() {}
  template <class A> explicit cleanup(A &a) : guard_(a) {}
  template <class A, class B> cleanup(A &a, B &b) : guard_(a, b) {}
  template <class A, class B, class C> cleanup(A &a, B &b, C &c) : guard_(a, b, c) {}

  Guard &get() { return guard_; }
  Guard *operator->() { return &guard_; }

private:
  cleanup(const cleanup &);
  cleanup &operator=(const cleanup &);

  Guard guard_;
};

}  // namespace __zor

#endif
#endif

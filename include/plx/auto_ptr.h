// auto_ptr (1998, 20.4.5): the one owner of an object; copying hands the object over. auto_ptr_ref carries a temporary
// auto_ptr into a constructor or an assignment, since those take their source by reference to change it.
#ifndef PLX_AUTO_PTR_H
#define PLX_AUTO_PTR_H

#include <plx/config.h>

namespace std {

template <class T> struct auto_ptr_ref {
  explicit auto_ptr_ref(T *object) PLX_NOTHROW : object_(object) {}
  T *object_;
};

template <class T> class auto_ptr {
public:
  typedef T element_type;

  explicit auto_ptr(T *object = 0) PLX_NOTHROW : object_(object) {}
  auto_ptr(auto_ptr &other) PLX_NOTHROW : object_(other.release()) {}
  template <class U> auto_ptr(auto_ptr<U> &other) PLX_NOTHROW : object_(other.release()) {}
  auto_ptr(auto_ptr_ref<T> from) PLX_NOTHROW : object_(from.object_) {}

  // What a destructor throws is the program's matter, but the pointer is consistent by then.
  auto_ptr &operator=(auto_ptr &other) {
    reset(other.release());
    return *this;
  }
  template <class U> auto_ptr &operator=(auto_ptr<U> &other) {
    reset(other.release());
    return *this;
  }
  auto_ptr &operator=(auto_ptr_ref<T> from) {
    reset(from.object_);
    return *this;
  }
  ~auto_ptr() { delete object_; }

  T &operator*() const PLX_NOTHROW { return *object_; }
  T *operator->() const PLX_NOTHROW { return object_; }
  T *get() const PLX_NOTHROW { return object_; }
  T *release() PLX_NOTHROW {
    T *const object = object_;
    object_ = 0;
    return object;
  }
  void reset(T *object = 0) {
    if (object == object_) return;
    T *const old = object_;
    object_ = object;
    delete old;
  }

  template <class U> operator auto_ptr_ref<U>() PLX_NOTHROW { return auto_ptr_ref<U>(release()); }
  template <class U> operator auto_ptr<U>() PLX_NOTHROW { return auto_ptr<U>(release()); }

private:
  T *object_;
};

// void has no objects to own, but auto_ptr<void> may be named.
template <> class auto_ptr<void> {
public:
  typedef void element_type;
};

}  // namespace std

#endif

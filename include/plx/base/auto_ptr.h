// auto_ptr (1998, 20.4.5): the one owner of an object; copying hands the object over. auto_ptr_ref carries a temporary
// auto_ptr into a constructor or an assignment, since those take their source by reference to change it.
#ifndef PLX_AUTO_PTR_H
#define PLX_AUTO_PTR_H

#include <plx/base/config.h>

namespace std {

template <class _T> struct auto_ptr_ref {
  explicit auto_ptr_ref(_T *_object) PLX_NOTHROW : _object_(_object) {}
  _T *_object_;
};

template <class _T> class auto_ptr {
public:
  typedef _T element_type;

  explicit auto_ptr(_T *_object = 0) PLX_NOTHROW : _object_(_object) {}
  auto_ptr(auto_ptr &_other) PLX_NOTHROW : _object_(_other.release()) {}
  template <class _Ut> auto_ptr(auto_ptr<_Ut> &_other) PLX_NOTHROW : _object_(_other.release()) {}
  auto_ptr(auto_ptr_ref<_T> _from) PLX_NOTHROW : _object_(_from._object_) {}

  // What a destructor throws is the program's matter, but the pointer is consistent by then.
  auto_ptr &operator=(auto_ptr &_other) {
    reset(_other.release());
    return *this;
  }
  template <class _Ut> auto_ptr &operator=(auto_ptr<_Ut> &_other) {
    reset(_other.release());
    return *this;
  }
  auto_ptr &operator=(auto_ptr_ref<_T> _from) {
    reset(_from._object_);
    return *this;
  }
  ~auto_ptr() { delete _object_; }

  _T &operator*() const PLX_NOTHROW { return *_object_; }
  _T *operator->() const PLX_NOTHROW { return _object_; }
  _T *get() const PLX_NOTHROW { return _object_; }
  _T *release() PLX_NOTHROW {
    _T *const _object = _object_;
    _object_ = 0;
    return _object;
  }
  void reset(_T *_object = 0) {
    if (_object == _object_) return;
    _T *const _old = _object_;
    _object_ = _object;
    delete _old;
  }

  template <class _Ut> operator auto_ptr_ref<_Ut>() PLX_NOTHROW { return auto_ptr_ref<_Ut>(release()); }
  template <class _Ut> operator auto_ptr<_Ut>() PLX_NOTHROW { return auto_ptr<_Ut>(release()); }

private:
  _T *_object_;
};

// void has no objects to own, but auto_ptr<void> may be named.
template <> class auto_ptr<void> {
public:
  typedef void element_type;
};

}  // namespace std

#endif

// Objects in raw memory (1998, 20.4.4): making and destroying them one by one and in ranges, the guards that destroy
// what was made when a constructor throws, and the uninitialized_ family. Containers stand on this.
#ifndef PLX_UNINITIALIZED_H
#define PLX_UNINITIALIZED_H

#include <new>

#include <plx/base/algobase.h>
#include <plx/base/functions.h>

namespace __zor {
namespace _functions {

template <class _T> inline void construct(_T *_place) {
  ::new (const_cast<void *>(static_cast<const volatile void *>(_place))) _T();
}
template <class _T, class _V> inline void construct(_T *_place, const _V &_value) {
  ::new (const_cast<void *>(static_cast<const volatile void *>(_place))) _T(_value);
}

template <class _T> inline void destroy(_T *_object) { _object->~_T(); }

template <bool _trivial> struct _destroyer {
  template <class _Forward> static void _run(_Forward _first, _Forward _last) {
    for (; _first != _last; ++_first) __zor::destroy(__zor::_address_of(*_first));
  }
};
template <> struct _destroyer<true> {
  template <class _Forward> static void _run(const _Forward &, const _Forward &) PLX_NOTHROW {}
};

template <class _Forward> inline void destroy(_Forward _first, _Forward _last) {
  typedef typename std::iterator_traits<_Forward>::value_type _value_type;
  _destroyer<_is_trivially_destroyed<_value_type>::value>::_run(_first, _last);
}

// Destroys [first, current) unless released: `current` goes on with each object made.
template <class _Forward> class _construction_guard {
public:
  explicit _construction_guard(const _Forward &_first) : current(_first), _first_(_first), _released_(false) {}
  ~_construction_guard() {
    if (!_released_) __zor::destroy(_first_, current);
  }
  void release() PLX_NOTHROW { _released_ = true; }

  _Forward current;

private:
  _construction_guard(const _construction_guard &);
  _construction_guard &operator=(const _construction_guard &);

  _Forward _first_;
  bool _released_;
};

// Frees memory that an allocator gave, unless released.
template <class _Allocator> class _allocation_guard {
public:
  _allocation_guard(_Allocator &_allocator, typename _Allocator::pointer _block,
                    typename _Allocator::size_type _n) PLX_NOTHROW : _allocator_(_allocator),
                                                                     _block_(_block),
                                                                     _n_(_n) {}
  ~_allocation_guard() {
    if (_block_) _allocator_.deallocate(_block_, _n_);
  }
  typename _Allocator::pointer release() PLX_NOTHROW {
    typename _Allocator::pointer _block = _block_;
    _block_ = 0;
    return _block;
  }

private:
  _allocation_guard(const _allocation_guard &);
  _allocation_guard &operator=(const _allocation_guard &);

  _Allocator &_allocator_;
  typename _Allocator::pointer _block_;
  typename _Allocator::size_type _n_;
};

// ---- Copies --------------------------------------------------------------------------------------------------------

// Numbers are made by assigning to them, whatever the iterators are. Bytes are copied where both are pointers; whether
// such elements can be assigned is not asked.
enum _making_path { _make_each, _make_by_assignment, _make_by_bytes };

template <class _In, class _Out> struct _making_path_of {
  static const _making_path value = _is_arithmetic<typename std::iterator_traits<_Out>::value_type>::value &&
                                            _is_arithmetic<typename std::iterator_traits<_In>::value_type>::value
                                        ? _make_by_assignment
                                        : _make_each;
};
template <class _T> struct _making_path_of<_T *, _T *> {
  static const _making_path value = _is_made_as_bytes<_T, _T &>::value ? _make_by_bytes : _make_each;
};
template <class _T> struct _making_path_of<const _T *, _T *> {
  static const _making_path value = _is_made_as_bytes<_T, const _T &>::value ? _make_by_bytes : _make_each;
};

template <bool _moving, _making_path _path> struct _uninitialized_copier {
  template <class _In, class _Out> static _Out _run(_In _first, _In _last, _Out _out) {
    typedef typename std::iterator_traits<_Out>::value_type _value_type;
    _construction_guard<_Out> _guard(_out);
    for (; _first != _last; ++_first, (void)++_guard.current) {
      _value_type *const _place = __zor::_address_of(*_guard.current);
      _transfer_made(_place, _first, _moving_tag<_moving>());
    }
    _guard.release();
    return _guard.current;
  }

private:
  template <bool> struct _moving_tag {};
  template <class _T, class _In> static void _transfer_made(_T *_place, _In &_from, _moving_tag<false>) {
    ::new (static_cast<void *>(_place)) _T(*_from);
  }
  template <class _T, class _In> static void _transfer_made(_T *_place, _In &_from, _moving_tag<true>) {
    ::new (static_cast<void *>(_place)) _T(__zor::_move_from(_from));
  }
};
template <bool _moving> struct _uninitialized_copier<_moving, _make_by_assignment> {
  template <class _In, class _Out> static _Out _run(_In _first, _In _last, _Out _out) {
    return __zor::_copy_range<_moving>(_first, _last, _out);
  }
};
template <bool _moving> struct _uninitialized_copier<_moving, _make_by_bytes> {
  template <class _In, class _T> static _T *_run(_In _first, _In _last, _T *_out) {
    return _copier<_moving, _copy_bytes>::_forward(_first, _last, _out);
  }
};

template <bool _moving, class _In, class _Out> inline _Out _uninitialized_copy_range(_In _first, _In _last, _Out _out) {
  return _uninitialized_copier<_moving, _making_path_of<_In, _Out>::value>::_run(_first, _last, _out);
}

// As uninitialized_copy, but elements may be moved from where the dialect can: for buffers.
template <class _In, class _Out> inline _Out _uninitialized_move(_In _first, _In _last, _Out _out) {
  return __zor::_rewrap(_out, __zor::_uninitialized_copy_range<true>(__zor::_unwrap(_first), __zor::_unwrap(_last),
                                                                     __zor::_unwrap(_out)));
}

// ---- Fills ---------------------------------------------------------------------------------------------------------

// Scalars are made by assigning to them. What is made as bytes needs no guard, and its value may be copied first.
template <class _T, class _V> struct _filling_path_of {
  static const bool _scalars =
      (_is_arithmetic<_T>::value && _is_arithmetic<_V>::value) || (_same_type<_T, _V>::value && _is_scalar<_T>::value);
  static const _making_path value = _scalars ? _make_by_assignment
                                    : _same_type<_T, _V>::value && _is_made_as_bytes<_T, const _T &>::value
                                        ? _make_by_bytes
                                        : _make_each;
};

template <_making_path _path> struct _uninitialized_filler {
  template <class _Forward, class _V> static void _range(_Forward _first, _Forward _last, const _V &_value) {
    _construction_guard<_Forward> _guard(_first);
    for (; _guard.current != _last; ++_guard.current) __zor::construct(__zor::_address_of(*_guard.current), _value);
    _guard.release();
  }
  template <class _Forward, class _Size, class _V>
  static _Forward _counted(_Forward _first, _Size _n, const _V &_value) {
    _construction_guard<_Forward> _guard(_first);
    for (; _n > 0; --_n, (void)++_guard.current) __zor::construct(__zor::_address_of(*_guard.current), _value);
    _guard.release();
    return _guard.current;
  }
};
template <> struct _uninitialized_filler<_make_by_assignment> {
  template <class _Forward, class _V> static void _range(_Forward _first, _Forward _last, const _V &_value) {
    std::fill(_first, _last, _value);
  }
  template <class _Forward, class _Size, class _V>
  static _Forward _counted(_Forward _first, _Size _n, const _V &_value) {
    return std::fill_n(_first, _n, _value);
  }
};
template <> struct _uninitialized_filler<_make_by_bytes> {
  template <class _Forward, class _V> static void _range(_Forward _first, _Forward _last, const _V &_value) {
    for (const _V _held(_value); _first != _last; ++_first) __zor::construct(__zor::_address_of(*_first), _held);
  }
  template <class _Forward, class _Size, class _V>
  static _Forward _counted(_Forward _first, _Size _n, const _V &_value) {
    for (const _V _held(_value); _n > 0; --_n, (void)++_first) __zor::construct(__zor::_address_of(*_first), _held);
    return _first;
  }
};

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _In, class _Forward> inline _Forward uninitialized_copy(_In _first, _In _last, _Forward _out) {
  return __zor::_rewrap(_out, __zor::_uninitialized_copy_range<false>(__zor::_unwrap(_first), __zor::_unwrap(_last),
                                                                      __zor::_unwrap(_out)));
}

template <class _Forward, class _T> inline void uninitialized_fill(_Forward _first, _Forward _last, const _T &_value) {
  typedef typename iterator_traits<_Forward>::value_type _value_type;
  __zor::_uninitialized_filler<__zor::_filling_path_of<_value_type, _T>::value>::_range(__zor::_unwrap(_first),
                                                                                        __zor::_unwrap(_last), _value);
}

template <class _Forward, class _Size, class _T>
inline _Forward uninitialized_fill_n(_Forward _first, _Size _n, const _T &_value) {
  typedef typename iterator_traits<_Forward>::value_type _value_type;
  return __zor::_rewrap(_first, __zor::_uninitialized_filler<__zor::_filling_path_of<_value_type, _T>::value>::_counted(
                                    __zor::_unwrap(_first), __zor::_count_of(_n), _value));
}

}  // namespace std

#endif

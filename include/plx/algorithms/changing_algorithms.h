// Algorithms that change or copy each element on its own (1998, 25.2.3, 25.2.4, 25.2.6 to 25.2.8): transform, replace,
// generate, remove, unique.
#ifndef PLX_CHANGING_ALGORITHMS_H
#define PLX_CHANGING_ALGORITHMS_H

#include <plx/algorithms/search_algorithms.h>
#include <plx/base/algobase.h>
#include <plx/base/functions.h>
#include <plx/base/ordering.h>

namespace __zor {
namespace _functions {

// Arithmetic elements: each is stored, and what follows depends on the comparison only by a sum, not by a branch.
template <class _Iterator> struct _is_scalar_array { static const bool value = false; };
template <class _T> struct _is_scalar_array<_T *> { static const bool value = _is_arithmetic<_T>::value; };

template <bool _scalar> struct _uniquing {
  template <class _Forward, class _Equal> static _Forward _run(_Forward _first, _Forward _last, _Equal &_same) {
    _Forward _kept = _first;
    if (_first == _last) return _first;
    while (++_first != _last)
      if (_same(*_kept, *_first))
        break;
      else
        _kept = _first;
    if (_first == _last) return _last;
    while (++_first != _last) {
      if (_same(*_kept, *_first)) continue;
      ++_kept;
      *_kept = __zor::_move_from(_first);
    }
    return ++_kept;
  }
};
template <> struct _uniquing<true> {
  template <class _T> static _T *_run(_T *_first, _T *_last, _by_equal) {
    if (_first == _last) return _first;
    _T _kept = *_first;
    _T *_out = ++_first;
    for (; _first != _last; ++_first) {
      const _T _value = *_first;
      *_out = _value;
      _out += !(_kept == _value);
      _kept = _value;
    }
    return _out;
  }
};

template <bool _scalar> struct _removal {
  template <class _Forward, class _T> static _Forward _run(_Forward _first, _Forward _last, const _T &_value) {
    _Forward _out = _first;
    for (++_first; _first != _last; ++_first) {
      if (*_first == _value) continue;
      *_out = __zor::_move_from(_first);
      ++_out;
    }
    return _out;
  }
};
template <> struct _removal<true> {
  template <class _T, class _V> static _T *_run(_T *_first, _T *_last, const _V _value) {
    _T *_out = _first;
    for (++_first; _first != _last; ++_first) {
      const _T _element = *_first;
      *_out = _element;
      _out += !(_element == _value);
    }
    return _out;
  }
};

template <class _Predicate, class _In, class _Out>
_Out unique_copy(_In _first, _In _last, _Out _out, _Predicate &_same, std::input_iterator_tag) {
  // What an input iterator gave may not be looked at again, nor can what was written be read.
  typename std::iterator_traits<_In>::value_type _kept = *_first;
  *_out = _kept;
  ++_out;
  while (++_first != _last) {
    if (_same(_kept, *_first)) continue;
    _kept = *_first;
    *_out = _kept;
    ++_out;
  }
  return _out;
}
template <class _Predicate, class _In, class _Out>
_Out unique_copy(_In _first, _In _last, _Out _out, _Predicate &_same, std::forward_iterator_tag) {
  _In _kept = _first;
  *_out = *_kept;
  ++_out;
  while (++_first != _last) {
    if (_same(*_kept, *_first)) continue;
    _kept = _first;
    *_out = *_kept;
    ++_out;
  }
  return _out;
}

template <class _Out, class _Count, class _Generator>
inline _Out _generate_counted(_Out _first, _Count _n, _Generator &_next) {
  for (; _n > 0; --_n, (void)++_first) *_first = _next();
  return _first;
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _In, class _Out, class _Operation>
inline _Out transform(_In _first, _In _last, _Out _out, _Operation _operation_) {
  for (; _first != _last; ++_first, (void)++_out) *_out = _operation_(*_first);
  return _out;
}
template <class _A, class _Bt, class _Out, class _Operation>
inline _Out transform(_A _first, _A _last, _Bt _other, _Out _out, _Operation _operation_) {
  for (; _first != _last; ++_first, (void)++_other, (void)++_out) *_out = _operation_(*_first, *_other);
  return _out;
}

template <class _Forward, class _T>
inline void replace(_Forward _first, _Forward _last, const _T &_old_value, const _T &_new_value) {
  for (; _first != _last; ++_first)
    if (*_first == _old_value) *_first = _new_value;
}
template <class _Forward, class _Predicate, class _T>
inline void replace_if(_Forward _first, _Forward _last, _Predicate _predicate, const _T &_new_value) {
  for (; _first != _last; ++_first)
    if (_predicate(*_first)) *_first = _new_value;
}
template <class _In, class _Out, class _T>
inline _Out replace_copy(_In _first, _In _last, _Out _out, const _T &_old_value, const _T &_new_value) {
  for (; _first != _last; ++_first, (void)++_out) {
    if (*_first == _old_value)
      *_out = _new_value;
    else
      *_out = *_first;
  }
  return _out;
}
template <class _In, class _Out, class _Predicate, class _T>
inline _Out replace_copy_if(_In _first, _In _last, _Out _out, _Predicate _predicate, const _T &_new_value) {
  for (; _first != _last; ++_first, (void)++_out) {
    if (_predicate(*_first))
      *_out = _new_value;
    else
      *_out = *_first;
  }
  return _out;
}

template <class _Forward, class _Generator> inline void generate(_Forward _first, _Forward _last, _Generator _next) {
  for (; _first != _last; ++_first) *_first = _next();
}
// The place after the last element made is returned in every dialect, though only later ones ask for it.
template <class _Out, class _Size, class _Generator> inline _Out generate_n(_Out _first, _Size _n, _Generator _next) {
  return __zor::_generate_counted(_first, __zor::_count_of(_n), _next);
}

template <class _Forward, class _T> inline _Forward remove(_Forward _first, _Forward _last, const _T &_value) {
  typedef typename __zor::_unwrapped<_Forward>::_type _plain;
  _first = std::find(_first, _last, _value);
  if (_first == _last) return _first;
  return __zor::_rewrap(
      _first, __zor::_removal < __zor::_is_scalar_array<_plain>::value &&
                  __zor::_is_arithmetic<_T>::value > ::_run(__zor::_unwrap(_first), __zor::_unwrap(_last), _value));
}
template <class _Forward, class _Predicate>
inline _Forward remove_if(_Forward _first, _Forward _last, _Predicate _predicate) {
  while (bool(_first != _last) && !bool(_predicate(*_first))) ++_first;
  if (_first == _last) return _first;
  _Forward _out = _first;
  for (++_first; _first != _last; ++_first) {
    if (_predicate(*_first)) continue;
    *_out = __zor::_move_from(_first);
    ++_out;
  }
  return _out;
}
template <class _In, class _Out, class _T> inline _Out remove_copy(_In _first, _In _last, _Out _out, const _T &_value) {
  for (; _first != _last; ++_first) {
    if (*_first == _value) continue;
    *_out = *_first;
    ++_out;
  }
  return _out;
}
template <class _In, class _Out, class _Predicate>
inline _Out remove_copy_if(_In _first, _In _last, _Out _out, _Predicate _predicate) {
  for (; _first != _last; ++_first) {
    if (_predicate(*_first)) continue;
    *_out = *_first;
    ++_out;
  }
  return _out;
}

template <class _Forward> inline _Forward unique(_Forward _first, _Forward _last) {
  typedef typename __zor::_unwrapped<_Forward>::_type _plain;
  __zor::_by_equal _same;
  return __zor::_rewrap(_first, __zor::_uniquing<__zor::_is_scalar_array<_plain>::value>::_run(
                                    __zor::_unwrap(_first), __zor::_unwrap(_last), _same));
}
template <class _Forward, class _Equal> inline _Forward unique(_Forward _first, _Forward _last, _Equal _same) {
  return __zor::_uniquing<false>::_run(_first, _last, _same);
}

template <class _In, class _Out, class _Equal> inline _Out unique_copy(_In _first, _In _last, _Out _out, _Equal _same) {
  if (_first == _last) return _out;
  return __zor::unique_copy(_first, _last, _out, _same, typename iterator_traits<_In>::iterator_category());
}
template <class _In, class _Out> inline _Out unique_copy(_In _first, _In _last, _Out _out) {
  return std::unique_copy(_first, _last, _out, __zor::_by_equal());
}

}  // namespace std

#endif

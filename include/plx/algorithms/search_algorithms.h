// Algorithms that look and change nothing (1998, 25.1): for_each, find and its kin, count, search.
#ifndef PLX_SEARCH_ALGORITHMS_H
#define PLX_SEARCH_ALGORITHMS_H

#include <plx/base/algobase.h>
#include <plx/base/functions.h>
#include <plx/base/ordering.h>

namespace __zor {

// The first of the words [first, last) that is `_word`, or last. In the library, where the processor is known.
PLX_API PLX_REGPARM const unsigned int *_find_word(const unsigned int *_first, const unsigned int *_last,
                                                   unsigned int _word) PLX_NOTHROW;

namespace _functions {

enum _find_path { _find_each, _find_bytes, _find_words, _find_blocks };

// A value of the elements' own type in an array of integers or pointers is sought by its bytes.
template <class _In, class _V> struct _find_path_of {
  static const _find_path value = _is_segmented<_In>::value ? _find_blocks : _find_each;
};
template <class _T, class _V> struct _find_path_of<_T *, _V> {
  typedef typename _without_const<_T>::_type _element;
  static const bool _by_bytes = _same_type<_element, _V>::value && _equal_as_bytes<_element>::value;
  static const _find_path value = _by_bytes && sizeof(_T) == 1             ? _find_bytes
                                  : _by_bytes && sizeof(_T) == sizeof(int) ? _find_words
                                                                           : _find_each;
};

template <_find_path _path> struct _finder;

template <class _In, class _V> inline _In _find_range(_In _first, _In _last, const _V &_value) {
  return _finder<_find_path_of<_In, _V>::value>::_run(_first, _last, _value);
}

template <> struct _finder<_find_each> {
  template <class _In, class _V> static _In _run(_In _first, _In _last, const _V &_value) {
    while (bool(_first != _last) && !bool(*_first == _value)) ++_first;
    return _first;
  }
};
template <> struct _finder<_find_bytes> {
  template <class _T, class _V> static _T *_run(_T *_first, _T *_last, const _V &_value) {
    if (_first == _last) return _last;
    const void *const _found =
        ::memchr(_first, static_cast<unsigned char>(_value), static_cast<std::size_t>(_last - _first));
    return _found ? _first + (static_cast<const char *>(_found) - reinterpret_cast<const char *>(_first)) : _last;
  }
};
template <> struct _finder<_find_words> {
  template <class _T, class _V> static _T *_run(_T *_first, _T *_last, const _V &_value) {
    // A call is not worth its cost for a few elements.
    for (int _steps = 0; _last - _first >= 4 && _steps < 4; _first += 4, ++_steps) {
      if (_first[0] == _value) return _first;
      if (_first[1] == _value) return _first + 1;
      if (_first[2] == _value) return _first + 2;
      if (_first[3] == _value) return _first + 3;
    }
    if (_last - _first >= 4) {
      const unsigned int *const _from = reinterpret_cast<const unsigned int *>(_first);
      return _first +
             (__zor::_find_word(_from, reinterpret_cast<const unsigned int *>(_last), _word_of(_value)) - _from);
    }
    while (_first != _last && *_first != _value) ++_first;
    return _first;
  }

private:
  template <class _V> static unsigned int _word_of(_V _value) { return static_cast<unsigned int>(_value); }
  template <class _V> static unsigned int _word_of(_V *_value) {
    return static_cast<unsigned int>(reinterpret_cast<__UINTPTR_TYPE__>(_value));
  }
};
template <> struct _finder<_find_blocks> {
  template <class _In, class _V> static _In _run(const _In &_first, const _In &_last, const _V &_value) {
    typedef _segmented_iterator_traits<_In> _blocks;
    typename _blocks::_segment_iterator _block = _blocks::_segment(_first);
    const typename _blocks::_segment_iterator _last_block = _blocks::_segment(_last);
    typename _blocks::_local_iterator _from = _blocks::_local(_first);
    for (; _block != _last_block; _from = _blocks::begin(_block)) {
      const typename _blocks::_local_iterator _to = _blocks::end(_block);
      _from = __zor::_find_range(_from, _to, _value);
      if (_from != _to) return _blocks::_compose(_block, _from);
      ++_block;
    }
    return _blocks::_compose(_block, __zor::_find_range(_from, _blocks::_local(_last), _value));
  }
};

template <class _A, class _Bt, class _Equal>
_A _search_each(_A _first, _A _last, _Bt _other, _Bt _other_last, _Equal &_same) {
  if (_other == _other_last) return _first;
  for (;; ++_first) {
    _A _at = _first;
    for (_Bt _wanted = _other;; ++_at, (void)++_wanted) {
      if (_wanted == _other_last) return _first;
      if (_at == _last) return _last;
      if (!bool(_same(*_at, *_wanted))) break;
    }
  }
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _In, class _Function> inline _Function for_each(_In _first, _In _last, _Function _function_) {
  for (; _first != _last; ++_first) _function_(*_first);
  return _function_;
}

template <class _In, class _T> inline _In find(_In _first, _In _last, const _T &_value) {
  return __zor::_rewrap(_first, __zor::_find_range(__zor::_unwrap(_first), __zor::_unwrap(_last), _value));
}
template <class _In, class _Predicate> inline _In find_if(_In _first, _In _last, _Predicate _predicate) {
  while (bool(_first != _last) && !bool(_predicate(*_first))) ++_first;
  return _first;
}

template <class _A, class _Bt, class _Equal>
PLX_HIDDEN _A find_end(_A _first, _A _last, _Bt _other, _Bt _other_last, _Equal _same) {
  if (_other == _other_last) return _last;
  _A _result = _last;
  for (;; ++_first) {
    _A _at = _first;
    for (_Bt _wanted = _other;; ++_at, (void)++_wanted) {
      if (_wanted == _other_last) {
        _result = _first;
        break;
      }
      if (_at == _last) return _result;
      if (!bool(_same(*_at, *_wanted))) break;
    }
  }
}
template <class _A, class _Bt> inline _A find_end(_A _first, _A _last, _Bt _other, _Bt _other_last) {
  return std::find_end(_first, _last, _other, _other_last, __zor::_by_equal());
}

template <class _A, class _Bt, class _Equal>
PLX_HIDDEN _A find_first_of(_A _first, _A _last, _Bt _other, _Bt _other_last, _Equal _same) {
  for (; _first != _last; ++_first)
    for (_Bt _wanted = _other; _wanted != _other_last; ++_wanted)
      if (_same(*_first, *_wanted)) return _first;
  return _last;
}
template <class _A, class _Bt> inline _A find_first_of(_A _first, _A _last, _Bt _other, _Bt _other_last) {
  return std::find_first_of(_first, _last, _other, _other_last, __zor::_by_equal());
}

template <class _Forward, class _Equal>
PLX_HIDDEN _Forward adjacent_find(_Forward _first, _Forward _last, _Equal _same) {
  if (_first == _last) return _last;
  for (_Forward _next = _first; ++_next != _last; _first = _next)
    if (_same(*_first, *_next)) return _first;
  return _last;
}
template <class _Forward> inline _Forward adjacent_find(_Forward _first, _Forward _last) {
  return std::adjacent_find(_first, _last, __zor::_by_equal());
}

template <class _In, class _T>
inline typename iterator_traits<_In>::difference_type count(_In _first, _In _last, const _T &_value) {
  typename iterator_traits<_In>::difference_type _n = 0;
  for (; _first != _last; ++_first)
    if (*_first == _value) ++_n;
  return _n;
}
template <class _In, class _Predicate>
inline typename iterator_traits<_In>::difference_type count_if(_In _first, _In _last, _Predicate _predicate) {
  typename iterator_traits<_In>::difference_type _n = 0;
  for (; _first != _last; ++_first)
    if (_predicate(*_first)) ++_n;
  return _n;
}

template <class _A, class _Bt, class _Equal>
inline _A search(_A _first, _A _last, _Bt _other, _Bt _other_last, _Equal _same) {
  return __zor::_search_each(_first, _last, _other, _other_last, _same);
}
template <class _A, class _Bt> inline _A search(_A _first, _A _last, _Bt _other, _Bt _other_last) {
  __zor::_by_equal _same;
  return __zor::_search_each(_first, _last, _other, _other_last, _same);
}

}  // namespace std

namespace __zor {
namespace _functions {

// A failed run of matches ends at an element that cannot be part of another, so each is looked at once.
template <class _Forward, class _Count, class _T, class _Equal>
_Forward _search_counted(_Forward _first, _Forward _last, const _Count _n, const _T &_value, _Equal &_same) {
  if (!(_n > 0)) return _first;
  for (; _first != _last; ++_first) {
    if (!bool(_same(*_first, _value))) continue;
    _Forward _at = _first;
    for (_Count _left = _n; --_left > 0;) {
      if (++_at == _last) return _last;
      if (!bool(_same(*_at, _value))) break;
      if (_left == 1) return _first;
    }
    if (_n == 1) return _first;
    _first = _at;
  }
  return _last;
}

}  // namespace _functions
}  // namespace __zor

namespace std {

template <class _Forward, class _Size, class _T, class _Equal>
inline _Forward search_n(_Forward _first, _Forward _last, _Size _n, const _T &_value, _Equal _same) {
  return __zor::_search_counted(_first, _last, __zor::_count_of(_n), _value, _same);
}
template <class _Forward, class _Size, class _T>
inline _Forward search_n(_Forward _first, _Forward _last, _Size _n, const _T &_value) {
  return std::search_n(_first, _last, _n, _value, __zor::_by_equal());
}

}  // namespace std

#endif

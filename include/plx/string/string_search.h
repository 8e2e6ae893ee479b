// Searching. _string_search<char_traits<char> > is the library's; other traits, which may define equality of their own,
// get the plain loops of the primary template. An empty pattern is never found.
#ifndef PLX_STRING_SEARCH_H
#define PLX_STRING_SEARCH_H

#include <plx/base/char_traits.h>
#include <plx/string/string_core.h>

namespace __zor {

template <class _T> struct _string_search {
  typedef unsigned int _position;

  static _position find(const b_str_ref *_rep, const char *_s, _position _pos, _position _n) {
    const _position _length = _rep->length;
    if (_n == 0 || _pos > _length || _n > _length - _pos) return _string_npos;
    for (; _pos <= _length - _n; ++_pos)
      if (_T::compare(_rep->data + _pos, _s, _n) == 0) return _pos;
    return _string_npos;
  }

  static _position rfind(const b_str_ref *_rep, const char *_s, _position _pos, _position _n) {
    const _position _length = _rep->length;
    if (_n == 0 || _length < _n) return _string_npos;
    if (_pos > _length - _n) _pos = _length - _n;
    for (++_pos; _pos-- != 0;)
      if (_T::compare(_rep->data + _pos, _s, _n) == 0) return _pos;
    return _string_npos;
  }

  static _position _find_first(const b_str_ref *_rep, const char *_s, _position _pos, _position _n, bool _in) {
    for (; _pos < _rep->length; ++_pos)
      if ((_T::find(_s, _n, _rep->data[_pos]) != 0) == _in) return _pos;
    return _string_npos;
  }

  static _position _find_last(const b_str_ref *_rep, const char *_s, _position _pos, _position _n, bool _in) {
    for (_pos = _pos < _rep->length ? _pos + 1 : _rep->length; _pos-- != 0;)
      if ((_T::find(_s, _n, _rep->data[_pos]) != 0) == _in) return _pos;
    return _string_npos;
  }

  static _position find_first_of(const b_str_ref *_rep, const char *_s, _position _pos, _position _n) {
    return _find_first(_rep, _s, _pos, _n, true);
  }
  static _position find_last_of(const b_str_ref *_rep, const char *_s, _position _pos, _position _n) {
    return _find_last(_rep, _s, _pos, _n, true);
  }
  static _position find_first_not_of(const b_str_ref *_rep, const char *_s, _position _pos, _position _n) {
    return _find_first(_rep, _s, _pos, _n, false);
  }
  static _position find_last_not_of(const b_str_ref *_rep, const char *_s, _position _pos, _position _n) {
    return _find_last(_rep, _s, _pos, _n, false);
  }
};

template <> struct _string_search<std::char_traits<char> > {
  typedef unsigned int _position;

  PLX_API PLX_REGPARM static _position find(const b_str_ref *_rep, const char *_s, _position _pos,
                                            _position _n) PLX_NOTHROW;
  PLX_API PLX_REGPARM static _position rfind(const b_str_ref *_rep, const char *_s, _position _pos,
                                             _position _n) PLX_NOTHROW;
  PLX_API PLX_REGPARM static _position find_first_of(const b_str_ref *_rep, const char *_s, _position _pos,
                                                     _position _n) PLX_NOTHROW;
  PLX_API PLX_REGPARM static _position find_last_of(const b_str_ref *_rep, const char *_s, _position _pos,
                                                    _position _n) PLX_NOTHROW;
  PLX_API PLX_REGPARM static _position find_first_not_of(const b_str_ref *_rep, const char *_s, _position _pos,
                                                         _position _n) PLX_NOTHROW;
  PLX_API PLX_REGPARM static _position find_last_not_of(const b_str_ref *_rep, const char *_s, _position _pos,
                                                        _position _n) PLX_NOTHROW;
};

}  // namespace __zor

#endif

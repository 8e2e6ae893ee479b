// char_traits<char> and char_traits<wchar_t> (1998, 21.1), and the position types that they name. Those of wchar_t are
// for a program's own use: strings and streams are of char only.
#ifndef PLX_CHAR_TRAITS_H
#define PLX_CHAR_TRAITS_H

#include <stddef.h>
#include <wchar.h>

#include <plx/base/char_only.h>
#include <plx/base/config.h>

namespace std {

using ::mbstate_t;
using ::size_t;

typedef int streamsize;
typedef long streamoff;
template <class _State> class fpos;
typedef fpos<mbstate_t> streampos;

template <class _Ct> struct PLX_API char_traits {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type char_type;
};

// Characters compare as unsigned char, so that lt and compare give one order.
template <> struct PLX_API char_traits<char> {
  typedef char char_type;
  typedef int int_type;
  typedef streamoff off_type;
  typedef streampos pos_type;
  typedef mbstate_t state_type;

  static void assign(char &_to, const char &_from) PLX_NOTHROW { _to = _from; }
  static bool eq(const char &_left, const char &_right) PLX_NOTHROW { return _left == _right; }
  static bool lt(const char &_left, const char &_right) PLX_NOTHROW {
    return static_cast<unsigned char>(_left) < static_cast<unsigned char>(_right);
  }

  static int compare(const char *_left, const char *_right, size_t _n) PLX_NOTHROW {
    return _n == 0 ? 0 : __builtin_memcmp(_left, _right, _n);
  }
  static size_t length(const char *_text) PLX_NOTHROW { return __builtin_strlen(_text); }
  static const char *find(const char *_text, size_t _n, const char &_c) PLX_NOTHROW {
    return _n == 0 ? 0 : static_cast<const char *>(__builtin_memchr(_text, _c, _n));
  }
  static char *move(char *_to, const char *_from, size_t _n) PLX_NOTHROW {
    return _n == 0 ? _to : static_cast<char *>(__builtin_memmove(_to, _from, _n));
  }
  static char *copy(char *_to, const char *_from, size_t _n) PLX_NOTHROW {
    return _n == 0 ? _to : static_cast<char *>(__builtin_memcpy(_to, _from, _n));
  }
  static char *assign(char *_to, size_t _n, char _c) PLX_NOTHROW {
    return _n == 0 ? _to : static_cast<char *>(__builtin_memset(_to, _c, _n));
  }

  static int not_eof(const int &_c) PLX_NOTHROW { return _c == eof() ? 0 : _c; }
  static char to_char_type(const int &_c) PLX_NOTHROW { return static_cast<char>(_c); }
  static int to_int_type(const char &_c) PLX_NOTHROW { return static_cast<unsigned char>(_c); }
  static bool eq_int_type(const int &_left, const int &_right) PLX_NOTHROW { return _left == _right; }
  static int eof() PLX_NOTHROW { return -1; }
};

template <> struct char_traits<wchar_t> {
  typedef wchar_t char_type;
  typedef wint_t int_type;
  typedef streamoff off_type;
  typedef streampos pos_type;
  typedef mbstate_t state_type;

  static void assign(wchar_t &_to, const wchar_t &_from) PLX_NOTHROW { _to = _from; }
  static bool eq(const wchar_t &_left, const wchar_t &_right) PLX_NOTHROW { return _left == _right; }
  static bool lt(const wchar_t &_left, const wchar_t &_right) PLX_NOTHROW { return _left < _right; }

  static int compare(const wchar_t *_left, const wchar_t *_right, size_t _n) PLX_NOTHROW {
    return _n == 0 ? 0 : ::wmemcmp(_left, _right, _n);
  }
  static size_t length(const wchar_t *_text) PLX_NOTHROW { return ::wcslen(_text); }
  static const wchar_t *find(const wchar_t *_text, size_t _n, const wchar_t &_c) PLX_NOTHROW {
    return _n == 0 ? 0 : ::wmemchr(_text, _c, _n);
  }
  static wchar_t *move(wchar_t *_to, const wchar_t *_from, size_t _n) PLX_NOTHROW {
    return _n == 0 ? _to : ::wmemmove(_to, _from, _n);
  }
  static wchar_t *copy(wchar_t *_to, const wchar_t *_from, size_t _n) PLX_NOTHROW {
    return _n == 0 ? _to : ::wmemcpy(_to, _from, _n);
  }
  static wchar_t *assign(wchar_t *_to, size_t _n, wchar_t _c) PLX_NOTHROW {
    return _n == 0 ? _to : ::wmemset(_to, _c, _n);
  }

  static wint_t not_eof(const wint_t &_c) PLX_NOTHROW { return _c == eof() ? 0 : _c; }
  static wchar_t to_char_type(const wint_t &_c) PLX_NOTHROW { return static_cast<wchar_t>(_c); }
  static wint_t to_int_type(const wchar_t &_c) PLX_NOTHROW { return static_cast<wint_t>(_c); }
  static bool eq_int_type(const wint_t &_left, const wint_t &_right) PLX_NOTHROW { return _left == _right; }
  static wint_t eof() PLX_NOTHROW { return WEOF; }
};

}  // namespace std

#endif

// char_traits<char> (1998, 21.1) and the position types that it names.
#ifndef PLX_CHAR_TRAITS_H
#define PLX_CHAR_TRAITS_H

#include <stddef.h>
#include <wchar.h>

#include <plx/char_only.h>
#include <plx/config.h>

namespace std {

using ::mbstate_t;
using ::size_t;

typedef int streamsize;
typedef int streamoff;
template <class State> class fpos;
typedef fpos<mbstate_t> streampos;

template <class C> struct PLX_API char_traits {
  typedef typename __zor::plx_supports_only_char_as_character_type<C>::type char_type;
};

// Characters compare as unsigned char, so that lt and compare give one order.
template <> struct PLX_API char_traits<char> {
  typedef char char_type;
  typedef int int_type;
  typedef streamoff off_type;
  typedef streampos pos_type;
  typedef mbstate_t state_type;

  static void assign(char &to, const char &from) PLX_NOTHROW { to = from; }
  static bool eq(const char &left, const char &right) PLX_NOTHROW { return left == right; }
  static bool lt(const char &left, const char &right) PLX_NOTHROW {
    return static_cast<unsigned char>(left) < static_cast<unsigned char>(right);
  }

  static int compare(const char *left, const char *right, size_t n) PLX_NOTHROW {
    return n == 0 ? 0 : __builtin_memcmp(left, right, n);
  }
  static size_t length(const char *text) PLX_NOTHROW { return __builtin_strlen(text); }
  static const char *find(const char *text, size_t n, const char &c) PLX_NOTHROW {
    return n == 0 ? 0 : static_cast<const char *>(__builtin_memchr(text, c, n));
  }
  static char *move(char *to, const char *from, size_t n) PLX_NOTHROW {
    return n == 0 ? to : static_cast<char *>(__builtin_memmove(to, from, n));
  }
  static char *copy(char *to, const char *from, size_t n) PLX_NOTHROW {
    return n == 0 ? to : static_cast<char *>(__builtin_memcpy(to, from, n));
  }
  static char *assign(char *to, size_t n, char c) PLX_NOTHROW {
    return n == 0 ? to : static_cast<char *>(__builtin_memset(to, c, n));
  }

  static int not_eof(const int &c) PLX_NOTHROW { return c == eof() ? 0 : c; }
  static char to_char_type(const int &c) PLX_NOTHROW { return static_cast<char>(c); }
  static int to_int_type(const char &c) PLX_NOTHROW { return static_cast<unsigned char>(c); }
  static bool eq_int_type(const int &left, const int &right) PLX_NOTHROW { return left == right; }
  static int eof() PLX_NOTHROW { return -1; }
};

}  // namespace std

#endif

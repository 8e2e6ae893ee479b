// Searching. string_search<char_traits<char> > is the library's; other traits, which may define equality of their own,
// get the plain loops of the primary template. An empty pattern is never found.
#ifndef PLX_STRING_SEARCH_H
#define PLX_STRING_SEARCH_H

#include <plx/char_traits.h>
#include <plx/string_core.h>

namespace __zor {

template <class T> struct string_search {
  typedef unsigned int position;

  static position find(const b_str_ref *rep, const char *s, position pos, position n) {
    const position length = rep->length;
    if (n == 0 || pos > length || n > length - pos) return string_npos;
    for (; pos <= length - n; ++pos)
      if (T::compare(rep->data + pos, s, n) == 0) return pos;
    return string_npos;
  }

  static position rfind(const b_str_ref *rep, const char *s, position pos, position n) {
    const position length = rep->length;
    if (n == 0 || length < n) return string_npos;
    if (pos > length - n) pos = length - n;
    for (++pos; pos-- != 0;)
      if (T::compare(rep->data + pos, s, n) == 0) return pos;
    return string_npos;
  }

  static position find_first(const b_str_ref *rep, const char *s, position pos, position n, bool in) {
    for (; pos < rep->length; ++pos)
      if ((T::find(s, n, rep->data[pos]) != 0) == in) return pos;
    return string_npos;
  }

  static position find_last(const b_str_ref *rep, const char *s, position pos, position n, bool in) {
    for (pos = pos < rep->length ? pos + 1 : rep->length; pos-- != 0;)
      if ((T::find(s, n, rep->data[pos]) != 0) == in) return pos;
    return string_npos;
  }

  static position find_first_of(const b_str_ref *rep, const char *s, position pos, position n) {
    return find_first(rep, s, pos, n, true);
  }
  static position find_last_of(const b_str_ref *rep, const char *s, position pos, position n) {
    return find_last(rep, s, pos, n, true);
  }
  static position find_first_not_of(const b_str_ref *rep, const char *s, position pos, position n) {
    return find_first(rep, s, pos, n, false);
  }
  static position find_last_not_of(const b_str_ref *rep, const char *s, position pos, position n) {
    return find_last(rep, s, pos, n, false);
  }
};

template <> struct string_search<std::char_traits<char> > {
  typedef unsigned int position;

  PLX_STRING_CALL static position find(const b_str_ref *rep, const char *s, position pos, position n) PLX_NOTHROW;
  PLX_STRING_CALL static position rfind(const b_str_ref *rep, const char *s, position pos, position n) PLX_NOTHROW;
  PLX_STRING_CALL static position find_first_of(const b_str_ref *rep, const char *s, position pos,
                                                position n) PLX_NOTHROW;
  PLX_STRING_CALL static position find_last_of(const b_str_ref *rep, const char *s, position pos,
                                               position n) PLX_NOTHROW;
  PLX_STRING_CALL static position find_first_not_of(const b_str_ref *rep, const char *s, position pos,
                                                    position n) PLX_NOTHROW;
  PLX_STRING_CALL static position find_last_not_of(const b_str_ref *rep, const char *s, position pos,
                                                   position n) PLX_NOTHROW;
};

}  // namespace __zor

#endif

// Which types are integers: a member template that takes two iterators of one type must tell them from a count and a
// character, as in string(5, 65).
#ifndef PLX_IS_INTEGER_H
#define PLX_IS_INTEGER_H

namespace __zor {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wlong-long"
typedef long long _longest;
typedef unsigned long long _unsigned_longest;
#pragma GCC diagnostic pop

struct _yes {};
struct _no {};

template <class _T> struct is_integer { typedef _no _type; };

template <> struct is_integer<bool> { typedef _yes _type; };
template <> struct is_integer<char> { typedef _yes _type; };
template <> struct is_integer<signed char> { typedef _yes _type; };
template <> struct is_integer<unsigned char> { typedef _yes _type; };
template <> struct is_integer<wchar_t> { typedef _yes _type; };
template <> struct is_integer<short> { typedef _yes _type; };
template <> struct is_integer<unsigned short> { typedef _yes _type; };
template <> struct is_integer<int> { typedef _yes _type; };
template <> struct is_integer<unsigned int> { typedef _yes _type; };
template <> struct is_integer<long> { typedef _yes _type; };
template <> struct is_integer<unsigned long> { typedef _yes _type; };
template <> struct is_integer<_longest> { typedef _yes _type; };
template <> struct is_integer<_unsigned_longest> { typedef _yes _type; };

}  // namespace __zor

#endif

// Which types are integers: a member template that takes two iterators of one type must tell them from a count and a
// character, as in string(5, 65).
#ifndef PLX_IS_INTEGER_H
#define PLX_IS_INTEGER_H

namespace __zor {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wlong-long"
typedef long long longest;
typedef unsigned long long unsigned_longest;
#pragma GCC diagnostic pop

struct yes {};
struct no {};

template <class T> struct is_integer { typedef no type; };

template <> struct is_integer<bool> { typedef yes type; };
template <> struct is_integer<char> { typedef yes type; };
template <> struct is_integer<signed char> { typedef yes type; };
template <> struct is_integer<unsigned char> { typedef yes type; };
template <> struct is_integer<wchar_t> { typedef yes type; };
template <> struct is_integer<short> { typedef yes type; };
template <> struct is_integer<unsigned short> { typedef yes type; };
template <> struct is_integer<int> { typedef yes type; };
template <> struct is_integer<unsigned int> { typedef yes type; };
template <> struct is_integer<long> { typedef yes type; };
template <> struct is_integer<unsigned long> { typedef yes type; };
template <> struct is_integer<longest> { typedef yes type; };
template <> struct is_integer<unsigned_longest> { typedef yes type; };

}  // namespace __zor

#endif

// The names of the string types, for headers that only mention them.
#ifndef PLX_STRING_FWD_H
#define PLX_STRING_FWD_H

namespace std {

template <class _Ct> struct char_traits;
template <class _T> class allocator;
template <class _Ct, class _T = char_traits<_Ct>, class _A = allocator<_Ct> > class basic_string;

typedef basic_string<char, char_traits<char>, allocator<char> > string;
typedef basic_string<wchar_t, char_traits<wchar_t>, allocator<wchar_t> > wstring;  // using it is refused

}  // namespace std

#endif

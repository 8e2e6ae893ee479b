// Strings from streams (1998, 21.3.7.9). The streams are only named here: programs that use these operators include
// <istream> as well.
#ifndef PLX_STRING_IO_H
#define PLX_STRING_IO_H

#include <plx/base/ios_fwd.h>
#include <plx/string/basic_string.h>

namespace std {

// One word, of at most width() characters if that is not 0. The width stays, unlike the 1998 operator's. An empty word
// gives failbit, the end eofbit. What the buffer, the facet or the string throws becomes badbit, and the characters
// that were taken before it are in the string. Without skipws a locale without ctype is reported: bad_cast, "Facet not
// present\n".
template <class _Ct, class _T, class _A>
PLX_API basic_istream<_Ct, _T> &operator>>(basic_istream<_Ct, _T> &_in, basic_string<_Ct, _T, _A> &_text);

// Up to `_delim` (newline), which is taken and not stored. The end gives eofbit, and failbit when there was nothing at
// all. In the frame of all stream operations: what is thrown becomes badbit.
template <class _Ct, class _T, class _A>
PLX_API basic_istream<_Ct, _T> &getline(basic_istream<_Ct, _T> &_in, basic_string<_Ct, _T, _A> &_text, _Ct _delim);
template <class _Ct, class _T, class _A>
PLX_API basic_istream<_Ct, _T> &getline(basic_istream<_Ct, _T> &_in, basic_string<_Ct, _T, _A> &_text);

template <> PLX_API istream &operator>>(istream &_in, string &_text);
template <> PLX_API istream &getline(istream &_in, string &_text, char _delim);
template <> PLX_API istream &getline(istream &_in, string &_text);

}  // namespace std

#endif

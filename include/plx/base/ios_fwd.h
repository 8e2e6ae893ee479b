// The names of the streams and their buffers (1998, 27.2), for headers that only mention them. Only char is served: a
// program that uses one of the wide streams is refused at compile time.
#ifndef PLX_IOS_FWD_H
#define PLX_IOS_FWD_H

#include <plx/base/char_traits.h>
#include <plx/base/string_fwd.h>

namespace __zor {

// The refusal of other traits, which strings may have, but streams may not; other characters are refused elsewhere.
template <class _Ct, class _T> struct plx_streams_use_only_the_standard_traits { typedef _T _type; };
template <class _T> struct plx_streams_use_only_the_standard_traits<char, _T>;
template <> struct plx_streams_use_only_the_standard_traits<char, std::char_traits<char> > {
  typedef std::char_traits<char> _type;
};

}  // namespace __zor

namespace std {

template <class _Ct, class _T = char_traits<_Ct> > class basic_ios;
template <class _Ct, class _T = char_traits<_Ct> > class basic_streambuf;
template <class _Ct, class _T = char_traits<_Ct> > class basic_istream;
template <class _Ct, class _T = char_traits<_Ct> > class basic_ostream;
template <class _Ct, class _T = char_traits<_Ct> > class basic_iostream;
template <class _Ct, class _T = char_traits<_Ct>, class _A = allocator<_Ct> > class basic_stringbuf;
template <class _Ct, class _T = char_traits<_Ct>, class _A = allocator<_Ct> > class basic_istringstream;
template <class _Ct, class _T = char_traits<_Ct>, class _A = allocator<_Ct> > class basic_ostringstream;
template <class _Ct, class _T = char_traits<_Ct>, class _A = allocator<_Ct> > class basic_stringstream;
template <class _Ct, class _T = char_traits<_Ct> > class basic_filebuf;
template <class _Ct, class _T = char_traits<_Ct> > class basic_ifstream;
template <class _Ct, class _T = char_traits<_Ct> > class basic_ofstream;
template <class _Ct, class _T = char_traits<_Ct> > class basic_fstream;
template <class _Ct, class _T = char_traits<_Ct> > class istreambuf_iterator;
template <class _Ct, class _T = char_traits<_Ct> > class ostreambuf_iterator;

class ios_base;
class strstreambuf;
class istrstream;
class ostrstream;
class strstream;

typedef basic_ios<char> ios;
typedef basic_streambuf<char> streambuf;
typedef basic_istream<char> istream;
typedef basic_ostream<char> ostream;
typedef basic_iostream<char> iostream;
typedef basic_stringbuf<char> stringbuf;
typedef basic_istringstream<char> istringstream;
typedef basic_ostringstream<char> ostringstream;
typedef basic_stringstream<char> stringstream;
typedef basic_filebuf<char> filebuf;
typedef basic_ifstream<char> ifstream;
typedef basic_ofstream<char> ofstream;
typedef basic_fstream<char> fstream;

typedef basic_ios<wchar_t> wios;
typedef basic_streambuf<wchar_t> wstreambuf;
typedef basic_istream<wchar_t> wistream;
typedef basic_ostream<wchar_t> wostream;
typedef basic_iostream<wchar_t> wiostream;
typedef basic_stringbuf<wchar_t> wstringbuf;
typedef basic_istringstream<wchar_t> wistringstream;
typedef basic_ostringstream<wchar_t> wostringstream;
typedef basic_stringstream<wchar_t> wstringstream;
typedef basic_filebuf<wchar_t> wfilebuf;
typedef basic_ifstream<wchar_t> wifstream;
typedef basic_ofstream<wchar_t> wofstream;
typedef basic_fstream<wchar_t> wfstream;
typedef streampos wstreampos;

}  // namespace std

#endif

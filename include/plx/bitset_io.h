// bitset and streams (1998, 23.3.5.3). The streams are only named here: programs that use these operators include
// <istream> or <ostream> as well.
//
// Reading is one function for all sizes. It belongs to the streams, which define it in the library: a formatted input
// function (sentry, what is thrown becomes badbit, the state at the end) that appends at most `count` characters '0' or
// '1' to `text`, leaves any other in the stream, and sets failbit when there was none. It returns whether it took any.
#ifndef PLX_BITSET_IO_H
#define PLX_BITSET_IO_H

#include <plx/bitset.h>

namespace std {

template <class C, class T> class basic_istream;
template <class C, class T> class basic_ostream;

}  // namespace std

namespace __zor {

PLX_API bool extract_bits(std::basic_istream<char, std::char_traits<char> > &in, std::string &text, unsigned count);

}

namespace std {

template <class C, class T, size_t N> basic_istream<C, T> &operator>>(basic_istream<C, T> &in, bitset<N> &bits) {
  basic_string<C, T, allocator<C> > text;
  if (__zor::extract_bits(in, text, N)) bits = bitset<N>(text);
  return in;
}

template <class C, class T, size_t N>
basic_ostream<C, T> &operator<<(basic_ostream<C, T> &out, const bitset<N> &bits) {
  return out << bits.template to_string<C, T, allocator<C> >();
}

}  // namespace std

#endif

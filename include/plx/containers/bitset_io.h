// bitset and streams (1998, 23.3.5.3). The streams are only named here: programs that use these operators include
// <istream> or <ostream> as well.
//
// Reading is one function for all sizes. It belongs to the streams, which define it in the library: a formatted input
// function (sentry, what is thrown becomes badbit, the state at the end) that appends at most `_count` characters '0'
// or '1' to `_text`, leaves any other in the stream, and sets failbit when there was none. It returns whether it took
// any.
#ifndef PLX_BITSET_IO_H
#define PLX_BITSET_IO_H

#include <plx/containers/bitset.h>

namespace std {

template <class _Ct, class _T> class basic_istream;
template <class _Ct, class _T> class basic_ostream;

}  // namespace std

namespace __zor {

PLX_API bool _extract_bits(std::basic_istream<char, std::char_traits<char> > &_in, std::string &_text, unsigned _count);

// What was read gets to the set however reading ends: also when the stream throws for the state that it got.
template <class _Bits> class _bits_to_come {
public:
  explicit _bits_to_come(_Bits &_to) : _text(), _to_(_to) {}
  ~_bits_to_come() {
    if (!_text.empty()) _to_ = _Bits(_text);
  }
  std::string _text;

private:
  _bits_to_come(const _bits_to_come &);
  _bits_to_come &operator=(const _bits_to_come &);

  _Bits &_to_;
};

}  // namespace __zor

namespace std {

template <class _Ct, class _T, size_t _Nv>
PLX_HIDDEN basic_istream<_Ct, _T> &operator>>(basic_istream<_Ct, _T> &_in, bitset<_Nv> &_bits) {
  __zor::_bits_to_come<bitset<_Nv> > _read(_bits);
  __zor::_extract_bits(_in, _read._text, _Nv);
  return _in;
}

template <class _Ct, class _T, size_t _Nv>
PLX_HIDDEN basic_ostream<_Ct, _T> &operator<<(basic_ostream<_Ct, _T> &_out, const bitset<_Nv> &_bits) {
  return _out << _bits.template to_string<_Ct, _T, allocator<_Ct> >();
}

}  // namespace std

#endif

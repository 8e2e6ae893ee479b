// complex and streams (1998, 26.2.6): (3,4) out; 3, (3) and (3,4) in. The streams are only named here: programs that
// use these operators include <istream> or <ostream> as well.
#ifndef PLX_COMPLEX_IO_H
#define PLX_COMPLEX_IO_H

#include <plx/numerics/complex.h>
#include <plx/string/basic_string.h>

namespace std {

template <class _Ct, class _T> class basic_istream;
template <class _Ct, class _T> class basic_ostream;
template <class _Ct, class _T> class basic_streambuf;

}  // namespace std

namespace __zor {

// Collects a number's text, so that the stream's width applies to the whole of it.
template <class _Ct, class _Traits> class _complex_text : public std::basic_streambuf<_Ct, _Traits> {
public:
  typedef std::basic_string<_Ct, _Traits, std::allocator<_Ct> > _text_type;
  const _text_type &_text() const { return _text_; }

protected:
  virtual typename _Traits::int_type overflow(typename _Traits::int_type _c) {
    if (!_Traits::eq_int_type(_c, _Traits::eof())) _text_.push_back(_Traits::to_char_type(_c));
    return _Traits::not_eof(_c);
  }

private:
  _text_type _text_;
};

}  // namespace __zor

namespace std {

template <class _T, class _Ct, class _Traits>
PLX_HIDDEN basic_istream<_Ct, _Traits> &operator>>(basic_istream<_Ct, _Traits> &_in, complex<_T> &_z) {
  _T _re = _T(), _im = _T();
  _Ct _c = _Ct();
  typename basic_istream<_Ct, _Traits>::sentry _ready(_in);
  if (!_ready) return _in;
  if (!_Traits::eq_int_type(_in.peek(), _Traits::to_int_type(_Ct('(')))) {
    if (_in >> _re) _z = complex<_T>(_re);
    return _in;
  }
  _in.get(_c);
  if (_in >> _re >> _c && _c == _Ct(',')) _in >> _im >> _c;
  if (_in && _c == _Ct(')'))
    _z = complex<_T>(_re, _im);
  else
    _in.setstate(basic_istream<_Ct, _Traits>::failbit);
  return _in;
}

template <class _T, class _Ct, class _Traits>
PLX_HIDDEN basic_ostream<_Ct, _Traits> &operator<<(basic_ostream<_Ct, _Traits> &_out, const complex<_T> &_z) {
  __zor::_complex_text<_Ct, _Traits> _buffer;
  basic_ostream<_Ct, _Traits> _text(&_buffer);
  _text.flags(_out.flags());
  _text.imbue(_out.getloc());
  _text.precision(_out.precision());
  _text << _Ct('(') << _z.real() << _Ct(',') << _z.imag() << _Ct(')');
  if (!_text) {  // half a number is none
    _out.setstate(basic_ostream<_Ct, _Traits>::badbit);
    return _out;
  }
  return _out << _buffer._text();
}

}  // namespace std

#endif

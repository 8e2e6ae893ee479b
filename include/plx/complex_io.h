// complex and streams (1998, 26.2.6): (3,4) out; 3, (3) and (3,4) in. The streams are only named here: programs that
// use these operators include <istream> or <ostream> as well.
#ifndef PLX_COMPLEX_IO_H
#define PLX_COMPLEX_IO_H

#include <plx/basic_string.h>
#include <plx/complex.h>

namespace std {

template <class C, class T> class basic_istream;
template <class C, class T> class basic_ostream;
template <class C, class T> class basic_streambuf;

}  // namespace std

namespace __zor {

// Collects a number's text, so that the stream's width applies to the whole of it.
template <class C, class Traits> class complex_text : public std::basic_streambuf<C, Traits> {
public:
  typedef std::basic_string<C, Traits, std::allocator<C> > text_type;
  const text_type &text() const { return text_; }

protected:
  virtual typename Traits::int_type overflow(typename Traits::int_type c) {
    if (!Traits::eq_int_type(c, Traits::eof())) text_.push_back(Traits::to_char_type(c));
    return Traits::not_eof(c);
  }

private:
  text_type text_;
};

}  // namespace __zor

namespace std {

template <class T, class C, class Traits>
basic_istream<C, Traits> &operator>>(basic_istream<C, Traits> &in, complex<T> &z) {
  T re = T(), im = T();
  C c = C();
  if (!(in >> c)) return in;
  if (c != C('(')) {
    in.putback(c);
    if (in >> re) z = complex<T>(re);
    return in;
  }
  if (in >> re >> c && c == C(',')) in >> im >> c;
  if (in && c == C(')'))
    z = complex<T>(re, im);
  else
    in.setstate(basic_istream<C, Traits>::failbit);
  return in;
}

template <class T, class C, class Traits>
basic_ostream<C, Traits> &operator<<(basic_ostream<C, Traits> &out, const complex<T> &z) {
  __zor::complex_text<C, Traits> buffer;
  basic_ostream<C, Traits> text(&buffer);
  text.flags(out.flags());
  text.imbue(out.getloc());
  text.precision(out.precision());
  text << C('(') << z.real() << C(',') << z.imag() << C(')');
  return out << buffer.text();
}

}  // namespace std

#endif

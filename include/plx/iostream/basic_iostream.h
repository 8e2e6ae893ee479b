// basic_iostream (1998, 27.6.1.5): a stream for both directions, with one state and one buffer.
#ifndef PLX_BASIC_IOSTREAM_H
#define PLX_BASIC_IOSTREAM_H

#include <plx/iostream/istream.h>
#include <plx/iostream/ostream.h>

namespace std {

template <class _Ct, class _T> class PLX_API basic_iostream : public basic_istream<_Ct, _T>,
                                                              public basic_ostream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  // On a buffer that stays the caller's. Without one the stream is bad.
  explicit basic_iostream(basic_streambuf<_Ct, _T> *_buffer);
  virtual ~basic_iostream() {}

protected:
  basic_iostream() {}  // for classes that initialise the shared base themselves
};

__extension__ extern template class PLX_API basic_iostream<char, char_traits<char> >;

}  // namespace std

#endif

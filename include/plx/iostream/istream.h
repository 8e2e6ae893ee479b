// basic_istream (1998, 27.6.1): a stream buffer's characters become values.
//
// Every operation has the same frame. When the stream is not good, it gets failbit and nothing is read; otherwise a
// tied stream is flushed first, and formatted input skips white space if skipws is set. What a buffer or a facet throws
// is discarded and becomes badbit. An operation that leaves a bit of exceptions() set throws failure, and nothing else
// is ever thrown from one. The end of the input gives eofbit, and failbit as well where nothing was read.
//
// Where it differs from the 1998 class on purpose: a character that is not there gives failbit alone, the text of a
// refused get or getline becomes empty, and white space up to the end is no failure of the sentry.
// docs/deviations.md has the list.
#ifndef PLX_ISTREAM_H
#define PLX_ISTREAM_H

#include <plx/base/is_integer.h>
#include <plx/iostream/basic_ios.h>
#include <plx/streambuf/streambuf_iterators.h>
#include <plx/string/string_io.h>

namespace std {

template <class _Ct, class _T> class PLX_API basic_istream : virtual public basic_ios<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  // On a buffer that stays the caller's. Without one the stream is bad.
  explicit basic_istream(basic_streambuf<_Ct, _T> *_buffer);
  virtual ~basic_istream() {}

  // The frame's beginning, for extractors that read from rdbuf() themselves, and whether they may. Starts gcount anew.
  class PLX_API sentry {
  public:
    explicit sentry(basic_istream &_in, bool _noskipws = false);
    operator bool() const PLX_NOTHROW { return _ok_; }

  private:
    sentry(const sentry &);
    sentry &operator=(const sentry &);

    bool _ok_;
  };

  // The same in the older form. plx's own.
  bool ipfx(bool _noskipws = false);
  void isfx() PLX_NOTHROW {}

  // Manipulators.
  basic_istream &operator>>(basic_istream &(*_f)(basic_istream &)) { return _f(*this); }
  basic_istream &operator>>(basic_ios<_Ct, _T> &(*_f)(basic_ios<_Ct, _T> &)) {
    _f(*this);
    return *this;
  }
  basic_istream &operator>>(ios_base &(*_f)(ios_base &)) {
    _f(*this);
    return *this;
  }

  // Numbers, through the locale's num_get. What is no number of the type gives failbit; an integer is stored even then.
  // A locale without num_get gives badbit.
  basic_istream &operator>>(bool &_value);
  basic_istream &operator>>(short &_value);
  basic_istream &operator>>(unsigned short &_value);
  basic_istream &operator>>(int &_value);
  basic_istream &operator>>(unsigned int &_value);
  basic_istream &operator>>(long &_value);
  basic_istream &operator>>(unsigned long &_value);
  basic_istream &operator>>(float &_value);
  basic_istream &operator>>(double &_value);
  basic_istream &operator>>(long double &_value);
  basic_istream &operator>>(void *&_value);

  // plx's own: num_get knows no such numbers. Sign, white space, prefix and digits as for long, never grouped.
  basic_istream &operator>>(__zor::_longest &_value);
  basic_istream &operator>>(__zor::_unsigned_longest &_value);

  // All that is left, into another buffer, as long as that takes it. Nothing at all gives failbit, and so does a null
  // buffer.
  basic_istream &operator>>(basic_streambuf<_Ct, _T> *_to);

  // The number of characters that the last unformatted operation took; formatted ones leave 0.
  streamsize gcount() const PLX_NOTHROW { return _gcount_; }

  // The next character: eof, with eofbit and failbit, when there is none.
  int_type get() {
    const int_type _c = _take_ready();
    return __builtin_expect(_T::eq_int_type(_c, _T::eof()), false) ? _get() : _c;
  }
  basic_istream &get(_Ct &_c) {
    const int_type _taken = _take_ready();
    if (__builtin_expect(_T::eq_int_type(_taken, _T::eof()), false)) return _get(_c);
    _c = _T::to_char_type(_taken);
    return *this;
  }

  // Up to n - 1 characters before `_delim` (newline), which stays, and a null character. None at all gives failbit. A
  // null character is written even when n is below 1.
  basic_istream &get(_Ct *_to, streamsize _n, _Ct _delim);
  basic_istream &get(_Ct *_to, streamsize _n);

  // Into another buffer, as long as that takes it, up to `_delim` (newline), which stays. None at all gives failbit.
  basic_istream &get(basic_streambuf<_Ct, _T> &_to, _Ct _delim);
  basic_istream &get(basic_streambuf<_Ct, _T> &_to);

  // As get, but `_delim` is taken and counted, and a line that does not fit gives failbit.
  basic_istream &getline(_Ct *_to, streamsize _n, _Ct _delim);
  basic_istream &getline(_Ct *_to, streamsize _n);

  // Drops up to n characters, any number when n is the largest streamsize, and stops behind `_delim`.
  basic_istream &ignore(streamsize _n = 1, int_type _delim = _T::eof());

  // The next character, which stays; eof, with eofbit, when there is none.
  int_type peek();

  // n characters. Fewer give eofbit and failbit.
  basic_istream &read(_Ct *_to, streamsize _n);

  // What the buffer has ready, up to n characters; the number. A buffer that knows of its end gives eofbit.
  streamsize readsome(_Ct *_to, streamsize _n);

  // Gives back a character, or the last one. What the buffer does not take gives badbit.
  basic_istream &putback(_Ct _c);
  basic_istream &unget();

  // Synchronises the buffer: 0, or -1 with badbit; -1 without a buffer.
  int sync();

  // The position to read from, -1 when the stream has failed or the buffer knows none; a move that the buffer refuses
  // gives failbit. Neither touches eofbit, nor minds it.
  pos_type tellg();
  basic_istream &seekg(pos_type _pos);
  basic_istream &seekg(off_type _off, ios_base::seekdir _way);

protected:
  basic_istream() : _gcount_(0) {}  // for classes that initialise the shared base themselves

private:
  friend struct __zor::_stream_access;

  // Most characters need no frame: the stream is good, nothing is tied to it, and its buffer has one ready. eof: it is
  // to be asked for in the frame.
  int_type _take_ready() {
    if (__builtin_expect(!this->good() || this->tie(), false)) return _T::eof();
    const int_type _c = this->rdbuf()->_take_ready();
    if (__builtin_expect(!_T::eq_int_type(_c, _T::eof()), true)) _gcount_ = 1;
    return _c;
  }
  int_type _get();
  basic_istream &_get(_Ct &_c);

  streamsize _gcount_;
};

__extension__ extern template class PLX_API basic_istream<char, char_traits<char> >;

// What the operators below do. A character: failbit when there is none. A word: up to width() - 1 characters, if the
// width is positive, before white space, the end or a null character, which is taken, and a null character; the width
// is reset. An empty word gives failbit.
PLX_API istream &__zor_extract_char(istream &_in, char &_c);
PLX_API istream &__zor_extract_c_string(istream &_in, char *_to);

template <class _T> inline basic_istream<char, _T> &operator>>(basic_istream<char, _T> &_in, char &_c) {
  return __zor_extract_char(_in, _c);
}
template <class _T> inline basic_istream<char, _T> &operator>>(basic_istream<char, _T> &_in, signed char &_c) {
  return __zor_extract_char(_in, reinterpret_cast<char &>(_c));
}
template <class _T> inline basic_istream<char, _T> &operator>>(basic_istream<char, _T> &_in, unsigned char &_c) {
  return __zor_extract_char(_in, reinterpret_cast<char &>(_c));
}
template <class _T> inline basic_istream<char, _T> &operator>>(basic_istream<char, _T> &_in, char *_to) {
  return __zor_extract_c_string(_in, _to);
}
template <class _T> inline basic_istream<char, _T> &operator>>(basic_istream<char, _T> &_in, signed char *_to) {
  return __zor_extract_c_string(_in, reinterpret_cast<char *>(_to));
}
template <class _T> inline basic_istream<char, _T> &operator>>(basic_istream<char, _T> &_in, unsigned char *_to) {
  return __zor_extract_c_string(_in, reinterpret_cast<char *>(_to));
}

// Drops white space (27.6.1.4). The end gives eofbit. A stream that is not good is left alone.
template <class _Ct, class _T> PLX_API basic_istream<_Ct, _T> &ws(basic_istream<_Ct, _T> &_in);
template <> PLX_API istream &ws(istream &_in);

}  // namespace std

#endif

// The string streams (1998, 27.7.2 to 27.7.4): streams that hold a basic_stringbuf.
//
// The constructors take the buffer's mode, to which an input stream adds in and an output stream out, and the text that
// the buffer begins with; they may throw bad_alloc.
#ifndef PLX_SSTREAM_H
#define PLX_SSTREAM_H

#include <plx/iostream/basic_iostream.h>
#include <plx/iostream/stringbuf.h>

namespace std {

template <class _Ct, class _T, class _A> class PLX_API basic_istringstream : public basic_istream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  explicit basic_istringstream(ios_base::openmode _mode = ios_base::in);
  explicit basic_istringstream(const basic_string<_Ct, _T, _A> &_text, ios_base::openmode _mode = ios_base::in);
  virtual ~basic_istringstream();

  basic_stringbuf<_Ct, _T, _A> *rdbuf() const PLX_NOTHROW {
    return const_cast<basic_stringbuf<_Ct, _T, _A> *>(&_buffer_);
  }

  // All characters, read or not; and new ones, to be read from the first. Both may throw bad_alloc, and neither touches
  // the stream's state.
  basic_string<_Ct, _T, _A> str() const { return _buffer_.str(); }
  void str(const basic_string<_Ct, _T, _A> &_text) { _buffer_.str(_text); }

private:
  friend struct __zor::_stream_access;
  basic_stringbuf<_Ct, _T, _A> _buffer_;
};

template <class _Ct, class _T, class _A> class PLX_API basic_ostringstream : public basic_ostream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  explicit basic_ostringstream(ios_base::openmode _mode = ios_base::out);
  explicit basic_ostringstream(const basic_string<_Ct, _T, _A> &_text, ios_base::openmode _mode = ios_base::out);
  virtual ~basic_ostringstream();

  basic_stringbuf<_Ct, _T, _A> *rdbuf() const PLX_NOTHROW {
    return const_cast<basic_stringbuf<_Ct, _T, _A> *>(&_buffer_);
  }

  // All characters; and new ones, to be overwritten from the first.
  basic_string<_Ct, _T, _A> str() const { return _buffer_.str(); }
  void str(const basic_string<_Ct, _T, _A> &_text) { _buffer_.str(_text); }

private:
  friend struct __zor::_stream_access;
  basic_stringbuf<_Ct, _T, _A> _buffer_;
};

// Both ways, with a read and a write position, when the mode has both bits; it is passed on as it is.
template <class _Ct, class _T, class _A> class PLX_API basic_stringstream : public basic_iostream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  explicit basic_stringstream(ios_base::openmode _mode = ios_base::in | ios_base::out);
  explicit basic_stringstream(const basic_string<_Ct, _T, _A> &_text,
                              ios_base::openmode _mode = ios_base::in | ios_base::out);
  virtual ~basic_stringstream();

  basic_stringbuf<_Ct, _T, _A> *rdbuf() const PLX_NOTHROW {
    return const_cast<basic_stringbuf<_Ct, _T, _A> *>(&_buffer_);
  }

  // All characters; and new ones, with both positions before the first.
  basic_string<_Ct, _T, _A> str() const { return _buffer_.str(); }
  void str(const basic_string<_Ct, _T, _A> &_text) { _buffer_.str(_text); }

private:
  friend struct __zor::_stream_access;
  basic_stringbuf<_Ct, _T, _A> _buffer_;
};

__extension__ extern template class PLX_API basic_istringstream<char, char_traits<char>, allocator<char> >;
__extension__ extern template class PLX_API basic_ostringstream<char, char_traits<char>, allocator<char> >;
__extension__ extern template class PLX_API basic_stringstream<char, char_traits<char>, allocator<char> >;

}  // namespace std

#endif

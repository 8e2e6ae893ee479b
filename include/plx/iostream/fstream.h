// The file streams (1998, 27.8.1.5 to 27.8.1.13): streams that own a file buffer. What differs from the 1998 classes on
// purpose: open clears the state when it succeeds, and the constructor of basic_fstream reads and writes (below).
#ifndef PLX_FSTREAM_H
#define PLX_FSTREAM_H

#include <plx/iostream/basic_iostream.h>
#include <plx/iostream/filebuf.h>

namespace std {

template <class _Ct, class _T> class PLX_API basic_ifstream : public basic_istream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  basic_ifstream();

  // As open.
  explicit basic_ifstream(const char *_path, ios_base::openmode _mode = ios_base::in);
  virtual ~basic_ifstream();

  basic_filebuf<_Ct, _T> *rdbuf() const PLX_NOTHROW { return const_cast<basic_filebuf<_Ct, _T> *>(&_buffer_); }
  bool is_open() const PLX_NOTHROW { return _buffer_.is_open(); }

  // Opens with `in` added to the mode, as basic_filebuf::open does; failbit when that fails, a good state when not.
  // Throws failure when exceptions() asks for it, and nothing else.
  void open(const char *_path, ios_base::openmode _mode = ios_base::in);

  // failbit when no file is open, or when not everything could be written. Throws as open does.
  void close();

private:
  basic_filebuf<_Ct, _T> _buffer_;
};

template <class _Ct, class _T> class PLX_API basic_ofstream : public basic_ostream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  // As those of basic_ifstream, with `out`.
  basic_ofstream();
  explicit basic_ofstream(const char *_path, ios_base::openmode _mode = ios_base::out);
  virtual ~basic_ofstream();
  basic_filebuf<_Ct, _T> *rdbuf() const PLX_NOTHROW { return const_cast<basic_filebuf<_Ct, _T> *>(&_buffer_); }
  bool is_open() const PLX_NOTHROW { return _buffer_.is_open(); }
  void open(const char *_path, ios_base::openmode _mode = ios_base::out);
  void close();

private:
  basic_filebuf<_Ct, _T> _buffer_;
};

// One position serves reading and writing, and either may follow the other at once.
template <class _Ct, class _T> class PLX_API basic_fstream : public basic_iostream<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  basic_fstream();

  // Opens for both, with `in | out` added to the mode; when that cannot be, as open does.
  explicit basic_fstream(const char *_path, ios_base::openmode _mode = ios_base::in | ios_base::out);
  virtual ~basic_fstream();
  basic_filebuf<_Ct, _T> *rdbuf() const PLX_NOTHROW { return const_cast<basic_filebuf<_Ct, _T> *>(&_buffer_); }
  bool is_open() const PLX_NOTHROW { return _buffer_.is_open(); }

  // As those of basic_ifstream, with the mode as it is.
  void open(const char *_path, ios_base::openmode _mode = ios_base::in | ios_base::out);
  void close();

private:
  basic_filebuf<_Ct, _T> _buffer_;
};

__extension__ extern template class PLX_API basic_ifstream<char, char_traits<char> >;
__extension__ extern template class PLX_API basic_ofstream<char, char_traits<char> >;
__extension__ extern template class PLX_API basic_fstream<char, char_traits<char> >;

}  // namespace std

#endif

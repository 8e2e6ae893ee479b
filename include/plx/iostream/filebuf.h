// basic_filebuf (1998, 27.8.1.1): a buffer over a C stream, FILE. It keeps no areas of its own: every operation goes to
// stdio, and buffering is stdio's, so that both may be used on one file in any order.
#ifndef PLX_FILEBUF_H
#define PLX_FILEBUF_H

#include <stdio.h>

#include <plx/streambuf/streambuf.h>

namespace std {

template <class _Ct, class _T> class PLX_API basic_filebuf : public basic_streambuf<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  basic_filebuf();

  // Over a file that is open already. It is closed by close() and at the end, unless it is stdin, stdout or stderr.
  // plx's own.
  explicit basic_filebuf(FILE *_file);
  virtual ~basic_filebuf();

  bool is_open() const PLX_NOTHROW { return _file_ != 0; }

  // Returns this, or null when a file is open, when the mode is none of the table's (1998, table 92), or when the file
  // cannot be opened. With ate the position is the end, or nothing is opened.
  basic_filebuf *open(const char *_path, ios_base::openmode _mode);

  // Returns this, or null when no file is open or not everything could be written; the file is closed in any case.
  basic_filebuf *close();

protected:
  virtual void imbue(const locale &_loc);
  virtual basic_streambuf<_Ct, _T> *setbuf(_Ct *_at, streamsize _n);
  virtual pos_type seekoff(off_type _off, ios_base::seekdir _way,
                           ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual pos_type seekpos(pos_type _pos, ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual int sync();
  virtual streamsize showmanyc();
  virtual streamsize xsgetn(_Ct *_to, streamsize _n);
  virtual int_type underflow();
  virtual int_type uflow();
  virtual int_type pbackfail(int_type _c = _T::eof());
  virtual streamsize xsputn(const _Ct *_from, streamsize _n);
  virtual int_type overflow(int_type _c = _T::eof());

private:
  friend struct __zor::buffer_access;

  FILE *_file_;             // null: closed
  short _mode_;             // as open was called with
  unsigned char _refills_;  // of stdio's buffer, one after the other; no more are counted than matter
  bool _write_error_;       // stdio refused characters, and nobody was told yet: sync and close will
};

__extension__ extern template class PLX_API basic_filebuf<char, char_traits<char> >;

}  // namespace std

#endif

// basic_streambuf (1998, 27.5): the channel under every stream.
//
//     get area   eback <= gptr <= egptr      characters to read; may be absent (null)
//     put area   pbase <= pptr <= epptr      room to write; may be absent (null)
//
// The public operations work on the areas as long as these last, and call the virtual ones when they are exhausted. A
// derived buffer overrides what it needs; what its operations throw passes through the public ones.
#ifndef PLX_STREAMBUF_H
#define PLX_STREAMBUF_H

#include <plx/streambuf/ios_base.h>
#include <plx/streambuf/stdio_window.h>

namespace __zor {
struct buffer_access;
}

namespace std {

template <class _Ct, class _T> class PLX_API basic_streambuf {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
  typedef typename __zor::plx_streams_use_only_the_standard_traits<_Ct, _T>::_type _checked_traits_type;

public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  virtual ~basic_streambuf();

  // The locale. pubimbue returns the one before.
  locale pubimbue(const locale &_loc);
  locale getloc() const PLX_NOTHROW { return _loc_; }

  basic_streambuf *pubsetbuf(_Ct *_at, streamsize _n) { return setbuf(_at, _n); }

  // Positions; -1 for failure.
  pos_type pubseekoff(off_type _off, ios_base::seekdir _way, ios_base::openmode _which = ios_base::in | ios_base::out) {
    return seekoff(_off, _way, _which);
  }
  pos_type pubseekpos(pos_type _pos, ios_base::openmode _which = ios_base::in | ios_base::out) {
    return seekpos(_pos, _which);
  }
  int pubsync() { return sync(); }  // -1 for failure

  // Reading. Characters are returned as unsigned char, and the end as eof, -1.
  streamsize in_avail() { return _gptr_ < _egptr_ ? static_cast<streamsize>(_egptr_ - _gptr_) : showmanyc(); }
  int_type snextc() { return _T::eq_int_type(sbumpc(), _T::eof()) ? _T::eof() : sgetc(); }
  int_type sbumpc() {
    const int_type _c = _take_ready();
    return __builtin_expect(_T::eq_int_type(_c, _T::eof()), false) ? uflow() : _c;
  }
  int_type sgetc() {
    if (_gptr_ < _egptr_) return _T::to_int_type(*_gptr_);
    const int_type _c = static_cast<int_type>(__zor::_stdio_window::_peek(this));
    return __builtin_expect(_T::eq_int_type(_c, _T::eof()), false) ? underflow() : _c;
  }
  streamsize sgetn(_Ct *_to, streamsize _n) { return xsgetn(_to, _n); }

  // Giving back: one character before the position, with or without saying which.
  int_type sputbackc(_Ct _c) {
    if (_eback_ < _gptr_ && _T::eq(_gptr_[-1], _c)) return _T::to_int_type(*--_gptr_);
    return pbackfail(_T::to_int_type(_c));
  }
  int_type sungetc() { return _eback_ < _gptr_ ? _T::to_int_type(*--_gptr_) : pbackfail(_T::eof()); }

  // Writing. eof, or a count short of n, for failure.
  int_type sputc(_Ct _c) {
    if (_pptr_ < _epptr_) {
      *_pptr_++ = _c;
      return _T::to_int_type(_c);
    }
    return overflow(_T::to_int_type(_c));
  }
  streamsize sputn(const _Ct *_from, streamsize _n) { return xsputn(_from, _n); }

protected:
  // Both areas absent, the default locale.
  basic_streambuf();

  _Ct *eback() const PLX_NOTHROW { return _eback_; }
  _Ct *gptr() const PLX_NOTHROW { return _gptr_; }
  _Ct *egptr() const PLX_NOTHROW { return _egptr_; }
  void gbump(int _n) PLX_NOTHROW { _gptr_ += _n; }
  void setg(_Ct *_begin, _Ct *_next, _Ct *_end) PLX_NOTHROW {
    _eback_ = _begin;
    _gptr_ = _next;
    _egptr_ = _end;
  }

  _Ct *pbase() const PLX_NOTHROW { return _pbase_; }
  _Ct *pptr() const PLX_NOTHROW { return _pptr_; }
  _Ct *epptr() const PLX_NOTHROW { return _epptr_; }
  void pbump(int _n) PLX_NOTHROW { _pptr_ += _n; }
  void setp(_Ct *_begin, _Ct *_end) PLX_NOTHROW {
    _pbase_ = _begin;
    _pptr_ = _begin;
    _epptr_ = _end;
  }

  // What derived buffers override, with what these here do.
  virtual void imbue(const locale &_loc);                          // nothing
  virtual basic_streambuf *setbuf(_Ct *_at, streamsize _n);        // returns this
  virtual pos_type seekoff(off_type _off, ios_base::seekdir _way,  // fails
                           ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual pos_type seekpos(pos_type _pos,  // fails
                           ios_base::openmode _which = ios_base::in | ios_base::out);
  virtual int sync();                                          // returns 0
  virtual streamsize showmanyc();                              // returns 0
  virtual streamsize xsgetn(_Ct *_to, streamsize _n);          // from the get area, then by uflow, in turns
  virtual int_type underflow();                                // eof
  virtual int_type uflow();                                    // underflow, and steps over the character
  virtual int_type pbackfail(int_type _c = _T::eof());         // eof
  virtual streamsize xsputn(const _Ct *_from, streamsize _n);  // to the put area, then by overflow, in turns
  virtual int_type overflow(int_type _c = _T::eof());          // eof

  locale _loc_;

private:
  friend struct __zor::buffer_access;
  friend struct __zor::_quick_output;
  friend class basic_istream<_Ct, _T>;
  basic_streambuf(const basic_streambuf &);
  basic_streambuf &operator=(const basic_streambuf &);

  // The next character, if that can be taken without a virtual call; else eof.
  int_type _take_ready() {
    return _gptr_ < _egptr_ ? _T::to_int_type(*_gptr_++) : static_cast<int_type>(__zor::_stdio_window::_take(this));
  }

  _Ct *_eback_;
  _Ct *_gptr_;
  _Ct *_egptr_;
  _Ct *_pbase_;
  _Ct *_pptr_;
  _Ct *_epptr_;
};

__extension__ extern template class PLX_API basic_streambuf<char, char_traits<char> >;

}  // namespace std

#endif

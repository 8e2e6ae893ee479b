// basic_ios (1998, 27.4.4): the state, buffer, tie and fill of a stream; the virtual base of all streams.
#ifndef PLX_BASIC_IOS_H
#define PLX_BASIC_IOS_H

#include <plx/facets/ctype.h>
#include <plx/streambuf/ios_base.h>
#include <plx/streambuf/streambuf.h>

namespace std {

template <class _Ct, class _T> class PLX_API basic_ios : public ios_base {
  typedef typename __zor::plx_supports_only_char_as_character_type<_Ct>::_type _checked_character_type;
  typedef typename __zor::plx_streams_use_only_the_standard_traits<_Ct, _T>::_type _checked_traits_type;

public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  // A stream without a buffer is in state badbit.
  explicit basic_ios(basic_streambuf<_Ct, _T> *_buffer) { init(_buffer); }
  virtual ~basic_ios() {}

  // True while neither failbit nor badbit is set.
  operator void *() const PLX_NOTHROW { return fail() ? 0 : const_cast<basic_ios *>(this); }
  bool operator!() const PLX_NOTHROW { return fail(); }

  // The state. What sets it throws failure when it then holds a bit of exceptions(), and adds badbit when there is no
  // buffer.
  iostate rdstate() const PLX_NOTHROW { return _state_; }
  void clear(iostate _state = goodbit) {
    _state_ = _sb_ ? _state : _state | badbit;
    if (_state_ & _exceptions_ & 0xFFFF) throwfailure();
  }
  void setstate(iostate _bits) { clear(_state_ | _bits); }
  bool good() const PLX_NOTHROW { return _state_ == goodbit; }
  bool eof() const PLX_NOTHROW { return (_state_ & eofbit) != 0; }
  bool fail() const PLX_NOTHROW { return (_state_ & (failbit | badbit)) != 0; }
  bool bad() const PLX_NOTHROW { return (_state_ & badbit) != 0; }
  iostate exceptions() const PLX_NOTHROW { return _exceptions_; }
  void exceptions(iostate _mask) {
    _exceptions_ = _mask;
    clear(_state_);
  }

  // The stream flushed before every operation of this one, or null.
  basic_ostream<_Ct, _T> *tie() const PLX_NOTHROW { return _tie_; }
  basic_ostream<_Ct, _T> *tie(basic_ostream<_Ct, _T> *_stream) PLX_NOTHROW {
    basic_ostream<_Ct, _T> *const _old = _tie_;
    _tie_ = _stream;
    return _old;
  }

  basic_streambuf<_Ct, _T> *rdbuf() const PLX_NOTHROW { return _sb_; }
  basic_streambuf<_Ct, _T> *rdbuf(basic_streambuf<_Ct, _T> *_buffer) {
    basic_streambuf<_Ct, _T> *const _old = _sb_;
    _sb_ = _buffer;
    clear();
    return _old;
  }

  // Copies all but the buffer and the state (1998, 27.4.4.2): first the callbacks here hear erase_event, at the end
  // those that were copied hear copyfmt_event; exceptions() is copied last. Throws bad_alloc, with nothing changed.
  basic_ios &copyfmt(const basic_ios &_other) {
    if (this == &_other) return *this;
    _copy_format(_other);
    _tie_ = _other._tie_;
    _fill_ = _other._fill_;
    _call_callbacks(copyfmt_event);
    exceptions(_other._exceptions_);
    return *this;
  }

  _Ct fill() const PLX_NOTHROW { return _fill_; }
  _Ct fill(_Ct _c) PLX_NOTHROW {
    const _Ct _old = _fill_;
    _fill_ = _c;
    return _old;
  }

  // As ios_base's, and the buffer is told as well.
  locale imbue(const locale &_loc);

  // Through the stream's ctype facet. Without one: bad_cast, "Facet not present\n".
  char narrow(_Ct _c, char _instead) const { return use_facet<ctype<_Ct> >(_loc_).narrow(_c, _instead); }
  _Ct widen(char _c) const { return use_facet<ctype<_Ct> >(_loc_).widen(_c); }

protected:
  basic_ios() {}

  // Puts a stream into its first state: no tie, flags skipws and dec, width 0, precision 6, filled with blanks, the
  // default locale, good or, without a buffer, bad.
  void init(basic_streambuf<_Ct, _T> *_buffer);

private:
  friend struct __zor::_stream_access;
  friend struct __zor::_quick_output;
  basic_ios(const basic_ios &);
  basic_ios &operator=(const basic_ios &);

  basic_streambuf<_Ct, _T> *_sb_;
  basic_ostream<_Ct, _T> *_tie_;
  _Ct _fill_;
};

__extension__ extern template class PLX_API basic_ios<char, char_traits<char> >;

}  // namespace std

#endif

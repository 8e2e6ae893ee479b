// basic_ostream (1998, 27.6.2): values become characters on a stream's buffer.
//
// Every operation has the same frame. When the stream is not good, it gets failbit and nothing is written; otherwise a
// tied stream is flushed first. What a buffer or a facet throws is discarded and becomes badbit. With unitbuf the
// buffer is synchronised at the end, and -1 becomes badbit. An operation that leaves a bit of exceptions() set throws
// failure, and nothing else is ever thrown from one.
//
// Where it differs from the 1998 class on purpose: characters are never padded, a C string without an adjustment is
// padded behind, and what num_put could not write is not noticed. docs/deviations.md has the list.
#ifndef PLX_OSTREAM_H
#define PLX_OSTREAM_H

#include <plx/base/is_integer.h>
#include <plx/iostream/basic_ios.h>
#include <plx/streambuf/streambuf_iterators.h>

#if __cplusplus >= 201103L
#define PLX_MAY_THROW noexcept(false)
#else
#define PLX_MAY_THROW
#endif

namespace __zor {

// Single characters, which optimised programs put themselves: the stream is good, nothing is to be flushed before or
// after, and there is room in the buffer's put area or, for exactly a filebuf with the plain codecvt, in stdio's
// buffer. Everything else is left to the library, and so is all output of programs that are built for small size.
struct _quick_output {
  typedef std::basic_ios<char, std::char_traits<char> > _ios;

  // Whether nothing has to be done but writing. One branch for all; _more is anything else that must be zero.
  static bool _is_quiet(const _ios &_stream, long _more) {
    return !(_stream._state_ | (_stream._flags_ & std::ios_base::unitbuf) | reinterpret_cast<long>(_stream._tie_) |
             _more);
  }

  // Whether the character was written.
  static bool _put(_ios &_stream, char _c, bool _resets_width) {
    if (!_is_quiet(_stream, 0)) return false;
    std::basic_streambuf<char, std::char_traits<char> > *const _buffer = _stream._sb_;
    if (_buffer->_pptr_ < _buffer->_epptr_) {
      *_buffer->_pptr_++ = _c;
    } else {
      if (!_stdio_window::_is_filebuf(_buffer) ||
          !(_buffer->_loc_._get_imp()->_get_quick() & std::locale::imp::_quick_codecvt))
        return false;
      _stdio_window::_file *const _stdio = _stdio_window::_file_of(_buffer);
      if (!_stdio || _stdio->_write_next_ >= _stdio->_write_end_) return false;
      *_stdio->_write_next_++ = _c;
    }
    if (_resets_width) _stream._width_ = 0;
    return true;
  }
};

}  // namespace __zor

namespace std {

// What the operations below do, put and the operators for characters, C strings and strings. Inserted characters are
// never padded, and what the buffer does not take is not noticed. A C string (null: an empty one) is padded to the
// width, in front when the adjustment is exactly right, and otherwise behind. A string is padded behind when the
// adjustment is exactly left, and otherwise in front (1998, 21.3.7.9). All but put reset the width.
PLX_API ostream &__zor_put_char(ostream &_out, char _c);
PLX_API ostream &__zor_insert_char(ostream &_out, char _c);
PLX_API ostream &__zor_insert_c_string(ostream &_out, const char *_text);
PLX_API ostream &__zor_insert_string(ostream &_out, const char *_text, streamsize _n);

#if defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__)
#define PLX_QUICK_PUT(_out, _c, _resets_width) __zor::_quick_output::_put(_out, _c, _resets_width)
#else
#define PLX_QUICK_PUT(_out, _c, _resets_width) false
#endif

template <class _Ct, class _T> class PLX_API basic_ostream : virtual public basic_ios<_Ct, _T> {
public:
  typedef _Ct char_type;
  typedef _T traits_type;
  typedef typename _T::int_type int_type;
  typedef typename _T::pos_type pos_type;
  typedef typename _T::off_type off_type;

  // On a buffer that stays the caller's. Without one the stream is bad.
  explicit basic_ostream(basic_streambuf<_Ct, _T> *_buffer);
  virtual ~basic_ostream() {}

  // The frame, for inserters that write to rdbuf() themselves: its beginning, whether they may write, and its end. The
  // end does not throw while an exception is on its way.
  class PLX_API sentry {
  public:
    explicit sentry(basic_ostream &_out);
    ~sentry() PLX_MAY_THROW;
    operator bool() const PLX_NOTHROW { return _ok_; }

  private:
    sentry(const sentry &);
    sentry &operator=(const sentry &);

    bool _ok_;
    basic_ostream &_out_;
  };

  // The frame's two ends as functions, of the time before the sentry: whether the stream is good once the tied one is
  // flushed; and the synchronisation for unitbuf. plx's own.
  bool opfx();
  void osfx();

  // Manipulators.
  basic_ostream &operator<<(basic_ostream &(*_f)(basic_ostream &)) { return _f(*this); }
  basic_ostream &operator<<(basic_ios<_Ct, _T> &(*_f)(basic_ios<_Ct, _T> &)) {
    _f(*this);
    return *this;
  }
  basic_ostream &operator<<(ios_base &(*_f)(ios_base &)) {
    _f(*this);
    return *this;
  }

  // Numbers, through the locale's num_put, which pads and resets the width. In octal and hexadecimal a short and an int
  // show their own bits. A locale without num_put gives badbit.
  basic_ostream &operator<<(bool _value);
  basic_ostream &operator<<(short _value);
  basic_ostream &operator<<(unsigned short _value);
  basic_ostream &operator<<(int _value);
  basic_ostream &operator<<(unsigned int _value);
  basic_ostream &operator<<(long _value);
  basic_ostream &operator<<(unsigned long _value);
  basic_ostream &operator<<(float _value);
  basic_ostream &operator<<(double _value);
  basic_ostream &operator<<(long double _value);
  basic_ostream &operator<<(const void *_value);

  // plx's own: num_put knows no such numbers. One that a long holds is written as a long, others by the same rules.
  basic_ostream &operator<<(__zor::_longest _value);
  basic_ostream &operator<<(__zor::unsigned_longest _value);

  // What the buffer still has to read. None at all gives failbit, and so does a null buffer.
  basic_ostream &operator<<(basic_streambuf<_Ct, _T> *_from);

  // As they are: width and padding have no part in it. What the buffer does not take gives badbit.
  basic_ostream &put(_Ct _c) { return PLX_QUICK_PUT(*this, _c, false) ? *this : __zor_put_char(*this, _c); }
  basic_ostream &write(const _Ct *_text, streamsize _n);

  // Synchronises the buffer; badbit when that fails.
  basic_ostream &flush();

  // The position to write at, -1 when the stream has failed or the buffer knows none; a move that the buffer refuses
  // gives failbit.
  pos_type tellp();
  basic_ostream &seekp(pos_type _pos);
  basic_ostream &seekp(off_type _off, ios_base::seekdir _way);

protected:
  basic_ostream() {}  // for classes that initialise the shared base themselves
};

__extension__ extern template class PLX_API basic_ostream<char, char_traits<char> >;

// _out->flush(), for those who only know the name of the class.
PLX_API void __zor_do_flush(ostream *_out);

template <class _T> inline basic_ostream<char, _T> &operator<<(basic_ostream<char, _T> &_out, char _c) {
  return PLX_QUICK_PUT(_out, _c, true) ? _out : __zor_insert_char(_out, _c);
}
template <class _T> inline basic_ostream<char, _T> &operator<<(basic_ostream<char, _T> &_out, signed char _c) {
  return _out << static_cast<char>(_c);
}
template <class _T> inline basic_ostream<char, _T> &operator<<(basic_ostream<char, _T> &_out, unsigned char _c) {
  return _out << static_cast<char>(_c);
}
template <class _T> inline basic_ostream<char, _T> &operator<<(basic_ostream<char, _T> &_out, const char *_text) {
  return __zor_insert_c_string(_out, _text);
}
template <class _T>
inline basic_ostream<char, _T> &operator<<(basic_ostream<char, _T> &_out, const signed char *_text) {
  return __zor_insert_c_string(_out, reinterpret_cast<const char *>(_text));
}
template <class _T>
inline basic_ostream<char, _T> &operator<<(basic_ostream<char, _T> &_out, const unsigned char *_text) {
  return __zor_insert_c_string(_out, reinterpret_cast<const char *>(_text));
}
template <class _Ct, class _T, class _A>
inline basic_ostream<_Ct, _T> &operator<<(basic_ostream<_Ct, _T> &_out, const basic_string<_Ct, _T, _A> &_text) {
  return __zor_insert_string(_out, _text.data(), static_cast<streamsize>(_text.size()));
}

// Manipulators (1998, 27.6.2.7). endl writes the stream's newline and flushes; without a ctype facet: bad_cast,
// "Facet not present\n".
template <class _Ct, class _T> basic_ostream<_Ct, _T> &endl(basic_ostream<_Ct, _T> &_out) {
  return _out.put(_out.widen('\n')).flush();
}
template <class _Ct, class _T> basic_ostream<_Ct, _T> &ends(basic_ostream<_Ct, _T> &_out) { return _out.put(_Ct()); }
template <class _Ct, class _T> basic_ostream<_Ct, _T> &flush(basic_ostream<_Ct, _T> &_out) { return _out.flush(); }

template <> PLX_API ostream &endl(ostream &_out);
template <> PLX_API ostream &ends(ostream &_out);
template <> PLX_API ostream &flush(ostream &_out);

}  // namespace std

#undef PLX_MAY_THROW
#undef PLX_QUICK_PUT

#endif

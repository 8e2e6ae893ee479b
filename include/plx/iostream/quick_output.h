// The quick ways of characters and texts, which optimised programs hold themselves: the stream is good, nothing is to
// be flushed before or after, no width is set, and there is room in the buffer's put area or, for exactly a filebuf
// with the plain codecvt, in stdio's buffer, which is used as the macro of putc_unlocked uses it. Everything else is
// left to the library, and so is all output of programs that are built for small size.
#ifndef PLX_QUICK_OUTPUT_H
#define PLX_QUICK_OUTPUT_H

#include <plx/iostream/basic_ios.h>

namespace __zor {

// The virtual tables; objects point behind the two leading words. A static program that has no stringbuf gets none by
// this.
extern PLX_API const void *const _filebuf_table[] __asm__("_ZTVSt13basic_filebufIcSt11char_traitsIcEE");
extern PLX_API __attribute__((__weak__))
const void *const _stringbuf_table[] __asm__("_ZTVSt15basic_stringbufIcSt11char_traitsIcESaIcEE");

struct _quick_output {
  typedef std::basic_ios<char, std::char_traits<char> > _ios;
  typedef std::basic_streambuf<char, std::char_traits<char> > _streambuf;

  // What FILE begins with in programs of any age, since the C library's macros are built into them.
  struct __attribute__((__may_alias__)) _file {
    int _flags_;
    char *_read_next_, *_read_end_, *_read_begin_, *_write_begin_, *_write_next_, *_write_end_;
  };
  // What a filebuf begins with. Seen through this type, a virtual table pointer that the constructor of a derived class
  // has just set is not mistaken for an older one.
  struct __attribute__((__may_alias__)) _start {
    const void *const *_table_;
    void *_fields_[7];
    _file *_file_;
  };
  static const _start *_start_of(const _streambuf *_buffer) { return reinterpret_cast<const _start *>(_buffer); }

  // The file of a filebuf that hands its characters to stdio as they are, or null.
  static _file *_plain_file(const _streambuf *_buffer) {
    if (_start_of(_buffer)->_table_ != _filebuf_table + 2 ||
        !(_buffer->_loc_._get_imp()->_get_quick() & std::locale::imp::_quick_codecvt))
      return 0;
    return _start_of(_buffer)->_file_;
  }

  // Whether nothing has to be done but writing. One branch for all; _more is anything else that must be zero.
  static bool _is_quiet(const _ios &_stream, long _more) {
    return !(_stream._state_ | (_stream._flags_ & std::ios_base::unitbuf) | reinterpret_cast<long>(_stream._tie_) |
             _more);
  }

  // Whether the character was written.
  static bool _put(_ios &_stream, char _c, bool _resets_width) {
    if (!_is_quiet(_stream, 0)) return false;
    _streambuf *const _buffer = _stream._sb_;
    if (_buffer->_pptr_ < _buffer->_epptr_) {
      *_buffer->_pptr_++ = _c;
    } else {
      _file *const _stdio = _plain_file(_buffer);
      if (!_stdio || _stdio->_write_next_ >= _stdio->_write_end_) return false;
      *_stdio->_write_next_++ = _c;
    }
    if (_resets_width) _stream._width_ = 0;
    return true;
  }

  // Whether the text of _n characters (not negative) was written. A put area is used without asking its buffer only
  // where _any_area says that the program expects no block, or in a stringbuf.
  PLX_ALWAYS_INLINE static bool _write(_ios &_stream, const char *_text, long _n, bool _any_area) {
    if (!_is_quiet(_stream, _stream._width_)) return false;
    _streambuf *const _buffer = _stream._sb_;
    char **_next = &_buffer->_pptr_;
    if (_buffer->_epptr_ - *_next < _n || !(_any_area || _start_of(_buffer)->_table_ == _stringbuf_table + 2)) {
      _file *const _stdio = _plain_file(_buffer);
      if (!_stdio || _stdio->_write_end_ - _stdio->_write_next_ < _n) return false;
      _next = &_stdio->_write_next_;
    }
    char *const _at = *_next;
    *_next = _at + _n;
    _copy(_at, _text, static_cast<unsigned int>(_n));
    return true;
  }

  // Most texts are shorter than a call of memcpy is worth.
  PLX_ALWAYS_INLINE static void _copy(char *_to, const char *_from, unsigned int _n) {
    if (_n > 32) {
      __builtin_memcpy(_to, _from, _n);
    } else if (_n >= 8) {
      _copy_eight(_to, _from);
      if (_n > 16) {
        _copy_eight(_to + 8, _from + 8);
        _copy_eight(_to + _n - 16, _from + _n - 16);
      }
      _copy_eight(_to + _n - 8, _from + _n - 8);
    } else if (_n >= 4) {
      __builtin_memcpy(_to, _from, 4);
      __builtin_memcpy(_to + _n - 4, _from + _n - 4, 4);
    } else if (_n) {
      _to[0] = _from[0];
      _to[_n / 2] = _from[_n / 2];
      _to[_n - 1] = _from[_n - 1];
    }
  }
  static void _copy_eight(char *_to, const char *_from) {
    __builtin_memcpy(_to, _from, 4);
    __builtin_memcpy(_to + 4, _from + 4, 4);
  }
};

}  // namespace __zor

#endif

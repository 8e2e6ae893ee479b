// The quick way of a single character, which optimised programs take without a call: the stream is good, nothing is to
// be flushed before or after, and there is room in the buffer's put area or, for exactly a filebuf with the plain
// codecvt, in stdio's buffer, which is used as the macro of putc_unlocked uses it. Everything else is left to the
// library, and so are all characters by programs that are built for small size.
#ifndef PLX_PUT_CHARACTER_H
#define PLX_PUT_CHARACTER_H

#include <plx/basic_ios.h>

namespace __zor {

// The virtual table of a filebuf; its objects point behind the two leading words.
extern PLX_API const void *const _filebuf_table[] __asm__("_ZTVSt13basic_filebufIcSt11char_traitsIcEE");

struct _put_access {
  // What FILE begins with in programs of any age, since the C library's macros are built into them.
  struct __attribute__((__may_alias__)) _file {
    int _flags_;
    char *_read_next_, *_read_end_, *_read_begin_, *_write_begin_, *_write_next_, *_write_end_;
  };
  // What a filebuf begins with. Seen through this type, a virtual table pointer that the constructor of a derived class
  // has just set is not mistaken for an older one.
  struct __attribute__((__may_alias__)) _file_buffer {
    const void *const *_table_;
    void *_fields_[7];
    _file *_file_;
  };

  // Whether the character was written.
  static bool _at_once(std::basic_ios<char, std::char_traits<char> > &_stream, char _c, bool _resets_width) {
    if (_stream._state_ | (_stream._flags_ & std::ios_base::unitbuf) | reinterpret_cast<int>(_stream._tie_))
      return false;
    std::basic_streambuf<char, std::char_traits<char> > *const _buffer = _stream._sb_;
    if (_buffer->_pptr_ < _buffer->_epptr_) {
      *_buffer->_pptr_++ = _c;
    } else {
      const _file_buffer *const _start = reinterpret_cast<const _file_buffer *>(_buffer);
      if (_start->_table_ != _filebuf_table + 2 ||
          !(_buffer->_loc_._get_imp()->_get_quick() & std::locale::imp::_quick_codecvt))
        return false;
      _file *const _stdio = _start->_file_;
      if (!_stdio || _stdio->_write_next_ >= _stdio->_write_end_) return false;
      *_stdio->_write_next_++ = _c;
    }
    if (_resets_width) _stream._width_ = 0;
    return true;
  }
};

}  // namespace __zor

#if defined(__OPTIMIZE__) && !defined(__OPTIMIZE_SIZE__)
#define PLX_PUT_AT_ONCE(_stream, _c, _resets_width) __zor::_put_access::_at_once(_stream, _c, _resets_width)
#else
#define PLX_PUT_AT_ONCE(_stream, _c, _resets_width) false
#endif

#endif

// What programs know of the C library's FILE and of a filebuf: where stdio has characters ready, or room for more. They
// take and put single characters there themselves, as the macros of getc_unlocked and putc_unlocked do, when the buffer
// is exactly a filebuf. iostream/windows.h compares the layout with the C library's.
#ifndef PLX_STDIO_WINDOW_H
#define PLX_STDIO_WINDOW_H

#include <plx/base/config.h>

namespace __zor {

// The vtable of a filebuf; its objects point behind the two leading words.
extern PLX_API const void *const _filebuf_table[] __asm__("_ZTVSt13basic_filebufIcSt11char_traitsIcEE");

struct _stdio_window {
  // What FILE begins with in programs of any age, since the C library's macros are built into them.
  struct __attribute__((__may_alias__)) _file {
    int _flags_;
    char *_read_next_, *_read_end_, *_read_begin_, *_write_begin_, *_write_next_, *_write_end_;
  };
  // What a filebuf begins with. may_alias: a constructor's store of the vtable pointer is not reordered past this.
  struct __attribute__((__may_alias__)) _start {
    const void *const *_table_;
    void *_fields_[7];
    _file *_file_;
  };

  static bool _is_filebuf(const void *_buffer) PLX_NOTHROW {
    return static_cast<const _start *>(_buffer)->_table_ == _filebuf_table + 2;
  }
  static _file *_file_of(const void *_filebuf) PLX_NOTHROW { return static_cast<const _start *>(_filebuf)->_file_; }

  // The next character, which stays, or is taken. -1: ask the buffer.
  static int _peek(const void *_buffer) PLX_NOTHROW {
    const _file *const _stdio = _ready_file(_buffer);
    return _stdio ? static_cast<unsigned char>(*_stdio->_read_next_) : -1;
  }
  static int _take(const void *_buffer) PLX_NOTHROW {
    _file *const _stdio = _ready_file(_buffer);
    return _stdio ? static_cast<unsigned char>(*_stdio->_read_next_++) : -1;
  }

private:
  // The file of a filebuf where stdio has a character ready; or null.
  static _file *_ready_file(const void *_buffer) PLX_NOTHROW {
    if (__builtin_expect(!_is_filebuf(_buffer), false)) return 0;
    _file *const _stdio = _file_of(_buffer);
    return __builtin_expect(_stdio && _stdio->_read_next_ < _stdio->_read_end_, true) ? _stdio : 0;
  }
};

}  // namespace __zor

#endif

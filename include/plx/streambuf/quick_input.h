// The quick way of single characters of files, which programs hold themselves: what stdio has ready for exactly a
// filebuf is taken from its buffer, as the macro of getc_unlocked takes it. The rest is left to the virtual operations.
#ifndef PLX_QUICK_INPUT_H
#define PLX_QUICK_INPUT_H

#include <plx/base/config.h>

namespace __zor {

// The virtual table of a filebuf; its objects point behind the two leading words.
extern PLX_API const void *const _filebuf_table[] __asm__("_ZTVSt13basic_filebufIcSt11char_traitsIcEE");

struct _quick_input {
  // What FILE begins with in programs of any age, since the C library's macros are built into them.
  struct __attribute__((__may_alias__)) _file {
    int _flags_;
    const char *_next_, *_end_;
  };
  // What a filebuf begins with. Seen through this type, a virtual table pointer that the constructor of a derived class
  // has just set is not mistaken for an older one.
  struct __attribute__((__may_alias__)) _start {
    const void *const *_table_;
    void *_fields_[7];
    _file *_file_;
  };

  // The file of a filebuf where stdio has a character ready; or null.
  static _file *_ready_file(const void *_buffer) PLX_NOTHROW {
    const _start *const _at = static_cast<const _start *>(_buffer);
    if (__builtin_expect(_at->_table_ != _filebuf_table + 2, false)) return 0;
    _file *const _stdio = _at->_file_;
    return __builtin_expect(_stdio && _stdio->_next_ < _stdio->_end_, true) ? _stdio : 0;
  }

  // The next character, which stays, or is taken. -1: ask the buffer.
  static int _peek(const void *_buffer) PLX_NOTHROW {
    const _file *const _stdio = _ready_file(_buffer);
    return _stdio ? static_cast<unsigned char>(*_stdio->_next_) : -1;
  }
  static int _take(const void *_buffer) PLX_NOTHROW {
    _file *const _stdio = _ready_file(_buffer);
    return _stdio ? static_cast<unsigned char>(*_stdio->_next_++) : -1;
  }
};

}  // namespace __zor

#endif

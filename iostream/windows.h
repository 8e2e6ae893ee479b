// Windows: the part of a buffer's characters, or of its room, that can be used at once, without a call that might throw
// or fail. They make the streams' quick paths.
//
//     get window   the get area, or for a buffer over a file what stdio holds ready      what getc_unlocked would take
//     put window   the put area, or for a buffer over a file the room in stdio's buffer  what putc_unlocked would fill
//                  or for a string buffer the room in its block
//
// The cursor is moved once, when the operation is done. A class derived from one of these buffers may override
// anything, so only objects of exactly the library's class are looked into.
#pragma once

#include <stdio.h>

#include <plx/iostream/filebuf.h>
#include <plx/iostream/quick_output.h>

#include "access.h"

namespace __zor {

// The virtual table pointer of an object points behind the table's two leading words.
inline bool is_plain_filebuf(const std::streambuf *buffer) {
  return *reinterpret_cast<const void *const *const *>(buffer) == _filebuf_table + 2;
}

inline bool is_plain_stringbuf(const std::streambuf *buffer) {
  return *reinterpret_cast<const void *const *const *>(buffer) == _stringbuf_table + 2;
}

struct get_window {
  const char *at, *end;
  char **cursor;
  void take_up_to(const char *next) const { *cursor = const_cast<char *>(next); }
};

struct put_window {
  char *at, *end;
  char **cursor;
  void filled_up_to(char *next) const { *cursor = next; }
};

// The same as below, of a string buffer whose get area is hidden or empty.
inline bool open_string_window(std::stringbuf &buffer, get_window &window) {
  if (_buffer_access::is_settled(buffer)) return false;
  _buffer_access::settle(buffer);
  char *&gptr = _buffer_access::gptr(buffer), *const egptr = _buffer_access::egptr(buffer);
  window = {gptr, egptr, &gptr};
  return gptr < egptr;
}

// The array of a character-array buffer may have no known end. What reads several bytes at once must then not read
// ahead of what is asked for: the next page of memory may be missing.
inline bool is_endless(const get_window &window) {
  return window.end == reinterpret_cast<const char *>(-1) || window.end - window.at > 0x3FFFFFFF;
}

// Opens a window of at least one character; false when there is none.
inline bool open_get_window(std::streambuf *buffer, get_window &window) {
  char *&gptr = _buffer_access::gptr(*buffer), *const egptr = _buffer_access::egptr(*buffer);
  if (gptr < egptr) {
    window = {gptr, egptr, &gptr};
    return true;
  }
  if (!is_plain_filebuf(buffer))
    return is_plain_stringbuf(buffer) && open_string_window(static_cast<std::stringbuf &>(*buffer), window);
  FILE *const file = _buffer_access::file(*buffer);
  if (!file || file->_IO_read_ptr >= file->_IO_read_end) return false;
  window = {file->_IO_read_ptr, file->_IO_read_end, &file->_IO_read_ptr};
  return true;
}

// Opens a window with room for n characters; false when there is none.
inline bool open_put_window(std::streambuf *buffer, int n, put_window &window) {
  char *&pptr = _buffer_access::pptr(*buffer), *const epptr = _buffer_access::epptr(*buffer);
  if (epptr - pptr >= n) {
    window = {pptr, epptr, &pptr};
    return true;
  }
  if (is_plain_stringbuf(buffer)) {
    // Whoever opens the window goes on to write.
    if (!_buffer_access::make_room(static_cast<std::stringbuf &>(*buffer), n)) return false;
    window = {pptr, _buffer_access::epptr(*buffer), &pptr};
    return true;
  }
  if (!is_plain_filebuf(buffer) ||
      !(_buffer_access::loc(*buffer)._get_imp()->_get_quick() & std::locale::imp::_quick_codecvt))
    return false;
  FILE *const file = _buffer_access::file(*buffer);
  if (!file || file->_IO_write_end - file->_IO_write_ptr < n) return false;
  window = {file->_IO_write_ptr, file->_IO_write_end, &file->_IO_write_ptr};
  return true;
}

}  // namespace __zor

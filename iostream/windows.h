// Windows: the part of a buffer's characters, or of its room, that can be used at once, without a call that might throw
// or fail. Every inserter and extractor begins with one; the frame of operation.h is for what goes wrong here.
//
//     get window   the get area, or for a buffer over a file what stdio holds ready      what getc_unlocked would take
//     put window   the put area, or for a buffer over a file the room in stdio's buffer  what putc_unlocked would fill
//                  or for a string buffer the room in its block
//
//     const char *at, *end;              char *at;
//     if (window.open(buffer)) {         if (window.open<put_text>(buffer, n)) {
//       ... read from window.at          ... write at window.at, up to n characters
//       window.take_up_to(next);         window.commit(next);
//     }                                  }
//
// The cursor is moved once, when the operation is done. A class derived from one of these buffers may override
// anything, so only objects of exactly the library's class are looked into; the vtable pointer tells. Here, and in the
// public header that programs hold, is all that streams know of vtables and of the inside of FILE.
#pragma once

#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include <plx/iostream/filebuf.h>
#include <plx/streambuf/stdio_window.h>

#include "../libC/i386/short_copy.h"
#include "../locale/plain_facets.h"
#include "access.h"
#include "stdio_file.h"

namespace __zor {

static_assert(offsetof(_stdio_window::_file, _read_next_) == offsetof(FILE, _IO_read_ptr) &&
                  offsetof(_stdio_window::_file, _read_end_) == offsetof(FILE, _IO_read_end) &&
                  offsetof(_stdio_window::_file, _write_next_) == offsetof(FILE, _IO_write_ptr) &&
                  offsetof(_stdio_window::_file, _write_end_) == offsetof(FILE, _IO_write_end) &&
                  offsetof(_stdio_window::_start, _file_) == sizeof(std::streambuf),
              "what programs know of FILE and filebuf");

// Weak: a static program that has no stringbuf gets none by this.
extern PLX_API __attribute__((__weak__))
const void *const _stringbuf_table[] __asm__("_ZTVSt15basic_stringbufIcSt11char_traitsIcESaIcEE");

// Exactly one of the library's buffers: its operations throw nothing but for want of memory, and nobody sees which are
// called.
inline bool is_plain_filebuf(const std::streambuf *buffer) { return _stdio_window::_is_filebuf(buffer); }
inline bool is_plain_stringbuf(const std::streambuf *buffer) {
  return reinterpret_cast<const _stdio_window::_start *>(buffer)->_table_ == _stringbuf_table + 2;
}
inline bool is_plain_buffer(const std::streambuf *buffer) {
  return is_plain_filebuf(buffer) || is_plain_stringbuf(buffer);
}

// The file under a buffer that hands its characters to stdio as they are, or null.
inline FILE *plain_file(std::streambuf *buffer) {
  return is_plain_filebuf(buffer) && has_plain_codecvt(buffer_access::loc(*buffer)) ? buffer_access::file(*buffer)
                                                                                    : nullptr;
}

// ---- Reading -------------------------------------------------------------------------------------------------------

struct get_window {
  const char *at, *end;

  // Opens a window of at least one character; false when there is none.
  bool open(std::streambuf *buffer) {
    if (open_area(*buffer)) return true;
    if (is_plain_filebuf(buffer)) {
      FILE *const file = buffer_access::file(*buffer);
      if (!file || file->_IO_read_ptr >= file->_IO_read_end) return false;
      set(file->_IO_read_ptr, file->_IO_read_end);
      return true;
    }
    // The get area of a string buffer that is being written is hidden.
    if (!is_plain_stringbuf(buffer)) return false;
    std::stringbuf &text = static_cast<std::stringbuf &>(*buffer);
    if (buffer_access::is_settled(text)) return false;
    buffer_access::settle(text);
    return open_area(*buffer);
  }

  void take_up_to(const char *next) const { *cursor_ = const_cast<char *>(next); }
  void take() const { take_up_to(end); }

  // Where the buffer stands: `at` may have been moved on.
  char *&cursor() const { return *cursor_; }

  // The array of a character-array buffer may have no known end. What reads several bytes at once must then not read
  // ahead of what is asked for: the next page of memory may be missing.
  bool is_endless() const { return end == reinterpret_cast<const char *>(-1) || end - at > 0x3FFFFFFF; }

private:
  void set(char *&next, const char *last) {
    at = next;
    end = last;
    cursor_ = &next;
  }
  bool open_area(std::streambuf &buffer) {
    char *&next = buffer_access::gptr(buffer), *const last = buffer_access::egptr(buffer);
    if (next >= last) return false;
    set(next, last);
    return true;
  }

  char **cursor_;
};

// ---- Writing -------------------------------------------------------------------------------------------------------

enum a_put_use {
  put_text,    // into any put area: nothing is written there but what is committed
  put_block,   // the same, but derived buffers expect a call of xsputn: only into those of the library
  put_scratch  // anything may be written behind what is committed: only where nothing is that counts
};

struct put_window {
  char *at, *end;
  FILE *full;  // when no window could be opened: the file whose buffer has no room, or null

  // Opens a window with room for n characters, if it is there; false when it is not. In stdio's buffer it is never all
  // that is left: blocks as large as that buffer go round it.
  template <a_put_use use> [[gnu::always_inline]] bool open_ready(std::streambuf *buffer, int n) {
    full = nullptr;
    if (use == put_text) {
      if (open_area(*buffer, n)) return true;
    } else if (is_plain_stringbuf(buffer)) {
      return open_area(*buffer, n) &&
             (use == put_block || buffer_access::is_at_end(static_cast<std::stringbuf &>(*buffer)));
    }
    FILE *const file = plain_file(buffer);
    if (!file) return false;
    full = file;
    if (file->_IO_write_end - file->_IO_write_ptr <= n) return false;
    set(file->_IO_write_ptr, file->_IO_write_end);
    return true;
  }
  // The same, and a string buffer makes room.
  template <a_put_use use> [[gnu::always_inline]] bool open(std::streambuf *buffer, int n) {
    return open_ready<use>(buffer, n) ||
           (!full && is_plain_stringbuf(buffer) &&
            buffer_access::make_room(static_cast<std::stringbuf &>(*buffer), n) && open_area(*buffer, n));
  }

  void commit(char *next) const { *cursor_ = next; }

private:
  void set(char *&next, char *last) {
    at = next;
    end = last;
    cursor_ = &next;
  }
  bool open_area(std::streambuf &buffer, int n) {
    char *&next = buffer_access::pptr(buffer), *const last = buffer_access::epptr(buffer);
    if (last - next < n) return false;
    set(next, last);
    return true;
  }

  char **cursor_;
};

// Writes a text at once, into the window or, where stdio's buffer is full, through stdio.
enum a_put_result { put_done, put_refused, put_not_fast };
template <a_put_use use>
[[gnu::always_inline]] inline a_put_result put_fast(std::streambuf *buffer, const char *text, int n) {
  put_window window;
  if (window.open<use>(buffer, n)) {
    copy_characters(window.at, text, static_cast<unsigned>(n));
    window.commit(window.at + n);
    return put_done;
  }
  if (!window.full) return put_not_fast;
  return write_slow(window.full, text, n) == n ? put_done : put_refused;
}

// Inserters of numbers, characters and C strings do not notice what a buffer refuses, and stdio forgets what it could
// not write: a file's buffer keeps it in mind for flush and close. A file that is only read loses nothing.
inline void keep_refusal(std::streambuf *buffer) {
  std::filebuf &over = static_cast<std::filebuf &>(*buffer);
  if (__fwritable(buffer_access::file(over))) buffer_access::keep_write_error(over);
}

// Moves what lies ready in one buffer and has room in the other, up to `delim`. Returns how many characters; 0: none
// can be moved without a call.
inline int move_ready(std::streambuf *from, std::streambuf *to, int delim) {
  get_window source;
  put_window room;
  if (from == to || !source.open(from) || !room.open<put_text>(to, 1)) return 0;
  const unsigned ready = static_cast<unsigned>(source.end - source.at),
                 place = static_cast<unsigned>(room.end - room.at);
  unsigned n = ready < place ? ready : place;
  if (delim != EOF) {
    const void *const found = memchr(source.at, delim, n);
    if (found) n = static_cast<unsigned>(static_cast<const char *>(found) - source.at);
  }
  memmove(room.at, source.at, n);
  source.take_up_to(source.at + n);
  room.commit(room.at + n);
  return static_cast<int>(n);
}

}  // namespace __zor

// What the quick paths of output operations share. They serve the common case: the stream is good, nothing is to be
// flushed before or after, and the buffer has room for the text, or is the library's own over a file. Nothing can throw
// there, so no frame is needed; everything else takes the long way.
#pragma once

#include <string.h>

#include "output_operation.h"
#include "stdio_file.h"
#include "windows.h"

// For the quick ways: in one piece, whatever compilers think of their size.
#define PLX_INLINE __attribute__((__always_inline__))

// For the long ways: out of line, so that the quick ones save few registers.
#define PLX_LONG_WAY __attribute__((__noinline__, __visibility__("hidden")))

// A later step of a quick way. It has the arguments of the operation itself, so that the step before can jump to it; to
// local functions compilers would give a calling convention without that.
#define PLX_STEP __attribute__((__noinline__, __visibility__("hidden")))

namespace __zor {

// The stream's base as one address: compilers would rather add the offset to every access, and run out of registers.
inline std::ios &base_of(std::ostream &out) {
  std::ios *base = &out;
  __asm__("" : "+r"(base));
  return *base;
}

inline bool is_quiet(const std::ios &stream) { return _quick_output::_is_quiet(stream, 0); }

inline bool has_quick(const std::locale &loc, std::locale::imp::_quick bits) {
  return (loc._get_imp()->_get_quick() & bits) != 0;
}

// The file under a buffer that hands its characters to stdio as they are, or null.
inline FILE *plain_file(std::streambuf *buffer) {
  if (!is_plain_filebuf(buffer) || !has_quick(_buffer_access::loc(*buffer), std::locale::imp::_quick_codecvt))
    return nullptr;
  return _buffer_access::file(*buffer);
}

// Where the next character goes in a buffer that nobody sees beyond its end, when it has room for n; or null.
inline PLX_INLINE char **roomy_cursor(std::streambuf *buffer, int n) {
  if (is_plain_stringbuf(buffer)) {
    char *&next = _buffer_access::pptr(*buffer);
    if (_buffer_access::epptr(*buffer) - next < n) return nullptr;
    return _buffer_access::is_at_end(static_cast<std::stringbuf &>(*buffer)) ? &next : nullptr;
  }
  FILE *const file = plain_file(buffer);
  return file && file->_IO_write_end - file->_IO_write_ptr >= n ? &file->_IO_write_ptr : nullptr;
}

inline int room_in(const FILE *file) { return static_cast<int>(file->_IO_write_end - file->_IO_write_ptr); }

// Inserters of numbers, characters and C strings do not notice what a buffer refuses, and stdio forgets what it could
// not write. So the buffer remembers: flush and close report it. A file that is only read loses nothing.
inline void note_loss(std::streambuf &buffer, FILE *file) {
  if (__fwritable(file)) _buffer_access::lost(buffer) = true;
}
inline void insert_into_file(std::streambuf &buffer, FILE *file, const char *text, long n) {
  if (write_file(file, text, n) != n) note_loss(buffer, file);
}

}  // namespace __zor

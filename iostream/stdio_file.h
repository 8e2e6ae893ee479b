// What file buffers need of stdio, in one place. Calls are the unlocked ones, and short cases are done in stdio's own
// buffer, as its macros do, so that a program may use the same FILE by both ways in any order.
//
// C asks for a positioning call between writing and reading of one file: each slow path here makes it when the
// direction has changed, so streams need none.
#pragma once

#include <stdio.h>
#include <stdio_ext.h>
#include <string.h>

namespace __zor {

inline bool is_standard_file(const FILE *file) { return file == stdin || file == stdout || file == stderr; }

// What is written becomes visible to reading, and the end is looked for anew: the file may have grown.
void turn_to_reading(FILE *file);

// Forgets what was read ahead and put back, in a file that can be written. Most calls come while nothing is, and cost
// one comparison.
void forget_read_ahead(FILE *file);
inline void turn_to_writing(FILE *file) {
  if (file->_IO_read_base != file->_IO_read_end) forget_read_ahead(file);
}

// By stdio, whatever room there is in its buffer. Out of line, so that what comes before needs no frame.
long write_slow(FILE *file, const char *from, long n) __attribute__((__noinline__, __regparm__(3)));

inline int put_into_file(FILE *file, int c) {
  const char one = static_cast<char>(c);
  if (file->_IO_write_ptr >= file->_IO_write_end) return write_slow(file, &one, 1) == 1 ? c : EOF;
  *file->_IO_write_ptr++ = one;
  return c;
}

inline long write_file(FILE *file, const char *from, long n) {
  if (n >= file->_IO_write_end - file->_IO_write_ptr) return write_slow(file, from, n);
  memcpy(file->_IO_write_ptr, from, n);
  file->_IO_write_ptr += n;
  return n;
}

// Nothing waits to be written, and nothing was read ahead that a flush would give back.
inline bool has_nothing_to_flush(const FILE *file) {
  return file->_IO_write_ptr <= file->_IO_write_base && file->_IO_read_ptr == file->_IO_read_end;
}

// Whether a reader's file may have characters that were put back, other than by stepping back in the buffer: the area
// that the C library keeps for them is there.
inline bool has_put_back(FILE *file) { return file->_IO_save_base && !__fwriting(file); }

// The character becomes the next one, and the position one less, but never less than the beginning. EOF: it cannot.
int put_back(FILE *file, int c);

// Writes out what is waiting; a reader's file is set to the reader's position, without what was put back.
int synchronise(FILE *file);

// Positions: -1 for failure, and for any that a long does not hold; a refused move leaves the file where it was.
long position_of(FILE *file);
long move_by(FILE *file, long offset, int whence);

// One character back, by position, which a pipe does not have; false when that fails.
inline bool step_back(FILE *file) {
  // stdio knows the offset of its buffer only when the file can be positioned.
  if (file->_offset >= 0 && !has_put_back(file) && file->_IO_read_ptr > file->_IO_read_base) {
    --file->_IO_read_ptr;
    file->_flags &= ~_IO_EOF_SEEN;
    return true;
  }
  return move_by(file, -1, SEEK_CUR) != -1;
}

// The number of characters from the position to the end; -1 when there are none or nobody knows.
long left_in_file(FILE *file);

}  // namespace __zor

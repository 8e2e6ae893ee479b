// Positions in files, and the changes between writing and reading. Programs' files are opened without large-file
// support, but a standard file may be of any size: positions beyond a long are refused, never wrapped.
//
// Characters that ungetc keeps aside stand before the position that they were put back at, and moves relative to it go
// wrong in the C library, as fflush does: it takes the area of those characters for its buffer. ftello knows better, so
// moves are made to absolute positions.

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include "stdio_file.h"

namespace __zor {

namespace {

long as_long(off64_t position) { return position > LONG_MAX ? -1 : static_cast<long>(position); }

// -1: there is none. A character put back before the first one of a file is at no position; the file's beginning is.
off64_t place_in(FILE *file) {
  const off64_t at = ftello64(file);
  return at < 0 && lseek64(fileno_unlocked(file), 0, SEEK_CUR) != -1 ? 0 : at;
}

// Of a file that is read.
off64_t end_of(int descriptor) {
  const off64_t at = lseek64(descriptor, 0, SEEK_CUR), end = lseek64(descriptor, 0, SEEK_END);
  lseek64(descriptor, at, SEEK_SET);
  return end;
}

}  // namespace

void turn_to_reading(FILE *file) {
  if (__fwriting(file)) fseek(file, 0, SEEK_CUR);
  // At a terminal the end was typed once, and stays: the next reader would wait for another.
  if (feof_unlocked(file) && !isatty(fileno_unlocked(file))) file->_flags &= ~_IO_EOF_SEEN;
}

void forget_read_ahead(FILE *file) {
  if (!__fwritable(file)) return;
  const off64_t at = has_put_back(file) ? place_in(file) : -1;
  if (at == -1)
    fseek(file, 0, SEEK_CUR);
  else
    fseeko64(file, at, SEEK_SET);
}

int put_back(FILE *file, int c) {
  if (!__freadable(file)) return EOF;
  if (__fwriting(file)) turn_to_reading(file);
  // Without a buffer the C library would not count the character. A move that goes nowhere makes one.
  if (!file->_IO_buf_base) fseek(file, 0, SEEK_CUR);
  return ungetc(c, file);
}

int synchronise(FILE *file) {
  // What a pipe was given back is kept.
  const off64_t at = has_put_back(file) ? place_in(file) : -1;
  if (at != -1) fseeko64(file, at, SEEK_SET);
  return fflush_unlocked(file);
}

long position_of(FILE *file) { return as_long(place_in(file)); }

// A refused move leaves the file as it was, what was put back included.
long move_by(FILE *file, long offset, int whence) {
  const bool aside = has_put_back(file);
  if (whence == SEEK_SET && !aside) return fseek(file, offset, whence) == 0 ? position_of(file) : -1;
  const off64_t before = place_in(file);
  if (before == -1) return -1;
  off64_t to = offset;
  if (whence == SEEK_CUR) {
    to += before;
  } else if (whence == SEEK_END) {
    if (!aside) {
      if (fseek(file, offset, whence) != 0) return -1;
      const off64_t after = ftello64(file);
      if (after > LONG_MAX) fseeko64(file, before, SEEK_SET);
      return as_long(after);
    }
    to += end_of(fileno_unlocked(file));
  }
  return to >= 0 && to <= LONG_MAX && fseeko64(file, to, SEEK_SET) == 0 ? static_cast<long>(to) : -1;
}

long left_in_file(FILE *file) {
  const off64_t at = place_in(file);
  if (at == -1) return -1;
  off64_t end;
  struct stat64 status;
  if (!__fwriting(file) && fstat64(fileno_unlocked(file), &status) == 0 && S_ISREG(status.st_mode)) {
    // Seeking would give up what is read ahead.
    end = status.st_size;
  } else {
    if (fseeko64(file, 0, SEEK_END) != 0) return -1;
    end = ftello64(file);
    if (end != at) fseeko64(file, at, SEEK_SET);
  }
  if (end <= at) return -1;
  return end - at > LONG_MAX ? LONG_MAX : static_cast<long>(end - at);
}

}  // namespace __zor

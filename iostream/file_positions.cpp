// Positions in files, and the change from writing to reading. Programs' files are opened without large-file support,
// but a standard file may be of any size: positions beyond a long are refused, never wrapped.

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include "stdio_file.h"

namespace __zor {

void turn_to_reading(FILE *file) {
  if (__fwriting(file)) fseek(file, 0, SEEK_CUR);
  // At a terminal the end was typed once, and stays: the next reader would wait for another.
  if (feof_unlocked(file) && !isatty(fileno_unlocked(file))) file->_flags &= ~_IO_EOF_SEEN;
}

namespace {

long as_long(off64_t position) { return position > LONG_MAX ? -1 : static_cast<long>(position); }

}  // namespace

long position_of(FILE *file) { return as_long(ftello64(file)); }

long move_by(FILE *file, long offset, int whence) {
  if (whence == SEEK_SET) return fseek(file, offset, whence) == 0 ? position_of(file) : -1;
  const off64_t before = ftello64(file);
  if (before == -1 || (whence == SEEK_CUR && before + offset > LONG_MAX)) return -1;
  // Asking for a position needs no move, which would write out what is waiting.
  if (whence == SEEK_CUR && offset == 0) return static_cast<long>(before);
  if (fseek(file, offset, whence) != 0) return -1;
  const off64_t after = ftello64(file);
  if (after > LONG_MAX) fseeko64(file, before, SEEK_SET);
  return as_long(after);
}

long left_in_file(FILE *file) {
  const off64_t at = ftello64(file);
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

// Writing to a file whose buffer has no room for all.

#include "stdio_file.h"

namespace __zor {

int put_after_flush(FILE *file, int c) {
  turn_to_writing(file);
  return putc_unlocked(c, file) == EOF ? EOF : c;
}

long write_after_flush(FILE *file, const char *from, long n) {
  turn_to_writing(file);
  // stdio would first fill its buffer, also when that is empty: it would copy every other of a row of blocks for
  // nothing. A buffer without room, as one that has just been made, is left alone.
  if (n >= file->_IO_buf_end - file->_IO_buf_base && file->_IO_write_ptr == file->_IO_write_base)
    file->_IO_write_end = file->_IO_write_ptr;
  return static_cast<long>(fwrite_unlocked(from, 1, n, file));
}

}  // namespace __zor

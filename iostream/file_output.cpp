// Writing to a file whose buffer has no room for all.

#include "owed_flush.h"
#include "stdio_file.h"

namespace __zor {

namespace {

// stdio would fill its buffer before it writes, also when that is empty: every other of a row of blocks would be copied
// for nothing. It writes at once when its buffer seems to be full; one without room, as a new one, is left alone.
void bypass_stdio_buffer(FILE *file) { file->_IO_write_end = file->_IO_write_ptr; }

}  // namespace

long write_slow(FILE *file, const char *from, long n) {
  // A line-buffered file would have no room after this write.
  if (owed_flush && file == stdout) pay_owed_flush();
  turn_to_writing(file);
  if (n >= file->_IO_buf_end - file->_IO_buf_base && file->_IO_write_ptr == file->_IO_write_base)
    bypass_stdio_buffer(file);
  return static_cast<long>(fwrite_unlocked(from, 1, n, file));
}

}  // namespace __zor

// Refills of stdio's buffer, and blocks read from files (read_ahead.h).

#include "read_ahead.h"

#include <stdlib.h>

#include "../libC/i386/copy_block.h"
#include "owed_flush.h"

// What getc's macro calls when the buffer is empty: it fills it and returns the first character, which stays.
extern "C" int __underflow(FILE *file);

namespace __zor {

namespace {

enum { enough_refills = 3, large_buffer = 32 * 1024 };

// Bits of FILE's flags, _IO_USER_BUF and _IO_UNBUFFERED, which the C library's headers do not name: a buffer that stdio
// does not free, and none. tests/iostream/files.cpp sees what becomes of them.
enum { io_user_buf = 1, io_unbuffered = 2 };

// Only in place of a buffer that stdio chose by itself, and that is empty.
bool may_have_larger_buffer(FILE *file) {
  return !(file->_flags & (io_user_buf | io_unbuffered)) && !__flbf(file) && file->_IO_buf_base &&
         file->_IO_buf_end - file->_IO_buf_base < large_buffer && !file->_IO_save_base && file->_fileno >= 0 &&
         file->_IO_read_ptr == file->_IO_read_end && file->_IO_write_ptr == file->_IO_write_base;
}

void use_larger_buffer(FILE *file) {
  if (!may_have_larger_buffer(file)) return;
  char *const buffer = static_cast<char *>(malloc(large_buffer));
  if (!buffer) return;
  const off64_t offset = file->_offset;
  if (setvbuf(file, buffer, _IOFBF, large_buffer) != 0) return free(buffer);
  file->_flags &= ~io_user_buf;  // stdio frees it, as it does with its own
  file->_offset = offset;        // still known
}

// Before stdio reads anew.
FILE *prepare_refill(std::filebuf &buffer) {
  if (owed_flush) pay_owed_flush();
  FILE *const file = _buffer_access::file(buffer);
  if (!file) return nullptr;
  turn_to_reading(file);
  unsigned char &refills = _buffer_access::refills(buffer);
  if (refills < enough_refills) ++refills;
  // Asked each time: freopen gives the file a small buffer again.
  if (refills == enough_refills) use_larger_buffer(file);
  return file;
}

}  // namespace

int peek_slow(std::filebuf &buffer) {
  FILE *const file = prepare_refill(buffer);
  return file ? __underflow(file) : EOF;
}

int get_slow(std::filebuf &buffer) {
  FILE *const file = prepare_refill(buffer);
  return file ? getc_unlocked(file) : EOF;
}

long read_file(std::filebuf &buffer, char *to, long n) {
  FILE *file = _buffer_access::file(buffer);
  const long ready = file->_IO_read_end - file->_IO_read_ptr;
  if (n <= ready) {
    copy_block(to, file->_IO_read_ptr, n);
    file->_IO_read_ptr += n;
    return n;
  }
  // What is ready comes first, so that stdio's buffer is empty when it may be exchanged.
  const long first = ready > 0 ? static_cast<long>(fread_unlocked(to, 1, ready, file)) : 0;
  prepare_refill(buffer);
  return first + static_cast<long>(fread_unlocked(to + first, 1, n - first, file));
}

}  // namespace __zor

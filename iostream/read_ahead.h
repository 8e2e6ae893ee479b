// The get side of file buffers: characters and blocks out of stdio's buffer, and its refills.
//
// stdio's own buffer has the size of a block of the file system, which is small. A file that is read through gets a
// larger one at its third refill in a row. Before that, and after a seek, the small one is right: whoever reads here
// and there throws most of a buffer away.
#pragma once

#include "access.h"
#include "stdio_file.h"

namespace __zor {

// The long ways are functions of their own, so that the short ones need no frame. -1: the end, or no file.
int peek_slow(std::filebuf &buffer) __attribute__((__noinline__, __regparm__(1)));
int get_slow(std::filebuf &buffer) __attribute__((__noinline__, __regparm__(1)));

// n is positive, and there is a file.
long read_file(std::filebuf &buffer, char *to, long n);

// The next character, which stays.
inline int peek_file(std::filebuf &buffer) {
  const FILE *const file = buffer_access::file(buffer);
  if (file && file->_IO_read_ptr < file->_IO_read_end) return static_cast<unsigned char>(*file->_IO_read_ptr);
  return peek_slow(buffer);
}

inline int get_from_file(std::filebuf &buffer) {
  FILE *const file = buffer_access::file(buffer);
  if (file && file->_IO_read_ptr < file->_IO_read_end) return static_cast<unsigned char>(*file->_IO_read_ptr++);
  return get_slow(buffer);
}

}  // namespace __zor

// The flush of cout that waits until stdin is refilled (owed_flush.h).

#include "owed_flush.h"

#include "access.h"
#include "stdio_file.h"

namespace __zor {

std::filebuf *owed_flush;

namespace {

// A standard file that is line-buffered for a time.
class a_line_buffered_file {
public:
  // A null buffer: only the mode changes.
  void begin(FILE *file) {
    buffer_ = __flbf(file) ? nullptr : file->_IO_buf_base;
    if (buffer_) setvbuf(file, nullptr, _IOLBF, 0);
  }
  // A file that was opened anew, or got another buffer, has chosen for itself.
  void end(FILE *file) {
    if (buffer_ && buffer_ == file->_IO_buf_base) setvbuf(file, nullptr, _IOFBF, 0);
    buffer_ = nullptr;
  }

private:
  const char *buffer_;
};

a_line_buffered_file in, out;

// Without a buffer, which a buffer of one place stands for, the mode is not ours to change.
bool has_characters_ready(const FILE *file) {
  return file->_IO_read_ptr < file->_IO_read_end && file->_IO_buf_end - file->_IO_buf_base > 1;
}

}  // namespace

bool owe_flush(std::filebuf &from, std::filebuf &to) PLX_NOTHROW {
  if (_buffer_access::file(from) != stdin || _buffer_access::file(to) != stdout) return false;
  if (!has_characters_ready(stdin)) return false;
  if (owed_flush) return true;
  if (stdout->_IO_write_ptr <= stdout->_IO_write_base) return false;
  in.begin(stdin);
  out.begin(stdout);
  owed_flush = &to;
  return true;
}

void forget_owed_flush() PLX_NOTHROW {
  owed_flush = nullptr;
  in.end(stdin);
  out.end(stdout);
}

void pay_owed_flush() PLX_NOTHROW {
  std::filebuf &to = *owed_flush;
  forget_owed_flush();
  if (synchronise(stdout) != 0) _buffer_access::keep_write_error(to);
}

}  // namespace __zor

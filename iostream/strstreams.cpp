// The streams over strstreambuf.

#include <plx/strstream.h>

namespace std {

isstream::isstream(streambuf *buffer) : istream(buffer) {}
isstream::~isstream() {}

isstream &isstream::seekg(pos_type pos) {
  if (!fail()) basic_ios::rdbuf()->pubseekpos(pos, in);
  return *this;
}

isstream &isstream::seekg(off_type off, ios_base::seekdir way) {
  if (!fail()) basic_ios::rdbuf()->pubseekoff(off, way, in);
  return *this;
}

istrstream::istrstream(const char *text) : isstream(nullptr), _buffer_(text, 0) { init(&_buffer_); }
istrstream::istrstream(char *text) : isstream(nullptr), _buffer_(text, 0) { init(&_buffer_); }
istrstream::istrstream(const char *text, streamsize n) : isstream(nullptr), _buffer_(text, n) { init(&_buffer_); }
istrstream::istrstream(char *text, streamsize n) : isstream(nullptr), _buffer_(text, n) { init(&_buffer_); }
istrstream::~istrstream() {}

ostrstream::ostrstream() : ostream(nullptr), _buffer_(streamsize(0)) { init(&_buffer_); }
ostrstream::ostrstream(char *array, int n, ios_base::openmode mode) : ostream(nullptr), _buffer_(array, n, mode) {
  init(&_buffer_);
}
ostrstream::~ostrstream() {}

strstream::strstream() : iostream(nullptr), _buffer_(streamsize(0)) { init(&_buffer_); }
strstream::strstream(char *array, int n, ios_base::openmode mode) : iostream(nullptr), _buffer_(array, n, mode) {
  init(&_buffer_);
}
strstream::~strstream() {}

}  // namespace std

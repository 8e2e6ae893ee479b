// The streams over character arrays.

#include "../containers/cleanup_by_hand.h"

#include <plx/iostream/strstream.h>

#include "stream_start.h"

using namespace __zor;

namespace __zor {

extern PLX_API const void *const isstream_table[] __asm__("_ZTVSt8isstream");
extern PLX_API const void *const array_in_table[] __asm__("_ZTVSt10istrstream");
extern PLX_API const void *const array_out_table[] __asm__("_ZTVSt10ostrstream");
extern PLX_API const void *const array_both_table[] __asm__("_ZTVSt9strstream");

}  // namespace __zor

namespace std {

isstream::isstream(streambuf *buffer) { start_stream(*this, buffer, false, isstream_table); }
isstream::~isstream() {}

isstream &isstream::seekg(streampos pos) {
  if (!fail()) _stream_access::buffer(*this)->pubseekpos(pos, ios_base::in);
  return *this;
}

isstream &isstream::seekg(streamoff off, ios_base::seekdir way) {
  if (!fail()) _stream_access::buffer(*this)->pubseekoff(off, way, ios_base::in);
  return *this;
}

istrstream::istrstream(const char *text) : isstream(), _buffer_(text, 0) {
  start_stream(*this, _buffer_, array_in_table);
}
istrstream::istrstream(char *text) : isstream(), _buffer_(text, 0) { start_stream(*this, _buffer_, array_in_table); }
istrstream::istrstream(const char *text, streamsize n) : isstream(), _buffer_(text, n) {
  start_stream(*this, _buffer_, array_in_table);
}
istrstream::istrstream(char *text, streamsize n) : isstream(), _buffer_(text, n) {
  start_stream(*this, _buffer_, array_in_table);
}
istrstream::~istrstream() {}

ostrstream::ostrstream() { start_stream(*this, _buffer_, array_out_table); }
ostrstream::ostrstream(char *array, int n, ios_base::openmode mode) : _buffer_(array, n, (mode & ios_base::app) != 0) {
  start_stream(*this, _buffer_, array_out_table);
}
ostrstream::~ostrstream() {}

strstream::strstream() { start_stream(*this, _buffer_, array_both_table); }
strstream::strstream(char *array, int n, ios_base::openmode mode) : _buffer_(array, n, (mode & ios_base::app) != 0) {
  start_stream(*this, _buffer_, array_both_table);
}
strstream::~strstream() {}

}  // namespace std

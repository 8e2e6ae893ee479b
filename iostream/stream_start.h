// The constructors of streams: init, once all parts are there. What init throws, a ctype facet of the program's may
// have thrown.
#pragma once

#include "../libC/eh_tools.h"
#include "access.h"

namespace __zor {

// The stream in a constructor that fails. The base classes but ios own nothing; ios is somebody else's as long as the
// stream is a part of an object of another class.
struct half_made_stream {
  half_made_stream(std::streambuf *its_buffer, std::ios *base_to_end) : buffer(its_buffer), base(base_to_end) {}
  ~half_made_stream() {
    if (buffer) buffer->~basic_streambuf();
    if (base) base->std::basic_ios<char>::~basic_ios();
  }
  std::streambuf *buffer;  // a member of the stream
  std::ios *base;
};

// `table` is the virtual table of Stream: during construction, the one that a complete object alone points into, behind
// its three leading words. prepare() may throw.
template <class Stream, class Prepare> inline void start_stream_guarded(Stream &stream, std::streambuf *buffer,
                                                                        bool is_member, const void *const *table,
                                                                        Prepare prepare) {
  const bool complete = *reinterpret_cast<const void *const *const *>(&stream) == table + 3;
  std::ios *const base = complete ? &stream : nullptr;
  eh_local<half_made_stream> made(is_member ? buffer : nullptr, base);
  prepare();
  _stream_access::init(stream, buffer);
  made->buffer = nullptr;
  made->base = nullptr;
}

// The classic ctype cannot throw.
template <class Stream>
inline void start_stream(Stream &stream, std::streambuf *buffer, bool is_member, const void *const *table) {
  if (_stream_access::loc(stream)._get_imp()->_get_quick() & std::locale::imp::_quick_ctype)
    _stream_access::init(stream, buffer);
  else
    start_stream_guarded(stream, buffer, is_member, table, [] {});
}

// A stream that holds its buffer.
template <class Stream, class Buffer>
inline void start_stream(Stream &stream, Buffer &buffer, const void *const *table) {
  start_stream(stream, &buffer, true, table);
}

}  // namespace __zor

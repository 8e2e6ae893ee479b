// The constructors of streams that hold their buffer: init, once all parts are there.
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
  std::streambuf *buffer;
  std::ios *base;
};

// `table` is the virtual table of Stream: during construction, the one that a complete object alone points into, behind
// its three leading words. prepare() may throw.
template <class Stream, class Buffer, class Prepare>
inline void start_stream_guarded(Stream &stream, Buffer &buffer, const void *const *table, Prepare prepare) {
  const bool complete = *reinterpret_cast<const void *const *const *>(&stream) == table + 3;
  eh_local<half_made_stream> made(&buffer, complete ? &stream : nullptr);
  prepare();
  stream_access::init(stream, &buffer);
  made->buffer = nullptr;
  made->base = nullptr;
}

// The classic ctype cannot throw.
template <class Stream, class Buffer>
inline void start_stream(Stream &stream, Buffer &buffer, const void *const *table) {
  if (stream_access::loc(stream)._get_imp()->_get_quick() & std::locale::imp::_quick_ctype)
    stream_access::init(stream, &buffer);
  else
    start_stream_guarded(stream, buffer, table, [] {});
}

}  // namespace __zor

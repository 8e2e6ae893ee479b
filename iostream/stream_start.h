// The constructors of streams: init, once all parts are there. It throws when a ctype facet of the program's does.
#pragma once

#include "../libC/eh_tools.h"
#include "../locale/plain_facets.h"
#include "access.h"

namespace __zor {

// The stream in a constructor that fails. The virtual base ios belongs to the most derived object, and is destroyed
// here only when that is the stream; the other bases own nothing.
struct half_made_stream {
  half_made_stream(std::streambuf *its_buffer, std::ios *base_to_end) : buffer(its_buffer), base(base_to_end) {}
  ~half_made_stream() {
    if (buffer) buffer->~basic_streambuf();
    if (base) base->std::basic_ios<char>::~basic_ios();
  }
  std::streambuf *buffer;  // a member of the stream
  std::ios *base;
};

// `table` is the vtable of Stream, which an object points into behind three leading words; in a part of a larger object
// it is a construction vtable instead. prepare() may throw.
template <class Stream, class Prepare> inline void start_stream_guarded(Stream &stream, std::streambuf *buffer,
                                                                        bool is_member, const void *const *table,
                                                                        Prepare prepare) {
  const bool complete = *reinterpret_cast<const void *const *const *>(&stream) == table + 3;
  std::ios *const base = complete ? &stream : nullptr;
  eh_local<half_made_stream> made(is_member ? buffer : nullptr, base);
  prepare();
  stream_access::init(stream, buffer);
  made->buffer = nullptr;
  made->base = nullptr;
}

// The classic ctype cannot throw.
template <class Stream>
inline void start_stream(Stream &stream, std::streambuf *buffer, bool is_member, const void *const *table) {
  if (has_plain_ctype(stream_access::loc(stream)))
    stream_access::init(stream, buffer);
  else
    start_stream_guarded(stream, buffer, is_member, table, [] {});
}

// A stream that holds its buffer.
template <class Stream, class Buffer>
inline void start_stream(Stream &stream, Buffer &buffer, const void *const *table) {
  start_stream(stream, &buffer, true, table);
}

}  // namespace __zor

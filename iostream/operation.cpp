// The parts of a stream operation's frame, and the sentries, which are the same for users' operators.

#include "operation.h"

#include "white_space.h"

namespace __zor {

bool output_prefix(std::ostream &out) {
  if (stream_access::state(out) == ios_base::goodbit && stream_access::tie(out)) stream_access::tie(out)->flush();
  // Flushing may have changed this stream: a stream may be tied to one that shares its buffer, or to itself.
  if (stream_access::state(out) == ios_base::goodbit) return true;
  update_state(out, ios_base::failbit);
  return false;
}

iostate output_suffix(std::ostream &out) {
  std::streambuf *const buffer = stream_access::buffer(out);
  if (!(stream_access::flags(out) & ios_base::unitbuf) || !buffer) return ios_base::goodbit;
  int synchronised = -1;
  eh_guard([&] { synchronised = buffer->pubsync(); });
  return synchronised == -1 ? ios_base::badbit : ios_base::goodbit;
}

bool input_prefix(std::istream &in, bool noskipws) {
  iostate error = ios_base::goodbit;
  start_count(in);
  if (stream_access::state(in) != ios_base::goodbit)
    error = ios_base::failbit;
  else {
    const bool skips = !noskipws && (stream_access::flags(in) & ios_base::skipws);
    if ((skips || stream_access::tie(in)) && eh_guard([&] {
          if (stream_access::tie(in)) std::__zor_do_flush(stream_access::tie(in));
          if (skips) skip_white_space(in);
        }))
      error = ios_base::badbit;
  }
  update_state(in, error);
  return stream_access::state(in) == ios_base::goodbit;
}

}  // namespace __zor

// The parts of an output operation's frame; the sentry is the same for users' operators.

#include "output_operation.h"

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

}  // namespace __zor

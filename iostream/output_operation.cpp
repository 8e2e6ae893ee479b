// The parts of an output operation's frame; the sentry is the same for users' operators.

#include "output_operation.h"

namespace __zor {

bool output_prefix(std::ostream &out) {
  // A stream tied to itself would flush, and so flush, for ever.
  std::ostream *const tie = stream_access::tie(out);
  if (stream_access::state(out) == ios_base::goodbit && tie && tie != &out) tie->flush();
  // What the flush ran may have changed this stream as well.
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

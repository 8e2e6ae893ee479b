// The parts of an output operation's frame; the sentry is the same for users' operators.

#include "output_operation.h"

namespace __zor {

namespace {

// The streams whose tied streams are being flushed, innermost first. Streams tied in a circle would flush, and so
// flush, for ever.
class a_flush {
public:
  explicit a_flush(const std::ostream *of) : of_(of), outer_(innermost) { innermost = this; }
  ~a_flush() { innermost = outer_; }

  static bool is_on_its_way(const std::ostream *of) {
    for (const a_flush *one = innermost; one; one = one->outer_)
      if (one->of_ == of) return true;
    return false;
  }

private:
  static const a_flush *innermost;

  const std::ostream *of_;
  const a_flush *outer_;
};
const a_flush *a_flush::innermost;

void flush_tie(const std::ostream &out, std::ostream *tie) {
  if (tie == &out || a_flush::is_on_its_way(&out)) return;
  eh_local<a_flush> mark(&out);
  tie->flush();
}

}  // namespace

bool output_prefix(std::ostream &out) {
  std::ostream *const tie = _stream_access::tie(out);
  if (_stream_access::state(out) == ios_base::goodbit && tie) flush_tie(out, tie);
  // What the flush ran may have changed this stream as well.
  if (_stream_access::state(out) == ios_base::goodbit) return true;
  update_state(out, ios_base::failbit);
  return false;
}

iostate output_suffix(std::ostream &out) {
  std::streambuf *const buffer = _stream_access::buffer(out);
  if (!(_stream_access::flags(out) & ios_base::unitbuf) || !buffer) return ios_base::goodbit;
  int synchronised = -1;
  eh_guard([&] { synchronised = buffer->pubsync(); });
  return synchronised == -1 ? ios_base::badbit : ios_base::goodbit;
}

}  // namespace __zor

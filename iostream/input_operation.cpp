// The parts of an input operation's frame; the sentry is the same for users' operators.

#include "input_operation.h"

namespace __zor {

bool input_prefix(std::istream &in, bool noskipws) {
  if (starts_unguarded(in, noskipws)) return true;
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

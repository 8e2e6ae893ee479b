// Skipping white space: the sentry's, and the manipulator ws.

#include "white_space.h"

namespace __zor {

bool has_nothing_to_flush(const std::ostream *tied) PLX_NOTHROW {
  if (stream_access::state(const_cast<std::ostream &>(*tied)) != ios_base::goodbit || stream_access::tie(*tied))
    return false;
  std::streambuf *const buffer = stream_access::buffer(*tied);
  if (!is_plain_filebuf(buffer)) return false;
  const FILE *const file = buffer_access::file(*buffer);
  return !file || has_nothing_to_flush(file);
}

bool skip_white_space(std::istream &in) {
  const std::ctype<char> &classes = std::use_facet<std::ctype<char>>(stream_access::loc(in));
  return read_blocks(stream_access::buffer(in), [&](const char *&at, const char *end) {
    at = classes.scan_not(std::ctype_base::space, at, end);
    return at == end;
  });
}

bool skip_plain_space(std::streambuf *buffer) PLX_NOTHROW {
  return read_blocks(buffer, [](const char *&at, const char *end) {
    while (at != end && is_classic_space(*at)) ++at;
    return at == end;
  });
}

}  // namespace __zor

namespace std {

// No sentry: at the end of the input, which the extraction before may have met, there is nothing to complain of.
template <> istream &ws(istream &in) {
  using namespace __zor;
  iostate error = ios_base::goodbit;
  if (stream_access::state(in) != ios_base::goodbit) return in;
  if (starts_fast(in) && is_plain_buffer(stream_access::buffer(in)) && has_plain_ctype(stream_access::loc(in))) {
    if (!skip_plain_space(stream_access::buffer(in))) error = ios_base::eofbit;
  } else if (eh_guard([&] {
               if (stream_access::tie(in)) __zor_do_flush(stream_access::tie(in));
               if (!skip_white_space(in)) error |= ios_base::eofbit;
             })) {
    error |= ios_base::badbit;
  }
  if (error != ios_base::goodbit) update_state(in, error);
  return in;
}

}  // namespace std

// Skipping white space: the sentry's, and the manipulator ws.

#include "white_space.h"

#include "owed_flush.h"

namespace __zor {

bool needs_no_flush(const std::istream &in, const std::ostream &tied) PLX_NOTHROW {
  if (_stream_access::state(const_cast<std::ostream &>(tied)) != ios_base::goodbit || _stream_access::tie(tied))
    return false;
  std::streambuf *const to = _stream_access::buffer(tied);
  if (!is_plain_filebuf(to)) return false;
  const FILE *const file = _buffer_access::file(*to);
  if (!file || has_nothing_to_flush(file)) return true;
  std::streambuf *const from = _stream_access::buffer(in);
  return !(_stream_access::flags(tied) & ios_base::unitbuf) && is_plain_filebuf(from) &&
         owe_flush(static_cast<std::filebuf &>(*from), static_cast<std::filebuf &>(*to));
}

bool skip_white_space(std::istream &in) {
  const std::ctype<char> &classes = std::use_facet<std::ctype<char>>(_stream_access::loc(in));
  return read_blocks(_stream_access::buffer(in), [&](const char *&at, const char *end) {
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
  if (_stream_access::state(in) != ios_base::goodbit) return in;
  if (starts_fast(in) && is_plain_buffer(_stream_access::buffer(in)) && has_plain_ctype(_stream_access::loc(in))) {
    if (!skip_plain_space(_stream_access::buffer(in))) error = ios_base::eofbit;
  } else if (eh_guard([&] {
               if (_stream_access::tie(in)) __zor_do_flush(_stream_access::tie(in));
               if (!skip_white_space(in)) error |= ios_base::eofbit;
             })) {
    error |= ios_base::badbit;
  }
  if (error != ios_base::goodbit) update_state(in, error);
  return in;
}

}  // namespace std

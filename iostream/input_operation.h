// The frame of input operations (operation.h has the drawing).
#pragma once

#include <limits.h>

#include <plx/iostream/istream.h>

#include "white_space.h"

namespace __zor {

// As output_prefix, and white space is skipped unless noskipws; nothing is thrown except failure.
bool input_prefix(std::istream &in, bool noskipws);

// Counts no further than a streamsize goes.
inline void count_more(std::streamsize &count, std::streamsize n) { count = count > INT_MAX - n ? INT_MAX : count + n; }

// body(error) reads from in.rdbuf() and adds to error. After it, or when the prefix says no, always(error) runs.
template <class Body, class Always>
inline void input_operation(std::istream &in, bool noskipws, Body body, Always always) {
  iostate error = ios_base::goodbit;
  // What the body added before an exception counts.
  if (input_prefix(in, noskipws) && eh_guard([&] { body(error); })) error |= ios_base::badbit;
  always(error);
  update_state(in, error);
}
template <class Body> inline void input_operation(std::istream &in, bool noskipws, Body body) {
  input_operation(in, noskipws, body, [](iostate &) {});
}

// The same for a body in which only the stream's buffer and its ctype facet can throw: without the frame where these
// are the library's own.
template <class Body, class Always>
inline void unguarded_input_operation(std::istream &in, bool noskipws, Body body, Always always) {
  if (!starts_unguarded(in, noskipws)) return input_operation(in, noskipws, body, always);
  iostate error = ios_base::goodbit;
  body(error);
  always(error);
  if (error != ios_base::goodbit) update_state(in, error);
}
template <class Body> inline void unguarded_input_operation(std::istream &in, bool noskipws, Body body) {
  unguarded_input_operation(in, noskipws, body, [](iostate &) {});
}

}  // namespace __zor

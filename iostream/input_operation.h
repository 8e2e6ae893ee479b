// The frame of input operations (operation.h has the drawing).
#pragma once

#include <plx/istream.h>

#include "operation.h"

namespace __zor {

// As output_prefix, and white space is skipped unless noskipws; nothing is thrown except failure.
bool input_prefix(std::istream &in, bool noskipws);

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

}  // namespace __zor

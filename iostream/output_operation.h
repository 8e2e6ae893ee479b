// Output operations: the fast way, and the frame (operation.h has the drawing).
//
// The fast way is for a stream that is good, with nothing to be flushed before or after, whose buffer has room: nothing
// can throw there, so no frame is needed. Everything else is slow, and out of line, so that the fast way saves few
// registers. A slow function has the arguments of the operation itself, and is not local: then the call of it is a tail
// call, while compilers give local functions a private calling convention.
#pragma once

#include <plx/iostream/ostream.h>

#include "operation.h"
#include "windows.h"

#define PLX_SLOW PLX_NOINLINE PLX_HIDDEN

namespace __zor {

// The stream's base as one address: compilers would rather add the offset to every access, and run out of registers.
inline std::ios &base_of(std::ostream &out) {
  std::ios *base = &out;
  PLX_OPAQUE(base);
  return *base;
}

// Nothing has to be done but writing; `more` is anything else that must be zero.
inline bool is_quiet(const std::ios &stream, long more = 0) { return _quick_output::_is_quiet(stream, more); }

// Returns whether the operation may go on. What the tied stream's flush or the update throws passes.
bool output_prefix(std::ostream &out);

// Synchronises for unitbuf. Returns badbit when the buffer failed or threw.
iostate output_suffix(std::ostream &out);

// body(error) writes to out.rdbuf() and adds to error; `refused` is added when the prefix says no. always(allowed) runs
// before the state is updated, whatever the prefix said or the body threw.
template <class Body, class Always>
inline void output_operation(std::ostream &out, iostate refused, Body body, Always always) {
  iostate error = ios_base::goodbit;
  const bool allowed = output_prefix(out);
  if (!allowed)
    error = refused;
  else if (eh_guard([&] { body(error); }))
    error |= ios_base::badbit;
  always(allowed);
  update_state(out, error | output_suffix(out));
}
template <class Body> inline void output_operation(std::ostream &out, iostate refused, Body body) {
  output_operation(out, refused, body, [](bool) {});
}

}  // namespace __zor

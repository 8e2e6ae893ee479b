// The frame of output operations (operation.h has the drawing).
#pragma once

#include <plx/iostream/ostream.h>

#include "operation.h"

namespace __zor {

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

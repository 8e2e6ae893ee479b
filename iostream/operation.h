// The one frame of every stream operation:
//
//     prefix      is the stream good? then the tied stream is flushed, and input skips white space
//     body        under a guard: what it throws is discarded and becomes badbit
//     suffix      output with unitbuf set is synchronised
//     update      the error bits join the state, badbit if there is no buffer; failure if exceptions() asks for it
//
// Quick paths that can neither throw nor fail stand before the frame, in the operations themselves.
#pragma once

#include <plx/istream.h>
#include <plx/ostream.h>

#include "../libC/eh_tools.h"
#include "access.h"

namespace __zor {

using std::ios_base;
typedef ios_base::iostate iostate;

// Adds bits to the state. Throws failure when exceptions() asks for it.
inline void update_state(std::ios &stream, iostate error) {
  iostate &state = stream_access::state(stream);
  state |= error;
  if (!stream_access::buffer(stream)) state |= ios_base::badbit;
  if (state & stream_access::exceptions(stream) & 0xFFFF) ios_base::throwfailure();
}

// Returns whether the operation may go on. What the tied stream's flush or the update throws passes.
bool output_prefix(std::ostream &out);

// Synchronises for unitbuf. Returns badbit when the buffer failed or threw.
iostate output_suffix(std::ostream &out);

// As output_prefix, but nothing is thrown except failure.
bool input_prefix(std::istream &in, bool noskipws);

// body(error) writes to out.rdbuf() and adds to error; `refused` is added when the prefix says no.
template <class Body> inline void output_operation(std::ostream &out, iostate refused, Body body) {
  iostate error = ios_base::goodbit;
  if (!output_prefix(out))
    error = refused;
  else if (eh_guard([&] { body(error); }))
    error |= ios_base::badbit;
  update_state(out, error | output_suffix(out));
}

// body(error) reads from in.rdbuf() and adds to error. After it, or when the prefix says no, always(error) runs.
template <class Body, class Always>
inline void input_operation(std::istream &in, bool noskipws, Body body, Always always) {
  iostate error = ios_base::goodbit;
  // The guarded body's error word is in memory: what it added before an exception counts.
  if (input_prefix(in, noskipws) && eh_guard([&] { body(error); })) error |= ios_base::badbit;
  always(error);
  update_state(in, error);
}
template <class Body> inline void input_operation(std::istream &in, bool noskipws, Body body) {
  input_operation(in, noskipws, body, [](iostate &) {});
}

}  // namespace __zor

// The one frame of every stream operation:
//
//     prefix      is the stream good? then the tied stream is flushed, and input skips white space
//     body        under a guard: what it throws is discarded and becomes badbit
//     suffix      output with unitbuf set is synchronised
//     update      the error bits join the state, badbit if there is no buffer; failure if exceptions() asks for it
//
// output_operation.h and input_operation.h hold the two forms. Quick paths that can neither throw nor fail stand before
// the frame, in the operations themselves.
#pragma once

#include "../libC/eh_tools.h"
#include "access.h"

namespace __zor {

using std::ios_base;
typedef ios_base::iostate iostate;

// Adds bits to the state. Throws failure when exceptions() asks for it.
inline void update_state(std::ios &stream, iostate error) {
  iostate &state = _stream_access::state(stream);
  state |= error;
  if (!_stream_access::buffer(stream)) state |= ios_base::badbit;
  if (state & _stream_access::exceptions(stream) & 0xFFFF) ios_base::throwfailure();
}

}  // namespace __zor

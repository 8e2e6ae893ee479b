// The entry points by which generated code and the library throw: they save the frame of their caller, where a walk
// over frames of C++ begins.

#include "saved_frame.h"

PLX_ENTRY_THAT_THROWS("__throw", "__zor_throw_from");
PLX_ENTRY_THAT_THROWS("__rethrow", "__zor_rethrow_from");

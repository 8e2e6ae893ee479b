// The way out of a throw: landing.cpp.
#pragma once

#include "../libC/frames.h"

namespace __zor {

// A throw in a process with frames of C++, from the search to the handler; what throw_across_frames is set to.
void throw_and_land(a_throw_stack_entry *thrown, const a_saved_frame *thrower);

}  // namespace __zor

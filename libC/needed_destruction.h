// The record that the list of needed destructions begins with: the oldest, run last.
#pragma once

#include <plx/runtime.h>

namespace __zor {

// Ends the list. Not null: a null link marks a record that is not registered.
#define PLX_END_OF_DESTRUCTIONS reinterpret_cast<a_needed_destruction *>(17)

// Linked before any code runs, so that it is the oldest in whatever order constructors run. Defined with the
// exception classes, which stand above.
extern a_needed_destruction oldest_needed_destruction;

}  // namespace __zor

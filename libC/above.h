// What the runtime needs of the exception classes, which stand above it: each holds a string, strings need operator
// new, and operator new throws. Beside these they define __default_new_handler, __throw_bad_cast and __throw_bad_typeid
// of <plx/runtime.h>.
#pragma once

#include <plx/runtime.h>

namespace __zor {

// Ends the list of needed destructions. Not null: a null link marks a record that is not registered.
#define PLX_END_OF_DESTRUCTIONS reinterpret_cast<a_needed_destruction *>(17)

// The record that the list begins with, run last. It is linked before any code runs, so that it is the oldest in
// whatever order constructors run.
extern a_needed_destruction oldest_needed_destruction;

// Begins the throw of a std::bad_exception, up to __throw.
void set_up_bad_exception();

// The what() of an object of the given type, or null when the type is not derived from std::exception.
const char *message_of(void *object, const a_type_info_impl *type);

}  // namespace __zor

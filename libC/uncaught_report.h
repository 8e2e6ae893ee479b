// What a program that dies of an uncaught exception says.
#pragma once

#include "eh_state.h"

namespace __zor {

// Prints one line about the exception that was thrown last, if there is one, to standard error, and one about code that
// no exception can leave, if that is why nobody handled it.
void report_uncaught_exception();

// The function that holds the address, as far as the dynamic linker knows; null elsewhere.
const char *function_at(unsigned address);

// Prints "plx: terminated: " and the reason.
void report_termination(const char *reason);

// Writes a foreign type's name as in source to `text`, or as the compiler encoded it when that is beyond it.
void foreign_readable_name(const a_type_info_impl *native, char *text, size_t size);

}  // namespace __zor

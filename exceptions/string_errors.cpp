// The two errors that strings report, with their texts: for the headers, and under hidden names for the core, which
// stands below the exception classes.

#include <stdexcept>

#include "../string/representation.h"

namespace __zor {

void string_out_of_range() { std::out_of_range::__throw("Out of range exception occurred"); }
void string_length_error() { std::length_error::__throw("Length exception occurred"); }

PLX_COLD void fail_out_of_range() { string_out_of_range(); }
PLX_COLD void fail_length() { string_length_error(); }

}  // namespace __zor

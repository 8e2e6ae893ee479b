// The two errors that strings report, with their texts.

#include <stdexcept>

#include <plx/string_core.h>

namespace __zor {

void string_out_of_range() { std::out_of_range::__throw("Out of range exception occurred"); }
void string_length_error() { std::length_error::__throw("Length exception occurred"); }

}  // namespace __zor

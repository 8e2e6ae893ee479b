// The exceptions of bitset with their texts, thrown here so that no instantiation of the template holds code for it.
// "occured" is the text of the interface.

#include <stdexcept>

#include <plx/containers/bitset_words.h>

namespace __zor {

void throw_range() { std::out_of_range::__throw("Out of range exception occured."); }
void throw_invalid_value_in_string() { std::invalid_argument::__throw("Invalid value in the string"); }
void throw_bitset_overflow() { std::overflow_error::__throw("Bitset can not be converted"); }

}  // namespace __zor

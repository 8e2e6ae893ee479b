// std::bad_exception: never has a message, whatever it was copied from.

#include <exception>

namespace std {

bad_exception::bad_exception() PLX_NOTHROW {}
bad_exception::bad_exception(const bad_exception &) PLX_NOTHROW : exception() {}
bad_exception &bad_exception::operator=(const bad_exception &) PLX_NOTHROW { return *this; }
bad_exception::~bad_exception() PLX_NOTHROW {}
const char *bad_exception::what() const PLX_NOTHROW { return ""; }

}  // namespace std

// std::bad_exception: never has a message, whatever it was copied from.

#include <exception>

#include "../libC/above.h"
#include "throw_object.h"

namespace std {

bad_exception::bad_exception() PLX_NOTHROW {}
bad_exception::bad_exception(const bad_exception &) PLX_NOTHROW : exception() {}
bad_exception &bad_exception::operator=(const bad_exception &) PLX_NOTHROW { return *this; }
bad_exception::~bad_exception() PLX_NOTHROW {}
const char *bad_exception::what() const PLX_NOTHROW { return ""; }

}  // namespace std

void __zor::set_up_bad_exception() {
  new (thrown_storage<std::bad_exception>(__TI_St13bad_exception)) std::bad_exception;
}

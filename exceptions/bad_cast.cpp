// std::bad_cast and the runtime's way to throw it.

#include <typeinfo>

#include "throw_object.h"

namespace std {

bad_cast::~bad_cast() PLX_NOTHROW {}
void bad_cast::__throw(const char *text) { __zor::throw_object<bad_cast>(__TI_St8bad_cast, text); }

}  // namespace std

void __throw_bad_cast() { std::bad_cast::__throw("Bad Cast Exception"); }

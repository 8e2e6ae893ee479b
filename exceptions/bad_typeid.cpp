// std::bad_typeid and the runtime's way to throw it. Its message is there, but empty.

#include <typeinfo>

#include "throw_object.h"

namespace std {

bad_typeid::bad_typeid() : exception("") {}
bad_typeid::~bad_typeid() PLX_NOTHROW {}

}  // namespace std

void __throw_bad_typeid() { __zor::throw_object<std::bad_typeid>(__TI_St10bad_typeid); }

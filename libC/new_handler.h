// The new handler as the allocation functions see it.
#pragma once

#include <plx/runtime.h>

namespace __zor {

extern a_handler _new_handler;  // may be null

inline a_handler current_new_handler() { return _new_handler ? _new_handler : __default_new_handler; }

}  // namespace __zor

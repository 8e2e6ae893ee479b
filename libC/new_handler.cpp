// The installed new handler (1998, 18.4.2.2).

#include "new_handler.h"

#include <new>

namespace __zor {
a_handler _new_handler = __default_new_handler;
}

std::new_handler std::set_new_handler(new_handler handler) PLX_NOTHROW {
  new_handler before = __zor::_new_handler;
  __zor::_new_handler = handler;
  return before;
}

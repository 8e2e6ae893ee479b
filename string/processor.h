// What the processor can do beyond the i686 that everything may count on; asked once, when the library is loaded.
#pragma once

#include "block_pool.h"

namespace __zor {

extern PLX_STRING_HIDDEN_DATA bool processor_has_sse2;
extern PLX_STRING_HIDDEN_DATA bool processor_has_popcnt;

}  // namespace __zor

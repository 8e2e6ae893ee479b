// For the sources that instantiate containers in the library: guards register with the runtime, because the library is
// compiled without exceptions. Include it before any header of a container.
#pragma once

#define PLX_CLEANUP_BY_HAND
#define PLX_INSTANTIATES_FOR_ALL

#include "../libC/eh_tools.h"

namespace __zor {

template <class Guard> using _cleanup = eh_local<Guard>;

}  // namespace __zor

// The entry points by which C++ throws: as those of generated code, libC/i386/throw_entry.cpp.

#include "../../libC/i386/saved_frame.h"

PLX_ENTRY_THAT_THROWS("__cxa_throw", "__zor_cxa_throw_from");
PLX_ENTRY_THAT_THROWS("__cxa_rethrow", "__zor_rethrow_from");

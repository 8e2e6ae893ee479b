// A static program is one object, and stays. What the C library tells of it covers its code, and not its tables. Beside
// it the kernel has put an object with the frames of signals.

#include <dlfcn.h>

#include "../plan.h"

// Set by the linker.
extern "C" PLX_HIDDEN const unsigned char __ehdr_start[], _end[];

namespace __zor {

bool find_object(unsigned address, an_object &object) {
  dl_find_object found;
  if (_dl_find_object(reinterpret_cast<void *>(address), &found) != 0) return false;
  object.range = {__ehdr_start, _end};
  if (!object.range.holds(reinterpret_cast<const void *>(address), 1))
    object.range = {static_cast<const byte *>(found.dlfo_map_start), static_cast<const byte *>(found.dlfo_map_end)};
  object.index = static_cast<const byte *>(found.dlfo_eh_frame);
  object.map = nullptr;
  return true;
}

void note_object(const void *) {}
void forget_object(const void *) {}
bool may_remember(void *) { return true; }

}  // namespace __zor

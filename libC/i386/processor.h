// What the processor can do beyond the i686 that everything may count on; asked once, when the library is loaded.
#pragma once

namespace __zor {

extern __attribute__((__visibility__("hidden"))) bool processor_has_sse2;
extern __attribute__((__visibility__("hidden"))) bool processor_has_popcnt;

}  // namespace __zor

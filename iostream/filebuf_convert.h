// How a file buffer writes when its codecvt facet converts.
#pragma once

#include <plx/facets/codecvt.h>

#include "access.h"

namespace __zor {

// All n characters, converted; false when not all of them could be, or not everything could be written. What the facet
// throws passes, and nothing is written then.
bool write_converted(std::filebuf &buffer, const std::codecvt<char, char, int> &facet, const char *from, long n);

// Writes what brings the converted text back to its initial state; false when that could not be. What the facet throws
// passes; the conversion has ended in any case.
bool end_conversion(std::filebuf &buffer);

extern struct a_conversion *conversions;  // those under way, of all buffers
inline bool ends_conversion(std::filebuf &buffer) { return !conversions || end_conversion(buffer); }

}  // namespace __zor

// Writing through a codecvt facet that converts.
#pragma once

#include <stdio.h>

#include <plx/codecvt.h>

namespace __zor {

// Converts n characters and writes the result: all, or nothing when the facet says partial or error, or when there is
// no memory. Returns whether everything was written. What the facet throws passes.
bool write_converted(FILE *file, const std::codecvt<char, char, int> &facet, const char *from, long n);

}  // namespace __zor

// The loop of getline for processors with SSE2.
#pragma once

namespace __zor {

// Copies characters up to the first `delim` among n, and returns where that is; null when there is none, and then up to
// n characters may have been copied. The texts do not overlap.
__attribute__((__visibility__("hidden"), __regparm__(3))) const char *copy_line_sse2(char *to, const char *from,
                                                                                     unsigned int n, char delim);

}  // namespace __zor

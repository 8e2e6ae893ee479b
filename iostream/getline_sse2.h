// The two ways of getline: for strings, and for arrays of n characters.
#pragma once

#include <plx/iostream/istream.h>
#include <plx/string/basic_string.h>

namespace __zor {

PLX_HIDDEN PLX_REGPARM std::istream &get_line(std::istream &in, std::string &text, char delim);
PLX_HIDDEN PLX_REGPARM std::istream &get_line(std::istream &in, char *to, std::streamsize n, char delim);

// For processors with SSE2: a line that lies whole in the buffer's window, and has room at its destination, is taken at
// once.
PLX_HIDDEN PLX_REGPARM std::istream &get_line_sse2(std::istream &in, std::string &text, char delim);
PLX_HIDDEN PLX_REGPARM std::istream &get_line_sse2(std::istream &in, char *to, std::streamsize n, char delim);

}  // namespace __zor
